// Numbers the texts of a catalog file. For the checker's own use.
#pragma once

#include <QString>
#include <QStringView>

#include <memory>
#include <vector>

namespace Orvida::Checking {

/// The number of a text. Equal texts have equal numbers, and the empty text has 0.
using Symbol = int;

/// Keeps each distinct text once, and numbers them in the order in which they came. Rules then compare, count
/// and sort numbers instead of texts.
///
/// It hashes with a secret of its own, so that no choice of keys and captions makes it slow, and takes about
/// thirty bytes for a text besides its characters: nearly every value of a catalog ends up here.
class TextTable
{
public:
    TextTable();

    /// The number of `text`, which is copied when it is new.
    Symbol symbol(QStringView text);
    /// The number of `text`; 0 when it is new.
    Symbol find(QStringView text) const;
    /// Remains valid as long as the table.
    QStringView text(Symbol symbol) const { return m_texts[std::size_t(symbol)]; }
    /// The same as a string that shares the characters: it must not outlive the table.
    QString string(Symbol symbol) const;
    /// Numbers are less than this.
    int size() const { return int(m_texts.size()); }

private:
    quint32 hashOf(QStringView text) const;
    std::size_t slotOf(QStringView text, quint32 hash) const;
    void add(QStringView text, quint32 hash, std::size_t slot);
    QStringView stored(QStringView text);
    void grow();

    const quint64 m_secret;
    std::vector<std::unique_ptr<QChar[]>> m_blocks;
    QChar *m_free = nullptr;
    std::size_t m_freeLength = 0;
    std::vector<QStringView> m_texts;
    std::vector<quint32> m_hashes;
    /// An open hash table: numbers by the hashes of their texts, 0 in free slots. A power of two in size, at
    /// most two thirds full.
    std::vector<Symbol> m_slots;
};

} // namespace Orvida::Checking
