// Writes HTML so that no text of a catalog can become markup.
#pragma once

#include <QByteArray>
#include <QString>

namespace Orvida::Tools {

/// Gathers a page. Literals are markup; every QString is a text and is escaped, for elements as for
/// attributes in double quotes.
class HtmlWriter
{
public:
    HtmlWriter &operator<<(const char *markup)
    {
        m_page += markup;
        return *this;
    }
    HtmlWriter &operator<<(int number)
    {
        m_page += QByteArray::number(number);
        return *this;
    }
    /// Characters that steer a text instead of being seen in it are shown as U+FFFD.
    HtmlWriter &operator<<(const QString &text);

    /// The start tag of a link to `anchor` on the page. `attributes` is markup before the address.
    void startLink(const QString &anchor, const char *attributes = "");

    /// `markup` as it is.
    void addMarkup(const QByteArray &markup) { m_page += markup; }

    const QByteArray &page() const { return m_page; }

private:
    QByteArray m_page;
};

} // namespace Orvida::Tools
