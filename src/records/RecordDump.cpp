#include "records/RecordDump_p.h"

void RecordDump::append(const QString &format, const QString &key, const QString &value)
{
    m_text += format.arg(key, value);
}
