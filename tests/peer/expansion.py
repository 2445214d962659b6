"""What the peer, ezdxf, expands an entity to."""
import math

from ezdxf.entities import LWPolyline
from ezdxf.explode import _virtual_edge_path
from ezdxf.math import Vec3

import conics
from leaves import NO_LINE, cell, is_whole, mapped, points_of, swept

NO_LENGTH = 1e-7  # of pieces of polylines and boundaries
EVEN = 1e-7       # what factors of one size may differ by
SPLINE_STEPS = 8


class TooLarge(Exception):
    """More leaves than are to be compared."""


def boundary(hatch, loop):
    """The peer's own list of a boundary's entities fails for polylines, and loses the elevation of arcs."""
    elevation = hatch.dxf.elevation.z
    if hasattr(loop, "edges"):
        parts = _virtual_edge_path(loop, {}, hatch.ocs(), elevation)
        for part in parts:
            if part.dxftype() == "ARC":
                part.dxf.center = Vec3(part.dxf.center).replace(z=elevation)
        return parts
    polyline = LWPolyline.new(dxfattribs={"elevation": elevation, "extrusion": hatch.dxf.extrusion})
    polyline.append_points(loop.vertices, format="xyb")
    polyline.closed = True
    return polyline.virtual_entities()


def is_expanded_rightly(entity):
    """The peer's inserts do not repeat inner inserts and do not shear them, take dimensions apart, turn thicknesses
    over in mirrored and drop them in unevenly scaled blocks, and lose angles of elliptic boundaries there."""
    return (entity.dxftype() not in ("INSERT", "DIMENSION", "HATCH") and
            not (entity.dxf.is_supported("thickness") and entity.dxf.thickness))


