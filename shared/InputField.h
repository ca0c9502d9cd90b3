// The host's generic input field: what a user interface needs to know to ask for one value.
#pragma once

#include "shared/ListItem.h"
#include "shared/SharedExport.h"

#include <QList>
#include <QString>

namespace Orvida::Shared {

/// One typed field that a user fills in: a bag of properties that stores what it is given.
///
/// Limits, default and formats are texts; nothing is parsed, checked or converted here. A value type:
/// copies are independent of each other. Not guarded: one thread at a time uses an object.
class ORVIDA_SHARED_EXPORT InputField
{
public:
    /// What kind of value a field takes. The numbers are those that catalogs and hosts exchange.
    enum DataType : int {
        Undefined = 0, ///< no type
        Text = 1,
        Integer = 2,
        Decimal = 3,
        Boolean = 4,
        Date = 5,
    };

    /// A field without type, texts and entries; all flags false, all numbers 0.
    InputField() = default;
    InputField(const InputField &other) = default;
    InputField(InputField &&other) = default;
    InputField &operator=(const InputField &other) = default;
    InputField &operator=(InputField &&other) = default;
    virtual ~InputField();

    /// Text shown with the field.
    QString caption() const { return m_caption; }
    /// Identifier of the column that stores the value.
    QString boundColumn() const { return m_boundColumn; }
    /// Format in which the value is typed in.
    QString inputFormat() const { return m_inputFormat; }
    /// Value that the field starts with, as text.
    QString defaultValue() const { return m_defaultValue; }
    /// Upper limit as text, exactly as it was set; empty when there is none.
    QString maximumValue() const { return m_maximumValue; }
    /// Lower limit as text, exactly as it was set; empty when there is none.
    QString minimumValue() const { return m_minimumValue; }
    /// Format in which the value is shown.
    QString displayFormat() const { return m_displayFormat; }
    /// Unit of the value, such as "mm".
    QString unit() const { return m_unit; }
    /// Whether the field is shown at all.
    bool isVisible() const { return m_isVisible; }
    /// Whether the user may only look at the value.
    bool isReadonly() const { return m_isReadonly; }
    /// Whether the value must be given.
    bool isMandatory() const { return m_isMandatory; }
    /// Number of decimals.
    int precission() const { return m_precission; }
    /// Longest text that is accepted, in characters.
    int maximumTextLength() const { return m_maximumTextLength; }
    /// Kind of the value.
    DataType dataType() const { return m_dataType; }
    /// Allowed values in the order in which they are offered; empty when any value is allowed.
    QList<ListItem> itemList() const { return m_itemList; }

    /// \name Setters
    /// Each replaces one property; any value is stored as it is, null and empty texts included.
    /// \{
    void setCaption(const QString &caption) { m_caption = caption; }
    void setBoundColumn(const QString &columnId) { m_boundColumn = columnId; }
    void setInputFormat(const QString &format) { m_inputFormat = format; }
    void setDefaultValue(const QString &value) { m_defaultValue = value; }
    void setMaximumValue(const QString &value) { m_maximumValue = value; }
    void setMinimumValue(const QString &value) { m_minimumValue = value; }
    void setDisplayFormat(const QString &format) { m_displayFormat = format; }
    void setUnit(const QString &unit) { m_unit = unit; }
    void setIsVisible(bool isVisible) { m_isVisible = isVisible; }
    void setIsReadonly(bool isReadonly) { m_isReadonly = isReadonly; }
    void setIsMandatory(bool isMandatory) { m_isMandatory = isMandatory; }
    void setPrecission(int decimals) { m_precission = decimals; }
    void setMaximumTextLength(int length) { m_maximumTextLength = length; }
    void setDataType(DataType dataType) { m_dataType = dataType; }
    void setItemList(const QList<ListItem> &entries) { m_itemList = entries; }
    /// \}

private:
    QString m_caption;
    QString m_boundColumn;
    QString m_inputFormat;
    QString m_defaultValue;
    QString m_maximumValue;
    QString m_minimumValue;
    QString m_displayFormat;
    QString m_unit;
    bool m_isVisible = false;
    bool m_isReadonly = false;
    bool m_isMandatory = false;
    int m_precission = 0;
    int m_maximumTextLength = 0;
    DataType m_dataType = Undefined;
    QList<ListItem> m_itemList;
};

} // namespace Orvida::Shared
