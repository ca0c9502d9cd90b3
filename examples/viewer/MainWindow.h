// The window of the viewer: the tree of codes with its search, the form of a code, and the findings.
#pragma once

#include "catalogs/access/ICatalogFileNameProvider.h"
#include "models/CatalogFetcher.h"
#include "models/CatalogSearchModel.h"
#include "models/CatalogTreeModel.h"

#include <QMainWindow>

class CodeForm;
class FindingsDock;
class QComboBox;
class QLineEdit;
class QTreeView;

/// The identifiers of this host are the paths of the files.
struct PathsAsIdentifiers : ICatalogFileNameProvider
{
    PathsAsIdentifiers();
    ~PathsAsIdentifiers();
    QString getCatalogFileName(const QString &catalogId) const override { return catalogId; }
};

class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    /// Loads the file in the background and shows it; says why when it cannot.
    void openFile(const QString &fileName);

Q_SIGNALS:
    /// The file was loaded and shows, or could not be loaded.
    void opened(bool isLoaded);

private:
    void chooseFile();
    void showCatalog(const Orvida::Catalogs::CatalogSptr &catalog);
    void showFailure(const QString &fileName, const Orvida::Catalogs::CatalogReadFailure &failure);
    void showProfiles();
    void search(const QString &text);
    void selectBestMatch(const QString &text);
    void showCurrentItem();
    void makeMenu();
    QWidget *makeTreeSide();
    QWidget *makeFormSide();

    PathsAsIdentifiers m_paths;
    Orvida::Models::CatalogFetcher m_fetcher;
    Orvida::Models::CatalogTreeModel m_tree;
    Orvida::Models::CatalogSearchModel m_search;
    int m_request = 0; // the last one; earlier ones are withdrawn

    QLineEdit *m_searchEdit;
    QTreeView *m_treeView;
    QComboBox *m_profileBox;
    CodeForm *m_form;
    FindingsDock *m_findings;
};
