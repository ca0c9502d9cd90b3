#include "tools/page/CatalogPage.h"

#include "tools/page/PageForms.h"
#include "tools/page/PageLists.h"
#include "tools/page/PageProfiles.h"
#include "tools/page/PageTree.h"
#include "tools/page/PrintHeads.h"

#include <QCryptographicHash>
#include <QFile>
#include <QtGlobal>

// A resource of a static library has to be named, or the linker leaves it out.
static void initializeResources()
{
    Q_INIT_RESOURCE(page);
}

namespace Orvida::Tools {

namespace {

QByteArray resource(const char *name)
{
    initializeResources();
    QFile file(QStringLiteral(":/page/") + QLatin1String(name));
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

// By which the page's own security policy knows what is its own.
QByteArray hashOf(const QByteArray &content)
{
    return QCryptographicHash::hash(content, QCryptographicHash::Sha256).toBase64();
}

} // namespace

const CatalogPage::Part CatalogPage::parts[] = {
    {"title", &CatalogPage::writeTitle},
    {"language", &CatalogPage::writeLanguage},
    {"style", &CatalogPage::writeStyle},
    {"styleHash", &CatalogPage::writeStyleHash},
    {"script", &CatalogPage::writeScript},
    {"scriptHash", &CatalogPage::writeScriptHash},
    {"profileOptions", &CatalogPage::writeProfileOptions},
    {"tree", &CatalogPage::writeTree},
    {"overview", &CatalogPage::writeOverview},
    {"profiles", &CatalogPage::writeProfiles},
    {"formsAndLists", &CatalogPage::writeFormsAndLists},
    {"defectCodes", &CatalogPage::writeDefectCodes},
    {"findings", &CatalogPage::writeFindings},
};

QByteArray CatalogPage::make()
{
    const QByteArray frame = resource("page.html");
    int end = 0;
    for (int start = frame.indexOf("{{"); start >= 0; start = frame.indexOf("{{", end)) {
        m_out.addMarkup(frame.mid(end, start - end));
        end = frame.indexOf("}}", start) + 2;
        writePart(frame.mid(start + 2, end - start - 4));
    }
    m_out.addMarkup(frame.mid(end));
    return m_out.page();
}

void CatalogPage::writePart(const QByteArray &name)
{
    for (const Part &part : parts) {
        if (name == part.name)
            (this->*part.write)();
    }
}

void CatalogPage::writeTitle()
{
    m_out << m_overview.title();
}

void CatalogPage::writeLanguage()
{
    m_out << m_overview.language();
}

QByteArray CatalogPage::style() const
{
    return resource("page.css") + printHeads(m_source, m_overview.edition());
}

void CatalogPage::writeStyle()
{
    m_out.addMarkup(style());
}

void CatalogPage::writeStyleHash()
{
    m_out.addMarkup(hashOf(style()));
}

void CatalogPage::writeScript()
{
    m_out.addMarkup(resource("page.js"));
}

void CatalogPage::writeScriptHash()
{
    m_out.addMarkup(hashOf(resource("page.js")));
}

void CatalogPage::writeProfileOptions()
{
    Tools::writeProfileOptions(m_source, m_out);
}

void CatalogPage::writeTree()
{
    Tools::writeTree(m_source, m_out);
}

void CatalogPage::writeOverview()
{
    m_overview.write(m_out);
}

void CatalogPage::writeProfiles()
{
    writeProfilePage(m_source, m_out);
}

void CatalogPage::writeFormsAndLists()
{
    PageLists lists(m_source);
    PageForms(m_source, lists).write(m_out);
    m_out << "<section id=\"_lists\"><h2>Lists</h2><noscript>\n";
    lists.write(m_out);
    m_out << "</noscript></section>\n";
}

void CatalogPage::writeDefectCodes()
{
    Tools::writeDefectCodes(m_source, m_out);
}

void CatalogPage::writeFindings()
{
    if (!m_source.findings.isChecked())
        return;
    m_out << "<section id=\"_findings\"><h2>Findings</h2>\n";
    m_source.findings.writeAll(m_out);
    m_out << "</section>\n";
}

} // namespace Orvida::Tools
