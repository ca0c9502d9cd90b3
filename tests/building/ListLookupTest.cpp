// Value lists, seen through the fields that offer them, and continuous-defect codes.

#include "catalogs/building/CatalogLoader.h"

#include "support/TestSupport.h"

#include <QVector>
#include <QtTest>

using Orvida::Catalogs::CatalogLoader;
using Orvida::Catalogs::CatalogSptr;
using Orvida::Shared::ListItem;
using Orvida::Tests::CatalogFolder;
using Orvida::Tests::catalogXml;
using Orvida::Tests::field;
using Orvida::Tests::LogCapture;
using Orvida::Tests::scrambled;

namespace {

const char *const codeList = "LC_ID_CD";

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

QByteArray listClass(const char *key, const char *id, const char *profile = "P", int typeFlags = 0)
{
    return "<LC>\n" + field("LC_PK", text(key)) + scrambled("LC_Class_ID", text(id))
           + field("LC_Profile_FK", text(profile)) + field("LC_TypeFlags", QString::number(typeFlags))
           + "</LC>\n";
}

// Texts that are null are left out.
QByteArray listItem(const char *classKey, const QString &internal, const QString &caption,
                    const QString &item, int sortOrder = 0, const QByteArray &more = QByteArray())
{
    return "<LIST>\n" + more + (internal.isNull() ? QByteArray() : field("LIST_Internal", internal))
           + (caption.isNull() ? QByteArray() : scrambled("LIST_Caption", caption))
           + (item.isNull() ? QByteArray() : field("LIST_Item", item))
           + field("LIST_SortOrder", QString::number(sortOrder)) + field("LIST_Class_FK", text(classKey))
           + "</LIST>\n";
}

// One item of the class K per sort order: A with the internal text a, and so on.
QByteArray itemsWith(const QVector<int> &sortOrders)
{
    QByteArray records;
    for (int place = 0; place < sortOrders.size(); ++place) {
        const QString name = QChar('A' + place);
        records += listItem("K", name.toLower(), QString(), name, sortOrders.at(place));
    }
    return records;
}

// A base code with a field that offers the list `id`, under the profiles P and Q.
QByteArray offered(const char *id)
{
    const QString name = text(id);
    const auto column = [&name](const char *profile) {
        return "<COL>\n" + field("COL_Profile_FK", text(profile)) + scrambled("COL_Column_ID", name)
               + field("COL_DataType", text("TXT")) + "</COL>\n";
    };
    return "<BASECODE>\n" + field("BC_PK", name) + "</BASECODE>\n<PARAMX>\n" + field("PX_PK", name)
           + field("PX_BaseCode_FK", name) + field("PX_Column_ID", name) + field("PX_ListClass_ID", name)
           + "</PARAMX>\n" + column("P") + column("Q");
}

QList<ListItem> entriesOf(const CatalogSptr &catalog, const char *profile, const char *id)
{
    catalog->setProfile(text(profile));
    const auto &fields = catalog->getItemById(text(id))->getFields();
    return fields.size() == 1 ? fields.first().itemList()
                              : QList<ListItem>{ListItem(QVariant(), QString(), text("not one field"))};
}

QString namesOf(const CatalogSptr &catalog, const char *profile, const char *id)
{
    QStringList names;
    for (const ListItem &entry : entriesOf(catalog, profile, id))
        names += entry.itemText();
    return names.join(QLatin1Char(' '));
}

QString codesOf(const CatalogSptr &catalog, const char *profile)
{
    catalog->setProfile(text(profile));
    const auto &codes = catalog->getContinousDefectCodes();
    QStringList texts;
    for (auto code = codes.cbegin(); code != codes.cend(); ++code)
        texts += code.key() + QLatin1Char('=') + code.value();
    texts.sort();
    return texts.join(QLatin1Char(' '));
}

QString toText(const ListItem &entry)
{
    return QStringLiteral("%1/%2/%3").arg(entry.value().toString(), entry.caption(), entry.itemText());
}

// A row of a table with one column of records and two of texts.
void row(const char *name, const QByteArray &records, const char *first, const char *second)
{
    QTest::newRow(name) << records << first << second;
}

} // namespace

class ListLookupTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void choosesTheValueOfAnEntry_data();
    void choosesTheValueOfAnEntry();
    void ordersEntries_data();
    void ordersEntries();
    void findsTheListOfProfileAndId_data();
    void findsTheListOfProfileAndId();
    void ordersSharedItemsOncePerClass_data();
    void ordersSharedItemsOncePerClass();
    void keepsCodesPerProfile_data();
    void keepsCodesPerProfile();
    void offersCodesByTheirInternalText();
    void logsClassesEntriesAndMissingItemsInOrder();

private:
    CatalogSptr load(const QByteArray &records)
    {
        const QString path = m_folder.write(text("catalog.xml"), catalogXml(records));
        return CatalogLoader().loadCatalog(path, text("id"));
    }

    CatalogFolder m_folder;
};

void ListLookupTest::choosesTheValueOfAnEntry_data()
{
    QTest::addColumn<int>("typeFlags");
    QTest::addColumn<QString>("internal");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("value");

    const auto entryRow = [](const char *name, int typeFlags, const QVector<const char *> &texts) {
        QTestData &data = QTest::newRow(name) << typeFlags;
        for (const char *utf8 : texts)
            data << text(utf8);
    };
    entryRow("no flag", 0, {"in", "cap", "item", "item"});
    entryRow("internal wanted", 0x20, {"in", "cap", "item", "in"});
    entryRow("caption wanted", 0x01, {"in", "cap", "item", "cap"});
    entryRow("both wanted", 0x21, {"in", "cap", "item", "in"});
    entryRow("all other flags", ~0x21, {"in", "cap", "item", "item"});
    entryRow("all flags but internal", ~0x20, {"in", "cap", "item", "cap"});
    entryRow("no internal", 0x20, {nullptr, "cap", "item", "item"});
    entryRow("blank internal", 0x20, {"  ", "cap", "item", "item"});
    entryRow("blank internal, both wanted", 0x21, {"  ", "cap", "item", "cap"});
    entryRow("tab and no-break space", 0x20, {"\t\u00A0", "cap", "item", "item"});
    entryRow("internal keeps its blanks", 0x21, {"  X1 ", "cap", "item", "  X1 "});
    entryRow("no caption: not the item", 0x01, {"in", nullptr, "item", ""});
    entryRow("blank caption: not the item", 0x21, {" ", " ", "item", " "});
    entryRow("no item: not the others", 0, {"in", "cap", nullptr, ""});
}

void ListLookupTest::choosesTheValueOfAnEntry()
{
    QFETCH(int, typeFlags);
    QFETCH(QString, internal);
    QFETCH(QString, caption);
    QFETCH(QString, item);
    QFETCH(QString, value);

    const LogCapture silence;
    const CatalogSptr catalog =
        load(listClass("K", "L", "P", typeFlags) + listItem("K", internal, caption, item) + offered("L"));
    const auto entries = entriesOf(catalog, "P", "L");
    QCOMPARE(entries.size(), 1);
    QCOMPARE(entries.first().value().userType(), int(QMetaType::QString));
    QCOMPARE(toText(entries.first()), value + QLatin1Char('/') + caption + QLatin1Char('/') + item);
}

void ListLookupTest::ordersEntries_data()
{
    QTest::addColumn<QVector<int>>("sortOrders");
    QTest::addColumn<QString>("names");

    QTest::newRow("all different") << QVector<int>{3, 1, 2} << "B C A";
    QTest::newRow("negative ones first") << QVector<int>{0, -1, 1, -20} << "D B A C";
    QTest::newRow("two equal") << QVector<int>{1, 1} << "A B";
    QTest::newRow("three, two equal") << QVector<int>{2, 1, 1} << "C B A";
    QTest::newRow("four equal") << QVector<int>{1, 1, 1, 1} << "D C A B";
    QTest::newRow("five equal") << QVector<int>{1, 1, 1, 1, 1} << "D E C A B";
    QTest::newRow("two pairs") << QVector<int>{1, 0, 1, 0} << "D B C A";
}

