// One catalog file, checked.
#pragma once

#include "checking/CatalogChecker.h"
#include "tools/InputFile.h"

#include <QMap>
#include <QString>
#include <QVector>

#include <array>
#include <memory>

namespace Orvida::Tools {

using Checking::CatalogFinding;
using Checking::CatalogSeverity;

/// What a check finds in a file that the user names.
class CheckedFile
{
public:
    /// How files are checked.
    struct Options
    {
        bool isReadable = false;
        bool areWarningsErrors = false;
        /// Whether findings of a rule are listed without limit.
        bool listsAll = false;
        /// The mildest findings that are listed; all are counted.
        CatalogSeverity least = CatalogSeverity::Note;
        /// By the id of the rule.
        QMap<QString, Checking::CatalogChecker::Level> levels;
    };

    /// Checks a file; "-" stands for standard input.
    CheckedFile(const QString &fileName, const Options &options);

    /// The file as reports name it.
    const QString &name() const { return m_name; }
    /// What was checked can be read here, from its start, while the object lives.
    const QString &path() const { return m_path; }
    /// The form that the file was taken to be in.
    bool isReadable() const { return m_isReadable; }

    /// Whether the file could be read to its end, whatever it holds.
    bool isRead() const { return m_isRead; }
    /// Whether a host can load it; of the readable form: once it is scrambled.
    bool loads() const { return m_loads; }
    /// By line, column and rule.
    const QVector<CatalogFinding> &findings() const { return m_findings; }
    /// How many findings of a severity there are, listed or not.
    int count(CatalogSeverity severity) const { return m_counts[std::size_t(severity)]; }
    /// How many findings are not listed although they are not too mild.
    int unlistedCount() const { return m_unlistedCount; }

private:
    void check(const Options &options);
    void addUnread(const FileFailure &failure);
    void takeWarningsForErrors();
    void leaveOutMilderThan(CatalogSeverity least);

    QString m_name;
    QString m_path;
    bool m_isReadable = false;
    bool m_isRead = false;
    bool m_loads = false;
    QVector<CatalogFinding> m_findings;
    std::array<int, 3> m_counts{};
    int m_unlistedCount = 0;
    std::unique_ptr<InputFile> m_copy; ///< of what can be read only once
};

} // namespace Orvida::Tools
