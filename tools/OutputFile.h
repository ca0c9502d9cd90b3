// A file that a command was told to write, or standard output.
#pragma once

#include <QByteArray>
#include <QString>

namespace Orvida::Tools {

/// Where a document is to go. A file is written whole or not at all: what is there stays as it is until the
/// new document is complete. Devices and pipes are written into, and never replaced.
class OutputFile
{
public:
    /// The file `name`; "-" stands for standard output.
    explicit OutputFile(const QString &name) : m_name(name) {}

    /// The file as messages name it.
    QString name() const;

    /// Whether it is a device or a pipe, or standard output.
    bool isStream() const;

    /// Whether it is the file `input` under whatever name; "-" stands for standard input.
    bool isSameAs(const QString &input) const;

    /// Writes `document`, and gives the exit status of the process: `status`, or `NotReadable` with a message
    /// on standard error when it could not be written.
    int write(const QByteArray &document, int status) const;

private:
    bool isStandardOutput() const;

    QString m_name;
};

} // namespace Orvida::Tools
