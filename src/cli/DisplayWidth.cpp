#include "cli/DisplayWidth.h"

#include "listing/TextSafety.h"

#include <QList>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <iterator>

namespace
{

struct Range {
    char32_t first;
    char32_t last;
};

// What Unicode calls East Asian wide or full width, emoji included.
constexpr Range wideRanges[] = {{0x1100, 0x115F}, {0x231A, 0x231B}, {0x2329, 0x232A}, {0x23E9, 0x23EC},
    {0x23F0, 0x23F0}, {0x23F3, 0x23F3}, {0x25FD, 0x25FE}, {0x2614, 0x2615}, {0x2648, 0x2653}, {0x267F, 0x267F},
    {0x2693, 0x2693}, {0x26A1, 0x26A1}, {0x26AA, 0x26AB}, {0x26BD, 0x26BE}, {0x26C4, 0x26C5}, {0x26CE, 0x26CE},
    {0x26D4, 0x26D4}, {0x26EA, 0x26EA}, {0x26F2, 0x26F3}, {0x26F5, 0x26F5}, {0x26FA, 0x26FA}, {0x26FD, 0x26FD},
    {0x2705, 0x2705}, {0x270A, 0x270B}, {0x2728, 0x2728}, {0x274C, 0x274C}, {0x274E, 0x274E}, {0x2753, 0x2755},
    {0x2757, 0x2757}, {0x2795, 0x2797}, {0x27B0, 0x27B0}, {0x27BF, 0x27BF}, {0x2B1B, 0x2B1C}, {0x2B50, 0x2B50},
    {0x2B55, 0x2B55}, {0x2E80, 0x303E}, {0x3041, 0x33FF}, {0x3400, 0x4DBF}, {0x4E00, 0xA4CF}, {0xA960, 0xA97F},
    {0xAC00, 0xD7A3}, {0xF900, 0xFAFF}, {0xFE10, 0xFE19}, {0xFE30, 0xFE6F}, {0xFF01, 0xFF60}, {0xFFE0, 0xFFE6},
    {0x16FE0, 0x16FE4}, {0x16FF0, 0x16FF1}, {0x17000, 0x18CD5}, {0x18D00, 0x18D08}, {0x1AFF0, 0x1AFFE},
    {0x1B000, 0x1B2FB}, {0x1F004, 0x1F004}, {0x1F0CF, 0x1F0CF}, {0x1F18E, 0x1F18E}, {0x1F191, 0x1F19A},
    {0x1F200, 0x1F202}, {0x1F210, 0x1F23B}, {0x1F240, 0x1F248}, {0x1F250, 0x1F251}, {0x1F260, 0x1F265},
    {0x1F300, 0x1F320}, {0x1F32D, 0x1F335}, {0x1F337, 0x1F37C}, {0x1F37E, 0x1F393}, {0x1F3A0, 0x1F3CA},
    {0x1F3CF, 0x1F3D3}, {0x1F3E0, 0x1F3F0}, {0x1F3F4, 0x1F3F4}, {0x1F3F8, 0x1F43E}, {0x1F440, 0x1F440},
    {0x1F442, 0x1F4FC}, {0x1F4FF, 0x1F53D}, {0x1F54B, 0x1F54E}, {0x1F550, 0x1F567}, {0x1F57A, 0x1F57A},
    {0x1F595, 0x1F596}, {0x1F5A4, 0x1F5A4}, {0x1F5FB, 0x1F64F}, {0x1F680, 0x1F6C5}, {0x1F6CC, 0x1F6CC},
    {0x1F6D0, 0x1F6D2}, {0x1F6D5, 0x1F6D7}, {0x1F6DC, 0x1F6DF}, {0x1F6EB, 0x1F6EC}, {0x1F6F4, 0x1F6FC},
    {0x1F7E0, 0x1F7EB}, {0x1F7F0, 0x1F7F0}, {0x1F90C, 0x1F93A}, {0x1F93C, 0x1F945}, {0x1F947, 0x1F9FF},
    {0x1FA70, 0x1FAFF}, {0x20000, 0x2FFFD}, {0x30000, 0x3FFFD}};

constexpr char32_t emojiPresentation = 0xFE0F;
constexpr char32_t replacement = 0xFFFD;

bool isWide(char32_t character)
{
    const Range *const range = std::upper_bound(std::begin(wideRanges), std::end(wideRanges), character,
        [](char32_t wanted, const Range &candidate) { return wanted < candidate.first; });
    return range != std::begin(wideRanges) && character <= std::prev(range)->last;
}

bool isRegionalIndicator(char32_t character)
{
    return character >= 0x1F1E6 && character <= 0x1F1FF;
}

int widthOfCharacter(char32_t character)
{
    switch (QChar::category(character)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_Enclosing:
    case QChar::Other_Format:
    case QChar::Other_Control:
        return 0;
    default:
        return isWide(character) ? 2 : 1;
    }
}

/// Of what a reader takes for one character. Its parts lie over one another, so the widest decides.
int widthOfCluster(const QString &cluster)
{
    int width = 0;
    int flags = 0;
    const QList<uint> characters = cluster.toUcs4();
    for (const char32_t character : characters) {
        width = std::max(width, widthOfCharacter(character));
        flags += isRegionalIndicator(character) ? 1 : 0;
        if (character == emojiPresentation && width > 0)
            width = 2;
    }
    return flags == 2 ? 2 : width;
}

bool isUnprintable(char32_t character)
{
    return TextSafety::isActing(character) || QChar::category(character) == QChar::Other_Surrogate;
}

/// Calls @p take with each cluster and its width until it answers false.
template <typename Taker>
void forEachCluster(const QString &text, Taker take)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype start = 0;
    for (qsizetype end = finder.toNextBoundary(); end != -1; end = finder.toNextBoundary()) {
        const QString cluster = text.mid(start, end - start);
        if (!take(cluster, widthOfCluster(cluster)))
            return;
        start = end;
    }
}

QString spaces(int count)
{
    return QString(std::max(count, 0), u' ');
}

} // namespace

int DisplayWidth::of(const QString &text)
{
    int width = 0;
    forEachCluster(text, [&width](const QString &, int clusterWidth) {
        width += clusterWidth;
        return true;
    });
    return width;
}

QString DisplayWidth::printable(const QString &text)
{
    QList<uint> characters = text.toUcs4();
    for (uint &character : characters) {
        if (isUnprintable(character))
            character = replacement;
    }
    return QString::fromUcs4(reinterpret_cast<const char32_t *>(characters.constData()), characters.size());
}

QString DisplayWidth::cut(const QString &text, int columns)
{
    QString kept;
    int used = 0;
    forEachCluster(text, [&](const QString &cluster, int width) {
        if (used + width > columns)
            return false;
        used += width;
        kept += cluster;
        return true;
    });
    return kept;
}

QString DisplayWidth::fitted(const QString &text, int columns)
{
    if (columns <= 0)
        return QString();
    return of(text) <= columns ? text : cut(text, columns - 1) + QChar(0x2026);
}

QString DisplayWidth::leftAligned(const QString &text, int columns)
{
    const QString shown = fitted(text, columns);
    return shown + spaces(columns - of(shown));
}

QString DisplayWidth::rightAligned(const QString &text, int columns)
{
    const QString shown = fitted(text, columns);
    return spaces(columns - of(shown)) + shown;
}
