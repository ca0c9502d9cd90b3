#include "tools/page/PageProfiles.h"

#include "tools/page/ProfileVariants.h"

#include <QMap>

#include <algorithm>

namespace Orvida::Tools {

namespace {

using Catalogs::CatalogParserColumn;
using Columns = QList<CatalogParserColumn>;
using Codes = QMap<QString, QString>;

// More do not fit side by side.
constexpr int mostSideBySide = 24;

void writeHeads(std::initializer_list<const char *> heads, HtmlWriter &out)
{
    out << R"(<div class="scroll"><table class="grid"><thead><tr>)";
    for (const char *head : heads)
        out << "<th scope=\"col\">" << head;
}

void writeProfileTable(const PageSource &source, HtmlWriter &out)
{
    writeHeads({"key", "description", "format", "export type", "chosen"}, out);
    out << "<tbody>\n";
    const auto &profiles = source.file.records().m_profiles;
    for (const QString &key : source.profiles) {
        const auto profile = std::find_if(profiles.cbegin(), profiles.cend(),
                                          [&key](const auto &candidate) { return candidate.pk == key; });
        out << "<tr><td><code>" << key << "</code><td>";
        if (profile == profiles.cend())
            out << "not defined; only columns or lists name it<td><td>";
        else
            out << profile->description << "<td>" << profile->format << "<td>" << profile->exportType;
        out << "<td>" << (key == source.chosenProfile ? "yes" : "") << "\n";
    }
    out << "</table></div>\n";
}

// The first definition of a profile counts.
const CatalogParserColumn *columnOf(const Columns &columns, const QString &profile)
{
    const auto found = std::find_if(columns.cbegin(), columns.cend(),
                                    [&profile](const auto &column) { return column.profileFk == profile; });
    return found == columns.cend() ? nullptr : &*found;
}

void writeUse(const CatalogParserColumn *column, HtmlWriter &out)
{
    if (!column)
        out << "<td>missing";
    else
        out << "<td>" << (column->visible ? "shown" : "hidden") << (column->readOnly ? ", read-only" : "");
}

QMap<QString, Columns> sortedColumns(const PageSource &source)
{
    const auto &columns = source.file.records().m_columns;
    QMap<QString, Columns> sorted;
    for (auto column = columns.cbegin(); column != columns.cend(); ++column)
        sorted.insert(column.key(), *column);
    return sorted;
}

void writeColumnsSideBySide(const PageSource &source, HtmlWriter &out)
{
    writeHeads({"column", "caption"}, out);
    for (const QString &profile : source.profiles)
        out << "<th scope=\"col\">" << profile;
    out << "<tbody>\n";
    const auto columns = sortedColumns(source);
    for (auto column = columns.cbegin(); column != columns.cend(); ++column) {
        out << "<tr><td><code>" << column.key() << "</code><td>" << column->first().caption;
        for (const QString &profile : source.profiles)
            writeUse(columnOf(*column, profile), out);
        out << "\n";
    }
    out << "</table></div>\n";
}

void writeColumnsOneByOne(const PageSource &source, HtmlWriter &out)
{
    writeHeads({"column", "profile", "caption", "fields"}, out);
    out << "<tbody>\n";
    const auto columns = sortedColumns(source);
    for (auto column = columns.cbegin(); column != columns.cend(); ++column) {
        for (const CatalogParserColumn &definition : *column) {
            out << "<tr><td><code>" << column.key() << "</code><td>" << definition.profileFk << "<td>"
                << definition.caption;
            writeUse(&definition, out);
            out << "\n";
        }
    }
    out << "</table></div>\n";
}

} // namespace

void writeProfilePage(const PageSource &source, HtmlWriter &out)
{
    source.findings.writeOf(QStringLiteral("_profiles"), out);
    writeProfileTable(source, out);
    out << "<h3>Fields of each column</h3>\n";
    if (source.profiles.size() <= mostSideBySide)
        writeColumnsSideBySide(source, out);
    else
        writeColumnsOneByOne(source, out);
}

void writeDefectCodes(const PageSource &source, HtmlWriter &out)
{
    ProfileVariants<Codes> variants;
    for (int profile = 0; profile < source.profiles.size(); ++profile) {
        source.file.catalog().setProfile(source.profiles.at(profile));
        const QHash<QString, QString> &table = source.file.catalog().getContinousDefectCodes();
        Codes codes;
        for (auto code = table.cbegin(); code != table.cend(); ++code)
            codes.insert(code.key(), *code);
        if (!codes.isEmpty())
            variants.add(profile, codes, std::equal_to<Codes>());
    }
    if (variants.variants().isEmpty())
        out << "<p>None.</p>\n";
    for (const Variant<Codes> &variant : variants.variants()) {
        out << "<h3>" << source.namesOf(variant.profiles) << "</h3>\n";
        writeHeads({"code", "text"}, out);
        out << "<tbody>\n";
        for (auto code = variant.thing.cbegin(); code != variant.thing.cend(); ++code)
            out << "<tr><td><code>" << code.key() << "</code><td>" << *code << "\n";
        out << "</table></div>\n";
    }
}

void writeProfileOptions(const PageSource &source, HtmlWriter &out)
{
    for (int profile = 0; profile < source.profiles.size(); ++profile) {
        const QString &key = source.profiles.at(profile);
        out << "<option value=\"" << profile << "\"" << (key == source.chosenProfile ? " selected" : "")
            << ">" << key << "</option>";
    }
    out << "<option value=\"\">all side by side</option>";
}

} // namespace Orvida::Tools
