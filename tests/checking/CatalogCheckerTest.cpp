// The rules, by their own examples and by further cases, put into a sound catalog; and what a check is asked
// for besides.

#include "checking/CatalogChecker.h"

#include "catalogs/format/CatalogFormat.h"
#include "support/TestSupport.h"

#include <QRegularExpression>
#include <QTextCodec>
#include <QtTest>

#include <algorithm>

using namespace Orvida::Checking;
using namespace Orvida::Tests;

namespace {

QString contentOf(const QString &name)
{
    QFile file(QFINDTESTDATA(name));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

bool isWholeFile(const QString &xml)
{
    return xml.startsWith(QLatin1String("<?xml")) || xml.startsWith(QLatin1String("<!DOCTYPE"))
           || xml.startsWith(QLatin1String("<OVCAT>")) || xml.startsWith(QLatin1String("<CATALOGS>"));
}

// With the scrambled texts in lower case.
QString withLowerCaseDigits(QString xml)
{
    const QRegularExpression fields(text("<(\\w+)>([0-9A-F]+)</"));
    for (auto matches = fields.globalMatch(xml); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        if (Orvida::Catalogs::CatalogFormat::isScrambled(QStringView(match.captured(1))))
            xml.replace(match.capturedStart(2), match.capturedLength(2), match.captured(2).toLower());
    }
    return xml;
}

// "12:7 error some-rule x2 +3"
QString shortLineOf(const CatalogFinding &finding)
{
    const QString severities[] = {text("error"), text("warning"), text("note")};
    QString line = text("%1:%2 ").arg(finding.line).arg(finding.column) + severities[int(finding.severity)]
                   + QLatin1Char(' ') + finding.rule;
    if (finding.count != 1)
        line += text(" x%1").arg(finding.count);
    if (finding.affected != 0)
        line += text(" +%1").arg(finding.affected);
    return line;
}

// The same with everything else.
QString lineOf(const CatalogFinding &finding)
{
    QString line = shortLineOf(finding) + text(" to %1:%2").arg(finding.endLine).arg(finding.endColumn);
    for (const QString &part : {finding.record, finding.field, finding.key})
        line += QLatin1Char(' ') + (part.isEmpty() ? text("-") : part.simplified());
    line += text("\n    ") + finding.message;
    if (!finding.hint.isEmpty())
        line += text("\n    ") + finding.hint;
    for (const CatalogRelated &related : finding.related)
        line += text("\n    %1:%2 ").arg(related.line).arg(related.column) + related.message;
    return line + QLatin1Char('\n');
}

} // namespace

class CatalogCheckerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsTheExamplesOfItsRules();
    void knowsWhatIsRight_data();
    void knowsWhatIsRight();
    void findsInCases_data();
    void findsInCases();
    void findsNothingInOtherWaysToWriteAFile_data();
    void findsNothingInOtherWaysToWriteAFile();
    void tellsWhatIsWrongWithAFile_data();
    void tellsWhatIsWrongWithAFile();
    void listsSomeAndCountsAll();
    void endsOnFilesMadeToBeSlow_data();
    void endsOnFilesMadeToBeSlow();
    void doesWithRulesAsItIsTold();
    void readsTheReadableFormAsScrambled();

private:
    QString written(const QString &xml, bool isScrambled) const;
    QVector<CatalogFinding> found(const CatalogRule &rule, const QString &example) const;

    CatalogFolder m_folder;
};

// Path of a file with this text; a piece of one is put into the frame, which is in the form asked for.
QString CatalogCheckerTest::written(const QString &xml, bool isScrambled) const
{
    QByteArray content = xml.toUtf8();
    if (!isWholeFile(xml)) {
        const QByteArray frame = contentOf(text("frame.xml")).toUtf8();
        content = QByteArray(isScrambled ? scrambledForm(frame) : frame).replace("<!-- here -->", content);
    }
    return m_folder.write(text("catalog.xml"), content);
}

// Examples on scrambled texts are in the form that hosts load. Classes in examples have no codes.
QVector<CatalogFinding> CatalogCheckerTest::found(const CatalogRule &rule, const QString &example) const
{
    const bool isScrambled = rule.group == text("Scrambled texts");
    CatalogChecker checker;
    checker.setForm(isScrambled ? CatalogChecker::Form::Scrambled : CatalogChecker::Form::Readable);
    if (rule.id != text("empty-class"))
        checker.setLevel(text("empty-class"), CatalogChecker::Level::Off);
    if (!rule.isOnByDefault)
        checker.setLevel(rule.id, CatalogChecker::Level::Note);
    checker.check(written(example, isScrambled));
    return checker.findings();
}

