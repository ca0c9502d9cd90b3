#include "benchmarks/CatalogGenerator.h"

#include "catalogs/reading/ScrambledText.h"

namespace Orvida::Benchmarks {

namespace {

constexpr int profiles = 4;
constexpr int columns = 40;
constexpr int baseCodesPerClass = 10;
constexpr int extensionsPerBaseCode = 4;
constexpr int entriesPerList = 20;

QString numbered(const char *prefix, int number)
{
    return QLatin1String(prefix) + QString::number(number);
}

QString flag(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

} // namespace

// One field of a record; left out of the file when its text is empty.
struct CatalogGenerator::Field
{
    const char *name;
    QString text;
    bool isScrambled = false;
};

void CatalogGenerator::write(QIODevice &output, qint64 size, StylePlace stylePlace)
{
    m_writer.setDevice(&output);
    m_writer.setAutoFormatting(true);
    m_writer.setAutoFormattingIndent(1);
    m_writer.writeStartDocument();
    m_writer.writeStartElement(QStringLiteral("OVCAT"));
    if (stylePlace == StylePlace::First)
        writeStyle();
    writeProfiles();
    int classes = 0;
    do
        writeCodeClass(classes++);
    while (output.pos() < size);
    if (stylePlace == StylePlace::Last)
        writeStyle();
    m_writer.writeEndDocument();
}

void CatalogGenerator::writeRecord(const char *element, std::initializer_list<Field> fields)
{
    m_writer.writeStartElement(QLatin1String(element));
    for (const Field &field : fields) {
        if (!field.text.isEmpty())
            m_writer.writeTextElement(QLatin1String(field.name),
                                      field.isScrambled ? Catalogs::ScrambledText::encode(field.text)
                                                        : field.text);
    }
    m_writer.writeEndElement();
}

void CatalogGenerator::writeStyle()
{
    writeRecord("CATALOG", {{"CAT_PK", QStringLiteral("benchmark")},
                            {"CAT_Language", QStringLiteral("fr")},
                            {"CAT_Style", QStringLiteral("2147483648")}});
}

void CatalogGenerator::writeProfiles()
{
    for (int profile = 0; profile < profiles; ++profile) {
        const QString key = numbered("PROFILE-", profile);
        writeRecord("CATPRO", {{"PRO_PK", key}, {"PRO_SortOrder", QString::number(profile)}});
        writeRecord("CPX", {{"CPX_PK", numbered("CPX-", profile)},
                            {"CPX_Profile_FK", key},
                            {"CPX_IsStart", flag(profile == 1)}});
        for (int column = 0; column < columns; ++column)
            writeRecord("COL", {{"COL_Profile_FK", key},
                                {"COL_Column_ID", numbered("OBS_COLUMN_", column), true},
                                {"COL_Caption", words(2), true},
                                {"COL_DataType", anyOf({"TXT", "INT", "DEC", "BOL", "DAT"})},
                                {"COL_Visible", flag(below(4) > 0)},
                                {"COL_ReadOnly", flag(below(8) == 0)},
                                {"COL_Mandatory", flag(false)},
                                {"COL_SortOrder", QString::number(column * 10)}});
    }
}

void CatalogGenerator::writeCodeClass(int number)
{
    const QString classId = numbered("CLASS-", number);
    const QString listId = numbered("LIST_", number);
    writeLists(listId);
    writeRecord("CLASS", {{"CLASS_PK", classId},
                          {"CLASS_SortOrder", QString::number(number)},
                          {"CLASS_Item", words(2), true}});
    for (int base = 0; base < baseCodesPerClass; ++base) {
        const QString baseId = numbered("BC-", m_codes);
        writeRecord("BASECODE", {{"BC_PK", baseId},
                                 {"BC_SortOrder", QString::number(below(100))},
                                 {"BC_Class_FK", classId},
                                 {"BC_Item", words(3), true},
                                 {"BC_Remarks", words(6)},
                                 {"BC_Code", numbered("B", m_codes), true},
                                 {"BC_ObsText", words(5) + QStringLiteral(" @WID, @CLK"), true},
                                 {"BC_AutoPicture", flag(below(2) == 0)},
                                 {"BC_TypeFlags", QString::number(below(256))}});
        writeField("PX_BaseCode_FK", baseId, listId);
        for (int extension = 0; extension < extensionsPerBaseCode; ++extension) {
            const QString id = numbered("CE-", m_codes);
            writeRecord("CHAREXT", {{"CE_PK", id},
                                    {"CE_SortOrder", QString::number(extension)},
                                    {"CE_BaseCode_FK", baseId},
                                    {"CE_Item", words(2), true},
                                    {"CE_Code", numbered("C", m_codes), true},
                                    {"CE_ObsText", words(4) + QStringLiteral(" @WID"), true},
                                    {"CE_AutoPicture", flag(false)},
                                    {"CE_TypeFlags", QString::number(below(256))}});
            writeField("PX_CharExt_FK", id, listId);
        }
    }
}

void CatalogGenerator::writeLists(const QString &listId)
{
    for (int profile = 0; profile < profiles; ++profile) {
        const QString key = listId + numbered("-", profile);
        writeRecord("LC", {{"LC_PK", key},
                           {"LC_Profile_FK", numbered("PROFILE-", profile)},
                           {"LC_Class_ID", listId, true},
                           {"LC_Caption", words(1), true},
                           {"LC_TypeFlags", anyOf({"0", "1", "32", "33"})}});
        for (int entry = 0; entry < entriesPerList; ++entry)
            writeRecord("LIST", {{"LIST_Class_FK", key},
                                 {"LIST_Item", words(2)},
                                 {"LIST_Caption", words(2), true},
                                 {"LIST_Internal", numbered("V", entry)},
                                 {"LIST_SortOrder", QString::number(below(20))}});
    }
}

// The field of one code: a parameter, and the extension that attaches it to the code.
void CatalogGenerator::writeField(const char *itemField, const QString &itemId, const QString &listId)
{
    const QString parameter = numbered("PARAM-", m_codes);
    writeRecord("PARAM", {{"PARAM_PK", parameter},
                          {"PARAM_SortOrder", QString::number(below(50))},
                          {"PARAM_DataType", anyOf({"TXT", "INT", "DEC", "BOL", "DAT"})},
                          {"PARAM_Placeholder", anyOf({"@WID", "@CLK", "@LEN", "@DEP"})},
                          {"PARAM_Caption", words(2), true},
                          {"PARAM_Prefix", words(1), true},
                          {"PARAM_Suffix", words(1), true},
                          {"PARAM_Unit", anyOf({"mm", "m", "%", ""})}});
    writeRecord("PARAMX", {{"PX_PK", numbered("PX-", m_codes)},
                           {itemField, itemId},
                           {"PX_Param_FK", parameter},
                           {"PX_Mandatory", flag(below(3) == 0)},
                           {"PX_RangeFrom", QString::number(below(10))},
                           {"PX_RangeTo", QString::number(100 + below(900))},
                           {"PX_Precision", QString::number(below(3))},
                           {"PX_InputFmt", anyOf({"0", "0.0", "0.00"})},
                           {"PX_Column_ID", numbered("OBS_COLUMN_", below(columns))},
                           {"PX_ListClass_ID", below(3) == 0 ? listId : QString()}});
    ++m_codes;
}

QString CatalogGenerator::words(int count)
{
    QStringList text;
    for (int i = 0; i < count; ++i)
        text << anyOf({"fissure", "longitudinale", "transversale", "ouverte", "rev\u00EAtement", "joint",
                       "d\u00E9coll\u00E9", "b\u00E9ton", "venue", "d'eau", "calcite", "radier", "vo\u00FBte",
                       "corrosion", "\u00E9paufrure", "humide"});
    return text.join(QLatin1Char(' '));
}

QString CatalogGenerator::anyOf(std::initializer_list<const char *> choices)
{
    return QString::fromUtf8(choices.begin()[below(static_cast<int>(choices.size()))]);
}

} // namespace Orvida::Benchmarks
