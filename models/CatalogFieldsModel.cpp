#include "models/CatalogFieldsModel.h"

#include <QCoreApplication>
#include <QStringList>

namespace Orvida::Models {

using Catalogs::CatalogInputField;
using Shared::InputField;
using Shared::ListItem;
using Field = CatalogInputField;

namespace {

// Columns.

QString translated(const char *text)
{
    return QCoreApplication::translate("Orvida::Models::CatalogFieldsModel", text);
}

QString caption(const Field &field)
{
    return field.caption();
}

QString typeName(const Field &field)
{
    switch (field.dataType()) {
    case InputField::Text: return translated("Text");
    case InputField::Integer: return translated("Integer");
    case InputField::Decimal: return translated("Decimal");
    case InputField::Boolean: return translated("Yes or no");
    case InputField::Date: return translated("Date");
    case InputField::Undefined: break;
    }
    return QString();
}

QString range(const Field &field)
{
    const QString minimum = field.minimumValue();
    const QString maximum = field.maximumValue();
    if (minimum.isEmpty() && maximum.isEmpty())
        return QString();
    return minimum + QStringLiteral(" … ") + maximum;
}

QString unit(const Field &field)
{
    return field.unit();
}

QString defaultValue(const Field &field)
{
    return field.defaultValue();
}

QStringList listCaptions(const Field &field)
{
    QStringList captions;
    for (const ListItem &entry : field.itemList())
        captions << entry.caption();
    return captions;
}

QString values(const Field &field)
{
    return listCaptions(field).join(QStringLiteral(", "));
}

struct Column
{
    const char *header;
    QString (*text)(const Field &field);
};

// In the order of the enumeration.
const Column columns[] = {
    {QT_TRANSLATE_NOOP("Orvida::Models::CatalogFieldsModel", "Caption"), caption},
    {QT_TRANSLATE_NOOP("Orvida::Models::CatalogFieldsModel", "Type"), typeName},
    {QT_TRANSLATE_NOOP("Orvida::Models::CatalogFieldsModel", "Range"), range},
    {QT_TRANSLATE_NOOP("Orvida::Models::CatalogFieldsModel", "Unit"), unit},
    {QT_TRANSLATE_NOOP("Orvida::Models::CatalogFieldsModel", "Default"), defaultValue},
    {QT_TRANSLATE_NOOP("Orvida::Models::CatalogFieldsModel", "Values"), values},
};
static_assert(sizeof columns / sizeof *columns == CatalogFieldsModel::ColumnCount);

// Roles.

template <auto getter>
QVariant property(const Field &field)
{
    return (field.*getter)();
}

QVariant dataType(const Field &field)
{
    return static_cast<int>(field.dataType());
}

QVariant listValues(const Field &field)
{
    QStringList values;
    for (const ListItem &entry : field.itemList())
        values << entry.value().toString();
    return values;
}

QVariant captionsOfList(const Field &field)
{
    return listCaptions(field);
}

struct Role
{
    const char *name;
    QVariant (*value)(const Field &field);
};

// In the order of the enumeration.
const Role roles[] = {
    {"caption", property<&Field::caption>},
    {"dataType", dataType},
    {"unit", property<&Field::unit>},
    {"minimumValue", property<&Field::minimumValue>},
    {"maximumValue", property<&Field::maximumValue>},
    {"step", property<&Field::step>},
    {"decimals", property<&Field::precission>},
    {"maximumTextLength", property<&Field::maximumTextLength>},
    {"defaultValue", property<&Field::defaultValue>},
    {"inputFormat", property<&Field::inputFormat>},
    {"displayFormat", property<&Field::displayFormat>},
    {"boundColumn", property<&Field::boundColumn>},
    {"placeholder", property<&Field::observationTextParamName>},
    {"prefix", property<&Field::prefix>},
    {"suffix", property<&Field::suffix>},
    {"isMandatory", property<&Field::isMandatory>},
    {"isReadonly", property<&Field::isReadonly>},
    {"isVisible", property<&Field::isVisible>},
    {"listValues", listValues},
    {"listCaptions", captionsOfList},
};
static_assert(sizeof roles / sizeof *roles
              == CatalogFieldsModel::EndOfRoles - CatalogFieldsModel::CaptionRole);

} // namespace

CatalogFieldsModel::CatalogFieldsModel(QObject *parent) : QAbstractTableModel(parent) {}

CatalogFieldsModel::~CatalogFieldsModel() = default;

void CatalogFieldsModel::setItem(const CatalogSptr &catalog,
                                 const QSharedPointer<Catalogs::CatalogItem> &item)
{
    m_catalog = catalog;
    m_item = item;
    refresh();
}

void CatalogFieldsModel::refresh()
{
    beginResetModel();
    m_fields = m_catalog && m_item ? m_item->getFields() : QList<CatalogInputField>();
    endResetModel();
}

int CatalogFieldsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_fields.size();
}

int CatalogFieldsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant CatalogFieldsModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return QVariant();
    const CatalogInputField &field = m_fields.at(index.row());
    if (role == Qt::DisplayRole)
        return columns[index.column()].text(field);
    const bool isProperty = role >= CaptionRole && role < EndOfRoles;
    return isProperty ? roles[role - CaptionRole].value(field) : QVariant();
}

QVariant CatalogFieldsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const bool isColumn = orientation == Qt::Horizontal && section >= 0 && section < ColumnCount;
    return isColumn && role == Qt::DisplayRole ? translated(columns[section].header) : QVariant();
}

QHash<int, QByteArray> CatalogFieldsModel::roleNames() const
{
    QHash<int, QByteArray> names = QAbstractTableModel::roleNames();
    for (int role = CaptionRole; role < EndOfRoles; ++role)
        names.insert(role, roles[role - CaptionRole].name);
    return names;
}

} // namespace Orvida::Models
