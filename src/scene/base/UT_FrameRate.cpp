#include "scene/base/UT_FrameRate.h"

#include <QStringList>

#include <algorithm>
#include <numeric>

UT_FrameRate::UT_FrameRate(unsigned int numerator, unsigned int denominator) :
    m_numerator(std::max(numerator, 1u)), m_denominator(std::max(denominator, 1u))
{
    const unsigned int common = std::gcd(m_numerator, m_denominator);
    m_numerator /= common;
    m_denominator /= common;
}

double UT_FrameRate::fps() const
{
    return double(m_numerator) / double(m_denominator);
}

unsigned int UT_FrameRate::fpsRound() const
{
    const quint64 doubled = 2 * quint64(m_numerator) + m_denominator;
    return std::max(1u, static_cast<unsigned int>(doubled / (2 * quint64(m_denominator))));
}

QString UT_FrameRate::asString() const
{
    const QString whole = QString::number(m_numerator);
    return m_denominator == 1 ? whole : whole + u'/' + QString::number(m_denominator);
}

bool UT_FrameRate::parse(const QString &text)
{
    const auto isOfNumber = [](QChar c) { return (c >= u'0' && c <= u'9') || c == u'/'; };
    if (!std::all_of(text.begin(), text.end(), isOfNumber))
        return false;
    const QStringList parts = text.split(u'/');
    bool numeratorOk = false;
    bool denominatorOk = true;
    const unsigned int numerator = parts.first().toUInt(&numeratorOk, 10);
    const unsigned int denominator = parts.size() == 1 ? 1 : parts.at(1).toUInt(&denominatorOk, 10);
    if (parts.size() > 2 || !numeratorOk || !denominatorOk || numerator == 0 || denominator == 0)
        return false;
    *this = UT_FrameRate(numerator, denominator);
    return true;
}
