#include "scene/storage/SequenceLoader_p.h"

#include "scene/project/SC_ProjectCommon.h"
#include "scene/project/SC_SceneCommon.h"
#include "scene/project/TUScene.h"
#include "scene/storage/ElementAttributes_p.h"
#include "scene/storage/ProjectFileKeys_p.h"
#include "scene/timeline/AT_TimeWarpSeq.h"
#include "scene/timeline/AT_TransitionSeq.h"
#include "scene/timeline/TUSeqTimedValue.h"

#include <QSet>

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

namespace keys = ProjectFileKeys;

namespace
{

bool isRange(std::optional<unsigned int> from, std::optional<unsigned int> frames)
{
    return from && frames && *from >= 1 && *frames >= 1 && quint64(*from) + *frames - 1 <= TUSeqTimedValue::maxFrame;
}

QString belongsElsewhere(const SC_Id &id)
{
    return QStringLiteral("the id %1 belongs to something else").arg(id.AsString());
}

} // namespace

SequenceLoader::SequenceLoader(TUSeqTimedValue &sequence, LoadReport &report) : m_sequence(sequence), m_report(report)
{
}

void SequenceLoader::addBlock(Kind kind, const ElementAttributes &attributes)
{
    Block block;
    block.kind = kind;
    block.place = attributes.place();
    block.transition = std::move(m_pending);
    const auto from = attributes.findFrames(keys::from);
    const auto frames = attributes.findFrames(keys::frames);
    const auto object = attributes.findId(keys::object);
    const auto scene = attributes.findId(keys::scene);
    project().reserveId(object.value_or(SC_Id()));
    project().reserveId(scene.value_or(SC_Id()));
    const bool isReadable = isRange(from, frames) && (kind == Kind::Empty || (object && scene));
    if (!isReadable) {
        refuse(block, QStringLiteral("its frames or ids cannot be read"));
        if (block.transition)
            refuse(*block.transition, QStringLiteral("the block it leads into was left out"));
        return;
    }
    block.from = *from;
    block.to = *from + *frames - 1;
    if (kind != Kind::Empty) {
        block.object = *object;
        block.scene = *scene;
    }
    if (kind == Kind::Warp) {
        block.start = attributes.readDouble(keys::start, 1.0);
        block.end = attributes.readDouble(keys::end, double(*frames));
    }
    m_blocks.push_back(std::move(block));
}

void SequenceLoader::addTransition(const ElementAttributes &attributes)
{
    if (m_pending)
        refuse(*m_pending, QStringLiteral("it leads into no block"));
    m_pending = std::make_unique<Transition>();
    Transition &transition = *m_pending;
    transition.place = attributes.place();
    const auto id = attributes.findId(keys::id);
    const auto from = attributes.findFrames(keys::from);
    const auto frames = attributes.findFrames(keys::frames);
    const auto before = attributes.findFrames(keys::before);
    transition.readable = id && !id->isNull() && isRange(from, frames) && before && *before <= *frames;
    transition.id = id.value_or(SC_Id());
    transition.from = from.value_or(0);
    transition.frames = frames.value_or(0);
    transition.before = before.value_or(0);
    transition.type = attributes.readInt(keys::type, 0);
    transition.angle = attributes.readInt(keys::angle, 0);
    transition.reverse = attributes.readBool(keys::reverse, false);
}

void SequenceLoader::finish()
{
    if (m_pending)
        refuse(*m_pending, QStringLiteral("it leads into no block"));
    sortOut();
    cut();
    Block *previous = nullptr;
    for (Block &block : m_blocks) {
        const bool stands = insert(block);
        if (block.isJoined && !(stands && previous && join(*previous, block))) {
            refuse(*block.transition, conflictOf(*block.transition));
            block.isWhole = false;
            if (previous)
                previous->isWhole = false;
        }
        previous = stands ? &block : nullptr;
    }
    // One that places the same has its turn when the first has found no room.
    for (Block &block : m_doubled) {
        block.cutFrom = block.from;
        block.cutTo = block.to;
        if (!conflictOf(block).isEmpty())
            refuse(block, QStringLiteral("its scene is placed already"));
        else if (insert(block))
            m_blocks.push_back(std::move(block));
    }
    // Edits kept the warps of slope 1; now they get their very numbers.
    for (Block &block : m_blocks) {
        if (block.warp && block.isWhole) {
            block.warp->start = block.start;
            block.warp->end = block.end;
        }
    }
}

SC_ProjectCommon &SequenceLoader::project() const
{
    return *m_sequence.sceneCommon()->projectCommon();
}

/// What keeps the block from standing where there is room for it; empty when nothing does.
QString SequenceLoader::conflictOf(const Block &block) const
{
    switch (project().claimOf(block.object, block.scene)) {
    case SC_ProjectCommon::Free:
        return QString();
    case SC_ProjectCommon::Placed:
        return QStringLiteral("its scene is placed already");
    case SC_ProjectCommon::Foreign:
        break;
    }
    const auto *scene = static_cast<const TUScene *>(project().sceneManager()->find(block.scene));
    if (scene && scene->objectId() != block.object)
        return QStringLiteral("it places scene %1 under another object id").arg(block.scene.AsString());
    const bool isOfObject = !block.object.isNull() && !project().isFree(block.object);
    return belongsElsewhere(isOfObject ? block.object : block.scene);
}

