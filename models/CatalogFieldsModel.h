// The input fields of one item for item views and forms.
#pragma once

#include "catalogs/model/Catalog.h"
#include "models/ModelsExport.h"

#include <QAbstractTableModel>
#include <QList>

namespace Orvida::Models {

using Catalogs::CatalogSptr;

/// The fields of an item under its catalog's current profile: a row for each, hidden ones included, in their
/// order.
///
/// The model copies the fields and shares the catalog. After the profile has changed, call `refresh`, or
/// connect `CatalogTreeModel::profileChanged` to it. The model is used on the thread in which it lives, and
/// nobody else uses the catalog meanwhile. Nothing in it can be edited: the fields say what to ask for, and
/// the answers are the host's.
class ORVIDA_MODELS_EXPORT CatalogFieldsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column {
        CaptionColumn,
        TypeColumn,
        RangeColumn,
        UnitColumn,
        DefaultColumn,
        ValuesColumn,
        ColumnCount
    };

    /// What an index tells, the same in all columns: the property of the field with this name.
    enum Role {
        CaptionRole = Qt::UserRole,
        DataTypeRole, ///< A number of `Shared::InputField::DataType`.
        UnitRole,
        MinimumValueRole,
        MaximumValueRole,
        StepRole,
        DecimalsRole,
        MaximumTextLengthRole,
        DefaultValueRole,
        InputFormatRole,
        DisplayFormatRole,
        BoundColumnRole,
        PlaceholderRole, ///< `observationTextParamName()`
        PrefixRole,
        SuffixRole,
        IsMandatoryRole,
        IsReadonlyRole,
        IsVisibleRole,
        ListValuesRole,   ///< What is stored for each entry of the list, as texts.
        ListCaptionsRole, ///< The captions of the entries, in the same order.
        EndOfRoles,       ///< Roles from here on are free for proxy models.
    };

    explicit CatalogFieldsModel(QObject *parent = nullptr);
    ~CatalogFieldsModel() override;

    /// Shows the fields of `item`, which is an item of `catalog`; nothing when either is null.
    void setItem(const CatalogSptr &catalog, const QSharedPointer<Catalogs::CatalogItem> &item);
    /// The item; null at first.
    QSharedPointer<Catalogs::CatalogItem> item() const { return m_item; }

    /// All fields, in the order of the rows; valid until the next `setItem` or `refresh`.
    const QList<Catalogs::CatalogInputField> &fields() const { return m_fields; }

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    /// Besides the roles above: the text of the column.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Reads the fields anew.
    void refresh();

private:
    CatalogSptr m_catalog;
    QSharedPointer<Catalogs::CatalogItem> m_item;
    QList<Catalogs::CatalogInputField> m_fields;
};

} // namespace Orvida::Models
