// The properties of an input field, in one table for everything that shows them.
#pragma once

#include "catalogs/model/CatalogInputField.h"

#include <QJsonObject>
#include <QJsonValue>
#include <QLatin1String>
#include <QString>
#include <QVector>

namespace Orvida::Tools {

/// One property of an input field.
struct FieldProperty
{
    /// Its name in JSON.
    QLatin1String name;
    /// Its label in the form of a code. Properties that follow each other with one label share a line.
    QLatin1String label;
    /// Text before the first property of its label in the one-line form; null when that leaves it out.
    const char *lead;
    /// Text between it and an earlier property of its label.
    const char *joint;
    /// The element of the file that it comes from.
    QLatin1String element;
    QJsonValue (*toJson)(const Catalogs::CatalogInputField &field);
    /// The property in words, empty when it says nothing; `listName` is the name of the field's list, empty
    /// when it is not known.
    QString (*toWords)(const Catalogs::CatalogInputField &field, const QString &listName);
};

/// The properties of one label, in words.
struct FieldWords
{
    QLatin1String label;
    const char *lead;
    QString words;
    QVector<const FieldProperty *> properties; ///< Those that say something.
};

/// The field in words, in the order in which the form of a code shows it; the caption comes first.
QVector<FieldWords> wordsOf(const Catalogs::CatalogInputField &field, const QString &listName);

/// The field with all its properties and list entries.
QJsonObject fieldToJson(const Catalogs::CatalogInputField &field);

/// The field in one line: caption, then what matters most of it.
QString fieldLine(const Catalogs::CatalogInputField &field, const QString &listName);

} // namespace Orvida::Tools
