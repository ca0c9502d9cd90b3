#include "FieldEditor.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDoubleValidator>
#include <QIntValidator>
#include <QLineEdit>

#include <cmath>
#include <limits>

using Orvida::Catalogs::CatalogInputField;
using Orvida::Shared::InputField;
using Orvida::Shared::ListItem;

namespace {

using Changed = std::function<void()>;

QString captionOf(const ListItem &entry)
{
    return entry.caption().isEmpty() ? entry.itemText() : entry.caption();
}

FieldEditor makeListEditor(const CatalogInputField &field, QWidget *parent, const Changed &changed)
{
    auto *box = new QComboBox(parent);
    box->addItem(QString(), QString()); // nothing chosen
    for (const ListItem &entry : field.itemList())
        box->addItem(captionOf(entry), entry.value());
    box->setCurrentIndex(qMax(0, box->findData(field.defaultValue())));
    box->setEnabled(!field.isReadonly());
    QObject::connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), box, changed);
    return {box, [box] { return box->currentData().toString(); }, [box] { return box->currentText(); },
            [] { return true; }};
}

FieldEditor makeCheckBox(const CatalogInputField &field, QWidget *parent, const Changed &changed)
{
    auto *box = new QCheckBox(parent);
    box->setChecked(field.defaultValue().compare(QLatin1String("true"), Qt::CaseInsensitive) == 0);
    box->setEnabled(!field.isReadonly());
    QObject::connect(box, &QCheckBox::toggled, box, changed);
    const auto value = [box] { return QString(box->isChecked() ? "true" : "false"); };
    return {box, value, [box] { return box->isChecked() ? QObject::tr("yes") : QObject::tr("no"); },
            [] { return true; }};
}

QDate dateOf(const QString &text, const QString &format, const QDate &otherwise)
{
    const QDate date = QDate::fromString(text, format);
    return date.isValid() ? date : otherwise;
}

// A date edit always holds a date: the day before the first allowed one means that there is none.
FieldEditor makeDateEditor(const CatalogInputField &field, QWidget *parent, const Changed &changed)
{
    const QString format = field.inputFormat().isEmpty() ? "yyyy-MM-dd" : field.inputFormat();
    auto *edit = new QDateEdit(parent);
    const QDate none = dateOf(field.minimumValue(), format, QDate(1753, 1, 1)).addDays(-1);
    edit->setDateRange(none, dateOf(field.maximumValue(), format, QDate(9999, 12, 31)));
    edit->setSpecialValueText(QStringLiteral(" "));
    edit->setDisplayFormat(field.displayFormat().isEmpty() ? format : field.displayFormat());
    edit->setDate(dateOf(field.defaultValue(), format, none));
    edit->setReadOnly(field.isReadonly());
    QObject::connect(edit, &QDateEdit::dateChanged, edit, changed);
    const auto isSet = [edit] { return edit->date() != edit->minimumDate(); };
    return {edit, [edit, isSet, format] { return isSet() ? edit->date().toString(format) : QString(); },
            [edit, isSet] { return isSet() ? edit->text() : QString(); }, [] { return true; }};
}

// Limits of a catalog are numbers in the C locale; one that is no number is no limit.
double limitOf(const QString &text, double otherwise)
{
    bool isNumber = false;
    const double limit = QLocale::c().toDouble(text, &isNumber);
    return isNumber && std::isfinite(limit) ? limit : otherwise;
}

QValidator *validatorOf(const CatalogInputField &field, QWidget *parent)
{
    constexpr double highest = std::numeric_limits<int>::max();
    const double minimum = limitOf(field.minimumValue(), -highest);
    const double maximum = limitOf(field.maximumValue(), highest);
    if (field.dataType() == InputField::Integer)
        return new QIntValidator(int(qBound(-highest, minimum, highest)),
                                 int(qBound(-highest, maximum, highest)), parent);
    if (field.dataType() != InputField::Decimal)
        return nullptr;
    auto *validator = new QDoubleValidator(minimum, maximum, field.precission(), parent);
    validator->setNotation(QDoubleValidator::StandardNotation);
    validator->setLocale(QLocale::c());
    return validator;
}

FieldEditor makeLineEditor(const CatalogInputField &field, QWidget *parent, const Changed &changed)
{
    auto *edit = new QLineEdit(parent);
    if (field.maximumTextLength() > 0)
        edit->setMaxLength(field.maximumTextLength());
    edit->setValidator(validatorOf(field, edit));
    edit->setText(field.defaultValue());
    edit->setReadOnly(field.isReadonly());
    const auto isAcceptable = [edit] { return edit->text().isEmpty() || edit->hasAcceptableInput(); };
    const auto showWhetherAcceptable = [edit, isAcceptable, changed] {
        edit->setStyleSheet(isAcceptable() ? QString() : "QLineEdit { border: 2px solid #b00020 }");
        changed();
    };
    QObject::connect(edit, &QLineEdit::textChanged, edit, showWhetherAcceptable);
    return {edit, [edit] { return edit->text(); }, [edit] { return edit->text(); }, isAcceptable};
}

} // namespace

FieldEditor makeFieldEditor(const CatalogInputField &field, QWidget *parent, const Changed &changed)
{
    if (!field.itemList().isEmpty())
        return makeListEditor(field, parent, changed);
    switch (field.dataType()) {
    case InputField::Boolean: return makeCheckBox(field, parent, changed);
    case InputField::Date: return makeDateEditor(field, parent, changed);
    default: return makeLineEditor(field, parent, changed);
    }
}
