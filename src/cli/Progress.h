#pragma once

#include <QString>

#include <condition_variable>
#include <mutex>
#include <thread>

/// Says what is being done, on standard error, while it takes longer than a second. Silent where standard error is
/// no terminal. What is to be told or written waits until the line has gone, at the end of its life.
///
/// The work does not report how far it is, so a second thread counts the seconds; it touches nothing but standard error.
class Progress
{
public:
    explicit Progress(const QString &work);
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;
    ~Progress();

private:
    void tellEverySecond(const QString &work);

    std::mutex m_mutex;
    std::condition_variable m_ended;
    bool m_isOver = false;
    std::thread m_teller;
};
