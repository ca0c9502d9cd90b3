// A host layer that records every call of the library and its thread. It deliberately differs from the
// stand-in.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringRef>
#include <QVariant>

namespace Orvida::Recording {

// Recorded with each call of this thread.
extern thread_local const char *threadName;
QStringList &calls();
void record(const char *call, const QString &argument = QString());

} // namespace Orvida::Recording

namespace Orvida::Base {
using GUID = QString;
}

namespace Orvida::Logging {

class CLogger
{
public:
    enum LogLevel { Fatal = 0, Error = 1, Warning = 2, Info = 3, Debug = 4, Trace = 5 };
    static void logMessage(LogLevel level, const QString &category, const QString &message);
};

} // namespace Orvida::Logging

namespace Orvida::Shared {

class ListItem
{
public:
    ListItem(const QVariant &value, const QString &, const QString &) : m_value(value) {}
    QString storedText() const { return m_value.toString(); }

private:
    QVariant m_value;
};

class InputField
{
public:
    enum DataType { Undefined, Text, Integer, Decimal, Boolean, Date, Time };

    InputField() { Recording::record("InputField"); }
    InputField(const InputField &other) : m_values(other.m_values) { Recording::record("copy"); }
    InputField &operator=(const InputField &other)
    {
        m_values = other.m_values;
        Recording::record("assign");
        return *this;
    }
    virtual ~InputField() = default;

    void setCaption(const QString &text) { Recording::record("setCaption", text); }
    void setDataType(DataType type) { Recording::record("setDataType", number(m_values.type = type)); }
    void setItemList(const QList<ListItem> &entries);
    void setIsVisible(bool value) { Recording::record("setIsVisible", number(value)); }
    void setIsReadonly(bool value) { Recording::record("setIsReadonly", number(value)); }
    void setIsMandatory(bool value) { Recording::record("setIsMandatory", number(value)); }
    void setPrecission(int value) { Recording::record("setPrecission", number(value)); }
    void setMaximumTextLength(int value) { Recording::record("setMaximumTextLength", number(value)); }
    void setBoundColumn(const QString &text) { Recording::record("setBoundColumn", text); }
    void setInputFormat(const QString &text) { Recording::record("setInputFormat", m_values.format = text); }
    void setDisplayFormat(const QString &text) { Recording::record("setDisplayFormat", text); }
    void setDefaultValue(const QString &text) { Recording::record("setDefaultValue", text); }
    void setMinimumValue(const QString &text)
    {
        Recording::record("setMinimumValue", m_values.minimum = text);
    }
    void setMaximumValue(const QString &text)
    {
        Recording::record("setMaximumValue", m_values.maximum = text);
    }
    void setUnit(const QString &text) { Recording::record("setUnit", text); }
    DataType dataType() const { return m_values.type; }
    QString minimumValue() const { return m_values.minimum; }
    QString maximumValue() const { return m_values.maximum; }
    QString inputFormat() const { return m_values.format; }

private:
    static QString number(int value) { return QString::number(value); }

    // What the library reads back.
    struct Values
    {
        QString minimum;
        QString maximum;
        QString format;
        DataType type = Time;
    };
    Values m_values;
};

class DataConverter
{
public:
    template <typename Text>
    static bool stringToBool(const Text &text)
    {
        Recording::record("stringToBool", text.toString());
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
