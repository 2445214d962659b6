#!/usr/bin/env python3
"""Draws flange.dxf, the drawing that `make demo` converts: a flange from above and in section.

    draw_flange.py > flange.dxf

Millimetres. The view from above has its true heights (thickness and elevation), so it is also a small model.
"""
import math

UP = (0, 0, 1)

LAYERS = {  # name: (colour, line type)
    "0": (7, "Continuous"),
    "OUTLINE": (7, "Continuous"),
    "HOLES": (1, "Continuous"),
    "GROOVE": (6, "Continuous"),
    "HIDDEN": (5, "DASHED"),
    "AXES": (3, "CENTER"),
    "SECTION": (4, "Continuous"),
}

LINE_TYPES = {  # name: (description, lengths of dashes and gaps)
    "ByBlock": ("", ()),
    "ByLayer": ("", ()),
    "Continuous": ("Solid line", ()),
    "DASHED": ("__ __ __", (3, -1.5)),
    "CENTER": ("____ _ ____", (12, -2, 2, -2)),
}


class Drawing:
    def __init__(self):
        self.lines = []
        self.handle = 0x20
        self.model_space = None

    def put(self, *groups):
        for code, value in zip(groups[::2], groups[1::2]):
            text = repr(round(value, 12)) if isinstance(value, float) else str(value)
            self.lines.append(f"{code:3d}\n{text}\n")

    def new_handle(self):
        self.handle += 1
        return f"{self.handle:X}"

    # Tables

    def table(self, name, entries, marker, put_entry):
        table = self.new_handle()
        self.put(0, "TABLE", 2, name, 5, table, 330, 0, 100, "AcDbSymbolTable", 70, len(entries))
        for entry in entries:
            handle = self.new_handle()
            self.put(0, name, 5, handle, 330, table, 100, "AcDbSymbolTableRecord", 100, marker, 2, entry)
            put_entry(entry, handle)
        self.put(0, "ENDTAB")

    def line_type(self, name, _):
        description, dashes = LINE_TYPES[name]
        self.put(70, 0, 3, description, 72, 65, 73, len(dashes), 40, float(sum(map(abs, dashes))))
        for dash in dashes:
            self.put(49, float(dash), 74, 0)

    def layer(self, name, _):
        colour, line_type = LAYERS[name]
        self.put(70, 0, 62, colour, 6, line_type)

    def space(self, name, handle):
        if name == "*Model_Space":
            self.model_space = handle

    def tables(self):
        self.put(0, "SECTION", 2, "TABLES")
        self.table("LTYPE", list(LINE_TYPES), "AcDbLinetypeTableRecord", self.line_type)
        self.table("LAYER", list(LAYERS), "AcDbLayerTableRecord", self.layer)
        self.table("APPID", ["ACAD"], "AcDbRegAppTableRecord", lambda *_: self.put(70, 0))
        self.table("BLOCK_RECORD", ["*Model_Space", "*Paper_Space"], "AcDbBlockTableRecord", self.space)
        self.put(0, "ENDSEC")

    # Entities

    def entity(self, type_name, layer, *groups):
        self.put(0, type_name, 5, self.new_handle(), 330, self.model_space, 100, "AcDbEntity", 8, layer, *groups)

    def place(self, code, place):
        x, y, z = (*place, 0)[:3]
        self.put(code, float(x), code + 10, float(y), code + 20, float(z))

    def thickness(self, thickness, direction):
        if thickness:
            self.put(39, float(thickness))
        if direction != UP:
            self.place(210, direction)

    def line(self, layer, start, end, thickness=0):
        self.entity("LINE", layer, 100, "AcDbLine")
        self.thickness(thickness, UP)
        self.place(10, start)
        self.place(11, end)

    def polyline(self, layer, *places):
        for start, end in zip(places, places[1:]):
            self.line(layer, start, end)

    def circular(self, type_name, layer, centre, radius, thickness, direction):
        self.entity(type_name, layer, 100, "AcDbCircle")
        self.thickness(thickness, direction)
        self.place(10, centre)
        self.put(40, float(radius))

    def circle(self, layer, centre, radius, thickness=0, direction=UP):
        self.circular("CIRCLE", layer, centre, radius, thickness, direction)

    def arc(self, layer, centre, radius, start, end, thickness=0, direction=UP):
        self.circular("ARC", layer, centre, radius, thickness, direction)
        self.put(100, "AcDbArc", 50, float(start), 51, float(end))

    def ellipse(self, layer, centre, major, ratio, start=0.0, end=2 * math.pi):
        self.entity("ELLIPSE", layer, 100, "AcDbEllipse")
        self.place(10, centre)
        self.place(11, major)
        self.place(210, UP)
        self.put(40, float(ratio), 41, start, 42, end)

    def spline(self, layer, points, knots, flags):
        degree = len(knots) - len(points) - 1
        self.entity("SPLINE", layer, 100, "AcDbSpline")
        self.place(210, UP)
        self.put(70, flags, 71, degree, 72, len(knots), 73, len(points), 74, 0)
        for knot in knots:
            self.put(40, float(knot))
        for point in points:
            self.place(10, point)

    def point(self, layer, place):
        self.entity("POINT", layer, 100, "AcDbPoint")
        self.place(10, place)

    def x_line(self, layer, place, direction):
        """A construction line without ends."""
        self.entity("XLINE", layer, 100, "AcDbXline")
        self.place(10, place)
        self.place(11, direction)


