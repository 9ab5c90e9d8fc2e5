#include "support/Warnings.h"

#include <QString>

#include <gtest/gtest.h>

#include <utility>

Warnings *Warnings::s_current = nullptr;

Warnings::Warnings() : m_outer(std::exchange(s_current, this)), m_otherwise(qInstallMessageHandler(collect)) {}

Warnings::~Warnings()
{
    qInstallMessageHandler(m_otherwise);
    s_current = m_outer;
    for (const std::string &text : m_texts)
        ADD_FAILURE() << "a warning nobody asked for: " << text;
}

std::vector<std::string> Warnings::taken()
{
    return std::exchange(m_texts, {});
}

void Warnings::collect(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type != QtWarningMsg) {
        s_current->m_otherwise(type, context, text);
        return;
    }
    s_current->m_texts.push_back(text.toStdString());
    s_current->m_category = context.category ? context.category : "";
}
