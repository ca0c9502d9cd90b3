#include "catalogs/model/FieldTemplate_p.h"

namespace Orvida::Catalogs {

void FieldTemplate::appendTo(QList<CatalogInputField> &fields, const QString &profile) const
{
    const auto appearance = appearances.constFind(profile);
    if (appearance == appearances.constEnd())
        return;
    fields.append(field);
    CatalogInputField &added = fields.last();
    added.setIsReadonly(appearance->isReadonly);
    added.setIsVisible(appearance->isVisible);
    const auto entries = lists.constFind(profile);
    if (entries != lists.constEnd() && !entries->isEmpty())
        added.setItemList(*entries);
}

} // namespace Orvida::Catalogs
