#include "listing/NumberText.h"

#include <QLocale>

#include <cmath>

QString numberText(double number)
{
    const double size = std::abs(number);
    const bool isShort = size == 0.0 || (size >= 1e-4 && size < 1e15);
    return QString::number(number, isShort ? 'f' : 'g', QLocale::FloatingPointShortest);
}
