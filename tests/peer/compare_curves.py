#!/usr/bin/env python3
"""Compares the curve entities of real drawings with ezdxf, an independent reader.

    compare_curves.py CURVE_FACTS SAMPLES_FOLDER

For every LINE, CIRCLE, ARC, ELLIPSE, SPLINE, RAY, XLINE and POINT of every ASCII drawing below the folder: end
points, length and box must agree within 1e-9 of the entity's size. Exits with 77 (skipped) without ezdxf or
without a folder, with 1 when something disagrees.
"""
import collections
import functools
import math
import subprocess
import sys

import peer

TOLERANCE = 1e-9
TYPES = ("LINE", "CIRCLE", "ARC", "ELLIPSE", "SPLINE", "RAY", "XLINE", "POINT")

# Nodes and weights of the ten-point Gauss-Legendre rule, one half of the symmetric interval.
GAUSS = ((0.1488743389816312, 0.2955242247147529), (0.4333953941292472, 0.2692667193099963),
         (0.6794095682990244, 0.2190863625159820), (0.8650633666889845, 0.1494513491505806),
         (0.9739065285171717, 0.0666713443086881))


def integral(function, first, last):
    middle, half = (first + last) / 2, (last - first) / 2
    return half * sum(w * (function(middle - half * x) + function(middle + half * x)) for x, w in GAUSS)


def adaptive(function, first, last, tolerance, depth=0):
    """Halves the interval until both halves together say what the whole says."""
    whole = integral(function, first, last)
    middle = (first + last) / 2
    halves = integral(function, first, middle) + integral(function, middle, last)
    if depth >= 12 or abs(halves - whole) <= tolerance:
        return halves
    return (adaptive(function, first, middle, tolerance / 2, depth + 1) +
            adaptive(function, middle, last, tolerance / 2, depth + 1))


def bisected(function, low, high):
    low_sign = function(low) > 0
    for _ in range(60):
        middle = (low + high) / 2
        if middle in (low, high):
            break
        if (function(middle) > 0) == low_sign:
            low = middle
        else:
            high = middle
    return (low + high) / 2


class Curve:
    """A parametric curve, measured from its points and first derivatives alone."""

    def __init__(self, point, derivative, breaks):
        self.point, self.derivative, self.breaks = point, derivative, breaks

    def spans(self):
        return [(a, b) for a, b in zip(self.breaks, self.breaks[1:]) if b > a]

    def length(self):
        def speed(t):
            return math.sqrt(sum(c * c for c in self.derivative(t)))
        rough = sum(integral(speed, a, b) for a, b in self.spans())
        return sum(adaptive(speed, a, b, 1e-11 * rough) for a, b in self.spans())

    def box(self):
        candidates = [self.point(t) for t in self.breaks]
        steps = 12
        for a, b in self.spans():
            ts = [a + (b - a) * i / steps for i in range(steps + 1)]
            ds = [self.derivative(t) for t in ts]
            for axis in range(3):
                for i in range(steps):
                    if ds[i][axis] * ds[i + 1][axis] <= 0:
                        root = bisected(lambda t: self.derivative(t)[axis], ts[i], ts[i + 1])
                        candidates.append(self.point(root))
        return [f(p[axis] for p in candidates) for f in (min, max) for axis in range(3)]

    def facts(self):
        return (list(self.point(self.breaks[0])) + list(self.point(self.breaks[-1])) + [self.length()] + self.box())


def conic(centre, u, v, first, last):
    """centre + cos t u + sin t v."""
    breaks = [first + (last - first) * i / 8 for i in range(9)]
    return Curve(lambda t: tuple(centre[i] + math.cos(t) * u[i] + math.sin(t) * v[i] for i in range(3)),
                 lambda t: tuple(math.cos(t) * v[i] - math.sin(t) * u[i] for i in range(3)), breaks)


def circular(entity):
    ocs = entity.ocs()
    radius = entity.dxf.radius
    centre, u, v = (ocs.to_wcs(p) for p in (entity.dxf.center, (radius, 0, 0), (0, radius, 0)))
    if entity.dxftype() == "CIRCLE":
        return conic(centre, u, v, 0, 2 * math.pi)
    first, last = math.radians(entity.dxf.start_angle), math.radians(entity.dxf.end_angle)
    span = last - first
    if not 0 < span <= 2 * math.pi:
        span %= 2 * math.pi
    if span <= 1e-7:  # equal angles mean the whole circle, from its zero angle
        return conic(centre, u, v, 0, 2 * math.pi)
    return conic(centre, u, v, first, first + span)


