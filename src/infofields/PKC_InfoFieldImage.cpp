#include "infofields/PKC_InfoFieldImage.h"

PKC_InfoFieldImage::PKC_InfoFieldImage(int id, const QString &value, const QString &name) :
    PKC_InfoField(IMAGE, DEFAULT, id, name, DEFAULT_HEIGHT), m_key(value)
{
}

PKC_InfoFieldImage::~PKC_InfoFieldImage() = default;

PKC_InfoField *PKC_InfoFieldImage::clone() const
{
    auto *copy = new PKC_InfoFieldImage(id(), m_key, name());
    copy->setSize(size());
    copy->setDragName(dragName());
    return copy;
}
