// Where catalog files lie: how folder and provider make a path.

#include "catalogs/access/CatalogConfigData.h"

#include "support/TestSupport.h"

#include <QtTest>

using Orvida::Catalogs::CatalogConfigData;

class CatalogConfigDataTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void composesPaths_data();
    void composesPaths();
};

void CatalogConfigDataTest::composesPaths_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("path");
    const auto row = [](const char *rowName, const char *folder, const char *name, const char *path) {
        QTest::newRow(rowName) << folder << name << path;
    };
    row("folder with separator", "/cat/", "X.xml", "/cat/X.xml");
    row("folder without separator", "/cat", "X.xml", "/catX.xml");
    row("nothing is normalised", "/cat//./", "/../X ", "/cat//.//../X ");
    row("unknown identifier", "/cat/", "", "");
}

void CatalogConfigDataTest::composesPaths()
{
    QFETCH(QString, folder);
    QFETCH(QString, name);
    const QString id = QStringLiteral("Id ");
    const Orvida::Tests::FileTable replaced;
    Orvida::Tests::FileTable files;
    files.add(id, name);
    CatalogConfigData::setCatalogFolderPath(folder);
    QTEST(CatalogConfigData::findCatalogPath(id), "path");
    CatalogConfigData::setCatalogFileNameProvider(nullptr);
    QVERIFY(CatalogConfigData::findCatalogPath(id).isNull());
    QCOMPARE(files.questions(id), 1);
}

QTEST_GUILESS_MAIN(CatalogConfigDataTest)

#include "CatalogConfigDataTest.moc"