class Expansion:
    """The leaves of the entities of one document. `tally` counts, also, where rules of expansion_excuses.RULES were
    used."""

    def __init__(self, document, tally, limit):
        self.document, self.tally, self.limit = document, tally, limit
        self.blocks = {}  # leaves by name
        self.makers = {"LINE": self.line, "CIRCLE": self.circle, "ARC": self.circle, "ELLIPSE": self.ellipse,
                       "SPLINE": self.spline, "POINT": self.point, "LWPOLYLINE": self.polyline,
                       "POLYLINE": self.polyline, "3DFACE": self.face, "SOLID": self.solid, "TRACE": self.solid,
                       "HATCH": self.hatch, "MLINE": self.mline, "INSERT": self.insert}

    def of(self, entity):
        maker = self.makers.get(entity.dxftype())
        return maker(entity) if maker else []

    def nothing(self, rule):
        self.tally[rule] += 1
        return []

    def line(self, entity):
        dxf = entity.dxf
        if dxf.start.distance(dxf.end) <= NO_LINE:
            return self.nothing("lines without length")
        return swept([("edge", ("line", dxf.start, dxf.end))], dxf.thickness, dxf.extrusion)

    def circle(self, entity):
        if entity.dxf.radius < NO_LINE:
            return self.nothing("circles without radius")
        return swept([("edge", ("conic", *conics.of(entity)))], entity.dxf.thickness, entity.dxf.extrusion)

    def ellipse(self, entity):
        if not 0 <= entity.dxf.ratio <= 1:
            return self.nothing("ellipses with a ratio beyond 1")
        return [("edge", ("conic", *conics.of(entity)))]

    def spline(self, entity):
        if not len(entity.control_points) or not len(entity.knots):
            return self.nothing("splines without poles")
        curve = entity.construction_tool()
        knots, degree = list(curve.knots()), curve.order - 1
        first, last = knots[degree], knots[-1 - degree]
        ts = [first + (last - first) * i / SPLINE_STEPS for i in range(SPLINE_STEPS + 1)]
        return [("edge", ("points", tuple(curve.points(ts))))]

    def point(self, entity):
        return swept([("point", entity.dxf.location)], entity.dxf.thickness, entity.dxf.extrusion)

    def pieces(self, entities):
        """The lines, arcs and splines that the peer makes of a polyline or a boundary."""
        leaves = []
        for entity in entities:
            if entity.dxftype() == "SPLINE":
                leaves += self.spline(entity)
                continue
            is_line = entity.dxftype() == "LINE"
            edge = ("line", entity.dxf.start, entity.dxf.end) if is_line else ("conic", *conics.of(entity))
            ends = points_of(edge)
            if not is_whole(edge) and ends[0].distance(ends[-1]) <= NO_LENGTH:
                self.tally["pieces without length"] += 1
            else:
                leaves.append(("edge", edge))
        return leaves

    def polyline(self, entity):
        if entity.dxftype() == "POLYLINE" and (entity.is_polygon_mesh or entity.is_poly_face_mesh):
            return self.mesh(entity)
        return swept(self.pieces(entity.virtual_entities()), entity.dxf.thickness, entity.dxf.extrusion)

    def mesh(self, entity):
        merged = self.merged([vertex.dxf.location for vertex in entity.vertices if not vertex.is_face_record])
        cells = [cell([merged(corner) for corner in face.wcs_vertices()], self.tally)
                 for face in entity.virtual_entities()]
        return [leaf for leaves in cells for leaf in leaves if leaf[0] != "point"]

    def merged(self, points):
        """A function from points to those that stand for them: the first ones that are near."""
        cells, known = {}, {}
        for point in points:
            x, y, z = (math.floor(c / NO_LINE) for c in point.xyz)
            near = (other for i in (-1, 0, 1) for j in (-1, 0, 1) for k in (-1, 0, 1)
                    for other in cells.get((x + i, y + j, z + k), ()))
            first = next((other for other in near if point.distance(other) <= NO_LINE), None)
            if first is None:
                cells.setdefault((x, y, z), []).append(point)
            elif first != point:
                self.tally["vertices of meshes that are one"] += 1
            known[point.xyz] = first or point
        return lambda point: known.get(point.xyz, point)

    def face(self, entity):
        return cell(entity.wcs_vertices(), self.tally)

    def solid(self, entity):
        return swept(self.face(entity), entity.dxf.thickness, entity.dxf.extrusion)

    def hatch(self, entity):
        loops = [self.pieces(boundary(entity, loop)) for loop in entity.paths]
        return [("hatch", [edge for loop in loops for _, edge in loop])]

    def mline(self, entity):
        if entity.style.dxf.flags:
            self.tally["multilines with caps, joints or a fill"] += 1
            entity.style.dxf.flags = 0
        return self.pieces(entity.virtual_entities())

    def insert(self, entity):
        block = self.document.blocks.get(entity.dxf.name)
        if block is None:
            return []
        if not any((entity.dxf.xscale, entity.dxf.yscale, entity.dxf.zscale)):
            return self.nothing("inserts without size")
        result = []
        for one in self.copies(entity):
            result += self.placed(one, block)
            if len(result) > self.limit:
                raise TooLarge()
        return result

    def placed(self, insert, block):
        """By the peer's own expansion where that is right, else its leaves of the block by its matrix."""
        if all(is_expanded_rightly(entity) for entity in block):
            try:
                found = [leaf for part in insert.virtual_entities() for leaf in self.of(part)]
                self.tally["inserts by the peer's own expansion"] += 1
                return found
            except ZeroDivisionError:
                self.tally["inserts that the peer fails to expand"] += 1
        self.tally["inserts by the peer's matrix"] += 1
        matrix = insert.matrix44()
        return [mapped(leaf, matrix) for leaf in self.block(block)]

    def copies(self, entity):
        copies = list(entity.multi_insert()) if entity.mcount > 1 else [entity]
        factors = [entity.dxf.xscale, entity.dxf.yscale, entity.dxf.zscale]
        if max(map(abs, factors)) - min(map(abs, factors)) < EVEN:
            factors = [math.copysign(1, factor) for factor in factors]
        if len(copies) == 1 or factors[:2] == [1, 1]:
            return copies
        self.tally["spacings of scaled inserts"] += 1
        origin, angle = entity.dxf.insert, entity.dxf.rotation
        for copy in copies:
            offset = (copy.dxf.insert - origin).rotate_deg(-angle)
            offset = Vec3(offset.x * factors[0], offset.y * factors[1])
            copy.dxf.insert = origin + offset.rotate_deg(angle)
        return copies

    def block(self, block):
        if block.name not in self.blocks:
            self.blocks[block.name] = []  # what a block inserts into itself
            try:
                self.blocks[block.name] = [leaf for entity in block for leaf in self.of(entity)]
            except Exception:
                del self.blocks[block.name]
                raise
        return self.blocks[block.name]
