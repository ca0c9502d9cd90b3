// The rules of a check, in words.
#pragma once

#include "checking/CatalogChecker.h"
#include "tools/OutputStyle.h"

#include <QString>
#include <QStringList>
#include <QTextStream>

namespace Orvida::Tools {

/// "error", "warning" or "note".
QString severityName(Checking::CatalogSeverity severity);
/// The same of what a rule finds, and whether it is off or refuses.
QString severityText(const Checking::CatalogRule &rule);

/// The ids of all rules.
QStringList ruleIds();

/// A line for each rule, in groups.
void printRules(QTextStream &out, const OutputStyle &style);
/// All that there is to say of one.
void printRule(QTextStream &out, const OutputStyle &style, const Checking::CatalogRule &rule);

/// `text` as it is to be read, in Markdown.
QString escapedForMarkdown(QString text);
/// The explanation and the example of a rule, as Markdown.
QString ruleMarkdown(const Checking::CatalogRule &rule);

} // namespace Orvida::Tools
