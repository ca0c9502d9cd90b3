// The comparison that a load makes for every element and text. For the reader's own use.
#pragma once

#include <QString>
#include <QStringRef>

#include <cstring>

namespace Orvida::Catalogs {

/// Whether the two have the same characters. Qt's comparisons find an order, for several times the cost.
inline bool isSameText(const QStringRef &view, const QString &text)
{
    return view.length() == text.length()
           && std::memcmp(view.constData(), text.constData(), sizeof(QChar) * std::size_t(text.length()))
                  == 0;
}

} // namespace Orvida::Catalogs
