#pragma once

// The members of SharedPtr, for the source of each handle to instantiate where its private part is complete.

#include "project/SharedPtr.h"

namespace Plotka
{

template <typename T>
T *SharedPtr<T>::invalidObject()
{
    static T *const invalid = [] {
        T *const made = new T;
        ++made->refCount; // held for good: handles in statics may be the last to let go
        return made;
    }();
    return invalid;
}

template <typename T>
SharedPtr<T>::SharedPtr() : m_object(invalidObject())
{
    ++m_object->refCount;
}

template <typename T>
SharedPtr<T>::SharedPtr(T *object) : m_object(object ? object : invalidObject())
{
    ++m_object->refCount;
}

template <typename T>
SharedPtr<T>::SharedPtr(const SharedPtr &other) : m_object(other.m_object)
{
    ++m_object->refCount;
}

template <typename T>
SharedPtr<T> &SharedPtr<T>::operator=(const SharedPtr &other)
{
    T *const previous = m_object;
    m_object = other.m_object;
    ++m_object->refCount;
    if (--previous->refCount == 0)
        delete previous;
    return *this;
}

template <typename T>
SharedPtr<T>::~SharedPtr()
{
    if (--m_object->refCount == 0)
        delete m_object;
}

} // namespace Plotka
