// Pages of the documentation of which some parts are made from the library's own tables.
#pragma once

#include <QLatin1String>
#include <QString>
#include <QStringList>

#include <initializer_list>

namespace Orvida::Docs {

/// A part of a page: what is between a line "<!-- made by the build: NAME -->" and the next line
/// "<!-- end -->".
struct PagePart
{
    QLatin1String name;
    QString (*text)();
};

/// `page` with `parts` made anew. `absent` gets the names of those that it has no place for.
QString withParts(const QString &page, std::initializer_list<PagePart> parts, QStringList &absent);

} // namespace Orvida::Docs
