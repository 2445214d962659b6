"""What the comparisons with independent readers share: the drawings, skipping, two workers, the report."""
import concurrent.futures
import pathlib
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


def each(work, paths):
    """work(path) of every path, by two processes, in the order of the paths. Large drawings begin first, so that
    none of them is left to the end."""
    with concurrent.futures.ProcessPoolExecutor(2) as pool:
        ordered = sorted(paths, key=lambda p: -p.stat().st_size)
        running = {path: pool.submit(work, path) for path in ordered}
        return [running[path].result() for path in paths]


def report(tally, problems):
    """Prints both; the exit code of the comparison. Comparing nothing is no success."""
    for name in sorted(tally):
        print("%7d %s" % (tally[name], name))
    print("\n".join(problems))
    print("%d disagreements" % len(problems))
    return 1 if problems or not any(name.endswith("agree") for name in tally) else 0
