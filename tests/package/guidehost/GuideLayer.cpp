// The simplest layer for the host guide's declarations: every function exists and does nothing.
#include "shared/CLogger.h"
#include "shared/DataConverter.h"
#include "shared/DoubleFormater.h"

namespace Orvida::Logging {

void CLogger::logMessage(LogLevel, const QString &, const QString &) {}

} // namespace Orvida::Logging

namespace Orvida::Shared {

ListItem::ListItem(const QVariant &, const QString &, const QString &) {}

InputField::InputField() {}
InputField::~InputField() {}
void InputField::setBoundColumn(const QString &) {}
void InputField::setDefaultValue(const QString &) {}
void InputField::setDisplayFormat(const QString &) {}
void InputField::setInputFormat(const QString &) {}
void InputField::setIsMandatory(bool) {}
void InputField::setIsReadonly(bool) {}
void InputField::setIsVisible(bool) {}
void InputField::setMaximumTextLength(int) {}
void InputField::setMaximumValue(const QString &) {}
void InputField::setMinimumValue(const QString &) {}
void InputField::setUnit(const QString &) {}
void InputField::setPrecission(int) {}
void InputField::setDataType(DataType) {}
void InputField::setCaption(const QString &) {}
void InputField::setItemList(const QList<ListItem> &) {}
InputField::DataType InputField::dataType() const
{
    return Text;
}
QString InputField::minimumValue() const
{
    return {};
}
QString InputField::maximumValue() const
{
    return {};
}
QString InputField::inputFormat() const
{
    return {};
}

template <>
bool DataConverter::stringToBool(const QStringRef &text)
{
    return text == QLatin1String("true");
}

InputField::DataType DataConverter::stringToDataType(const QStringRef &)
{
    return InputField::Text;
}

QString DoubleFormater::toString(const QString &value, const QString &)
{
    return value;
}

} // namespace Orvida::Shared
