#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace Plotka
{

/// Timeline objects by first frame. Holds what it was given, equal frames in order of arrival; staleness is
/// the owner's business, who drops it whole.
///
/// The entries lie in short sorted runs: an insertion anywhere moves a bounded number of them, and a look-up is two
/// binary searches over flat memory.
template <typename T>
class FrameCache
{
public:
    void insert(unsigned int firstFrame, unsigned int frameCount, const T &object)
    {
        if (m_runs.empty()) {
            m_heads.push_back(firstFrame);
            m_runs.emplace_back();
        }
        const std::size_t at = runOf(firstFrame);
        Run &run = m_runs[at];
        const auto place = std::upper_bound(run.begin(), run.end(), firstFrame, isBefore);
        run.insert(place, Entry{firstFrame, frameCount, object});
        m_heads[at] = run.front().firstFrame;
        if (run.size() > maxRun)
            split(at);
    }

    /// Of the inserted objects that cover @p frame the one that begins first, or the one that begins last;
    /// T::invalid without any.
    const T &findAt(unsigned int frame, bool earliest) const
    {
        const T *found = &T::invalid;
        if (m_runs.empty())
            return *found;
        for (std::size_t at = runOf(frame) + 1; at-- > 0;) {
            const Run &run = m_runs[at];
            for (auto entry = std::upper_bound(run.begin(), run.end(), frame, isBefore); entry != run.begin();) {
                --entry;
                if (!entry->covers(frame))
                    return *found;
                found = &entry->object;
                if (!earliest)
                    return *found;
            }
        }
        return *found;
    }

private:
    struct Entry {
        unsigned int firstFrame;
        unsigned int frameCount;
        T object;

        bool covers(unsigned int frame) const { return object.isValid() && firstFrame - 1 + frameCount >= frame; }
    };
    using Run = std::vector<Entry>;

    static constexpr std::size_t maxRun = 256;

    static bool isBefore(unsigned int frame, const Entry &entry) { return frame < entry.firstFrame; }

    /// The last run that begins at or before the frame, else the first.
    std::size_t runOf(unsigned int frame) const
    {
        const auto after = std::upper_bound(m_heads.begin(), m_heads.end(), frame);
        return after == m_heads.begin() ? 0 : std::size_t(after - m_heads.begin()) - 1;
    }

    void split(std::size_t at)
    {
        Run &full = m_runs[at];
        const auto middle = full.begin() + std::ptrdiff_t(full.size() / 2);
        Run upper(std::make_move_iterator(middle), std::make_move_iterator(full.end()));
        full.erase(middle, full.end());
        const auto next = std::ptrdiff_t(at) + 1;
        m_heads.insert(m_heads.begin() + next, upper.front().firstFrame);
        m_runs.insert(m_runs.begin() + next, std::move(upper));
    }

    std::vector<unsigned int> m_heads; ///< first frame of each run
    std::vector<Run> m_runs;
};

} // namespace Plotka
