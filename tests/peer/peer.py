"""What the comparisons with independent readers share: the drawings, what a program of ours prints on their
records and the peer's entities that belong to it, skipping, two workers, the report."""
import collections
import concurrent.futures
import logging
import pathlib
import subprocess
import sys

SKIPPED = 77


def skip(reason):
    print("SKIPPED: %s; nothing was compared" % reason)
    sys.exit(SKIPPED)


def need_ezdxf():
    try:
        import ezdxf  # noqa: F401
    except ImportError:
        skip("python3-ezdxf is not installed")


def ascii_drawings(folder):
    """The ASCII drawings below the folder, sorted; skips without a folder."""
    if not folder:
        skip("no folder of real drawings was given (VELTRANE_SAMPLES_DIR)")
    paths = sorted(p for p in pathlib.Path(folder).rglob("*") if p.suffix.lower() == ".dxf")
    return [p for p in paths if not p.read_bytes()[:22].startswith(b"AutoCAD Binary DXF")]


def document(path):
    """The drawing as ezdxf reads it, by its repair if need be; None when it reads it in neither way."""
    import ezdxf
    import ezdxf.recover
    logging.disable(logging.CRITICAL)
    for read in (ezdxf.readfile, lambda path: ezdxf.recover.readfile(path)[0]):
        try:
            return read(path)
        except Exception:  # the peer's own limits are no concern here
            pass
    return None


class Facts:
    """What a program of ours prints on the records of a drawing, a line each, to be found by the peer's entity."""

    def __init__(self, command):
        result = subprocess.run(command, capture_output=True, text=True, errors="replace", timeout=120)
        self.are_known = result.returncode == 0
        self.by_handle, self.in_order, self.places = {}, collections.defaultdict(list), collections.Counter()
        self.found = set()
        for line in result.stdout.splitlines() if self.are_known else []:
            handle, kind, container, *words = line.split("\t")
            self.by_handle[handle] = entry = (kind, words)
            self.in_order[kind, container].append(entry)

    def paired(self, document, kinds):
        """(entity, words) of every entity of these kinds that the peer keeps; None for words when there is no
        such record here."""
        containers = {container for _, container in self.in_order}
        entities = [(entity, container) for entity, container in peer_entities(document)
                    if container in containers or not container.startswith("BLOCK _")]  # arrow heads that it adds
        counts = collections.Counter((entity.dxftype(), container) for entity, container in entities)
        for entity, container in entities:
            kind = entity.dxftype()
            if kind in kinds:
                yield entity, self._words(entity, (kind, container), counts)

    def _words(self, entity, group, counts):
        place = self.places[group]
        self.places[group] += 1
        # Handles may be missing or claimed twice in the file; the order then tells. The peer adds entities of its
        # own to some drawings; the handle then tells.
        listed = self.in_order.get(group, [])
        known = listed[place] if len(listed) == counts[group] else self.by_handle.get(entity.dxf.handle)
        if not known or known[0] != group[0]:
            return None
        self.found.add(id(known))
        return known[1]

    def left(self):
        """The kinds of the records to which no entity of the peer was paired, each as often as there are."""
        return [entry[0] for entries in self.in_order.values() for entry in entries if id(entry) not in self.found]


def peer_entities(document):
    """(entity, container) of every entity that ezdxf keeps."""
    for block in document.blocks:
        name = block.name.upper()
        if block.is_any_layout:
            container = "MODEL" if name.startswith(("*MODEL", "$MODEL")) else "PAPER"
        else:
            container = "BLOCK " + block.name
        for entity in block:
            yield entity, container


def each(work, paths):
    """work(path) of every path, by two processes, in the order of the paths. Large drawings begin first, so that
    none of them is left to the end."""
    with concurrent.futures.ProcessPoolExecutor(2) as pool:
        ordered = sorted(paths, key=lambda p: -p.stat().st_size)
        running = {path: pool.submit(work, path) for path in ordered}
        return [running[path].result() for path in paths]


def tell_excuses(used, rows):
    """`used` counts the rows that excused something; `rows` are those that could. A row ends with its drawing, a
    pattern and the reason."""
    for row in rows:
        name, reason = row[-3] or "any drawing", row[-1]
        if used[row]:
            print("%7d differences excused in %s: %s" % (used[row], name, reason))
        else:
            print("the excuse of %s is not needed any more: %s" % (name, reason))


def report(tally, problems):
    """Prints both; the exit code of the comparison. Comparing nothing is no success."""
    for name in sorted(tally):
        print("%7d %s" % (tally[name], name))
    print("\n".join(problems))
    print("%d disagreements" % len(problems))
    return 1 if problems or not any(name.endswith("agree") for name in tally) else 0