/// What keeps the transition from lying over two blocks that are there.
QString SequenceLoader::conflictOf(const Transition &transition) const
{
    return project().isFree(transition.id) ? QStringLiteral("it has no room between the two blocks")
                                           : belongsElsewhere(transition.id);
}

/// Puts the blocks in order; those that place something already placed go, and those that place the same wait.
void SequenceLoader::sortOut()
{
    const auto beginsBefore = [](const Block &a, const Block &b) { return a.from < b.from; };
    if (!std::is_sorted(m_blocks.begin(), m_blocks.end(), beginsBefore))
        std::stable_sort(m_blocks.begin(), m_blocks.end(), beginsBefore);

    QSet<qint64> told;
    const auto isTold = [&told](const SC_Id &id) { return !id.isNull() && told.contains(id.value()); };
    auto kept = m_blocks.begin();
    for (Block &block : m_blocks) {
        const bool isEmpty = block.kind == Kind::Empty;
        const QString conflict = isEmpty ? QString() : conflictOf(block);
        const bool isDoubled = !isEmpty && (isTold(block.object) || isTold(block.scene));
        if (conflict.isEmpty() && !isDoubled) {
            told.insert(block.object.value());
            told.insert(block.scene.value());
            if (&*kept != &block)
                *kept = std::move(block);
            ++kept;
            continue;
        }
        if (!conflict.isEmpty())
            refuse(block, conflict);
        if (block.transition)
            refuse(*block.transition, QStringLiteral("the block it leads into was left out"));
        if (conflict.isEmpty())
            m_doubled.push_back(std::move(block));
    }
    m_blocks.erase(kept, m_blocks.end());
}

/// Finds for each block the frames up to its cuts.
void SequenceLoader::cut()
{
    Block *before = nullptr;
    for (Block &block : m_blocks) {
        block.cutFrom = block.from;
        block.cutTo = block.to;
        if (block.transition) {
            const Transition &transition = *block.transition;
            const unsigned int toFrame = transition.from + transition.frames - 1;
            block.isJoined = transition.readable && before && before->kind != Kind::Empty && block.kind != Kind::Empty
                && before->from < block.from && before->to < block.to && transition.from == block.from
                && toFrame == before->to;
            if (block.isJoined)
                block.cutFrom = block.from + transition.before;
            else
                refuse(transition, QStringLiteral("it cannot be read or does not lie over the two blocks"));
            if (before && before->from < block.from && before->cutTo >= block.cutFrom) {
                before->cutTo = block.cutFrom - 1;
                before->isWhole = block.isJoined;
            }
        }
        before = &block;
    }
}

bool SequenceLoader::insert(Block &block)
{
    // Between two transitions that overlap nothing may be left.
    const bool isLeft = block.cutFrom <= block.cutTo;
    const unsigned int frames = isLeft ? block.cutTo - block.cutFrom + 1 : 0;
    std::unique_ptr<TUSeq> seq;
    if (block.kind == Kind::Clip) {
        seq = std::make_unique<AT_SceneSeq>(block.object, block.scene);
    } else if (block.kind == Kind::Warp) {
        auto warp = std::make_unique<AT_TimeWarpSeq>(block.object, block.scene, block.start, block.end);
        if (warp->hasSlopeOne(block.to - block.from + 1))
            warp->end = warp->start + double(frames) - 1.0;
        block.warp = warp.get();
        seq = std::move(warp);
    }
    if (!isLeft || !m_sequence.insertBlock(block.cutFrom, frames, seq.get())) {
        block.warp = nullptr;
        const QString conflict = conflictOf(block); // with a transition that was put in before it
        refuse(block, conflict.isEmpty() ? QStringLiteral("its frames overlap those of another block") : conflict);
        return false;
    }
    seq.release(); // the sequence counts it now
    return true;
}

bool SequenceLoader::join(Block &before, Block &after)
{
    const Transition &told = *after.transition;
    auto transition = std::make_unique<AT_TransitionSeq>(told.id, told.type, told.angle, told.reverse);
    const unsigned int cut = after.cutFrom;
    if (before.cutTo + 1 != cut
        || !m_sequence.insertTransition(cut, told.before, told.frames - told.before, transition.get()))
        return false;
    transition.release();
    return true;
}

void SequenceLoader::refuse(const Block &block, const QString &reason)
{
    QString item = QStringLiteral("block of \"%1\"").arg(m_sequence.getName());
    if (!block.object.isNull())
        item += QStringLiteral(", object ") + block.object.AsString();
    m_report.warn(block.place, item, QStringLiteral("left out: %1").arg(reason));
}

void SequenceLoader::refuse(const Transition &transition, const QString &reason)
{
    m_report.warn(transition.place, QStringLiteral("transition of \"%1\"").arg(m_sequence.getName()),
        QStringLiteral("left out: %1").arg(reason));
}
