"""What a rewritten drawing may have that its original has not, and the reader stumbles over: a rule of the format
each, taken out of the drawing before the reader sees it, and counted. Nothing else may differ."""
import collections
import re

# Drawings up to R12 get the subclass markers of later versions. In these records ezdxf then does not look behind
# them; in all others it copes.
MARKER = "subclass marker in a drawing of R12 or before"
MARKED = ("APPID", "DIMENSION", "DIMSTYLE", "LTYPE", "VPORT")

# $HANDSEED is the last handle in use; ezdxf takes it for the first free one, and gives it out a second time.
HANDSEED = "$HANDSEED is a handle in use"

# The entities of a sort table and their sort handles are written one list after the other; ezdxf wants pairs.
SORTENTSTABLE = "SORTENTSTABLE as two lists"

# Binary data of ACIS bodies is read but not written.
ACDSRECORD = "ACDSRECORD without its groups"

# What may differ: reader, end of the drawing's name, pattern, why. A row that is not needed any more is told.
GIVEN_TWICE = "handles are given out that records carried through group for group have already"
OWNER = "a second group 330 of the record takes the place of its owner"
XDATA = "extended data, which is read but not written: columns and frames of texts, viewports of R12"
PATCHES = "surface records are reduced to their ACIS data"
MARKERLESS = "IDBUFFER is written without marker"
DAMAGED = "damaged: lines that are no pairs of code and value, told as fails"
NUMBERS = "reals with a decimal comma or nan, told as fails"
COUNTS = "a spline without degree and counts, which are written as 0"
BULGE = "a vertex ends at its third co-ordinate, and the bulge behind that is told as an unknown group"
DIFFERENCES = [
    ("ezdxf", "", "finding INVALID_OWNER_HANDLE of (SORTENTSTABLE|DIMASSOC|IMAGEDEF_REACTOR)", OWNER),
    ("ezdxf", "columns_R2000.dxf", "MTEXT in ", XDATA),
    ("ezdxf", "columns_R2007.dxf", "MTEXT in ", XDATA),
    ("ezdxf", "mtext_framed_columns.dxf", "(MTEXT|LWPOLYLINE) in ", XDATA),
    ("ezdxf", "mtext_text_frame.dxf", "LWPOLYLINE in ", XDATA),
    ("ezdxf", "example_r12.dxf", "the rewritten drawing is not read: .*get_xlist", XDATA),
    ("ezdxf", "draft1.dxf", "the rewritten drawing is not read: .*get_xlist", XDATA),
    ("ezdxf", "all_R10_entities.dxf", "(BLOCK|BLOCK_RECORD) |finding INVALID_TABLE_HANDLE", GIVEN_TWICE),
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


def excused_group(record, marked, code, early):
    if record == "ACDSRECORD":
        return ACDSRECORD
    if record == "SORTENTSTABLE" and marked and code in (5, 331):
        return SORTENTSTABLE
    if code == 100 and early and record in MARKED:
        return MARKER
    return None


def header_value(lines, name):
    """Index of the value of a header variable, or None."""
    return lines.index(name) + 2 if name in lines[1::2] else None


def relieve(path):
    """Takes out of the rewritten drawing what is excused; how many groups for which reason."""
    lines = path.read_bytes().split(b"\n")
    excused, kept, record, marked = collections.Counter(), [], "", False

    seed = header_value(lines, b"$HANDSEED")
    if seed:
        lines[seed] = b"%X" % (int(lines[seed], 16) + 1)
        excused[HANDSEED] += 1
    version = header_value(lines, b"$ACADVER")
    early = version is None or lines[version] <= b"AC1009"

    for code, value in zip(lines[0::2], lines[1::2]):
        if int(code) == 0:
            record, marked = value.decode("latin-1"), False
        marked = marked or int(code) == 100
        reason = excused_group(record, marked, int(code), early)
        excused.update([reason] if reason else [])
        kept += [] if reason else [code, value]
    path.write_bytes(b"\n".join(kept) + b"\n")
    return excused
