// Value lists, seen through the fields that offer them, and continuous-defect codes.

#include "support/TestSupport.h"

#include <QMap>
#include <QVector>
#include <QtTest>

using Orvida::Catalogs::CatalogSptr;
using Orvida::Tests::loaded;
using Orvida::Tests::LogCapture;
using Orvida::Tests::recordsFrom;

namespace {

const QByteArray codeList = "LC_ID_CD";

QByteArray listClass(const QByteArray &key, const QByteArray &id, const QByteArray &more = "")
{
    return recordsFrom("LC Profile_FK=P;PK=" + key + ";Class_ID=" + id + ';' + more);
}

QByteArray item(const QByteArray &classKey, const QByteArray &more)
{
    return recordsFrom("LIST Class_FK=" + classKey + ';' + more);
}

// One item of the class K per sort order: A with the internal text a, and so on.
QByteArray itemsWith(const QVector<int> &sortOrders)
{
    QByteArray items;
    for (int sortOrder : sortOrders) {
        const QByteArray name(1, static_cast<char>('A' + items.count("<LIST>")));
        items += item("K", "Internal=" + name.toLower() + ";Item=" + name
                               + ";SortOrder=" + QByteArray::number(sortOrder));
    }
    return items;
}

// A field of the base code B that offers the list `id`, under the profiles P and Q.
QByteArray fieldFor(const QByteArray &id)
{
    return recordsFrom(QByteArray(R"(
        PARAMX PK=#;BaseCode_FK=B;Column_ID=#;ListClass_ID=#
        COL Column_ID=#;Profile_FK=P;DataType=TXT
        COL Column_ID=#;Profile_FK=Q;DataType=TXT)")
                           .replace("#", id));
}

// The values of all lists and all codes, such as "P.L=A,B | Q.codes=a:A,b:B"; without those that are empty.
QString listsAndCodes(const CatalogSptr &catalog)
{
    QMap<QString, QStringList> found;
    for (const QString &profile : {QStringLiteral("P"), QStringLiteral("Q")}) {
        catalog->setProfile(profile);
        for (const auto &field : catalog->getItemById(QStringLiteral("B"))->getFields()) {
            for (const auto &entry : field.itemList())
                found[profile + QLatin1Char('.') + field.boundColumn()] += entry.value().toString();
        }
        QStringList keys = catalog->getContinousDefectCodes().keys();
        keys.sort();
        for (const QString &key : qAsConst(keys))
            found[profile + QStringLiteral(".codes")] +=
                key + QLatin1Char(':') + catalog->getContinousDefectCodes().value(key);
    }
    QStringList texts;
    for (auto list = found.cbegin(); list != found.cend(); ++list)
        texts += list.key() + QLatin1Char('=') + list->join(QLatin1Char(','));
    return texts.join(QStringLiteral(" | "));
}

} // namespace

class ListLookupTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void buildsListsAndCodes_data();
    void buildsListsAndCodes();
    void logsClassesAndEntriesInOrder();
};

