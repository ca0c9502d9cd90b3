// Texts as they are written in an XML document.
#pragma once

#include "tools/TextRewriter.h"

#include <QString>

namespace Orvida::Tools {

/// Whether XML 1.0 has a way to write `text`.
bool canBeInXml(const QString &text);

/// `text` as it is written in `document`, with references for what its encoding lacks.
QString xmlText(const QString &text, const TextRewriter &document);

/// Whether a CDATA section of `document` can hold `text` so that it reads the same.
bool fitsIntoCData(const QString &text, const TextRewriter &document);

} // namespace Orvida::Tools
