#!/usr/bin/env python3
"""Cuts drawings into small ones of a few records each: what a fuzzer starts from.

    make_seeds.py OUTPUT_FOLDER DRAWING_OR_FOLDER...

Of each kind of record (its type with the set of its group codes) one is kept, with its section around it, and
what it contains with it.
"""

import hashlib
import pathlib
import sys

LONGEST = 6000  # bytes of a seed
CLOSED_BY = {"POLYLINE": "SEQEND", "BLOCK": "ENDBLK", "TABLE": "ENDTAB"}


def groups_of(path):
    lines = path.read_bytes().replace(b"\r\n", b"\n").split(b"\n")
    for code, value in zip(lines[0::2], lines[1::2]):
        try:
            yield int(code), value
        except ValueError:
            return


def records_of(groups):
    """Yields (section, groups of one record); a record that contains others is one with them."""
    section, record, closing = b"", [], None
    for code, value in groups:
        if code == 0 and closing is None:
            if record:
                yield section, record
            record = []
            closing = CLOSED_BY.get(value.decode("latin1"))
        elif code == 0 and value.decode("latin1") == closing:
            closing = None
        if code == 2 and record and record[0][1] == b"SECTION":
            section = value
        record.append((code, value))
    if record:
        yield section, record


def seed_of(section, record):
    groups = [(0, b"SECTION"), (2, section), *record, (0, b"ENDSEC"), (0, b"EOF")]
    return b"".join(b"%3d\n%s\n" % group for group in groups)


def main(arguments):
    if len(arguments) < 2:
        sys.exit(__doc__)
    output = pathlib.Path(arguments[0])
    output.mkdir(parents=True, exist_ok=True)
    known = set()
    for argument in map(pathlib.Path, arguments[1:]):
        paths = sorted(argument.rglob("*.dxf")) if argument.is_dir() else [argument]
        for path in paths:
            for section, record in records_of(groups_of(path)):
                kind = (record[0][1], frozenset(code for code, _ in record))
                seed = seed_of(section, record)
                if kind in known or len(seed) > LONGEST:
                    continue
                known.add(kind)
                (output / hashlib.sha1(seed).hexdigest()).write_bytes(seed)
    print(f"{len(known)} seeds in {output}")


if __name__ == "__main__":
    main(sys.argv[1:])
