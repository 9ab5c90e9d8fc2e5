#include "support/EditScript.h"

#include <random>

namespace
{

struct Name {
    Edit::Kind kind;
    const char *text;
    int weight; ///< how often it is drawn
};

constexpr Name names[] = {{Edit::AddShot, "AddShot", 5}, {Edit::PlaceShot, "PlaceShot", 3},
    {Edit::LiftShot, "LiftShot", 2}, {Edit::MoveShots, "MoveShots", 3}, {Edit::TrimShot, "TrimShot", 2},
    {Edit::AddPanel, "AddPanel", 6}, {Edit::PlacePanel, "PlacePanel", 3}, {Edit::SetPanelLength, "SetPanelLength", 4},
    {Edit::RemovePanel, "RemovePanel", 3}, {Edit::LiftPanel, "LiftPanel", 2}, {Edit::RollPanels, "RollPanels", 3},
    {Edit::AddTransition, "AddTransition", 4}, {Edit::RemoveTransition, "RemoveTransition", 2},
    {Edit::WarpShot, "WarpShot", 2}, {Edit::WarpPanel, "WarpPanel", 1}, {Edit::DeleteShotScene, "DeleteShotScene", 1},
    {Edit::DeletePanelScene, "DeletePanelScene", 1}, {Edit::DeletePanelTrack, "DeletePanelTrack", 1}};

unsigned int fold(unsigned int number, unsigned int count)
{
    return count == 0 ? 0 : number % count;
}

/// From -3 to 3.
int smallStep(unsigned int number)
{
    return int(number % 7) - 3;
}

} // namespace

Script randomScript(unsigned int seed, int length)
{
    std::vector<Edit::Kind> drawer;
    for (const Name &name : names)
        drawer.insert(drawer.end(), std::size_t(name.weight), name.kind);
    std::mt19937 random(seed);
    Script script;
    for (int i = 0; i < length; ++i) {
        const Edit::Kind kind = drawer[random() % drawer.size()];
        const unsigned int where = static_cast<unsigned int>(random() % 1000);
        const unsigned int value = static_cast<unsigned int>(random() % 1000);
        script.push_back({kind, where, value});
    }
    return script;
}

bool apply(const Edit &edit, Storyboard &board)
{
    const unsigned int shot = fold(edit.where, board.shotBlockCount());
    const TUSeqTimedValue *const track = board.panelTrack(shot);
    const unsigned int panel = fold(edit.where / 7, track ? track->blockCount() : 0);
    const AT_FrameBlock block = board.shotBlock(shot);
    const unsigned int frames = edit.value % 6 + 1;
    const std::string name(1, char('A' + edit.where % 26));
    switch (edit.kind) {
    case Edit::AddShot:
        return board.addShot(name, frames + 1, edit.value / 6 % 3);
    case Edit::PlaceShot:
        return board.placeShot(name, edit.where % 40 + 1, frames);
    case Edit::LiftShot:
        return board.liftShot(shot);
    case Edit::MoveShots:
        return board.moveShots(shot, smallStep(edit.value));
    case Edit::TrimShot:
        return board.trimShot(shot, block.fromFrame() + edit.value % 3, frames);
    case Edit::AddPanel:
        return board.addPanel(shot, frames);
    case Edit::PlacePanel:
        return board.placePanel(shot, edit.where / 7 % 20 + 1, frames);
    case Edit::SetPanelLength:
        return board.setPanelLength(shot, panel, frames);
    case Edit::RemovePanel:
        return board.removePanel(shot, panel);
    case Edit::LiftPanel:
        return board.liftPanel(shot, panel);
    case Edit::RollPanels:
        return board.rollPanels(shot, panel, smallStep(edit.value));
    case Edit::AddTransition:
        return board.addTransition(shot, edit.value % 4, edit.value / 4 % 4);
    case Edit::RemoveTransition:
        return board.removeTransition(fold(edit.where, 4));
    case Edit::WarpShot:
        return board.setShotWarp(shot, edit.value % 4 + 1, edit.value % 4 + frames);
    case Edit::WarpPanel:
        return board.setPanelWarp(shot, panel, edit.value % 4 + 1, edit.value % 4 + frames);
    case Edit::DeleteShotScene:
        return board.deleteShotScene(shot);
    case Edit::DeletePanelScene:
        return board.deletePanelScene(shot, panel);
    case Edit::DeletePanelTrack:
        return board.deletePanelTrack(shot);
    case Edit::KindCount:
        break;
    }
    return false;
}

Script shrink(Script script, const std::function<bool(const Script &)> &fails)
{
    for (std::size_t run = script.size() / 2; run >= 1;) {
        bool smaller = false;
        for (std::size_t at = 0; at + run <= script.size();) {
            Script candidate = script;
            candidate.erase(candidate.begin() + std::ptrdiff_t(at), candidate.begin() + std::ptrdiff_t(at + run));
            if (fails(candidate)) {
                script = std::move(candidate);
                smaller = true;
            } else {
                ++at;
            }
        }
        if (!smaller)
            run /= 2;
    }
    return script;
}

std::string toString(const Script &script)
{
    std::string text;
    for (const Edit &edit : script) {
        for (const Name &name : names) {
            if (name.kind == edit.kind)
                text += std::string("    {Edit::") + name.text + ", " + std::to_string(edit.where) + ", "
                    + std::to_string(edit.value) + "},\n";
        }
    }
    return text;
}
