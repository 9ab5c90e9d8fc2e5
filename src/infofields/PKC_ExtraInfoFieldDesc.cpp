#include "infofields/PKC_ExtraInfoFieldDesc.h"

PKC_ExtraInfoFieldDesc::PKC_ExtraInfoFieldDesc() = default;

PKC_ExtraInfoFieldDesc::PKC_ExtraInfoFieldDesc(PKC_InfoFieldDesc::Type type, const QString &name, int position) :
    m_type(type), m_name(name), m_position(position)
{
}

PKC_ExtraInfoFieldDesc::PKC_ExtraInfoFieldDesc(const PKC_ExtraInfoFieldDesc &) = default;
PKC_ExtraInfoFieldDesc::PKC_ExtraInfoFieldDesc(PKC_ExtraInfoFieldDesc &&) noexcept = default;
PKC_ExtraInfoFieldDesc &PKC_ExtraInfoFieldDesc::operator=(const PKC_ExtraInfoFieldDesc &) = default;
PKC_ExtraInfoFieldDesc &PKC_ExtraInfoFieldDesc::operator=(PKC_ExtraInfoFieldDesc &&) noexcept = default;
PKC_ExtraInfoFieldDesc::~PKC_ExtraInfoFieldDesc() = default;
