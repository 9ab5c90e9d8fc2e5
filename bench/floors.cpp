// What the same questions cost over the barest data that could answer them.

#include "BigProject.h"
#include "FlatTimeline.h"
#include "RandomPlaces.h"
#include "sizes.h"

#include <QHash>

#include <atomic>
#include <utility>
#include <vector>

namespace
{

/// A pointer and its count, as shared handles between threads are.
class CountedHandle
{
public:
    CountedHandle(int *object, std::atomic<int> *count) : m_object(object), m_count(count) {}
    CountedHandle(const CountedHandle &other) : m_object(other.m_object), m_count(other.m_count)
    {
        m_count->fetch_add(1, std::memory_order_relaxed);
    }
    CountedHandle &operator=(const CountedHandle &) = delete;
    ~CountedHandle()
    {
        if (m_count->fetch_sub(1, std::memory_order_acq_rel) == 1)
            *m_object = 0;
    }

private:
    int *m_object;
    std::atomic<int> *m_count;
};
static_assert(sizeof(CountedHandle) == 16);

void frameToPanel(benchmark::State &state)
{
    const FlatTimeline &timeline = FlatTimeline::ofSize(panelsOf(state));
    RandomPlaces frames(timeline.frameCount());
    for (auto _ : state)
        benchmark::DoNotOptimize(timeline.panelAt(frames.next() + 1));
}
PLOTKA_BENCH_SIZES(frameToPanel, "floor: two searches");

void byId(benchmark::State &state)
{
    const std::vector<SC_Id> &ids = BigProject::ofSize(panelsOf(state)).panelIds();
    QHash<qint64, const void *> hash;
    for (const SC_Id &id : ids)
        hash.insert(id.value(), &id);
    RandomPlaces places(panelsOf(state));
    for (auto _ : state)
        benchmark::DoNotOptimize(hash.value(ids[places.next()].value()));
}
PLOTKA_BENCH_SIZES(byId, "floor: hash");

void countedCopy(benchmark::State &state)
{
    struct Object {
        std::atomic<int> count{1};
        int value = 1;
    };
    std::vector<Object> objects(panelsOf(state));
    std::vector<CountedHandle> handles;
    handles.reserve(objects.size());
    for (Object &object : objects)
        handles.emplace_back(&object.value, &object.count);
    std::size_t at = 0;
    for (auto _ : state) {
        CountedHandle copy = handles[at];
        benchmark::DoNotOptimize(copy);
        at = at + 1 == handles.size() ? 0 : at + 1;
    }
    for (Object &object : objects)
        object.count = 2; // the vector's own handles find nothing to end
}
PLOTKA_BENCH_SIZES(countedCopy, "floor: counted copy");

} // namespace
