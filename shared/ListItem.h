// One allowed value of an input field. A plain value class; header only.
#pragma once

#include <QString>
#include <QVariant>

namespace Orvida::Shared {

/// An entry of a value list: what is stored when the inspector picks it, and how it reads.
///
/// Entries are copied freely; a derived class that is put into a `QList<ListItem>` is stored as its
/// `ListItem` part. Any text may be empty.
class ListItem
{
public:
    /// An entry that stores `value` and shows `caption`, with `itemText` beside it.
    ListItem(const QVariant &value, const QString &caption, const QString &itemText)
        : m_value(value), m_caption(caption), m_itemText(itemText)
    {
    }

    /// What is stored for the entry; catalogs always store a string.
    const QVariant &value() const { return m_value; }
    /// The entry's caption.
    const QString &caption() const { return m_caption; }
    /// The entry's item text.
    const QString &itemText() const { return m_itemText; }

private:
    QVariant m_value;
    QString m_caption;
    QString m_itemText;
};

} // namespace Orvida::Shared
