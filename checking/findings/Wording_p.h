// How findings quote a file. For the checker's own use.
#pragma once

#include <QString>
#include <QStringView>

namespace Orvida::Checking {

/// A text as messages show it: control characters escaped, cut to 60 characters.
QString shown(QStringView text);
/// The same in quotation marks.
QString quoted(QStringView text);
/// An element's name as a tag.
QString tag(QStringView name);
/// "1 field", "2 fields": a number with what it counts.
QString counted(int count, const char *noun);
QString counted(int count, const char *noun, const char *plural);

} // namespace Orvida::Checking
