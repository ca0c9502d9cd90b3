// A catalog as one page of HTML that needs nothing else.
#pragma once

#include "tools/page/HtmlWriter.h"
#include "tools/page/PageOverview.h"
#include "tools/page/PageSource.h"

#include <QByteArray>

namespace Orvida::Tools {

/// Makes the page. Its frame, look and script are the files page.html, page.css and page.js, which are
/// compiled in;
/// {{name}} in the frame stands for a part of the page.
class CatalogPage
{
public:
    /// Uses `file`, which is loaded, up: the fields of its catalog are gone afterwards. With `isChecked` the
    /// page shows what a check finds.
    CatalogPage(CatalogFile &file, bool isChecked) : m_source(file, isChecked), m_overview(m_source) {}

    /// The page in UTF-8; called once.
    QByteArray make();

private:
    struct Part
    {
        const char *name;
        void (CatalogPage::*write)();
    };
    static const Part parts[];

    void writePart(const QByteArray &name);
    void writeTitle();
    void writeLanguage();
    QByteArray style() const;
    void writeStyle();
    void writeStyleHash();
    void writeScript();
    void writeScriptHash();
    void writeProfileOptions();
    void writeTree();
    void writeOverview();
    void writeProfiles();
    void writeFormsAndLists();
    void writeDefectCodes();
    void writeFindings();

    PageSource m_source;
    PageOverview m_overview;
    HtmlWriter m_out;
};

} // namespace Orvida::Tools
