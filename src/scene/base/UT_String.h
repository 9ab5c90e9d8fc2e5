#pragma once

#include <QString>

#include <utility>

/// A text as the base utilities return it.
class UT_String
{
public:
    UT_String() = default;
    explicit UT_String(QString text) : m_text(std::move(text)) {}

    QString ToQString() const { return m_text; }

private:
    QString m_text;
};
