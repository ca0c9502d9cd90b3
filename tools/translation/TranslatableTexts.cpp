#include "tools/translation/TranslatableTexts.h"

#include "catalogs/reading/ScrambledText.h"
#include "tools/XmlText.h"

#include <QStringList>

#include <algorithm>
#include <iterator>

namespace Orvida::Tools {

namespace {

using Catalogs::CatalogFormat;
using Catalogs::ScrambledText;
using L = QLatin1String;

// The fields whose texts people read.
const L captions[] = {
    L("CAT_Description"), L("PRO_Description"),    L("COL_Caption"),     L("COL_ToolTip"),
    L("LC_Caption"),      L("LIST_Caption"),       L("CLASS_Item"),      L("CLASS_Remarks"),
    L("BC_Item"),         L("BC_ObsText"),         L("BC_Remarks"),      L("CE_Item"),
    L("CE_ObsText"),      L("CE_Remarks"),         L("PARAM_Caption"),   L("PARAM_Prefix"),
    L("PARAM_Suffix"),    L("CLASS_ChildCaption"), L("BC_ChildCaption"), L("CE_ChildCaption"),
};

// The fields that together name a record.
const L namingFields[] = {
    L("CAT_PK"),        L("PRO_PK"),        L("CPX_PK"),      L("COL_Profile_FK"),
    L("COL_Column_ID"), L("LC_Profile_FK"), L("LC_Class_ID"), L("LIST_Class_FK"),
    L("LIST_PK"),       L("LIST_Internal"), L("LIST_Item"),   L("CLASS_PK"),
    L("BC_PK"),         L("CE_PK"),         L("PARAM_PK"),    L("PX_PK"),
};

template <std::size_t size>
bool isAmong(const CatalogFormat::Field &field, const L (&names)[size])
{
    return std::find(std::begin(names), std::end(names), field.name) != std::end(names);
}

bool isChosen(const CatalogFormat::Field &field, TranslatableTexts::Choice choice)
{
    if (choice == TranslatableTexts::Captions)
        return isAmong(field, captions);
    const bool isText = field.kind == CatalogFormat::Kind::Text || field.isScrambled();
    return isText && field.keySpace == CatalogFormat::KeySpace::None && field.names.isEmpty();
}

// Whether the text is one that scrambling gives, so that it can be put back.
bool isScrambledText(const FieldText &text, std::optional<TextForm> form)
{
    return form == TextForm::Scrambled && text.field->isScrambled()
           && ScrambledText::encode(ScrambledText::decode(QStringRef(&text.value))) == text.value.toUpper();
}

} // namespace

uint qHash(const TextName &name, uint seed)
{
    return ::qHash(name.record, seed) ^ ::qHash(name.key, seed + 1) ^ ::qHash(name.field, seed + 2);
}

TranslatableTexts::TranslatableTexts(const QByteArray &document, std::optional<TextForm> form, Choice choice)
    : m_rewriter(document), m_form(form)
{
    const FieldTexts found = findFieldTexts(document, m_rewriter.text(), WantedTexts::All);
    m_failure = failureOf(found, m_rewriter);
    QVector<Field> fields; // of one record
    for (const FieldText &place : found.texts) {
        if (!place.isDirect)
            continue;
        if (!fields.isEmpty() && fields.first().place.record != place.record) {
            addRecord(fields, choice);
            fields.clear();
        }
        const bool isScrambled = isScrambledText(place, form);
        fields.append({place, isScrambled ? ScrambledText::decode(QStringRef(&place.value)) : place.value,
                       isScrambled});
    }
    addRecord(fields, choice);
}

QByteArray TranslatableTexts::translated(const QHash<TextName, QString> &translations,
                                         QVector<Note> &left) const
{
    TextRewriter rewriter = m_rewriter;
    for (const TranslatableText &text : m_texts) {
        const auto translation = translations.constFind(text.name);
        if (translation == translations.constEnd() || *translation == text.text)
            continue;
        const QString obstacle = obstacleOf(text, *translation);
        if (!obstacle.isEmpty()) {
            left.append(
                {text.place.position, QStringLiteral("%1 %2 %3 is left as it is: %4")
                                          .arg(text.name.record, text.name.key, text.name.field, obstacle)});
            continue;
        }
        rewriter.replace(text.place.begin, text.place.end,
                         text.isScrambled     ? ScrambledText::encode(*translation)
                         : text.place.isCData ? *translation
                                              : xmlText(*translation, rewriter));
    }
    return rewriter.result();
}

void TranslatableTexts::addRecord(const QVector<Field> &fields, Choice choice)
{
    QStringList key;
    QString code;
    for (const Field &field : fields) {
        if (isAmong(*field.place.field, namingFields))
            key << field.text;
        if (field.place.field->keySpace == CatalogFormat::KeySpace::Code)
            code = field.text;
    }
    for (const Field &field : fields) {
        const CatalogFormat::Field &format = *field.place.field;
        if (!isChosen(format, choice))
            continue;
        const TextName name{CatalogFormat::recordOf(format)->name, key.join(QLatin1Char('/')), format.name};
        m_texts.append(
            {takeName(name), code, field.text, field.place, field.isScrambled, isAmong(format, captions)});
    }
}

// The name itself, or with a number when other records have it.
TextName TranslatableTexts::takeName(const TextName &wanted)
{
    TextName name = wanted;
    int number = m_repeats.value(wanted);
    while (m_repeats.contains(name))
        name.key = wanted.key + QLatin1Char('#') + QString::number(++number + 1);
    m_repeats.insert(wanted, number);
    m_repeats.insert(name, m_repeats.value(name));
    return name;
}

// What keeps the text from being replaced without a loss; empty when nothing does.
QString TranslatableTexts::obstacleOf(const TranslatableText &text, const QString &translation) const
{
    if (text.place.obstacle != FieldText::None)
        return wordsOf(text.place.obstacle);
    if (m_form == TextForm::Scrambled && text.place.field->isScrambled() && !text.isScrambled)
        return QStringLiteral("it is no scrambled text, and the catalog is scrambled");
    if (!canBeInXml(translation))
        return QStringLiteral("its translation has characters that XML cannot hold");
    if (!text.isScrambled && text.place.isCData && !fitsIntoCData(translation, m_rewriter))
        return QStringLiteral("the CDATA section cannot hold its translation");
    return QString();
}

} // namespace Orvida::Tools
