#include "checking/LoadAgreement.h"

#include "catalogs/building/CatalogLoader.h"
#include "catalogs/reading/CCatalogTokenizer.h"
#include "catalogs/reading/CatalogXMLParser.h"
#include "checking/CatalogChecker.h"

#include <QFile>
#include <QSet>
#include <QXmlStreamReader>

#include <algorithm>
#include <atomic>

namespace Orvida::Tests {

namespace {

using namespace Catalogs;
using Checking::CatalogChecker;
using Checking::CatalogFinding;
using Items = QHash<QString, QSharedPointer<CatalogItem>>;

std::atomic<int> errorLines{0};

void countErrorLine(QtMsgType type, const QMessageLogContext &, const QString &)
{
    errorLines += type == QtCriticalMsg;
}

// Counts the errors that are logged while it lives.
class ErrorLineCount
{
public:
    ErrorLineCount() : m_earlier(qInstallMessageHandler(countErrorLine)) { errorLines = 0; }
    ~ErrorLineCount() { qInstallMessageHandler(m_earlier); }
    Q_DISABLE_COPY(ErrorLineCount)

    int count() const { return errorLines; }

private:
    const QtMessageHandler m_earlier;
};

QString describe(const CatalogReadFailure &failure)
{
    return QStringLiteral("%1 %2:%3 %4 %5 %6")
        .arg(QString::number(failure.reason), QString::number(failure.line), QString::number(failure.column),
             failure.detail, failure.record, failure.missingFields.join(QLatin1Char(',')));
}

// Records of codes that are read, repeated ones included.
int itemRecords(const QString &path)
{
    QFile file(path);
    QXmlStreamReader reader(&file);
    int count = 0;
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    while (!reader.atEnd() && !reader.hasError()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const auto section = CCatalogTokenizer::stringToCatalogToken(reader.name());
        if (section == CCatalogTokenizer::CatalogToken::OVCAT)
            continue;
        count += section == CCatalogTokenizer::CatalogToken::CLASS
                 || section == CCatalogTokenizer::CatalogToken::BASECODE
                 || section == CCatalogTokenizer::CatalogToken::CHAREXT;
        reader.skipCurrentElement();
    }
    return count;
}

int itemsInTree(Catalog &catalog)
{
    QList<QSharedPointer<CatalogItem>> open = {catalog.getCatalogItems().value(QString())};
    int count = 0;
    for (; !open.isEmpty(); ++count)
        open += open.takeLast()->getChildItems();
    return count - 1;
}

// What a rule must have been broken by, counted in what the reader made of the file.
struct Expected
{
    const char *rule;
    qint64 count;
};

const QString &itemKey(const CatalogParserParamExtended &extension)
{
    return extension.baseCodeFk.isEmpty() ? extension.charExtFk : extension.baseCodeFk;
}

template <typename IsBroken>
qint64 countOf(const CatalogXMLParser &parser, IsBroken isBroken)
{
    return std::count_if(parser.m_parameterExtensions.cbegin(), parser.m_parameterExtensions.cend(),
                         isBroken);
}

QVector<Expected> expectedOfFields(const CatalogXMLParser &parser, const Items &items)
{
    using Extension = CatalogParserParamExtended;
    return {
        {"unknown-item", countOf(parser,
                                 [&](const Extension &extension) {
                                     return !itemKey(extension).isEmpty()
                                            && !items.contains(itemKey(extension));
                                 })},
        {"no-item", countOf(parser, [](const Extension &extension) { return itemKey(extension).isEmpty(); })},
        {"no-column",
         countOf(parser, [](const Extension &extension) { return extension.columnId.isEmpty(); })},
        {"unknown-column", countOf(parser,
                                   [&](const Extension &extension) {
                                       return !extension.columnId.isEmpty()
                                              && !parser.m_columns.contains(extension.columnId);
                                   })},
        {"no-parameter",
         countOf(parser, [](const Extension &extension) { return extension.paramFk.isEmpty(); })},
        {"unknown-parameter", countOf(parser,
                                      [&](const Extension &extension) {
                                          return !extension.paramFk.isEmpty()
                                                 && !parser.m_parameters.contains(extension.paramFk);
                                      })},
    };
}

qint64 lostEntries(const CatalogXMLParser &parser)
{
    QSet<QString> keys;
    for (const CatalogParserListClass &listClass : parser.m_listClasses)
        keys.insert(listClass.pk);
    qint64 count = 0;
    for (auto entries = parser.m_listItems.cbegin(); entries != parser.m_listItems.cend(); ++entries)
        count += keys.contains(entries.key()) ? 0 : entries->size();
    return count;
}

qint64 occurrences(const CatalogChecker &checker, const char *rule)
{
    return checker.totals(QLatin1String(rule)).occurrences;
}

QString disagreementOnCounts(const CatalogChecker &checker, const QString &path)
{
    const ErrorLineCount lines;
    const CatalogSptr catalog = CatalogLoader().loadCatalog(path, QStringLiteral("id"));
    const qint64 logged = lines.count();
    CatalogXMLParser parser;
    Items items;
    if (!parser.readFile(path, items))
        return QStringLiteral("read once, but not twice");
    QVector<Expected> expected = expectedOfFields(parser, items);
    expected.append({"unknown-list-class", lostEntries(parser)});
    expected.append({"repeated-item-key", itemRecords(path) - items.size()});
    for (const Expected &row : qAsConst(expected)) {
        if (occurrences(checker, row.rule) != row.count)
            return QStringLiteral("%1: found %2, not %3")
                .arg(QLatin1String(row.rule))
                .arg(occurrences(checker, row.rule))
                .arg(row.count);
    }
    qint64 outside = 0;
    for (const char *rule : {"unknown-parent", "parent-loop"})
        outside += occurrences(checker, rule) + checker.totals(QLatin1String(rule)).affected;
    if (outside != items.size() - itemsInTree(*catalog))
        return QStringLiteral("found %1 outside of the tree").arg(outside);
    qint64 told = 0;
    for (const char *rule : {"unknown-item", "bad-boolean", "entry-without-value"})
        told += occurrences(checker, rule);
    return told == logged ? QString() : QStringLiteral("found %1 of %2 log lines").arg(told).arg(logged);
}

bool isBetween(const CatalogFinding &finding)
{
    const bool isEmpty = finding.line == finding.endLine && finding.column == finding.endColumn;
    const bool isForward = finding.line < finding.endLine
                           || (finding.line == finding.endLine && finding.column < finding.endColumn);
    return finding.line > 0 && finding.column > 0 && (isEmpty || isForward);
}

// What is true of findings of any file.
QString faultOfFindings(const CatalogChecker &checker)
{
    const QVector<CatalogFinding> &findings = checker.findings();
    for (const CatalogFinding &finding : findings) {
        if (finding.message.isEmpty() || !CatalogChecker::rule(finding.rule))
            return QStringLiteral("nothing said of ") + finding.rule;
        if (!isBetween(finding))
            return QStringLiteral("no place: %1 at %2:%3")
                .arg(finding.rule)
                .arg(finding.line)
                .arg(finding.column);
    }
    return QString();
}

bool isRefused(const CatalogFinding &finding)
{
    return CatalogChecker::rule(finding.rule)->refuses;
}

// The first finding that refuses is the failure, in the same place; bytes of a wrong encoding are found
// better.
QString disagreementOnFailure(const CatalogChecker &checker)
{
    const QVector<CatalogFinding> &findings = checker.findings();
    const auto first = std::find_if(findings.begin(), findings.end(), isRefused);
    const CatalogReadFailure &failure = checker.failure();
    if ((first == findings.end()) != (failure.reason == CatalogReadFailure::None))
        return QStringLiteral("a failure without finding, or the other way round");
    if (first == findings.end() || failure.line == 0 || first->rule == QLatin1String("wrong-encoding"))
        return QString();
    return first->line == failure.line && first->column == failure.column
               ? QString()
               : QStringLiteral("%1 is at %2:%3").arg(first->rule).arg(first->line).arg(first->column);
}

} // namespace

QString disagreementOn(const QString &path)
{
    CatalogChecker checker;
    checker.setFindingsPerRule(0);
    CatalogXMLParser parser;
    Items items;
    ErrorLineCount quiet;
    const bool isRead = parser.readFile(path, items);
    const int logged = quiet.count();
    if (checker.check(path) != isRead || describe(checker.failure()) != describe(parser.failure()))
        return QStringLiteral("read: %1, checked: %2")
            .arg(describe(parser.failure()), describe(checker.failure()));
    if (quiet.count() != logged)
        return QStringLiteral("a check logs");
    for (const QString &fault : {faultOfFindings(checker), disagreementOnFailure(checker)}) {
        if (!fault.isEmpty())
            return fault;
    }
    // Of a file in the readable form, the other findings are those of that form.
    if (isRead && occurrences(checker, "unknown-root") == 0 && occurrences(checker, "readable-form") == 0) {
        const QString fault = disagreementOnCounts(checker, path);
        if (!fault.isEmpty())
            return fault;
    }
    checker.setForm(CatalogChecker::Form::Readable);
    checker.check(path);
    return faultOfFindings(checker);
}

} // namespace Orvida::Tests
