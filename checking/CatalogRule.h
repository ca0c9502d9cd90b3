// A rule that catalog files are checked by. Plain values.
#pragma once

#include "checking/CatalogFinding.h"

namespace Orvida::Checking {

/// What a rule demands of a catalog file, and why. Ids never change their meaning.
struct CatalogRule
{
    QString id;
    /// What the rule belongs to, such as "Keys".
    QString group;
    /// One line: what is wrong with a file that breaks the rule.
    QString summary;
    /// What exactly is looked at, and why it matters; one paragraph.
    QString explanation;
    /// A piece of a catalog in its readable form that breaks the rule, and the same piece put right: records
    /// to be put into a root element, or a whole file if it has one.
    QString before;
    QString after;
    /// The severity of its findings; some are milder where the explanation says so.
    CatalogSeverity severity = CatalogSeverity::Error;
    bool isOnByDefault = true;
    /// Whether a file that breaks the rule does not load. Such a rule cannot be turned off or lowered.
    bool refuses = false;
};

} // namespace Orvida::Checking
