// Interns strings that repeat within a catalog file. For the reader's own use.
#pragma once

#include "catalogs/reading/SameText_p.h"
#include "catalogs/reading/ScrambledText.h"

#include <QString>
#include <QStringRef>

#include <array>

namespace Orvida::Catalogs {

/// Turns views of the reader's buffer into strings of their own, and returns an earlier string again, without
/// allocating, while it is remembered. Profile keys, column ids, units and the captions of list entries
/// repeat hundreds of times each; forgetting one, because another string has taken its place, costs only
/// memory.
///
/// A string is remembered when it is met for the second time. Most strings of a catalog are met once: they
/// would push the others out, and each would cost a visit to memory that is long out of the processor's
/// caches.
class TextPool
{
public:
    /// A text with the characters of `view`.
    QString text(const QStringRef &view)
    {
        // Copies the characters: QStringRef::toString() of a whole text would share the reader's own buffer,
        // and every stored value would keep that buffer's reserve alive.
        return remembered(m_texts, view,
                          [](const QStringRef &from) { return QString(from.constData(), from.length()); });
    }

    /// The text that the scrambled text `view` stands for. Remembered apart from plain texts, of which one
    /// may have the same characters.
    QString descrambled(const QStringRef &view)
    {
        return remembered(m_descrambledTexts, view, ScrambledText::decode);
    }

private:
    static constexpr unsigned places = 1024;

    struct Entry
    {
        unsigned lastHash = 0; // of the text that came here last, remembered or not
        unsigned hash = 0;     // of `from`
        QString from;
        QString to;
    };
    using Entries = std::array<Entry, places>;

    template <typename Convert>
    static QString remembered(Entries &entries, const QStringRef &view, Convert convert)
    {
        const unsigned hash = hashOf(view);
        Entry &entry = entries[hash % places];
        if (entry.hash == hash && isSameText(view, entry.from))
            return entry.to;
        const QString result = convert(view);
        if (entry.lastHash == hash) {
            entry.from = isSameText(view, result) ? result : QString(view.constData(), view.length());
            entry.to = result;
            entry.hash = hash;
        }
        entry.lastHash = hash;
        return result;
    }

    // Of eight characters, the last one among them: keys differ near their end, as in BC-100 and BC-101.
    // Never 0 for an empty text, which is not the null text of an unused entry.
    static unsigned hashOf(const QStringRef &view)
    {
        auto hash = static_cast<unsigned>(view.length()) + 1;
        const int step = view.length() / 8 + 1;
        for (int i = view.length() - 1; i >= 0; i -= step)
            hash = hash * 31 + view.at(i).unicode();
        return hash;
    }

    Entries m_texts;
    Entries m_descrambledTexts;
};

} // namespace Orvida::Catalogs
