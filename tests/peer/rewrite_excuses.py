"""What a rewritten drawing may have that its original has not, and the reader stumbles over: a rule of the format
each. Nothing else may differ."""
import re

# What may differ: reader, end of the drawing's name, pattern, why. A row that is not needed any more is told.
PATCHES = "surface records are reduced to their ACIS data"
MARKERLESS = "IDBUFFER is written without marker"
DAMAGED = "damaged: lines that are no pairs of code and value, told as fails"
NUMBERS = "reals with a decimal comma or nan, told as fails"
COUNTS = "a spline without degree and counts, which are written as 0"
BULGE = "a vertex ends at its third co-ordinate, and the bulge behind that is told as an unknown group"
DIFFERENCES = [
    ("ezdxf", "2004__Surface.dxf", "the rewritten drawing is not read: .*IndexError", PATCHES),
    ("ezdxf", "floorplan.dxf", "the rewritten drawing is not read: .*IDBUFFER", MARKERLESS),
    ("dxflib", "insert-too-many-errors.dxf", "", DAMAGED),
    ("dxflib", "clusterfuzz-testcase-minimized-dxf_fuzzer-5400376672124928.dxf", "not rewritten", DAMAGED),
    ("dxflib", "nothing-decimal-comma-separated.dxf", "line ", NUMBERS),
    ("dxflib", "r2.10__entities.dxf", "text FOO ", NUMBERS),
    ("dxflib", "r2.6__entities.dxf", "text FOO ", NUMBERS),
    ("dxflib", "r9__entities.dxf", "text FOO ", NUMBERS),
    ("dxflib", "cycloidal.dxf", "spline ", COUNTS),
    ("dxflib", "supported_entities.dxf", "vertex ", BULGE),
]


def row_of(reader, path, difference):
    """The row that excuses the difference, or None."""
    rows = [row for row in DIFFERENCES if row[0] == reader and path.name.endswith(row[1])]
    return next((row for row in rows if re.match(row[2], difference)), None)
