#include "tools/CheckJson.h"

#include "tools/JsonText.h"
#include "tools/RuleText.h"

namespace Orvida::Tools {

namespace {

QJsonArray jsonOf(const QVector<Checking::CatalogRelated> &places)
{
    QJsonArray array;
    for (const Checking::CatalogRelated &place : places)
        array.append(QJsonObject{{QStringLiteral("line"), place.line},
                                 {QStringLiteral("column"), place.column},
                                 {QStringLiteral("message"), place.message}});
    return array;
}

QJsonObject jsonOf(const CatalogFinding &finding)
{
    return {{QStringLiteral("rule"), finding.rule},
            {QStringLiteral("severity"), severityName(finding.severity)},
            {QStringLiteral("line"), finding.line},
            {QStringLiteral("column"), finding.column},
            {QStringLiteral("endLine"), finding.endLine},
            {QStringLiteral("endColumn"), finding.endColumn},
            {QStringLiteral("message"), finding.message},
            {QStringLiteral("hint"), finding.hint},
            {QStringLiteral("record"), finding.record},
            {QStringLiteral("field"), finding.field},
            {QStringLiteral("key"), finding.key},
            {QStringLiteral("count"), finding.count},
            {QStringLiteral("related"), jsonOf(finding.related)}};
}

} // namespace

void CheckJson::add(const CheckedFile &file)
{
    QJsonArray findings;
    for (const CatalogFinding &finding : file.findings())
        findings.append(jsonOf(finding));
    m_files.append(QJsonObject{{QStringLiteral("file"), file.name()},
                               {QStringLiteral("loads"), file.loads()},
                               {QStringLiteral("findings"), findings}});
}

void CheckJson::finish()
{
    m_output.write(jsonText({{QStringLiteral("files"), m_files}}, QJsonDocument::Indented) + '\n');
}

} // namespace Orvida::Tools
