#pragma once

#include "metadata/PKC_ObjectName.h"
#include "scene/metadata/PIO_Metadata.h"

/// Base of the records that name a timeline object.
class PLOTKA_EXPORT PKC_ObjInfo : public PIO_Metadata
{
public:
    PKC_ObjInfo(const QString &type, const QString &name, const QString &creator, const QString &version);
    PKC_ObjInfo(const PKC_ObjInfo &) = default;
    PKC_ObjInfo &operator=(const PKC_ObjInfo &) = default;
    ~PKC_ObjInfo() override;

    /// The name that people see; metaName() is that of the record within its container.
    const PKC_ObjectName &name() const { return m_name; }
    PKC_ObjectName &name() { return m_name; }

protected:
    /// A custom name needs a text; an automatic one may be empty, because it can be generated.
    bool isNameValid() const;

private:
    PKC_ObjectName m_name;
};
