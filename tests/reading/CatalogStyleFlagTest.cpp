// Reading of nothing but the style flag of a catalog file.

#include "catalogs/reading/CatalogXMLParser.h"

#include "reading/RecordListing.h"
#include "support/TestSupport.h"

#include <QtTest>

#include <limits>

using namespace Orvida::Tests;

class CatalogStyleFlagTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsStyleFlag_data();
    void readsStyleFlag();
    void readsNoPartOfAStyleFlag();
    void readsNoStyleFlagWithoutFile_data();
    void readsNoStyleFlagWithoutFile();
};

void CatalogStyleFlagTest::readsStyleFlag_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<qint64>("style");

    const auto row = [](const char *name, const QByteArray &content, qint64 value) {
        QTest::newRow(name) << content << value;
    };
    const auto styled = [](const QByteArray &text) {
        return catalogXml("<CATALOG><CAT_Style>" + text + "</CAT_Style></CATALOG>");
    };
    const QByteArray seven = "<CAT_Style>7</CAT_Style>";
    const QByteArray none = "<CATALOG><CAT_PK>7</CAT_PK></CATALOG>";

    row("small", styled("12"), 12);
    row("below bit 31", styled("2147483647"), 2147483647);
    row("bit 31", styled("2147483648"), 2147483648);
    row("bit 32", styled("4294967296"), 4294967296);
    row("more than 32 bits", styled("1311768467463790320"), Q_INT64_C(0x123456789ABCDEF0));
    row("all bits", styled("-1"), -1);
    row("largest", styled("9223372036854775807"), std::numeric_limits<qint64>::max());
    row("out of range", styled("9223372036854775808"), 0);
    row("word", styled("abc"), 0);
    row("number and letters", styled("7x"), 0);
    row("hexadecimal", styled("0x7"), 0);
    row("CDATA section", styled("<![CDATA[7]]>"), 7);

    row("empty", styled(""), 0);
    row("empty, another one behind it", styled("</CAT_Style>" + seven + "<CAT_Style>"), 0);
    row("empty, number behind it", catalogXml("<CATALOG><CAT_Style/>7</CATALOG>"), 0);
    row("element inside", styled("<b>7</b>"), 0);
    row("comment before the number", styled("<!-- x -->7"), 0);
    row("comment that is a number", styled("<!--8-->7"), 8);
    row("processing instruction before the number", styled("<?x 8?>7"), 0);
    row("comment behind the number", styled("7<!--8-->9"), 7);

    row("behind other fields",
        catalogXml("<CATALOG><CAT_PK>8</CAT_PK><CAT_Other/><!-- x -->" + seven + "</CATALOG>"), 7);
    row("given twice", catalogXml("<CATALOG>" + seven + "<CAT_Style>8</CAT_Style></CATALOG>"), 7);
    row("inside another field", catalogXml("<CATALOG><CAT_PK>" + seven + "</CAT_PK></CATALOG>"), 0);
    row("in small letters", catalogXml("<CATALOG><cat_style>7</cat_style></CATALOG>"), 0);
    row("none", catalogXml(none + record("CATPRO PRO_PK=p")), 0);
    row("behind the catalog information", catalogXml(none + record("CATPRO PRO_PK=p") + seven), 7);
    row("before the catalog information", catalogXml(seven + none), 0);
    row("in a record behind the catalog information", catalogXml(none + "<CATPRO>" + seven + "</CATPRO>"), 0);
    row("in a second catalog information", catalogXml(none + "<CATALOG>" + seven + "</CATALOG>"), 0);
    row("in a root behind the catalog information", catalogXml(none + "<OVCAT>" + seven + "</OVCAT>"), 0);

    const QByteArray information = "<CATALOG>" + seven + "</CATALOG>";
    row("other spelling of the root", "<OVCat>" + information + "</OVCat>", 7);
    row("root inside the root", catalogXml("<OVCat>" + information + "</OVCat>"), 7);
    row("without root", information, 7);
    row("behind records, of which one lacks its key", catalogXml("<CATPRO/>" + information), 7);
    row("in a wrapper", catalogXml("<wrapper>" + information + "</wrapper>"), 0);
    row("unknown root", "<X>" + information + "</X>", 0);
    row("without catalog information", catalogXml(record("CATPRO PRO_PK=p")), 0);

    row("malformed before", catalogXml("<a></b>" + information), 0);
    row("malformed in the catalog information", catalogXml("<CATALOG><a></b>" + seven + "</CATALOG>"), 0);
    row("malformed behind", catalogXml(information + "<a></b>"), 7);
    row("ends behind the field", QByteArray("<OVCAT><CATALOG>" + seven), 7);
    row("ends before the field", QByteArray("<OVCAT><CATALOG>"), 0);
    row("ends at the field's start tag", QByteArray("<OVCAT><CATALOG><CAT_Style>"), 0);
    row("ends in the number", QByteArray("<OVCAT><CATALOG><CAT_Style>7"), 0);
    row("no XML", QByteArray("style: 7"), 0);
    row("empty file", QByteArray(), 0);
}

void CatalogStyleFlagTest::readsStyleFlag()
{
    QFETCH(QByteArray, content);
    QFETCH(qint64, style);
    const CatalogFolder folder;
    const QString path = folder.write(QStringLiteral("catalog.xml"), content);
    const LogCapture log;
    CatalogXMLParser parser;
    QCOMPARE(parser.readCatalogStyleFlag(path), style);
    QCOMPARE(log.messages(), QStringList());
}

void CatalogStyleFlagTest::readsNoPartOfAStyleFlag()
{
    const QByteArray content = catalogXml("<CATALOG><CAT_Style>2147483648</CAT_Style></CATALOG>");
    const int last = content.indexOf('8', content.indexOf("2147483648") + 9);
    for (int size = 0; size <= content.size(); ++size) {
        const CatalogFolder folder;
        CatalogXMLParser parser;
        const qint64 style =
            parser.readCatalogStyleFlag(folder.write(QStringLiteral("catalog.xml"), content.left(size)));
        // Where the number is whole and its end tag is not, both answers will do.
        if (style != 0 && (style != 2147483648 || size <= last))
            QFAIL(content.left(size).constData());
    }
}

void CatalogStyleFlagTest::readsNoStyleFlagWithoutFile_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("missing file") << "missing.xml";
    QTest::newRow("folder") << ".";
    QTest::newRow("empty name") << "";
}

void CatalogStyleFlagTest::readsNoStyleFlagWithoutFile()
{
    QFETCH(QString, name);
    const CatalogFolder folder;
    const LogCapture log;
    CatalogXMLParser parser;
    QCOMPARE(parser.readCatalogStyleFlag(name.isEmpty() ? QString() : folder.path(name)), Q_INT64_C(0));
    QCOMPARE(log.messages(), QStringList());
}

QTEST_GUILESS_MAIN(CatalogStyleFlagTest)

#include "CatalogStyleFlagTest.moc"
