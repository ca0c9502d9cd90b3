#include "catalogs/reading/ScrambledText.h"

#include <QByteArray>
#include <QVarLengthArray>

#include <array>

namespace Orvida::Catalogs {

namespace {

// How far the byte at `index` is rotated: 2, 3, 4, 5, 1, 2, 3, ...
int rotationAt(int index)
{
    return (index + 1) % 5 + 1;
}

uchar rotatedRight(uchar byte, int count)
{
    return static_cast<uchar>(byte >> count | byte << (8 - count));
}

uchar rotatedLeft(uchar byte, int count)
{
    return rotatedRight(byte, 8 - count);
}

// The values of plain hexadecimal digits by their character; -1 for all other characters below 128.
constexpr std::array<signed char, 128> makeDigitValues()
{
    std::array<signed char, 128> values{};
    for (int c = 0; c < 128; ++c)
        values[c] = static_cast<signed char>(c >= '0' && c <= '9'   ? c - '0'
                                             : c >= 'a' && c <= 'f' ? c - 'a' + 10
                                             : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                                                    : -1);
    return values;
}

constexpr std::array<signed char, 128> digitValues = makeDigitValues();

int digitValue(QChar digit)
{
    return digit.unicode() < digitValues.size() ? digitValues[digit.unicode()] : -1;
}

// The byte that a pair of characters writes. Fast path for two plain digits; everything else falls back to
// Qt, which also accepts, for instance, a sign or a space beside one digit.
uchar byteOf(const QChar *pair)
{
    const int high = digitValue(pair[0]);
    const int low = digitValue(pair[1]);
    if ((high | low) >= 0)
        return static_cast<uchar>(high << 4 | low);
    return static_cast<uchar>(QString(pair, 2).toInt(nullptr, 16));
}

} // namespace

QString ScrambledText::decode(const QStringRef &scrambled)
{
    const int count = scrambled.length() / 2;
    QVarLengthArray<char, 512> bytes(count);
    const QChar *pair = scrambled.constData();
    int length = 0;
    for (; length < count; ++length, pair += 2) {
        const uchar byte = rotatedRight(byteOf(pair), rotationAt(length));
        if (byte == 0)
            break;
        bytes[length] = static_cast<char>(byte);
    }
    return QString::fromUtf8(bytes.constData(), length);
}

QString ScrambledText::encode(const QString &text)
{
    QByteArray bytes = text.toUtf8();
    // Decoding UTF-8 drops one leading byte-order mark, so a text that begins with one gets a second.
    if (text.startsWith(QChar::ByteOrderMark))
        bytes.prepend("\xEF\xBB\xBF");
    for (int i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(rotatedLeft(static_cast<uchar>(bytes.at(i)), rotationAt(i)));
    return QString::fromLatin1(bytes.toHex().toUpper());
}

} // namespace Orvida::Catalogs
