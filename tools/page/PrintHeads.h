// What stands in the margins of the printed page.
#pragma once

#include "tools/page/PageSource.h"

#include <QByteArray>
#include <QString>

namespace Orvida::Tools {

/// Whether a section of the page begins with the item at `index`: a class of the tree with all below it, or
/// what is outside the tree.
bool beginsSection(const PageSource &source, int index);

/// Rules of style that print `edition`, a text, above every page, and beside it the class that the page
/// belongs to. The sections have the classes "s1", "s2" and so on.
QByteArray printHeads(const PageSource &source, const QString &edition);

} // namespace Orvida::Tools
