// A loaded catalog as JSON, as docs/json.md describes it.
#pragma once

#include "catalogs/model/Catalog.h"

#include <QJsonDocument>
#include <QStringList>

#include <functional>

namespace Orvida::Tools {

/// Gives the JSON of a whole catalog piece by piece, so that no more than one item of it is in memory.
class CatalogJson
{
public:
    /// Takes a piece of the text, in UTF-8.
    using Write = std::function<void(const QByteArray &)>;

    CatalogJson(QJsonDocument::JsonFormat format, Write write) : m_format(format), m_write(std::move(write))
    {
    }

    /// Every item with its fields for each profile of `profiles`, and the codes of each. Items come in
    /// display order, those outside the tree after them by id. `style` is the file's style value. Uses the
    /// catalog up: its fields are gone afterwards, and its profile is another one.
    void write(Catalogs::Catalog &catalog, const QStringList &profiles, qint64 style);

private:
    void writeItems(Catalogs::Catalog &catalog, const QStringList &profiles);

    const QJsonDocument::JsonFormat m_format;
    const Write m_write;
};

} // namespace Orvida::Tools