def on_circle(radius, degrees):
    return radius * math.cos(math.radians(degrees)), radius * math.sin(math.radians(degrees))


RIM, THICKNESS = 75, 12         # of the plate
FACE, FACE_HEIGHT = 45, 6       # of the raised face on it
BORE, KEY, KEY_TOP = 25, 4, 28.3
BOLTS, BOLT_CIRCLE, BOLT_HOLE, COUNTERBORE = 6, 60, 6.5, 10


def view_from_above(d):
    d.circle("OUTLINE", (0, 0), RIM, THICKNESS)
    d.circle("OUTLINE", (0, 0, THICKNESS), FACE, FACE_HEIGHT)

    height = THICKNESS + FACE_HEIGHT
    foot = math.sqrt(BORE ** 2 - KEY ** 2)
    angle = math.degrees(math.acos(KEY / BORE))
    d.arc("OUTLINE", (0, 0), BORE, 180 - angle, angle, height)
    for x, y, to_x, to_y in ((KEY, foot, KEY, KEY_TOP), (KEY, KEY_TOP, -KEY, KEY_TOP), (-KEY, KEY_TOP, -KEY, foot)):
        d.line("OUTLINE", (x, y), (to_x, to_y), height)

    d.circle("AXES", (0, 0), BOLT_CIRCLE)
    for i in range(BOLTS):
        angle = 30 + i * 360 / BOLTS
        d.circle("HOLES", on_circle(BOLT_CIRCLE, angle), BOLT_HOLE, THICKNESS)
        d.circle("HOLES", (*on_circle(BOLT_CIRCLE, angle), THICKNESS), COUNTERBORE, -4)
        d.line("AXES", on_circle(BOLT_CIRCLE - 13, angle), on_circle(BOLT_CIRCLE + 13, angle))
    d.line("AXES", (0, -RIM - 12), (0, RIM + 12))
    d.point("AXES", (0, 0))

    # A plug hole drilled into the rim: two half circles that face the rim, drawn inwards. Seen from above, the
    # places where they meet are its sides.
    for start in (0, 180):
        d.arc("HIDDEN", (0, THICKNESS / 2, RIM), 3.5, start, start + 180, -18, direction=(1, 0, 0))
    oil_groove(d)


