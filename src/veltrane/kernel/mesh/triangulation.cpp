#include "veltrane/kernel/mesh/triangulation.hpp"

#include "veltrane/kernel/math/predicates.hpp"
#include "veltrane/kernel/mesh/insertion_order.hpp"

#include <algorithm>
#include <deque>
#include <utility>

namespace veltrane::kernel {

namespace {

constexpr int kNone = -1;

int next(int i) {
    return i == 2 ? 0 : i + 1;
}
int previous(int i) {
    return i == 0 ? 2 : i - 1;
}

/// True when b and c lie on the same side of a; the three are collinear.
bool same_way(const Point2& a, const Point2& b, const Point2& c) {
    return (b - a).dot(c - a) > 0;
}

}  // namespace

Triangulation::Triangulation(std::span<const Point2> points)
    : points_(points.begin(), points.end()), own_count_(static_cast<int>(points.size())) {
    Point2 low(0, 0), high(1, 1);
    if (!points.empty()) low = high = points.front();
    for (const Point2& p : points) {
        low = low.cwiseMin(p);
        high = high.cwiseMax(p);
    }
    const double far = 10 * std::max({high.x() - low.x(), high.y() - low.y(), 1e-3});
    const Point2 middle = (low + high) / 2;
    for (const Vector2& corner :
         {Vector2(-far, -far), Vector2(far, -far), Vector2(far, far), Vector2(-far, far)})
        points_.push_back(middle + corner);
    const int a = own_count_;
    triangles_ = {{{a, a + 1, a + 2}, {kNone, 1, kNone}, {0, 0, 0}},
                  {{a, a + 2, a + 3}, {kNone, kNone, 0}, {0, 0, 0}}};
    triangle_of_.assign(points_.size(), 0);
    triangle_of_[a + 3] = 1;
    insert_all();
}

void Triangulation::insert_all() {
    same_as_.resize(own_count_);
    const std::span<const Point2> own(points_.data(), own_count_);
    for (const int vertex : insertion_order(own)) {
        const Point2 p = points_[vertex];
        const int t = located(p, last_);
        same_as_[vertex] = vertex;
        for (const int corner : triangles_[t].corners) {
            if (points_[corner] == p) same_as_[vertex] = corner;
        }
        if (same_as_[vertex] == vertex) insert(p, t, vertex);
    }
}

int Triangulation::insert(const Point2& p, int t, int vertex) {
    const Triangle& at = triangles_[t];
    int on_edge = kNone;
    for (int i = 0; i < 3; ++i) {
        if (points_[at.corners[i]] == p) return kNone;
        if (orientation(points_[at.corners[next(i)]], points_[at.corners[previous(i)]], p) == 0) on_edge = i;
    }
    if (on_edge != kNone && at.passes[on_edge] != 0) return kNone;
    if (vertex == vertex_count()) {
        points_.push_back(p);
        triangle_of_.push_back(t);
    }
    if (on_edge == kNone) {
        split_triangle(t, vertex);
    } else {
        split_edge({t, on_edge}, vertex);
    }
    last_ = t;
    return vertex;
}

Triangulation::EdgeOf Triangulation::across(EdgeOf at) const {
    const int other = triangles_[at.triangle].neighbours[at.edge];
    if (other == kNone) return {kNone, 0};
    const int corner = triangles_[at.triangle].corners[next(at.edge)];
    return {other, next(corner_index(other, corner))};
}

int Triangulation::corner_index(int t, int vertex) const {
    const auto& corners = triangles_[t].corners;
    return corners[0] == vertex ? 0 : corners[1] == vertex ? 1 : 2;
}

void Triangulation::relink(int t, int from, int to) {
    if (t == kNone) return;
    auto& neighbours = triangles_[t].neighbours;
    *std::find(neighbours.begin(), neighbours.end(), from) = to;
}

void Triangulation::split_triangle(int t, int v) {
    const Triangle old = triangles_[t];
    const auto [a, b, c] = old.corners;
    const int second = static_cast<int>(triangles_.size()), third = second + 1;
    triangles_[t] = {{v, a, b}, {old.neighbours[2], second, third}, {old.passes[2], 0, 0}, old.inside};
    triangles_.push_back({{v, b, c}, {old.neighbours[0], third, t}, {old.passes[0], 0, 0}, old.inside});
    triangles_.push_back({{v, c, a}, {old.neighbours[1], t, second}, {old.passes[1], 0, 0}, old.inside});
    relink(old.neighbours[0], t, second);
    relink(old.neighbours[1], t, third);
    triangle_of_[v] = triangle_of_[a] = triangle_of_[b] = t;
    triangle_of_[c] = second;
    std::vector<EdgeOf> waiting{{t, 0}, {second, 0}, {third, 0}};
    legalise(waiting);
}

void Triangulation::split_edge(EdgeOf at, int v) {
    const EdgeOf opposite = across(at);
    const int t = at.triangle, o = opposite.triangle;
    const Triangle one = triangles_[t], two = triangles_[o];
    const int i = at.edge, j = opposite.edge;
    const int p = one.corners[i], a = one.corners[next(i)], b = one.corners[previous(i)], q = two.corners[j];
    const int t2 = static_cast<int>(triangles_.size()), o2 = t2 + 1;
    triangles_[t] = {
        {v, p, a}, {one.neighbours[previous(i)], o2, t2}, {one.passes[previous(i)], 0, 0}, one.inside};
    triangles_.push_back(
        {{v, b, p}, {one.neighbours[next(i)], t, o}, {one.passes[next(i)], 0, 0}, one.inside});
    triangles_.push_back(
        {{v, a, q}, {two.neighbours[next(j)], o, t}, {two.passes[next(j)], 0, 0}, two.inside});
    triangles_[o] = {
        {v, q, b}, {two.neighbours[previous(j)], t2, o2}, {two.passes[previous(j)], 0, 0}, two.inside};
    relink(one.neighbours[next(i)], t, t2);
    relink(two.neighbours[next(j)], o, o2);
    triangle_of_[v] = triangle_of_[p] = triangle_of_[a] = t;
    triangle_of_[q] = triangle_of_[b] = o;
    std::vector<EdgeOf> waiting{{t, 0}, {t2, 0}, {o, 0}, {o2, 0}};
    legalise(waiting);
}

/// The other diagonal of the two triangles at an edge, which make a convex quadrilateral.
void Triangulation::flip(EdgeOf at) {
    const EdgeOf opposite = across(at);
    const int t = at.triangle, o = opposite.triangle;
    const Triangle one = triangles_[t], two = triangles_[o];
    const int i = at.edge, j = opposite.edge;
    const int p = one.corners[i], a = one.corners[next(i)], b = one.corners[previous(i)], q = two.corners[j];
    triangles_[t] = {{p, a, q},
                     {two.neighbours[next(j)], o, one.neighbours[previous(i)]},
                     {two.passes[next(j)], 0, one.passes[previous(i)]},
                     one.inside};
    triangles_[o] = {{q, b, p},
                     {one.neighbours[next(i)], t, two.neighbours[previous(j)]},
                     {one.passes[next(i)], 0, two.passes[previous(j)]},
                     two.inside};
    relink(two.neighbours[next(j)], o, t);
    relink(one.neighbours[next(i)], t, o);
    triangle_of_[p] = triangle_of_[a] = t;
    triangle_of_[q] = triangle_of_[b] = o;
}

/// Flips until the waiting edges and all that flips touch are Delaunay (C. L. Lawson 1977). An entry may have
/// become another edge by a flip; that flip then entered all edges around it again.
void Triangulation::legalise(std::vector<EdgeOf>& waiting) {
    while (!waiting.empty()) {
        const EdgeOf at = waiting.back();
        waiting.pop_back();
        const Triangle& one = triangles_[at.triangle];
        if (one.neighbours[at.edge] == kNone || one.passes[at.edge] != 0) continue;
        const EdgeOf opposite = across(at);
        const int q = triangles_[opposite.triangle].corners[opposite.edge];
        if (in_circle(points_[one.corners[0]], points_[one.corners[1]], points_[one.corners[2]],
                      points_[q]) <= 0)
            continue;
        flip(at);
        for (const int t : {at.triangle, opposite.triangle}) {
            waiting.push_back({t, 0});
            waiting.push_back({t, 2});
        }
    }
}

/// The triangle that holds a point, by a walk that leaves each triangle over a random one of the edges that
/// hide the point: such a walk ends in any triangulation (O. Devillers, S. Pion and M. Teillaud, "Walking in
/// a triangulation", SoCG 2001).
int Triangulation::located(const Point2& p, int t) {
    int from = kNone;
    for (bool found = false; !found;) {
        found = true;
        random_ = random_ * 1664525u + 1013904223u;
        int i = static_cast<int>((random_ >> 16) % 3);
        for (int k = 0; k < 3; ++k, i = next(i)) {
            const Triangle& at = triangles_[t];
            const int to = at.neighbours[i];
            if (to == kNone || to == from) continue;
            if (orientation(points_[at.corners[next(i)]], points_[at.corners[previous(i)]], p) >= 0) continue;
            from = t;
            t = to;
            found = false;
            break;
        }
    }
    return t;
}

Triangulation::EdgeOf Triangulation::edge_between(int a, int b) const {
    // Around a corner of the whole one cannot walk, and no two of these are asked for.
    if (a >= own_count_ && a < own_count_ + 4) std::swap(a, b);
    int t = triangle_of_[a];
    const int start = t;
    do {
        const int i = corner_index(t, a);
        if (triangles_[t].corners[next(i)] == b) return {t, previous(i)};
        if (triangles_[t].corners[previous(i)] == b) return {t, next(i)};
        t = triangles_[t].neighbours[next(i)];
    } while (t != start);
    return {kNone, 0};
}

void Triangulation::pass(EdgeOf at) {
    const EdgeOf opposite = across(at);
    std::uint8_t& passes = triangles_[at.triangle].passes[at.edge];
    passes = passes == 1 ? 2 : 1;
    if (opposite.triangle != kNone) triangles_[opposite.triangle].passes[opposite.edge] = passes;
}

/// The vertex to which an edge leads from `from` straight towards `to`; else -1 and the edge that is crossed
/// first.
int Triangulation::edge_towards(int from, int to, EdgeOf& crossed) const {
    const Point2 &a = points_[from], &b = points_[to];
    int t = triangle_of_[from];
    const int start = t;
    do {
        const int i = corner_index(t, from);
        const int x = triangles_[t].corners[next(i)], y = triangles_[t].corners[previous(i)];
        if (x == to || y == to) return to;
        const int side = orientation(a, points_[x], b);
        if (side == 0 && same_way(a, points_[x], b)) return x;
        if (side > 0 && orientation(a, points_[y], b) < 0) crossed = {t, i};
        t = triangles_[t].neighbours[next(i)];
    } while (t != start);
    return kNone;
}

/// Flips away what crosses the segment; `to` becomes the first vertex on the way. False when a boundary
/// crosses.
bool Triangulation::make_edge_exist(int from, int& to, EdgeOf crossed) {
    const Point2 a = points_[from], b = points_[to];
    std::deque<std::pair<int, int>> crossing;
    while (true) {
        const Triangle& at = triangles_[crossed.triangle];
        if (at.passes[crossed.edge] != 0) return false;
        crossing.emplace_back(at.corners[next(crossed.edge)], at.corners[previous(crossed.edge)]);
        const EdgeOf opposite = across(crossed);
        const int q = triangles_[opposite.triangle].corners[opposite.edge];
        if (q == to) break;
        const int side = orientation(a, b, points_[q]);
        if (side == 0) {
            to = q;
            break;
        }
        // Left of the way comes first in the other triangle.
        crossed = {opposite.triangle, side > 0 ? next(opposite.edge) : previous(opposite.edge)};
    }
    std::vector<std::pair<int, int>> made;
    while (!crossing.empty()) {
        const auto [x, y] = crossing.front();
        crossing.pop_front();
        const EdgeOf at = edge_between(x, y), opposite = across(at);
        const int p = triangles_[at.triangle].corners[at.edge];
        const int q = triangles_[opposite.triangle].corners[opposite.edge];
        const bool is_convex = orientation(points_[p], points_[x], points_[q]) *
                                   orientation(points_[p], points_[y], points_[q]) <
                               0;
        if (!is_convex) {
            crossing.emplace_back(x, y);
            continue;
        }
        flip(at);
        const bool still_crosses = p != from && q != from && p != to && q != to &&
                                   orientation(a, b, points_[p]) * orientation(a, b, points_[q]) < 0;
        if (still_crosses) {
            crossing.emplace_back(p, q);
        } else {
            made.emplace_back(p, q);
        }
    }
    pass(edge_between(from, to));
    std::vector<EdgeOf> waiting;
    for (const auto& [x, y] : made) waiting.push_back(edge_between(x, y));
    legalise(waiting);
    return true;
}

bool Triangulation::add_boundary(int from, int to, std::vector<int>& passed) {
    from = standing_for(from);
    to = standing_for(to);
    while (from != to) {
        EdgeOf crossed{kNone, 0};
        int reached = edge_towards(from, to, crossed);
        if (reached != kNone) {
            pass(edge_between(from, reached));
        } else {
            reached = to;
            if (crossed.triangle == kNone || !make_edge_exist(from, reached, crossed)) return false;
        }
        if (reached != to) passed.push_back(reached);
        from = reached;
    }
    return true;
}

void Triangulation::mark_inside() {
    std::vector<bool> seen(triangles_.size());
    std::vector<int> stack{triangle_of_[own_count_]};
    seen[stack.front()] = true;
    while (!stack.empty()) {
        const Triangle at = triangles_[stack.back()];
        stack.pop_back();
        for (int i = 0; i < 3; ++i) {
            const int to = at.neighbours[i];
            if (to == kNone || seen[to]) continue;
            seen[to] = true;
            triangles_[to].inside = at.inside != (at.passes[i] == 1);
            stack.push_back(to);
        }
    }
}

}  // namespace veltrane::kernel
