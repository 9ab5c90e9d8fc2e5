#pragma once

#include "plotka_export.h"

namespace Plotka
{

/// Counted pointer to the private part of a handle; never null.
///
/// A default one points at the one invalid object of its type. The count is plain: handles are used
/// on the application's working thread only. Comparisons are those of the address.
template <typename T>
class PLOTKA_EXPORT SharedPtr
{
public:
    SharedPtr();
    explicit SharedPtr(T *object);
    SharedPtr(const SharedPtr &other);
    SharedPtr &operator=(const SharedPtr &other);
    ~SharedPtr();

    bool isValid() const { return m_object != invalidObject(); }
    bool isInvalid() const { return !isValid(); }

    bool operator==(const SharedPtr &other) const { return m_object == other.m_object; }
    bool operator!=(const SharedPtr &other) const { return m_object != other.m_object; }
    bool operator<(const SharedPtr &other) const { return m_object < other.m_object; }
    bool operator>(const SharedPtr &other) const { return m_object > other.m_object; }

protected:
    T *object() const { return m_object; }

private:
    static T *invalidObject();

    T *m_object;
};

} // namespace Plotka
