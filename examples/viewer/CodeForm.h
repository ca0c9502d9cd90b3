// The form of a code, as an inspector fills it in.
#pragma once

#include "FieldEditor.h"
#include "models/CatalogFieldsModel.h"

#include <QLabel>
#include <QVector>
#include <QWidget>

class QFormLayout;

/// Shows an editor for each visible field of an item, in their order. Hidden fields keep their default value
/// and take part in the observation text. Mandatory fields are marked with a star.
class CodeForm : public QWidget
{
    Q_OBJECT

public:
    explicit CodeForm(QWidget *parent = nullptr);

    /// Shows the form of `item`; an empty form when it is null.
    void setItem(const Orvida::Catalogs::CatalogSptr &catalog,
                 const QSharedPointer<Orvida::Catalogs::CatalogItem> &item);
    /// The form for the current profile of the catalog.
    void rebuild();

    /// Moves the focus to the first field that can be filled in, if there is one.
    void focusFirstField();

    /// The observation text with what is filled in.
    QString observationText() const;
    /// Captions of the mandatory fields that are empty, and of those whose value is not acceptable.
    QStringList openFields() const;

private:
    struct Row
    {
        Orvida::Catalogs::CatalogInputField field;
        FieldEditor editor;
    };

    void addRow(QFormLayout &layout, const Orvida::Catalogs::CatalogInputField &field);
    void showTexts();

    Orvida::Models::CatalogFieldsModel m_fields;
    QWidget *m_content = nullptr;
    QLabel *m_observation;
    QLabel *m_open;
    QVector<Row> m_rows;
};
