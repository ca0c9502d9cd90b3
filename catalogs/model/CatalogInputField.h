// The catalog's kind of input field: the host's field and what a catalog parameter adds to it.
#pragma once

#include "catalogs/CatalogsExport.h"
#include "shared/InputField.h"

#include <QString>
#include <QtGlobal>

namespace Orvida::Catalogs {

/// Type flags of a parameter: 64 bits whose meaning belongs to the host. The library carries the number of
/// the file unchanged, so there are no enumerators and any value is valid.
enum TypeFlags : qint64 {};

/// One input field of a catalog item. A value type: copies are independent of each other.
/// No lock: one thread at a time uses an object.
class ORVIDA_CATALOGS_EXPORT CatalogInputField : public Shared::InputField
{
public:
    /// A field with null texts, sort order 0 and no type flags.
    CatalogInputField() = default;
    CatalogInputField(const CatalogInputField &other) = default;
    CatalogInputField(CatalogInputField &&other) = default;
    CatalogInputField &operator=(const CatalogInputField &other) = default;
    CatalogInputField &operator=(CatalogInputField &&other) = default;
    ~CatalogInputField() override;

    /// Text before the value.
    QString prefix() const { return m_prefix; }
    /// Text after the value.
    QString suffix() const { return m_suffix; }
    /// Name by which the observation text of the item refers to this field, such as "@CLK".
    QString observationTextParamName() const { return m_observationTextParamName; }
    /// Place among the fields of the item; any number, negative ones too.
    int sortOrder() const { return m_sortOrder; }
    /// Step of the value, as text; empty when there is none.
    QString step() const { return m_step; }
    /// Type flags of the parameter.
    TypeFlags typeFlags() const { return m_typeFlags; }

    /// \name Setters
    /// Each replaces one property; any value is stored as it is, null and empty texts included.
    /// \{
    void setPrefix(const QString &prefix) { m_prefix = prefix; }
    void setSuffix(const QString &suffix) { m_suffix = suffix; }
    void setObservationTextParamName(const QString &name) { m_observationTextParamName = name; }
    void setSortOrder(int sortOrder) { m_sortOrder = sortOrder; }
    void setStep(const QString &step) { m_step = step; }
    void setTypeFlags(TypeFlags typeFlags) { m_typeFlags = typeFlags; }
    /// \}

private:
    QString m_prefix;
    QString m_suffix;
    QString m_observationTextParamName;
    int m_sortOrder = 0;
    QString m_step;
    TypeFlags m_typeFlags = TypeFlags(0);
};

} // namespace Orvida::Catalogs
