#include "catalogs/reading/ScrambledText.h"

#include <QByteArray>
#include <QVarLengthArray>

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

// The value of a plain hexadecimal digit, -1 for any other character.
int digitValue(QChar digit)
{
    const ushort c = digit.unicode();
    if (c >= '0' && c <= '9')
        return c - '0';
    const ushort lower = c | 0x20;
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// The byte that the pair at `position` writes. Two plain digits are nearly every pair; Qt's conversion
// takes some more, such as a sign or a blank beside one digit, and has the last word on all others.
uchar byteAt(const QStringRef &scrambled, int position)
{
    const int high = digitValue(scrambled.at(position));
    const int low = digitValue(scrambled.at(position + 1));
    if (high >= 0 && low >= 0)
        return static_cast<uchar>(high << 4 | low);
    return static_cast<uchar>(scrambled.mid(position, 2).toInt(nullptr, 16));
}

} // namespace

QString ScrambledText::decode(const QStringRef &scrambled)
{
    const int count = scrambled.length() / 2;
    QVarLengthArray<char, 512> bytes;
    bytes.reserve(count);
    for (int i = 0; i < count; ++i) {
        const uchar byte = rotatedRight(byteAt(scrambled, 2 * i), rotationAt(i));
        if (byte == 0)
            break;
        bytes.append(static_cast<char>(byte));
    }
    return QString::fromUtf8(bytes.constData(), bytes.size());
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
