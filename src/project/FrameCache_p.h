#pragma once

#include "scene/base/UT_SharedPtr.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

namespace Plotka
{

/// Timeline objects by first frame. Holds what it was given, equal frames in order of arrival; staleness is
/// the owner's business, who drops it whole.
///
/// The entries lie in short sorted runs: an insertion anywhere moves a bounded number of them, and a look-up is two
/// binary searches over flat memory. The few objects of most caches fit the first run, which needs no more than itself.
template <typename Object>
class FrameCache
{
public:
    void insert(unsigned int firstFrame, unsigned int frameCount, UT_SharedPtr<Object> object)
    {
        const std::size_t at = runOf(firstFrame);
        Run &into = run(at);
        if (into.empty())
            into.reserve(usualRun);
        const auto place = std::upper_bound(into.begin(), into.end(), firstFrame, isBefore);
        into.insert(place, Entry{firstFrame, frameCount, std::move(object)});
        if (into.size() > maxRun)
            split(at);
    }

    /// Of the inserted objects that cover @p frame the one that begins first, or the one that begins last; null
    /// without any.
    Object *findAt(unsigned int frame, bool earliest) const
    {
        Object *found = nullptr;
        for (std::size_t at = runOf(frame) + 1; at-- > 0;) {
            const Run &in = run(at);
            for (auto entry = std::upper_bound(in.begin(), in.end(), frame, isBefore); entry != in.begin();) {
                --entry;
                if (!entry->covers(frame))
                    return found;
                found = entry->object.get();
                if (!earliest)
                    return found;
            }
        }
        return found;
    }

    /// Lets go of one of the objects; false when there is none.
    bool letGoOfOne()
    {
        while (m_further && m_further->runs.back().empty()) {
            m_further->runs.pop_back();
            if (m_further->runs.empty())
                m_further.reset();
        }
        Run &last = m_further ? m_further->runs.back() : m_firstRun;
        if (last.empty())
            return false;
        last.pop_back();
        return true;
    }

private:
    struct Entry {
        unsigned int firstFrame;
        unsigned int frameCount;
        UT_SharedPtr<Object> object;

        bool covers(unsigned int frame) const { return object && firstFrame - 1 + frameCount >= frame; }
    };
    using Run = std::vector<Entry>;
    struct FurtherRuns {
        std::vector<unsigned int> heads; // the frame that each run begins with, ascending
        std::vector<Run> runs;
    };

    static constexpr std::size_t usualRun = 8; // as many panels as many shots have
    static constexpr std::size_t maxRun = 256;

    static bool isBefore(unsigned int frame, const Entry &entry) { return frame < entry.firstFrame; }

    const Run &run(std::size_t at) const { return at == 0 ? m_firstRun : m_further->runs[at - 1]; }
    Run &run(std::size_t at) { return at == 0 ? m_firstRun : m_further->runs[at - 1]; }

    /// The last run that begins at or before the frame, else the first.
    std::size_t runOf(unsigned int frame) const
    {
        if (!m_further)
            return 0;
        const std::vector<unsigned int> &heads = m_further->heads;
        return std::size_t(std::upper_bound(heads.begin(), heads.end(), frame) - heads.begin());
    }

    void split(std::size_t at)
    {
        if (!m_further)
            m_further = std::make_unique<FurtherRuns>();
        Run &full = run(at);
        const auto middle = full.begin() + std::ptrdiff_t(full.size() / 2);
        Run upper(std::make_move_iterator(middle), std::make_move_iterator(full.end()));
        full.erase(middle, full.end());
        const auto place = std::ptrdiff_t(at);
        m_further->heads.insert(m_further->heads.begin() + place, upper.front().firstFrame);
        m_further->runs.insert(m_further->runs.begin() + place, std::move(upper));
    }

    Run m_firstRun;
    std::unique_ptr<FurtherRuns> m_further; // null while everything fits the first run
};

} // namespace Plotka
