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
import sys

import conics
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
    return (spline(entity) if kind == "SPLINE" else conic(*conics.of(entity))).facts()


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
    tally = collections.Counter()
    document = peer.document(path)
    if document is None:
        return [], {"not read by the peer": 1}
    ours = peer.Facts([program, path])
    if not ours.are_known:
        return ["%s: not read here" % path.name], {}
    problems = []
    for entity, words in ours.paired(document, TYPES):
        kind = entity.dxftype()
        if words is None:
            tally["%s only at the peer" % kind] += 1
            continue
        if not words:
            tally["%s without a shape" % kind] += 1
            continue
        figures = [float(word) for word in words]
        try:
            peers = peer_facts(entity)
        except Exception as failure:
            tally["%s that the peer cannot measure" % kind] += 1
            continue
        problem = disagreement(kind, figures, peers)
        if problem:
            problems.append("%s: %s #%s %s\n    ours %s\n    peer %s" % (
                path.name, kind, entity.dxf.handle, problem, figures, peers))
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
