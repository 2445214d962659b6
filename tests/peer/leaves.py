"""Leaves of expanded entities, which are faces, edges and points, and what they look like in numbers.

An edge is ("line", a, b), ("conic", centre, u, v, first, last) as in conics.py, or ("points", points of a spline);
all of them go through an affine map by their points. A leaf is ("face", edges), ("edge", edge), ("point", p), or
("hatch", edges), for the peer does not say which loops bound a face together. `rules` counts under a name of
expansion_excuses.RULES what was brought over to the rules here.
"""
import math

from ezdxf.math import Matrix44, Vec3

import conics

NO_LINE = 1e-6  # of lines; also the least thickness, and what corners of cells may be apart


def mapped_edge(edge, matrix):
    kind, *parts = edge
    if kind == "line":
        return (kind, matrix.transform(parts[0]), matrix.transform(parts[1]))
    if kind == "points":
        return (kind, tuple(matrix.transform_vertices(parts[0])))
    centre, u, v, first, last = parts
    return (kind, matrix.transform(centre), matrix.transform_direction(u), matrix.transform_direction(v), first, last)


def mapped(leaf, matrix):
    kind, content = leaf
    if kind == "point":
        return (kind, matrix.transform(content))
    if kind == "edge":
        return (kind, mapped_edge(content, matrix))
    return (kind, [mapped_edge(edge, matrix) for edge in content])


def is_whole(edge):
    return edge[0] == "conic" and abs(edge[5] - edge[4] - conics.WHOLE_TURN) <= conics.NO_SPAN


def points_of(edge, steps=4):
    if edge[0] == "line":
        return edge[1:]
    if edge[0] == "points":
        return edge[1]
    _, centre, u, v, first, last = edge
    ts = [first + (last - first) * i / steps for i in range(steps + 1)]
    return [centre + u * math.cos(t) + v * math.sin(t) for t in ts]


def numbers_of(edge):
    """As expansion_facts prints them."""
    if not is_whole(edge):
        return [c for p in points_of(edge) for c in p.xyz]
    _, centre, u, v = edge[:4]
    a, b, c = u.dot(u), v.dot(v), u.dot(v)
    major = math.sqrt((a + b) / 2 + math.hypot((a - b) / 2, c))
    u, v = u.xyz, v.xyz
    return list(centre.xyz) + [(u[i] * u[j] + v[i] * v[j]) / major for i in range(3) for j in range(i, 3)]


def side(edge, way, shift):
    """The face that an edge sweeps; a whole turn has one seam."""
    points = points_of(edge)
    ends = points[:1] if is_whole(edge) else [points[0], points[-1]]
    return ("face", [edge, mapped_edge(edge, shift)] + [("line", p, p + way) for p in ends])


def swept(leaves, thickness, extrusion):
    """The leaves themselves, or what they sweep."""
    if abs(thickness) <= NO_LINE:
        return leaves
    way = Vec3(extrusion).normalize() * thickness
    shift = Matrix44.translate(*way.xyz)
    result = []
    for kind, content in leaves:
        if kind == "point":
            result.append(("edge", ("line", content, content + way)))
        elif kind == "edge":
            result.append(side(content, way, shift))
        else:
            result += [(kind, content), mapped((kind, content), shift)]
            result += [side(edge, way, shift) for edge in content]
    return result


def corners_without_doubles(corners, rules):
    kept = []
    for corner in corners:
        if all(corner.distance(other) > NO_LINE for other in kept):
            kept.append(corner)
    if len(kept) >= 3:
        along = (kept[1] - kept[0]).normalize()
        if all(along.cross(p - kept[0]).magnitude <= NO_LINE for p in kept[2:]):
            rules["cells on a line"] += 1
            kept.sort(key=lambda p: along.dot(p - kept[0]))
            kept = [kept[0], kept[-1]]
    return kept


def crossing(a, b, c, d):
    """Where the sides a-b and c-d of a plane quadrilateral cross, or None."""
    u, v, between = b - a, d - c, c - a
    normal = u.cross(v)
    size = normal.dot(normal)
    if size <= (NO_LINE * u.magnitude * v.magnitude) ** 2 or abs(between.dot(normal)) > NO_LINE * math.sqrt(size):
        return None
    s, t = between.cross(v).dot(normal) / size, between.cross(u).dot(normal) / size
    return a + u * s if 0 < s < 1 and 0 < t < 1 else None


def polygon(corners):
    return [("line", a, b) for a, b in zip(corners, corners[1:] + corners[:1])]


def cell(corners, rules):
    """The leaves of a face of three or four corners."""
    kept = corners_without_doubles([Vec3(p) for p in corners], rules)
    if len(kept) == 1:
        return [("point", kept[0])]
    if len(kept) == 2:
        return [("edge", ("line", *kept))]
    if len(kept) == 4:
        for a, b, c, d in (kept, kept[3:] + kept[:3]):
            x = crossing(a, b, c, d)
            if x:
                rules["crossed cells"] += 1
                return [("face", polygon([x, b, c])), ("face", polygon([x, d, a]))]
    return [("face", polygon(kept))]
