// One loaded coding catalog: its items, its profile and its continuous-defect codes.
#pragma once

#include "catalogs/CatalogsExport.h"
#include "catalogs/model/CatalogItem.h"
#include "catalogs/model/CatalogProfile.h"
#include "catalogs/reading/CatalogReadFailure.h"

#include <QHash>
#include <QSharedPointer>
#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>

namespace Orvida::Catalogs {

class ParentLoops;

/// A coding catalog. The loader makes and fills it; every holder of a `CatalogSptr` sees the same object.
///
/// The catalog owns its items together with all other holders; items do not keep the catalog alive.
/// There is no lock, and even look-ups write (those that give a reference insert what is missing): the
/// host lets one thread at a time use one catalog. Nothing here fails or logs; only orphans are reported,
/// on standard output; operations that add to a table may throw `std::bad_alloc`. Keys are compared exactly,
/// letter case included; a null and an empty text are the same key.
class ORVIDA_CATALOGS_EXPORT Catalog
{
public:
    /// How far loading has come.
    enum CatalogStatus : qint32 {
        NotLoaded = 0,  ///< The loader has not finished.
        Loaded = 1,     ///< The catalog is complete and linked.
        LoadFailed = 2, ///< The file could not be read.
    };

    /// An empty catalog for `catalogId`, which may be any text: status `NotLoaded`, null profile.
    explicit Catalog(QString catalogId);
    /// Releases the items. Those that the host still holds keep their children, but have no catalog any more;
    /// each loop of parents is cut in one place.
    ~Catalog();
    Q_DISABLE_COPY(Catalog)

    /// The identifier that the catalog was requested with.
    QString catalogId() const { return m_catalogId; }

    /// The items by id, writable; the root has the empty key. Belongs to the catalog. Items added after the
    /// catalog was linked are in the table, but not in the tree. If you remove an item from the table but
    /// keep it, call `setCatalog(nullptr)` on it; the catalog no longer does.
    QHash<QString, QSharedPointer<CatalogItem>> &getCatalogItems() { return m_items; }

    /// How far loading has come; `NotLoaded` until it is set.
    CatalogStatus status() const { return m_status; }
    /// Stores the status. `Loaded` links the items by `buildRelations`, on every such call.
    void setStatus(CatalogStatus status);
    /// Whether the status is `Loaded`.
    bool IsValid() const { return m_status == Loaded; }

    /// Key of the current profile; null when the file has no profiles.
    QString profile() const { return m_profile; }
    /// Any key is accepted; fields and codes of an unknown profile are empty.
    void setProfile(const QString &profile) { m_profile = profile; }

    /// The table's place for the item `id`. For an unknown id an empty pointer is added to the table and
    /// that is the result. The empty id gives the root of a loaded catalog. The reference is valid until
    /// the table changes, which the next look-up may do.
    QSharedPointer<CatalogItem> &getItemById(const QString &id) { return m_items[id]; }

    /// The place for the item that answers for `code`; otherwise as `getItemById`. The empty code gives the
    /// root. Where a child has the code of its parent, the child answers for it.
    QSharedPointer<CatalogItem> &getItem(const QString &code) { return m_itemsByCode[code]; }

    /// Stores a copy of `codes` for the profile with the key `profile`, in place of earlier ones.
    void setContinousDefectCodes(const QString &profile, const QHash<QString, QString> &codes);

    /// The continuous-defect codes of the current profile, from a code's internal text to its item text.
    /// When there are none, an empty table is added for the profile and that is the result. The reference
    /// is valid until codes are stored or asked for under another profile.
    QHash<QString, QString> &getContinousDefectCodes() { return m_continousDefectCodes[m_profile]; }

    /// Adds every item to the children of the item that its parent id names, gives it this catalog, and fills
    /// the items by code. `setStatus` calls it; a second call would add every child to its parent once more.
    ///
    /// An item whose parent is not in the catalog is reported on standard output, in three lines in the
    /// locale's encoding, and is left out of the tree; it stays reachable by id and by code. All reports of a
    /// call are written at its end and flushed: when standard output is a pipe that nobody reads, the call
    /// waits. Empty pointers in the table are skipped. Parent ids may form a loop: its items are linked to
    /// each other like all others.
    void buildRelations();

    /// \name Additions
    /// None of them changes the catalog's tables. Several threads may use those that are const at once, as
    /// long as none uses anything else of the catalog.
    /// \{

    /// Why the loader could not load the catalog; the reason is `None` when it could, and until it has tried.
    /// `CatalogReadFailure::text` says it in words.
    const CatalogReadFailure &failure() const { return m_failure; }
    /// Any value is stored as it is; the status does not change.
    void setFailure(const CatalogReadFailure &failure) { m_failure = failure; }

    /// The profiles that the file defines, in the order in which the loader goes through them when it
    /// chooses: by ascending sort order. Each key is there once, with the description that comes first. The
    /// chosen one is `profile()`; a mark in the file may have chosen another than the first.
    const QVector<CatalogProfile> &profiles() const { return m_profiles; }
    /// Any value is stored as it is; the current profile does not change.
    void setProfiles(const QVector<CatalogProfile> &profiles) { m_profiles = profiles; }

    /// The item `id`; null for an unknown id. The empty id gives the root of a loaded catalog.
    QSharedPointer<CatalogItem> findItemById(const QString &id) const { return m_items.value(id); }
    /// The item that answers for `code`, as `getItem` gives it; null for an unknown code, and for any code
    /// until the catalog has linked its items.
    QSharedPointer<CatalogItem> findItem(const QString &code) const { return m_itemsByCode.value(code); }
    /// Every code for which an item answers, sorted by code unit; the empty code is left out. Made anew by
    /// each call.
    QStringList codes() const;
    /// \}

private:
    using ItemTable = QHash<QString, QSharedPointer<CatalogItem>>;

    void registerCode(const QSharedPointer<CatalogItem> &item);

    // Every item by id, the root under the empty key. Filled by the loader and the parser.
    ItemTable m_items;
    // The item that answers for each code. Filled by buildRelations.
    ItemTable m_itemsByCode;
    QString m_catalogId;
    CatalogStatus m_status = NotLoaded;
    QString m_profile;
    // By profile key. Filled by the loader.
    QHash<QString, QHash<QString, QString>> m_continousDefectCodes;
    CatalogReadFailure m_failure;
    // In the order of choice. Filled by the loader.
    QVector<CatalogProfile> m_profiles;
    const std::unique_ptr<ParentLoops> m_parentLoops;
};

/// The form in which catalogs leave the library.
using CatalogSptr = QSharedPointer<Catalog>;

} // namespace Orvida::Catalogs
