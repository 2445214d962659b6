#include "veltrane/file/record_pairing.hpp"

#include "veltrane/file/content_hash.hpp"
#include "veltrane/file/record_name.hpp"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace veltrane {

namespace {

/// Records by a key; equal keys stand in the order of the drawing once sorted.
template <class Key>
using Keyed = std::vector<std::pair<Key, int>>;

/// Calls `pair` for records of equal keys, the first with the first and so on.
template <class Key, class Pair>
void pair_equal_keys(Keyed<Key>& before, Keyed<Key>& after, Pair pair) {
    std::sort(before.begin(), before.end());
    std::sort(after.begin(), after.end());
    auto a = before.begin();
    auto b = after.begin();
    while (a != before.end() && b != after.end()) {
        if (a->first < b->first) {
            ++a;
        } else if (b->first < a->first) {
            ++b;
        } else {
            pair((a++)->second, (b++)->second);
        }
    }
}

/// The nameless records of one type in one container.
struct Group {
    std::string_view type;
    std::vector<int> before;
    std::vector<int> after;
};

struct Likeness {
    std::ptrdiff_t differences = 0;  ///< that matter
    bool is_identical = false;       ///< not even others
};

class Pairing {
public:
    Pairing(RecordTree& before, RecordTree& after, const std::vector<std::string>& ignored)
        : before_(before),
          after_(after),
          of_content_(ignored, HandleRule::Any),
          exactly_(ignored, HandleRule::Equal),
          hash_(of_content_) {}

    void run() {
        join(0, 0);
        for_each_container([&](int a, int b) { pair_equal(a, b); });
        if (kept_handles_ > other_handles_) pair_by_handles();
        for_each_container([&](int a, int b) {
            for (const Group& group : pair_equal(a, b)) pair_in_place(group);
        });
    }

private:
    /// Records by the paired record before them in the first drawing.
    using Places = std::unordered_map<int, std::vector<int>>;

    /// Calls `visit` with each pair of records, containers before what they contain.
    template <class Visit>
    void for_each_container(Visit visit) {
        for (int place = 0; place < before_.size(); ++place) {
            if (before_.is_paired(place)) visit(place, before_[place].partner);
        }
    }

    void join(int a, int b) {
        before_[a].partner = b;
        after_[b].partner = a;
    }
    void count_handles(int a, int b) {
        if (before_[a].handle <= 0 || after_[b].handle <= 0) return;
        ++(before_[a].handle == after_[b].handle ? kept_handles_ : other_handles_);
    }
    bool are_free(int a, int b) const { return !before_.is_paired(a) && !after_.is_paired(b); }
    Likeness likeness(int a, int b, const DifferenceFilter& filter) const;
    bool join_if_equal(int a, int b, const DifferenceFilter& filter);

    std::vector<Group> pair_equal(int a, int b);
    void pair_names(int a, int b);
    std::vector<Group> groups(int a, int b) const;
    void pair_kept(const Group& group);
    void pair_in_step(const std::vector<int>& before, const std::vector<int>& after);
    void pair_by_content(const std::vector<int>& before, const std::vector<int>& after);
    void pair_by_handles();
    void pair_in_place(const Group& group);
    void pair_gap(const std::vector<int>& before, const std::vector<int>& after);

