// What is seen of a stroke. Internal to the folder.
#pragma once

#include "veltrane/kernel/math/box.hpp"
#include "veltrane/kernel/math/interval.hpp"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace veltrane {

/// Tells where strokes are to be seen. Places are those of a Projection.
class Visibility {
public:
    virtual ~Visibility() = default;

    virtual bool shows(const kernel::Point& place) const = 0;
    /// The same for everything in a box, where that can be told at once.
    virtual std::optional<bool> shows_all(const kernel::Box& box) const = 0;
    /// The length, in page units, below which nothing changes.
    virtual double resolution() const = 0;
};

/// Everything between two heights.
class HeightSlab : public Visibility {
public:
    HeightSlab(double low, double high, double resolution)
        : low_(low), high_(high), resolution_(resolution) {}

    bool contains(double height) const { return height >= low_ && height < high_; }
    bool shows(const kernel::Point& place) const override { return contains(place.z()); }
    std::optional<bool> shows_all(const kernel::Box& box) const override;
    double resolution() const override { return resolution_; }

private:
    double low_, high_;
    double resolution_;
};

/// Cuts strokes into the parts that are seen, by looking at places as close together as the resolution asks
/// for. After very many places it looks at fewer, so that the time stays bounded.
class StrokeCutter {
public:
    explicit StrokeCutter(const Visibility& visibility) : visibility_(visibility) {}

    /// The parts of a straight stroke (two poles) or a Bezier piece (more), as ascending ranges of its
    /// parameter from 0 to 1. Single places that are seen amid hidden ones are left out: they are what
    /// rounding leaves of hidden strokes.
    std::vector<kernel::Interval> parts(std::span<const kernel::Point> poles);
    bool shows(const kernel::Point& place) const { return visibility_.shows(place); }

private:
    std::size_t place_count(std::span<const kernel::Point> poles);

    const Visibility& visibility_;
    std::size_t places_ = 0;
};

}  // namespace veltrane
