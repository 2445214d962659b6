#!/usr/bin/env python3
"""Rewrites real drawings and lets an independent reader hold the result against the original.

    compare_rewrites.py VDXF --samples=FOLDER ezdxf
    compare_rewrites.py VDXF --samples=FOLDER dxflib --program=DXFLIB_THINGS

Every ASCII drawing below the folder is read and written in its own version. The reader must find the same things
in both files and nothing more to object to in the rewritten one, but for what rewrite_excuses.py lists. An original
that the reader refuses is listed and is no fault. Exits with 77 (skipped) without the reader or without a folder,
with 1 when something disagrees.

ezdxf judges strictly: it follows references, and it has an audit. What it finds is compared by name and number:
entities per type and container, table entries, blocks, layouts, objects. dxflib takes almost anything, but looks at
every figure, and so shows wrong values. It is one small library without dependencies; GDAL's reader would bring
some forty packages and tells features of a flattened drawing, without its tables.
"""
import argparse
import collections
import dataclasses
import functools
import logging
import pathlib
import re
import subprocess
import sys
import tempfile

import peer
import rewrite_excuses

NOT_READ = "originals that the reader does not read"
TABLES = ("layers", "linetypes", "styles", "dimstyles", "appids", "ucs", "views", "viewports", "block_records")


class NotRead(Exception):
    """The reader refuses a drawing."""


@dataclasses.dataclass
class Reading:
    """What a reader found in a drawing: things that must be the same, findings that must not become more."""
    things: collections.Counter
    findings: collections.Counter
    way: str = ""  # of reading; the rewritten drawing is read the same way


def with_parts(entity):
    yield entity
    yield from getattr(entity, "attribs", ())
    yield from getattr(entity, "vertices", ()) if entity.dxftype() == "POLYLINE" else ()


def ezdxf_things(document):
    things = collections.Counter()
    for table in TABLES:
        for entry in getattr(document, table):
            for one in entry if isinstance(entry, list) else [entry]:  # viewports of one name are a list
                things["%s '%s'" % (one.dxftype(), one.dxf.name)] += 1
    for block in document.blocks:
        things["BLOCK '%s'" % block.name] += 1
        for entity in block:
            things.update("%s in '%s'" % (part.dxftype(), block.name) for part in with_parts(entity))
    things.update("layout '%s'" % name for name in document.layout_names())
    things.update("%s among the objects" % thing.dxftype() for thing in document.objects)
    return things


def ezdxf_findings(document, auditor):
    from ezdxf.audit import AuditError
    try:
        auditor = auditor or document.audit()
    except Exception:
        return collections.Counter(["the audit itself fails"])
    findings = collections.Counter()
    for entry in auditor.errors + auditor.fixes:
        record = re.search(r"(\w+)\(#", entry.message)  # told as "LINE(#1F)"
        findings["%s of %s" % (AuditError(entry.code).name, record[1] if record else "the drawing")] += 1
    return findings


def read_by_ezdxf(path, way=""):
    """As it stands, or else by the reader's own repair."""
    import ezdxf
    import ezdxf.recover
    logging.disable(logging.CRITICAL)
    ways = {"as it stands": lambda: (ezdxf.readfile(path), None),
            "by repair": lambda: ezdxf.recover.readfile(path)}
    for name in [way] if way else ways:
        try:
            document, auditor = ways[name]()
        except Exception as refusal:  # whatever it is, the reader does not read the drawing this way
            reason = "%s: %s: %s" % (name, type(refusal).__name__, refusal)
            continue
        return Reading(ezdxf_things(document), ezdxf_findings(document, auditor), name)
    raise NotRead(reason)


def read_by_dxflib(program, path, way=""):
    result = subprocess.run([program, path], capture_output=True, text=True, errors="replace", timeout=120)
    if result.returncode != 0:
        raise NotRead("exit code %d" % result.returncode)
    if not result.stdout:
        raise NotRead("nothing is found in it")
    return Reading(collections.Counter(result.stdout.splitlines()), collections.Counter())


def differences(before, after):
    for key in sorted(set(before.things) | set(after.things)):
        if before.things[key] != after.things[key]:
            yield "%s: %d became %d" % (key, before.things[key], after.things[key])
    for key in sorted(after.findings):
        if after.findings[key] > before.findings[key]:
            yield "finding %s: %d became %d" % (key, before.findings[key], after.findings[key])


def rewrite(vdxf, path, rewritten):
    result = subprocess.run([vdxf, "convert", "-q", path, rewritten], capture_output=True, text=True,
                            errors="replace", timeout=120)
    return result.stderr.strip() if result.returncode else None


def compare(vdxf, read, path):
    """(what became of the drawing, what is to be told about it)."""
    try:
        before = read(path)
    except NotRead as refusal:
        return NOT_READ, [str(refusal)]
    with tempfile.TemporaryDirectory() as folder:
        rewritten = pathlib.Path(folder) / "rewritten.dxf"
        failure = rewrite(vdxf, path, rewritten)
        if failure:
            return "drawings that are not rewritten", ["not rewritten: " + failure]
        try:
            found = list(differences(before, read(rewritten, before.way)))
        except NotRead as refusal:
            found = ["the rewritten drawing is not read: %s" % refusal]
    return ("drawings that differ" if found else "drawings that agree"), found


def main():
    arguments = argparse.ArgumentParser(usage=__doc__)
    arguments.add_argument("vdxf")
    arguments.add_argument("reader", choices=["ezdxf", "dxflib"])
    arguments.add_argument("--samples", default="")
    arguments.add_argument("--program", default="")
    given = arguments.parse_args()
    vdxf, folder, reader, program = given.vdxf, given.samples, given.reader, given.program
    read = read_by_ezdxf
    if reader == "ezdxf":
        peer.need_ezdxf()
    elif not program:
        peer.skip("%s was not found when the build was configured" % reader)
    else:
        read = functools.partial(read_by_dxflib, program)

    paths = peer.ascii_drawings(folder)
    outcomes = peer.each(functools.partial(compare, vdxf, read), paths)
    tally, rows = collections.Counter(), collections.Counter()
    problems = []
    for path, (state, found) in zip(paths, outcomes):
        tally[state] += 1
        for one in found:
            row = rewrite_excuses.row_of(reader, path, one)
            told = "%s: %s" % (path.relative_to(folder), one)
            if state == NOT_READ:
                print("not read by %s: %s" % (reader, told))
            elif row:
                rows[row] += 1
            else:
                problems.append(told)
    peer.tell_excuses(rows, [row for row in rewrite_excuses.DIFFERENCES
                             if row[0] == reader and any(path.name.endswith(row[1]) for path in paths)])
    return peer.report(tally, problems)


if __name__ == "__main__":
    sys.exit(main())
