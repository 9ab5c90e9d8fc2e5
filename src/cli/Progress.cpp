#include "cli/Progress.h"

#include "cli/CliText.h"
#include "cli/Console.h"
#include "cli/DisplayWidth.h"

#include <chrono>
#include <cstdio>

Progress::Progress(const QString &work)
{
    if (Console::errorsAreSeen())
        m_teller = std::thread(&Progress::tellEverySecond, this, work);
}

Progress::~Progress()
{
    if (!m_teller.joinable())
        return;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isOver = true;
    }
    m_ended.notify_one();
    m_teller.join();
}

void Progress::tellEverySecond(const QString &work)
{
    const QString shown = DisplayWidth::printable(work);
    std::unique_lock<std::mutex> lock(m_mutex);
    int seconds = 0;
    while (!m_ended.wait_for(lock, std::chrono::seconds(1), [this] { return m_isOver; }))
        std::fputs(qPrintable(CliText::tr("\r%1 ... %2 s").arg(shown, QString::number(++seconds))), stderr);
    if (seconds > 0)
        std::fputs("\r\033[K", stderr);
}
