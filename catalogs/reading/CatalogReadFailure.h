// Why a catalog file could not be read, for the author who has to fix the file. A plain value.
#pragma once

#include "catalogs/CatalogsExport.h"

#include <QString>
#include <QStringList>

namespace Orvida::Catalogs {

/// Why `CatalogXMLParser::readFile` failed, and where.
struct CatalogReadFailure
{
    /// What kind of failure it was.
    enum Reason {
        None,          ///< Nothing failed.
        FileNotRead,   ///< The file could not be opened, or reading it broke off.
        NotWellFormed, ///< The file is not well-formed XML, or ends too early.
        RecordRefused, ///< A record lacks a key that it must have.
    };

    Reason reason = None;
    /// Line and column, both from 1: where the XML breaks, or directly after the start tag of the refused
    /// record. 0 when the file could not be opened.
    qint64 line = 0;
    qint64 column = 0;
    /// What the system or the XML reader says about it; empty for a refused record.
    QString detail;
    /// Element name of the refused record, such as "CATPRO"; otherwise empty.
    QString record;
    /// Names of the fields that are missing or empty in the refused record, in a fixed order.
    QStringList missingFields;

    /// What is wrong, in English, without the place and without a full stop; empty when nothing failed.
    ORVIDA_CATALOGS_EXPORT QString problem() const;
    /// How to fix it, likewise.
    ORVIDA_CATALOGS_EXPORT QString remedy() const;
    /// Place, problem and remedy in sentences, for a message box: "Line 12, column 11: CATPRO record without
    /// PRO_PK. To fix it, give the record ..."; empty when nothing failed.
    ORVIDA_CATALOGS_EXPORT QString text() const;
};

} // namespace Orvida::Catalogs
