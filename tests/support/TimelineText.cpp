#include "support/TimelineText.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <sstream>

namespace
{

/// Reads one word from its front to its back.
class WordReader
{
public:
    explicit WordReader(const std::string &word) : m_word(word) {}

    bool atEnd() const { return m_at == m_word.size(); }
    bool sees(char c) const { return !atEnd() && m_word[m_at] == c; }
    bool seesDigit() const { return !atEnd() && std::isdigit(static_cast<unsigned char>(m_word[m_at])); }

    bool skip(const std::string &text)
    {
        if (m_word.compare(m_at, text.size(), text) != 0)
            return false;
        m_at += text.size();
        return true;
    }
    void expect(const std::string &text)
    {
        if (!skip(text))
            fail("\"" + text + "\" expected");
    }
    unsigned int number()
    {
        if (!seesDigit())
            fail("number expected");
        std::size_t used = 0;
        const unsigned long value = std::stoul(m_word.substr(m_at), &used);
        m_at += used;
        return static_cast<unsigned int>(value);
    }
    double position()
    {
        // "5..28": the dots belong to the range and not to the number.
        std::size_t end = m_at;
        while (end < m_word.size()
            && (std::isdigit(static_cast<unsigned char>(m_word[end])) || m_word[end] == '-'
                || (m_word[end] == '.' && m_word.compare(end, 2, "..") != 0)))
            ++end;
        if (end == m_at)
            fail("position expected");
        const double value = std::stod(m_word.substr(m_at, end - m_at));
        m_at = end;
        return value;
    }
    std::string upTo(const std::string &stops)
    {
        const std::size_t end = std::min(m_word.find_first_of(stops, m_at), m_word.size());
        const std::string text = m_word.substr(m_at, end - m_at);
        m_at = end;
        return text;
    }
    [[noreturn]] void fail(const std::string &reason) const
    {
        std::fprintf(stderr, "timeline \"%s\", character %zu: %s\n", m_word.c_str(), m_at + 1, reason.c_str());
        std::abort();
    }

private:
    std::string m_word;
    std::size_t m_at = 0;
};

WarpText readWarp(WordReader &word)
{
    WarpText warp;
    if (!word.skip("["))
        return warp;
    if (word.skip("]")) {
        warp.kind = WarpText::None;
        return warp;
    }
    warp.kind = WarpText::Given;
    warp.start = word.position();
    word.expect("..");
    warp.end = word.position();
    word.expect("]");
    return warp;
}

PanelText readPanel(WordReader &word)
{
    PanelText panel;
    panel.isGap = word.skip("-");
    if (!panel.isGap && !word.seesDigit()) {
        panel.name = word.upTo("!=");
        panel.locked = word.skip("!");
        word.expect("=");
    }
    panel.frames = word.number();
    if (panel.isGap)
        return panel;
    if (word.skip("?"))
        panel.holds = Holds::Nothing;
    else if (word.skip("gone"))
        panel.holds = Holds::GoneScene;
    panel.warp = readWarp(word);
    return panel;
}

ElementText readShot(WordReader &word)
{
    ElementText shot;
    shot.name = word.upTo("[@(");
    shot.warp = readWarp(word);
    if (word.skip("@"))
        shot.frames = word.number();
    word.expect("(");
    if (word.skip("gone"))
        shot.holds = Holds::GoneScene;
    else if (word.skip("bare"))
        shot.holds = Holds::BareScene;
    else if (!word.sees(')')) {
        do
            shot.panels.push_back(readPanel(word));
        while (word.skip(","));
    }
    word.expect(")");
    if (shot.length() == 0)
        word.fail("how long is it?");
    return shot;
}

ElementText readElement(WordReader &word)
{
    ElementText element;
    if (word.skip("-")) {
        element.kind = ElementText::Gap;
        element.frames = word.number();
        word.expect("-");
    } else if (word.skip("~")) {
        element.kind = ElementText::Transition;
        element.framesBeforeCut = word.number();
        word.expect("+");
        element.framesAfterCut = word.number();
        word.expect("~");
    } else if (word.sees('?') || word.sees('%')) {
        element.holds = word.skip("?") ? Holds::Nothing : Holds::OtherSequence;
        word.skip("%");
        element.frames = word.number();
    } else {
        element = readShot(word);
    }
    if (!word.atEnd())
        word.fail("blank expected");
    return element;
}

void print(std::ostream &out, const WarpText &warp)
{
    if (warp.kind == WarpText::None)
        out << "[]";
    else if (warp.kind == WarpText::Given)
        out << '[' << warp.start << ".." << warp.end << ']';
}

void print(std::ostream &out, const PanelText &panel)
{
    if (panel.isGap) {
        out << '-' << panel.frames;
        return;
    }
    if (!panel.name.empty() || panel.locked)
        out << panel.name << (panel.locked ? "!=" : "=");
    out << panel.frames;
    if (panel.holds == Holds::Nothing)
        out << '?';
    else if (panel.holds == Holds::GoneScene)
        out << "gone";
    print(out, panel.warp);
}

void printShot(std::ostream &out, const ElementText &shot)
{
    out << shot.name;
    print(out, shot.warp);
    if (shot.frames)
        out << '@' << shot.frames;
    out << '(';
    if (shot.holds == Holds::GoneScene)
        out << "gone";
    else if (shot.holds == Holds::BareScene)
        out << "bare";
    for (std::size_t i = 0; i < shot.panels.size(); ++i) {
        out << (i ? "," : "");
        print(out, shot.panels[i]);
    }
    out << ')';
}

} // namespace

unsigned int ElementText::length() const
{
    if (frames)
        return frames;
    if (warp.kind == WarpText::Given && warp.end >= warp.start)
        return static_cast<unsigned int>(warp.end - warp.start + 1.0);
    unsigned int sum = 0;
    for (const PanelText &panel : panels)
        sum += panel.frames;
    return sum;
}

TimelineText parseTimeline(const std::string &text)
{
    TimelineText timeline;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        WordReader reader(word);
        timeline.push_back(readElement(reader));
    }
    return timeline;
}

std::string toString(const TimelineText &timeline)
{
    std::ostringstream out;
    for (const ElementText &element : timeline) {
        if (out.tellp() > 0)
            out << ' ';
        if (element.kind == ElementText::Gap)
            out << '-' << element.frames << '-';
        else if (element.kind == ElementText::Transition)
            out << '~' << element.framesBeforeCut << '+' << element.framesAfterCut << '~';
        else if (element.holds == Holds::Nothing)
            out << '?' << element.frames;
        else if (element.holds == Holds::OtherSequence)
            out << '%' << element.frames;
        else
            printShot(out, element);
    }
    return out.str();
}
