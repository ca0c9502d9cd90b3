// The host's name for identifiers.
#pragma once

#include <QString>

namespace Orvida::Base {

/// An identifier, such as that of a catalog. Compared exactly, letter case included.
using GUID = QString;

} // namespace Orvida::Base
