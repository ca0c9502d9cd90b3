#include "tools/CodeForm.h"

#include "tools/DisplayOrder.h"
#include "tools/FieldProperties.h"

#include <QSet>
#include <QStringList>

namespace Orvida::Tools {

namespace {

using Catalogs::Catalog;
using Catalogs::CatalogInputField;
using Catalogs::CatalogItem;

constexpr int labelWidth = 16;

QString codeAndCaption(const CatalogItem &item)
{
    QStringList texts{item.code(), item.caption()};
    texts.removeAll(QString());
    return texts.join(QLatin1Char(' '));
}

// The codes above `item` and the item itself. A parent that is not in the catalog, or that closes a loop,
// ends the path with an ellipsis.
QString pathOf(const QHash<QString, QSharedPointer<CatalogItem>> &items, const CatalogItem &item)
{
    QStringList path;
    QSet<QString> seen;
    const CatalogItem *step = &item;
    while (step && !step->id().isEmpty() && !seen.contains(step->id())) {
        seen.insert(step->id());
        path.prepend(codeAndCaption(*step));
        step = items.value(step->parentId()).data();
    }
    if (!step || !step->id().isEmpty())
        path.prepend(QStringLiteral("\u2026"));
    return path.join(QStringLiteral(" \u203A "));
}

QString name(const CatalogItem &item)
{
    return item.code().isEmpty() ? item.id() : item.code();
}

// Which siblings have the sort order of `item`.
QString tiesOf(const QHash<QString, QSharedPointer<CatalogItem>> &items, const CatalogItem &item)
{
    const QSharedPointer<CatalogItem> parent = items.value(item.parentId());
    QStringList names;
    if (parent && !item.id().isEmpty()) {
        for (const QSharedPointer<CatalogItem> &sibling : displayedChildren(*parent)) {
            if (sibling->id() != item.id() && sibling->sortOrder() == item.sortOrder())
                names << name(*sibling);
        }
    }
    if (names.isEmpty())
        return QString();
    return QStringLiteral("open: same sort order as %1; hosts show them in any order")
        .arg(names.join(QStringLiteral(", ")));
}

QString numberUnlessZero(int number)
{
    return number == 0 ? QString() : QString::number(number);
}

} // namespace

void CodeForm::print(Catalog &catalog, CatalogItem &item)
{
    printHead(catalog, item);
    const QList<CatalogInputField> fields = item.getFields();
    if (fields.isEmpty())
        m_out << "\n  no fields in this profile\n";
    for (const CatalogInputField &field : fields)
        printField(item, field);
}

void CodeForm::printHead(Catalog &catalog, const CatalogItem &item)
{
    m_out << m_style.code(OutputStyle::singleLine(item.code())) << (item.caption().isEmpty() ? "" : "  ")
          << m_style.title(OutputStyle::singleLine(item.caption())) << '\n';
    const QString none;
    printProperty(none, QStringLiteral("path"), pathOf(catalog.getCatalogItems(), item));
    printProperty(none, QStringLiteral("id"), item.id());
    printProperty(none, QStringLiteral("profile"), catalog.profile());
    printProperty(none, QStringLiteral("observation"), item.observationText());
    printProperty(none, QStringLiteral("remarks"), item.remarks());
    printProperty(none, QStringLiteral("followers"), item.followers());
    printProperty(none, QStringLiteral("close code"), item.closeCode());
    printProperty(none, QStringLiteral("picture"), item.autoPicture() ? QStringLiteral("automatic") : none);
    printProperty(none, QStringLiteral("virtual"), item.isVirtual() ? QStringLiteral("yes") : none);
    printProperty(none, QStringLiteral("construction"), numberUnlessZero(item.constructionType()));
    printProperty(none, QStringLiteral("type flags"), numberUnlessZero(static_cast<int>(item.typeFlags())));
    printProperty(none, QStringLiteral("order"), tiesOf(catalog.getCatalogItems(), item));
}

void CodeForm::printField(const CatalogItem &item, const CatalogInputField &field)
{
    m_out << "\n  " << m_style.title(OutputStyle::singleLine(field.caption())) << '\n';
    const QString listName = m_origins.listNameOf(item, field);
    const auto &properties = fieldProperties();
    for (auto property = properties.begin() + 1; property != properties.end();) {
        QStringList words;
        const QLatin1String label = property->label;
        for (; property != properties.end() && property->label == label; ++property)
            words << property->toWords(field, listName);
        words.removeAll(QString());
        printProperty(QStringLiteral("    "), label, words.join(QStringLiteral(", ")));
    }
    printEntries(field.itemList());
}

void CodeForm::printEntries(const QList<Shared::ListItem> &entries)
{
    int widest = 0;
    for (const Shared::ListItem &entry : entries)
        widest = qMax(widest, entry.value().toString().size());
    for (const Shared::ListItem &entry : entries) {
        const QString value = OutputStyle::singleLine(entry.value().toString());
        m_out << "      " << m_style.code(value.leftJustified(qMin(widest, 24))) << "  "
              << OutputStyle::singleLine(entry.caption());
        if (!entry.itemText().isEmpty() && entry.itemText() != value && entry.itemText() != entry.caption())
            m_out << m_style.line(QStringLiteral("  (%1)").arg(OutputStyle::singleLine(entry.itemText())));
        m_out << '\n';
    }
}

void CodeForm::printProperty(const QString &indentation, const QString &label, const QString &text)
{
    if (!text.isEmpty())
        m_out << indentation << m_style.line(label.leftJustified(labelWidth)) << OutputStyle::singleLine(text)
              << '\n';
}

} // namespace Orvida::Tools
