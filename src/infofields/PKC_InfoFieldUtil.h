#pragma once

#include "plotka_export.h"

class PKC_InfoFieldDescList;
class PKC_InfoFieldList;

namespace PKC_InfoFieldUtil
{

/// Puts @p fields in the order of their descriptors, with local fields and those without a descriptor behind them. The
/// record comes out as if newly made: without a name, by this program, in the current version.
PLOTKA_EXPORT void order_infofield_based_on_desc(const PKC_InfoFieldDescList &descs, PKC_InfoFieldList &fields);

} // namespace PKC_InfoFieldUtil
