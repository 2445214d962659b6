#!/usr/bin/env python3
"""Compares inserts placed at random with ezdxf, an independent reader.

    random_placements.py EXPANSION_FACTS COUNT

COUNT drawings, equal in every run, hold blocks of entities of all kinds, blocks that insert those, and blocks that
insert these; every insert is turned, tilted, mirrored, scaled evenly or unevenly or repeated in rows and columns by
chance. Exits with 77 (skipped) without ezdxf, with 1 when something disagrees. A drawing that disagrees stays where
the report says.
"""
import math
import pathlib
import random
import shutil
import sys
import tempfile

import compare_expansion
import peer

LEVELS = (("Leaf", 4), ("Inner", 3), ("Outer", 2))  # blocks; each level inserts the one before


class Drawing:
    def __init__(self, seed):
        self.chance = random.Random(seed)
        self.handles = 0x100
        self.scale = 10.0 ** self.chance.uniform(-2, 4)
        self.centre = [self.number(100) if self.chance.random() < 0.2 else 0.0] * 3  # of some far from the origin

    def text(self):
        blocks, level = [], []
        for stem, count in LEVELS:
            names = [stem + str(number) for number in range(count)]
            blocks += [self.block(name, level) for name in names]
            level = names
        entities = [self.insert(name) for name in level for _ in range(3)] + self.entities()
        return "\n".join(["0", "SECTION", "2", "HEADER", "9", "$ACADVER", "1", "AC1015", "0", "ENDSEC",
                          "0", "SECTION", "2", "BLOCKS", *blocks, "0", "ENDSEC",
                          "0", "SECTION", "2", "ENTITIES", *entities, "0", "ENDSEC", "0", "EOF", ""])

    def record(self, kind, marker, *groups):
        """Groups are (code, value); a value of three numbers is a point."""
        self.handles += 1
        lines = ["0", kind, "5", "%X" % self.handles, "100", "AcDbEntity", "8", "0", "100", marker]
        for code, value in groups:
            values = value if isinstance(value, (list, tuple)) else [value]
            for axis, number in enumerate(values):
                lines += [str(code + 10 * axis), repr(number) if isinstance(number, float) else str(number)]
        return "\n".join(lines)

    def block(self, name, inner):
        content = self.entities() + [self.insert(self.chance.choice(inner)) for _ in range(2 if inner else 0)]
        self.chance.shuffle(content)
        head = self.record("BLOCK", "AcDbBlockBegin", (2, name), (70, 0), (10, self.point()), (3, name))
        return "\n".join([head, *content, self.record("ENDBLK", "AcDbBlockEnd")])

    def number(self, size=1.0):
        return self.chance.uniform(-size, size) * self.scale

    def point(self):
        return [c + self.number() for c in self.centre]

    def direction(self):
        kind = self.chance.randrange(5)
        if kind < 2:
            return [0.0, 0.0, (1.0, -1.0)[kind]]
        if kind == 2:  # about where the rule for the axes changes
            return self.unit([self.chance.uniform(-0.03, 0.03), self.chance.uniform(-0.03, 0.03),
                              self.chance.choice([-1.0, 1.0])])
        return self.unit([self.chance.gauss(0, 1) for _ in range(3)])

    @staticmethod
    def unit(vector):
        return [c / math.hypot(*vector) for c in vector]

    def tilted(self):
        """Thickness and extrusion."""
        thickness = [(39, self.number(0.5))] if self.chance.random() < 0.2 else []
        return *thickness, (210, self.direction())

    def entities(self):
        makers = (self.line, self.circle, self.arc, self.ellipse, self.spline, self.lwpolyline, self.polyline,
                  self.face, self.solid, self.mesh, self.hatch, self.dot)
        return [maker() for maker in self.chance.sample(makers, 6)]

    def line(self):
        return self.record("LINE", "AcDbLine", (10, self.point()), (11, self.point()), *self.tilted())

    def dot(self):
        return self.record("POINT", "AcDbPoint", (10, self.point()), *self.tilted())

    def circle(self):
        return self.record("CIRCLE", "AcDbCircle", (10, self.point()), (40, abs(self.number()) + 0.01 * self.scale),
                           *self.tilted())

    def arc(self):
        start = self.chance.uniform(-400, 400)
        return self.record("ARC", "AcDbCircle", (10, self.point()), (40, abs(self.number()) + 0.01 * self.scale),
                           *self.tilted(), (100, "AcDbArc"), (50, start),
                           (51, start + self.chance.uniform(1, 359)))

    def ellipse(self):
        normal, first = self.direction(), self.chance.uniform(0, 6)
        x, y, z = self.point()
        axis = [y * normal[2] - z * normal[1], z * normal[0] - x * normal[2], x * normal[1] - y * normal[0]]
        span = self.chance.choice([math.tau, self.chance.uniform(0.1, 6)])
        return self.record("ELLIPSE", "AcDbEllipse", (10, self.point()), (11, axis), (210, normal),
                           (40, self.chance.uniform(0.1, 1)), (41, first if span < 6.2 else 0.0),
                           (42, first + span if span < 6.2 else span))

    def spline(self):
        count = self.chance.randint(4, 7)
        knots = [0.0] * 4 + [float(k) for k in range(1, count - 3)] + [float(count - 3)] * 4
        return self.record("SPLINE", "AcDbSpline", (70, 8), (71, 3), (72, len(knots)), (73, count),
                           *((40, knot) for knot in knots), *((10, self.point()) for _ in range(count)))

    def vertices(self):
        """(point in the plane, bulge)"""
        return [(self.point()[:2], self.chance.choice([0.0, self.chance.uniform(-2, 2)])) for _ in range(5)]

    def lwpolyline(self):
        groups = [group for place, bulge in self.vertices() for group in ((10, place), (42, bulge))]
        return self.record("LWPOLYLINE", "AcDbPolyline", (90, 5), (70, self.chance.randrange(2)),
                           (38, self.number()), *self.tilted(), *groups)

    def polyline(self):
        height, is_in_space = self.number(), self.chance.random() < 0.5
        flags = self.chance.randrange(2) + (8 if is_in_space else 0)
        kind = "AcDb3dPolyline" if is_in_space else "AcDb2dPolyline"
        tilt = () if is_in_space else self.tilted()
        head = self.record("POLYLINE", kind, (66, 1), (10, [0.0, 0.0, height]), (70, flags), *tilt)
        places = [(self.point(), 0.0) if is_in_space else (place + [height], bulge)
                  for place, bulge in self.vertices()]
        return self.with_vertices(head, [[(10, place), (70, 32 if is_in_space else 0), (42, bulge)]
                                         for place, bulge in places])

    def mesh(self):
        if self.chance.random() < 0.5:
            rows, columns = self.chance.randint(2, 4), self.chance.randint(2, 4)
            flags = 16 + self.chance.choice([0, 1, 32, 33])
            head = self.record("POLYLINE", "AcDbPolygonMesh", (66, 1), (70, flags), (71, rows), (72, columns))
            return self.with_vertices(head, [[(10, self.point()), (70, 64)] for _ in range(rows * columns)])
        head = self.record("POLYLINE", "AcDbPolyFaceMesh", (66, 1), (70, 64), (71, 5), (72, 3))
        faces = [[(10, [0.0, 0.0, 0.0]), (70, 128)] + [(71 + i, self.chance.choice([-1, 1]) * number)
                                                       for i, number in enumerate(self.chance.sample(range(1, 6), n))]
                 for n in (3, 3, 4)]
        return self.with_vertices(head, [[(10, self.point()), (70, 192)] for _ in range(5)] + faces)

    def with_vertices(self, head, vertices):
        return "\n".join([head, *(self.record("VERTEX", "AcDbVertex", *groups) for groups in vertices),
                          self.record("SEQEND", "AcDbSequenceEnd")])

    def face(self):
        corners = [self.point() for _ in range(4)]
        if self.chance.random() < 0.5:
            corners[3] = corners[2]
        return self.record("3DFACE", "AcDbFace", *((10 + i, corner) for i, corner in enumerate(corners)))

    def solid(self):
        height = self.number()
        corners = [self.point()[:2] + [height] for _ in range(4)]
        return self.record(self.chance.choice(["SOLID", "TRACE"]), "AcDbTrace",
                           *((10 + i, corner) for i, corner in enumerate(corners)), *self.tilted())

    def hatch(self):
        """A ring between a polyline and an ellipse."""
        x, y, size = self.number(), self.number(), self.scale
        square = [(x - size, y - size), (x + size, y - size), (x + size, y + size), (x - size, y + size)]
        turn = self.chance.uniform(0, 6)
        axis = [0.5 * size * math.cos(turn), 0.5 * size * math.sin(turn)]
        first, ratio = self.chance.uniform(0, 300), self.chance.uniform(0.2, 1)
        halves = [(first, first + 180), (first + 180, first + 360)]
        edges = [group for start, end in halves for group in (
            (72, 3), (10, [x, y]), (11, axis), (40, ratio), (50, start), (51, end), (73, 1))]
        return self.record("HATCH", "AcDbHatch", (10, [0.0, 0.0, self.number()]), (210, self.direction()),
                           (2, "SOLID"), (70, 1), (71, 0), (91, 2), (92, 3), (72, 1), (73, 1), (93, 4),
                           *(group for place in square for group in ((10, list(place)), (42, 0.25))), (97, 0),
                           (92, 16), (93, 2), *edges, (97, 0), (75, 0), (76, 1), (98, 0))

    def factors(self):
        signs = [self.chance.choice([-1.0, 1.0]) for _ in range(3)]
        kind = self.chance.randrange(3)
        sizes = ([1.0] * 3, [self.chance.uniform(0.3, 3)] * 3, [self.chance.uniform(0.3, 3) for _ in range(3)])[kind]
        return [a * b for a, b in zip(signs, sizes)]

    def insert(self, name):
        x, y, z = self.factors()
        array = [(70, self.chance.randint(1, 3)), (71, self.chance.randint(1, 2)), (44, self.number(5)),
                 (45, self.number(5))]
        return self.record("INSERT", "AcDbBlockReference", (2, name), (10, self.point()), (41, x), (42, y), (43, z),
                           (50, self.chance.uniform(-400, 400)), *(array if self.chance.random() < 0.3 else []),
                           (210, self.direction()))


def main():
    program, count = sys.argv[1:]
    peer.need_ezdxf()
    folder = pathlib.Path(tempfile.mkdtemp(prefix="placements-"))
    for seed in range(int(count)):
        (folder / ("%d.dxf" % seed)).write_text(Drawing(seed).text())
    failed = compare_expansion.compare_drawings(program, peer.ascii_drawings(folder))
    if failed:
        print("The drawings are kept in %s" % folder)
    else:
        shutil.rmtree(folder)
    return failed


if __name__ == "__main__":
    sys.exit(main())
