// The stand-in of the host: conversions, number format, logger and input field.

#include "shared/CLogger.h"
#include "shared/DataConverter.h"
#include "shared/DoubleFormater.h"
#include "shared/InputField.h"
#include "support/TestSupport.h"

#include <QLoggingCategory>
#include <QtTest>

#include <thread>
#include <type_traits>

using namespace Orvida::Shared;
using Orvida::Logging::CLogger;
using Orvida::Tests::LogCapture;

class SharedTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The host's numbers do not depend on where the process runs.
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }

    void convertsTextToBoolean()
    {
        // The first two are true, the next two false, all others are no booleans.
        const QString texts = QStringLiteral("true|TRUE|false|fAlSe| true|true |tru|true1|1|%1 \"|");
        int index = 0;
        for (const QStringRef &text : texts.splitRef(QLatin1Char('|'))) {
            const LogCapture log;
            QCOMPARE(DataConverter::stringToBool(text), index < 2);
            const QString logged =
                QStringLiteral("DataConverter|critical|stringToBool conversion error! ") + text;
            QCOMPARE(log.messages(), index < 4 ? QStringList() : QStringList(logged));
            ++index;
        }
    }

    void convertsTextToDataType()
    {
        const QString names = QStringLiteral("TXT|INT|DEC|BOL|DAT|Int|bol| TXT|TX|DATE|1|");
        QList<int> types;
        for (const QStringRef &name : names.splitRef(QLatin1Char('|')))
            types += DataConverter::stringToDataType(name);
        QCOMPARE(types, QList<int>({1, 2, 3, 4, 5, 0, 0, 0, 0, 0, 0, 0}));
    }

    void formatsNumbers_data()
    {
        QTest::addColumn<QString>("valueFormatAndResult");
        for (const char *row :
             {"1.5|0.00|1.50", "-2.377|#.#0|-2.38", "12.7|##0|13", "1234567|#,##0.0|1234567.0",
              "5|0.0 %.0|5.00", "1.50||1.50", "0,5|0.00|0,5", "5 mm|0.00|5 mm", "+inf|0.00|+inf"})
            QTest::newRow(row) << row;
    }

    void formatsNumbers()
    {
        QFETCH(QString, valueFormatAndResult);
        const QStringList texts = valueFormatAndResult.split(QLatin1Char('|'));
        QCOMPARE(DoubleFormater::toString(texts.at(0), texts.at(1)), texts.at(2));
    }

    void logsUnchangedWhatTheFilterRulesLetPass()
    {
        const QString message = QStringLiteral(" %1 %s \"\\n\n\u6E90 ");
        const LogCapture log;
        for (const char *rules : {"*=true", "", "Reader=false\n*.critical=false"}) {
            QLoggingCategory::setFilterRules(QLatin1String(rules));
            for (const int level : {1, 2, 3, 4})
                CLogger::logMessage(CLogger::LogLevel(level), QStringLiteral("Geb\u00E4ude"), message);
        }
        QStringList expected;
        for (const char *level : {"critical", "warning", "info", "debug", "critical", "warning", "warning"})
            expected += QStringLiteral("Geb\u00E4ude|") + QLatin1String(level) + QLatin1Char('|') + message;
        QCOMPARE(log.messages(), expected);
    }

    void logsFromSeveralThreads()
    {
        // Nearly every message makes a new category, while other threads make or look for the same one.
        const LogCapture log;
        std::thread threads[4];
        for (std::thread &thread : threads) {
            thread = std::thread([] {
                for (int i = 0; i < 2000; ++i)
                    CLogger::logMessage(CLogger::Warning, QStringLiteral("Threads%1").arg(i), QString());
            });
        }
        for (std::thread &thread : threads)
            thread.join();
        QStringList messages = log.messages();
        QCOMPARE(messages.size(), 4 * 2000);
        QCOMPARE(messages.removeDuplicates(), 3 * 2000);
    }

    void fieldCopiesEveryProperty()
    {
        const auto propertiesOf = [](const InputField &f) {
            const auto list = QVariantList()
                              << f.caption() << f.boundColumn() << f.inputFormat() << f.defaultValue()
                              << f.maximumValue() << f.minimumValue() << f.displayFormat() << f.unit()
                              << f.isVisible() << f.isReadonly() << f.isMandatory() << f.precission()
                              << f.maximumTextLength() << f.dataType() << f.itemList().size();
            return QVariant(list).toStringList().join(QLatin1Char(' '));
        };
        InputField field;
        QCOMPARE(propertiesOf(field).simplified(), QStringLiteral("false false false 0 0 0 0"));
        field.setCaption(QStringLiteral("caption"));
        field.setBoundColumn(QStringLiteral("column"));
        field.setInputFormat(QStringLiteral("input"));
        field.setDefaultValue(QStringLiteral("default"));
        field.setMaximumValue(QStringLiteral("maximum"));
        field.setMinimumValue(QStringLiteral("minimum"));
        field.setDisplayFormat(QStringLiteral("display"));
        field.setUnit(QStringLiteral("unit"));
        field.setIsReadonly(true);
        field.setPrecission(7);
        field.setMaximumTextLength(8);
        field.setDataType(InputField::Decimal);
        field.setItemList({ListItem(1, QString(), QString()), ListItem(2, QString(), QString())});
        InputField copy(field);
        InputField assigned;
        assigned = field;
        field.setUnit(QString());
        const QString expected = QStringLiteral(
            "caption column input default maximum minimum display unit false true false 7 8 3 2");
        for (const InputField &other : {assigned, InputField(std::move(copy))})
            QCOMPARE(propertiesOf(other), expected);
    }

    void fieldIsDestroyedThroughItsBase() { QVERIFY(std::has_virtual_destructor_v<InputField>); }
};

QTEST_GUILESS_MAIN(SharedTest)

#include "SharedTest.moc"
