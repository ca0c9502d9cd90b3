// Shares texts that come again and again in a catalog file. For the reader's own use.
#pragma once

#include "catalogs/reading/SameText_p.h"

#include <QString>
#include <QStringRef>

#include <array>

namespace Orvida::Catalogs {

/// Turns views of the reader's buffer into texts of their own, and gives the same text again, without
/// allocating, when it is still remembered. Profile keys, column ids, units and the captions of list entries
/// come hundreds of times each; forgetting one, because another text has taken its place, costs only memory.
class TextPool
{
public:
    /// A text with the characters of `view`.
    QString text(const QStringRef &view)
    {
        QString &remembered = m_texts[placeOf(view)];
        // Copies the characters: QStringRef::toString() of a whole text would share the reader's own buffer,
        // and every stored value would keep that buffer's reserve alive.
        if (remembered.isNull() || !isSameText(view, remembered))
            remembered = QString(view.constData(), view.length());
        return remembered;
    }

    /// What `convert`, which must always be the same, makes of `view`.
    template <typename Convert>
    QString converted(const QStringRef &view, Convert convert)
    {
        Conversion &remembered = m_conversions[placeOf(view)];
        if (remembered.from.isNull() || !isSameText(view, remembered.from)) {
            remembered.to = convert(view);
            // Into the characters that are there already: nobody shares them.
            remembered.from.setUnicode(view.constData(), view.length());
        }
        return remembered.to;
    }

private:
    static constexpr unsigned places = 1024;

    struct Conversion
    {
        QString from;
        QString to;
    };

    // Keys differ near their end, as in P1 and P2 or BC-100 and BC-101; texts, anywhere.
    static unsigned placeOf(const QStringRef &view)
    {
        auto place = static_cast<unsigned>(view.length());
        const int step = view.length() / 8 + 1;
        for (int i = view.length() - 1; i >= 0; i -= step)
            place = place * 31 + view.at(i).unicode();
        return place % places;
    }

    std::array<QString, places> m_texts;
    std::array<Conversion, places> m_conversions;
};

} // namespace Orvida::Catalogs
