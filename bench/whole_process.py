#!/usr/bin/env python3
"""Measures reading and writing whole drawings, next to the floor, and prints a table (Markdown).

For each kind and size of drawing, the floor program and the reader run as whole processes, one after the other,
several times; a figure is the median of its runs. The floor maps the file, splits lines, converts every code and
every real, and keeps nothing: no reader can be faster. Columns:

    floor, read   MB/s of the whole process, from start to exit (1 MB = 1,000,000 bytes)
    x floor       time of the reader over the time of the floor, the median over the rounds
    memory        peak resident memory of the reader per byte of file
    write         MB/s of what the reader writes back from its model

With --cpu-time, processor time stands for wall time in floor, read and x floor: on a machine that is busy with other
work it is the steadier figure. With --peers, readers of other projects that are installed run once each, for comparison.
"""
import argparse
import os
import pathlib
import platform
import re
import statistics
import subprocess
import sys
import time

KINDS = ["lines", "mix", "splines", "mesh", "blocks"]

# Each reads a whole drawing into a model in memory. The first command tells whether it is there.
PEERS = {
    "ezdxf": (["/usr/bin/python3", "-c", "import ezdxf"],
              ["/usr/bin/python3", "-c", "import ezdxf, sys; ezdxf.readfile(sys.argv[1])", "{file}"]),
}


class Run:
    """One whole process: seconds from start to exit, peak resident memory in bytes, and what it printed."""

    cpu_time = False

    def __init__(self, command):
        read_end, write_end = os.pipe()
        start = time.perf_counter()
        pid = os.posix_spawnp(command[0], command, os.environ,
                              file_actions=[(os.POSIX_SPAWN_DUP2, write_end, 1), (os.POSIX_SPAWN_CLOSE, read_end)])
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            self.output = pipe.read()
        _, status, usage = os.wait4(pid, 0)
        wall_time = time.perf_counter() - start
        self.seconds = usage.ru_utime + usage.ru_stime if self.cpu_time else wall_time
        self.memory = usage.ru_maxrss * 1024
        if status != 0:
            sys.exit(f"{' '.join(command)} failed: {self.output}")


def drawing(programs, work, kind, size):
    """The path of a drawing of that kind and size (MB), made unless it is there."""
    path = work / f"{kind}-{size:g}MB.dxf"
    if not path.exists():
        part = path.with_suffix(".part")
        subprocess.run([programs / "generate_drawing", "--kind", kind, "--size-mb", str(size), "--out", part],
                       check=True)
        part.rename(path)
    path.read_bytes()  # into the file cache
    return path


def measure_write(read_command, work, rounds):
    """MB/s, as the reader tells it; it writes what it has read."""
    out = work / "written.dxf"
    speeds = []
    for _ in range(rounds):
        said = re.search(r"write ([0-9.]+) s", Run(read_command + ["--write", str(out)]).output)
        speeds.append(out.stat().st_size / 1e6 / max(float(said[1]), 1e-9))
        out.unlink()
    return statistics.median(speeds)


def measure(programs, work, kind, size, rounds):
    path = drawing(programs, work, kind, size)
    floor_command = [str(programs / "floor"), str(path)]
    read_command = [str(programs / "read_drawing"), str(path)]
    pairs = [(Run(floor_command), Run(read_command)) for _ in range(rounds)]
    if not all(re.search(r"[1-9][0-9]* records, 0 fails and warnings", read.output) for _, read in pairs):
        sys.exit(f"{path} was not read without a problem: {pairs[0][1].output}")
    floor = statistics.median(floor.seconds for floor, _ in pairs)
    read = statistics.median(read.seconds for _, read in pairs)
    ratio = statistics.median(read.seconds / floor.seconds for floor, read in pairs)
    memory = max(read.memory for _, read in pairs)
    write = measure_write(read_command, work, max(1, rounds // 2))
    size = path.stat().st_size
    print(f"| {kind} | {size / 1e6:.0f} | {size / 1e6 / floor:.0f} | {size / 1e6 / read:.0f} | {ratio:.2f} "
          f"| {memory / size:.2f} | {write:.0f} |", flush=True)
    return path, floor


def measure_peers(path, floor):
    for name, (probe, command) in PEERS.items():
        if subprocess.run(probe, stderr=subprocess.DEVNULL).returncode != 0:
            continue
        run = Run([part.format(file=path) for part in command])
        size = path.stat().st_size
        print(f"| ({name}) | {size / 1e6:.0f} | {size / 1e6 / floor:.0f} | {size / 1e6 / run.seconds:.1f} "
              f"| {run.seconds / floor:.1f} | {run.memory / size:.2f} | |", flush=True)


def processor():
    for line in pathlib.Path("/proc/cpuinfo").read_text().splitlines():
        if line.startswith("model name"):
            return line.split(":", 1)[1].strip()
    return platform.machine()


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--programs", type=pathlib.Path, required=True, help="folder of the built programs")
    parser.add_argument("--work", type=pathlib.Path, required=True, help="folder for the drawings (kept)")
    parser.add_argument("--sizes", type=float, nargs="+", default=[10, 100], metavar="MB")
    parser.add_argument("--kinds", nargs="+", default=KINDS, choices=KINDS)
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--cpu-time", action="store_true", help="measure processor time instead of wall time")
    parser.add_argument("--peers", action="store_true", help="also run readers of other projects, once each")
    options = parser.parse_args()

    Run.cpu_time = options.cpu_time
    options.work.mkdir(parents=True, exist_ok=True)
    clock = "processor time" if options.cpu_time else "wall time"
    print(f"{processor()}, {os.cpu_count()} processors, {clock}, medians of {options.rounds} runs\n")
    print("| kind | MB | floor MB/s | read MB/s | x floor | memory, bytes/byte | write MB/s |")
    print("|---|---|---|---|---|---|---|")
    for size in options.sizes:
        for kind in options.kinds:
            path, floor = measure(options.programs, options.work, kind, size, options.rounds)
            if options.peers:
                measure_peers(path, floor)


if __name__ == "__main__":
    main()
