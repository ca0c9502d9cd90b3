// viewer-check SAMPLE BAD SCREENSHOT: drives the viewer by keyboard alone. It opens the sample and a file
// that does not load, compares the forms of ten codes with their fields, and fills one in. With
// ORVIDA_UPDATE=1 in the environment it writes the screenshot.
#include "CodeForm.h"
#include "FindingsDock.h"
#include "MainWindow.h"
#include "catalogs/access/CatalogManager.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDoubleValidator>
#include <QFileInfo>
#include <QFormLayout>
#include <QLineEdit>
#include <QStatusBar>
#include <QTreeView>
#include <QTreeWidget>
#include <QtTest>

using namespace Orvida::Catalogs;
using Orvida::Models::CatalogTreeModel;
using Orvida::Shared::InputField;

namespace {

QString sample, badFile, screenshot;

// A field as the form must show it: label, kind of editor, limits, value.
QString expectedRow(const CatalogInputField &field)
{
    QStringList parts = {field.caption() + (field.unit().isEmpty() ? "" : " [" + field.unit() + "]")
                         + (field.isMandatory() ? " *" : "")};
    if (!field.itemList().isEmpty()) {
        QStringList captions = {QString()};
        for (const auto &entry : field.itemList())
            captions << (entry.caption().isEmpty() ? entry.itemText() : entry.caption());
        parts << "one of" << captions.join('/');
    } else if (field.dataType() == InputField::Boolean) {
        parts << "yes or no" << (field.defaultValue() == "true" ? "yes" : "no");
    } else if (field.dataType() == InputField::Date) {
        parts << "date" << field.displayFormat() << "from " + field.minimumValue();
    } else {
        const bool isDecimal = field.dataType() == InputField::Decimal;
        if (isDecimal || field.dataType() == InputField::Integer)
            parts << (isDecimal ? "decimal" : "integer") << field.minimumValue() << field.maximumValue();
        if (isDecimal)
            parts << QString("%1 decimals").arg(field.precission());
        if (field.maximumTextLength() > 0)
            parts << QString("up to %1 characters").arg(field.maximumTextLength());
        parts << "value " + field.defaultValue();
    }
    if (field.isReadonly())
        parts << "read-only";
    return parts.join(" | ");
}

QString limitOf(double limit)
{
    return std::abs(limit) >= std::numeric_limits<int>::max() ? QString() : QString::number(limit);
}

// The same by the editor in the form.
QString shownRow(const QLabel &label, QWidget *editor)
{
    QStringList parts = {QString(label.text()).remove("<b>").remove("</b>").replace("&#39;", "'")};
    bool isReadOnly = !editor->isEnabled();
    if (auto *box = qobject_cast<QComboBox *>(editor)) {
        QStringList captions;
        for (int index = 0; index < box->count(); ++index)
            captions << box->itemText(index);
        parts << "one of" << captions.join('/');
    } else if (auto *check = qobject_cast<QCheckBox *>(editor)) {
        parts << "yes or no" << (check->isChecked() ? "yes" : "no");
    } else if (auto *date = qobject_cast<QDateEdit *>(editor)) {
        parts << "date" << date->displayFormat()
              << "from " + date->minimumDate().addDays(1).toString("yyyy-MM-dd");
        isReadOnly = date->isReadOnly();
    } else if (auto *line = qobject_cast<QLineEdit *>(editor)) {
        if (auto *decimals = qobject_cast<const QDoubleValidator *>(line->validator()))
            parts << "decimal" << limitOf(decimals->bottom()) << limitOf(decimals->top())
                  << QString("%1 decimals").arg(decimals->decimals());
        else if (auto *integers = qobject_cast<const QIntValidator *>(line->validator()))
            parts << "integer" << limitOf(integers->bottom()) << limitOf(integers->top());
        if (line->maxLength() < 32767)
            parts << QString("up to %1 characters").arg(line->maxLength());
        parts << "value " + line->text();
        isReadOnly = line->isReadOnly();
    }
    if (isReadOnly)
        parts << "read-only";
    return parts.join(" | ");
}

void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

} // namespace

class ViewerCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void showsFormsAsTheFieldsSay_data();
    void showsFormsAsTheFieldsSay();
    void fillsTheObservationText();
    void showsOddTextsAndLimits();
    void listsFindings();
    void saysWhyAFileDoesNotLoad();

private:
    void goToCode(const QString &code);
    void typeIntoFields(const QMap<QString, QString> &texts);
    void goToProfile(int number);
    QStringList shownRows() const;
    QString observation() const { return m_window.findChild<QLabel *>("observation")->text(); }

    MainWindow m_window;
    CatalogSptr m_catalog;
};

void ViewerCheck::initTestCase()
{
    m_window.show();
    QVERIFY(QTest::qWaitForWindowActive(&m_window));
    QSignalSpy opened(&m_window, &MainWindow::opened);
    QSignalSpy checked(m_window.findChild<FindingsDock *>(), &FindingsDock::checked);
    m_window.openFile(sample);
    QVERIFY(opened.wait(60000) && opened.first().first().toBool());
    QVERIFY(!checked.isEmpty() || checked.wait(60000));
    m_catalog = CatalogManager::instance()->getCatalog(QFileInfo(sample).absoluteFilePath()); // the same one
    QVERIFY(m_catalog->IsValid());
}

// By the search to the tree.
void ViewerCheck::goToCode(const QString &code)
{
    press(Qt::Key_F, Qt::ControlModifier);
    press(Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), code);
    press(Qt::Key_Return);
    auto *tree = m_window.findChild<QTreeView *>("codes");
    QCOMPARE(QApplication::focusWidget(), tree);
    QCOMPARE(tree->currentIndex().data(CatalogTreeModel::CodeRole).toString(), code);
}

// From the first field on, each by the column that it is bound to; leaves the form.
void ViewerCheck::typeIntoFields(const QMap<QString, QString> &texts)
{
    for (int field = 0; field < 5; ++field) {
        QVERIFY(m_window.findChild<CodeForm *>()->isAncestorOf(QApplication::focusWidget()));
        QTest::keyClicks(QApplication::focusWidget(), texts.value(QApplication::focusWidget()->objectName()));
        press(Qt::Key_Tab);
    }
}

void ViewerCheck::goToProfile(int number)
{
    press(Qt::Key_P, Qt::ControlModifier);
    press(Qt::Key_Home);
    for (int step = 0; step < number; ++step)
        press(Qt::Key_Down);
}

QStringList ViewerCheck::shownRows() const
{
    QStringList rows;
    const auto *layout = m_window.findChild<CodeForm *>()->findChild<QFormLayout *>();
    for (int row = 0; row < layout->rowCount(); ++row) {
        QLayoutItem *label = layout->itemAt(row, QFormLayout::LabelRole);
        if (label)
            rows << shownRow(*qobject_cast<QLabel *>(label->widget()),
                             layout->itemAt(row, QFormLayout::FieldRole)->widget());
    }
    return rows;
}

void ViewerCheck::showsFormsAsTheFieldsSay_data()
{
    QTest::addColumn<QString>("code"); // with fields of all kinds among them, read-only and hidden ones too
    for (const char *code : {"RFI", "RPA", "RDEP", "RZR", "EVE", "ERG", "QVE", "QIN", "QINP", "QAN"})
        QTest::newRow(code) << code;
}

void ViewerCheck::showsFormsAsTheFieldsSay()
{
    QFETCH(QString, code);
    goToCode(code);
    for (int number = 0; number < m_catalog->profiles().size(); ++number) {
        goToProfile(number);
        QCOMPARE(m_catalog->profile(), m_catalog->profiles().at(number).key);
        QStringList expected;
        for (const CatalogInputField &field : m_catalog->findItem(code)->getFields()) {
            if (field.isVisible())
                expected << expectedRow(field);
        }
        QCOMPARE(shownRows().join('\n'), expected.join('\n'));
        QVERIFY(number > 0 || !expected.isEmpty());
    }
    goToProfile(0);
}

