#include "benchmarks/DomCatalog.h"

#include "catalogs/reading/ScrambledText.h"

#include <QDomDocument>
#include <QFile>

namespace Orvida::Benchmarks {

namespace {

using Catalogs::CatalogInputField;
using Catalogs::CatalogItem;
using Items = QHash<QString, QSharedPointer<CatalogItem>>;

QString text(const QDomElement &record, const char *field)
{
    return record.firstChildElement(QLatin1String(field)).text();
}

QString descrambled(const QDomElement &record, const char *field)
{
    const QString scrambled = text(record, field);
    return Catalogs::ScrambledText::decode(QStringRef(&scrambled));
}

struct ItemNames
{
    const char *element;
    const char *id;
    const char *parent;
    const char *caption;
    const char *code;
    const char *observation;
    const char *remarks;
    const char *sortOrder;
};

const ItemNames itemNames[] = {
    {"CLASS", "CLASS_PK", "", "CLASS_Item", "", "", "CLASS_Remarks", "CLASS_SortOrder"},
    {"BASECODE", "BC_PK", "BC_Class_FK", "BC_Item", "BC_Code", "BC_ObsText", "BC_Remarks", "BC_SortOrder"},
    {"CHAREXT", "CE_PK", "CE_BaseCode_FK", "CE_Item", "CE_Code", "CE_ObsText", "CE_Remarks", "CE_SortOrder"},
};

void readItems(const QDomElement &root, Items &items)
{
    for (const ItemNames &names : itemNames) {
        const QString element = QLatin1String(names.element);
        for (auto record = root.firstChildElement(element); !record.isNull();
             record = record.nextSiblingElement(element)) {
            QSharedPointer<CatalogItem> item(new CatalogItem);
            item->setId(text(record, names.id));
            item->setParentId(text(record, names.parent));
            item->setCaption(descrambled(record, names.caption));
            item->setCode(descrambled(record, names.code));
            item->setObservationText(descrambled(record, names.observation));
            item->setRemarks(text(record, names.remarks));
            item->setSortOrder(text(record, names.sortOrder).toInt());
            items.insert(item->id(), item);
        }
    }
}

QMultiHash<QString, QDomElement> recordsBy(const QDomElement &root, const char *element, const char *key,
                                           bool isScrambled)
{
    QMultiHash<QString, QDomElement> records;
    for (auto record = root.firstChildElement(QLatin1String(element)); !record.isNull();
         record = record.nextSiblingElement(QLatin1String(element)))
        records.insert(isScrambled ? descrambled(record, key) : text(record, key), record);
    return records;
}

CatalogInputField fieldOf(const QDomElement &extension, const QDomElement &parameter)
{
    CatalogInputField field;
    field.setBoundColumn(text(extension, "PX_Column_ID"));
    field.setMinimumValue(text(extension, "PX_RangeFrom"));
    field.setMaximumValue(text(extension, "PX_RangeTo"));
    field.setInputFormat(text(extension, "PX_InputFmt"));
    field.setPrecission(text(extension, "PX_Precision").toInt());
    field.setIsMandatory(text(extension, "PX_Mandatory") == QLatin1String("true"));
    field.setCaption(descrambled(parameter, "PARAM_Caption"));
    field.setPrefix(descrambled(parameter, "PARAM_Prefix"));
    field.setSuffix(descrambled(parameter, "PARAM_Suffix"));
    field.setUnit(text(parameter, "PARAM_Unit"));
    field.setObservationTextParamName(text(parameter, "PARAM_Placeholder"));
    field.setSortOrder(text(parameter, "PARAM_SortOrder").toInt());
    return field;
}

void attachFields(const QDomElement &root, const Items &items)
{
    const auto columns = recordsBy(root, "COL", "COL_Column_ID", true);
    const auto parameters = recordsBy(root, "PARAM", "PARAM_PK", false);
    for (auto extension = root.firstChildElement(QStringLiteral("PARAMX")); !extension.isNull();
         extension = extension.nextSiblingElement(QStringLiteral("PARAMX"))) {
        const QString baseCode = text(extension, "PX_BaseCode_FK");
        const auto item = items.value(baseCode.isEmpty() ? text(extension, "PX_CharExt_FK") : baseCode);
        CatalogInputField field = fieldOf(extension, parameters.value(text(extension, "PX_Param_FK")));
        for (const QDomElement &column : columns.values(field.boundColumn())) {
            field.setIsVisible(text(column, "COL_Visible") == QLatin1String("true"));
            field.setIsReadonly(text(column, "COL_ReadOnly") == QLatin1String("true"));
            if (item)
                item->addField(text(column, "COL_Profile_FK"), field);
        }
    }
}

} // namespace

Items loadDomCatalog(const QString &path)
{
    QFile file(path);
    QDomDocument document;
    Items items;
    if (!file.open(QIODevice::ReadOnly) || !document.setContent(&file))
        return items;
    const QDomElement root = document.documentElement();
    readItems(root, items);
    attachFields(root, items);
    for (const auto &item : qAsConst(items)) {
        if (const auto parent = items.value(item->parentId()))
            parent->addChildItem(item);
    }
    return items;
}

} // namespace Orvida::Benchmarks
