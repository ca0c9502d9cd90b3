#include "tools/page/PageOverview.h"

#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>

namespace Orvida::Tools {

namespace {

using Format = Catalogs::CatalogFormat;

// Not QXmlStreamReader::readNextStartElement(), which stops at the end of each record.
bool findRecord(QXmlStreamReader &reader, QLatin1String name)
{
    while (reader.readNext() != QXmlStreamReader::Invalid && !reader.isEndDocument()) {
        if (reader.isStartElement() && reader.name() == name)
            return true;
    }
    return false;
}

void writeRow(const QString &label, const QString &text, HtmlWriter &out)
{
    out << "<tr><th scope=\"row\">" << label << "<td>" << text << "\n";
}

} // namespace

PageOverview::PageOverview(const PageSource &source) : m_source(source)
{
    QFile file(source.file.path());
    if (!file.open(QIODevice::ReadOnly))
        return;
    QXmlStreamReader reader(&file);
    if (!findRecord(reader, QLatin1String("CATALOG")))
        return;
    while (reader.readNextStartElement()) {
        const Format::Field *field = Format::field(reader.name());
        const QString text = reader.readElementText(QXmlStreamReader::SkipChildElements);
        if (field && !text.isEmpty())
            m_fields.append({field, text});
    }
}

QString PageOverview::title() const
{
    const QString ownName = edition();
    return ownName.isEmpty() ? m_source.file.shortName() : ownName;
}

QString PageOverview::edition() const
{
    const QString key = valueOf(QLatin1String("CAT_PK"));
    const QString version = valueOf(QLatin1String("CAT_Version"));
    return key.isEmpty() || version.isEmpty() ? key : key + QLatin1Char(' ') + version;
}

QString PageOverview::language() const
{
    static const QRegularExpression tag(QStringLiteral("\\A[A-Za-z]{2,8}(-[A-Za-z0-9]{1,8})*\\z"));
    const QString language = valueOf(QLatin1String("CAT_Language"));
    return tag.match(language).hasMatch() ? language : QString();
}

void PageOverview::write(HtmlWriter &out) const
{
    m_source.findings.writeOf(QStringLiteral("_overview"), out);
    out << "<table>\n";
    for (const auto &field : m_fields) {
        if (field.first->name != QLatin1String("CAT_Style"))
            writeRow(QString(field.first->meaning).chopped(1), field.second, out);
    }
    writeRow(QStringLiteral("Supports 3D"),
             m_source.file.supports3D() ? QStringLiteral("yes") : QStringLiteral("no"), out);
    writeRow(QStringLiteral("Items"), QString::number(m_source.items.size()), out);
    writeRow(QStringLiteral("Profiles"), QString::number(m_source.profiles.size()), out);
    out << "</table>\n";
}

QString PageOverview::valueOf(QLatin1String field) const
{
    for (const auto &candidate : m_fields) {
        if (candidate.first->name == field)
            return candidate.second;
    }
    return QString();
}

} // namespace Orvida::Tools
