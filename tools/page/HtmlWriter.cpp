#include "tools/page/HtmlWriter.h"

#include "tools/OutputStyle.h"

#include <algorithm>

namespace Orvida::Tools {

namespace {

bool steersText(QChar c)
{
    return c != QLatin1Char('\n') && c != QLatin1Char('\t') && OutputStyle::steersTerminal(c);
}

} // namespace

HtmlWriter &HtmlWriter::operator<<(const QString &text)
{
    QString html = text.toHtmlEscaped();
    std::replace_if(html.begin(), html.end(), steersText, QChar(QChar::ReplacementCharacter));
    m_page += html.toUtf8();
    return *this;
}

// Browsers decode the address before they look for the anchor.
void HtmlWriter::startLink(const QString &anchor, const char *attributes)
{
    QString address = anchor;
    address.replace(QLatin1Char('%'), QLatin1String("%25"));
    *this << "<a " << attributes << "href=\"#" << address << "\">";
}

} // namespace Orvida::Tools