void ListLookupTest::buildsListsAndCodes_data()
{
    QTest::addColumn<QByteArray>("records");
    QTest::addColumn<QString>("listsAndCodes");

    const auto valueRow = [](const char *name, int flags, const QByteArray &fields, const char *value) {
        QTest::newRow(name) << listClass("K", "L", "TypeFlags=" + QByteArray::number(flags))
                                   + item("K", fields)
                            << QStringLiteral("P.L=") + QString::fromUtf8(value);
    };
    const QByteArray full = "Internal=in;Caption=cap;Item=item";
    valueRow("all flags but these", ~0x21, full, "item");
    valueRow("internal wanted", 0x20, full, "in");
    valueRow("all flags but internal", ~0x20, full, "cap");
    valueRow("both wanted", 0x21, full, "in");
    valueRow("no internal", 0x20, "Caption=cap;Item=item", "item");
    valueRow("white internal, both wanted", 0x21, "Internal=\t\u00A0;Caption=cap;Item=item", "cap");
    valueRow("internal keeps its blanks", 0x20, "Internal=  X1 ;Item=item", "  X1 ");
    valueRow("no caption: not the item", 0x01, "Internal=in;Item=item", "");
    valueRow("no item: not the others", 0, "Internal=in;Caption=cap", "");

    const auto row = [](const char *name, const QByteArray &records, const char *expected) {
        QTest::newRow(name) << records << QString::fromUtf8(expected);
    };
    const QByteArray l = listClass("K", "L");
    const QByteArray items = itemsWith({1, 2});
    const QByteArray x = item("O", "Item=X;Internal=x");
    row("by sort order, equal ones as known", l + itemsWith({1, 0, 1, 0, -2}), "P.L=E,B,D,C,A");
    row("one list per profile", l + listClass("O", "L", "Profile_FK=Q") + items + x, "P.L=A,B | Q.L=X");
    row("items apart, before their class", item("K", "Item=Z;SortOrder=9") + x + items + l, "P.L=A,B,Z");
    row("class without key", listClass("", "L") + items, "");
    row("letter case", listClass("k", "L") + listClass("K", "l") + items, "");
    row("later class", l + listClass("O", "L") + items + x, "P.L=X");
    row("later class, items in the other order", x + items + listClass("O", "L") + l, "P.L=A,B");
    row("later class without items", l + listClass("none", "L") + items, "");

    // Items are ordered where they are, so each class starts from the order that the one before it left.
    const QByteArray equal = itemsWith({5, 5, 5, 5});
    row("items of three classes", l + listClass("K", "L", "Profile_FK=Q") + listClass("K", "M") + equal,
        "P.L=D,C,A,B | P.M=C,D,B,A | Q.L=B,A,D,C");
    row("items of a replaced class", l + l + listClass("K", "M") + equal, "P.L=B,A,D,C | P.M=C,D,B,A");
    row("items of codes and of a list", listClass("K", codeList) + l + equal,
        "P.L=B,A,D,C | P.LC_ID_CD=d,c,a,b | P.codes=a:A,b:B,c:C,d:D");

    const QByteArray codes = listClass("K", codeList);
    row("codes per profile", codes + listClass("O", codeList, "Profile_FK=Q") + items + x,
        "P.LC_ID_CD=a,b | P.codes=a:A,b:B | Q.LC_ID_CD=x | Q.codes=x:X");
    row("later class of codes, with flags", codes + items + listClass("O", codeList, "TypeFlags=1") + x,
        "P.LC_ID_CD=x | P.codes=x:X");
    row("codes with one internal text: the last in order",
        codes + item("K", "Internal=a;Item=2;SortOrder=2") + item("K", "Internal=a;Item=1;SortOrder=1"),
        "P.LC_ID_CD=a,a | P.codes=a:2");
}

void ListLookupTest::buildsListsAndCodes()
{
    QFETCH(QByteArray, records);
    const LogCapture silence;
    const QByteArray fields =
        recordsFrom("BASECODE PK=B") + fieldFor("L") + fieldFor("M") + fieldFor(codeList);
    QTEST(listsAndCodes(loaded(fields + records)), "listsAndCodes");
}

void ListLookupTest::logsClassesAndEntriesInOrder()
{
    const LogCapture log;
    loaded(listClass("K", "M", "TypeFlags=1;Profile_FK=Q") + recordsFrom("PARAMX PK=1;BaseCode_FK=%1")
           + listClass("none", "lc_id_cd") + listClass("K", codeList) + itemsWith({1})
           + listClass("K", "%1"));
    QCOMPARE(log.messages().join(QLatin1Char('\n')),
             QStringLiteral("CatalogLoader|info|Creating items for list: M\n"
                            "CatalogListItem|debug|Catalog item created key: value:A\n"
                            "CatalogListItem|critical|Catalog item created with empty key!\n"
                            "CatalogLoader|info|Creating items for list: lc_id_cd\n"
                            "CatalogListItem|debug|Catalog item created key:a value:A\n"
                            "CatalogLoader|info|Creating items for list: %1\n"
                            "CatalogListItem|debug|Catalog item created key:A value:A\n"
                            "CatalogLoader|critical|Catalog item %1 not found!"));
}

QTEST_GUILESS_MAIN(ListLookupTest)

#include "ListLookupTest.moc"
