#include "docs/generator/PageParts.h"

namespace Orvida::Docs {

QString withParts(const QString &page, std::initializer_list<PagePart> parts, QStringList &absent)
{
    const QString endMark = QStringLiteral("<!-- end -->\n");
    QString result = page;
    for (const PagePart &part : parts) {
        const QString mark = QStringLiteral("<!-- made by the build: %1 -->\n").arg(part.name);
        const int start = result.indexOf(mark) + mark.size();
        const int end = result.indexOf(endMark, start);
        if (start < mark.size() || end < 0)
            absent.append(part.name);
        else
            result.replace(start, end - start, QLatin1Char('\n') + part.text() + QLatin1Char('\n'));
    }
    return result;
}

} // namespace Orvida::Docs
