#include "catalogs/model/OrphanReport_p.h"

#include "catalogs/model/CatalogItem.h"

#include <QByteArray>

#include <cstdio>

namespace Orvida::Catalogs {

void OrphanReport::add(const CatalogItem &item)
{
    m_text += QStringLiteral("Parent of item: ") + item.caption() + QStringLiteral(" not found!\nItem id: ")
              + item.id() + QStringLiteral("\nCatalog id: ") + m_catalogId + QLatin1Char('\n');
}

// The bytes of a text stream on standard output, but without one: a QTextStream crashes when its constructor
// runs out of memory.
void OrphanReport::write() const
{
    if (m_text.isEmpty())
        return;
    const QByteArray bytes = m_text.toLocal8Bit();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
    std::fflush(stdout);
}

} // namespace Orvida::Catalogs
