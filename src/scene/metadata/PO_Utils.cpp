#include "scene/metadata/PO_Utils.h"

bool PO_Utils::parseBoolAttr(const QString &text, bool &value)
{
    const bool isTrue = text == QLatin1String("true");
    if (!isTrue && text != QLatin1String("false"))
        return false;
    value = isTrue;
    return true;
}

bool PO_Utils::parseColorAttr(const QString &text, unsigned int &colour)
{
    if (text.size() != 9 || text.at(0) != QLatin1Char('#'))
        return false;
    unsigned int parsed = 0;
    for (qsizetype i = 1; i < text.size(); ++i) {
        const unsigned int unit = text.at(i).unicode();
        unsigned int digit = 16;
        if (unit >= '0' && unit <= '9')
            digit = unit - '0';
        else if (unit >= 'a' && unit <= 'f')
            digit = unit - 'a' + 10;
        else if (unit >= 'A' && unit <= 'F')
            digit = unit - 'A' + 10;
        if (digit == 16)
            return false;
        parsed = parsed * 16 + digit;
    }
    colour = parsed;
    return true;
}
