// Entries of value lists: what they hold and what they log.

#include "catalogs/building/CatalogListItem.h"

#include "support/TestSupport.h"

#include <QtTest>

using Orvida::Catalogs::CatalogListItem;
using Orvida::Shared::ListItem;
using Orvida::Tests::LogCapture;

namespace {

QStringList textsOf(const ListItem &entry)
{
    return {entry.value().toString(), entry.caption(), entry.itemText()};
}

const QStringList texts = {QStringLiteral("key"), QStringLiteral("caption"), QStringLiteral("text")};

CatalogListItem sample()
{
    return CatalogListItem(texts.at(0), texts.at(1), texts.at(2), QStringLiteral("@PH"));
}

} // namespace

class CatalogListItemTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void logsItsCreation_data();
    void logsItsCreation();
    void storesItsKeyAsString_data();
    void storesItsKeyAsString();
    void copiesAreEqualIndependentAndSilent();
    void losesItsPlaceHolderInAListOfEntries();
};

void CatalogListItemTest::logsItsCreation_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("itemText");
    QTest::addColumn<QString>("created");
    QTest::addColumn<bool>("isKeyBlank");

    const auto row = [](const char *name, const char *key, const char *itemText, const char *created,
                        bool isKeyBlank) {
        QTest::newRow(name) << QString::fromUtf8(key) << QString::fromUtf8(itemText) << created << isKeyBlank;
    };

    row("key and text", "ABC", "DEF", "key:ABC value:DEF", false);
    row("no text", "ABC", "", "key:ABC value:", false);
    row("blanks around", " A ", " B ", "key: A  value: B ", false);
    row("place markers", "%1 %2 %s", "%n %1", "key:%1 %2 %s value:%n %1", false);
    row("empty key", "", "DEF", "key: value:DEF", true);
    row("null key and text", nullptr, nullptr, "key: value:", true);
    row("key of blanks", "   ", "DEF", "key:    value:DEF", true);
    row("key of other white space", "\t\n\r", "", "key:\t\n\r value:", true);
}

void CatalogListItemTest::logsItsCreation()
{
    QFETCH(QString, key);
    QFETCH(QString, itemText);
    QFETCH(QString, created);
    QFETCH(bool, isKeyBlank);

    const LogCapture log;
    const CatalogListItem entry(key, QStringLiteral("caption"), itemText, QStringLiteral("placeholder"));
    QStringList expected = {QStringLiteral("CatalogListItem|debug|Catalog item created ") + created};
    if (isKeyBlank)
        expected += QStringLiteral("CatalogListItem|critical|Catalog item created with empty key!");
    QCOMPARE(log.messages(), expected);
    QCOMPARE(textsOf(entry), QStringList({key, QStringLiteral("caption"), itemText}));
}

void CatalogListItemTest::storesItsKeyAsString_data()
{
    QTest::addColumn<QString>("key");

    QTest::newRow("letters") << "ABC";
    QTest::newRow("digits") << "12";
    QTest::newRow("empty") << "";
    QTest::newRow("null") << QString();
}

void CatalogListItemTest::storesItsKeyAsString()
{
    QFETCH(QString, key);
    const CatalogListItem entry(key, QString(), QString(), QString());
    QCOMPARE(entry.value().userType(), int(QMetaType::QString));
    QCOMPARE(entry.value().toString(), key);
}

void CatalogListItemTest::copiesAreEqualIndependentAndSilent()
{
    CatalogListItem entry = sample();
    CatalogListItem assigned(texts.at(2), texts.at(0), texts.at(1), QString());

    const LogCapture log;
    const CatalogListItem copy(entry);
    assigned = entry;
    entry.setPlaceHolder(QStringLiteral("@NEW"));

    QCOMPARE(entry.placeHolder(), QStringLiteral("@NEW"));
    for (const CatalogListItem &other : {copy, assigned}) {
        QCOMPARE(textsOf(other), texts);
        QCOMPARE(other.placeHolder(), QStringLiteral("@PH"));
    }
    QCOMPARE(log.messages(), QStringList());
}

void CatalogListItemTest::losesItsPlaceHolderInAListOfEntries()
{
    QList<ListItem> entries;
    {
        const CatalogListItem entry = sample();
        const LogCapture log;
        entries.append(entry);
        entries.append(entry);
        QCOMPARE(log.messages(), QStringList());
    }
    entries.removeFirst();
    QCOMPARE(textsOf(entries.first()), texts);
    QCOMPARE(entries.first().value().userType(), int(QMetaType::QString));
}

QTEST_GUILESS_MAIN(CatalogListItemTest)

#include "CatalogListItemTest.moc"
