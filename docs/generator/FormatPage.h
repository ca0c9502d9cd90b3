// The tables and the picture of docs/format.md, written from the table of the format.
#pragma once

#include <QString>
#include <QStringList>

namespace Orvida::Format {

/// A page of the manual of which some parts are made from the format: what is between a line
/// "<!-- made by the build: NAME -->" and the next line "<!-- end -->".
class FormatPage
{
public:
    FormatPage() = delete;

    /// `page` with its parts made anew. `absent` gets the names of the parts that it has no place for.
    static QString updated(const QString &page, QStringList &absent);
};

} // namespace Orvida::Format
