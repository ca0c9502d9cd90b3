// Hosts that do what they had better not: providers and receivers that change, go or throw in the middle, and
// changes to what the library handed out.

#include "catalogs/access/CatalogConfigData.h"
#include "catalogs/access/CatalogManager.h"

#include "support/TestSupport.h"

#include <QtTest>

#include <memory>
#include <stdexcept>

using namespace Orvida::Catalogs;
using namespace Orvida::Tests;

// What a receiver does in the emission, given itself and the receiver behind it.
using Misdeed = void (*)(std::unique_ptr<QObject> &self, std::unique_ptr<QObject> &next);
Q_DECLARE_METATYPE(Misdeed)

namespace {

CatalogManager &manager()
{
    return *CatalogManager::instance();
}

// Has another name each time; a null one stands for an exception.
struct ChangingNames : ICatalogFileNameProvider
{
    explicit ChangingNames(const QStringList &allNames) : names(allNames) {}
    QString getCatalogFileName(const QString &) const override
    {
        const QString name = names.takeFirst();
        return name.isNull() ? throw std::logic_error("no name") : name;
    }
    mutable QStringList names;
};

} // namespace

class HostTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void takesTheProviderAsItIs();
    void standsWhatReceiversDo_data();
    void standsWhatReceiversDo();
    void letsTheHostChangeAndKeepWhatItGot();

private:
    CatalogFolder m_folder;
};

// A provider that is gone must not be touched again, which the address sanitizer sees. With a lock still
// taken, the calls behind an exception would never return.
void HostTest::takesTheProviderAsItIs()
{
    const QString id = text("changing");
    const QString good = m_folder.write(text("good.xml"), catalogXml(""));
    const QString bad = m_folder.write(text("bad.xml"), "<OVCAT>");
    auto first =
        std::make_unique<ChangingNames>(QStringList{text(""), m_folder.path(text("none")), bad, {}, {}});
    CatalogConfigData::setCatalogFileNameProvider(first.get());
    for (int call = 0; call < 3; ++call)
        QVERIFY(!manager().getCatalog(id)->IsValid());
    QVERIFY_EXCEPTION_THROWN(manager().getCatalog(id), std::logic_error);
    QVERIFY_EXCEPTION_THROWN(manager().is3DSupportedCatalog(id), std::logic_error);
    first.reset();
    const auto second = std::make_unique<ChangingNames>(QStringList{good, bad});
    CatalogConfigData::setCatalogFileNameProvider(second.get());
    const CatalogSptr catalog = manager().getCatalog(id);
    QVERIFY(catalog->IsValid());
    CatalogConfigData::setCatalogFileNameProvider(nullptr);
    QVERIFY(!manager().getCatalog(text("nobody knows"))->IsValid());
    QVERIFY(!manager().is3DSupportedCatalog(id));
    QCOMPARE(manager().getCatalog(id), catalog);
    QCOMPARE(second->names, QStringList{bad});
}

void HostTest::standsWhatReceiversDo_data()
{
    QTest::addColumn<Misdeed>("misdeed");
    QTest::addColumn<int>("heard"); // by the receiver behind, of two emissions
    using Object = std::unique_ptr<QObject>;
    const auto row = [](const char *name, int heard, Misdeed misdeed) {
        QTest::newRow(name) << misdeed << heard;
    };
    row("disconnects itself", 2, [](Object &self, Object &) { manager().disconnect(self.get()); });
    row("deletes itself", 2, [](Object &self, Object &) { self.reset(); });
    row("deletes the other", 0, [](Object &, Object &next) { next.reset(); });
    row("disconnects all", 0, [](Object &, Object &) { manager().disconnect(); });
    row("throws", 0, [](Object &, Object &) { throw 1; });
    row("deletes itself and throws", 1, [](Object &self, Object &) {
        self.reset();
        throw 1;
    });
}

void HostTest::standsWhatReceiversDo()
{
    QFETCH(Misdeed, misdeed);
    const QString id = text(QTest::currentDataTag());
    FileTable files;
    files.add(id, m_folder.write(text("good.xml"), catalogXml("")));
    auto first = std::make_unique<QObject>();
    auto second = std::make_unique<QObject>();
    int heard = 0;
    const auto connectBoth = [](QObject *receiver, const auto &task) {
        connect(&manager(), &CatalogManager::catalogReady, receiver, [task] { task(); });
        connect(&manager(), &CatalogManager::failedToLoadCatalog, receiver, [task] { task(); });
    };
    connectBoth(first.get(), [&first, &second, misdeed] { misdeed(first, second); });
    connectBoth(second.get(), [&heard] { ++heard; });
    for (const QString &asked : {id, text("nobody knows")}) {
        try {
            manager().getCatalog(asked);
        } catch (int) {
        }
    }
    QTEST(heard, "heard");
    QVERIFY(manager().getCatalog(id)->IsValid());
    QCOMPARE(files.questions(id), 1);
    // Whoever connects now is heard again.
    manager().disconnect();
    connectBoth(this, [&heard] { heard = 10; });
    manager().getCatalog(text("nobody knows"));
    manager().disconnect(this);
    QCOMPARE(heard, 10);
}

// Lists are copies once the host has copied them; a reference is the item's own list.
void HostTest::letsTheHostChangeAndKeepWhatItGot()
{
    CatalogSptr catalog = loaded(recordsFrom(R"(
        CATPRO PK=P
        COL Profile_FK=P;Column_ID=C;DataType=TXT
        LC PK=l;Profile_FK=P;Class_ID=L
        LIST Class_FK=l;Item=entry;Caption=entry
        CLASS PK=C
        BASECODE PK=B;Class_FK=C;Code=BA
        BASECODE PK=D;Class_FK=C;Code=BD
        PARAM PK=X;ID=X;DataType=TXT
        PARAMX PK=x;BaseCode_FK=B;Param_FK=X;Column_ID=C;ListClass_ID=L
        PARAMX PK=y;BaseCode_FK=D;Param_FK=X;Column_ID=C)"));
    auto children = catalog->getItemById(text("C"))->getChildItems();
    const auto &item = catalog->getItemById(text("B"));
    const auto fields = item->getFields();
    QCOMPARE(fields.size(), 1);
    item->getFields().first().setCaption(text("the host's"));
    item->getFields().append(CatalogInputField());
    QCOMPARE(item->getFields().first().caption(), text("the host's"));
    QCOMPARE(item->getFields().size(), 2);
    for (const auto &other : {fields, catalog->getItem(text("BD"))->getFields()}) {
        QCOMPARE(other.size(), 1);
        QVERIFY(other.first().caption() != text("the host's"));
    }
    catalog.reset();
    QCOMPARE(children.size(), 2);
    QCOMPARE(fields.first().itemList().first().itemText(), text("entry"));
    for (const auto &child : qAsConst(children))
        QVERIFY(child->getFields().isEmpty() && child->getChildItems().isEmpty() && !child->code().isEmpty());
    const QWeakPointer<CatalogItem> last = children.first();
    children.clear();
    QVERIFY(!last);
}

QTEST_GUILESS_MAIN(HostTest)

#include "HostTest.moc"
