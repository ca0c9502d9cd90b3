// Changes between two editions of a catalog, for people.
#pragma once

#include "checking/CatalogComparison.h"
#include "tools/OutputStyle.h"

#include <QString>
#include <QTextStream>

namespace Orvida::Tools {

/// "breaking", "review", "addition", "wording" or "hidden".
QString className(Checking::CatalogChangeClass changeClass);

/// What a kind of change means.
void printKind(QTextStream &out, const OutputStyle &style, const Checking::CatalogChangeKind &kind);

/// Prints a comparison: a summary, then a line for each change.
class ChangeText
{
public:
    /// `comparison` has compared two files that load.
    ChangeText(QTextStream &out, const OutputStyle &style, const Checking::CatalogComparison &comparison);

    /// Hidden changes are only counted, unless `listsAll` is true.
    void print(bool listsAll);

private:
    QString summary() const;
    void printErrors();
    void printSection(const QString &title, const QVector<Checking::CatalogChange> &changes);
    QString lineOf(const Checking::CatalogChange &change, int width) const;
    QString profilesText(const Checking::CatalogChange &change) const;
    QString placeText(const Checking::CatalogChange &change) const;

    QTextStream &m_out;
    const OutputStyle m_style;
    const Checking::CatalogComparison &m_comparison;
    /// By what the editions are told apart: their versions, where these do.
    QString m_oldLabel = QStringLiteral("old");
    QString m_newLabel = QStringLiteral("new");
};

} // namespace Orvida::Tools
