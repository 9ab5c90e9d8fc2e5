#include "metadata/PKC_ObjInfo.h"

PKC_ObjInfo::PKC_ObjInfo(const QString &type, const QString &name, const QString &creator, const QString &version) :
    PIO_Metadata(type, name, creator, version)
{
}

PKC_ObjInfo::~PKC_ObjInfo() = default;

bool PKC_ObjInfo::isNameValid() const
{
    return !m_name.value().isEmpty() || m_name.isAuto();
}
