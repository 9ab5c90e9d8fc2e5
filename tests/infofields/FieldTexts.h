#pragma once

#include "infofields/PKC_ExtraInfoFieldDescList.h"
#include "infofields/PKC_InfoFieldDescList.h"
#include "infofields/PKC_InfoFieldList.h"

#include <list>
#include <set>
#include <string>

/// @name Lists as text
/// Entries in order, each "id:name type size height" with what else it has; a size of DEFAULT and a height of 16 are left out.
/// @{
std::string textOf(const PKC_InfoFieldDesc &desc);
std::string textOf(const PKC_InfoFieldDescList &list);
/// "name type @position"
std::string textOf(const PKC_ExtraInfoFieldDescList &list);
/// With "=value" behind; a null entry is "null".
std::string textOf(const PKC_InfoFieldList &list);
/// @}

std::list<int> idsOf(const PKC_InfoFieldDescList &list);
std::list<int> idsOf(const PKC_InfoFieldList &list);

inline constexpr int endId = PKC_InfoFieldDesc::endId;
inline constexpr int firstId = PKC_InfoFieldDesc::firstId;
inline constexpr PKC_InfoFieldDesc::Type textComment = PKC_InfoFieldDesc::Type(17);
inline constexpr PKC_InfoFieldDesc::Type imageComment = PKC_InfoFieldDesc::Type(18);

inline QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}
