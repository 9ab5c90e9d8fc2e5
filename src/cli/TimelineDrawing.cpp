#include "cli/TimelineDrawing.h"

#include "cli/CliText.h"
#include "cli/DisplayWidth.h"
#include "listing/TimelineListing.h"

#include <algorithm>

namespace
{

/// Cells [first, end) of a row.
struct Cells {
    int first;
    int end;

    int count() const { return end - first; }
};

/// Which cells show which frames.
class Scale
{
public:
    Scale(unsigned int frameCount, int cellCount) : m_frameCount(std::max(frameCount, 1U)), m_cellCount(cellCount) {}

    int cellOf(unsigned int frame) const
    {
        const quint64 before = std::min<quint64>(frame - quint64(1), m_frameCount);
        return static_cast<int>(before * static_cast<quint64>(m_cellCount) / m_frameCount);
    }
    /// At least one cell.
    Cells cellsOf(unsigned int firstFrame, unsigned int lastFrame) const
    {
        const int first = std::min(cellOf(firstFrame), m_cellCount - 1);
        return {first, std::max(first + 1, cellOf(lastFrame + 1))};
    }
    unsigned int frameCount() const { return m_frameCount; }
    int cellCount() const { return m_cellCount; }

private:
    unsigned int m_frameCount;
    int m_cellCount;
};

/// One row of the picture. A text stands in the first of its cells; the others of them are empty.
class Row
{
public:
    explicit Row(int cellCount) : m_cells(cellCount, QStringLiteral(" ")) {}

    void fill(Cells cells, QChar character)
    {
        for (int i = cells.first; i < cells.end; ++i)
            put(i, character);
    }

    /// The beginning of a thing: a bar, then as much of its name as there is room for, then a line.
    void drawBar(Cells cells, const QString &name)
    {
        fill(cells, u'-');
        if (cells.count() <= 0)
            return;
        put(cells.first, u'|');
        write(cells.first + 1, DisplayWidth::cut(DisplayWidth::printable(name), cells.count() - 1));
    }

    void write(int from, const QString &text)
    {
        const int width = DisplayWidth::of(text);
        if (width == 0 || from + width > m_cells.size())
            return;
        for (int i = from; i < from + width; ++i)
            put(i, u' ');
        m_cells[from] = text;
        for (int i = from + 1; i < from + width; ++i)
            m_cells[i] = QString();
    }

    QString text() const
    {
        QString joined = m_cells.join(QString());
        while (joined.endsWith(u' '))
            joined.chop(1);
        return joined;
    }

private:
    /// A text that is written over goes as a whole, so that no half of a wide character stays.
    void put(int cell, QChar character)
    {
        int start = cell;
        while (start > 0 && m_cells[start].isEmpty())
            --start;
        if (DisplayWidth::of(m_cells[start]) > 1) {
            m_cells[start] = QStringLiteral("-");
            for (int i = start + 1; i < m_cells.size() && m_cells[i].isEmpty(); ++i)
                m_cells[i] = QStringLiteral("-");
        }
        m_cells[cell] = character;
    }

