// Shares texts that come again and again in a catalog file. For the reader's own use.
#pragma once

#include "catalogs/reading/SameText_p.h"

#include <QString>
#include <QStringRef>

#include <array>

namespace Orvida::Catalogs {

/// Turns views of the reader's buffer into texts of their own, and gives the same text again, without
/// allocating, when it is still remembered. Profile keys, column ids, units and the keys of list classes come
/// thousands of times each; forgetting one, because another text has taken its place, costs only memory.
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

private:
    static constexpr unsigned places = 256;

    // Keys differ near their end, as in P1 and P2 or BC-100 and BC-101.
    static unsigned placeOf(const QStringRef &view)
    {
        auto place = static_cast<unsigned>(view.length());
        for (int i = qMax(0, view.length() - 4); i < view.length(); ++i)
            place = place * 31 + view.at(i).unicode();
        return place % places;
    }

    std::array<QString, places> m_texts;
};

} // namespace Orvida::Catalogs
