// Entries of value lists. What they log is tested by catalogs/lists.xml; only here can their placeholder be
// seen.

#include "catalogs/building/CatalogListItem.h"

#include "support/TestSupport.h"

#include <QtTest>

using Orvida::Catalogs::CatalogListItem;
using Orvida::Tests::text;

class CatalogListItemTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsWhatItIsGiven()
    {
        CatalogListItem entry(text("key"), text("caption"), text("item text"), text("@PH"));
        const CatalogListItem copy(entry);
        entry.setPlaceHolder(text("@NEW"));
        QCOMPARE(copy.value(), QVariant(text("key")));
        QCOMPARE(copy.caption() + copy.itemText(), text("captionitem text"));
        QCOMPARE(copy.placeHolder() + entry.placeHolder(), text("@PH@NEW"));
    }
};

QTEST_GUILESS_MAIN(CatalogListItemTest)

#include "CatalogListItemTest.moc"
