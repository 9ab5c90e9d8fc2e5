// A playlist of shots, each a playlist of ten clips, asked what a project is asked.

#include "BigProject.h"
#include "RandomPlaces.h"
#include "sizes.h"

#include <framework/mlt.h>

#include <map>
#include <memory>
#include <vector>

namespace
{

class Playlists
{
public:
    explicit Playlists(unsigned int panels)
    {
        static mlt_repository repository = mlt_factory_init("/nonexistent"); // none of its plug-ins is needed
        static mlt_profile profile = mlt_profile_init("atsc_1080p_24");
        (void)repository;
        m_shots = mlt_playlist_new(profile);
        const std::vector<unsigned int> lengths = BigProject::panelLengths(panels);
        for (std::size_t first = 0; first < lengths.size(); first += BigProject::panelsPerShot) {
            mlt_playlist shot = mlt_playlist_new(profile);
            for (std::size_t i = first; i < first + BigProject::panelsPerShot; ++i) {
                mlt_producer clip = mlt_producer_new(profile);
                mlt_playlist_append_io(shot, clip, 0, static_cast<mlt_position>(lengths[i]) - 1);
                mlt_producer_close(clip);
                frameCount += lengths[i];
            }
            mlt_playlist_append(m_shots, mlt_playlist_producer(shot));
            panelsOfShot.push_back(shot);
        }
    }
    static Playlists &ofSize(unsigned int panels)
    {
        static std::map<unsigned int, std::unique_ptr<Playlists>> made;
        std::unique_ptr<Playlists> &one = made[panels];
        if (!one)
            one = std::make_unique<Playlists>(panels);
        return *one;
    }

    mlt_producer clipAt(unsigned int frame)
    {
        const int shot = mlt_playlist_get_clip_index_at(m_shots, static_cast<mlt_position>(frame));
        const int start = mlt_playlist_clip_start(m_shots, shot);
        return mlt_playlist_get_clip_at(panelsOfShot[std::size_t(shot)], static_cast<mlt_position>(frame) - start);
    }

    std::vector<mlt_playlist> panelsOfShot;
    unsigned int frameCount = 0;

private:
    mlt_playlist m_shots; // the process ends before it does
};

void frameToClip(benchmark::State &state)
{
    Playlists &playlists = Playlists::ofSize(panelsOf(state));
    RandomPlaces frames(playlists.frameCount);
    for (auto _ : state)
        benchmark::DoNotOptimize(playlists.clipAt(frames.next()));
}
PLOTKA_BENCH_SIZES(frameToClip, "MLT: frame to clip");

void fullWalk(benchmark::State &state)
{
    Playlists &playlists = Playlists::ofSize(panelsOf(state));
    for (auto _ : state) {
        for (mlt_playlist shot : playlists.panelsOfShot) {
            for (int i = 0; i < mlt_playlist_count(shot); ++i) {
                mlt_playlist_clip_info info;
                benchmark::DoNotOptimize(mlt_playlist_get_clip_info(shot, &info, i));
            }
        }
    }
}
PLOTKA_BENCH_SIZES(fullWalk, "MLT: full walk");

void rollAndQuery(benchmark::State &state)
{
    Playlists &playlists = Playlists::ofSize(panelsOf(state));
    const std::size_t middle = playlists.panelsOfShot.size() / 2;
    const mlt_playlist shot = playlists.panelsOfShot[middle];
    const int left = BigProject::panelsPerShot / 2;
    const int first = mlt_playlist_clip_length(shot, left);
    const int second = mlt_playlist_clip_length(shot, left + 1);
    int by = 0;
    for (auto _ : state) {
        by = 1 - by;
        mlt_playlist_resize_clip(shot, left, 0, first - by - 1);
        mlt_playlist_resize_clip(shot, left + 1, 0, second + by - 1);
        benchmark::DoNotOptimize(playlists.clipAt(playlists.frameCount / 2));
    }
    mlt_playlist_resize_clip(shot, left, 0, first - 1);
    mlt_playlist_resize_clip(shot, left + 1, 0, second - 1);
}
PLOTKA_BENCH_SIZES(rollAndQuery, "MLT: roll and query");

} // namespace
