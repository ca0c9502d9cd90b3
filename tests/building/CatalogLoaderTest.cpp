// What a load says besides the catalog itself: why it failed. What comes of a file is in catalogs/.

#include "catalogs/building/CatalogLoader.h"

#include "support/TestSupport.h"

#include <QtTest>

using namespace Orvida::Catalogs;
using namespace Orvida::Tests;

class CatalogLoaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsWhyItFailed_data();
    void tellsWhyItFailed();
};

void CatalogLoaderTest::tellsWhyItFailed_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *name, const QByteArray &content, const char *reason) {
        QTest::newRow(name) << content << text(reason);
    };
    const QByteArray codeClass = "<CLASS><CLASS_PK>C</CLASS_PK></CLASS>\n";
    row("loaded", catalogXml(codeClass), "");
    row("no file", QByteArray(),
        "Cannot read the file: No such file or directory. To fix it, check the name of the file and the "
        "right to "
        "read it.");
    row("empty file", "",
        "Line 1, column 1: not well-formed XML: Premature end of document. To fix it, correct the XML there; "
        "a "
        "catalog loads as a whole or not at all.");
    row("record without a key", catalogXml(codeClass + "<CATPRO></CATPRO>\n" + codeClass),
        "Line 4, column 9: CATPRO record without PRO_PK. To fix it, give the record a PRO_PK that is not "
        "empty, "
        "or remove the record; one such record keeps the whole catalog from loading.");
    row("record without two keys", catalogXml("<COL/>"),
        "Line 3, column 7: COL record without COL_Profile_FK and without COL_Column_ID. To fix it, give the "
        "record a COL_Profile_FK that is not empty, or remove the record; one such record keeps the whole "
        "catalog from loading.");
}

void CatalogLoaderTest::tellsWhyItFailed()
{
    QFETCH(QByteArray, content);
    const CatalogFolder folder;
    if (!content.isNull())
        folder.write(text("catalog.xml"), content);
    const CatalogSptr catalog = CatalogLoader().loadCatalog(folder.path(text("catalog.xml")), text("id"));
    QTEST(catalog->failure().text(), "reason");
    QCOMPARE(catalog->failure().reason == CatalogReadFailure::None, catalog->IsValid());
}

QTEST_GUILESS_MAIN(CatalogLoaderTest)

#include "CatalogLoaderTest.moc"
