#include "scene/base/UT_Id.h"

#include <atomic>

QString UT_Id::AsString() const
{
    return QString::number(m_value);
}

bool UT_Id::parseXml(const QString &text)
{
    bool ok = false;
    m_value = text.toLongLong(&ok, 10);
    if (ok && AsString() == text) // one text for one id: no sign, blank or zero too many
        return true;
    m_value = 0;
    return false;
}

UT_Id UT_Id::createUnique()
{
    static std::atomic<qint64> last{0};
    return UT_Id(last.fetch_sub(1, std::memory_order_relaxed) - 1);
}
