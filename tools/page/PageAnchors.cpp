#include "tools/page/PageAnchors.h"

#include <algorithm>

namespace Orvida::Tools {

namespace {

// An anchor has no white space.
QString joined(QString text)
{
    std::replace_if(
        text.begin(), text.end(), [](QChar c) { return c.isSpace(); }, QLatin1Char('_'));
    return text;
}

} // namespace

PageAnchors::PageAnchors(const QList<QSharedPointer<Catalogs::CatalogItem>> &items)
{
    for (const auto &item : items) {
        if (item->code().isEmpty() || m_codes.contains(item->code()))
            continue;
        const QString anchor = take(item->code());
        m_codes.insert(item->code(), anchor);
        m_items.insert(item->id(), anchor);
    }
    for (const auto &item : items) {
        if (!m_items.contains(item->id()))
            m_items.insert(item->id(), take(item->id()));
    }
}

QString PageAnchors::ofList(const QString &classId)
{
    return QStringLiteral("_list_") + joined(classId);
}

QString PageAnchors::ofField(const QString &item, const QString &column)
{
    return item + QLatin1Char(':') + joined(column);
}

// An underscore begins the anchors of the page itself and of lists.
QString PageAnchors::take(const QString &wanted)
{
    QString first = joined(wanted);
    if (first.startsWith(QLatin1Char('_')))
        first.prepend(QLatin1Char('~'));
    int number = m_taken.value(first);
    QString anchor = first;
    while (m_taken.contains(anchor))
        anchor = first + QLatin1Char('~') + QString::number(++number);
    m_taken.insert(first, number);
    m_taken.insert(anchor, m_taken.value(anchor));
    return anchor;
}

} // namespace Orvida::Tools
