#include "MainWindow.h"

#include "CodeForm.h"
#include "FindingsDock.h"
#include "catalogs/access/CatalogConfigData.h"

#include <QAction>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QScrollArea>
#include <QSplitter>
#include <QStatusBar>
#include <QTreeView>
#include <QVBoxLayout>

using namespace Orvida::Catalogs;
using namespace Orvida::Models;

PathsAsIdentifiers::PathsAsIdentifiers()
{
    CatalogConfigData::setCatalogFileNameProvider(this);
}

PathsAsIdentifiers::~PathsAsIdentifiers()
{
    CatalogConfigData::setCatalogFileNameProvider(nullptr);
}

MainWindow::MainWindow()
    : m_searchEdit(new QLineEdit),
      m_treeView(new QTreeView),
      m_profileBox(new QComboBox),
      m_form(new CodeForm),
      m_findings(new FindingsDock(this))
{
    setWindowTitle(tr("Catalog viewer"));
    resize(1100, 760);
    m_search.setSourceModel(&m_tree);
    m_treeView->setModel(&m_search);
    auto *splitter = new QSplitter;
    splitter->addWidget(makeTreeSide());
    splitter->addWidget(makeFormSide());
    splitter->setSizes({500, 600});
    setCentralWidget(splitter);
    addDockWidget(Qt::BottomDockWidgetArea, m_findings);
    makeMenu();

    connect(&m_fetcher, &CatalogFetcher::fetched, this,
            [this](int, const CatalogSptr &catalog) { showCatalog(catalog); });
    connect(&m_fetcher, &CatalogFetcher::failed, this,
            [this](int, const QString &id, const CatalogReadFailure &failure) { showFailure(id, failure); });
    connect(&m_tree, &CatalogTreeModel::profileChanged, m_form, &CodeForm::rebuild);
}

// The view is destroyed after the models.
MainWindow::~MainWindow()
{
    m_treeView->setModel(nullptr);
}

void MainWindow::openFile(const QString &fileName)
{
    m_fetcher.cancel(m_request);
    const QString path = QFileInfo(fileName).absoluteFilePath();
    m_request = m_fetcher.fetch(path);
    m_findings->check(path);
    statusBar()->showMessage(tr("Loading %1").arg(path));
}

void MainWindow::chooseFile()
{
    const QString fileName = QFileDialog::getOpenFileName(this, tr("Open a catalog"), QString(),
                                                          tr("Catalogs (*.xml);;All files (*)"));
    if (!fileName.isEmpty())
        openFile(fileName);
}

void MainWindow::showCatalog(const CatalogSptr &catalog)
{
    m_form->setItem(catalog, nullptr);
    m_tree.setCatalog(catalog);
    setWindowTitle(tr("%1 – Catalog viewer").arg(QFileInfo(catalog->catalogId()).fileName()));
    statusBar()->showMessage(tr("%n codes", nullptr, catalog->codes().size()));
    showProfiles();
    m_treeView->expandToDepth(0);
    m_treeView->setFocus();
    m_treeView->setCurrentIndex(m_search.index(0, 0));
    Q_EMIT opened(true);
}

void MainWindow::showFailure(const QString &fileName, const CatalogReadFailure &failure)
{
    statusBar()->showMessage(QFileInfo(fileName).fileName() + ": " + failure.text());
    Q_EMIT opened(false);
}

void MainWindow::showProfiles()
{
    const QSignalBlocker blocker(m_profileBox);
    m_profileBox->clear();
    for (const CatalogProfile &profile : m_tree.catalog()->profiles())
        m_profileBox->addItem(profile.description.isEmpty() ? profile.key : profile.description, profile.key);
    m_profileBox->setCurrentIndex(m_profileBox->findData(m_tree.profile()));
}

void MainWindow::search(const QString &text)
{
    m_search.setSearchText(text);
    if (text.trimmed().isEmpty())
        return;
    m_treeView->expandAll();
    statusBar()->showMessage(tr("%n matches", nullptr, m_search.matchCount()));
    selectBestMatch(text.trimmed());
}

// The code that was typed, else the first match.
void MainWindow::selectBestMatch(const QString &text)
{
    for (const QString &code : {text, text.toUpper()}) {
        const QModelIndex index = m_search.mapFromSource(m_tree.indexOfCode(code));
        if (index.isValid())
            return m_treeView->setCurrentIndex(index);
    }
    for (QModelIndex index = m_search.index(0, 0); index.isValid(); index = m_treeView->indexBelow(index)) {
        if (index.data(CatalogSearchModel::IsMatchRole).toBool()) {
            m_treeView->setCurrentIndex(index);
            return;
        }
    }
}

void MainWindow::showCurrentItem()
{
    m_form->setItem(m_tree.catalog(), CatalogTreeModel::itemAt(m_treeView->currentIndex()));
}

void MainWindow::makeMenu()
{
    QMenu *file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&Open…"), this, &MainWindow::chooseFile, QKeySequence::Open);
    file->addAction(tr("&Quit"), this, &QWidget::close, QKeySequence::Quit);
    QMenu *go = menuBar()->addMenu(tr("&Go"));
    const auto focus = [this](QWidget *widget) {
        return [widget] { widget->setFocus(Qt::ShortcutFocusReason); };
    };
    go->addAction(tr("&Search"), this, focus(m_searchEdit), QKeySequence::Find);
    go->addAction(tr("&Codes"), this, focus(m_treeView), QKeySequence(tr("Ctrl+T")));
    go->addAction(tr("&Profile"), this, focus(m_profileBox), QKeySequence(tr("Ctrl+P")));
    go->addAction(
        tr("&Form"), this, [this] { m_form->focusFirstField(); }, QKeySequence(tr("Ctrl+E")));
    menuBar()->addAction(m_findings->toggleViewAction());
}

QWidget *MainWindow::makeTreeSide()
{
    m_searchEdit->setPlaceholderText(tr("Search codes, captions, remarks and list values (Ctrl+F)"));
    m_searchEdit->setClearButtonEnabled(true);
    m_treeView->setObjectName("codes");
    m_treeView->setUniformRowHeights(true); // many siblings stay fluent
    m_treeView->header()->setSectionResizeMode(CatalogTreeModel::CaptionColumn, QHeaderView::Stretch);
    m_treeView->header()->setStretchLastSection(false);
    connect(m_searchEdit, &QLineEdit::textChanged, this, &MainWindow::search);
    connect(m_searchEdit, &QLineEdit::returnPressed, m_treeView, QOverload<>::of(&QWidget::setFocus));
    connect(m_treeView->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &MainWindow::showCurrentItem);
    connect(m_treeView, &QTreeView::activated, m_form, &CodeForm::focusFirstField);
    auto *side = new QWidget;
    auto *layout = new QVBoxLayout(side);
    layout->addWidget(m_searchEdit);
    layout->addWidget(m_treeView);
    return side;
}

QWidget *MainWindow::makeFormSide()
{
    connect(m_profileBox, QOverload<int>::of(&QComboBox::activated), this,
            [this] { m_tree.setProfile(m_profileBox->currentData().toString()); });
    auto *scrollArea = new QScrollArea;
    scrollArea->setWidgetResizable(true);
    scrollArea->setWidget(m_form);
    auto *side = new QWidget;
    auto *layout = new QVBoxLayout(side);
    layout->addWidget(m_profileBox);
    layout->addWidget(scrollArea);
    return side;
}