    RecordTree& before_;
    RecordTree& after_;
    const DifferenceFilter of_content_;
    const DifferenceFilter exactly_;
    ContentHash hash_;
    long kept_handles_ = 0;   // records of one name or content with one handle
    long other_handles_ = 0;  // and with two
};

std::vector<int> unpaired(const RecordTree& tree, const std::vector<int>& places) {
    std::vector<int> rest;
    std::copy_if(places.begin(), places.end(), std::back_inserter(rest),
                 [&](int place) { return !tree.is_paired(place); });
    return rest;
}

std::vector<int> reversed(std::vector<int> places) {
    std::reverse(places.begin(), places.end());
    return places;
}

Likeness Pairing::likeness(int a, int b, const DifferenceFilter& filter) const {
    const DxfSection_Object& before = *before_[a].record;
    const DxfSection_Object& after = *after_[b].record;
    const auto found = compare_records(before, after, ContainedRecords::Compare);
    const auto matters = [&](const FieldDifference& difference) {
        return filter.matters(difference, before, after);
    };
    return {std::count_if(found.begin(), found.end(), matters), found.empty()};
}

bool Pairing::join_if_equal(int a, int b, const DifferenceFilter& filter) {
    const Likeness found = likeness(a, b, filter);
    if (found.differences > 0) return false;
    count_handles(a, b);
    join(a, b);
    before_[a].is_identical = found.is_identical;
    return true;
}

std::vector<Group> Pairing::pair_equal(int a, int b) {
    pair_names(a, b);
    std::vector<Group> found = groups(a, b);
    for (const Group& group : found) {
        pair_kept(group);
        pair_in_step(unpaired(before_, group.before), unpaired(after_, group.after));
        pair_in_step(reversed(unpaired(before_, group.before)), reversed(unpaired(after_, group.after)));
        pair_by_content(unpaired(before_, group.before), unpaired(after_, group.after));
    }
    return found;
}

void Pairing::pair_names(int a, int b) {
    using Key = std::pair<std::string_view, std::string>;
    const auto named = [](const RecordTree& tree, int container) {
        Keyed<Key> keys;
        const TreeRecord& around = tree[container];
        for (int place = around.first; place < around.first + around.count; ++place) {
            if (tree.is_paired(place)) continue;
            const Text name = record_name(*tree[place].record);
            if (!name.is_null()) keys.push_back({{tree[place].type, name.str()}, place});
        }
        return keys;
    };
    Keyed<Key> before = named(before_, a), after = named(after_, b);
    pair_equal_keys(before, after, [&](int x, int y) {
        count_handles(x, y);
        join(x, y);
    });
}

std::vector<Group> Pairing::groups(int a, int b) const {
    std::vector<Group> found;
    std::unordered_map<std::string_view, std::size_t> of_type;
    const auto sort = [&](const RecordTree& tree, int container, std::vector<int> Group::*side) {
        const TreeRecord& around = tree[container];
        for (int place = around.first; place < around.first + around.count; ++place) {
            if (!record_name(*tree[place].record).is_null()) continue;
            const auto [type, is_new] = of_type.try_emplace(tree[place].type, found.size());
            if (is_new) found.push_back({type->first, {}, {}});
            (found[type->second].*side).push_back(place);
        }
    };
    sort(before_, a, &Group::before);
    sort(after_, b, &Group::after);
    return found;
}

/// Equal records that have kept their handle. What they refer to has kept its own, too: where handles have
/// shifted, a handle may have come to a record that is equal but for these.
void Pairing::pair_kept(const Group& group) {
    if (group.after.empty()) return;
    const int container = after_[group.after.front()].container;
    for (const int a : group.before) {
        const int b = after_.find(before_[a].handle);
        if (b < 0 || !are_free(a, b)) continue;
        if (after_[b].container == container && after_[b].type == group.type) join_if_equal(a, b, exactly_);
    }
}

/// Equal records, met by walking both lists in step. Where most records are as they were, this finds them
/// for less than their hashes would cost; elsewhere it gives up soon.
void Pairing::pair_in_step(const std::vector<int>& before, const std::vector<int>& after) {
    constexpr std::size_t kAhead = 3;  // records that were added or removed in one place
    constexpr int kPatience = 100;     // records without an equal one
    const auto join_at = [&](std::size_t i, std::size_t j) {
        return i < before.size() && j < after.size() && join_if_equal(before[i], after[j], of_content_);
    };
    int misses = 0;
    for (std::size_t i = 0, j = 0; i < before.size() && j < after.size() && misses < kPatience; ++i, ++j) {
        ++misses;
        for (std::size_t skipped = 0; skipped <= kAhead && misses > 0; ++skipped) {
            if (join_at(i, j + skipped)) {
                j += skipped;
                misses = 0;
            } else if (skipped > 0 && join_at(i + skipped, j)) {
                i += skipped;
                misses = 0;
            }
        }
    }
}

void Pairing::pair_by_content(const std::vector<int>& before, const std::vector<int>& after) {
    if (before.empty() || after.empty()) return;
    const auto hashed = [&](const RecordTree& tree, const std::vector<int>& places) {
        Keyed<std::size_t> keys;
        for (const int place : places) keys.emplace_back(hash_(*tree[place].record), place);
        return keys;
    };
    Keyed<std::size_t> old_keys = hashed(before_, before), new_keys = hashed(after_, after);
    pair_equal_keys(old_keys, new_keys, [&](int a, int b) { join_if_equal(a, b, of_content_); });
}

/// Records that have changed, and maybe moved into another container.
void Pairing::pair_by_handles() {
    for (int a = 1; a < before_.size(); ++a) {
        if (before_[a].handle <= 0) continue;
        const int b = after_.find(before_[a].handle);
        if (b > 0 && are_free(a, b) && before_[a].type == after_[b].type) join(a, b);
    }
}

/// What is left between two paired records in one drawing, with what is left between them in the other.
void Pairing::pair_in_place(const Group& group) {
    Places before, after;
    int last = -1;
    for (const int a : group.before) {
        if (before_.is_paired(a)) {
            last = a;
        } else {
            before[last].push_back(a);
        }
    }
    last = -1;
    for (const int b : group.after) {
        if (after_.is_paired(b)) {
            last = after_[b].partner;
        } else {
            after[last].push_back(b);
        }
    }
    for (const auto& [place, records] : before) {
        const auto other = after.find(place);
        if (other != after.end()) pair_gap(records, other->second);
    }
}

/// In order, unless there are a few more in one drawing: then those go together that differ least.
void Pairing::pair_gap(const std::vector<int>& before, const std::vector<int>& after) {
    constexpr std::size_t kFew = 16;
    if (before.size() == after.size() || std::max(before.size(), after.size()) > kFew) {
        for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i) join(before[i], after[i]);
        return;
    }
    std::vector<std::tuple<std::ptrdiff_t, int, int>> candidates;
    for (const int a : before) {
        for (const int b : after) candidates.emplace_back(likeness(a, b, of_content_).differences, a, b);
    }
    std::sort(candidates.begin(), candidates.end());
    for (const auto& [differences, a, b] : candidates) {
        if (are_free(a, b)) join(a, b);
    }
}

}  // namespace

void pair_records(RecordTree& before, RecordTree& after, const std::vector<std::string>& ignored) {
    Pairing(before, after, ignored).run();
}

}  // namespace veltrane
