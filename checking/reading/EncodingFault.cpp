#include "checking/reading/EncodingFault_p.h"

#include <QFile>
#include <QFileInfo>
#include <QTextCodec>
#include <QTextDecoder>

#include <algorithm>
#include <memory>

namespace Orvida::Checking {

namespace {

constexpr qint64 blockSize = Q_INT64_C(64) * 1024;
constexpr qint64 longestSequence = 8;
// Of QTextCodec::mibEnum().
constexpr int utf8 = 106;
constexpr int utf16And32First = 1013;
constexpr int utf16And32Last = 1019;

// Counts lines and columns of decoded text as an XML reader does.
class PositionCounter
{
public:
    void count(const QString &text)
    {
        for (const QChar character : text) {
            const bool isLineFeed = character == QLatin1Char('\n');
            const bool isReturn = character == QLatin1Char('\r');
            if (isReturn || (isLineFeed && !m_isAfterReturn))
                m_position = {m_position.line + 1, 1};
            else if (!isLineFeed)
                ++m_position.column;
            m_isAfterReturn = isReturn;
        }
    }

    Position position() const { return m_position; }

private:
    Position m_position;
    bool m_isAfterReturn = false;
};

const QTextCodec *codecOf(const QByteArray &firstBytes, const QString &declaredEncoding)
{
    QTextCodec *declared = QTextCodec::codecForName(declaredEncoding.toLatin1());
    QTextCodec *const fallback = declared ? declared : QTextCodec::codecForMib(utf8);
    return QTextCodec::codecForUtfText(firstBytes, fallback);
}

// Where in `block` a sequence begins that `decoder` does not take; its size when it takes all.
int faultIn(const QByteArray &block, QTextDecoder &decoder, PositionCounter &counter)
{
    int sequenceStart = 0;
    for (int index = 0; index < block.size(); ++index) {
        const QString text = decoder.toUnicode(block.constData() + index, 1);
        if (decoder.hasFailure())
            return sequenceStart;
        counter.count(text);
        if (!text.isEmpty())
            sequenceStart = index + 1;
    }
    return block.size();
}

// The start of the first block that `decoder` does not take; -1 when it takes all.
qint64 faultyBlock(QFile &file, QTextDecoder &decoder)
{
    while (!file.atEnd()) {
        const qint64 start = file.pos();
        const QByteArray block = file.read(blockSize);
        if (block.isEmpty())
            return -1;
        decoder.toUnicode(block);
        if (decoder.hasFailure())
            return start;
    }
    return -1;
}

bool openAgain(QFile &file)
{
    // What is no regular file gives its bytes only once.
    return QFileInfo(file.fileName()).isFile() && file.open(QIODevice::ReadOnly);
}

} // namespace

std::optional<EncodingFault> findEncodingFault(const QString &fileName, const QString &declaredEncoding)
{
    QFile file(fileName);
    if (!openAgain(file))
        return std::nullopt;
    const QTextCodec *const codec = codecOf(file.peek(4), declaredEncoding);
    const std::unique_ptr<QTextDecoder> search(codec->makeDecoder());
    const qint64 faultyStart = faultyBlock(file, *search);
    if (faultyStart < 0 || !file.seek(0))
        return std::nullopt;
    // The sequence may begin in the block before.
    const qint64 faulty = std::max(Q_INT64_C(0), faultyStart - longestSequence);
    const std::unique_ptr<QTextDecoder> decoder(codec->makeDecoder());
    PositionCounter counter;
    while (file.pos() < faulty)
        counter.count(decoder->toUnicode(file.read(std::min(blockSize, faulty - file.pos()))));
    const QByteArray block = file.read(blockSize + longestSequence);
    const int index = faultIn(block, *decoder, counter);
    if (index >= block.size())
        return std::nullopt;
    return EncodingFault{counter.position(), uchar(block.at(index)), QString::fromLatin1(codec->name())};
}

bool isOneByteEncoding(const QString &name)
{
    const QTextCodec *const codec = name.isEmpty() ? nullptr : QTextCodec::codecForName(name.toLatin1());
    if (!codec)
        return false;
    const int mib = codec->mibEnum();
    if (mib == utf8 || (mib >= utf16And32First && mib <= utf16And32Last))
        return false;
    // An encoding of several bytes does not take each byte for a character.
    return codec->toUnicode(QByteArray("\xC3\xA9")).size() == 2;
}

bool isUtf8File(const QString &fileName)
{
    QFile file(fileName);
    if (!openAgain(file))
        return false;
    const std::unique_ptr<QTextDecoder> decoder(QTextCodec::codecForMib(utf8)->makeDecoder());
    bool hasMore = false;
    while (!file.atEnd()) {
        const QByteArray block = file.read(blockSize);
        decoder->toUnicode(block);
        if (block.isEmpty() || decoder->hasFailure())
            return false;
        hasMore =
            hasMore || std::any_of(block.begin(), block.end(), [](char byte) { return uchar(byte) > 127; });
    }
    return hasMore;
}

} // namespace Orvida::Checking
