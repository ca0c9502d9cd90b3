// The widget in which an inspector fills in one field.
#pragma once

#include "catalogs/model/CatalogInputField.h"

#include <QWidget>

#include <functional>

/// A widget that fits the type of a field, and what is in it.
struct FieldEditor
{
    QWidget *widget;
    /// The value as it would be stored; empty when nothing was filled in.
    std::function<QString()> value;
    /// What is shown for it, such as the caption of a list entry.
    std::function<QString()> text;
    /// Whether the value keeps to the range, the length and the number of decimals.
    std::function<bool()> isAcceptable;
};

/// Makes the editor of `field`, with its default value: a combo box for a list, a check box for yes or no, a
/// date edit, or else a line edit with a validator. The widget belongs to `parent`; `changed` is called
/// whenever the user has changed the value.
FieldEditor makeFieldEditor(const Orvida::Catalogs::CatalogInputField &field, QWidget *parent,
                            const std::function<void()> &changed);
