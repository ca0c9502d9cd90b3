#include "catalogs/reading/CCatalogTokenizer.h"

#include "catalogs/format/CatalogFormat.h"

#include <QString>

#include <vector>

using Orvida::Catalogs::CatalogFormat;

namespace {

// A name constant with its token.
struct Name
{
    const QString text;
    const int token;
};
using Names = std::vector<Name>;

// The vocabulary, one list per table: the root and section elements, then the fields of each record.
std::vector<Names> vocabulary()
{
    std::vector<Names> tables(1);
    for (const QLatin1String root : CatalogFormat::rootNames())
        tables.front().push_back({root, CatalogFormat::rootToken});
    for (const CatalogFormat::Record &record : CatalogFormat::records()) {
        tables.front().push_back({record.name, record.token});
        Names &fields = tables.emplace_back();
        for (const CatalogFormat::Field &field : record.fields)
            fields.push_back({field.name, field.token});
    }
    return tables;
}

// The keys of the tables view these texts: defined before the tokenizer, they are constructed
// before it and destroyed after it.
const std::vector<Names> nameConstants = vocabulary();

template <typename Token>
void fill(QHash<QStringRef, Token> &table, const Names &names)
{
    for (const Name &name : names)
        table.insert(QStringRef(&name.text), static_cast<Token>(name.token));
}

} // namespace

const CCatalogTokenizer CCatalogTokenizer::m_tokenizer;

CCatalogTokenizer::CCatalogTokenizer()
    : m_catalogTokens(std::make_unique<QHash<QStringRef, CatalogToken>>()),
      m_catalogInfoTokens(std::make_unique<QHash<QStringRef, CatalogInfoToken>>()),
      m_profileTokens(std::make_unique<QHash<QStringRef, ProfileToken>>()),
      m_profileExtensionTokens(std::make_unique<QHash<QStringRef, ProfileExtensionToken>>()),
      m_columnTokens(std::make_unique<QHash<QStringRef, ColumnToken>>()),
      m_listClassTokens(std::make_unique<QHash<QStringRef, ListClassToken>>()),
      m_listItemTokens(std::make_unique<QHash<QStringRef, ListItemToken>>()),
      m_codeClassTokens(std::make_unique<QHash<QStringRef, CodeClassToken>>()),
      m_baseCodeTokens(std::make_unique<QHash<QStringRef, BaseCodeToken>>()),
      m_characterExtensionTokens(std::make_unique<QHash<QStringRef, CharacterExtensionToken>>()),
      m_parameterTokens(std::make_unique<QHash<QStringRef, ParameterToken>>()),
      m_parameterExtensionTokens(std::make_unique<QHash<QStringRef, ParameterExtensionToken>>())
{
    auto names = nameConstants.cbegin();
    fill(*m_catalogTokens, *names++);
    fill(*m_catalogInfoTokens, *names++);
    fill(*m_profileTokens, *names++);
    fill(*m_profileExtensionTokens, *names++);
    fill(*m_columnTokens, *names++);
    fill(*m_listClassTokens, *names++);
    fill(*m_listItemTokens, *names++);
    fill(*m_codeClassTokens, *names++);
    fill(*m_baseCodeTokens, *names++);
    fill(*m_characterExtensionTokens, *names++);
    fill(*m_parameterTokens, *names++);
    fill(*m_parameterExtensionTokens, *names++);
}

CCatalogTokenizer::~CCatalogTokenizer() = default;

CCatalogTokenizer::CatalogToken CCatalogTokenizer::stringToCatalogToken(const QStringRef &name)
{
    return m_tokenizer.m_catalogTokens->value(name);
}

CCatalogTokenizer::CatalogInfoToken CCatalogTokenizer::stringToCatalogInfoToken(const QStringRef &name)
{
    return m_tokenizer.m_catalogInfoTokens->value(name);
}

CCatalogTokenizer::ProfileToken CCatalogTokenizer::stringToProfileToken(const QStringRef &name)
{
    return m_tokenizer.m_profileTokens->value(name);
}

CCatalogTokenizer::ProfileExtensionToken
CCatalogTokenizer::stringToProfileExtensionToken(const QStringRef &name)
{
    return m_tokenizer.m_profileExtensionTokens->value(name);
}

CCatalogTokenizer::ColumnToken CCatalogTokenizer::stringToColumnToken(const QStringRef &name)
{
    return m_tokenizer.m_columnTokens->value(name);
}

CCatalogTokenizer::ListClassToken CCatalogTokenizer::stringToListClassToken(const QStringRef &name)
{
    return m_tokenizer.m_listClassTokens->value(name);
}

CCatalogTokenizer::ListItemToken CCatalogTokenizer::stringToListItemToken(const QStringRef &name)
{
    return m_tokenizer.m_listItemTokens->value(name);
}

CCatalogTokenizer::CodeClassToken CCatalogTokenizer::stringToCodeClassToken(const QStringRef &name)
{
    return m_tokenizer.m_codeClassTokens->value(name);
}

CCatalogTokenizer::BaseCodeToken CCatalogTokenizer::stringToBaseCodeToken(const QStringRef &name)
{
    return m_tokenizer.m_baseCodeTokens->value(name);
}

CCatalogTokenizer::CharacterExtensionToken
CCatalogTokenizer::stringToCharacterExtensionToken(const QStringRef &name)
{
    return m_tokenizer.m_characterExtensionTokens->value(name);
}

CCatalogTokenizer::ParameterToken CCatalogTokenizer::stringToParameterToken(const QStringRef &name)
{
    return m_tokenizer.m_parameterTokens->value(name);
}

CCatalogTokenizer::ParameterExtensionToken
CCatalogTokenizer::stringToParameterExtensionToken(const QStringRef &name)
{
    return m_tokenizer.m_parameterExtensionTokens->value(name);
}
