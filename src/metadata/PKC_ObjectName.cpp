#include "metadata/PKC_ObjectName.h"

#include <utility>

PKC_ObjectName::~PKC_ObjectName() = default;

int PKC_ObjectName::setFlag(int flag)
{
    return std::exchange(m_flag, flag);
}