// A piece of a file breaks its rule and no other. Of a whole file, other rules have something to say, too.
void CatalogCheckerTest::tellsTheExamplesOfItsRules()
{
    QString told;
    for (const CatalogRule &rule : CatalogChecker::rules()) {
        told += text("== ") + rule.id + QLatin1Char('\n');
        int count = 0;
        for (const CatalogFinding &finding : found(rule, rule.before)) {
            if (finding.rule == rule.id)
                told += lineOf(finding);
            else
                QVERIFY2(isWholeFile(rule.before), qPrintable(rule.id + text(": ") + lineOf(finding)));
            count += finding.rule == rule.id;
        }
        QVERIFY2(count > 0 || rule.before.isEmpty(), qPrintable(rule.id));
    }
    const QString path = QFINDTESTDATA("examples.txt");
    if (qEnvironmentVariableIsSet("ORVIDA_UPDATE")) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(told.toUtf8()) > 0);
    }
    const QStringList lines = told.split(QLatin1Char('\n'));
    const QStringList expected = contentOf(text("examples.txt")).split(QLatin1Char('\n'));
    for (int line = 0; line < qMin(lines.size(), expected.size()); ++line)
        QCOMPARE(lines.at(line), expected.at(line));
    QVERIFY2(lines == expected,
             "Run this test with ORVIDA_UPDATE=1 to rewrite examples.txt, and look at it.");
}

void CatalogCheckerTest::knowsWhatIsRight_data()
{
    QTest::addColumn<int>("index");
    for (int index = 0; index < CatalogChecker::rules().size(); ++index)
        QTest::newRow(qPrintable(CatalogChecker::rules().at(index).id)) << index;
}

void CatalogCheckerTest::knowsWhatIsRight()
{
    QFETCH(int, index);
    const CatalogRule &rule = CatalogChecker::rules().at(index);
    QStringList wrong;
    for (const CatalogFinding &finding : found(rule, rule.after)) {
        if (!isWholeFile(rule.after) || finding.rule == rule.id)
            wrong.append(lineOf(finding));
    }
    QCOMPARE(wrong.join(QString()), QString());
}

