// What a check says about one fault of a catalog file. Plain values.
#pragma once

#include <QString>
#include <QVector>

namespace Orvida::Checking {

/// How bad a finding is.
enum class CatalogSeverity {
    Error,   ///< The file does not load, or something in it does not load as it was written.
    Warning, ///< It loads, but surely not as intended, or what a host shows of it is left to chance.
    Note,    ///< Style, or possibly intended.
};

/// Another place that has to do with a finding. Line and column are counted as those of a finding.
struct CatalogRelated
{
    qint64 line = 0;
    qint64 column = 0;
    QString message;
};

/// A fault, and where it is. Texts are English; hosts that want other words build them from `rule` and the
/// other members.
struct CatalogFinding
{
    /// Id of the rule that was broken, such as "unknown-item"; `CatalogChecker::rule` has more on it.
    QString rule;
    CatalogSeverity severity = CatalogSeverity::Error;
    /// Where it begins, both from 1: right after the start tag of the record or field in question, which is
    /// where a field's text begins. Columns count UTF-16 code units, a tab as one. 1:1 means the whole
    /// file.
    qint64 line = 1;
    qint64 column = 1;
    /// After the last character of the field's text; otherwise the beginning.
    qint64 endLine = 1;
    qint64 endColumn = 1;
    /// What is wrong, in one line without a full stop.
    QString message;
    /// How to fix it; may be empty.
    QString hint;
    /// Element names of the record and the field, and the key of the record, as far as there are any.
    QString record;
    QString field;
    QString key;
    /// How often the same fault was met: findings of one rule with one subject are one finding, at the first
    /// place.
    int count = 1;
    /// How many further records suffer from it: codes below a lost one, fields that are not built.
    int affected = 0;
    /// Up to five other places: further ones of the same fault, or those that the fault has to do with.
    QVector<CatalogRelated> related;
};

} // namespace Orvida::Checking
