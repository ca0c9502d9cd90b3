// The scrambled form in which catalog files hold captions, codes and other texts of a standard.
#pragma once

#include "catalogs/CatalogsExport.h"

#include <QString>
#include <QStringRef>

namespace Orvida::Catalogs {

/// Encodes and decodes scrambled text: the UTF-8 bytes of a text, each rotated by a count that depends on
/// its position, written as two hexadecimal digits. It hides texts from a casual look and protects nothing.
///
/// Any thread may call it.
class ORVIDA_CATALOGS_EXPORT ScrambledText
{
public:
    ScrambledText() = delete;

    /// The text that `scrambled` stands for.
    ///
    /// Never fails: a last odd character is ignored, a pair that is not a number counts as a zero byte,
    /// the text ends before the first zero byte, and bytes that are not UTF-8 become replacement characters.
    /// Shorter than two characters gives the empty string.
    static QString decode(const QStringRef &scrambled);

    /// The scrambled form of `text`, in upper-case digits; empty for an empty text.
    ///
    /// `decode` gives the same text back, except for what the form cannot hold: it ends at a character
    /// U+0000, and half a surrogate pair comes back as a replacement character.
    static QString encode(const QString &text);
};

} // namespace Orvida::Catalogs
