// Catalog files made to hurt a reader: deep, wide, long, looping, in the worst order.
#pragma once

#include <QByteArray>
#include <QVector>

namespace Orvida::Tests {

/// One kind of hostile file, of any size.
struct HostileFile
{
    const char *name;
    /// How many of what hurts: to measure with, and in the suite.
    int count;
    int quickCount;
    QByteArray (*content)(int count);
    /// Whether it loads, and the items of the catalog besides `count` times `itemsPerCount`.
    bool isLoaded = true;
    int itemsPerCount = 0;
    int moreItems = 1;
    /// Names the profiles P0, P1 and so on, `count` of them; otherwise P0 alone.
    bool hasManyProfiles = false;
};

/// A catalog with every kind of record, of about a kilobyte.
QByteArray smallCatalog();

/// All kinds, in the order of the table that is printed of them.
const QVector<HostileFile> &hostileFiles();

} // namespace Orvida::Tests
