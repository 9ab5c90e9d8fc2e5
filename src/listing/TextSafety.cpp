#include "listing/TextSafety.h"

bool TextSafety::isActing(char32_t character)
{
    const bool turnsDirection =
        (character >= 0x202A && character <= 0x202E) || (character >= 0x2066 && character <= 0x2069);
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return turnsDirection;
    }
}

QString TextSafety::escape(QChar character)
{
    return QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
}
