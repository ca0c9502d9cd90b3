#include "docs/generator/CheckingPage.h"

#include "checking/CatalogChecker.h"
#include "docs/generator/PageParts.h"
#include "tools/RuleText.h"

namespace Orvida::Docs {

namespace {

using Checking::CatalogChecker;
using Checking::CatalogRule;

QString ruleTables()
{
    QString tables;
    QString group;
    for (const CatalogRule &rule : CatalogChecker::rules()) {
        if (rule.group != group)
            tables += QStringLiteral("%1**%2**\n\n| Rule | Severity | What is wrong |\n|---|---|---|\n")
                          .arg(group.isEmpty() ? QString() : QStringLiteral("\n"), rule.group);
        group = rule.group;
        tables += QStringLiteral("| [`%1`](#%1) | %2 | %3 |\n")
                      .arg(rule.id, Tools::severityText(rule), Tools::escapedForMarkdown(rule.summary));
    }
    return tables;
}

QString ruleSection(const CatalogRule &rule)
{
    return QStringLiteral("### %1\n\n%2: %3.\n\n")
               .arg(rule.id, Tools::severityText(rule), Tools::escapedForMarkdown(rule.summary))
           + Tools::ruleMarkdown(rule);
}

QString ruleSections()
{
    QString sections;
    for (const CatalogRule &rule : CatalogChecker::rules())
        sections += (sections.isEmpty() ? QString() : QStringLiteral("\n")) + ruleSection(rule);
    return sections;
}

} // namespace

QString checkingPage(const QString &page, QStringList &absent)
{
    return withParts(
        page, {{QLatin1String("rules"), ruleTables}, {QLatin1String("explanations"), ruleSections}}, absent);
}

} // namespace Orvida::Docs
