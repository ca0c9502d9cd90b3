// The one layout of catalog files.
#pragma once

#include "tools/FileFailure.h"
#include "tools/Messages.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace Orvida::Tools {

/// Lays out a catalog file: two spaces per level, one field per line, but up to six fields on one line where
/// they were on one, fields in the order of the format. Only white space between elements and the order of
/// the fields in a record change. Comments stay with what they are above or beside of. A record with anything
/// in it but fields and comments is kept as it is.
class CatalogLayout
{
public:
    explicit CatalogLayout(const QByteArray &document);

    /// Why the file cannot be laid out; none when it can.
    const std::optional<FileFailure> &failure() const { return m_failure; }

    /// Why the file as a whole is kept as it is, and where; empty when it is not.
    const QString &obstacle() const { return m_obstacle; }
    FilePosition obstaclePosition() const { return m_obstaclePosition; }

    /// The file in its new layout, byte for byte as it was when nothing had to change.
    const QByteArray &document() const { return m_document; }

private:
    std::optional<FileFailure> m_failure;
    QString m_obstacle;
    FilePosition m_obstaclePosition;
    QByteArray m_document;
};

} // namespace Orvida::Tools
