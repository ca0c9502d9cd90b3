// The stand-in of the host: conversions, number format, logger and input field.

#include "catalogs/model/CatalogInputField.h"
#include "shared/CLogger.h"
#include "shared/DataConverter.h"
#include "shared/DoubleFormater.h"
#include "shared/InputField.h"
#include "support/TestSupport.h"

#include <QLoggingCategory>
#include <QtTest>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

using Orvida::Catalogs::CatalogInputField;
using Orvida::Logging::CLogger;
using Orvida::Shared::DataConverter;
using Orvida::Shared::DoubleFormater;
using Orvida::Shared::InputField;
using Orvida::Shared::ListItem;
using Orvida::Tests::LogCapture;

namespace {

// Puts the default locale back, whatever a test set.
class DefaultLocale
{
public:
    explicit DefaultLocale(const QLocale &locale) { QLocale::setDefault(locale); }
    ~DefaultLocale() { QLocale::setDefault(m_earlier); }
    Q_DISABLE_COPY(DefaultLocale)

private:
    const QLocale m_earlier;
};

// Every property with a value of its own that begins with `stem`; of the three flags only `flag` is set.
void fill(InputField &field, const QString &stem, int flag)
{
    field.setCaption(stem + QStringLiteral("caption"));
    field.setBoundColumn(stem + QStringLiteral("column"));
    field.setInputFormat(stem + QStringLiteral("input"));
    field.setDefaultValue(stem + QStringLiteral("default"));
    field.setMaximumValue(stem + QStringLiteral("maximum"));
    field.setMinimumValue(stem + QStringLiteral("minimum"));
    field.setDisplayFormat(stem + QStringLiteral("display"));
    field.setUnit(stem + QStringLiteral("unit"));
    field.setIsVisible(flag == 0);
    field.setIsReadonly(flag == 1);
    field.setIsMandatory(flag == 2);
    field.setPrecission(stem.size());
    field.setMaximumTextLength(100 + stem.size());
    field.setDataType(InputField::Decimal);
    field.setItemList({ListItem(stem, QStringLiteral("first"), QString()), ListItem(1, stem, stem)});
}

QString propertiesOf(const InputField &field)
{
    QStringList texts = {field.caption(),       field.boundColumn(),  field.inputFormat(),
                         field.defaultValue(),  field.maximumValue(), field.minimumValue(),
                         field.displayFormat(), field.unit()};
    for (const bool flag : {field.isVisible(), field.isReadonly(), field.isMandatory()})
        texts += flag ? QStringLiteral("yes") : QStringLiteral("no");
    for (const int number : {field.precission(), field.maximumTextLength(), int(field.dataType())})
        texts += QString::number(number);
    for (const ListItem &entry : field.itemList())
        texts += entry.value().toString() + QLatin1Char(':') + entry.caption() + QLatin1Char(':')
                 + entry.itemText();
    return texts.join(QLatin1Char(' '));
}

QString propertiesOf(const CatalogInputField &field)
{
    const QStringList texts = {propertiesOf(static_cast<const InputField &>(field)),
                               field.prefix(),
                               field.suffix(),
                               field.observationTextParamName(),
                               QString::number(field.sortOrder()),
                               field.step(),
                               QString::number(field.typeFlags())};
    return texts.join(QLatin1Char(' '));
}

// What `fill` leaves behind for the stem "A".
QString filledProperties(const char *flags)
{
    return QStringLiteral("Acaption Acolumn Ainput Adefault Amaximum Aminimum Adisplay Aunit ")
           + QString::fromLatin1(flags) + QStringLiteral(" 1 101 3 A:first: 1:A:A");
}

} // namespace

class SharedTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void convertsTextToBoolean_data();
    void convertsTextToBoolean();
    void convertsTextToDataType_data();
    void convertsTextToDataType();
    void formatsNumbers_data();
    void formatsNumbers();
    void logsWithCategoryAndLevel();
    void logsNothingBelowWarningByDefault();
    void logsWhatTheFilterRulesLetPass();
    void logsMessagesUnchanged_data();
    void logsMessagesUnchanged();
    void logsFromSeveralThreads();
    void fieldBeginsEmpty();
    void fieldCopiesEveryProperty_data();
    void fieldCopiesEveryProperty();
    void fieldIsIndependentOfItsCopies();
    void fieldIsDestroyedThroughItsBase();
    void catalogFieldSurvivesAList();
};

