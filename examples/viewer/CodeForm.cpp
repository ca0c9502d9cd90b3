#include "CodeForm.h"

#include "ObservationText.h"

#include <QFormLayout>
#include <QVBoxLayout>

using namespace Orvida::Catalogs;

CodeForm::CodeForm(QWidget *parent) : QWidget(parent), m_observation(new QLabel), m_open(new QLabel)
{
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_observation);
    layout->addWidget(m_open);
    layout->addStretch(1);
    m_observation->setObjectName("observation");
    for (QLabel *label : {m_observation, m_open}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
}

void CodeForm::setItem(const CatalogSptr &catalog, const QSharedPointer<CatalogItem> &item)
{
    m_fields.setItem(catalog, item);
    rebuild();
}

void CodeForm::rebuild()
{
    m_fields.refresh();
    m_rows.clear();
    delete m_content;
    m_content = new QWidget(this);
    auto *layout = new QFormLayout(m_content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    if (const auto item = m_fields.item()) {
        auto *title = new QLabel(QString("<h3>%1&nbsp; %2</h3>%3")
                                     .arg(item->code().toHtmlEscaped(), item->caption().toHtmlEscaped(),
                                          item->remarks().toHtmlEscaped()));
        title->setWordWrap(true);
        layout->addRow(title);
    }
    for (const CatalogInputField &field : m_fields.fields())
        addRow(*layout, field);
    static_cast<QVBoxLayout *>(this->layout())->insertWidget(0, m_content);
    m_content->show(); // at once: the focus may move into it next
    showTexts();
}

void CodeForm::addRow(QFormLayout &layout, const CatalogInputField &field)
{
    const FieldEditor editor = makeFieldEditor(field, m_content, [this] { showTexts(); });
    m_rows.append({field, editor});
    editor.widget->setObjectName(field.boundColumn());
    editor.widget->setAccessibleName(field.caption());
    if (!field.isVisible()) {
        editor.widget->hide();
        return;
    }
    QString caption = field.caption().toHtmlEscaped();
    if (!field.unit().isEmpty())
        caption += QString(" [%1]").arg(field.unit().toHtmlEscaped());
    auto *label = new QLabel(field.isMandatory() ? caption + " <b>*</b>" : caption);
    label->setTextFormat(Qt::RichText);
    label->setBuddy(editor.widget);
    layout.addRow(label, editor.widget);
}

void CodeForm::focusFirstField()
{
    for (const Row &row : m_rows) {
        if (row.field.isVisible() && !row.field.isReadonly()) {
            row.editor.widget->setFocus(Qt::TabFocusReason);
            return;
        }
    }
}

QString CodeForm::observationText() const
{
    QMap<QString, QString> values;
    for (const Row &row : m_rows) {
        if (!row.field.observationTextParamName().isEmpty())
            values.insert(row.field.observationTextParamName(), row.editor.text());
    }
    return m_fields.item() ? filledObservationText(m_fields.item()->observationText(), values) : QString();
}

QStringList CodeForm::openFields() const
{
    QStringList open;
    for (const Row &row : m_rows) {
        const bool isMissing = row.field.isMandatory() && row.editor.value().isEmpty();
        if (row.field.isVisible() && (isMissing || !row.editor.isAcceptable()))
            open << row.field.caption();
    }
    return open;
}

void CodeForm::showTexts()
{
    m_observation->setText(observationText());
    const QStringList open = openFields();
    m_open->setText(open.isEmpty() ? QString() : tr("To be filled in: %1").arg(open.join(", ")));
}
