// The rules, by their own examples: each is put into a sound catalog, breaks its rule there and no other, and
// put right breaks none.

#include "checking/CatalogChecker.h"

#include "support/TestSupport.h"

#include <QtTest>

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

// "12:7-12:11 error some-rule BASECODE BC_Code BC-1 x2 +3: message (hint) 10:3 related"
QString lineOf(const CatalogFinding &finding)
{
    const QString severities[] = {text("error"), text("warning"), text("note")};
    QString line = text("%1:%2-%3:%4 %5 %6")
                       .arg(finding.line)
                       .arg(finding.column)
                       .arg(finding.endLine)
                       .arg(finding.endColumn)
                       .arg(severities[int(finding.severity)], finding.rule);
    for (const QString &part : {finding.record, finding.field, finding.key})
        line += QLatin1Char(' ') + (part.isEmpty() ? text("-") : part.simplified());
    if (finding.count != 1)
        line += text(" x%1").arg(finding.count);
    if (finding.affected != 0)
        line += text(" +%1").arg(finding.affected);
    line += text(": ") + finding.message;
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
    void findsNothingInExamplesThatArePutRight_data();
    void findsNothingInExamplesThatArePutRight();

private:
    QVector<CatalogFinding> found(const CatalogRule &rule, const QString &example) const;

    CatalogFolder m_folder;
};

// Examples on scrambled texts are in the form that hosts load. Classes in examples have no codes.
QVector<CatalogFinding> CatalogCheckerTest::found(const CatalogRule &rule, const QString &example) const
{
    const bool isScrambled = rule.group == text("Scrambled texts");
    QByteArray xml = example.toUtf8();
    if (!isWholeFile(example)) {
        QByteArray frame = contentOf(text("frame.xml")).toUtf8();
        xml = QByteArray(isScrambled ? scrambledForm(frame) : frame).replace("<!-- here -->", xml);
    }
    CatalogChecker checker;
    checker.setForm(isScrambled ? CatalogChecker::Form::Scrambled : CatalogChecker::Form::Readable);
    if (rule.id != text("empty-class"))
        checker.setLevel(text("empty-class"), CatalogChecker::Level::Off);
    if (!rule.isOnByDefault)
        checker.setLevel(rule.id, CatalogChecker::Level::Note);
    checker.check(m_folder.write(text("example.xml"), xml));
    return checker.findings();
}

// A piece of a file breaks its rule and no other. Of a whole file, other rules have something to say, too.
void CatalogCheckerTest::tellsTheExamplesOfItsRules()
{
    QString told;
    for (const CatalogRule &rule : CatalogChecker::rules()) {
        told += text("== ") + rule.id + QLatin1Char('\n');
        for (const CatalogFinding &finding : found(rule, rule.before)) {
            if (!isWholeFile(rule.before) || finding.rule == rule.id)
                told += lineOf(finding);
        }
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

void CatalogCheckerTest::findsNothingInExamplesThatArePutRight_data()
{
    QTest::addColumn<int>("index");
    for (int index = 0; index < CatalogChecker::rules().size(); ++index)
        QTest::newRow(qPrintable(CatalogChecker::rules().at(index).id)) << index;
}

void CatalogCheckerTest::findsNothingInExamplesThatArePutRight()
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

QTEST_GUILESS_MAIN(CatalogCheckerTest)
#include "CatalogCheckerTest.moc"
