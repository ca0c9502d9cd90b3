// One catalog file, loaded.
#pragma once

#include "catalogs/model/Catalog.h"
#include "catalogs/reading/CatalogXMLParser.h"
#include "tools/FileFailure.h"
#include "tools/InputFile.h"
#include "tools/RecordPositions.h"
#include "tools/TextForm.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace Orvida::Tools {

/// A file of a catalog author with everything that the library makes of it. A command may hold several: they
/// share nothing. The file is read once from the disk; what is not asked for is not built.
class CatalogFile
{
public:
    /// How a file is loaded.
    struct Options
    {
        QString fileName; ///< "-" stands for standard input.
        bool isReadable = false;
        bool showsLog = false;
    };

    /// Loads a file. Prints nothing but warnings of the library, or its whole log when that is asked for.
    static CatalogFile load(const Options &options);

    bool isLoaded() const { return m_catalog && m_catalog->IsValid(); }
    /// Why the catalog is not loaded.
    const FileFailure &failure() const { return m_failure; }

    /// The catalog, with the profile that the loader chose. This and all that follows only when it is loaded.
    Catalogs::Catalog &catalog() const { return *m_catalog; }

    /// The records of the file: a loaded catalog does not say which profiles there are, nor what a field was
    /// built from.
    const Catalogs::CatalogXMLParser &records();

    /// The value of the file's style, and the bit of it that has a meaning.
    qint64 style() const;
    bool supports3D() const { return style() & 0x80000000; }

    /// Keys of all profiles that the file defines, or files a column or a list under, sorted.
    QStringList profiles();

    /// Where the records of the file are, as its author sees it.
    const RecordPositions &positions();

    /// Whether the load logged an error: something in the file does not load as it was written.
    bool hasLosses() const { return m_hasLosses; }

    /// What to do about it when the file seems to be in the other form than the one it was loaded as; else
    /// empty.
    QString otherFormText() const { return m_input.otherFormText(m_form); }

    /// How the file was loaded.
    TextForm form() const { return m_form; }
    /// Opens the file as its author wrote it, in this process while the object lives.
    QString path() const { return m_input.path(); }

    /// The file as messages name it, and without its folders.
    QString name() const { return m_input.name(); }
    QString shortName() const { return m_input.shortName(); }

private:
    explicit CatalogFile(const Options &options);

    [[nodiscard]] bool prepare();
    void findFailure();
    QString loadedPath() const;

    InputFile m_input;
    TextForm m_form;
    MemoryFile m_scrambled; // what the library reads when the file is readable
    Catalogs::CatalogSptr m_catalog;
    FileFailure m_failure;
    bool m_hasLosses = false;
    std::unique_ptr<Catalogs::CatalogXMLParser> m_records;
    std::unique_ptr<RecordPositions> m_positions;
};

} // namespace Orvida::Tools
