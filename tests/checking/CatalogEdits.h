// Random edits of a catalog, and what a comparison should say of them.
#pragma once

#include <QByteArray>
#include <QPair>
#include <QRandomGenerator>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

namespace Orvida::Tests {

/// A catalog in the readable form as a list of records, which can be edited. Edits do not get in each other's
/// way: no code and no list is edited twice. The same seed gives the same edits.
class CatalogEdits
{
public:
    CatalogEdits(const QByteArray &catalog, quint32 seed);

    /// Makes `count` edits of kinds chosen at random, and raises the version.
    void editSome(int count);
    /// Puts records, and the fields in them, into another order.
    void shuffle();

    QByteArray xml() const;
    /// A line "id code column list value" for each change that was made.
    QStringList expected() const { return m_expected; }
    /// Lines for those changes that are additions and removals, seen from the other edition.
    QStringList mirrored() const { return m_mirrored; }
    /// Whether a line is of such a change.
    static bool isMirrored(const QString &line);

private:
    struct Record
    {
        QString kind;
        QVector<QPair<QString, QString>> fields;

        QString value(const QString &name) const;
        void set(const QString &name, const QString &value);
        bool isCode() const;
        /// "BC_" or "CE_"
        QString prefix() const
        {
            return kind == QLatin1String("BASECODE") ? QStringLiteral("BC_") : QStringLiteral("CE_");
        }
        QString key() const { return value(prefix() + QStringLiteral("PK")); }
        QString code() const { return value(prefix() + QStringLiteral("Code")); }
        QString parent() const;
        QString item() const;
    };
    using Fits = std::function<bool(const Record &)>;

    void expect(const char *id, const QString &code, const QString &column = {}, const QString &list = {},
                const QString &value = {});
    int pick(const Fits &fits);
    int pickCode(const Fits &fits);
    int pickField(const Fits &fits);
    int pickEntry();
    int childCount(const QString &key) const;
    QString codeOf(const Record &field) const;
    const Record *listOf(const Record &entry) const;

    void changeText(const char *field, const char *addition, const char *id);
    void changeFlags();
    void renameCode();
    void removeLeaf();
    void addLeaf();
    void removeField();
    void addField();
    void changeField(const char *field, const char *value, const char *id);
    void flipMandatory();
    void moveLimit(int by, const char *id);
    void changeEntry();
    void addEntry();
    void removeEntry();
    void changeExportId();
    void flipTransport();
    void changeDefectCode();
    void addProfile();

    QRandomGenerator m_random;
    QVector<Record> m_records;
    QSet<QString> m_touched;
    QStringList m_expected;
    QStringList m_mirrored;
};

} // namespace Orvida::Tests