void CatalogCheckerTest::findsInCases_data()
{
    QTest::addColumn<QString>("xml");
    QTest::addColumn<bool>("isScrambled");
    QTest::addColumn<QStringList>("expected");
    const QStringList cases = contentOf(text("cases.txt")).split(text("\n== "));
    for (const QString &one : cases.mid(1)) {
        const QString title = one.section(QLatin1Char('\n'), 0, 0);
        const QStringList parts = one.section(QLatin1Char('\n'), 1).split(text("\n--\n"));
        QVERIFY2(parts.size() == 2, qPrintable(title));
        QTest::newRow(qPrintable(title)) << parts.first() << title.endsWith(text("(scrambled)"))
                                         << parts.last().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
}

void CatalogCheckerTest::findsInCases()
{
    QFETCH(QString, xml);
    QFETCH(bool, isScrambled);
    QFETCH(QStringList, expected);
    CatalogChecker checker;
    checker.setForm(isScrambled ? CatalogChecker::Form::Scrambled : CatalogChecker::Form::Readable);
    checker.setLevel(text("empty-class"), CatalogChecker::Level::Off);
    checker.check(written(xml, isScrambled));
    QStringList lines;
    for (const CatalogFinding &finding : checker.findings())
        lines.append(shortLineOf(finding));
    lines.sort();
    expected.sort();
    QCOMPARE(lines.join(QLatin1Char('\n')), expected.join(QLatin1Char('\n')));
}

void CatalogCheckerTest::findsNothingInOtherWaysToWriteAFile_data()
{
    QTest::addColumn<QByteArray>("content");
    const QString frame = QString::fromUtf8(scrambledForm(contentOf(text("frame.xml")).toUtf8()));
    QTest::newRow("UTF-8 with a mark") << QByteArray("\xEF\xBB\xBF") + frame.toUtf8();
    QTest::newRow("UTF-16") << QTextCodec::codecForName("UTF-16")->fromUnicode(
        text("<?xml version='1.0' encoding='UTF-16'?>") + frame);
    QTest::newRow("CR LF") << QString(frame).replace(text("\n"), text("\r\n")).toUtf8();
    QTest::newRow("a namespace")
        << QString(frame).replace(text("<OVCAT>"), text("<OVCAT xmlns='urn:x'>")).toUtf8();
    QTest::newRow("a prefix") << QString(frame)
                                     .replace(text("<OVCAT>"), text("<x:OVCAT xmlns:x='urn:x'>"))
                                     .replace(text("</OVCAT>"), text("</x:OVCAT>"))
                                     .toUtf8();
    QTest::newRow("the other root") << QString(frame).replace(text("OVCAT"), text("OVCat")).toUtf8();
    QTest::newRow("one line") << frame.simplified().toUtf8();
    QTest::newRow("comments") << QString(frame).replace(text("><"), text("><!-- c --><")).toUtf8();
    QTest::newRow("lower-case digits") << withLowerCaseDigits(frame).toUtf8();
}

void CatalogCheckerTest::findsNothingInOtherWaysToWriteAFile()
{
    QFETCH(QByteArray, content);
    CatalogChecker checker;
    const bool isLoading = checker.check(m_folder.write(text("catalog.xml"), content));
    for (const CatalogFinding &finding : checker.findings())
        QFAIL(qPrintable(lineOf(finding)));
    QVERIFY(isLoading);
}

void CatalogCheckerTest::tellsWhatIsWrongWithAFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("hint");
    const QByteArray block(20000, '\n');
    const QString utf8 = text("save the file as UTF-8, or declare its encoding in the first line");
    QTest::newRow("nothing in it") << QByteArray("") << text("1:1 error not-well-formed")
                                   << text("there is no XML in it");
    QTest::newRow("Latin-1") << QByteArray("<OVCAT>\n  <a>\xE9t\xE9</a></OVCAT>")
                             << text("2:6 error wrong-encoding") << utf8;
    QTest::newRow("Latin-1 far down")
        << "<OVCAT>" + block + "\xC3\xA9 \xE9</OVCAT>" << text("20001:3 error wrong-encoding") << utf8;
    QTest::newRow("cut inside a letter of two bytes, at a block's end")
        << "<OVCAT>" + QByteArray(65528, ' ') + "\xC3 </OVCAT>" << text("1:65536 error wrong-encoding")
        << utf8;
    QTest::newRow("an end tag too few")
        << QByteArray("<OVCAT>\n<CLASS>\n<CLASS_PK>C</CLASS>") << text("3:20 error not-well-formed")
        << text("the open element is <CLASS_PK> from line 3");
    QTest::newRow("cut off")
        << QByteArray("<OVCAT>\n<CLASS>\n<CLASS_PK>C</CLASS_PK>") << text("3:23 error not-well-formed")
        << text("the file is cut off, or end tags are missing: open are <CLASS> from line 2, "
                "<OVCAT> from line 1");
    QTest::newRow("a comment with hyphens")
        << QByteArray("<OVCAT><!-- a -- b --></OVCAT>") << text("1:18 error not-well-formed")
        << text("a comment may not contain two hyphens in a row");
}

void CatalogCheckerTest::tellsWhatIsWrongWithAFile()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, expected);
    QFETCH(QString, hint);
    CatalogChecker checker;
    QVERIFY(!checker.check(m_folder.write(text("catalog.xml"), content)));
    QVERIFY(!checker.findings().isEmpty());
    const auto first =
        std::find_if(checker.findings().begin(), checker.findings().end(),
                     [](const auto &finding) { return CatalogChecker::rule(finding.rule)->refuses; });
    QCOMPARE(shortLineOf(*first), expected);
    QCOMPARE(first->hint, hint);
}

