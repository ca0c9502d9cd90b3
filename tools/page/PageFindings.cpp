#include "tools/page/PageFindings.h"

#include "checking/CatalogChecker.h"

#include <algorithm>
#include <iterator>
#include <tuple>

namespace Orvida::Tools {

namespace {

using Catalogs::CatalogParserParamExtended;
using Checking::CatalogChecker;
using Checking::CatalogFinding;
using Checking::CatalogSeverity;

// A parameter that many codes ask for is shown with some of them.
constexpr int mostPlaces = 20;

const char *nameOf(CatalogSeverity severity)
{
    switch (severity) {
    case CatalogSeverity::Error: return "error";
    case CatalogSeverity::Warning: return "warning";
    case CatalogSeverity::Note: break;
    }
    return "note";
}

// Finds what on the page a finding concerns.
class PlaceFinder
{
public:
    PlaceFinder(CatalogFile &file, const PageAnchors &anchors) : m_file(file), m_anchors(anchors) {}

    /// Anchors; none when the finding concerns the file as a whole, or what is not on the page.
    QStringList placesOf(const CatalogFinding &finding)
    {
        QStringList places;
        for (const Row &row : rows) {
            if (finding.record == row.record)
                places = (this->*row.find)(finding);
        }
        places.removeAll(QString());
        return places;
    }

private:
    struct Row
    {
        QLatin1String record;
        QStringList (PlaceFinder::*find)(const CatalogFinding &);
    };
    static const Row rows[11];

    QStringList overview(const CatalogFinding &) { return {QStringLiteral("_overview")}; }
    QStringList profiles(const CatalogFinding &) { return {QStringLiteral("_profiles")}; }
    QStringList item(const CatalogFinding &finding) { return {m_anchors.ofItem(finding.key)}; }
    QStringList extension(const CatalogFinding &finding)
    {
        return {placeOf(m_file.records().m_parameterExtensions.value(finding.key))};
    }
    QStringList parameter(const CatalogFinding &finding);
    QStringList listClass(const CatalogFinding &finding) { return {listWith(finding.key)}; }
    QStringList listEntry(const CatalogFinding &finding) { return {listWith(classOfEntry(finding))}; }

    QString placeOf(const CatalogParserParamExtended &extension);
    QString listWith(const QString &key);
    QString classOfEntry(const CatalogFinding &finding);

    CatalogFile &m_file;
    const PageAnchors &m_anchors;
    QHash<QString, QStringList> m_placesByParameter; // filled when the first finding on a parameter comes
};

using L = QLatin1String;
const PlaceFinder::Row PlaceFinder::rows[11] = {
    {L("CATALOG"), &PlaceFinder::overview}, {L("CATPRO"), &PlaceFinder::profiles},
    {L("CPX"), &PlaceFinder::profiles},     {L("COL"), &PlaceFinder::profiles},
    {L("LC"), &PlaceFinder::listClass},     {L("LIST"), &PlaceFinder::listEntry},
    {L("CLASS"), &PlaceFinder::item},       {L("BASECODE"), &PlaceFinder::item},
    {L("CHAREXT"), &PlaceFinder::item},     {L("PARAM"), &PlaceFinder::parameter},
    {L("PARAMX"), &PlaceFinder::extension},
};

QStringList PlaceFinder::parameter(const CatalogFinding &finding)
{
    if (m_placesByParameter.isEmpty()) {
        for (const CatalogParserParamExtended &extension : m_file.records().m_parameterExtensions)
            m_placesByParameter[extension.paramFk] << placeOf(extension);
    }
    QStringList places = m_placesByParameter.value(finding.key);
    places.sort();
    places.removeDuplicates();
    return places.mid(0, mostPlaces);
}

// The field that comes of the extension, or the code when no profile has the field.
QString PlaceFinder::placeOf(const CatalogParserParamExtended &extension)
{
    const QString &key = extension.baseCodeFk.isEmpty() ? extension.charExtFk : extension.baseCodeFk;
    const QString item = m_anchors.ofItem(key);
    const bool hasField = !item.isEmpty() && m_file.records().m_columns.contains(extension.columnId);
    return hasField ? PageAnchors::ofField(item, extension.columnId) : item;
}

QString PlaceFinder::listWith(const QString &key)
{
    const auto &classes = m_file.records().m_listClasses;
    const auto found = std::find_if(classes.cbegin(), classes.cend(), [&key](const auto &listClass) {
        return listClass.pk == key || (listClass.pk.isEmpty() && listClass.classId == key);
    });
    return found == classes.cend() ? QString() : PageAnchors::ofList(found->classId);
}

// An entry names its class, but has seldom a key of its own: it is found by its place.
QString PlaceFinder::classOfEntry(const CatalogFinding &finding)
{
    const auto &records = m_file.positions().records();
    const auto isBefore = [](const CatalogFinding &place, const RecordPositions::Record &record) {
        return std::tie(place.line, place.column) < std::tie(record.position.line, record.position.column);
    };
    const auto next = std::upper_bound(records.cbegin(), records.cend(), finding, isBefore);
    const RecordPositions::Field *field =
        next == records.cbegin() ? nullptr : std::prev(next)->field(QLatin1String("LIST_Class_FK"));
    return field ? field->value : QString();
}

QVector<CatalogFinding> findingsOf(const CatalogFile &file)
{
    CatalogChecker checker;
    checker.setForm(file.form() == TextForm::Readable ? CatalogChecker::Form::Readable
                                                      : CatalogChecker::Form::Scrambled);
    checker.check(file.path());
    return checker.findings();
}

} // namespace

PageFindings::PageFindings(CatalogFile &file, const PageAnchors &anchors, bool isChecked)
    : m_isChecked(isChecked)
{
    if (!isChecked)
        return;
    m_findings = findingsOf(file);
    PlaceFinder finder(file, anchors);
    for (const CatalogFinding &finding : qAsConst(m_findings)) {
        const QStringList places = finder.placesOf(finding);
        for (const QString &place : places)
            m_byAnchor[place].append(m_places.size());
        m_places.append(places);
    }
}

void PageFindings::writeOf(const QString &anchor, HtmlWriter &out) const
{
    const QVector<int> findings = m_byAnchor.value(anchor);
    if (findings.isEmpty())
        return;
    out << "<ul class=\"findings\">";
    for (const int finding : findings) {
        write(finding, out);
        out << "</li>";
    }
    out << "</ul>\n";
}

void PageFindings::writeAll(HtmlWriter &out) const
{
    if (m_findings.isEmpty())
        out << "<p>The check has nothing to say about this catalog.</p>\n";
    out << "<ul class=\"findings\">\n";
    for (int finding = 0; finding < m_findings.size(); ++finding) {
        write(finding, out);
        for (const QString &place : m_places.at(finding)) {
            out << " ";
            out.startLink(place);
            out << place << "</a>";
        }
        out << "</li>\n";
    }
    out << "</ul>\n";
}

// Up to the end of the item, which stays open for links.
void PageFindings::write(int index, HtmlWriter &out) const
{
    const CatalogFinding &finding = m_findings.at(index);
    const char *severity = nameOf(finding.severity);
    out << "<li class=\"" << severity << "\"><strong>" << severity << "</strong> <span>" << finding.message
        << "</span> <span class=\"line\">line " << QString::number(finding.line) << ", " << finding.rule
        << "</span>";
    if (!finding.hint.isEmpty())
        out << "<br><span>To fix it: " << finding.hint << "</span>";
}

} // namespace Orvida::Tools
