#include "tools/page/PageForms.h"

#include "tools/page/PrintHeads.h"

#include <QRegularExpression>

namespace Orvida::Tools {

namespace {

using Catalogs::CatalogInputField;
using Catalogs::CatalogItem;

// The fields of a code and of those above it may be meant by its observation text. No catalog is that deep.
constexpr int mostLevels = 40;

QString numberUnlessZero(int number)
{
    return number == 0 ? QString() : QString::number(number);
}

struct ItemProperty
{
    const char *label;
    QString (*toWords)(const CatalogItem &item);
    bool isCode; // of another item
};

const ItemProperty itemProperties[] = {
    {"followers", [](const CatalogItem &item) { return item.followers(); }, true},
    {"close code", [](const CatalogItem &item) { return item.closeCode(); }, true},
    {"picture",
     [](const CatalogItem &item) { return item.autoPicture() ? QStringLiteral("automatic") : QString(); },
     false},
    {"virtual", [](const CatalogItem &item) { return item.isVirtual() ? QStringLiteral("yes") : QString(); },
     false},
    {"construction", [](const CatalogItem &item) { return numberUnlessZero(item.constructionType()); },
     false},
    {"type flags",
     [](const CatalogItem &item) { return numberUnlessZero(static_cast<int>(item.typeFlags())); }, false},
    {"key", [](const CatalogItem &item) { return item.id(); }, false},
};

// The values of a list whose name is not known.
QString valuesInWords(const QList<Shared::ListItem> &entries)
{
    QStringList words;
    for (const Shared::ListItem &entry : entries)
        words << QStringLiteral("%1 (%2)").arg(entry.caption(), entry.value().toString());
    return words.join(QStringLiteral(", "));
}

} // namespace

void PageForms::write(HtmlWriter &out)
{
    int section = 0;
    for (int i = 0; i < m_source.items.size(); ++i) {
        Item &item = *m_source.items.at(i);
        if (beginsSection(m_source, i))
            out << (i == 0 ? "" : "</noscript></section>\n") << "<section class=\"class s" << ++section
                << "\"><noscript>\n";
        writeForm(item, out);
    }
    if (!m_source.items.isEmpty())
        out << "</noscript></section>\n";
}

void PageForms::writeForm(Item &item, HtmlWriter &out)
{
    const QString anchor = m_source.anchors.ofItem(item.id());
    const ProfileVariants<Field> fields = takeFields(item);
    out << "<article id=\"" << anchor << "\" data-form>";
    writeHead(item, out);
    writeObservationText(item, out);
    if (!item.remarks().isEmpty())
        out << "<p class=\"text\">" << item.remarks() << "</p>\n";
    writeProperties(item, out);
    m_source.findings.writeOf(anchor, out);
    if (!item.code().isEmpty())
        out << "<p class=\"nofields\"" << (fields.variants().isEmpty() ? "" : " hidden")
            << ">No fields in this profile.</p>\n";
    QHash<QString, int> repeats;
    for (const Variant<Field> &field : fields.variants()) {
        QString fieldAnchor = PageAnchors::ofField(anchor, field.thing.column);
        const int number = ++repeats[field.thing.column];
        if (number > 1)
            fieldAnchor += QStringLiteral("~%1").arg(number);
        writeField(field, fieldAnchor, out);
    }
    out << "</article>\n";
}

void PageForms::writeHead(const Item &item, HtmlWriter &out) const
{
    const char *level = item.code().isEmpty() ? "h2>" : "h3>";
    out << "<" << level;
    if (!item.code().isEmpty())
        out << "<code>" << item.code() << "</code> ";
    out << (item.caption().isEmpty() && item.code().isEmpty() ? item.id() : item.caption()) << "</" << level
        << "\n";
    const auto parent = m_source.file.catalog().getCatalogItems().value(item.parentId());
    const QString above = m_source.anchors.ofItem(item.parentId());
    if (!parent || above.isEmpty())
        return;
    out << "<p class=\"path\">below ";
    out.startLink(above);
    out << parent->code() << (parent->code().isEmpty() ? "" : " ") << parent->caption() << "</a></p>\n";
}

void PageForms::writeObservationText(const Item &item, HtmlWriter &out) const
{
    static const QRegularExpression pattern(QStringLiteral("(?<![\\p{L}\\p{N}])@[\\p{L}\\p{N}_]+"));
    const QString &text = item.observationText();
    if (text.isEmpty())
        return;
    out << "<p class=\"obs\">";
    int end = 0;
    for (auto matches = pattern.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const QString field = fieldWithPlaceholder(match.captured(), item);
        if (field.isEmpty())
            continue;
        out << text.mid(end, match.capturedStart() - end);
        out.startLink(field);
        out << match.captured() << "</a>";
        end = match.capturedEnd();
    }
    out << text.mid(end) << "</p>\n";
}

void PageForms::writeProperties(const Item &item, HtmlWriter &out) const
{
    out << "<table>";
    for (const ItemProperty &property : itemProperties) {
        const QString words = property.toWords(item);
        const QString code = property.isCode ? m_source.anchors.ofCode(words) : QString();
        if (words.isEmpty())
            continue;
        out << "<tr><th>" << property.label << "<td>";
        if (!code.isEmpty())
            out.startLink(code);
        out << words << (code.isEmpty() ? "" : "</a>");
    }
    out << "</table>\n";
}

void PageForms::writeField(const Variant<Field> &field, const QString &anchor, HtmlWriter &out) const
{
    const QString &caption = field.thing.caption;
    out << R"(<section class="field" id=")" << anchor << "\"";
    writeProfiles(field.profiles, m_all, out);
    out << "><h4>" << (caption.isEmpty() ? QStringLiteral("(no caption)") : caption);
    writeProfileNames(field.profiles, m_all, m_source, out);
    out << "</h4>\n";
    m_source.findings.writeOf(anchor, out);
    out << "<table>";
    for (const Variant<Line> &line : field.thing.lines.variants())
        writeLine(line, field.profiles, out);
    out << "</table></section>\n";
}

