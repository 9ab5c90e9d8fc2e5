#include "scene/network/AT_BoolAttr.h"

#include "scene/network/MO_Node.h"

#include <utility>

AT_BoolAttr::AT_BoolAttr(MO_Node &node) : m_node(node) {}

void AT_BoolAttr::setBool(bool on)
{
    if (std::exchange(m_value, on) != on)
        m_node.queueNodeChanged();
}
