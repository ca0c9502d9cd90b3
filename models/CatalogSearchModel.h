// Filters the tree of a catalog by what a user types.
#pragma once

#include "models/CatalogTreeModel.h"
#include "models/ModelsExport.h"

#include <QSortFilterProxyModel>

#include <memory>

namespace Orvida::Models {

/// Shows of a `CatalogTreeModel` the items that match a search, their parents up to the root, and all that is
/// below a match.
///
/// An item matches when each word of the search is part of its code, its caption, its remarks or the values
/// of its lists under the current profile (caption, item text or stored value). Letter case and accents are
/// ignored. Another profile or catalog of the source model searches anew.
///
/// The first search reads all texts once; each search then takes time in proportion to them. The selection
/// stays where it is while its item shows.
class ORVIDA_MODELS_EXPORT CatalogSearchModel : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    enum Role {
        IsMatchRole = CatalogTreeModel::EndOfRoles, ///< Whether the item itself matches, and not only a
                                                    ///< parent or a child of it. False without a search.
    };

    explicit CatalogSearchModel(QObject *parent = nullptr);
    ~CatalogSearchModel() override;

    /// `model` is a `CatalogTreeModel`, not owned; any other model passes unfiltered.
    void setSourceModel(QAbstractItemModel *model) override;

    /// What is searched for; empty at first.
    QString searchText() const;
    /// Searches for `text`; without a word in it, everything shows.
    void setSearchText(const QString &text);
    /// How many items match; 0 without a search.
    int matchCount() const;

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    struct Q_DECL_HIDDEN Private;
    const std::unique_ptr<Private> m_private;
};

} // namespace Orvida::Models
