// The catalog's kind of list entry. Needs the host's list entry and logger only, so that the reader's
// records may name it.
#pragma once

#include "catalogs/CatalogsExport.h"
#include "shared/ListItem.h"

#include <QString>

namespace Orvida::Catalogs {

/// An entry of a value list, with the name of the placeholder that it fills.
///
/// A value type. Put into a `QList<Shared::ListItem>` it is stored without its placeholder.
class ORVIDA_CATALOGS_EXPORT CatalogListItem : public Shared::ListItem
{
public:
    /// An entry that stores the string `key` as its value.
    ///
    /// Writes a debug message of the category "CatalogListItem"; for a key that is empty or only white
    /// space an error message as well: the entry is made all the same. Any text may be empty. Any thread
    /// may call it.
    CatalogListItem(const QString &key, const QString &caption, const QString &itemText,
                    const QString &placeHolder);

    /// The placeholder name that was set last; valid as long as the entry.
    const QString &placeHolder() const { return m_placeHolder; }
    /// Replaces the placeholder name; any text is stored as it is.
    void setPlaceHolder(const QString &placeHolder) { m_placeHolder = placeHolder; }

private:
    QString m_placeHolder;
};

} // namespace Orvida::Catalogs
