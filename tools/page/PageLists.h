// The value lists on the page of a catalog, each once with its variants by profile.
#pragma once

#include "shared/ListItem.h"
#include "tools/page/HtmlWriter.h"
#include "tools/page/PageSource.h"
#include "tools/page/ProfileVariants.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QPair>
#include <QString>
#include <QStringList>

namespace Orvida::Tools {

/// Gathers the lists while the forms are written. A loaded catalog holds lists only in its fields.
class PageLists
{
public:
    using Entries = QList<Shared::ListItem>;

    /// Every list that the file defines, without its entries.
    explicit PageLists(const PageSource &source);

    /// A field of the item with the anchor `user` has these entries of the list `classId` in `profile`.
    void add(const QString &classId, int profile, const Entries &entries, const QString &user);

    /// Writes an article for every list. Of a list without fields nothing is recorded: its texts are shown.
    void write(HtmlWriter &out) const;

private:
    struct List
    {
        QMap<int, Entries> entries; // by profile
        QStringList users;          // anchors, the first of them
        int userCount = 0;
        QString lastUser;
    };

    void writeList(const QString &classId, const List &list, HtmlWriter &out) const;
    Entries textsOf(const QString &classId, const QString &profile) const;

    const PageSource &m_source;
    QMap<QString, List> m_lists; // by class id
    // Key of the list class by class id and profile; of several, the last one counts.
    QHash<QPair<QString, QString>, QString> m_keys;
};

} // namespace Orvida::Tools
