// Decoding and encoding of scrambled text.

#include "catalogs/reading/ScrambledText.h"

#include <QtTest>

using Orvida::Catalogs::ScrambledText;

class ScrambledTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void decodes_data();
    void decodes();
    void decodesWhatItEncodes_data();
    void decodesWhatItEncodes();
    void decodesAnyPairAsTheLongWay();
};

void ScrambledTextTest::decodes_data()
{
    QTest::addColumn<QString>("scrambled");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *name, const char *scrambled, const char *text) {
        QTest::newRow(name) << scrambled << text;
    };
    // "A" is 0x41: rotated left by 2, 3, 4, 5, 1 and 2 it is 05, 0A, 14, 28, 82 and 05.
    row("every rotation count", "050A14288205", "AAAAAA");
    row("lower-case digits", "050a14288205", "AAAAAA");
    row("last odd digit ignored", "050", "A");
    row("one character", "0", "");
    row("nothing", "", "");
    row("ends at a zero byte", "05000A", "A");
    row("only a zero byte", "00", "");
    row("no number ends the text", "05xy14", "A");
    row("hexadecimal prefix alone is no number", "050x14", "A");
    // -5 is the byte 0xFB, which rotates right by 2 to 0xFE: no UTF-8.
    row("a sign counts", "-5", "\uFFFD");
    // 5 is the byte 0x05, the first one of "A".
    row("plus sign", "+5", "A");
    row("blank before the digit", " 5", "A");
    row("blank behind the digit", "5 ", "A");
    row("digits of other scripts are no digits", "\u0660\u0665", "");
}

void ScrambledTextTest::decodes()
{
    QFETCH(QString, scrambled);
    QFETCH(QString, text);
    QCOMPARE(ScrambledText::decode(QStringRef(&scrambled)), text);
}

void ScrambledTextTest::decodesWhatItEncodes_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("empty") << "";
    QTest::newRow("letters of two, three and four bytes")
        << QStringLiteral("d\u00E9sordre \u20AC \U0001F687");
    QTest::newRow("begins with a byte-order mark") << QStringLiteral("\uFEFFA");
    QTest::newRow("longer than any buffer on the stack") << QStringLiteral("fissure ").repeated(1000);
}

void ScrambledTextTest::decodesWhatItEncodes()
{
    QFETCH(QString, text);
    const QString scrambled = ScrambledText::encode(text);
    QCOMPARE(ScrambledText::decode(QStringRef(&scrambled)), text);
}

// The fast path for plain digits must not be seen: whatever the two characters are, the byte is the one that
// Qt's conversion gives.
void ScrambledTextTest::decodesAnyPairAsTheLongWay()
{
    for (int first = 0; first < 0x180; ++first) {
        for (int second = 0; second < 0x180; ++second) {
            const QString pair = QString(QChar(first)) + QChar(second);
            const uint number = static_cast<uint>(pair.toInt(nullptr, 16)) & 0xFF;
            const char byte = static_cast<char>(number >> 2 | number << 6);
            const QString expected = byte == 0 ? QString() : QString::fromUtf8(&byte, 1);
            if (ScrambledText::decode(QStringRef(&pair)) != expected)
                QFAIL(qPrintable(QStringLiteral("pair U+%1 U+%2").arg(first, 0, 16).arg(second, 0, 16)));
        }
    }
}

QTEST_GUILESS_MAIN(ScrambledTextTest)

#include "ScrambledTextTest.moc"