void CatalogCheckerTest::listsSomeAndCountsAll()
{
    QByteArray records;
    for (int number = 0; number < 250; ++number)
        records += "<CHAREXT><CE_PK>" + QByteArray::number(number) + "</CE_PK></CHAREXT>\n";
    const QString path = m_folder.write(text("catalog.xml"), catalogXml(records));
    const auto listed = [](const CatalogChecker &checker) {
        return std::count_if(
            checker.findings().begin(), checker.findings().end(),
            [](const CatalogFinding &finding) { return finding.rule == text("extension-without-parent"); });
    };
    CatalogChecker checker;
    QVERIFY(checker.check(path));
    QCOMPARE(listed(checker), 100);
    QCOMPARE(checker.totals(text("extension-without-parent")).findings, 250);
    QCOMPARE(checker.count(CatalogSeverity::Error), 0);
    QCOMPARE(checker.count(CatalogSeverity::Warning), 500); // and no captions
    checker.setFindingsPerRule(0);
    checker.check(path);
    QCOMPARE(listed(checker), 250);
}

void CatalogCheckerTest::endsOnFilesMadeToBeSlow_data()
{
    QTest::addColumn<QByteArray>("records");
    const auto repeated = [](int count, const char *record) {
        QByteArray result;
        for (int number = 0; number < count; ++number)
            result += text(record).arg(number).toUtf8();
        return result;
    };
    const QByteArray classId = scrambledForm("<LC_Class_ID>L</LC_Class_ID></LC>");
    QTest::newRow("one record with many values")
        << "<CLASS><CLASS_PK>C</CLASS_PK>" + repeated(200000, "<CLASS_Remarks>%1</CLASS_Remarks>")
               + "</CLASS>";
    QTest::newRow("lists that share their entries")
        << repeated(5000, "<LC><LC_PK>L</LC_PK><LC_Profile_FK>%1</LC_Profile_FK>@").replace("@", classId)
               + repeated(5000,
                          "<LIST><LIST_Class_FK>L</LIST_Class_FK><LIST_Internal>%1</LIST_Internal></LIST>");
    QTest::newRow("followers that are no codes")
        << "<CHAREXT><CE_PK>C</CE_PK><CE_Follower>" + repeated(100000, "%1 ") + "</CE_Follower></CHAREXT>";
}

// What takes the square of their size would take hours.
void CatalogCheckerTest::endsOnFilesMadeToBeSlow()
{
    QFETCH(QByteArray, records);
    CatalogChecker checker;
    checker.setFindingsPerRule(0);
    QVERIFY(checker.check(m_folder.write(text("catalog.xml"), catalogXml(records))));
}

void CatalogCheckerTest::doesWithRulesAsItIsTold()
{
    const QString path = written(text("<NOTES/>"), false);
    const QString rule = text("unknown-record");
    CatalogChecker checker;
    checker.setForm(CatalogChecker::Form::Readable);
    QVERIFY(!checker.setLevel(text("missing-key"), CatalogChecker::Level::Off));
    QVERIFY(!checker.setLevel(text("no-such-rule"), CatalogChecker::Level::Off));
    QVERIFY(checker.setLevel(rule, CatalogChecker::Level::Error));
    QVERIFY(checker.check(path));
    QCOMPARE(checker.count(CatalogSeverity::Error), 1);
    QCOMPARE(checker.findings().first().severity, CatalogSeverity::Error);
    QVERIFY(checker.setLevel(rule, CatalogChecker::Level::Off));
    QVERIFY(checker.check(path));
    QCOMPARE(checker.findings().size(), 0);
    QCOMPARE(checker.totals(rule).occurrences, 1);
}

// What an author checks is what is scrambled for hosts: the same findings, in other columns.
void CatalogCheckerTest::readsTheReadableFormAsScrambled()
{
    const QByteArray readable = QByteArray(contentOf(text("frame.xml")).toUtf8())
                                    .replace("<BC_Class_FK>CL-LINING", "<BC_Class_FK>CL-X");
    CatalogChecker checker;
    const auto rulesIn = [&](const QByteArray &content, CatalogChecker::Form form) {
        QStringList rules;
        checker.setForm(form);
        checker.check(m_folder.write(text("catalog.xml"), content));
        for (const CatalogFinding &finding : checker.findings())
            rules.append(text("%1 ").arg(finding.line) + finding.rule + finding.message);
        return rules;
    };
    const QStringList rules = rulesIn(readable, CatalogChecker::Form::Readable);
    QCOMPARE(rulesIn(scrambledForm(readable), CatalogChecker::Form::Scrambled), rules);
    QVERIFY(!rules.isEmpty());
}

QTEST_GUILESS_MAIN(CatalogCheckerTest)
#include "CatalogCheckerTest.moc"
