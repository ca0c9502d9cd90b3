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
const QString fieldMargin = QStringLiteral("    ");

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
    const QStringList fieldless = m_sources ? m_sources->fieldlessExtensionsOf(item) : QStringList();
    if (!fieldless.isEmpty())
        m_out << '\n';
    for (const QString &line : fieldless)
        m_out << "  " << OutputStyle::singleLine(line) << '\n';
}

void CodeForm::printHead(Catalog &catalog, const CatalogItem &item)
{
    m_out << m_style.code(OutputStyle::singleLine(item.code())) << (item.caption().isEmpty() ? "" : "  ")
          << m_style.title(OutputStyle::singleLine(item.caption())) << '\n';
    const QString none;
    printProperty(none, QStringLiteral("path"), pathOf(catalog.getCatalogItems(), item));
    printProperty(none, QStringLiteral("id"), item.id());
    printProperty(none, QStringLiteral("record"), m_sources ? m_sources->recordOf(item) : none);
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
    const QString title = field.caption().isEmpty() ? QStringLiteral("(no caption)") : field.caption();
    m_out << "\n  " << m_style.title(OutputStyle::singleLine(title)) << '\n';
    const QString listName = m_origins.listNameOf(item, field);
    if (m_sources) {
        printSources(item, field, listName);
    } else {
        for (const FieldWords &line : wordsOf(field, listName).mid(1))
            printProperty(fieldMargin, line.label, line.words);
    }
    printEntries(field.itemList());
}

void CodeForm::printSources(const CatalogItem &item, const CatalogInputField &field, const QString &listName)
{
    const FieldSources::Records records = m_sources->recordsOf(item, field);
    const bool isAmbiguous = records.extensions.size() > 1;
    printProperty(fieldMargin, QStringLiteral("built from"),
                  records.extensions.join(QStringLiteral(" or "))
                      + (isAmbiguous ? QStringLiteral("; each of them fills this column") : QString()));
    for (const FieldWords &line : wordsOf(field, listName))
        printProperty(fieldMargin, line.label, line.words,
                      isAmbiguous ? QString() : m_sources->sourceOf(line, field, records));
    const QString missingList = m_sources->missingListOf(field, records);
    if (!missingList.isEmpty())
        printProperty(fieldMargin, QStringLiteral("values"), QStringLiteral("any"), missingList);
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

void CodeForm::printProperty(const QString &indentation, const QString &label, const QString &text,
                             const QString &source)
{
    if (text.isEmpty())
        return;
    m_out << indentation << m_style.line(label.leftJustified(labelWidth)) << OutputStyle::singleLine(text);
    if (!source.isEmpty())
        m_out << m_style.line(QStringLiteral("  \u2190 ") + OutputStyle::singleLine(source));
    m_out << '\n';
}

} // namespace Orvida::Tools
