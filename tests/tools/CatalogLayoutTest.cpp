// A catalog file that is laid out loads as before, has all that it had, and is not laid out any further.

#include "tools/layout/CatalogLayout.h"
#include "reading/RecordListing.h"
#include "tools/MemoryFile.h"
#include "tools/NewCatalog.h"

#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <QRandomGenerator>
#include <QXmlStreamReader>
#include <QtTest>

#include <algorithm>

using namespace Orvida::Tests;
using Orvida::Tools::CatalogLayout;

namespace {

// What a load reads of the file; of one that is refused, which record is.
QStringList listingOf(const QByteArray &document)
{
    Orvida::Tools::MemoryFile file;
    CatalogXMLParser parser;
    QHash<QString, ItemPtr> items;
    QStringList lines;
    if (!file.append(document) || !parser.readFile(file.path(), items))
        lines << parser.failure().record << parser.failure().missingFields;
    lines << linesOf(parser);
    for (const ItemPtr &item : sorted(items))
        lines << propertiesOf(item);
    return lines;
}

// All characters that are no white space; the order of fields may change.
QByteArray sortedCharacters(QByteArray document)
{
    for (const char c : {' ', '\n', '\r', '\t'})
        document.replace(c, "");
    std::sort(document.begin(), document.end());
    return document;
}

QString faultOfLayout(const QByteArray &document)
{
    const CatalogLayout layout(document);
    if (layout.failure().has_value() == isWellFormed(document))
        return text("a failure for a good file, or none for a bad one");
    if (layout.failure())
        return QString();
    if (CatalogLayout(layout.document()).document() != layout.document())
        return text("laid out twice, it is another one");
    if (sortedCharacters(layout.document()) != sortedCharacters(document))
        return text("something is lost or new");
    return listingOf(layout.document()) == listingOf(document) ? QString()
                                                               : text("it loads as another catalog");
}

} // namespace

class CatalogLayoutTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLoggingCategory::setFilterRules(text("*=false")); }
    void changesNothingButTheLayout_data();
    void changesNothingButTheLayout();
    void survivesAnyMarkup();
};

void CatalogLayoutTest::changesNothingButTheLayout_data()
{
    QTest::addColumn<QList<QByteArray>>("documents");

    const QStringList folders = {text("../../fuzz/corpus/load"),
                                 text("../../fuzz/corpus/style"),
                                 text("../../fuzz/corpus/check"),
                                 text("../../fuzz/corpus/scanner"),
                                 text("../catalogs"),
                                 text("transcripts/files")};
    for (const QString &folder : folders) {
        QList<QByteArray> documents;
        for (const QFileInfo &file : QDir(QFINDTESTDATA(folder)).entryInfoList(QDir::Files))
            documents << bytesOf(file.filePath());
        QVERIFY(!documents.isEmpty());
        QTest::newRow(qPrintable(folder)) << documents;
    }
    const QByteArray sample = bytesOf(text(ORVIDA_SAMPLES) + text("/tunnels.xml"));
    QByteArray withoutLineBreaks = sample;
    withoutLineBreaks.replace("\n", "");
    QTest::newRow("sample") << QList<QByteArray>{sample, withoutLineBreaks,
                                                 QByteArray(sample).replace("\n", "\r\n")};
    QTest::newRow("new") << QList<QByteArray>{
        Orvida::Tools::newCatalog(text("KEY"), text("en"), {text("A"), text("B")})};
}

void CatalogLayoutTest::changesNothingButTheLayout()
{
    QFETCH(QList<QByteArray>, documents);
    for (const QByteArray &document : documents) {
        const QString fault = faultOfLayout(document);
        QVERIFY2(fault.isEmpty(), qPrintable(fault + text(": ") + QString::fromUtf8(document.left(2000))));
    }
}

// Pieces of markup in a record, in any order and with any space between them.
void CatalogLayoutTest::survivesAnyMarkup()
{
    const QList<QByteArray> pieces = {
        "<LIST_Item>a</LIST_Item>",
        "<LIST_Item> b\n</LIST_Item>",
        "<LIST_Caption/>",
        "<LIST_Class_FK>l</LIST_Class_FK>",
        "<LIST_Class_FK>m</LIST_Class_FK>",
        "<!-- c -->",
        "<!-- two\n lines -->",
        "<LC_PK>x</LC_PK>",
        "<OTHER/>",
        "<OTHER><LIST_Item>d</LIST_Item></OTHER>",
        "text",
        "<![CDATA[ ]]>",
        "<?pi?>",
        "&#x20;",
        " ",
        "\n",
        "\n\n",
        "<LIST_Internal><!-- e -->f<![CDATA[g]]></LIST_Internal>",
        "</LIST><LIST>",
        "</LIST>\n\n\n<LIST>",
        "</LIST><!-- h --><LIST a='1'>",
        "</LIST> <!-- i -->\n<LC><LC_Class_ID>41</LC_Class_ID></LC><LIST>",
    };
    QRandomGenerator random(1);
    for (int round = 0; round < 2000; ++round) {
        QByteArray document = "<OVCAT><LIST>";
        for (int count = random.bounded(12); count > 0; --count)
            document += pieces.at(random.bounded(pieces.size()));
        document += "</LIST></OVCAT>";
        const QString fault = faultOfLayout(document);
        QVERIFY2(fault.isEmpty(), qPrintable(fault + text(": ") + QString::fromUtf8(document)));
    }
}

QTEST_GUILESS_MAIN(CatalogLayoutTest)

#include "CatalogLayoutTest.moc"
