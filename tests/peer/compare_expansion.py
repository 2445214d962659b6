#!/usr/bin/env python3
"""Compares what the entities of real drawings expand to with ezdxf, an independent reader.

    compare_expansion.py EXPANSION_FACTS SAMPLES_FOLDER

The pieces of every curve, polyline, mesh, face, hatch boundary, multiline and insert of every ASCII drawing below
the folder must be the same, within 1e-9 of the largest co-ordinate, in any order, but for what expansion_excuses.py
lists. Exits with 77 (skipped) without ezdxf or without a folder, with 1 when something disagrees.
"""
import collections
import functools
import json
import sys

import expansion_excuses
import peer
import pieces

TOLERANCE = 1e-9
KINDS = ("LINE", "CIRCLE", "ARC", "ELLIPSE", "SPLINE", "POINT", "LWPOLYLINE", "POLYLINE", "3DFACE", "SOLID", "TRACE",
         "HATCH", "MLINE", "INSERT")
LIMIT = 20000  # edges of one entity


def our_pieces(words):
    if not words:
        return []
    found = json.loads(words[0])
    return found["faces"] + [[edge] for edge in found["edges"]] + [[point] for point in found["points"]]


def peer_pieces(found):
    from leaves import numbers_of
    result = []
    for kind, content in found:
        edges = content if kind in ("face", "hatch") else [content]
        result.append([list(content.xyz)] if kind == "point" else [numbers_of(edge) for edge in edges])
    return result


def by_edges(side):
    return [[edge] for piece in side for edge in piece]


def told(side):
    return str(side[:1])[:500]


def compare_pieces(ours, peers):
    """None, or how they differ."""
    size = max([1e-6] + [abs(n) for piece in ours + peers for edge in piece for n in edge])
    left, missing = pieces.without_partner(ours, peers, TOLERANCE * size)
    if not left and not missing:
        return None
    return "%d of %d pieces here and %d of %d at the peer have no partner\n    ours %s\n    peer %s" % (
        len(left), len(ours), len(missing), len(peers), told(left), told(missing))


def compare_entity(expand, entity, words, tally):
    """None, or how it differs."""
    kind = entity.dxftype()
    if words is None:
        return "is found only by the peer"
    if words and words[0].endswith(" edges"):
        tally["%s too large to be compared" % kind] += 1
        return None
    try:
        found = expand(entity)
    except Exception as failure:  # an excuse must say what is wrong with the entity
        return "the peer fails: %r" % failure
    ours, peers = our_pieces(words), peer_pieces(found)
    if any(leaf[0] == "hatch" for leaf in found):
        ours, peers = by_edges(ours), by_edges(peers)
    problem = compare_pieces(ours, peers)
    if not problem:
        tally["%s agree" % kind if ours else "%s that give nothing to either" % kind] += 1
        tally["%s, its pieces" % kind] += len(ours)
    return problem


def compare_file(program, path):
    """(its disagreements, the rows that excuse others, how often what happened)."""
    from expansion import Expansion
    tally, rows = collections.Counter(), collections.Counter()
    document = peer.document(path)
    if document is None:
        return [], rows, {"drawings not read by the peer": 1}
    ours = peer.Facts([program, path, str(LIMIT)])
    if not ours.are_known:
        return ["%s: not read here" % path.name], rows, tally
    expansion = Expansion(document, tally, LIMIT)
    problems = []
    for entity, words in ours.paired(document, KINDS):
        problem = compare_entity(expansion.of, entity, words, tally)
        if not problem:
            continue
        problem = "%s #%s: %s" % (entity.dxftype(), entity.dxf.handle, problem)
        row = expansion_excuses.row_of(path, problem)
        if row:
            rows[row] += 1
        else:
            problems.append("%s: %s" % (path.name, problem))
    tally.update("%s found only here" % kind for kind in ours.left())
    return problems, rows, tally


def compare_drawings(program, paths):
    """The exit code."""
    tally, rows, problems = collections.Counter(), collections.Counter(), []
    for found, used, counts in peer.each(functools.partial(compare_file, program), paths):
        problems += found
        rows.update(used)
        tally.update(counts)
    for rule, reason in expansion_excuses.RULES.items():
        if rule in tally:
            print("%7d times by rule: %s %s" % (tally.pop(rule), rule, reason))
    peer.tell_excuses(rows, [row for row in expansion_excuses.DIFFERENCES
                             if any(expansion_excuses.is_of(row, path) for path in paths)])
    return peer.report(tally, problems)


def main():
    program, folder = (sys.argv[1:] + [""])[:2]
    peer.need_ezdxf()
    return compare_drawings(program, peer.ascii_drawings(folder))


if __name__ == "__main__":
    sys.exit(main())
