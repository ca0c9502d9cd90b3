// The streaming reader of catalog files. Fills items and records; knows nothing of what is built from them.
#pragma once

#include "catalogs/CatalogsExport.h"
#include "catalogs/model/CatalogItem.h"
#include "catalogs/reading/CatalogParserRecords.h"
#include "catalogs/reading/CatalogReadFailure.h"

#include <QHash>
#include <QList>
#include <QSharedPointer>
#include <QString>
#include <QtContainerFwd>

#include <memory>

namespace Orvida::Catalogs {

/// Reads one catalog file in one forward pass.
///
/// Code classes, base codes and character extensions become items in a table that the caller gives; all
/// other records go into the seven public containers. Use a parser on one thread, for one call of
/// `readFile` or `readCatalogStyleFlag`; several parsers may run at once. It never throws by itself and
/// logs only texts that are not booleans.
class ORVIDA_CATALOGS_EXPORT CatalogXMLParser
{
public:
    /// A parser with empty containers and no file.
    CatalogXMLParser();
    /// Closes the file. Items that were read belong to the caller's table and stay.
    ~CatalogXMLParser();
    Q_DISABLE_COPY(CatalogXMLParser)

    /// Reads the file `fileName` to its end; true when it is well-formed and every record was accepted.
    ///
    /// `items` gets every code class, base code and character extension under its id; a later one
    /// replaces an earlier one with the same id. A file that cannot be opened (an empty name, a folder,
    /// no permission), malformed XML or a record without its keys give false, at once; `failure()` then
    /// says why, and what was read so far stays where it is. The file stays open until the parser is
    /// destroyed. A second call would add to what the first one read.
    bool readFile(const QString &fileName, QHash<QString, QSharedPointer<CatalogItem>> &items);

    /// The value of `CAT_Style` in the catalog information of the file `fileName`, read without the rest of
    /// the catalog; 0 when the file cannot be read, is malformed before the value, or has none.
    qint64 readCatalogStyleFlag(const QString &fileName);

    /// The step of `readCatalogStyleFlag` that is entered on the start tag of the catalog information; 0 when
    /// there is nothing to read, as at any other time.
    qint64 readCatalogStyleFlagFromCatalogInfo();

    /// Why the last `readFile` gave false; its reason is `None` before the first call and after a success.
    const CatalogReadFailure &failure() const;

    /// `CATPRO` records in file order.
    QList<CatalogParserProfile> m_profiles;
    /// `CPX` records in file order.
    QList<CatalogParserProfileExtended> m_profileExtensions;
    /// `PARAM` records by `PARAM_PK`; the last one of a key counts.
    QHash<QString, CatalogParserParameter> m_parameters;
    /// `PARAMX` records by `PX_PK`; the last one of a key counts.
    QHash<QString, CatalogParserParamExtended> m_parameterExtensions;
    /// `COL` records by decoded `COL_Column_ID`, each list in file order.
    QHash<QString, QList<CatalogParserColumn>> m_columns;
    /// `LC` records in file order.
    QList<CatalogParserListClass> m_listClasses;
    /// `LIST` records by `LIST_Class_FK`, each list in file order.
    QHash<QString, QList<CatalogParserListItem>> m_listItems;

private:
    // A step of loading that depends on the order of the file; no host needs it.
    friend const QVector<QString> &parameterExtensionsInFileOrder(const CatalogXMLParser &parser);

    struct Q_DECL_HIDDEN Private;
    const std::unique_ptr<Private> m_private;
};

} // namespace Orvida::Catalogs
