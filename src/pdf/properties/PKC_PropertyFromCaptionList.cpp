#include "pdf/properties/PKC_PropertyFromCaptionList.h"

#include <QStringList>

PKC_PropertyFromCaptionList::~PKC_PropertyFromCaptionList() = default;

bool PKC_PropertyFromCaptionList::setValue(const PKC_Property &other)
{
    m_isDirty = true;
    return PKC_Property::setValue(other);
}

bool PKC_PropertyFromCaptionList::setValue(const QVariant &value)
{
    m_isDirty = true;
    return PKC_Property::setValue(value);
}

bool PKC_PropertyFromCaptionList::load(QDataStream &stream)
{
    m_isDirty = true;
    return PKC_Property::load(stream);
}

PKC_Property *PKC_PropertyFromCaptionList::clone() const
{
    return new PKC_PropertyFromCaptionList(*this);
}

int PKC_PropertyFromCaptionList::propertyType() const
{
    return 5;
}

const QList<QString> &PKC_PropertyFromCaptionList::captionList() const
{
    if (m_isDirty) {
        m_captions = toString().split(QLatin1Char(';'), Qt::SkipEmptyParts);
        m_isDirty = false;
    }
    return m_captions;
}
