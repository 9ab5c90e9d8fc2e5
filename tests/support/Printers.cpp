#include "support/Printers.h"

#include "scene/base/SC_Id.h"

#include <QString>

#include <sstream>

using namespace Plotka;

namespace
{

std::string frames(unsigned int first, unsigned int last)
{
    return std::to_string(first) + '-' + std::to_string(last);
}

std::string panelsOf(const PKC_PlotkaProject &project, const Shot_t &shot)
{
    std::string text;
    Panel_t seen;
    for (unsigned int frame = 1; frame <= shot.objNumOfFrame(); ++frame) {
        const Panel_t panel = project.getPanelIn(shot, frame, /*nearest*/ false, /*forward*/ true);
        if (panel.isInvalid() || panel == seen)
            continue;
        text += (text.empty() ? "" : " ") + frames(panel.firstFrame(), panel.lastFrame());
        seen = panel;
    }
    return text;
}

void printHandle(const char *kind, const SC_Id &id, const QString &name, bool isValid, std::ostream *out)
{
    *out << kind << ' ';
    if (!isValid)
        *out << "invalid";
    else
        *out << id.value() << " \"" << name.toStdString() << '"';
}

} // namespace

std::string framesOf(const PKC_PlotkaProject &project)
{
    std::string text;
    for (Shot_t shot = project.first(Shot_t()); shot.isValid(); shot = project.next(shot)) {
        text += (text.empty() ? "" : " | ") + shot.name().toStdString() + ' '
            + frames(shot.firstFrame(), shot.lastFrame()) + " (" + panelsOf(project, shot) + ')';
    }
    return text;
}

std::string transitionsOf(const PKC_PlotkaProject &project)
{
    std::string text;
    for (Trans_t trans = project.first(Trans_t()); trans.isValid(); trans = project.next(trans))
        text += (text.empty() ? "" : " | ") + frames(trans.firstFrame(), trans.lastFrame());
    return text;
}

std::string gapsOf(const PKC_PlotkaProject &project)
{
    std::string text;
    const auto add = [&text](const Space_t &gap) {
        const std::string shot = gap.isInShot() ? gap.shot().name().toStdString() + ' ' : std::string();
        text += (text.empty() ? "" : " | ") + shot
            + (gap.isSpaceAtEnd() ? std::to_string(gap.firstFrame()) + '-' : frames(gap.firstFrame(), gap.lastFrame()));
    };
    const unsigned int lastFrame = project.getNumOfFrames();
    Space_t seen;
    for (unsigned int frame = 1; frame <= lastFrame + 1; ++frame) {
        const Space_t gap = project.getSpaceAt(frame);
        if (gap.isValid() && gap != seen) {
            add(gap);
            seen = gap;
        }
    }
    return text;
}

std::string walksOf(const PKC_PlotkaProject &project)
{
    std::ostringstream text;
    text << "shots";
    for (Shot_t shot = project.first(Shot_t()); shot.isValid(); shot = project.next(shot))
        text << ' ' << shot.id().value();
    text << " panels";
    unsigned int steps = 0; // answers that are out of date can lead round in circles
    for (Panel_t panel = project.first(Panel_t()); panel.isValid(); panel = project.next(panel)) {
        text << ' ' << panel.id().value();
        if (++steps > project.panelCount()) {
            text << " ...";
            break;
        }
    }
    text << " transitions";
    for (Trans_t trans = project.first(Trans_t()); trans.isValid(); trans = project.next(trans))
        text << ' ' << trans.id().value();
    return text.str();
}

void PrintTo(const SC_Id &id, std::ostream *out)
{
    *out << id.value();
}

void PrintTo(const QString &text, std::ostream *out)
{
    if (text.isNull())
        *out << "null text";
    else
        *out << '"' << text.toStdString() << '"';
}

void Plotka::PrintTo(const Shot_t &shot, std::ostream *out)
{
    printHandle("shot", shot.id(), shot.name(), shot.isValid(), out);
}

void Plotka::PrintTo(const Panel_t &panel, std::ostream *out)
{
    printHandle("panel", panel.id(), panel.name(), panel.isValid(), out);
}

void Plotka::PrintTo(const Trans_t &transition, std::ostream *out)
{
    printHandle("transition", transition.id(), transition.name(), transition.isValid(), out);
}

void Plotka::PrintTo(const Space_t &space, std::ostream *out)
{
    *out << "gap " << space.firstFrame() << '-' << space.lastFrame();
    if (space.isInShot())
        *out << " in shot " << space.shot().id().value();
}

void Plotka::PrintTo(const Clip &clip, std::ostream *out)
{
    printHandle(clip.isPanel() ? "panel clip" : "video clip", clip.id(), clip.name(), clip.isValid(), out);
}

void Plotka::PrintTo(const PanelTrans_t &object, std::ostream *out)
{
    printHandle(object.isTrans() ? "transition" : "panel", object.id(), object.name(), object.isValid(), out);
}
