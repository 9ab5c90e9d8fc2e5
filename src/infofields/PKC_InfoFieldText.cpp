#include "infofields/PKC_InfoFieldText.h"

PKC_InfoFieldText::PKC_InfoFieldText(int id, const QString &value, const QString &name) :
    PKC_InfoField(TEXT, DEFAULT, id, name, DEFAULT_HEIGHT), m_text(value)
{
}

PKC_InfoFieldText::~PKC_InfoFieldText() = default;

PKC_InfoField *PKC_InfoFieldText::clone() const
{
    auto *copy = new PKC_InfoFieldText(id(), m_text, name());
    copy->setSize(size());
    copy->setDragName(dragName());
    return copy;
}
