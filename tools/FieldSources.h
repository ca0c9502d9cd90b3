// Finds where in the file each property of a field comes from.
#pragma once

#include "tools/CatalogFile.h"
#include "tools/FieldOrigins.h"
#include "tools/FieldProperties.h"

#include <QString>
#include <QStringList>

namespace Orvida::Tools {

/// Finds the records of fields with their lines.
class FieldSources
{
public:
    using Record = RecordPositions::Record;

    /// The records that a field was built from; null for those that are missing or cannot be determined.
    struct Records
    {
        QStringList extensions; ///< In words; several when it is unknown which one it was.
        const Record *extension = nullptr;
        const Record *parameter = nullptr;
        const Record *column = nullptr;
        const Record *listClass = nullptr;
    };

    /// `file` must outlive the object.
    FieldSources(CatalogFile &file, const FieldOrigins &origins) : m_file(file), m_origins(origins) {}

    /// The record of `item`, in words; empty for the root.
    QString recordOf(const Catalogs::CatalogItem &item) const;

    /// The records of `field`, a field of `item` in the current profile.
    Records recordsOf(const Catalogs::CatalogItem &item, const Catalogs::CatalogInputField &field) const;

    /// Where `line` of `field` comes from, in words.
    QString sourceOf(const FieldWords &line, const Catalogs::CatalogInputField &field,
                     const Records &records) const;

    /// Why a field with a list has no values; empty when it has some, or no list.
    QString missingListOf(const Catalogs::CatalogInputField &field, const Records &records) const;

    /// The extensions that name `item` but give it no field in the current profile, each with the reason.
    QStringList fieldlessExtensionsOf(const Catalogs::CatalogItem &item) const;

private:
    const Record *find(Catalogs::CatalogFormat::KeySpace keySpace, const QString &key) const;
    QString reasonForNoField(const Catalogs::CatalogParserParamExtended &extension) const;

    CatalogFile &m_file;
    const FieldOrigins &m_origins;
};

} // namespace Orvida::Tools
