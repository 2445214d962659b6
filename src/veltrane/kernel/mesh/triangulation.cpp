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
    triangles_ = {{{a, a + 1, a + 2}, {kNone, 1, kNone}, {}}, {{a, a + 2, a + 3}, {kNone, kNone, 0}, {}}};
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
    if (on_edge != kNone && at.sides[on_edge].is_fixed) return kNone;
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
    const auto piece = [&](int x, int y, std::array<int, 3> neighbours, const Side& side) {
        return Triangle{{v, x, y}, neighbours, {side, Side(), Side()}, old.winding};
    };
    triangles_[t] = piece(a, b, {old.neighbours[2], second, third}, old.sides[2]);
    triangles_.push_back(piece(b, c, {old.neighbours[0], third, t}, old.sides[0]));
    triangles_.push_back(piece(c, a, {old.neighbours[1], t, second}, old.sides[1]));
    relink(old.neighbours[0], t, second);
    relink(old.neighbours[1], t, third);
    triangle_of_[v] = triangle_of_[a] = triangle_of_[b] = t;
    triangle_of_[c] = second;
    std::vector<EdgeOf> waiting{{t, 0}, {second, 0}, {third, 0}};
    legalise(waiting);
}

/// The two triangles at an edge as a quadrilateral: p, a, q, b counter-clockwise, the edge between a and b.
struct Triangulation::Quad {
    Triangle one, two;   // with the corners p and q
    int t, o;            // their numbers
    int pa, bp, aq, qb;  // the outer sides: places in `one`, `one`, `two`, `two`
    int p, a, q, b;
};

Triangulation::Quad Triangulation::quad_at(EdgeOf at) const {
    const EdgeOf opposite = across(at);
    const Triangle &one = triangles_[at.triangle], &two = triangles_[opposite.triangle];
    const int i = at.edge, j = opposite.edge;
    return {
        one,     two,         at.triangle,    opposite.triangle,    previous(i),    next(i),
        next(j), previous(j), one.corners[i], one.corners[next(i)], two.corners[j], one.corners[previous(i)]};
}

void Triangulation::split_edge(EdgeOf at, int v) {
    const auto [one, two, t, o, pa, bp, aq, qb, p, a, q, b] = quad_at(at);
    const int t2 = static_cast<int>(triangles_.size()), o2 = t2 + 1;
    const Side side = one.sides[at.edge], back{side.is_fixed, -side.passes};
    triangles_[t] = {{v, p, a}, {one.neighbours[pa], o2, t2}, {one.sides[pa], side, Side()}, one.winding};
    triangles_.push_back({{v, b, p}, {one.neighbours[bp], t, o}, {one.sides[bp], Side(), side}, one.winding});
    triangles_.push_back({{v, a, q}, {two.neighbours[aq], o, t}, {two.sides[aq], Side(), back}, two.winding});
    triangles_[o] = {{v, q, b}, {two.neighbours[qb], t2, o2}, {two.sides[qb], back, Side()}, two.winding};
    relink(one.neighbours[bp], t, t2);
    relink(two.neighbours[aq], o, o2);
    triangle_of_[v] = triangle_of_[p] = triangle_of_[a] = t;
    triangle_of_[q] = triangle_of_[b] = o;
    std::vector<EdgeOf> waiting{{t, 0}, {t2, 0}, {o, 0}, {o2, 0}};
    legalise(waiting);
}

/// The other diagonal of the two triangles at an edge, which make a convex quadrilateral.
void Triangulation::flip(EdgeOf at) {
    const auto [one, two, t, o, pa, bp, aq, qb, p, a, q, b] = quad_at(at);
    triangles_[t] = {{p, a, q},
                     {two.neighbours[aq], o, one.neighbours[pa]},
                     {two.sides[aq], Side(), one.sides[pa]},
                     one.winding};
    triangles_[o] = {{q, b, p},
                     {one.neighbours[bp], t, two.neighbours[qb]},
                     {one.sides[bp], Side(), two.sides[qb]},
                     two.winding};
    relink(two.neighbours[aq], o, t);
    relink(one.neighbours[bp], t, o);
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
        if (one.neighbours[at.edge] == kNone || one.sides[at.edge].is_fixed) continue;
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

void Triangulation::pass(int from, int to) {
    const EdgeOf at = edge_between(from, to), opposite = across(at);
    const int along = triangles_[at.triangle].corners[next(at.edge)] == from ? 1 : -1;
    Side& side = triangles_[at.triangle].sides[at.edge];
    side = {true, side.passes + along};
    triangles_[opposite.triangle].sides[opposite.edge] = {true, -side.passes};
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

/// Flips away what crosses the segment, beginning with an edge; `to` becomes the first vertex on the way.
/// False, with the edge, when a boundary crosses.
bool Triangulation::make_edge_exist(int from, int& to, EdgeOf& crossed) {
    const Point2 a = points_[from], b = points_[to];
    std::deque<std::pair<int, int>> crossing;
    while (true) {
        const Triangle& at = triangles_[crossed.triangle];
        if (at.sides[crossed.edge].is_fixed) return false;
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
    std::vector<EdgeOf> waiting;
    for (const auto& [x, y] : made) waiting.push_back(edge_between(x, y));
    pass(from, to);
    legalise(waiting);
    return true;
}

/// A vertex where the segment crosses a boundary. Where rounding leaves no room for a new one, the nearer end
/// of the boundary's edge will do.
int Triangulation::split_crossed(int from, int to, EdgeOf crossed) {
    const Quad quad = quad_at(crossed);
    const Point2 &p = points_[quad.p], &a = points_[quad.a], &q = points_[quad.q], &b = points_[quad.b];
    const Vector2 along = b - a, way = points_[to] - points_[from];
    const double share = cross2(points_[from] - a, way) / cross2(along, way);
    const Point2 x = a + share * along;
    const bool has_room = orientation(x, p, a) > 0 && orientation(x, a, q) > 0 && orientation(x, q, b) > 0 &&
                          orientation(x, b, p) > 0;
    if (!has_room) return share < 0.5 ? quad.a : quad.b;
    const int vertex = vertex_count();
    points_.push_back(x);
    triangle_of_.push_back(crossed.triangle);
    splits_.push_back({quad.a, quad.b, vertex, quad.one.sides[crossed.edge].passes});
    split_edge(crossed, vertex);
    return vertex;
}

bool Triangulation::add_boundary(int from, int to, std::vector<int>& passed) {
    from = standing_for(from);
    to = standing_for(to);
    const std::size_t most_splits = 1000 + 4 * static_cast<std::size_t>(own_count_);
    std::vector<int> targets{to};  // the next one last
    for (std::size_t steps = 0; !targets.empty(); ++steps) {
        if (from == targets.back()) {
            targets.pop_back();
            continue;
        }
        EdgeOf crossed{kNone, 0};
        int reached = edge_towards(from, targets.back(), crossed);
        if (reached != kNone) {
            pass(from, reached);
        } else {
            reached = targets.back();
            if (!make_edge_exist(from, reached, crossed)) {
                if (splits_.size() > most_splits || steps > 4 * points_.size() + 1000) return false;
                targets.push_back(split_crossed(from, targets.back(), crossed));
                continue;
            }
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
            triangles_[to].winding = at.winding - at.sides[i].passes;
            stack.push_back(to);
        }
    }
}

}  // namespace veltrane::kernel
