// The findings of a check, beside what they concern on the page of a catalog.
#pragma once

#include "checking/CatalogFinding.h"
#include "tools/CatalogFile.h"
#include "tools/page/HtmlWriter.h"
#include "tools/page/PageAnchors.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

namespace Orvida::Tools {

/// Checks a catalog and finds where on its page each finding belongs.
class PageFindings
{
public:
    /// Without `isChecked` there are no findings.
    PageFindings(CatalogFile &file, const PageAnchors &anchors, bool isChecked);

    /// Writes the findings that concern what has the anchor `anchor`; nothing when there are none.
    void writeOf(const QString &anchor, HtmlWriter &out) const;

    /// Writes all findings, with links to what they concern.
    void writeAll(HtmlWriter &out) const;

    int count() const { return m_findings.size(); }
    bool isChecked() const { return m_isChecked; }

private:
    void write(int index, HtmlWriter &out) const;

    const bool m_isChecked;
    QVector<Checking::CatalogFinding> m_findings;
    QVector<QStringList> m_places;           // anchors by finding
    QHash<QString, QVector<int>> m_byAnchor; // findings by anchor, in their order
};

} // namespace Orvida::Tools
