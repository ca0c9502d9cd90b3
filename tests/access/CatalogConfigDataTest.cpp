// Where catalog files lie: how folder and provider make a path.

#include "catalogs/access/CatalogConfigData.h"
#include "catalogs/access/ICatalogFileNameProvider.h"

#include <QStringList>
#include <QtTest>

using Orvida::Catalogs::CatalogConfigData;

namespace {

// Gives one answer to every question, and notes the questions.
class FixedProvider : public ICatalogFileNameProvider
{
public:
    explicit FixedProvider(const QString &answer) : m_answer(answer) {}

    QString getCatalogFileName(const QString &catalogId) const override
    {
        m_questions.append(catalogId);
        return m_answer;
    }
    QStringList questions() const { return m_questions; }

private:
    QString m_answer;
    mutable QStringList m_questions;
};

} // namespace

class CatalogConfigDataTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void knowsNothingBeforeItIsTold();
    void composesPaths_data();
    void composesPaths();
    void keepsTheKindOfAnEmptyAnswer();
    void asksTheProviderOncePerSearch();
    void asksTheProviderThatWasSetLast();
    void givesNoPathWithoutProvider();
    void cleanup();
};

void CatalogConfigDataTest::cleanup()
{
    CatalogConfigData::setCatalogFileNameProvider(nullptr);
    CatalogConfigData::setCatalogFolderPath(QString());
}

// Stands first: nothing has been set in this process yet.
void CatalogConfigDataTest::knowsNothingBeforeItIsTold()
{
    QVERIFY(CatalogConfigData::findCatalogPath(QStringLiteral("id")).isNull());
    FixedProvider provider(QStringLiteral("X.xml"));
    CatalogConfigData::setCatalogFileNameProvider(&provider);
    QCOMPARE(CatalogConfigData::findCatalogPath(QStringLiteral("id")), QStringLiteral("X.xml"));
}

void CatalogConfigDataTest::composesPaths_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("path");

    QTest::newRow("folder with separator")
        << QStringLiteral("/cat/") << "X.xml" << QStringLiteral("/cat/X.xml");
    QTest::newRow("folder without separator")
        << QStringLiteral("/cat") << "X.xml" << QStringLiteral("/catX.xml");
    QTest::newRow("name with separator")
        << QStringLiteral("/cat") << "/X.xml" << QStringLiteral("/cat/X.xml");
    QTest::newRow("nothing is normalised")
        << QStringLiteral("/cat//./") << "../X" << QStringLiteral("/cat//./../X");
    QTest::newRow("no folder") << QString() << "X.xml" << QStringLiteral("X.xml");
    QTest::newRow("empty folder") << QStringLiteral("") << "/abs/X.xml" << QStringLiteral("/abs/X.xml");
    QTest::newRow("empty answer") << QStringLiteral("/cat/") << "" << QStringLiteral("");
    QTest::newRow("blank answer") << QStringLiteral("/cat/") << " " << QStringLiteral("/cat/ ");
}

void CatalogConfigDataTest::composesPaths()
{
    QFETCH(QString, folder);
    QFETCH(QString, answer);
    FixedProvider provider(answer);
    CatalogConfigData::setCatalogFileNameProvider(&provider);
    CatalogConfigData::setCatalogFolderPath(folder);
    folder += QStringLiteral("changed");
    QTEST(CatalogConfigData::findCatalogPath(QStringLiteral("id")), "path");
}

void CatalogConfigDataTest::keepsTheKindOfAnEmptyAnswer()
{
    CatalogConfigData::setCatalogFolderPath(QStringLiteral("/cat/"));
    for (const QString &answer : {QString(), QStringLiteral("")}) {
        FixedProvider provider(answer);
        CatalogConfigData::setCatalogFileNameProvider(&provider);
        const QString path = CatalogConfigData::findCatalogPath(QStringLiteral("id"));
        QVERIFY(path.isEmpty());
        QCOMPARE(path.isNull(), answer.isNull());
    }
}

void CatalogConfigDataTest::asksTheProviderOncePerSearch()
{
    const QStringList ids = {QStringLiteral("id"), QStringLiteral("ID"), QStringLiteral(" \u00E9/"),
                             QStringLiteral(""), QStringLiteral("id")};
    for (const QString &answer : {QStringLiteral("X.xml"), QString()}) {
        FixedProvider provider(answer);
        CatalogConfigData::setCatalogFileNameProvider(&provider);
        QVERIFY(provider.questions().isEmpty());
        for (const QString &id : ids)
            CatalogConfigData::findCatalogPath(id);
        QCOMPARE(provider.questions(), ids);
    }
}

void CatalogConfigDataTest::asksTheProviderThatWasSetLast()
{
    FixedProvider first(QStringLiteral("first"));
    FixedProvider second(QStringLiteral("second"));
    CatalogConfigData::setCatalogFileNameProvider(&first);
    CatalogConfigData::setCatalogFileNameProvider(&second);
    QCOMPARE(CatalogConfigData::findCatalogPath(QStringLiteral("id")), QStringLiteral("second"));
    QVERIFY(first.questions().isEmpty());
    CatalogConfigData::setCatalogFileNameProvider(&first);
    QCOMPARE(CatalogConfigData::findCatalogPath(QStringLiteral("id")), QStringLiteral("first"));
    QCOMPARE(second.questions().size(), 1);
}

void CatalogConfigDataTest::givesNoPathWithoutProvider()
{
    FixedProvider provider(QStringLiteral("X.xml"));
    CatalogConfigData::setCatalogFolderPath(QStringLiteral("/cat/"));
    CatalogConfigData::setCatalogFileNameProvider(&provider);
    CatalogConfigData::setCatalogFileNameProvider(nullptr);
    QVERIFY(CatalogConfigData::findCatalogPath(QStringLiteral("id")).isNull());
    QVERIFY(provider.questions().isEmpty());
}

QTEST_GUILESS_MAIN(CatalogConfigDataTest)

#include "CatalogConfigDataTest.moc"
