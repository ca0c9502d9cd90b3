// A host layer that records log messages. What it does differs from the stand-in on purpose.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringRef>
#include <QVariant>

namespace Orvida::Base {
using GUID = QString;
}

namespace Orvida::Logging {

class CLogger
{
public:
    enum LogLevel { Fatal = 0, Error = 1, Warning = 2, Info = 3, Debug = 4, Trace = 5 };
    static void logMessage(LogLevel level, const QString &category, const QString &message);
    static QStringList &messages();
};

} // namespace Orvida::Logging

namespace Orvida::Shared {

class ListItem
{
public:
    ListItem(const QVariant &value, const QString &caption, const QString &itemText)
        : m_value(value), m_caption(caption), m_itemText(itemText)
    {
    }
    QVariant storedValue() const { return m_value; }

private:
    QVariant m_value;
    QString m_caption;
    QString m_itemText;
};

class InputField
{
public:
    enum DataType { Undefined, Text, Integer, Decimal, Boolean, Date, Time };

    InputField() = default;
    virtual ~InputField() = default;

    void setCaption(const QString &text) { caption = text; }
    void setDataType(DataType value) { type = value; }
    void setItemList(const QList<ListItem> &entries) { list = entries; }
    void setIsVisible(bool value) { visible = value; }
    void setIsReadonly(bool) {}
    void setIsMandatory(bool) {}
    void setPrecission(int) {}
    void setMaximumTextLength(int) {}
    void setBoundColumn(const QString &) {}
    void setInputFormat(const QString &text) { format = text; }
    void setDisplayFormat(const QString &) {}
    void setDefaultValue(const QString &) {}
    void setMinimumValue(const QString &text) { minimum = text; }
    void setMaximumValue(const QString &text) { maximum = text; }
    void setUnit(const QString &) {}
    DataType dataType() const { return type; }
    QString minimumValue() const { return minimum; }
    QString maximumValue() const { return maximum; }
    QString inputFormat() const { return format; }

    QString caption;
    QString minimum;
    QString maximum;
    QString format;
    DataType type = Time;
    bool visible = false;
    QList<ListItem> list;
};

class DataConverter
{
public:
    template <typename Text>
    static bool stringToBool(const Text &text)
    {
        return text == QLatin1String("oui");
    }
    static InputField::DataType stringToDataType(const QStringRef &text);
};

class DoubleFormater
{
public:
    static QString toString(const QString &value, const QString &format);
};

} // namespace Orvida::Shared