    QStringList m_cells;
};

/// 1, 2 or 5 times a power of ten frames, so that there is room between the numbers.
unsigned int rulerStep(const Scale &scale)
{
    const auto longestNumber = static_cast<quint64>(QString::number(scale.frameCount()).size());
    const quint64 cellsBetween = std::max<quint64>(8, longestNumber + 2);
    quint64 step = 1;
    for (int i = 0; step * static_cast<quint64>(scale.cellCount()) < cellsBetween * scale.frameCount(); ++i)
        step = i % 3 == 1 ? step / 2 * 5 : step * 2;
    return static_cast<unsigned int>(std::min<quint64>(step, scale.frameCount()));
}

QString drawRuler(const Scale &scale)
{
    Row row(scale.cellCount());
    row.write(0, QStringLiteral("1"));
    const unsigned int step = rulerStep(scale);
    for (quint64 frame = step; frame <= scale.frameCount(); frame += step) {
        if (frame > 1)
            row.write(scale.cellOf(static_cast<unsigned int>(frame)), QString::number(frame));
    }
    return row.text();
}

/// The first frame after what came before the item at @p index, and the last before what comes after it: what two shots
/// share under a transition belongs to neither.
std::pair<unsigned int, unsigned int> ownFrames(const std::vector<TimelineItem> &items, std::size_t index)
{
    const TimelineItem &shot = items[index];
    unsigned int firstFrame = shot.firstFrame;
    unsigned int lastFrame = shot.lastFrame;
    if (index > 0 && items[index - 1].kind == TimelineItem::Transition)
        firstFrame = items[index - 1].lastFrame + 1;
    std::size_t after = index + 1;
    while (after < items.size() && items[after].shotId == shot.id && !shot.id.isNull())
        ++after;
    if (after < items.size() && items[after].kind == TimelineItem::Transition)
        lastFrame = items[after].firstFrame - 1;
    return {firstFrame, lastFrame};
}

QString drawShots(const std::vector<TimelineItem> &items, const Scale &scale)
{
    Row row(scale.cellCount());
    for (std::size_t i = 0; i < items.size(); ++i) {
        const TimelineItem &item = items[i];
        if (item.kind == TimelineItem::Shot) {
            const auto [firstFrame, lastFrame] = ownFrames(items, i);
            row.drawBar(scale.cellsOf(firstFrame, lastFrame), item.name);
        } else if (item.kind == TimelineItem::Gap && item.shotId.isNull() && !item.isEndless()) {
            row.fill(scale.cellsOf(item.firstFrame, item.lastFrame), u'.');
        }
    }
    for (const TimelineItem &item : items) {
        if (item.kind == TimelineItem::Transition)
            row.fill(scale.cellsOf(item.firstFrame, item.lastFrame), u'x');
    }
    return row.text();
}

QString drawPanels(const std::vector<TimelineItem> &items, const Scale &scale)
{
    Row row(scale.cellCount());
    for (const TimelineItem &item : items) {
        if (item.firstFrame > scale.frameCount() || item.shotId.isNull() || item.lastFrame < item.firstFrame)
            continue;
        const Cells cells = scale.cellsOf(item.firstFrame, std::min(item.lastFrame, scale.frameCount()));
        if (item.kind == TimelineItem::Panel)
            row.drawBar(cells, item.name);
        else if (item.kind == TimelineItem::Gap)
            row.fill(cells, u'.');
    }
    return row.text();
}

/// One bar for shots that follow one another in the same act; empty without acts.
QString drawActs(const std::vector<TimelineItem> &items, const Scale &scale)
{
    Row row(scale.cellCount());
    bool hasActs = false;
    TimelineItem act; // its name, and the frames of its shots so far
    const auto draw = [&] {
        if (act.act.isNull())
            return;
        row.drawBar(scale.cellsOf(act.firstFrame, act.lastFrame), act.act);
        hasActs = true;
    };
    for (const TimelineItem &item : items) {
        if (item.kind != TimelineItem::Shot)
            continue;
        if (item.act == act.act && item.act.isNull() == act.act.isNull()) {
            act.lastFrame = item.lastFrame;
            continue;
        }
        draw();
        act = item;
    }
    draw();
    return hasActs ? row.text() : QString();
}

} // namespace

QStringList drawTimeline(const TimelineListing &listing, int width)
{
    QStringList titles = {CliText::tr("frames"), CliText::tr("acts"), CliText::tr("shots"), CliText::tr("panels")};
    int titleWidth = 0;
    for (const QString &title : std::as_const(titles))
        titleWidth = std::max(titleWidth, DisplayWidth::of(title));
    titleWidth += 2;
    const Scale scale(listing.frameCount, std::max(width - titleWidth, 1));

    const QStringList rows = {drawRuler(scale), drawActs(listing.items, scale), drawShots(listing.items, scale),
        drawPanels(listing.items, scale)};
    QStringList lines;
    for (qsizetype i = 0; i < rows.size(); ++i) {
        if (!rows[i].isEmpty())
            lines += DisplayWidth::leftAligned(titles[i], titleWidth) + rows[i];
    }
    return lines;
}