void SharedTest::convertsTextToBoolean_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("value");
    QTest::addColumn<bool>("isConverted");

    const auto row = [](const char *name, const char *text, bool value, bool isConverted) {
        QTest::newRow(name) << text << value << isConverted;
    };

    row("true", "true", true, true);
    row("true in capitals", "TRUE", true, true);
    row("true with a capital", "True", true, true);
    row("false", "false", false, true);
    row("false in mixed case", "fAlSe", false, true);
    row("false with a long s", "fal\u017Fe", false, true);
    row("blank before", " true", false, false);
    row("blank behind", "true ", false, false);
    row("beginning of true", "tru", false, false);
    row("more than true", "true1", false, false);
    row("one", "1", false, false);
    row("yes", "yes", false, false);
    row("empty", "", false, false);
    row("place markers and quotes", "\"%1\" %s ", false, false);
}

void SharedTest::convertsTextToBoolean()
{
    QFETCH(QString, text);
    QFETCH(bool, value);
    QFETCH(bool, isConverted);

    const QString buffer = QLatin1Char('>') + text + QLatin1Char('<');
    const LogCapture log;
    QCOMPARE(DataConverter::stringToBool(QStringRef(&buffer, 1, text.size())), value);
    QCOMPARE(DataConverter::stringToBool(text), value);
    QStringList expected;
    if (!isConverted)
        expected.append(QStringLiteral("DataConverter|critical|stringToBool conversion error! ") + text);
    QCOMPARE(log.messages(), expected + expected);
}

void SharedTest::convertsTextToDataType_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("type");

    const auto row = [](const char *name, const char *text, int type) {
        QTest::newRow(name) << text << type;
    };

    row("text", "TXT", 1);
    row("integer", "INT", 2);
    row("decimal", "DEC", 3);
    row("boolean", "BOL", 4);
    row("date", "DAT", 5);
    row("small letters", "bol", 0);
    row("mixed case", "Int", 0);
    row("blank before", " TXT", 0);
    row("blank behind", "TXT ", 0);
    row("beginning of a name", "TX", 0);
    row("more than a name", "DATE", 0);
    row("number of a type", "1", 0);
    row("empty", "", 0);
}

void SharedTest::convertsTextToDataType()
{
    QFETCH(QString, text);
    QFETCH(int, type);
    const QString buffer = QLatin1Char('>') + text + QLatin1Char('<');
    QCOMPARE(int(DataConverter::stringToDataType(QStringRef(&buffer, 1, text.size()))), type);
}

void SharedTest::formatsNumbers_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("formatted");

    const auto row = [](const char *name, const char *value, const char *format, const char *formatted) {
        QTest::newRow(name) << value << format << formatted;
    };

    row("zeros", "1.5", "0.00", "1.50");
    row("number signs", "2.375", "#.##0", "2.375");
    row("fewer decimals than given", "2.377", "0.0#", "2.38");
    row("no decimals", "12.7", "##0", "13");
    row("point without decimals", "12.3", "0.", "12");
    row("decimals only", "7", ".0", "7.0");
    row("group separators are not written", "1234567", "#,##0.0", "1234567.0");
    row("other characters behind the point", "5", "0.0 % 0", "5.00");
    row("two points", "5", "0.0.00", "5.000");
    row("negative", "-3", "0.00", "-3.00");
    row("exponent", "1e3", "0.0", "1000.0");
    row("no format", "1.50", "", "1.50");
    row("decimal comma", "0,5", "0.00", "0,5");
    row("group separators", "1,000", "0.00", "1,000");
    row("word", "abc", "0.00", "abc");
    row("number and unit", "5 mm", "0.00", "5 mm");
    row("empty", "", "0.00", "");
    row("infinite", "+inf", "0.00", "+inf");
    row("not a number", "nan", "0.00", "nan");
    row("too large", "1e999", "0.00", "1e999");
}

void SharedTest::formatsNumbers()
{
    QFETCH(QString, value);
    QFETCH(QString, format);
    QFETCH(QString, formatted);
    const DefaultLocale locale(QLocale(QLocale::German, QLocale::Germany));
    QCOMPARE(DoubleFormater::toString(value, format), formatted);
}

