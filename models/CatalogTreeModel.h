// The tree of a catalog for item views.
#pragma once

#include "catalogs/model/Catalog.h"
#include "models/ModelsExport.h"

#include <QAbstractItemModel>

#include <memory>

namespace Orvida::Models {

using Catalogs::CatalogSptr;

/// The codes of one catalog as a tree: what is below the root, each list of children in its order.
///
/// `setCatalog` looks at the whole tree once; everything after that takes constant time, a parent and a row
/// included. Later changes of the catalog's tree show with the next `setCatalog`. An item shows once, at the
/// place nearest to the root, even when loops or repeated children would show it again. What is more than
/// 1,000 levels below the root does not show, because views take stack for each level.
///
/// The model shares the catalog and never blocks. It is used on the thread in which it lives, and nobody else
/// uses the catalog meanwhile. The profile belongs to the catalog: `setProfile` changes it for every holder,
/// and if you call `Catalog::setProfile` yourself, call this one too, so that other models hear of it.
class ORVIDA_MODELS_EXPORT CatalogTreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column { CaptionColumn, CodeColumn, ColumnCount };

    /// What an index tells, the same in all columns.
    enum Role {
        ItemRole = Qt::UserRole, ///< The item; `itemAt` gives it in its own type.
        IdRole,
        CodeRole,
        CaptionRole,
        RemarksRole,
        IsVirtualRole,
        TypeFlagsRole, ///< The number of the file.
        EndOfRoles,    ///< Roles from here on are free for proxy models.
    };

    explicit CatalogTreeModel(QObject *parent = nullptr);
    ~CatalogTreeModel() override;

    /// The catalog; null at first.
    CatalogSptr catalog() const;
    /// Shows `catalog` in place of the last one. Null, and a catalog that did not load, show nothing.
    void setCatalog(const CatalogSptr &catalog);

    /// Key of the catalog's current profile; null without a catalog.
    QString profile() const;
    /// Makes `profile`, which may be any key, the current profile of the catalog, and tells it. Does nothing
    /// without a catalog.
    void setProfile(const QString &profile);

    /// The item at an index of this model, or of a proxy model above it; null for other indexes.
    static QSharedPointer<Catalogs::CatalogItem> itemAt(const QModelIndex &index);
    /// Where `item` shows, in the first column; invalid when it does not show, as the root.
    QModelIndex indexOf(const QSharedPointer<Catalogs::CatalogItem> &item) const;
    /// Where the item shows that answers for `code`; invalid for an unknown code.
    QModelIndex indexOfCode(const QString &code) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    /// Besides the roles above: the text of the column, and the remarks as a tool tip.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    /// `setProfile` was called: items have other fields now.
    void profileChanged(const QString &profile);

private:
    struct Q_DECL_HIDDEN Private;
    const std::unique_ptr<Private> m_private;
};

} // namespace Orvida::Models
