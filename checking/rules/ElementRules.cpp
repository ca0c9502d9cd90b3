#include "checking/rules/ElementRules_p.h"

#include "checking/rules/Check_p.h"

#include <QStringList>

namespace Orvida::Checking {

namespace {

// The name of a field without the prefix of its record.
QString ending(QLatin1String name)
{
    return QString(name).section(QLatin1Char('_'), 1);
}

// The field of `record` whose name ends like this.
const CatalogFormat::Field *fieldEnding(const CatalogFormat::Record &record, const QString &end)
{
    for (const CatalogFormat::Field &field : record.fields) {
        if (ending(field.name).compare(end, Qt::CaseInsensitive) == 0)
            return &field;
    }
    return nullptr;
}

const CatalogFormat::Record &recordFormat(const Check &check, int record)
{
    return CatalogFormat::record(int(check.catalog.record(record).kind));
}

QString nearField(const CatalogFormat::Record &record, QStringView name)
{
    NearName near(name);
    for (const CatalogFormat::Field &field : record.fields)
        near.offer(QString(field.name));
    return near.nearest();
}

} // namespace

void findUnknownRoot(Check &check)
{
    check.forEachIncident(Incident::UnknownRoot, [&](const Incident &incident) {
        CatalogFinding *finding = check.add(Fault(Rule::UnknownRoot, placeAt(incident.at)));
        if (!finding)
            return;
        const QStringView name = check.text(incident.name);
        const bool isRecord = CatalogFormat::record(name) != nullptr;
        finding->message = QStringLiteral("the root element is %1: %2")
                               .arg(tag(name), isRecord ? QStringLiteral("it is read as the only record")
                                                        : QStringLiteral("nothing in it is read"));
        finding->hint = isRecord ? QStringLiteral("put it into a root element <OVCAT>")
                                 : QStringLiteral("the root element is to be <OVCAT>");
    });
}

void findNestedRoots(Check &check)
{
    check.forEachIncident(Incident::NestedRoot, [&](const Incident &incident) {
        if (CatalogFinding *finding = check.add(Fault(Rule::NestedRoot, placeAt(incident.at)))) {
            finding->message = QStringLiteral("%1 inside the root element: its records count")
                                   .arg(tag(check.text(incident.name)));
            finding->hint = QStringLiteral("one root element is enough");
        }
    });
}

void findNoCodes(Check &check)
{
    const auto &records = check.catalog.records;
    const bool hasCodes = std::any_of(records.begin(), records.end(), [](const LocatedRecord &record) {
        return isItem(record.kind)
               && (record.state == LocatedRecord::Kept || record.state == LocatedRecord::Refused);
    });
    if (hasCodes || !check.catalog.isWhole)
        return;
    if (CatalogFinding *finding = check.add(Fault(Rule::NoCodes, wholeFile())))
        finding->message = QStringLiteral("no codes: no CLASS, BASECODE or CHAREXT is read");
}

void findMisspeltRecords(Check &check)
{
    for (int record = 0; record < check.catalog.recordCount(); ++record) {
        const LocatedRecord &located = check.catalog.record(record);
        if (located.state != LocatedRecord::Misspelt)
            continue;
        const Place place = placeOf(check.catalog, record);
        if (CatalogFinding *finding = check.add(Fault(Rule::MisspeltRecord, place).losing(record))) {
            finding->message =
                QStringLiteral("%1 is no record; it is not read").arg(tag(check.text(located.name)));
            finding->hint = didYouMean(QString(check.nameOf(record)));
        }
    }
}

void findUnknownRecords(Check &check)
{
    check.forEachIncident(Incident::UnknownRecord, [&](const Incident &incident) {
        const Fault fault = Fault(Rule::UnknownRecord, placeAt(incident.at)).about(incident.name);
        if (CatalogFinding *finding = check.add(fault))
            finding->message =
                QStringLiteral("%1 is no record; it is not read").arg(tag(check.text(incident.name)));
    });
}

void findWrappedRecords(Check &check)
{
    Groups wrapped;
    for (int record = 0; record < check.catalog.recordCount(); ++record) {
        if (check.catalog.record(record).state == LocatedRecord::Wrapped)
            wrapped.add(check.catalog.record(record).outer, record);
    }
    wrapped.sort();
    wrapped.forEach([&](const Groups::Members &records) {
        const int wrapper = int(records.key());
        Fault fault(Rule::WrappedRecords, placeOf(check.catalog, wrapper));
        if (CatalogFinding *finding = check.add(fault.losing(wrapper).affecting(records.size()))) {
            finding->message = QStringLiteral("%1 inside %2: not read")
                                   .arg(counted(records.size(), "record"),
                                        tag(check.text(check.catalog.record(wrapper).name)));
            finding->hint = QStringLiteral("put them directly into the root element");
        }
    });
}

// A record of the same kind overwrites fields of the outer one, perhaps its key.
void findNestedRecords(Check &check)
{
    for (int record = 0; record < check.catalog.recordCount(); ++record) {
        const LocatedRecord &located = check.catalog.record(record);
        if (located.state != LocatedRecord::Nested)
            continue;
        Fault fault = Fault(Rule::NestedRecord, placeOf(check.catalog, record)).losing(record);
        const bool isSameKind = check.catalog.record(located.outer).kind == located.kind;
        if (CatalogFinding *finding = check.add(isSameKind ? fault.losing(located.outer) : fault)) {
            finding->message =
                QStringLiteral("%1 inside %2 is not read as a record%3")
                    .arg(check.nameOf(record), check.nameOf(located.outer),
                         isSameKind ? QStringLiteral("; its fields overwrite those of the outer one")
                                    : QString());
            finding->hint = QStringLiteral("end the outer record first");
        }
    }
}

namespace {

void reportForeignField(Check &check, const Incident &incident, const CatalogFormat::Field &field)
{
    const CatalogFormat::Record &record = recordFormat(check, incident.record);
    const Fault fault = Fault(Rule::ForeignField, placeAt(incident.at, incident.record))
                            .about(pairOf(record.token, incident.name));
    CatalogFinding *finding = check.add(fault);
    if (!finding)
        return;
    finding->field = field.name;
    finding->message = QStringLiteral("%1 is a field of %2, not of %3; its text is lost")
                           .arg(field.name, CatalogFormat::recordOf(field)->name, record.name);
    if (const CatalogFormat::Field *own = fieldEnding(record, ending(field.name)))
        finding->hint = QStringLiteral("here it is %1").arg(own->name);
}

} // namespace

void findUnknownFields(Check &check)
{
    check.forEachIncident(Incident::UnknownField, [&](const Incident &incident) {
        const QStringView name = check.text(incident.name);
        if (const CatalogFormat::Field *foreign = CatalogFormat::field(name)) {
            reportForeignField(check, incident, *foreign);
            return;
        }
        const CatalogFormat::Record &record = recordFormat(check, incident.record);
        const QString near = nearField(record, name);
        const Rule rule = near.isEmpty() ? Rule::UnknownField : Rule::MisspeltField;
        const Fault fault =
            Fault(rule, placeAt(incident.at, incident.record)).about(pairOf(record.token, incident.name));
        if (CatalogFinding *finding = check.add(fault)) {
            finding->message =
                QStringLiteral("%1 is no field of %2; its text is lost").arg(tag(name), record.name);
            finding->hint = didYouMean(near);
        }
    });
}

void findFieldsOutsideRecords(Check &check)
{
    check.forEachIncident(Incident::FieldOutsideRecord, [&](const Incident &incident) {
        const Fault fault = Fault(Rule::FieldOutsideRecord, placeAt(incident.at)).about(incident.name);
        const CatalogFormat::Field *field = CatalogFormat::field(check.text(incident.name));
        if (CatalogFinding *finding = check.add(fault)) {
            finding->field = field->name;
            finding->message = QStringLiteral("%1 outside a record is not read").arg(field->name);
            finding->hint =
                QStringLiteral("put it into a record %1").arg(CatalogFormat::recordOf(*field)->name);
        }
    });
}

void findNestedFields(Check &check)
{
    check.forEachIncident(Incident::NestedField, [&](const Incident &incident) {
        const QString field = check.shownText(incident.name);
        const Fault fault = Fault(Rule::NestedField, placeAt(incident.at, incident.record, field))
                                .about(pairOf(incident.name, incident.detail));
        if (CatalogFinding *finding = check.add(fault)) {
            finding->message = QStringLiteral("%1 is inside %2; it is read all the same")
                                   .arg(field, tag(check.text(incident.detail)));
            finding->hint = QStringLiteral("put it directly into the record");
        }
    });
}

// What a nested record overwrites is reported with that record.
void findRepeatedFields(Check &check)
{
    const LocatedCatalog &catalog = check.catalog;
    for (int record = 0; record < catalog.recordCount(); ++record) {
        for (const LocatedField *field = catalog.begin(record); field != catalog.end(record); ++field) {
            if (!field->isOverruled)
                continue;
            const LocatedField *counting = catalog.fieldOf(record, field->token);
            if (counting->value == field->value || field->isFromNested || counting->isFromNested)
                continue;
            Fault fault(Rule::RepeatedField, placeOf(catalog, record, *field));
            if (CatalogFinding *finding = check.add(fault.losing(record))) {
                finding->message = QStringLiteral("%1 comes twice in this record: %2 counts, %3 is lost")
                                       .arg(finding->field, check.quotedText(counting->value),
                                            check.quotedText(field->value));
                finding->hint = QStringLiteral("remove one of the two");
            }
        }
    }
}

void findStrayTexts(Check &check)
{
    check.forEachIncident(Incident::StrayText, [&](const Incident &incident) {
        if (CatalogFinding *finding =
                check.add(Fault(Rule::StrayText, placeAt(incident.at, incident.record)))) {
            finding->message =
                QStringLiteral("text outside a field is lost: %1").arg(check.quotedText(incident.detail));
            finding->hint = QStringLiteral("remove it, or make it a comment");
        }
    });
}

void findCutTexts(Check &check)
{
    check.forEachIncident(Incident::CutText, [&](const Incident &incident) {
        const QString field = check.shownText(incident.name);
        const Place place = placeAt(incident.at, incident.record, field);
        if (CatalogFinding *finding = check.add(Fault(Rule::CutText, place))) {
            finding->message =
                QStringLiteral("the text of %1 ends before %2; %3 is lost")
                    .arg(field, check.shownText(incident.cutter), check.quotedText(incident.detail));
            finding->hint = QStringLiteral(
                "write the text in one piece, with &lt; and &amp; in place of a CDATA section");
        }
    });
}

void findIgnoredAttributes(Check &check)
{
    check.forEachIncident(Incident::IgnoredAttribute, [&](const Incident &incident) {
        const Fault fault = Fault(Rule::AttributeIgnored, placeAt(incident.at, incident.record))
                                .about(pairOf(incident.name, incident.detail));
        CatalogFinding *finding = check.add(fault);
        if (!finding)
            return;
        const QString attribute = check.shownText(incident.detail);
        finding->message = QStringLiteral("the attribute %1 of %2 is not read")
                               .arg(attribute, tag(check.text(incident.name)));
        const CatalogFormat::Record *record = CatalogFormat::record(check.text(incident.name));
        const CatalogFormat::Field *field = record ? fieldEnding(*record, attribute) : nullptr;
        finding->hint = field ? QStringLiteral("make it an element <%1>").arg(field->name)
                              : QStringLiteral("values are elements, not attributes");
    });
}

void findIgnoredFields(Check &check)
{
    if (!check.report.isOn(Rule::IgnoredField))
        return;
    for (int record = 0; record < check.catalog.recordCount(); ++record) {
        const LocatedRecord &located = check.catalog.record(record);
        if (located.isLost() || located.kind == Section::CATALOG)
            continue;
        for (const LocatedField *field = check.catalog.begin(record); field != check.catalog.end(record);
             ++field) {
            if (check.catalog.format(record, *field).use != CatalogFormat::Use::NotRead)
                continue;
            const Fault fault = Fault(Rule::IgnoredField, placeOf(check.catalog, record, *field))
                                    .about(pairOf(int(located.kind), field->token));
            if (CatalogFinding *finding = check.add(fault))
                finding->message = QStringLiteral("%1 is not read").arg(finding->field);
        }
    }
}

namespace {

void reportStyle(Check &check, int record)
{
    constexpr qint64 supports3d = Q_INT64_C(1) << 31;
    const LocatedField *style =
        record < 0 ? nullptr : check.catalog.field(record, CatalogInfoToken::CAT_Style);
    const Place place = record < 0 ? wholeFile() : placeOf(check.catalog, record);
    if (!style) {
        if (CatalogFinding *finding = check.add(Fault(Rule::StyleMissing, place))) {
            finding->message =
                QStringLiteral("no CAT_Style: hosts take it that the catalog does not support 3D");
            finding->hint = QStringLiteral("write 0, or %1 for 3D").arg(supports3d);
        }
        return;
    }
    if ((check.catalog.texts.string(style->value).toLongLong() & ~supports3d) == 0)
        return;
    if (CatalogFinding *finding =
            check.add(Fault(Rule::StyleUnusedBits, placeOf(check.catalog, record, *style)))) {
        finding->message = QStringLiteral("CAT_Style %1 has bits without a meaning; only %2 has one")
                               .arg(check.quotedText(style->value), QString::number(supports3d));
        finding->hint = QStringLiteral("for 3D write %1, otherwise 0").arg(supports3d);
    }
}

void reportIdentity(Check &check, int record)
{
    QStringList missing;
    for (const CatalogInfoToken token : {CatalogInfoToken::CAT_PK, CatalogInfoToken::CAT_Version}) {
        if (record < 0 || check.catalog.value(record, token) == 0)
            missing.append(formatOf(Section::CATALOG, int(token)).name);
    }
    if (missing.isEmpty())
        return;
    const Place place = record < 0 ? wholeFile() : placeOf(check.catalog, record);
    if (CatalogFinding *finding = check.add(Fault(Rule::NoIdentity, place))) {
        finding->field = missing.first();
        finding->message = QStringLiteral("no %1").arg(missing.join(QStringLiteral(" and no ")));
        finding->hint = QStringLiteral("editions of a catalog are distinguished by it");
    }
}

} // namespace

void findCatalogInfo(Check &check)
{
    int first = -1;
    check.forEachRecord(Section::CATALOG, [&](int record) {
        if (first < 0) {
            first = record;
            return;
        }
        CatalogFinding *finding = check.add(Fault(Rule::RepeatedCatalogInfo, placeOf(check.catalog, record)));
        if (finding) {
            finding->message = QStringLiteral("a second CATALOG is not read");
            finding->hint = QStringLiteral("put its fields into the one in line %1").arg(check.lineOf(first));
        }
    });
    if (!check.catalog.isWhole)
        return;
    reportStyle(check, first);
    reportIdentity(check, first);
}

void findBadDirectives(Check &check)
{
    check.forEachIncident(Incident::BadDirective, [&](const Incident &incident) {
        if (CatalogFinding *finding = check.add(Fault(Rule::UnknownDirective, placeAt(incident.at)))) {
            finding->message = QStringLiteral("not understood: %1").arg(check.quotedText(incident.detail));
            finding->hint =
                QStringLiteral("write check: off and ids of rules, then * to mean the whole file");
        }
    });
    check.forEachIncident(Incident::MisplacedDirective, [&](const Incident &incident) {
        const Place place = placeAt(incident.at, incident.record);
        if (CatalogFinding *finding = check.add(Fault(Rule::UnknownDirective, place))) {
            finding->message = QStringLiteral("inside a record, this comment turns nothing off");
            finding->hint = QStringLiteral("put it before the record");
        }
    });
}

} // namespace Orvida::Checking
