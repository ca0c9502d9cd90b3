// Reading of nothing but the style flag of a catalog file.

#include "catalogs/reading/CatalogXMLParser.h"

#include "support/TestSupport.h"

#include <QtTest>

using namespace Orvida::Tests;
using Orvida::Catalogs::CatalogXMLParser;

class CatalogStyleFlagTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsStyleFlag_data();
    void readsStyleFlag();
    void readsNoStyleFlagWithoutFile();
};

void CatalogStyleFlagTest::readsStyleFlag_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<qint64>("style");

    // {7} is the field, {C7} the catalog information with nothing but it, {C} one without it.
    const auto row = [](const char *name, QByteArray content, qint64 style) {
        content.replace("{C7}", "<CATALOG>{7}</CATALOG>").replace("{7}", "<CAT_Style>7</CAT_Style>");
        QTest::newRow(name) << content.replace("{C}", "<CATALOG><CAT_PK>8</CAT_PK></CATALOG>") << style;
    };
    const auto text = [&row](const char *name, const QByteArray &styleText, qint64 style) {
        row(name, "<CATALOG><CAT_Style>" + styleText + "</CAT_Style></CATALOG>", style);
    };

    text("more than 32 bits", "1311768467463790320", Q_INT64_C(0x123456789ABCDEF0));
    text("negative", "-1", -1);
    text("no number", "0x7", 0);
    text("empty, another one behind it", "</CAT_Style>{7}<CAT_Style>", 0);
    text("element inside", "<b>7</b>", 0);
    text("comment behind the number", "7<!--8-->9", 7);
    row("behind other fields", "<OVCAT><CATALOG><CAT_PK>8</CAT_PK><!-- x -->{7}</CATALOG></OVCAT>", 7);
    row("given twice", "<CATALOG>{7}<CAT_Style>8</CAT_Style></CATALOG>", 7);
    row("inside another field", "<CATALOG><CAT_PK>{7}</CAT_PK></CATALOG>", 0);
    row("behind the catalog information", "<OVCAT>{C}<CATPRO/>{7}</OVCAT>", 7);
    row("before the catalog information", "<OVCAT>{7}{C}</OVCAT>", 0);
    row("in an element behind the catalog information", "<OVCAT>{C}<CATPRO>{7}</CATPRO>{C7}</OVCAT>", 0);
    row("root inside the root", "<OVCAT><OVCat>{C7}</OVCat></OVCAT>", 7);
    row("behind records, of which one lacks its key", "<OVCAT><CATPRO/>{C7}</OVCAT>", 7);
    row("in a wrapper", "<OVCAT><wrapper>{C7}</wrapper></OVCAT>", 0);
    row("malformed before", "<OVCAT><a></b>{C7}</OVCAT>", 0);
    row("malformed behind", "<OVCAT>{C7}<a></b></OVCAT>", 7);
    row("ends in the number", "<OVCAT><CATALOG><CAT_Style>7", 0);
    row("ends at the field's start tag", "<OVCAT><CATALOG><CAT_Style>", 0);
}

void CatalogStyleFlagTest::readsStyleFlag()
{
    QFETCH(QByteArray, content);
    QFETCH(qint64, style);
    const CatalogFolder folder;
    const QString path = folder.write(QStringLiteral("catalog.xml"), content);
    const LogCapture log;
    QCOMPARE(CatalogXMLParser().readCatalogStyleFlag(path), style);
    QCOMPARE(log.messages(), QStringList());
}

void CatalogStyleFlagTest::readsNoStyleFlagWithoutFile()
{
    const LogCapture log;
    for (const QString &name : {QString(), QStringLiteral("/missing.xml"), QStringLiteral("/tmp")})
        QCOMPARE(CatalogXMLParser().readCatalogStyleFlag(name), Q_INT64_C(0));
    QCOMPARE(log.messages(), QStringList());
}

QTEST_GUILESS_MAIN(CatalogStyleFlagTest)

#include "CatalogStyleFlagTest.moc"
