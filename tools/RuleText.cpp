#include "tools/RuleText.h"

namespace Orvida::Tools {

using Checking::CatalogChecker;
using Checking::CatalogRule;
using Checking::CatalogSeverity;

namespace {

void printExample(QTextStream &out, const char *title, const QString &xml)
{
    if (xml.isEmpty())
        return;
    out << '\n' << title << "\n\n";
    for (const QString &line : xml.split(QLatin1Char('\n')))
        out << "    " << line << '\n';
}

QString exampleBlock(const char *title, const QString &xml)
{
    if (xml.isEmpty())
        return QString();
    return QStringLiteral("\n%1\n\n```xml\n%2\n```\n").arg(QLatin1String(title), xml);
}

} // namespace

// Outside of code, Markdown takes pieces of XML for markup of its own.
QString escapedForMarkdown(QString text)
{
    return text.replace(QLatin1Char('&'), QLatin1String("&amp;"))
        .replace(QLatin1Char('<'), QLatin1String("&lt;"))
        .replace(QLatin1Char('*'), QLatin1String("\\*"));
}

QString severityName(CatalogSeverity severity)
{
    switch (severity) {
    case CatalogSeverity::Error: return QStringLiteral("error");
    case CatalogSeverity::Warning: return QStringLiteral("warning");
    case CatalogSeverity::Note: break;
    }
    return QStringLiteral("note");
}

QString severityText(const CatalogRule &rule)
{
    const QString name = severityName(rule.severity);
    if (rule.refuses)
        return name + QStringLiteral(", the file does not load");
    return rule.isOnByDefault ? name : name + QStringLiteral(", off unless it is asked for");
}

QStringList ruleIds()
{
    QStringList ids;
    for (const CatalogRule &rule : CatalogChecker::rules())
        ids << rule.id;
    return ids;
}

void printRules(QTextStream &out, const OutputStyle &style)
{
    constexpr int idWidth = 28;
    constexpr int severityWidth = 10;
    QString group;
    for (const CatalogRule &rule : CatalogChecker::rules()) {
        if (rule.group != group)
            out << (group.isEmpty() ? "" : "\n") << style.title(rule.group) << '\n';
        group = rule.group;
        out << "  " << rule.id.leftJustified(idWidth)
            << (rule.isOnByDefault ? severityName(rule.severity) : QStringLiteral("off"))
                   .leftJustified(severityWidth)
            << rule.summary << '\n';
    }
}

void printRule(QTextStream &out, const OutputStyle &style, const CatalogRule &rule)
{
    out << style.title(rule.id) << ": " << rule.summary << '\n'
        << severityText(rule) << "\n\n"
        << rule.explanation << '\n';
    printExample(out, "Before:", rule.before);
    printExample(out, "After:", rule.after);
}

QString ruleMarkdown(const CatalogRule &rule)
{
    return escapedForMarkdown(rule.explanation) + QLatin1Char('\n') + exampleBlock("Before:", rule.before)
           + exampleBlock("After:", rule.after);
}

} // namespace Orvida::Tools
