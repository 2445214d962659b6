#include "vdxf/suggest.hpp"

#include <algorithm>
#include <cctype>
#include <numeric>
#include <utility>

namespace veltrane::tool {

namespace {

constexpr std::size_t kLongestWord = 64;  // nobody mistypes more than that

char lower(char c) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

/// Characters to insert, delete, replace or exchange with their neighbour to make one word of the other; case
/// does not count.
std::size_t edit_distance(std::string_view from, std::string_view to) {
    const auto equal = [](char a, char b) { return lower(a) == lower(b); };
    std::vector<std::size_t> last(to.size() + 1), row(to.size() + 1), next(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= from.size(); ++i) {
        next[0] = i;
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const std::size_t replaced = row[j - 1] + (equal(from[i - 1], to[j - 1]) ? 0 : 1);
            next[j] = std::min({row[j] + 1, next[j - 1] + 1, replaced});
            if (i > 1 && j > 1 && equal(from[i - 1], to[j - 2]) && equal(from[i - 2], to[j - 1])) {
                next[j] = std::min(next[j], last[j - 2] + 1);
            }
        }
        std::swap(last, row);
        std::swap(row, next);
    }
    return row[to.size()];
}

}  // namespace

std::string nearest(std::string_view word, const std::vector<std::string>& candidates) {
    word = word.substr(0, kLongestWord);
    std::string best;
    std::size_t best_distance = std::max<std::size_t>(2, word.size() / 3) + 1;
    for (const std::string& candidate : candidates) {
        const std::size_t distance = edit_distance(word, candidate);
        if (distance >= best_distance || distance >= candidate.size()) continue;
        best_distance = distance;
        best = candidate;
    }
    return best;
}

std::string did_you_mean(std::string_view word, const std::vector<std::string>& candidates) {
    const std::string best = nearest(word, candidates);
    return best.empty() ? std::string() : " Did you mean " + best + "?";
}

std::string list_of(const std::vector<std::string>& words) {
    std::string list;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (i > 0) list += i + 1 == words.size() ? " and " : ", ";
        list += words[i];
    }
    return list;
}

}  // namespace veltrane::tool