void PageForms::writeLine(const Variant<Line> &line, const QVector<int> &profiles, HtmlWriter &out) const
{
    const Line &thing = line.thing;
    out << "<tr";
    writeProfiles(line.profiles, profiles, out);
    out << "><th>" << thing.label;
    writeProfileNames(line.profiles, profiles, m_source, out);
    out << "<td>";
    if (!thing.list.isEmpty())
        out.startLink(PageAnchors::ofList(thing.list), "class=\"list\" ");
    out << thing.words << (thing.list.isEmpty() ? "" : "</a>") << (thing.entries.isEmpty() ? "" : ": ")
        << thing.entries;
}

// Asking for fields makes lists of them, which are dropped at once: those of all items would take many times
// the memory of the catalog.
ProfileVariants<PageForms::Field> PageForms::takeFields(Item &item)
{
    const auto isSameField = [](const Field &a, const Field &b) {
        return a.column == b.column && a.caption == b.caption;
    };
    ProfileVariants<Field> merged;
    for (const int profile : m_all) {
        m_source.file.catalog().setProfile(m_source.profiles.at(profile));
        QList<CatalogInputField> &fields = item.getFields();
        for (const CatalogInputField &field : qAsConst(fields)) {
            auto &variant = merged.add(profile, {field.boundColumn(), field.caption(), {}}, isSameField);
            addLines(item, field, profile, variant.thing);
        }
        fields.clear();
    }
    return merged;
}

void PageForms::addLines(const Item &item, const CatalogInputField &field, int profile, Field &merged)
{
    const auto isSameLine = [](const Line &a, const Line &b) {
        return a.label == b.label && a.words == b.words && a.list == b.list && a.entries == b.entries;
    };
    const QList<Shared::ListItem> entries = field.itemList();
    const QString list = entries.isEmpty() ? QString() : m_source.origins.listNameOf(item, field);
    if (!list.isEmpty())
        m_lists.add(list, profile, entries, m_source.anchors.ofItem(item.id()));
    for (const FieldWords &words : wordsOf(field, list)) {
        const bool hasValues = words.label == QLatin1String("values");
        if (words.label != QLatin1String("caption"))
            merged.lines.add(profile,
                             {words.label, words.words, hasValues ? list : QString(),
                              hasValues && list.isEmpty() ? valuesInWords(entries) : QString()},
                             isSameLine);
    }
}

// The anchor of the field that `placeholder` stands for: of the item, or of the nearest one above it.
QString PageForms::fieldWithPlaceholder(const QString &placeholder, const Item &item) const
{
    const auto &records = m_source.file.records();
    const auto &items = m_source.file.catalog().getCatalogItems();
    const Item *step = &item;
    for (int level = 0; step && level < mostLevels; ++level) {
        for (const QString &key : m_source.origins.extensionsOf(*step)) {
            const auto extension = records.m_parameterExtensions.constFind(key);
            const auto parameter = records.m_parameters.constFind(extension->paramFk);
            if (parameter != records.m_parameters.constEnd() && parameter->placeholder == placeholder
                && records.m_columns.contains(extension->columnId))
                return PageAnchors::ofField(m_source.anchors.ofItem(step->id()), extension->columnId);
        }
        step = items.value(step->parentId()).data();
    }
    return QString();
}

} // namespace Orvida::Tools
