// Turns a catalog written in the clear into the form that is shipped.
#pragma once

#include <QIODevice>
#include <QString>

namespace Orvida::Tools {

/// Copies a catalog file and scrambles the texts of those fields that hold scrambled text. Everything
/// else, comments and layout included, stays as it is.
class CatalogScrambler
{
public:
    /// Reads from `input` and writes to `output`, both open and not owned. False when the XML is not
    /// well-formed or writing fails; `errorText()` then says what and where.
    bool scramble(QIODevice &input, QIODevice &output);

    QString errorText() const { return m_errorText; }

private:
    QString m_errorText;
};

} // namespace Orvida::Tools