def elliptic(entity):
    from ezdxf.math import Vec3
    major = Vec3(entity.dxf.major_axis)
    minor = Vec3(entity.dxf.extrusion).normalize().cross(major).normalize(major.magnitude * entity.dxf.ratio)
    first, last = entity.dxf.start_param, entity.dxf.end_param
    span = (last - first) % (2 * math.pi)
    if abs(last - first) % (2 * math.pi) <= 1e-7:
        first, span = 0, 2 * math.pi
    return conic(Vec3(entity.dxf.center), major, minor, first, first + span)


def spline(entity):
    curve = entity.construction_tool()
    knots = list(curve.knots())
    degree = curve.order - 1
    breaks = sorted(set(knots[degree:len(knots) - degree]))
    return Curve(lambda t: tuple(curve.point(t)), lambda t: tuple(curve.derivative(t, 1)[1]), breaks)


def peer_facts(entity):
    kind = entity.dxftype()
    dxf = entity.dxf
    if kind == "LINE":
        start, end = dxf.start, dxf.end
        corners = [f(a, b) for f in (min, max) for a, b in zip(start, end)]
        return list(start) + list(end) + [start.distance(end)] + corners
    if kind == "POINT":
        return list(dxf.location)
    if kind in ("RAY", "XLINE"):
        return list(dxf.start) + list(dxf.unit_vector.normalize())
    maker = {"ELLIPSE": elliptic, "SPLINE": spline}.get(kind, circular)
    return maker(entity).facts()


def our_facts(program, path):
    result = subprocess.run([program, path], capture_output=True, text=True, errors="replace", timeout=120)
    if result.returncode != 0:
        return None
    facts = {}
    order = collections.defaultdict(list)
    for line in result.stdout.splitlines():
        handle, kind, container, *numbers = line.split("\t")
        entry = (kind, [float(n) for n in numbers])
        facts[handle] = entry
        order[kind, container].append(entry)
    return facts, order


def peer_entities(document):
    """(entity, container) of every entity that ezdxf keeps."""
    for block in document.blocks:
        name = block.name.upper()
        if block.is_any_layout:
            container = "MODEL" if name.startswith(("*MODEL", "$MODEL")) else "PAPER"
        else:
            container = "BLOCK " + block.name
        for entity in block:
            yield entity, container


def disagreement(kind, ours, peers):
    if len(ours) != len(peers):
        return "has %d figures against %d" % (len(ours), len(peers))
    size = max([1e-6] + [abs(n) for n in peers])
    # A whole turn may begin anywhere.
    closed = kind in ("CIRCLE", "ARC", "ELLIPSE", "SPLINE") and math.dist(peers[:3], peers[3:6]) <= 1e-9 * size
    first = 6 if closed else 0
    worst = max([abs(a - b) for a, b in zip(ours[first:], peers[first:])] or [0])
    return None if worst <= TOLERANCE * size else "differs by %.3g of %.6g" % (worst, size)


def compare_file(program, path):
    """(its disagreements, how often what happened)."""
    import ezdxf
    tally = collections.Counter()
    try:
        document = ezdxf.readfile(path)
    except Exception as refusal:  # the peer's own limits are no concern here
        return [], {"not read by the peer": 1}
    ours = our_facts(program, path)
    if ours is None:
        return ["%s: not read here" % path.name], {}
    facts, order = ours
    entities = list(peer_entities(document))
    counts = collections.Counter((entity.dxftype(), container) for entity, container in entities)
    positions = collections.Counter()
    problems = []
    for entity, container in entities:
        kind = entity.dxftype()
        if kind not in TYPES:
            continue
        place = positions[kind, container]
        positions[kind, container] += 1
        # Handles may be missing or claimed twice in the file; the order then tells. The peer adds entities
        # of its own to some drawings; the handle then tells.
        listed = order.get((kind, container), [])
        known = listed[place] if len(listed) == counts[kind, container] else facts.get(entity.dxf.handle)
        if known and known[0] != kind:
            known = None
        if not known:
            tally["%s only at the peer" % kind] += 1
            continue
        if not known[1]:
            tally["%s without a shape" % kind] += 1
            continue
        try:
            peers = peer_facts(entity)
        except Exception as failure:
            tally["%s that the peer cannot measure" % kind] += 1
            continue
        problem = disagreement(kind, known[1], peers)
        if problem:
            problems.append("%s: %s #%s %s\n    ours %s\n    peer %s" % (
                path.name, kind, entity.dxf.handle, problem, known[1], peers))
        else:
            tally["%s agree" % kind] += 1
    return problems, tally


def main():
    program, folder = (sys.argv[1:] + [""])[:2]
    peer.need_ezdxf()
    tally = collections.Counter()
    problems = []
    for found, counts in peer.each(functools.partial(compare_file, program), peer.ascii_drawings(folder)):
        problems += found
        tally.update(counts)
    return peer.report(tally, problems)


if __name__ == "__main__":
    sys.exit(main())
