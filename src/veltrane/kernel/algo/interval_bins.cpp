#include "veltrane/kernel/algo/interval_bins.hpp"

#include <algorithm>

namespace veltrane::kernel {

IntervalBins::IntervalBins(std::span<const Interval> intervals) {
    if (intervals.empty()) return;
    constexpr double kEntriesPerInterval = 4;
    const double number = static_cast<double>(intervals.size());
    range_ = intervals.front();
    double sum = 0;
    for (const Interval& interval : intervals) {
        range_ = {std::min(range_.first, interval.first), std::max(range_.last, interval.last)};
        sum += interval.length();
    }
    // An interval of length h meets at most h / width + 2 bins.
    const double wanted = sum > 0 ? (kEntriesPerInterval - 2) * number * (range_.length() / sum) : number;
    count_ = static_cast<std::size_t>(std::clamp(wanted, 1.0, number));

    begin_.assign(count_ + 1, 0);
    for (const Interval& interval : intervals) {
        for (std::size_t bin = bin_of(interval.first); bin <= bin_of(interval.last); ++bin) ++begin_[bin + 1];
    }
    for (std::size_t bin = 0; bin < count_; ++bin) begin_[bin + 1] += begin_[bin];
    entries_.resize(begin_.back());
    std::vector<std::size_t> cursor(begin_.begin(), begin_.end() - 1);
    for (std::size_t i = 0; i < intervals.size(); ++i) {
        const std::size_t last = bin_of(intervals[i].last);
        for (std::size_t bin = bin_of(intervals[i].first); bin <= last; ++bin) entries_[cursor[bin]++] = i;
    }
}

std::span<const std::size_t> IntervalBins::at(double value) const {
    if (count_ == 0 || !range_.contains(value)) return {};
    const std::size_t bin = bin_of(value);
    return std::span(entries_).subspan(begin_[bin], begin_[bin + 1] - begin_[bin]);
}

std::size_t IntervalBins::bin_of(double value) const {
    if (!(range_.length() > 0)) return 0;
    const double share = (value - range_.first) / range_.length();
    return std::min(static_cast<std::size_t>(share * static_cast<double>(count_)), count_ - 1);
}

}  // namespace veltrane::kernel