void SharedTest::logsWithCategoryAndLevel()
{
    const LogCapture log;
    CLogger::logMessage(CLogger::Error, QStringLiteral("Reader"), QStringLiteral("a"));
    CLogger::logMessage(CLogger::Warning, QStringLiteral("Writer"), QStringLiteral("b"));
    CLogger::logMessage(CLogger::LogLevel(3), QStringLiteral("Reader"), QStringLiteral("c"));
    CLogger::logMessage(CLogger::LogLevel(4), QStringLiteral("Geb\u00E4ude"), QStringLiteral("d"));
    CLogger::logMessage(CLogger::LogLevel(1), QStringLiteral("Reader"), QStringLiteral("e"));
    QCOMPARE(log.messages(),
             QStringList({QStringLiteral("Reader|critical|a"), QStringLiteral("Writer|warning|b"),
                          QStringLiteral("Reader|info|c"), QStringLiteral("Geb\u00E4ude|debug|d"),
                          QStringLiteral("Reader|critical|e")}));
}

void SharedTest::logsNothingBelowWarningByDefault()
{
    const LogCapture log;
    QLoggingCategory::setFilterRules(QString());
    for (const auto level : {CLogger::Debug, CLogger::Info, CLogger::Warning, CLogger::Error})
        CLogger::logMessage(level, QStringLiteral("Unconfigured"), QStringLiteral("m"));
    QCOMPARE(log.messages(), QStringList({QStringLiteral("Unconfigured|warning|m"),
                                          QStringLiteral("Unconfigured|critical|m")}));
}

void SharedTest::logsWhatTheFilterRulesLetPass()
{
    const auto logBoth = [] {
        for (const QString &category : {QStringLiteral("Loud"), QStringLiteral("Quiet")}) {
            CLogger::logMessage(CLogger::Debug, category, QStringLiteral("m"));
            CLogger::logMessage(CLogger::Error, category, QStringLiteral("m"));
        }
    };
    const LogCapture log;
    QLoggingCategory::setFilterRules(QStringLiteral("Loud.debug=true\nQuiet.critical=false"));
    logBoth();
    QCOMPARE(log.messages(),
             QStringList({QStringLiteral("Loud|debug|m"), QStringLiteral("Loud|critical|m")}));

    // Rules also reach categories that have logged before.
    QLoggingCategory::setFilterRules(QStringLiteral("Loud=false"));
    logBoth();
    QCOMPARE(log.messages().mid(2), QStringList({QStringLiteral("Quiet|critical|m")}));
}

void SharedTest::logsMessagesUnchanged_data()
{
    QTest::addColumn<QString>("message");

    QTest::newRow("blank at the end") << "ends with a blank ";
    QTest::newRow("blanks everywhere") << "  a  b  ";
    QTest::newRow("percent signs") << "100%% %1 %s %n %";
    QTest::newRow("quotes and backslashes") << "\"a\" 'b' \\n";
    QTest::newRow("line ends") << "a\nb\r\n";
    QTest::newRow("letters of other scripts") << QStringLiteral("\u6E90 \U0001F687 e\u0301");
    QTest::newRow("empty") << "";
    QTest::newRow("long") << QStringLiteral("0123456789").repeated(10000);
}

void SharedTest::logsMessagesUnchanged()
{
    QFETCH(QString, message);
    const LogCapture log;
    CLogger::logMessage(CLogger::Error, QStringLiteral("Unchanged"), message);
    QCOMPARE(log.messages(), QStringList(QStringLiteral("Unchanged|critical|") + message));
}

void SharedTest::logsFromSeveralThreads()
{
    constexpr int threadCount = 4;
    constexpr int messageCount = 2000;
    // Nearly every message makes a new category, while other threads make or look for the same one.
    const auto categoryOf = [](int i) { return QStringLiteral("Threads%1").arg(i); };
    const auto messageOf = [](int thread) { return QStringLiteral("from thread %1").arg(thread); };

    const LogCapture log;
    std::atomic<int> waiting{threadCount};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < threadCount; ++thread) {
        threads.emplace_back([=, &waiting] {
            --waiting;
            while (waiting > 0)
                std::this_thread::yield();
            for (int i = 0; i < messageCount; ++i)
                CLogger::logMessage(CLogger::Warning, categoryOf(i), messageOf(thread));
        });
    }
    for (std::thread &thread : threads)
        thread.join();

    QStringList expected;
    for (int thread = 0; thread < threadCount; ++thread) {
        for (int i = 0; i < messageCount; ++i)
            expected += categoryOf(i) + QStringLiteral("|warning|") + messageOf(thread);
    }
    expected.sort();
    QStringList messages = log.messages();
    messages.sort();
    QCOMPARE(messages, expected);
}