void ListLookupTest::ordersEntries()
{
    QFETCH(QVector<int>, sortOrders);
    const CatalogSptr catalog = load(listClass("K", "L") + itemsWith(sortOrders) + offered("L"));
    QTEST(namesOf(catalog, "P", "L"), "names");
}

void ListLookupTest::findsTheListOfProfileAndId_data()
{
    QTest::addColumn<QByteArray>("records");
    QTest::addColumn<QString>("ofP");
    QTest::addColumn<QString>("ofQ");

    const QByteArray list = listClass("K", "L");
    const QByteArray other = listClass("O", "L");
    const QByteArray ofQ = listClass("K", "L", "Q");
    const QByteArray items = itemsWith({1, 2});
    const QByteArray others = listItem("O", QString(), QString(), text("X"));
    const QByteArray late = listItem("K", QString(), QString(), text("Z"), 9);
    row("only in one profile", list + items, "A B", "");
    row("one per profile", list + listClass("O", "L", "Q") + items + others, "A B", "X");
    row("shared items", list + ofQ + items, "A B", "A B");
    row("items before their class", items + list, "A B", "");
    row("items apart", late + list + others + items, "A B Z", "");
    row("items of an unknown class", list + others, "", "");
    row("class without items", list, "", "");
    row("class without key", listClass("K", "L").replace("LC_PK", "LC_X") + items, "", "");
    row("letter case", listClass("k", "L") + listClass("K", "l") + listClass("K", "L", "p") + items, "", "");
    row("later class", list + other + items + others, "X", "");
    row("later class, items in the other order", items + others + other + list, "A B", "");
    row("later class without items", list + other + items, "", "");
    row("later class of another profile", list + items + listClass("O", "L", "Q"), "A B", "");
    row("later class with another id", list + items + listClass("O", "M"), "A B", "");
}

void ListLookupTest::findsTheListOfProfileAndId()
{
    QFETCH(QByteArray, records);
    const CatalogSptr catalog = load(offered("L") + records);
    QTEST(namesOf(catalog, "Q", "L"), "ofQ");
    QTEST(namesOf(catalog, "P", "L"), "ofP");
}

// The items themselves are ordered, so the second class starts from the order that the first one left.
void ListLookupTest::ordersSharedItemsOncePerClass_data()
{
    QTest::addColumn<QByteArray>("classes");
    QTest::addColumn<QString>("listOfL");
    QTest::addColumn<QString>("listOfM");

    const QByteArray l = listClass("K", "L");
    const QByteArray m = listClass("K", "M");
    row("L first", l + m, "D C A B", "B A D C");
    row("M first", m + l, "B A D C", "D C A B");
    row("class with other items between", l + listClass("O", "O") + m, "D C A B", "B A D C");
    row("class of another profile between", l + listClass("K", "L", "Q") + m, "D C A B", "C D B A");
    row("replaced class counts", l + l + m, "B A D C", "C D B A");
    row("codes count", listClass("K", codeList) + l + m, "B A D C", "C D B A");
}

void ListLookupTest::ordersSharedItemsOncePerClass()
{
    QFETCH(QByteArray, classes);
    const CatalogSptr catalog = load(classes + itemsWith({5, 5, 5, 5}) + offered("M") + offered("L"));
    QTEST(namesOf(catalog, "P", "M"), "listOfM");
    QTEST(namesOf(catalog, "P", "L"), "listOfL");
}

