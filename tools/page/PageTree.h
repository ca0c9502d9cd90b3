// The tree of codes and lists on the page of a catalog.
#pragma once

#include "tools/page/HtmlWriter.h"
#include "tools/page/PageSource.h"

namespace Orvida::Tools {

/// Writes the entries of the tree: the pages that are no forms, the codes, the lists. What is below a class
/// is in a noscript element, of which a script makes a branch when it is unfolded.
void writeTree(const PageSource &source, HtmlWriter &out);

} // namespace Orvida::Tools
