// docs/checking.md against the checker's table of rules. With ORVIDA_UPDATE=1 the rules are written into the
// page instead; read the diff before committing it.

#include "docs/generator/CheckingPage.h"

#include <QFile>
#include <QtTest>

class CheckingManualTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasTheRules();
};

void CheckingManualTest::hasTheRules()
{
    QFile file(QStringLiteral(ORVIDA_SOURCES "/docs/checking.md"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString page = QString::fromUtf8(file.readAll());
    QStringList absent;
    const QString updated = Orvida::Docs::checkingPage(page, absent);
    QCOMPARE(absent, QStringList());
    if (qEnvironmentVariableIsSet("ORVIDA_UPDATE")) {
        file.close();
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(updated.toUtf8()) > 0);
        return;
    }
    QVERIFY2(page == updated, "Run this test with ORVIDA_UPDATE=1 to rewrite the rules of docs/checking.md.");
}

QTEST_GUILESS_MAIN(CheckingManualTest)

#include "CheckingManualTest.moc"
