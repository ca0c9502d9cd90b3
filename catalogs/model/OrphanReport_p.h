// The report of items whose parent is missing. For relation building only.
#pragma once

#include <QString>

namespace Orvida::Catalogs {

class CatalogItem;

/// Gathers one message per orphan and writes them all at once, so that a pass over a large catalog does not
/// wait for standard output in its middle, and reports of several loads do not mix.
class OrphanReport
{
public:
    explicit OrphanReport(const QString &catalogId) : m_catalogId(catalogId) {}

    void add(const CatalogItem &item);

    /// Writes what was added to standard output, in the locale's encoding, and flushes it; nothing when there
    /// was no orphan.
    void write() const;

private:
    const QString m_catalogId;
    QString m_text;
};

} // namespace Orvida::Catalogs