void SharedTest::fieldBeginsEmpty()
{
    QCOMPARE(propertiesOf(InputField()).simplified(), QStringLiteral("no no no 0 0 0"));
}

void SharedTest::fieldCopiesEveryProperty_data()
{
    QTest::addColumn<int>("flag");
    QTest::addColumn<QString>("properties");

    QTest::newRow("visible") << 0 << filledProperties("yes no no");
    QTest::newRow("read-only") << 1 << filledProperties("no yes no");
    QTest::newRow("mandatory") << 2 << filledProperties("no no yes");
}

void SharedTest::fieldCopiesEveryProperty()
{
    QFETCH(int, flag);
    QFETCH(QString, properties);

    InputField field;
    fill(field, QStringLiteral("A"), flag);
    QCOMPARE(propertiesOf(field), properties);

    InputField copy(field);
    QCOMPARE(propertiesOf(copy), properties);
    InputField assigned;
    assigned = field;
    QCOMPARE(propertiesOf(assigned), properties);

    InputField moved(std::move(copy));
    QCOMPARE(propertiesOf(moved), properties);
    InputField moveAssigned;
    moveAssigned = std::move(moved);
    QCOMPARE(propertiesOf(moveAssigned), properties);
}

void SharedTest::fieldIsIndependentOfItsCopies()
{
    InputField field;
    fill(field, QStringLiteral("A"), 0);
    InputField copy(field);
    fill(copy, QStringLiteral("Bcd"), 1);
    QCOMPARE(propertiesOf(field), filledProperties("yes no no"));

    copy = field;
    fill(field, QStringLiteral("Bcd"), 1);
    QCOMPARE(propertiesOf(copy), filledProperties("yes no no"));
}

void SharedTest::fieldIsDestroyedThroughItsBase()
{
    struct Witness : CatalogInputField
    {
        explicit Witness(bool &isDestroyed) : m_isDestroyed(isDestroyed) {}
        ~Witness() override { m_isDestroyed = true; }
        bool &m_isDestroyed;
    };

    bool isDestroyed = false;
    std::unique_ptr<InputField> field = std::make_unique<Witness>(isDestroyed);
    QVERIFY(dynamic_cast<CatalogInputField *>(field.get()));
    field.reset();
    QVERIFY(isDestroyed);
}

void SharedTest::catalogFieldSurvivesAList()
{
    CatalogInputField field;
    fill(field, QStringLiteral("A"), 2);
    field.setMinimumValue(QStringLiteral("0,5")); // text, not a number
    field.setPrefix(QStringLiteral("prefix"));
    field.setSuffix(QStringLiteral("suffix"));
    field.setObservationTextParamName(QStringLiteral("@CLK"));
    field.setSortOrder(-7);
    field.setStep(QStringLiteral("step"));
    field.setTypeFlags(Orvida::Catalogs::TypeFlags(Q_INT64_C(0x7000000080000001)));
    const QString expected =
        filledProperties("no no yes").replace(QStringLiteral("Aminimum"), QStringLiteral("0,5"))
        + QStringLiteral(" prefix suffix @CLK -7 step 8070450534395412481");

    QList<CatalogInputField> fields = {CatalogInputField(), field};
    QList<CatalogInputField> detached = fields;
    std::swap(detached[0], detached[1]);
    fill(fields[1], QStringLiteral("Bcd"), 0);
    QCOMPARE(propertiesOf(detached.at(0)), expected);
    QCOMPARE(propertiesOf(field), expected);
    QCOMPARE(propertiesOf(detached.at(1)).simplified(), QStringLiteral("no no no 0 0 0 0 0"));
}

QTEST_GUILESS_MAIN(SharedTest)

#include "SharedTest.moc"
