// Texts as a search compares them. For the library's own use.
#pragma once

#include <QString>

namespace Orvida::Models {

/// `text` without accents and without a difference of letter case: "Épaufrure" and "epaufrure" give the same.
/// Ligatures count as their letters.
QString searchableText(const QString &text);

} // namespace Orvida::Models
