#include "infofields/PKC_InfoField.h"

PKC_InfoField::PKC_InfoField(Type type, Size size, int id, const QString &name, int height) :
    PKC_InfoFieldDesc(type, id, name, size, height)
{
}

PKC_InfoField::PKC_InfoField(const PKC_InfoField &other) :
    PKC_InfoFieldDesc(other), UT_ShareBase(other), m_dragName(other.m_dragName)
{
}

PKC_InfoField::~PKC_InfoField() = default;
