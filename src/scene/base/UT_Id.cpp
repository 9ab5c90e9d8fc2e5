#include "scene/base/UT_Id.h"

#include <atomic>

QString UT_Id::AsString() const
{
    return QString::number(m_value);
}

bool UT_Id::parseXml(const QString &text)
{
    bool ok = false;
    const qint64 value = text.toLongLong(&ok, 10);
    m_value = ok ? value : 0;
    return ok;
}

UT_Id UT_Id::createUnique()
{
    static std::atomic<qint64> last{0};
    return UT_Id(last.fetch_sub(1, std::memory_order_relaxed) - 1);
}