void ListLookupTest::keepsCodesPerProfile_data()
{
    QTest::addColumn<QByteArray>("records");
    QTest::addColumn<QString>("ofP");
    QTest::addColumn<QString>("ofQ");

    const auto item = [](const char *internal, const char *name, int sortOrder) {
        return listItem("K", text(internal), QString(), text(name), sortOrder);
    };
    const QByteArray codes = listClass("K", codeList);
    const QByteArray other = listClass("O", codeList);
    const QByteArray items = itemsWith({1, 2});
    const QByteArray x = listItem("O", text("x"), text("cap"), text("X"));
    row("one table per profile", codes + listClass("O", codeList, "Q") + items + x, "a=A b=B", "x=X");
    row("shared items", codes + listClass("K", codeList, "Q") + items, "a=A b=B", "a=A b=B");
    row("later class replaces all", codes + other + items + x, "x=X", "");
    row("later class without items", codes + items + other, "", "");
    row("type flags do not count", listClass("O", codeList, "P", 1) + x, "x=X", "");
    row("same internal text: the last in order", codes + item("a", "late", 3) + item("a", "early", 1),
        "a=late", "");
    row("same internal text: ties move",
        codes + item("b", "B", 2) + item("a", "first", 1) + item("a", "second", 1), "a=first b=B", "");
    row("exact internal text", codes + item("a", "1", 1) + item("A", "2", 2) + item("a ", "3", 3),
        "A=2 a =3 a=1", "");
    row("no internal text", codes + item(nullptr, "A", 1), "=A", "");
    row("lists of other ids", listClass("K", "L") + listClass("K", "lc_id_cd") + items, "", "");
}

void ListLookupTest::keepsCodesPerProfile()
{
    QFETCH(QByteArray, records);
    const LogCapture silence;
    const CatalogSptr catalog = load(records);
    QTEST(codesOf(catalog, "Q"), "ofQ");
    QTEST(codesOf(catalog, "P"), "ofP");
}

void ListLookupTest::offersCodesByTheirInternalText()
{
    for (int typeFlags : {0, 0x01, 0x20, 0x21}) {
        const LogCapture silence;
        const CatalogSptr catalog = load(offered(codeList) + listClass("K", codeList, "P", typeFlags)
                                         + listItem("K", text(" "), text("two"), text("B"), 2)
                                         + listItem("K", text("a"), text("one"), text("A"), 1));
        QStringList entries;
        for (const ListItem &entry : entriesOf(catalog, "P", codeList))
            entries += toText(entry);
        QCOMPARE(entries, QStringList({text("a/one/A"), text(" /two/B")}));
    }
}

void ListLookupTest::logsClassesEntriesAndMissingItemsInOrder()
{
    const QByteArray records =
        offered("M").replace("BC_PK>M", "BC_PK>N") + itemsWith({2, 1}) + listClass("K", "M", "Q", 0x20)
        + listClass("none", "E") + listItem("unknown", text("u"), text("u"), text("U"))
        + listClass("O", "lc_id_cd") + listClass("K", codeList)
        + listItem("O", QString(), QString(), QString(), 2)
        + listItem("O", QString(), QString(), text("%1"), 1, field("LIST_Param_ID", text("unknown")))
        + listClass("K", "M", "Q", 0x01);
    const LogCapture log;
    QVERIFY(load(records)->IsValid());
    QCOMPARE(log.messages().join(QLatin1Char('\n')),
             text("CatalogLoader|info|Creating items for list: M\n"
                  "CatalogListItem|debug|Catalog item created key:b value:B\n"
                  "CatalogListItem|debug|Catalog item created key:a value:A\n"
                  "CatalogLoader|info|Creating items for list: E\n"
                  "CatalogLoader|info|Creating items for list: lc_id_cd\n"
                  "CatalogListItem|debug|Catalog item created key:%1 value:%1\n"
                  "CatalogListItem|debug|Catalog item created key: value:\n"
                  "CatalogListItem|critical|Catalog item created with empty key!\n"
                  "CatalogListItem|debug|Catalog item created key:b value:B\n"
                  "CatalogListItem|debug|Catalog item created key:a value:A\n"
                  "CatalogLoader|info|Creating items for list: M\n"
                  "CatalogListItem|debug|Catalog item created key: value:B\n"
                  "CatalogListItem|critical|Catalog item created with empty key!\n"
                  "CatalogListItem|debug|Catalog item created key: value:A\n"
                  "CatalogListItem|critical|Catalog item created with empty key!\n"
                  "CatalogLoader|critical|Catalog item M not found!"));
}

QTEST_GUILESS_MAIN(ListLookupTest)

#include "ListLookupTest.moc"
