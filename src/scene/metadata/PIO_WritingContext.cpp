#include "scene/metadata/PIO_WritingContext.h"

bool PIO_WritingContext::GetAttribute(const QString &mode) const
{
    return m_modes.contains(mode);
}

void PIO_WritingContext::setAttribute(const QString &mode, bool on)
{
    m_modes.removeAll(mode);
    if (on)
        m_modes.append(mode);
}
