#include "nearest.hpp"

#include "values.hpp"

#include <algorithm>
#include <utility>

namespace oructl {

size_t editDistance(std::string_view one, std::string_view other)
{
    std::vector<size_t> row(other.size() + 1);
    for (size_t i = 0; i < row.size(); ++i) row[i] = i;
    for (size_t i = 0; i < one.size(); ++i) {
        size_t diagonal = std::exchange(row[0], i + 1);
        for (size_t j = 0; j < other.size(); ++j) {
            const size_t replaced = diagonal + (one[i] == other[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min(replaced, std::min(row[j], row[j + 1]) + 1);
        }
    }
    return row.back();
}

std::vector<std::string_view> nearest(std::string_view typed,
                                      const std::vector<std::string_view> &candidates)
{
    constexpr size_t kMost = 3;
    constexpr size_t kLongest = 64; // no name is as long: no use to compare
    if (typed.empty() || typed.size() > kLongest) return {};
    const size_t furthest = std::max<size_t>(2, typed.size() / 3);

    std::vector<std::pair<size_t, std::string_view>> near;
    for (const std::string_view candidate : candidates) {
        const bool beginsWith = typed.size() >= 3 && candidate.starts_with(typed);
        // The distance is at least that of the lengths.
        if (!beginsWith && (candidate.size() > typed.size() + furthest ||
                            typed.size() > candidate.size() + furthest))
            continue;
        const size_t distance = beginsWith ? 0 : editDistance(typed, candidate);
        if (distance <= furthest) near.emplace_back(distance, candidate);
    }
    std::stable_sort(near.begin(), near.end(),
                     [](const auto &a, const auto &b) { return a.first < b.first; });
    if (!near.empty() && near.front().first <= 1) // the others are not meant
        std::erase_if(near, [](const auto &each) { return each.first > 1; });
    if (near.size() > kMost) near.resize(kMost);
    std::vector<std::string_view> names;
    names.reserve(near.size());
    for (const auto &[distance, name] : near) names.push_back(name);
    return names;
}

std::string didYouMean(std::string_view typed, const std::vector<std::string_view> &candidates)
{
    const auto near = nearest(typed, candidates);
    return near.empty() ? "" : "; did you mean " + alternatives(near) + "?";
}

} // namespace oructl
