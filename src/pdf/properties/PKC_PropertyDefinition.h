#pragma once

#include "plotka_export.h"
#include "scene/base/UT_ShareBase.h"

#include <QString>

/// What a property is about. Shared: a change is seen by every property that has the definition.
class PLOTKA_EXPORT PKC_PropertyDefinition : public UT_ShareBase
{
public:
    /// Empty texts, not read-only, internal.
    PKC_PropertyDefinition();
    PKC_PropertyDefinition(const QString &ldesc, const QString &sdesc, bool readOnly, bool internal);
    ~PKC_PropertyDefinition() override;

    /// The long description, a label.
    const QString &ldesc() const { return m_ldesc; }
    /// The short description, a help text.
    const QString &sdesc() const { return m_sdesc; }
    bool isReadOnly() const { return m_isReadOnly; }
    bool isInternal() const { return m_isInternal; }

    void setDescriptions(const QString &ldesc, const QString &sdesc);
    void setReadOnly(bool readOnly) { m_isReadOnly = readOnly; }
    void setInternal(bool internal) { m_isInternal = internal; }

private:
    QString m_ldesc;
    QString m_sdesc;
    bool m_isReadOnly = false;
    bool m_isInternal = true;
};
