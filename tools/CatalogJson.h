// A loaded catalog as JSON, as docs/json.md describes it.
#pragma once

#include "catalogs/model/Catalog.h"

#include <QJsonDocument>
#include <QStringList>

#include <functional>

namespace Orvida::Tools {

/// Writes the JSON of a whole catalog piece by piece, so that only one item of it is in memory at a time.
class CatalogJson
{
public:
    /// Takes a piece of the text, in UTF-8.
    using Write = std::function<void(const QByteArray &)>;

    CatalogJson(QJsonDocument::JsonFormat format, Write write) : m_format(format), m_write(std::move(write))
    {
    }

    /// Every item with its fields for each profile of `profiles`, and the codes of each. Items come in
    /// display order, those outside the tree after them by id. `style` is the file's style value. Leaves
    /// the catalog with another profile.
    void write(Catalogs::Catalog &catalog, const QStringList &profiles, qint64 style);

private:
    void writeItems(Catalogs::Catalog &catalog, const QStringList &profiles);

    const QJsonDocument::JsonFormat m_format;
    const Write m_write;
};

} // namespace Orvida::Tools
