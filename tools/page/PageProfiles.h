// The profiles of a catalog side by side.
#pragma once

#include "tools/page/HtmlWriter.h"
#include "tools/page/PageSource.h"

namespace Orvida::Tools {

/// Writes the profiles, and for each column what each profile does with its fields.
void writeProfilePage(const PageSource &source, HtmlWriter &out);

/// Writes the continuous-defect codes, each table once with the profiles that have it.
void writeDefectCodes(const PageSource &source, HtmlWriter &out);

/// Writes the options of a choice of profile: all, and each of them; the chosen one is selected.
void writeProfileOptions(const PageSource &source, HtmlWriter &out);

} // namespace Orvida::Tools
