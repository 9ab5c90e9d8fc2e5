#include "infofields/PKC_InfoFieldDesc.h"

const QString PKC_InfoFieldDesc::commentsField = QStringLiteral("Comments");

PKC_InfoFieldDesc::PKC_InfoFieldDesc(Type type, int id, const QString &name, Size size, int height) :
    m_type(type), m_id(id), m_name(name), m_size(size), m_height(height)
{
}

PKC_InfoFieldDesc::~PKC_InfoFieldDesc() = default;