// From the code with Return into the form, and on with Tab. What a validator refuses is not typed at all: a
// letter, a second decimal. What is out of range is open until it is right.
void ViewerCheck::fillsTheObservationText()
{
    goToCode("RFI");
    QCOMPARE(observation(), QString("Fissure, ouverture … mm, longueur … m, de … à … heures"));
    press(Qt::Key_Return);
    auto *form = m_window.findChild<CodeForm *>();
    QCOMPARE(form->openFields().size(), 2);
    typeIntoFields(
        {{"OBS_CLK_FROM", "3h"}, {"OBS_CLK_TO", "13"}, {"OBS_WIDTH", "2.55"}, {"OBS_LENGTH", "0"}});
    QCOMPARE(observation(), QString("Fissure, ouverture 2.5 mm, longueur 0 m, de 3 à 13 heures"));
    QCOMPARE(form->openFields().size(), 2);
    press(Qt::Key_E, Qt::ControlModifier);
    typeIntoFields({{"OBS_CLK_TO", "5"}, {"OBS_LENGTH", "0.8"}});
    QCOMPARE(observation(), QString("Fissure, ouverture 2.5 mm, longueur 0.8 m, de 3 à 5 heures"));
    QCOMPARE(form->openFields(), QStringList());
    if (qEnvironmentVariableIsSet("ORVIDA_UPDATE"))
        QVERIFY(m_window.grab()
                    .toImage()
                    .convertToFormat(QImage::Format_Indexed8, Qt::ThresholdDither | Qt::AvoidDither)
                    .save(screenshot, "PNG", 0)); // a small file
}

// Texts that look like markup, and limits that no number of the validator holds.
void ViewerCheck::showsOddTextsAndLimits()
{
    CatalogInputField field;
    field.setDataType(InputField::Integer);
    field.setMinimumValue("-1e300");
    field.setMaximumValue("99999999999");
    field.setDefaultValue("5");
    field.setIsVisible(true);
    const auto catalog = CatalogSptr::create("odd");
    const auto item = QSharedPointer<CatalogItem>::create();
    item->setObservationText("l'eau & \"la boue\" < <b>5</b>");
    item->setCatalog(catalog.data());
    item->addField(QString(), field);
    CodeForm form;
    form.setItem(catalog, item);
    QCOMPARE(form.openFields(), QStringList());
    const auto *label = form.findChild<QLabel *>("observation");
    QCOMPARE(label->text(), item->observationText());
    QCOMPARE(label->textFormat(), Qt::PlainText);
}

void ViewerCheck::listsFindings()
{
    auto *findings = m_window.findChild<FindingsDock *>();
    QSignalSpy checked(findings, &FindingsDock::checked);
    findings->check(badFile);
    QVERIFY(checked.wait(60000));
    const auto *list = findings->findChild<QTreeWidget *>();
    const QList<QTreeWidgetItem *> found = list->findItems("3:10", Qt::MatchExactly);
    QVERIFY(found.size() == 1 && found.first()->text(1) == "error");
}

void ViewerCheck::saysWhyAFileDoesNotLoad()
{
    QSignalSpy opened(&m_window, &MainWindow::opened);
    m_window.openFile(badFile);
    QVERIFY(opened.wait(60000) && !opened.first().first().toBool());
    QVERIFY(
        m_window.statusBar()->currentMessage().contains("Line 3, column 10: CATPRO record without PRO_PK."));
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() != 4)
        qFatal("usage: viewer-check SAMPLE BAD SCREENSHOT");
    sample = arguments.at(1);
    badFile = arguments.at(2);
    screenshot = arguments.at(3);
    ViewerCheck check;
    return QTest::qExec(&check, QStringList(arguments.first()));
}

#include "viewer.moc"
