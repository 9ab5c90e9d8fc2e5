#pragma once

#include <QtGlobal>

#include <string>
#include <vector>

/// Collects warnings while it lives, for a test that announces them by asking for them. Those nobody took fail the
/// test in the end, as warnings outside its life do at once.
class Warnings
{
public:
    Warnings();
    Warnings(const Warnings &) = delete;
    Warnings &operator=(const Warnings &) = delete;
    ~Warnings();

    /// The texts since the last call.
    std::vector<std::string> taken();
    /// The category of the last one.
    std::string category() const { return m_category; }

private:
    static void collect(QtMsgType type, const QMessageLogContext &context, const QString &text);

    static Warnings *s_current;

    Warnings *m_outer;
    QtMessageHandler m_otherwise;
    std::vector<std::string> m_texts;
    std::string m_category;
};
