#include "checking/reading/TextTable_p.h"

#include <QRandomGenerator>

#include <algorithm>
#include <cstring>

namespace Orvida::Checking {

namespace {

constexpr std::size_t blockLength = std::size_t(32) * 1024;

__extension__ using Product = unsigned __int128;

// Both halves of a product: a difference in one factor spreads over all bits, in a way that depends on the
// other factor.
quint64 mixed(quint64 a, quint64 b)
{
    const Product product = Product(a) * b;
    return static_cast<quint64>(product) ^ static_cast<quint64>(product >> 64);
}

} // namespace

TextTable::TextTable() : m_secret(QRandomGenerator::global()->generate64() | 1), m_slots(1024)
{
    m_texts.push_back(QStringView(u"", 0));
    m_hashes.push_back(0);
}

Symbol TextTable::symbol(QStringView text)
{
    if (text.isEmpty())
        return 0;
    const quint32 hash = hashOf(text);
    std::size_t slot = slotOf(text, hash);
    if (m_slots[slot] != 0)
        return m_slots[slot];
    if (m_texts.size() * 3 >= m_slots.size() * 2) {
        grow();
        slot = slotOf(text, hash);
    }
    add(text, hash, slot);
    return m_slots[slot];
}

Symbol TextTable::find(QStringView text) const
{
    return text.isEmpty() ? 0 : m_slots[slotOf(text, hashOf(text))];
}

QString TextTable::string(Symbol symbol) const
{
    const QStringView view = text(symbol);
    return QString::fromRawData(view.data(), int(view.size()));
}

quint32 TextTable::hashOf(QStringView text) const
{
    constexpr std::size_t unit = sizeof(quint64);
    const char *bytes = reinterpret_cast<const char *>(text.data());
    std::size_t left = std::size_t(text.size()) * sizeof(QChar);
    quint64 hash = m_secret ^ left;
    for (; left > 0; bytes += unit) {
        const std::size_t length = std::min(left, unit);
        quint64 word = 0;
        std::memcpy(&word, bytes, length);
        hash = mixed(hash ^ word ^ Q_UINT64_C(0x9E3779B97F4A7C15), m_secret);
        left -= length;
    }
    return static_cast<quint32>(hash ^ hash >> 32);
}

// Where `text` is, or the free slot where it belongs.
std::size_t TextTable::slotOf(QStringView text, quint32 hash) const
{
    const std::size_t mask = m_slots.size() - 1;
    std::size_t slot = hash & mask;
    for (; m_slots[slot] != 0; slot = (slot + 1) & mask) {
        const auto symbol = std::size_t(m_slots[slot]);
        if (m_hashes[symbol] == hash && m_texts[symbol].size() == text.size()
            && std::memcmp(m_texts[symbol].data(), text.data(), std::size_t(text.size()) * sizeof(QChar))
                   == 0)
            break;
    }
    return slot;
}

void TextTable::add(QStringView text, quint32 hash, std::size_t slot)
{
    m_slots[slot] = size();
    m_texts.push_back(stored(text));
    m_hashes.push_back(hash);
}

// The characters in memory of the table's own: many texts to a block, a long one in a block by itself.
QStringView TextTable::stored(QStringView text)
{
    const auto length = std::size_t(text.size());
    const bool isLong = length >= blockLength / 4;
    if (isLong || length > m_freeLength)
        m_blocks.push_back(std::make_unique<QChar[]>(isLong ? length : blockLength));
    QChar *const place = isLong || length > m_freeLength ? m_blocks.back().get() : m_free;
    std::copy_n(text.data(), length, place);
    if (!isLong) {
        m_freeLength = (place == m_free ? m_freeLength : blockLength) - length;
        m_free = place + length;
    }
    return {place, text.size()};
}

void TextTable::grow()
{
    m_slots.assign(m_slots.size() * 2, 0);
    const std::size_t mask = m_slots.size() - 1;
    for (int symbol = 1; symbol < size(); ++symbol) {
        std::size_t slot = m_hashes[std::size_t(symbol)] & mask;
        while (m_slots[slot] != 0)
            slot = (slot + 1) & mask;
        m_slots[slot] = symbol;
    }
}

} // namespace Orvida::Checking
