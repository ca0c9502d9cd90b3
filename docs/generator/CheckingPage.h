// The rules in docs/checking.md, written from the checker's own table.
#pragma once

#include <QString>
#include <QStringList>

namespace Orvida::Docs {

/// `page` with its list of rules and all that there is to say of each made anew. `absent` gets the names of
/// the parts that it has no place for.
QString checkingPage(const QString &page, QStringList &absent);

} // namespace Orvida::Docs
