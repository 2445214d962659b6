// Constrained Delaunay triangulations of the plane.
#pragma once

#include "veltrane/kernel/math/vector.hpp"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace veltrane::kernel {

/// A triangulation of points in which given edges stand and every other edge is Delaunay as far as these
/// permit. All decisions are exact, so that touching, coinciding and collinear points need no tolerance.
/// Points are inserted in a random order sorted along a curve (N. Amenta, S. Choi and G. Rote, "Incremental
/// constructions con BRIO", SoCG 2003), which takes O(n log n) expected; edges after S. W. Sloan, "A fast
/// algorithm for generating constrained Delaunay triangulations", Computers & Structures 47, 1993.
///
/// Vertices have the numbers of the points, those inserted later the next ones after four corners far
/// outside. Co-ordinates should be of the order of 1; see predicates.hpp.
class Triangulation {
public:
    /// A side of a triangle. Fixed sides belong to boundaries.
    struct Side {
        bool is_fixed = false;
        int passes = 0;  ///< of boundaries with the triangle to their left, less those with it to their right
    };
    /// Corners run counter-clockwise. Side i lies opposite to corner i, as does neighbour i.
    struct Triangle {
        std::array<int, 3> corners;
        std::array<int, 3> neighbours;
        std::array<Side, 3> sides;
        int winding = 0;  ///< how often boundaries run around the triangle, counter-clockwise

        bool is_inside() const { return winding % 2 != 0; }
    };
    /// A piece of a boundary that a later one crossed at a new vertex.
    struct Split {
        int from, to, vertex;
        int passes;  ///< along from -> to, less those back
    };

    explicit Triangulation(std::span<const Point2> points);

    const std::vector<Triangle>& triangles() const { return triangles_; }
    const Point2& point(int vertex) const { return points_[vertex]; }
    int vertex_count() const { return static_cast<int>(points_.size()); }
    /// The vertex that stands for this one: another where an earlier point has the same co-ordinates.
    int standing_for(int vertex) const { return vertex < own_count_ ? same_as_[vertex] : vertex; }

    /// Makes the straight edge between two vertices part of a boundary. The vertices on the way, over which
    /// it runs in pieces, are appended to `passed`. Where it crosses an earlier boundary there is a new
    /// vertex, off both by rounding at most, and an entry in splits(). False after very many crossings.
    bool add_boundary(int from, int to, std::vector<int>& passed);
    const std::vector<Split>& splits() const { return splits_; }

    /// Counts how often boundaries, which must be closed, run around each triangle. Those reached from
    /// outside over an odd number of them count as inside.
    void mark_inside();

    /// A new vertex inside a marked triangle or on its free edge. The triangle is looked for from `near`, by
    /// default the one used last; -1, and nothing done, when the place is not inside, on a boundary or a
    /// vertex, or `accept` refuses the triangle.
    template <class Accept>
    int insert_inside(const Point2& p, Accept accept, int near = -1) {
        const int t = last_ = located(p, near >= 0 ? near : last_);
        if (!triangles_[t].is_inside() || !accept(triangles_[t])) return -1;
        return insert(p, t, vertex_count());
    }

private:
    struct EdgeOf {
        int triangle;
        int edge;
    };

    struct Quad;

    Quad quad_at(EdgeOf at) const;
    void insert_all();
    /// The vertex number when inserted, -1 when the place is taken.
    int insert(const Point2& p, int triangle, int vertex);
    void split_triangle(int t, int vertex);
    void split_edge(EdgeOf at, int vertex);
    void flip(EdgeOf at);
    void legalise(std::vector<EdgeOf>& waiting);
    int located(const Point2& p, int start);
    EdgeOf edge_between(int a, int b) const;
    EdgeOf across(EdgeOf at) const;
    int corner_index(int t, int vertex) const;
    void relink(int t, int from, int to);
    void pass(int from, int to);
    int split_crossed(int from, int to, EdgeOf crossed);
    int edge_towards(int from, int to, EdgeOf& crossed) const;
    bool make_edge_exist(int from, int& to, EdgeOf& crossed);

    std::vector<Point2> points_;
    std::vector<int> same_as_;
    std::vector<int> triangle_of_;  // some triangle at each vertex
    std::vector<Triangle> triangles_;
    std::vector<Split> splits_;
    int own_count_ = 0;
    int last_ = 0;
    std::uint32_t random_ = 1;
};

}  // namespace veltrane::kernel
