#include "tools/CheckSarif.h"

#include "tools/JsonText.h"
#include "tools/RuleText.h"

#include <QCryptographicHash>
#include <QDir>
#include <QUrl>

namespace Orvida::Tools {

using Checking::CatalogChecker;
using Checking::CatalogRule;

namespace {

QJsonObject textObject(const QString &text)
{
    return {{QStringLiteral("text"), text}};
}

// "unknown-item" as UnknownItem.
QString nameOf(const CatalogRule &rule)
{
    QString name;
    for (const QString &word : rule.id.split(QLatin1Char('-')))
        name += word.at(0).toUpper() + word.mid(1);
    return name;
}

QJsonObject jsonOf(const CatalogRule &rule)
{
    const QString markdown = ruleMarkdown(rule);
    const QJsonObject help{{QStringLiteral("text"), rule.explanation},
                           {QStringLiteral("markdown"), markdown}};
    const QJsonObject configuration{{QStringLiteral("enabled"), rule.isOnByDefault},
                                    {QStringLiteral("level"), severityName(rule.severity)}};
    const QJsonArray tags{rule.group};
    return {{QStringLiteral("id"), rule.id},
            {QStringLiteral("name"), nameOf(rule)},
            {QStringLiteral("shortDescription"), textObject(rule.summary)},
            {QStringLiteral("fullDescription"), textObject(rule.explanation)},
            {QStringLiteral("help"), help},
            {QStringLiteral("defaultConfiguration"), configuration},
            {QStringLiteral("properties"), QJsonObject{{QStringLiteral("tags"), tags}}}};
}

QJsonObject driver()
{
    QJsonArray rules;
    for (const CatalogRule &rule : CatalogChecker::rules())
        rules.append(jsonOf(rule));
    return {{QStringLiteral("name"), QStringLiteral("orvida-catalog")},
            {QStringLiteral("semanticVersion"), QStringLiteral(ORVIDA_VERSION)},
            {QStringLiteral("rules"), rules}};
}

// Relative to the current folder, which services take for the top of what they show; whole for a file
// elsewhere.
QString uriOf(const QString &name)
{
    const QString relative = QDir::current().relativeFilePath(name);
    const bool isElsewhere = relative.startsWith(QLatin1String("../")) || QDir::isAbsolutePath(relative);
    if (isElsewhere && QDir::isAbsolutePath(name))
        return QUrl::fromLocalFile(name).toString(QUrl::FullyEncoded);
    return QString::fromLatin1(QUrl::toPercentEncoding(relative, "/"));
}

QJsonObject locationOf(const QString &uri, qint64 line, qint64 column, qint64 endLine, qint64 endColumn)
{
    const QJsonObject region{{QStringLiteral("startLine"), line},
                             {QStringLiteral("startColumn"), column},
                             {QStringLiteral("endLine"), endLine},
                             {QStringLiteral("endColumn"), endColumn}};
    const QJsonObject place{{QStringLiteral("artifactLocation"), QJsonObject{{QStringLiteral("uri"), uri}}},
                            {QStringLiteral("region"), region}};
    return {{QStringLiteral("physicalLocation"), place}};
}

QJsonArray relatedOf(const QString &uri, const CatalogFinding &finding)
{
    QJsonArray locations;
    for (const Checking::CatalogRelated &related : finding.related) {
        QJsonObject location = locationOf(uri, related.line, related.column, related.line, related.column);
        location.insert(QStringLiteral("id"), locations.size() + 1);
        location.insert(QStringLiteral("message"), textObject(related.message));
        locations.append(location);
    }
    return locations;
}

// Everything in one text: services show no more.
QString messageOf(const CatalogFinding &finding)
{
    QString text = finding.message;
    if (finding.count > 1)
        text += QStringLiteral(" (%1 times in all)").arg(finding.count);
    return finding.hint.isEmpty() ? text : text + QStringLiteral("; to fix it: ") + finding.hint;
}

// Tells a finding from all others, and stays the same when it moves to another line.
QString fingerprintOf(const CatalogFinding &finding)
{
    QByteArray text;
    for (const QString &part : {finding.rule, finding.record, finding.key, finding.field})
        text += part.toUtf8() + '\0';
    return QString::fromLatin1(QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex());
}

QJsonObject resultOf(const QString &uri, const CatalogFinding &finding)
{
    const QJsonArray locations{
        locationOf(uri, finding.line, finding.column, finding.endLine, finding.endColumn)};
    const QJsonObject fingerprints{{QStringLiteral("catalogFinding/v1"), fingerprintOf(finding)}};
    return {{QStringLiteral("ruleId"), finding.rule},
            {QStringLiteral("ruleIndex"), ruleIds().indexOf(finding.rule)},
            {QStringLiteral("level"), severityName(finding.severity)},
            {QStringLiteral("message"), textObject(messageOf(finding))},
            {QStringLiteral("locations"), locations},
            {QStringLiteral("relatedLocations"), relatedOf(uri, finding)},
            {QStringLiteral("partialFingerprints"), fingerprints}};
}

} // namespace

void CheckSarif::add(const CheckedFile &file)
{
    const QString uri = uriOf(file.name());
    for (const CatalogFinding &finding : file.findings())
        m_results.append(resultOf(uri, finding));
    m_isAllRead = m_isAllRead && file.isRead();
}

void CheckSarif::finish()
{
    const QJsonObject invocation{{QStringLiteral("executionSuccessful"), m_isAllRead}};
    const QJsonObject run{{QStringLiteral("tool"), QJsonObject{{QStringLiteral("driver"), driver()}}},
                          {QStringLiteral("columnKind"), QStringLiteral("utf16CodeUnits")},
                          {QStringLiteral("invocations"), QJsonArray{invocation}},
                          {QStringLiteral("results"), m_results}};
    const QJsonObject log{
        {QStringLiteral("$schema"), QStringLiteral("https://json.schemastore.org/sarif-2.1.0.json")},
        {QStringLiteral("version"), QStringLiteral("2.1.0")},
        {QStringLiteral("runs"), QJsonArray{run}}};
    m_output.write(jsonText(log, QJsonDocument::Indented) + '\n');
}

} // namespace Orvida::Tools
