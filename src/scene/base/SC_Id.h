#pragma once

#include "scene/base/UT_Id.h"

#include <QHashFunctions>

/// Id of a scene, a placed object or a transition. Object ids and scene ids are both of this type.
class PLOTKA_SCENE_EXPORT SC_Id : public UT_Id
{
public:
    constexpr SC_Id() noexcept = default;
    constexpr explicit SC_Id(qint64 value) noexcept : UT_Id(value) {}
    constexpr SC_Id(const UT_Id &id) noexcept : UT_Id(id) {}

    static const SC_Id &nullSceneId();
};

inline size_t qHash(const SC_Id &id, size_t seed = 0) noexcept
{
    return ::qHash(id.value(), seed);
}
