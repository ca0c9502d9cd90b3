// The stand-in of the host: number format and logger. Its conversions and input fields are tested in
// catalogs/.

#include "shared/CLogger.h"
#include "shared/DoubleFormater.h"
#include "shared/InputField.h"
#include "support/TestSupport.h"

#include <QLocale>
#include <QLoggingCategory>
#include <QtTest>

#include <thread>
#include <type_traits>

using Orvida::Logging::CLogger;
using namespace Orvida::Tests;

static_assert(std::has_virtual_destructor_v<Orvida::Shared::InputField>,
              "hosts destroy fields through their base");

class SharedTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Numbers do not depend on the locale.
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }

    // Value, format and result.
    void formatsNumbers()
    {
        for (const char *row :
             {"1.5|0.00|1.50", "-2.377|#.#0|-2.38", "12.7|##0|13", "1234567|#,##0.0|1234567.0",
              "5|0.0 %.0|5.00", "1.50||1.50", "0,5|0.00|0,5", "5 mm|0.00|5 mm", "+inf|0.00|+inf"}) {
            const QStringList texts = text(row).split(QLatin1Char('|'));
            QCOMPARE(Orvida::Shared::DoubleFormater::toString(texts.at(0), texts.at(1)), texts.at(2));
        }
    }

    // The fast path for plain numbers must make no difference. These are all texts of up to five of seven
    // characters, and some with more digits than a double holds.
    void formatsAnyTextAsTheLongWay()
    {
        const QString characters = text("019.-e ");
        QStringList values = {text("123456789012345"), text("1234567890123456789"),
                              text("0.1234567890123456"), text("99999999999999.9")};
        for (int number = 0; number < 7 * 7 * 7 * 7 * 7; ++number) {
            QString value;
            for (int rest = number; rest > 0; rest /= 7)
                value += characters.at(rest % 7);
            values += value;
        }
        for (const QString &value : qAsConst(values)) {
            for (int decimals = 0; decimals < 4; ++decimals) {
                bool isNumber = false;
                const double number = value.toDouble(&isNumber);
                const QString expected = isNumber ? QString::number(number, 'f', decimals) : value;
                QCOMPARE(Orvida::Shared::DoubleFormater::toString(value, text("#.###").left(2 + decimals)),
                         expected);
            }
        }
    }

    void logsUnchangedWhatTheFilterRulesLetPass()
    {
        const QString message = text(" %1 %s \"\\n\n\u6E90 ");
        const LogCapture log;
        for (const char *rules : {"*=true", "", "Reader=false\n*.critical=false"}) {
            QLoggingCategory::setFilterRules(text(rules));
            for (const int level : {1, 2, 3, 4})
                CLogger::logMessage(CLogger::LogLevel(level), text("Geb\u00E4ude"), message);
        }
        QStringList expected;
        for (const char *level : {"critical", "warning", "info", "debug", "critical", "warning", "warning"})
            expected += text("Geb\u00E4ude|") + text(level) + QLatin1Char('|') + message;
        QCOMPARE(log.messages(), expected);
    }

    // Nearly every message creates a category, while other threads create or look up the same one.
    void logsFromSeveralThreads()
    {
        const LogCapture log;
        std::thread threads[4];
        for (std::thread &thread : threads) {
            thread = std::thread([] {
                for (int i = 0; i < 2000; ++i)
                    CLogger::logMessage(CLogger::Warning, text("Threads%1").arg(i), QString());
            });
        }
        for (std::thread &thread : threads)
            thread.join();
        QStringList messages = log.messages();
        QCOMPARE(messages.size(), 4 * 2000);
        QCOMPARE(messages.removeDuplicates(), 3 * 2000);
    }
};

QTEST_GUILESS_MAIN(SharedTest)

#include "SharedTest.moc"
