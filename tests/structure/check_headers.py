#!/usr/bin/env python3
"""Fails when a header does not compile alone.

    check_headers.py SRC COMPILE_COMMANDS

A source that includes a header before anything else has proven it whenever the tree is built. The other headers
are compiled here, two at a time, with the compiler and the search paths of COMPILE_COMMANDS
(compile_commands.json of the build).
"""
import concurrent.futures
import json
import pathlib
import re
import shlex
import subprocess
import sys

INCLUDE = re.compile(r'^\s*#\s*include\s*["<]([^">]+)[">]', re.MULTILINE)


def compiler_and_flags(commands, root):
    """The compiler, and every search path and definition that a source below `root` is compiled with."""
    compiler, flags = None, []
    for entry in commands:
        if root not in pathlib.Path(entry["file"]).parents:
            continue
        words = shlex.split(entry["command"])
        if "ccache" in pathlib.Path(words[0]).name:
            words = words[1:]
        compiler = words[0]
        for word, following in zip(words, words[1:] + [""]):
            flag = [word, following] if word == "-isystem" else [word] if word[:2] in ("-I", "-D") else []
            if flag and flag not in flags:
                flags.append(flag)
    return compiler, [word for flag in flags for word in flag]


def proven_headers(commands):
    """Headers that some source of the build includes before anything else."""
    sources = {pathlib.Path(entry["file"]) for entry in commands}
    first = (INCLUDE.search(source.read_text(encoding="utf-8")) for source in sources)
    return {include[1] for include in first if include}


def main():
    root = pathlib.Path(sys.argv[1]).resolve()
    commands = json.loads(pathlib.Path(sys.argv[2]).read_text(encoding="utf-8"))
    compiler, flags = compiler_and_flags(commands, root)
    headers = {str(p.relative_to(root)) for p in root.rglob("*.hpp")}
    left = sorted(headers - proven_headers(commands))

    def compile_alone(header):
        options = ["-std=c++20", "-fsyntax-only", "-Wall", "-Wextra", "-Wpedantic", "-Werror"]
        return subprocess.run([compiler, *options, *flags, "-x", "c++", "-"], text=True, stderr=subprocess.PIPE,
                              input=f'#include "{header}"\n')

    faults = 0
    with concurrent.futures.ThreadPoolExecutor(max_workers=2) as pool:
        for header, result in zip(left, pool.map(compile_alone, left)):
            if result.returncode != 0:
                print(f"{header} does not compile alone:\n{result.stderr}")
                faults += 1
    print(f"{len(headers)} headers, {len(left)} compiled here, {faults} faults")
    return 1 if faults or not headers else 0


if __name__ == "__main__":
    sys.exit(main())
