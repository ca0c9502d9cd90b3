// One node of a catalog's code tree.
#pragma once

#include "catalogs/CatalogsExport.h"
#include "catalogs/model/CatalogInputField.h"

#include <QFlags>
#include <QHash>
#include <QList>
#include <QSet>
#include <QSharedPointer>
#include <QString>

#include <memory>

namespace Orvida::Catalogs {

class Catalog;

/// A code class, a base code or a character extension; its place in the tree tells which.
///
/// Items live in `QSharedPointer`s that the catalog's tables, the child list of the parent and the host
/// share. A child does not hold its parent, and no item holds its catalog: a host that keeps items keeps
/// their `CatalogSptr` as well. An item that outlives its catalog keeps its children (on a loop of parents,
/// one item loses the child that closes the loop) but no longer has a catalog. There is no lock, and the
/// first `getChildItems` and `getFields` write: the host lets one thread at a time use the items of one
/// catalog.
class ORVIDA_CATALOGS_EXPORT CatalogItem
{
public:
    /// A type flag. The meaning of the bits belongs to the host; the library carries the number of the
    /// file unchanged, so there are no enumerators and any value is valid.
    enum TypeFlag : int {};

    /// An item with null texts, numbers 0, flags false, no catalog, no children and no fields.
    CatalogItem();
    /// Releases the children. Takes neither memory nor stack for each level, however deep the tree below is.
    ~CatalogItem();
    Q_DISABLE_COPY(CatalogItem)

    /// Key of the item in its catalog; empty for the root.
    const QString &id() const { return m_id; }
    /// Key of the parent item; empty for the root and for code classes, whose parent is the root.
    const QString &parentId() const { return m_parentId; }
    /// Text shown for the item.
    const QString &caption() const { return m_caption; }
    /// The observation code; empty for code classes.
    const QString &code() const { return m_code; }
    /// Followers of the code, as the file has them; their meaning belongs to the host.
    const QString &followers() const { return m_followers; }
    /// Free for the host; the library leaves it null.
    const QString &item() const { return m_item; }
    /// Remarks of the file.
    const QString &remarks() const { return m_remarks; }
    /// Free for the host; the library leaves it null.
    const QString &iconId() const { return m_iconId; }
    /// Text of an observation with this code; names such as "@CLK" in it are placeholders for values of
    /// fields.
    const QString &observationText() const { return m_observationText; }
    /// Close code, as the file has it; its meaning belongs to the host.
    const QString &closeCode() const { return m_closeCode; }
    /// Type flags, as the file has them.
    QFlags<TypeFlag> typeFlags() const { return m_typeFlags; }
    /// Place among the siblings; any number, negative ones too.
    int sortOrder() const { return m_sortOrder; }
    /// Construction type, as the file has it; its meaning belongs to the host.
    int constructionType() const { return m_constructionType; }
    /// Auto-picture flag of the file.
    bool autoPicture() const { return m_autoPicture; }
    /// Virtual flag of the file; character extensions never have it.
    bool isVirtual() const { return m_isVirtual; }
    /// The catalog of the item, not owned: null until the catalog has linked its items, and again once a
    /// catalog that has the item in its table is destroyed.
    Catalog *catalog() { return m_catalog; }

    /// \name Setters
    /// Each replaces one value; any value is stored as it is, null and empty texts included. Nothing else
    /// changes: the catalog's tables and lists that are already ordered stay as they are.
    /// \{
    void setId(const QString &id) { m_id = id; }
    void setParentId(const QString &parentId) { m_parentId = parentId; }
    void setCaption(const QString &caption) { m_caption = caption; }
    void setCode(const QString &code) { m_code = code; }
    void setFollowers(const QString &followers) { m_followers = followers; }
    void setItem(const QString &item) { m_item = item; }
    void setRemarks(const QString &remarks) { m_remarks = remarks; }
    void setIconId(const QString &iconId) { m_iconId = iconId; }
    void setObservationText(const QString &text) { m_observationText = text; }
    void setCloseCode(const QString &code) { m_closeCode = code; }
    void setTypeFlags(QFlags<TypeFlag> typeFlags) { m_typeFlags = typeFlags; }
    void setSortOrder(int sortOrder) { m_sortOrder = sortOrder; }
    void setConstructionType(int type) { m_constructionType = type; }
    void setAutoPicture(bool autoPicture) { m_autoPicture = autoPicture; }
    void setIsVirtual(bool isVirtual) { m_isVirtual = isVirtual; }
    /// Null is allowed; the item does not own the catalog.
    void setCatalog(Catalog *catalog) { m_catalog = catalog; }
    /// \}

    /// Appends `child` to the children, which then share it. The same child may be added twice and is then
    /// listed twice. After the first `getChildItems` a new child stays at the end, whatever its sort
    /// order. A null child is listed too and counts as sort order 0.
    void addChildItem(const QSharedPointer<CatalogItem> &child);

    /// The children by ascending sort order; empty when there are none.
    ///
    /// The first call orders them, for good. Children of equal sort order come in the order in which the
    /// ordering leaves them, which is always the same for the same children added in the same order. The
    /// list belongs to the item and stays valid until the item is destroyed or its children change.
    const QList<QSharedPointer<CatalogItem>> &getChildItems();

    /// Appends a copy of `field` to the fields of the profile with the key `profile`, which may be any key.
    /// After the first `getFields` for that profile a new field stays at the end.
    void addField(const QString &profile, const CatalogInputField &field);

    /// The fields of the catalog's current profile by ascending sort order; empty when there are none, and
    /// when the item has no catalog.
    ///
    /// The first call for a profile orders its fields, for good, and adds an empty list when there are none.
    /// The list itself, not a copy: it belongs to the item and stays valid until the item is destroyed or a
    /// field is added. What is written into the list of an item without catalog is lost.
    QList<CatalogInputField> &getFields();

    /// An addition: removes `child` from the children, every time it is listed; does nothing for any other
    /// item. The order of the others stays. Cuts a loop that was made with `addChildItem`.
    void removeChildItem(const QSharedPointer<CatalogItem> &child);

private:
    // The children of a destroyed item, waiting for the outermost destructor to release them.
    struct ReleasedChildren;

    QString m_id;
    QString m_parentId;
    QString m_caption;
    QString m_code;
    QString m_followers;
    QString m_item;
    QString m_remarks;
    QString m_iconId;
    QString m_observationText;
    QString m_closeCode;
    QFlags<TypeFlag> m_typeFlags;
    int m_sortOrder = 0;
    int m_constructionType = 0;
    bool m_autoPicture = false;
    bool m_isVirtual = false;
    bool m_childItemsSorted = false;
    Catalog *m_catalog = nullptr;
    // In the order in which they were added, until the first getChildItems orders them.
    QList<QSharedPointer<CatalogItem>> m_childItems;
    // Where the children wait when the item is destroyed: allocated with the first child, because a
    // destructor cannot rely on memory.
    std::unique_ptr<ReleasedChildren> m_releasedChildren;
    // By profile key, each list in the order in which it was added until the first getFields orders it.
    QHash<QString, QList<CatalogInputField>> m_fields;
    // The profiles whose fields are ordered.
    QSet<QString> m_sortedProfiles;
    // What an item without a catalog hands out; empty.
    QList<CatalogInputField> m_noFields;
};

} // namespace Orvida::Catalogs
