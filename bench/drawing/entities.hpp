// Random entities with the co-ordinates, counts and shares of options of real drawings.
#pragma once

#include "drawing/random.hpp"
#include "drawing/skeleton.hpp"
#include "drawing/tag_writer.hpp"

#include <string_view>
#include <vector>

namespace bench {

/// Every function writes one entity (with its followers). Co-ordinates lie between 0 and 10000, in blocks
/// between 0 and 100.
class EntityMaker {
public:
    EntityMaker(TagWriter& out, Random& random) : out_(out), random_(random) {}

    /// What comes next belongs to this block.
    void enter(const BlockName& block, double extent) {
        owner_ = block.record;
        extent_ = extent;
    }

    void r12_line();
    void line();
    void circle();
    void arc();
    void point();
    void light_polyline();
    void text();
    void spline();
    void hatch();
    void polyface_mesh();
    void face();
    void attribute_definition();
    void insert(std::string_view block, bool with_attribute);
    /// Neither scaled nor repeated.
    void plain_insert(std::string_view block);

    /// Extended data for the entity just written.
    void extended_data();

private:
    struct Place {
        double x, y;
    };

    Place place() { return place(extent_); }
    Place place(double extent) { return {extent * random_.unit(), extent * random_.unit()}; }
    Handle begin(std::string_view type, Handle owner);
    Handle begin(std::string_view type) { return begin(type, owner_); }
    void put_place(int code, Place place);
    void put_place(int code, Place place, double z);
    void put_knots(int points);
    void wavy_points(Place from, int count);
    void hatch_loop(bool outermost);
    void put_array();
    void polyface_vertices(Handle owner, Place corner, int rows, int columns);
    void polyface_faces(Handle owner, int rows, int columns);

    TagWriter& out_;
    Random& random_;
    Handle owner_;
    double extent_ = 10000;
    std::vector<Place> points_;  // kept between calls to spare allocations
};

}  // namespace bench
