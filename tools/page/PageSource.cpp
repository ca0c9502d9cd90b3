#include "tools/page/PageSource.h"

#include "tools/DisplayOrder.h"

namespace Orvida::Tools {

PageSource::PageSource(CatalogFile &catalogFile, bool isChecked)
    : file(catalogFile),
      chosenProfile(file.catalog().profile()),
      profiles(file.profiles()),
      items(displayedItems(file.catalog()).mid(1)),
      itemsInTree(countItems(file.catalog().getItemById(QString()))),
      anchors(items),
      origins(file.records()),
      findings(file, anchors, isChecked)
{
}

QString PageSource::namesOf(const QVector<int> &numbers) const
{
    QStringList names;
    for (const int number : numbers)
        names << profiles.at(number);
    return names.join(QStringLiteral(", "));
}

} // namespace Orvida::Tools
