// Decoding and encoding of scrambled text. Scrambled text in files is tested by catalogs/scrambled.xml.

#include "catalogs/reading/ScrambledText.h"

#include <QtTest>

using Orvida::Catalogs::ScrambledText;

class ScrambledTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void decodesWhatItEncodes();
    void decodesAnyPairLikeQt();
};

void ScrambledTextTest::decodesWhatItEncodes()
{
    const QString texts[] = {
        QString(), QStringLiteral("d\u00E9sordre \u20AC \U0001F687"),
        QStringLiteral("\uFEFFA"),                  // begins with a byte-order mark
        QStringLiteral("fissure ").repeated(1000)}; // longer than any buffer on the stack
    for (const QString &text : texts) {
        const QString scrambled = ScrambledText::encode(text);
        QCOMPARE(ScrambledText::decode(QStringRef(&scrambled)), text);
    }
    QCOMPARE(ScrambledText::encode(QStringLiteral("AAAAAA")), QStringLiteral("050A14288205"));
}

// The fast path for plain digits must make no difference: any two characters give the byte that Qt's
// conversion gives.
void ScrambledTextTest::decodesAnyPairLikeQt()
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
