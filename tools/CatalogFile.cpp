#include "tools/CatalogFile.h"

#include "catalogs/building/CatalogLoader.h"
#include "tools/LibraryOutput.h"

#include <algorithm>

namespace Orvida::Tools {

using Catalogs::CatalogReadFailure;
using Catalogs::CatalogXMLParser;

namespace {

// The place in `readable` of the record that is at `position` in `scrambled`: the other form of the same
// file, with the same records in the same order.
FilePosition translated(FilePosition position, const RecordPositions &scrambled,
                        const RecordPositions &readable)
{
    const auto &records = scrambled.records();
    const auto record = std::find_if(records.cbegin(), records.cend(), [&position](const auto &candidate) {
        return candidate.position.line == position.line && candidate.position.column == position.column;
    });
    const auto index = static_cast<std::size_t>(record - records.cbegin());
    return index < readable.records().size() ? readable.records()[index].position : position;
}

} // namespace

CatalogFile::CatalogFile(const Options &options)
    : m_input(options.fileName), m_form(options.isReadable ? TextForm::Readable : TextForm::Scrambled)
{
}

CatalogFile CatalogFile::load(const Options &options)
{
    CatalogFile file(options);
    if (!file.prepare())
        return file;
    {
        const LibraryOutput output(options.showsLog ? LibraryOutput::Everything : LibraryOutput::Problems);
        file.m_catalog = Catalogs::CatalogLoader().loadCatalog(file.loadedPath(), options.fileName);
        file.m_hasLosses = output.hasHeldBack();
    }
    if (!file.isLoaded())
        file.findFailure();
    return file;
}

const CatalogXMLParser &CatalogFile::records()
{
    if (!m_records) {
        // The load has logged everything already.
        const LibraryOutput output(LibraryOutput::Nothing);
        m_records = std::make_unique<CatalogXMLParser>();
        QHash<QString, QSharedPointer<Catalogs::CatalogItem>> items;
        m_records->readFile(loadedPath(), items);
    }
    return *m_records;
}

qint64 CatalogFile::style() const
{
    return CatalogXMLParser().readCatalogStyleFlag(loadedPath());
}

QStringList CatalogFile::profiles()
{
    const CatalogXMLParser &file = records();
    QStringList keys;
    for (const auto &profile : file.m_profiles)
        keys << profile.pk;
    for (const auto &listClass : file.m_listClasses)
        keys << listClass.profileFk;
    for (const auto &columns : file.m_columns) {
        for (const auto &column : columns)
            keys << column.profileFk;
    }
    keys.sort();
    keys.removeDuplicates();
    return keys;
}

const RecordPositions &CatalogFile::positions()
{
    if (!m_positions)
        m_positions = std::make_unique<RecordPositions>(m_input.path(), m_form);
    return *m_positions;
}

// Reads the file and makes the form of it that the library loads.
bool CatalogFile::prepare()
{
    if (!m_input.read()) {
        m_failure = m_input.failure();
        return false;
    }
    if (m_form == TextForm::Scrambled)
        return true;
    const FormChange change(m_input.bytes());
    if (change.failure()) {
        m_failure = explained(*change.failure(), path());
        return false;
    }
    if (!m_scrambled.append(change.scrambled())) {
        m_failure = unreadable(m_scrambled.errorText());
        return false;
    }
    return true;
}

// The loader only reports that a load failed. Reading the records shows why.
void CatalogFile::findFailure()
{
    const CatalogReadFailure &failure = records().failure();
    m_failure = failureOf(failure, otherFormText());
    if (failure.reason == CatalogReadFailure::NotWellFormed)
        m_failure = explained(m_failure, path());
    if (failure.reason == CatalogReadFailure::RecordRefused && m_form == TextForm::Readable)
        m_failure.position =
            translated(m_failure.position, RecordPositions(loadedPath(), TextForm::Scrambled), positions());
}

QString CatalogFile::loadedPath() const
{
    return m_form == TextForm::Readable ? m_scrambled.path() : m_input.path();
}

} // namespace Orvida::Tools