def oil_groove(d):
    """A closed wave on the raised face: one cubic from crest to trough, and so on around."""
    crests, height = 12, THICKNESS + FACE_HEIGHT
    step = 360 / (2 * crests)
    points = []
    for i in range(2 * crests):
        radius, other, angle = (40, 34, i * step) if i % 2 == 0 else (34, 40, i * step)
        points += [(*on_circle(radius, angle), height), (*on_circle(radius, angle + step * 0.4), height),
                   (*on_circle(other, angle + step * 0.6), height)]
    points.append(points[0])
    knots = [0] + [i for i in range(2 * crests + 1) for _ in range(3)] + [2 * crests]
    d.spline("GROOVE", points, knots, flags=1 + 8)


def section(d):
    """To the right, cut along the axis; the upper half mirrored into the lower."""
    left = 130
    plate, face, end = left + THICKNESS, left + THICKNESS + FACE_HEIGHT, left + 60
    pipe, fillet = 33, 8
    for side in (1, -1):
        d.polyline("SECTION", (left, side * BORE), (left, side * RIM), (plate, side * RIM), (plate, side * FACE),
                   (face, side * FACE), (face, side * (pipe + fillet)))
        centre = (face + fillet, pipe + fillet)
        if side > 0:
            d.arc("SECTION", centre, fillet, 180, 270)
        else:  # seen from below: the x axis of its plane points to the left
            d.arc("SECTION", (-centre[0], -centre[1]), fillet, 0, 90, direction=(0, 0, -1))
        d.line("SECTION", (face + fillet, side * pipe), (end, side * pipe))
        d.line("SECTION", (left, side * BORE), (end, side * BORE))
        for y in (BOLT_CIRCLE - BOLT_HOLE, BOLT_CIRCLE + BOLT_HOLE):
            d.line("HOLES", (left, side * y), (plate - 4, side * y))
        for y in (BOLT_CIRCLE - COUNTERBORE, BOLT_CIRCLE + COUNTERBORE):
            d.line("HOLES", (plate - 4, side * y), (plate, side * y))
        d.line("HOLES", (plate - 4, side * (BOLT_CIRCLE - COUNTERBORE)),
               (plate - 4, side * (BOLT_CIRCLE + COUNTERBORE)))
        d.line("AXES", (left - 8, side * BOLT_CIRCLE), (plate + 8, side * BOLT_CIRCLE))

    # The pipe is broken off; its end is drawn by hand.
    broken = [(end, pipe), (end + 6, pipe - 12), (end - 7, 10), (end + 5, -8), (end - 6, 8 - pipe), (end, -pipe)]
    d.spline("SECTION", broken, [0, 0, 0, 0, 1, 2, 3, 3, 3, 3], flags=8)
    # A drain bored at an angle: whole where it enters, hidden where it leaves.
    d.ellipse("HOLES", (face + 22, 12), (0, 6), 0.6)
    d.ellipse("HIDDEN", (face + 29, -12), (0, 6), 0.6, start=math.pi / 2, end=2 * math.pi)


def main():
    d = Drawing()
    d.put(999, "A flange, drawn by examples/draw_flange.py", 0, "SECTION", 2, "HEADER", 9, "$ACADVER", 1, "AC1015",
          9, "$DWGCODEPAGE", 3, "ANSI_1252", 9, "$EXTMIN", 10, -75.0, 20, -87.0, 30, 0.0,
          9, "$EXTMAX", 10, 193.0, 20, 87.0, 30, 18.0, 9, "$LTSCALE", 40, 1.0, 9, "$INSUNITS", 70, 4,
          9, "$HANDSEED", 5, "1000", 0, "ENDSEC")
    d.tables()
    d.put(0, "SECTION", 2, "ENTITIES")
    view_from_above(d)
    section(d)
    d.x_line("AXES", (0, 0), (1, 0))
    d.put(0, "ENDSEC", 0, "EOF")
    print("".join(d.lines), end="")


if __name__ == "__main__":
    main()
