#include "tools/CheckReport.h"

namespace Orvida::Tools {

CheckReport::~CheckReport() = default;

} // namespace Orvida::Tools
