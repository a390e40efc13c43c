#include "settings/ListMarks.h"

#include "settings/DayClock.h"

#include <algorithm>

namespace kestro {

namespace {

/// The run that the movie at `index` is in; null behind the last one.
template <typename Run>
const Run* runOf(const std::vector<Run>& runs, qsizetype index)
{
    const auto run = std::upper_bound(runs.begin(), runs.end(), index,
                                      [](qsizetype wanted, const Run& each) { return wanted < each.end; });
    return run == runs.end() ? nullptr : &*run;
}

} // namespace

void ListMarks::append(const EntryMark& mark)
{
    if (m_runs.empty() || !(m_runs.back().mark == mark))
        m_runs.push_back({m_runs.empty() ? 0 : m_runs.back().end, mark});
    ++m_runs.back().end;
}

const EntryMark& ListMarks::at(qsizetype index) const
{
    static const EntryMark nothing;
    const Run* const run = runOf(m_runs, index);
    return run == nullptr ? nothing : run->mark;
}

MoviesInTime::MoviesInTime(const ListMarks& marks, const DayClock& clock)
{
    const auto isTimed = [](const ListMarks::Run& run) { return run.mark.time != PlayTime(); };
    if (std::none_of(marks.m_runs.begin(), marks.m_runs.end(), isTimed)) return;
    const QDateTime now = clock.now();
    for (const auto& run : marks.m_runs)
        m_runs.push_back({run.end, clock.isTimeFor(run.mark.time, now)});
    const auto first = m_runs.front().isInTime;
    if (std::all_of(m_runs.begin(), m_runs.end(), [first](const Run& run) { return run.isInTime == first; }))
        m_runs.clear();
}

bool MoviesInTime::has(qsizetype index) const
{
    const Run* const run = runOf(m_runs, index);
    return run == nullptr || run->isInTime;
}

} // namespace kestro
