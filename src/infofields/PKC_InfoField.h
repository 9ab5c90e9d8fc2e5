#pragma once

#include "infofields/PKC_InfoFieldDesc.h"
#include "scene/base/UT_ShareBase.h"

/// What one caption holds, on one panel or for the project: a rich text or the key of an image.
///
/// A global field has the id of a descriptor, from 0 on, which also names it. A local field has a negative id, exists
/// on one panel alone and carries its own name. Values are held by counted pointers.
class PLOTKA_EXPORT PKC_InfoField : public PKC_InfoFieldDesc, public UT_ShareBase
{
public:
    PKC_InfoField(Type type, Size size, int id, const QString &name, int height);
    /// Copies all but nextId(), which a copy does not have.
    PKC_InfoField(const PKC_InfoField &other);
    PKC_InfoField &operator=(const PKC_InfoField &) = default;

    // The order of the virtual functions is relied on by those that derive from this class.
    ~PKC_InfoField() override;
    virtual const QString &value() const = 0;
    virtual void setValue(const QString &value) = 0;
    /// A new field owned by the caller with the id, name, value, size and drag name of this one. Height, comment bit
    /// and nextId() are those of a new field.
    virtual PKC_InfoField *clone() const = 0;

    bool isGlobal() const { return id() >= 0; }
    bool isLocal() const { return id() < 0; }

    /// The id of the field that followed this one when it was removed from its list, which is where to put it back;
    /// endId when it was the last.
    int nextId() const { return m_nextId; }
    void setNextId(int id) { m_nextId = id; }

    /// What the field was called where it was dragged from.
    QString dragName() const { return m_dragName; }
    void setDragName(const QString &name) { m_dragName = name; }

private:
    int m_nextId = endId;
    QString m_dragName;
};
