// From what an item makes its input fields when a profile is first asked for. For the library's own use.
#pragma once

#include "catalogs/model/CatalogInputField.h"
#include "shared/ListItem.h"

#include <QHash>
#include <QList>
#include <QString>

namespace Orvida::Catalogs {

/// One input field as all profiles see it.
///
/// A code has a field for every profile, and the fields differ in little; an inspector works with one
/// profile. So loading fills the field once, and an item copies it for the profiles that are asked for. The
/// tables are shared: by all templates with one column, and by all with one list class.
struct FieldTemplate
{
    /// How a profile shows the field.
    struct Appearance
    {
        bool isReadonly = false;
        bool isVisible = false;
    };

    /// Everything that is the same in all profiles.
    CatalogInputField field;
    /// The profiles that have the field.
    QHash<QString, Appearance> appearances;
    /// The allowed values by profile; none where a profile is missing or its list is empty.
    QHash<QString, QList<Shared::ListItem>> lists;

    /// Appends the field of `profile` to `fields`; nothing when the profile does not have it.
    void appendTo(QList<CatalogInputField> &fields, const QString &profile) const;
};

} // namespace Orvida::Catalogs
