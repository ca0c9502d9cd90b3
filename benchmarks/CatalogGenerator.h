// Generates catalogs of any size for benchmarks: the same bytes for the same seed and size.
#pragma once

#include <QIODevice>
#include <QRandomGenerator>
#include <QString>
#include <QXmlStreamWriter>

namespace Orvida::Benchmarks {

/// Writes a catalog with the proportions of real ones: 4 profiles with 40 columns each, then code classes
/// until the size is reached. A class has 10 base codes with 4 character extensions each, a parameter and a
/// parameter extension for every code, and in every profile a list of 20 values.
class CatalogGenerator
{
public:
    /// Where in the file the catalog information, with the style, is.
    enum class StylePlace { First, Last };

    explicit CatalogGenerator(quint32 seed) : m_random(seed) {}

    /// Writes a catalog of about `size` bytes, at least one code class, to `output`, which is open.
    void write(QIODevice &output, qint64 size, StylePlace stylePlace);

private:
    struct Field;

    void writeRecord(const char *element, std::initializer_list<Field> fields);
    void writeStyle();
    void writeProfiles();
    void writeCodeClass(int number);
    void writeLists(const QString &listId);
    void writeField(const char *itemField, const QString &itemId, const QString &listId);
    QString words(int count);
    QString anyOf(std::initializer_list<const char *> choices);
    int below(int bound) { return m_random.bounded(bound); }

    QRandomGenerator m_random;
    QXmlStreamWriter m_writer;
    int m_codes = 0;
};

} // namespace Orvida::Benchmarks
