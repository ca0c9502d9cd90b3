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

#include <initializer_list>
#include <memory>
#include <vector>

class QFile;
class QXmlStreamReader;

namespace Orvida::Catalogs {

class TextPool;

/// Reads one catalog file in one forward pass.
///
/// Code classes, base codes and character extensions become items in a table that the caller gives; all
/// other records go into the seven public containers. A parser serves one thread and one call of
/// `readFile` or `readCatalogStyleFlag`; several parsers may run at once. It never throws by itself and
/// logs nothing but the texts that are no booleans.
class ORVIDA_CATALOGS_EXPORT CatalogXMLParser
{
public:
    /// A parser with empty containers and no file.
    CatalogXMLParser();
    /// Closes the file. Items that were read belong to the caller's table and live on.
    ~CatalogXMLParser();
    Q_DISABLE_COPY(CatalogXMLParser)

    /// Reads the file `fileName` to its end; true when it is well-formed and every record was accepted.
    ///
    /// `items` gets every code class, base code and character extension under its id; a later one
    /// replaces an earlier one with the same id. A file that cannot be opened (an empty name, a folder,
    /// no permission), malformed XML or a record without its keys give false, at once; `failure()` then
    /// says why, and what was read so far stays where it is. The file stays open until the parser goes. A
    /// second call would add to what the first one read.
    bool readFile(const QString &fileName, QHash<QString, QSharedPointer<CatalogItem>> &items);

    /// The value of `CAT_Style` in the catalog information of the file `fileName`, read without the rest of
    /// the catalog; 0 when the file cannot be read, is malformed before the value, or has none.
    qint64 readCatalogStyleFlag(const QString &fileName);

    /// The step of `readCatalogStyleFlag` that is entered on the start tag of the catalog information; 0 when
    /// there is nothing to read, as at any other time.
    qint64 readCatalogStyleFlagFromCatalogInfo();

    /// Why the last `readFile` gave false; its reason is `None` before the first call and after a success.
    const CatalogReadFailure &failure() const { return m_failure; }

    /// The records of `m_parameterExtensions` in the order in which their keys first came in the file, as the
    /// last `readFile` left them: as they lie in memory, and not at random. Valid until the table changes or
    /// is copied.
    const std::vector<const CatalogParserParamExtended *> &parameterExtensionsInFileOrder() const
    {
        return m_parameterExtensionsInFileOrder;
    }

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
    using Items = QHash<QString, QSharedPointer<CatalogItem>>;

    // A key without which a record is refused.
    struct RequiredField
    {
        const char *name;
        const QString &value;
    };

    [[nodiscard]] bool openFile(const QString &fileName);
    [[nodiscard]] bool readSection(Items &items);
    [[nodiscard]] bool readProfile();
    [[nodiscard]] bool readProfileExtension();
    [[nodiscard]] bool readColumn();
    [[nodiscard]] bool readListClass();
    [[nodiscard]] bool readListItem();
    [[nodiscard]] bool readCodeClass(Items &items);
    [[nodiscard]] bool readBaseCode(Items &items);
    [[nodiscard]] bool readCharacterExtension(Items &items);
    [[nodiscard]] bool readParameter();
    [[nodiscard]] bool readParameterExtension();
    QString toText(const QStringRef &text);
    QString descrambleText(const QStringRef &text);
    [[nodiscard]] bool accepts(const char *record, std::initializer_list<RequiredField> requiredFields);
    [[nodiscard]] bool storesItem(Items &items, const QSharedPointer<CatalogItem> &item, const char *record,
                                  const char *key);
    void describeUnopenedFile();
    void describeBrokenInput();

    // The reader reads from the file: it is declared after it, so that it goes first.
    std::unique_ptr<QFile> m_file;
    std::unique_ptr<QXmlStreamReader> m_reader;
    std::unique_ptr<TextPool> m_texts;
    CatalogReadFailure m_failure;
    std::vector<const CatalogParserParamExtended *> m_parameterExtensionsInFileOrder;
};

} // namespace Orvida::Catalogs
