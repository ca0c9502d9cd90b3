// The XML schema of catalog files, written from the table of their format.
#pragma once

#include <QString>

namespace Orvida::Format {

/// The two forms of a catalog file: with its scrambled texts scrambled, and with all texts in the clear.
enum class Form { Scrambled, Readable };

/// The schema by which editors complete and check catalog files of `form`.
///
/// It refuses every record that a load refuses, and also what a load ignores or takes as a default: unknown
/// elements and attributes, repeated fields, numbers and words that cannot be read, columns without a type.
/// It looks at one record at a time, and never at what a key refers to.
QString schemaOf(Form form);

} // namespace Orvida::Format
