#include "infofields/PKC_InfoFieldUtil.h"

#include "infofields/PKC_InfoFieldDescList.h"
#include "infofields/PKC_InfoFieldList.h"

#include <map>

void PKC_InfoFieldUtil::order_infofield_based_on_desc(const PKC_InfoFieldDescList &descs, PKC_InfoFieldList &fields)
{
    std::multimap<int, PKC_InfoFieldList::iterator> places; // fields of one id in the order of the list
    for (auto place = fields.begin(); place != fields.end(); ++place) {
        if (*place)
            places.emplace((*place)->id(), place);
    }
    PKC_InfoFieldList ordered;
    for (const PKC_InfoFieldDesc &desc : descs) {
        const auto first = places.lower_bound(desc.id());
        if (first == places.end() || first->first != desc.id())
            continue;
        ordered.splice(ordered.end(), fields, first->second);
        places.erase(first);
    }
    ordered.splice(ordered.end(), fields);
    fields = ordered;
}
