"""What a rewritten drawing may have that its original has not, and the reader stumbles over: a rule of the format
each, taken out of the drawing before the reader sees it, and counted. Nothing else may differ."""
import collections
import re

# Undefined values are written as empty lines. Empty handles and texts are fine, but ezdxf refuses a drawing that
# has an empty line where a number belongs. Codes that are not listed may not have any.
UNDEFINED = "undefined value as an empty line"
UNDEFINED_CODES = {
    "VIEW": (79, 146),
    "VPORT": (79, 146),
    "LAYER": (370,),
    "DIMSTYLE": (371, 372),
}
LINEWEIGHT = (370,)  # of any record: -1, by layer, is written as the undefined integer

# Drawings up to R12 get the subclass markers of later versions. In these records ezdxf then does not look behind
# them; in all others it copes.
MARKER = "subclass marker in a drawing of R12 or before"
MARKED = ("APPID", "DIMSTYLE", "LTYPE", "VPORT")

# $HANDSEED is the last handle in use; ezdxf takes it for the first free one, and gives it out a second time.
HANDSEED = "$HANDSEED is a handle in use"

# Binary data of ACIS bodies is read but not written.
ACDSRECORD = "ACDSRECORD without its groups"

# Single drawings: reader, name, what may differ, why. A row that is not needed any more is told.
GIVEN_TWICE = "handles are given out that records carried through group for group have already"
DAMAGED = "damaged: lines that are no pairs of code and value, told as fails"
COMMAS = "reals with a decimal comma, told as fails"
COUNTS = "a spline without degree and counts, which are written as 0"
DRAWINGS = [
    ("ezdxf", name, "finding (INVALID_TABLE_HANDLE|REMOVED_ENTITY_FROM_BLOCK_RECORD)|BLOCK", GIVEN_TWICE)
    for name in ("POLI-ALL210_12.DXF", "duplicate_handles.dxf", "all_R10_entities.dxf", "draft1.dxf", "draft2.dxf",
                 "example_r12.dxf", "r12__Leader.dxf", "versions__ae.r12a.dxf")
] + [
    ("dxflib", "insert-too-many-errors.dxf", "", DAMAGED),
    ("dxflib", "clusterfuzz-testcase-minimized-dxf_fuzzer-5400376672124928.dxf", "not rewritten", DAMAGED),
    ("dxflib", "nothing-decimal-comma-separated.dxf", "line ", COMMAS),
    ("dxflib", "cycloidal.dxf", "spline ", COUNTS),
]


def row_of(reader, path, difference):
    """The row of DRAWINGS that excuses the difference, or None."""
    rows = [row for row in DRAWINGS if row[0] == reader and path.name.endswith(row[1])]
    return next((row for row in rows if re.match(row[2], difference)), None)


def excused_group(record, code, value, early):
    if record == "ACDSRECORD":
        return ACDSRECORD
    if code == 100 and early and record in MARKED:
        return MARKER
    if not value and code in UNDEFINED_CODES.get(record, LINEWEIGHT):
        return "%s %d: %s" % (record, code, UNDEFINED)
    return None


def header_value(lines, name):
    """Index of the value of a header variable, or None."""
    return lines.index(name) + 2 if name in lines[1::2] else None


def relieve(path):
    """Takes out of the rewritten drawing what is excused; how many groups for which reason."""
    lines = path.read_bytes().split(b"\n")
    excused, kept, record = collections.Counter(), [], ""

    seed = header_value(lines, b"$HANDSEED")
    if seed:
        lines[seed] = b"%X" % (int(lines[seed], 16) + 1)
        excused[HANDSEED] += 1
    version = header_value(lines, b"$ACADVER")
    early = version is None or lines[version] <= b"AC1009"

    for code, value in zip(lines[0::2], lines[1::2]):
        if int(code) == 0:
            record = value.decode("latin-1")
        reason = excused_group(record, int(code), value, early)
        excused.update([reason] if reason else [])
        kept += [] if reason else [code, value]
    path.write_bytes(b"\n".join(kept) + b"\n")
    return excused
