#include "checking/CatalogEdits.h"

#include "support/TestSupport.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>

namespace Orvida::Tests {

namespace {

const QPair<const char *, const char *> mirrors[] = {{"code-added", "code-removed"},
                                                     {"field-added", "field-removed"},
                                                     {"value-added", "value-removed"},
                                                     {"profile-added", "profile-removed"}};

} // namespace

QString CatalogEdits::Record::value(const QString &name) const
{
    for (const auto &field : fields) {
        if (field.first == name)
            return field.second;
    }
    return QString();
}

void CatalogEdits::Record::set(const QString &name, const QString &value)
{
    for (auto &field : fields) {
        if (field.first == name) {
            field.second = value;
            return;
        }
    }
    fields.append({name, value});
}

bool CatalogEdits::Record::isCode() const
{
    return kind == text("BASECODE") || kind == text("CHAREXT");
}

QString CatalogEdits::Record::parent() const
{
    const QString extension = value(text("CE_CharExt_REF"));
    return kind == text("BASECODE") ? value(text("BC_Class_FK"))
           : extension.isEmpty()    ? value(text("CE_BaseCode_FK"))
                                    : extension;
}

QString CatalogEdits::Record::item() const
{
    const QString code = value(text("PX_BaseCode_FK"));
    return code.isEmpty() ? value(text("PX_CharExt_FK")) : code;
}

CatalogEdits::CatalogEdits(const QByteArray &catalog, quint32 seed) : m_random(seed)
{
    QXmlStreamReader reader(catalog);
    reader.readNextStartElement();
    while (reader.readNextStartElement()) {
        Record record{reader.name().toString(), {}};
        while (reader.readNextStartElement()) {
            const QString name = reader.name().toString();
            record.fields.append({name, reader.readElementText()});
        }
        m_records.append(record);
    }
}

void CatalogEdits::editSome(int count)
{
    const std::function<void()> edits[] = {
        [this] { changeText("Item", "s", "caption-changed"); },
        [this] { changeText("Remarks", " Voir.", "remarks-changed"); },
        [this] { changeText("ObsText", " (x)", "observation-text-changed"); },
        [this] { changeFlags(); },
        [this] { renameCode(); },
        [this] { removeLeaf(); },
        [this] { addLeaf(); },
        [this] { removeField(); },
        [this] { addField(); },
        [this] { changeField("PX_Default", "x", "default-changed"); },
        [this] { changeField("PX_InputFmt", "0.0000", "format-changed"); },
        [this] { changeField("PX_DisplayFmt", "0.0000", "display-format-changed"); },
        [this] { flipMandatory(); },
        [this] { moveLimit(1, "range-widened"); },
        [this] { moveLimit(-1, "range-narrowed"); },
        [this] { changeEntry(); },
        [this] { addEntry(); },
        [this] { removeEntry(); },
        [this] { changeExportId(); },
        [this] { flipTransport(); },
        [this] { changeDefectCode(); },
        [this] { addProfile(); },
    };
    for (int index = 0; index < count; ++index)
        edits[m_random.bounded(int(std::size(edits)))]();
    for (Record &record : m_records) {
        if (record.kind == text("CATALOG"))
            record.set(text("CAT_Version"), text("2.0"));
    }
}

void CatalogEdits::shuffle()
{
    for (Record &record : m_records) {
        for (int left = record.fields.size(); left > 1; --left)
            std::swap(record.fields[left - 1], record.fields[m_random.bounded(left)]);
    }
    for (int left = m_records.size(); left > 1; --left)
        std::swap(m_records[left - 1], m_records[m_random.bounded(left)]);
}

QByteArray CatalogEdits::xml() const
{
    QByteArray xml;
    QXmlStreamWriter writer(&xml);
    writer.writeStartDocument();
    writer.writeStartElement(text("OVCAT"));
    for (const Record &record : m_records) {
        writer.writeCharacters(text("\n"));
        writer.writeStartElement(record.kind);
        for (const auto &field : record.fields)
            writer.writeTextElement(field.first, field.second);
        writer.writeEndElement();
    }
    writer.writeEndDocument();
    return xml;
}

bool CatalogEdits::isMirrored(const QString &line)
{
    return std::any_of(std::begin(mirrors), std::end(mirrors), [&line](const auto &mirror) {
        return line.startsWith(text(mirror.first)) || line.startsWith(text(mirror.second));
    });
}

void CatalogEdits::expect(const char *id, const QString &code, const QString &column, const QString &list,
                          const QString &value)
{
    const auto lineOf = [&](const char *name) {
        return QStringList({text(name), code, column, list, value}).join(QLatin1Char(' '));
    };
    m_expected << lineOf(id);
    for (const auto &[one, other] : mirrors) {
        if (text(id) == text(one))
            m_mirrored << lineOf(other);
        if (text(id) == text(other))
            m_mirrored << lineOf(one);
    }
}

// A record that fits; -1 when there is none.
int CatalogEdits::pick(const Fits &fits)
{
    const int first = m_random.bounded(m_records.size());
    for (int step = 0; step < m_records.size(); ++step) {
        const int index = (first + step) % m_records.size();
        if (fits(m_records.at(index)))
            return index;
    }
    return -1;
}

// A code that was not picked before.
int CatalogEdits::pickCode(const Fits &fits)
{
    const int index = pick([&](const Record &record) {
        return record.isCode() && !record.code().isEmpty() && !m_touched.contains(record.key())
               && fits(record);
    });
    if (index >= 0)
        m_touched.insert(m_records.at(index).key());
    return index;
}

// A field of a code that was not picked before.
int CatalogEdits::pickField(const Fits &fits)
{
    const int index = pick([&](const Record &record) {
        return record.kind == text("PARAMX") && !m_touched.contains(record.item())
               && !codeOf(record).isEmpty() && fits(record);
    });
    if (index >= 0)
        m_touched.insert(m_records.at(index).item());
    return index;
}

// An entry with an internal value, of a list that many fields use and that was not picked before.
int CatalogEdits::pickEntry()
{
    const int index = pick([&](const Record &record) {
        const Record *list = record.kind == text("LIST") ? listOf(record) : nullptr;
        if (!list || list->value(text("LC_TypeFlags")) != text("32")
            || record.value(text("LIST_Internal")).isEmpty())
            return false;
        const QString id = list->value(text("LC_Class_ID"));
        const auto uses = std::count_if(m_records.begin(), m_records.end(), [&id](const Record &field) {
            return field.value(text("PX_ListClass_ID")) == id;
        });
        return uses >= 5 && !m_touched.contains(id);
    });
    if (index >= 0)
        m_touched.insert(listOf(m_records.at(index))->value(text("LC_Class_ID")));
    return index;
}

int CatalogEdits::childCount(const QString &key) const
{
    return int(std::count_if(m_records.begin(), m_records.end(), [&key](const Record &record) {
        return record.isCode() && record.parent() == key;
    }));
}

// The code of a field's item.
QString CatalogEdits::codeOf(const Record &field) const
{
    for (const Record &record : m_records) {
        if (record.isCode() && record.key() == field.item())
            return record.code();
    }
    return QString();
}

const CatalogEdits::Record *CatalogEdits::listOf(const Record &entry) const
{
    const auto list = std::find_if(m_records.begin(), m_records.end(), [&entry](const Record &record) {
        return record.kind == text("LC") && record.value(text("LC_PK")) == entry.value(text("LIST_Class_FK"));
    });
    return list == m_records.end() ? nullptr : &*list;
}

void CatalogEdits::changeText(const char *field, const char *addition, const char *id)
{
    const auto nameIn = [field](const Record &record) { return record.prefix() + text(field); };
    const int index = pickCode([&](const Record &record) { return record.value(nameIn(record)).size() > 6; });
    if (index < 0)
        return;
    Record &record = m_records[index];
    record.set(nameIn(record), record.value(nameIn(record)) + text(addition));
    expect(id, record.code());
}

void CatalogEdits::changeFlags()
{
    const int index = pickCode([](const Record &) { return true; });
    if (index < 0)
        return;
    Record &record = m_records[index];
    record.set(record.prefix() + text("TypeFlags"), text("64"));
    expect("code-flags-changed", record.code());
}

void CatalogEdits::renameCode()
{
    const int index = pickCode([](const Record &) { return true; });
    if (index < 0)
        return;
    Record &record = m_records[index];
    record.set(record.prefix() + text("Code"), record.code() + QLatin1Char('Q'));
    expect("code-renamed", record.code());
}

void CatalogEdits::removeLeaf()
{
    const int index = pickCode([this](const Record &record) {
        return childCount(record.key()) == 0 && childCount(record.parent()) > 2;
    });
    if (index < 0)
        return;
    const Record removed = m_records.takeAt(index);
    const auto belongs = [&removed](const Record &record) { return record.item() == removed.key(); };
    m_records.erase(std::remove_if(m_records.begin(), m_records.end(), belongs), m_records.end());
    expect("code-removed", removed.code());
}

void CatalogEdits::addLeaf()
{
    const int parent = pickCode([this](const Record &record) {
        return record.kind == text("BASECODE") && childCount(record.key()) > 0;
    });
    if (parent < 0)
        return;
    const QString number = QString::number(m_expected.size());
    const QString code = text("ZZ") + number;
    m_records.append({text("CHAREXT"),
                      {{text("CE_PK"), text("CE-ZZ") + number},
                       {text("CE_BaseCode_FK"), m_records.at(parent).key()},
                       {text("CE_Code"), code},
                       {text("CE_Item"), number + text(" zzz ") + number},
                       {text("CE_SortOrder"), text("15")}}});
    m_touched.insert(text("CE-ZZ") + number);
    expect("code-added", code);
}

void CatalogEdits::removeField()
{
    const int index = pickField([](const Record &) { return true; });
    if (index < 0)
        return;
    expect("field-removed", codeOf(m_records.at(index)), m_records.at(index).value(text("PX_Column_ID")));
    m_records.removeAt(index);
}

// A field of another code, for a code without fields in its column or with its parameter.
void CatalogEdits::addField()
{
    const int source = pick(
        [this](const Record &record) { return record.kind == text("PARAMX") && !codeOf(record).isEmpty(); });
    const Record field = m_records.at(source);
    const int index = pickCode([&](const Record &record) {
        return record.kind == text("BASECODE")
               && std::none_of(m_records.begin(), m_records.end(), [&](const Record &other) {
                      return other.item() == record.key()
                             && (other.value(text("PX_Column_ID")) == field.value(text("PX_Column_ID"))
                                 || other.value(text("PX_Param_FK")) == field.value(text("PX_Param_FK")));
                  });
    });
    if (index < 0)
        return;
    Record added = field;
    added.set(text("PX_PK"), text("PX-ZZ%1").arg(m_expected.size()));
    added.set(text("PX_CharExt_FK"), QString());
    added.set(text("PX_BaseCode_FK"), m_records.at(index).key());
    expect("field-added", m_records.at(index).code(), added.value(text("PX_Column_ID")));
    m_records.append(added);
}

void CatalogEdits::changeField(const char *field, const char *value, const char *id)
{
    const int index = pickField([](const Record &) { return true; });
    if (index < 0)
        return;
    m_records[index].set(text(field), text(value));
    expect(id, codeOf(m_records.at(index)), m_records.at(index).value(text("PX_Column_ID")));
}

void CatalogEdits::flipMandatory()
{
    const int index = pickField([](const Record &) { return true; });
    if (index < 0)
        return;
    Record &field = m_records[index];
    const bool was = field.value(text("PX_Mandatory")) == text("true");
    field.set(text("PX_Mandatory"), was ? text("false") : text("true"));
    expect(was ? "became-optional" : "became-mandatory", codeOf(field), field.value(text("PX_Column_ID")));
}

void CatalogEdits::moveLimit(int by, const char *id)
{
    const int index =
        pickField([](const Record &record) { return record.value(text("PX_RangeTo")).toInt() > 1; });
    if (index < 0)
        return;
    Record &field = m_records[index];
    field.set(text("PX_RangeTo"), QString::number(field.value(text("PX_RangeTo")).toInt() + by));
    expect(id, codeOf(field), field.value(text("PX_Column_ID")));
}

void CatalogEdits::changeEntry()
{
    const int index = pickEntry();
    if (index < 0)
        return;
    Record &entry = m_records[index];
    entry.set(text("LIST_Caption"), entry.value(text("LIST_Caption")) + text(" x"));
    expect("value-caption-changed", QString(), QString(), listOf(entry)->value(text("LC_Class_ID")),
           entry.value(text("LIST_Internal")));
}

void CatalogEdits::addEntry()
{
    const int index = pickEntry();
    if (index < 0)
        return;
    Record entry = m_records.at(index);
    entry.set(text("LIST_Internal"), text("ZZ"));
    entry.set(text("LIST_Item"), text("zz"));
    entry.set(text("LIST_Caption"), text("zzz"));
    m_records.append(entry);
    expect("value-added", QString(), QString(), listOf(entry)->value(text("LC_Class_ID")), text("ZZ"));
}

void CatalogEdits::removeEntry()
{
    const int index = pickEntry();
    if (index < 0)
        return;
    const Record entry = m_records.takeAt(index);
    expect("value-removed", QString(), QString(), listOf(entry)->value(text("LC_Class_ID")),
           entry.value(text("LIST_Internal")));
}

void CatalogEdits::changeExportId()
{
    const int index = pick([this](const Record &record) {
        return !record.value(text("COL_Export_ID")).isEmpty()
               && !m_touched.contains(record.value(text("COL_Column_ID")));
    });
    if (index < 0)
        return;
    Record &column = m_records[index];
    column.set(text("COL_Export_ID"), column.value(text("COL_Export_ID")) + QLatin1Char('Z'));
    m_touched.insert(column.value(text("COL_Column_ID")));
    expect("export-id-changed", QString(), column.value(text("COL_Column_ID")));
}

void CatalogEdits::flipTransport()
{
    const int index = pick([this](const Record &record) {
        return record.kind == text("COL") && !m_touched.contains(record.value(text("COL_Column_ID")));
    });
    if (index < 0)
        return;
    Record &column = m_records[index];
    const bool was = column.value(text("COL_Transport")) == text("true");
    column.set(text("COL_Transport"), was ? text("false") : text("true"));
    m_touched.insert(column.value(text("COL_Column_ID")));
    expect(was ? "column-no-longer-exported" : "column-exported", QString(),
           column.value(text("COL_Column_ID")));
}

void CatalogEdits::changeDefectCode()
{
    const int index = pick([this](const Record &record) {
        const Record *list = record.kind == text("LIST") ? listOf(record) : nullptr;
        return list && list->value(text("LC_Class_ID")) == text("LC_ID_CD")
               && !m_touched.contains(text("LC_ID_CD"));
    });
    if (index < 0)
        return;
    Record &entry = m_records[index];
    entry.set(text("LIST_Item"), entry.value(text("LIST_Item")) + text(" x"));
    m_touched.insert(text("LC_ID_CD"));
    expect("defect-code-text-changed", QString(), QString(), QString(), entry.value(text("LIST_Internal")));
}

void CatalogEdits::addProfile()
{
    const QString key = text("ZZ%1").arg(m_expected.size());
    m_records.append({text("CATPRO"), {{text("PRO_PK"), key}, {text("PRO_SortOrder"), text("90")}}});
    expect("profile-added", QString());
}

} // namespace Orvida::Tests
