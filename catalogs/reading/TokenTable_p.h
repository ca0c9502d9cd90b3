// From names to tokens, for the tokenizer's tables.
#pragma once

#include "catalogs/reading/SameText_p.h"

#include <QString>
#include <QStringRef>

#include <array>
#include <cstddef>

namespace Orvida::Catalogs {

/// The names of one context with their tokens. Filled once, then only read; refers to the names it is given.
template <typename Token>
class TokenTable
{
public:
    /// A name of the vocabulary.
    struct Row
    {
        const QString name;
        const Token token;
    };

    /// A table of `rows`, which must outlive it. No name is empty, and none comes twice.
    template <std::size_t count>
    explicit TokenTable(const Row (&rows)[count])
    {
        static_assert(count <= places / 2, "A crowded table makes long walks.");
        for (const Row &row : rows) {
            std::size_t place = placeOf(QStringRef(&row.name));
            while (m_rows[place])
                place = (place + 1) % places;
            m_rows[place] = &row;
        }
    }

    /// The token of `name`, or the one of value 0.
    Token value(const QStringRef &name) const
    {
        if (name.isEmpty())
            return Token();
        for (std::size_t place = placeOf(name); m_rows[place]; place = (place + 1) % places) {
            if (isSameText(name, m_rows[place]->name))
                return m_rows[place]->token;
        }
        return Token();
    }

private:
    static constexpr std::size_t places = 64;

    // The names of a context begin alike. Length, middle and end tell them apart: of all names in the
    // vocabulary, three share their place with another one.
    static std::size_t placeOf(const QStringRef &name)
    {
        const QChar *characters = name.constData();
        const auto length = static_cast<std::size_t>(name.length());
        return (length * 31 + characters[length - 1].unicode() * 32u + characters[length / 2].unicode())
               % places;
    }

    std::array<const Row *, places> m_rows{};
};

} // namespace Orvida::Catalogs
