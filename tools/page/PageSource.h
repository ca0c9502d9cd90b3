// What all parts of the page of a catalog are made from.
#pragma once

#include "tools/CatalogFile.h"
#include "tools/FieldOrigins.h"
#include "tools/page/PageAnchors.h"
#include "tools/page/PageFindings.h"

#include <QList>
#include <QStringList>

namespace Orvida::Tools {

/// A loaded catalog with what the parts of its page look up.
struct PageSource
{
    PageSource(CatalogFile &catalogFile, bool isChecked);

    /// Names of the profiles with these numbers, as a text.
    QString namesOf(const QVector<int> &numbers) const;

    CatalogFile &file;
    /// The profile that a load chooses; the catalog's own changes while its fields are read.
    const QString chosenProfile;
    /// In the page, a profile is its number in this list.
    const QStringList profiles;
    /// In the order of the page, without the root: those of the tree, then the others.
    const QList<QSharedPointer<Catalogs::CatalogItem>> items;
    const int itemsInTree;
    const PageAnchors anchors;
    const FieldOrigins origins;
    const PageFindings findings;
};

} // namespace Orvida::Tools
