// For tests of the manual and the schemas: catalogs in the readable form, and their scrambled form.
#pragma once

#include "catalogs/format/CatalogFormat.h"
#include "catalogs/reading/ScrambledText.h"

#include <QRegularExpression>
#include <QString>

namespace Orvida::Tests {

/// A field element; `text` is taken as it is, without escapes.
inline QString element(const QString &name, const QString &text)
{
    return QStringLiteral("<%1>%2</%1>\n").arg(name, text);
}

/// `readable` with the texts of the scrambled fields scrambled. They hold no escapes.
inline QString scrambledForm(const QString &readable)
{
    static const QRegularExpression fieldWithText(QStringLiteral("<(\\w+)>([^<]*)</\\1>"));
    QString result;
    int done = 0;
    for (auto matches = fieldWithText.globalMatch(readable); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        if (!Catalogs::CatalogFormat::isScrambled(match.capturedView(1)))
            continue;
        result += readable.midRef(done, match.capturedStart(2) - done);
        result += Catalogs::ScrambledText::encode(match.captured(2));
        done = match.capturedEnd(2);
    }
    return result + readable.midRef(done);
}

} // namespace Orvida::Tests
