// What a catalog says about itself, for its page.
#pragma once

#include "tools/page/HtmlWriter.h"
#include "tools/page/PageSource.h"

#include <QPair>
#include <QString>
#include <QVector>

namespace Orvida::Tools {

/// The catalog information of a file: the first record of that kind.
class PageOverview
{
public:
    explicit PageOverview(const PageSource &source);

    /// The edition, or the name of the file when there is no key.
    QString title() const;
    /// Key and version; empty when there is no key.
    QString edition() const;
    /// The language of the texts when it can be told to a browser; else empty.
    QString language() const;

    void write(HtmlWriter &out) const;

private:
    using Format = Catalogs::CatalogFormat;

    QString valueOf(QLatin1String field) const;

    const PageSource &m_source;
    QVector<QPair<const Format::Field *, QString>> m_fields; // those with a text
};

} // namespace Orvida::Tools
