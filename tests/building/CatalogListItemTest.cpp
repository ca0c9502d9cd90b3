// Entries of value lists: what they hold and what they log.

#include "catalogs/building/CatalogListItem.h"

#include "support/TestSupport.h"

#include <QtTest>

using Orvida::Catalogs::CatalogListItem;
using Orvida::Tests::LogCapture;

class CatalogListItemTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void logsOnlyItsCreation_data();
    void logsOnlyItsCreation();
};

void CatalogListItemTest::logsOnlyItsCreation_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("isBlank");
    QTest::newRow("digits and place markers") << " 12 %1 %2 " << false;
    QTest::newRow("empty key") << "" << true;
    QTest::newRow("key of white space") << " \t\n" << true;
}

void CatalogListItemTest::logsOnlyItsCreation()
{
    QFETCH(QString, key);
    QFETCH(bool, isBlank);
    const QString text = QStringLiteral("text %1");
    const LogCapture log;
    CatalogListItem entry(key, QStringLiteral("caption"), text, QStringLiteral("@PH"));
    const CatalogListItem copy(entry);
    entry.setPlaceHolder(QStringLiteral("@NEW"));

    QStringList expected = {QStringLiteral("CatalogListItem|debug|Catalog item created key:") + key
                            + QStringLiteral(" value:") + text};
    if (isBlank)
        expected += QStringLiteral("CatalogListItem|critical|Catalog item created with empty key!");
    QCOMPARE(log.messages(), expected);
    QCOMPARE(copy.value().userType(), int(QMetaType::QString));
    QCOMPARE(copy.value().toString(), key);
    QCOMPARE(copy.caption() + copy.itemText(), QStringLiteral("captiontext %1"));
    QCOMPARE(copy.placeHolder() + entry.placeHolder(), QStringLiteral("@PH@NEW"));
}

QTEST_GUILESS_MAIN(CatalogListItemTest)

#include "CatalogListItemTest.moc"
