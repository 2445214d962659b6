"""Where the expansion of entities here and that of ezdxf differ by rule, and what else may differ, a reason each."""
import re

# What the comparison brings over from the peer's rules to those here.
RULES = {
    "lines without length": "of up to 1e-6, give nothing",
    "circles without radius": "below 1e-6, give nothing",
    "ellipses with a ratio beyond 1": "give nothing",
    "splines without poles": "but fit points, give nothing",
    "pieces without length": "of polylines and boundaries, up to 1e-7, are left out",
    "vertices of meshes that are one": "since they are within 1e-6 of each other",
    "cells on a line": "whose corners are within 1e-6 of a line, give an edge",
    "crossed cells": "give the two triangles that meet where their sides cross",
    "multilines with caps, joints or a fill": "are drawn without them",
    "inserts without size": "with three factors of 0, place nothing",
    "spacings of scaled inserts": "take uneven factors, and the signs of even ones; the peer's take none",
    "inserts that the peer fails to expand": "since it divides by zero, are expanded by its matrix",
}

CUT = "the peer does not cut the lines of multilines"
KNOTS = "the peer refuses splines whose knots and poles do not go together"
TWO_CORNERS = "a face of two corners is an edge, and the peer makes no sense of it"
BULGE = "a vertex ends at its third co-ordinate, and the bulge behind that is told as an unknown group"
RING = "which insert closes a ring of blocks depends on where one enters it"
# Drawing, what differs, why. A row that is not needed any more is told.
DIFFERENCES = [
    (r"supported_entities.dxf", "LWPOLYLINE #A3: |INSERT #D8: ", BULGE),
    (r"arcs-as-splines.dxf", "SPLINE #6[EF]: the peer fails|SPLINE #73: the peer fails", KNOTS),
    (r"insert-recursive-pair.dxf", "INSERT #DEF[12]: ", RING),
    (r"example_\w+.dxf", "POLYLINE #4E4: ", TWO_CORNERS),
    (r"sample_20\d\d.dxf", "MLINE #3A[89]: ", CUT),
]


def is_of(row, path):
    return re.search(row[0] + "$", path.name) is not None


def row_of(path, difference):
    """The row that excuses the difference, or None."""
    return next((row for row in DIFFERENCES if is_of(row, path) and re.match(row[1], difference)), None)
