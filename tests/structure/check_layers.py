#!/usr/bin/env python3
"""Fails when a file includes a header of a layer above its own.

    check_layers.py SRC

SRC is the include root: the library stands in SRC/veltrane/<layer>/, the tool in SRC/vdxf/.
"""
import pathlib
import re
import sys

# What each layer may include, besides itself.
BELOW = {
    "base": "",
    "kernel": "base",
    "exchange": "base kernel",
    "acis": "base kernel",
    "section": "base kernel exchange ent",
    "ent": "base kernel exchange acis section",
    "file": "base kernel exchange acis section ent",
    "data": "base kernel exchange acis section ent file sat",
    "sat": "base kernel exchange acis section ent file data",
    "control": "base kernel exchange acis section ent file data sat",
    # Names, layers and colours come with the drawing model, which stands on the framework.
    "output": "base kernel exchange section ent",
}

# The same inside the kernel.
KERNEL_BELOW = {
    "math": "",
    "geom": "math",
    "topo": "math geom",
    "algo": "math geom topo",
    "mesh": "math geom topo algo",
    "font": "math geom topo algo",
}

INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"')


def layer_of(path):
    """('kernel', 'geom') for veltrane/kernel/geom/line.hpp; the second is '' elsewhere."""
    parts = pathlib.PurePath(path).parts
    if parts[0] != "veltrane":
        return parts[0], ""
    return parts[1], parts[2] if parts[1] == "kernel" and len(parts) > 3 else ""


def complaint(path, included, root):
    """What is wrong with this include, or None."""
    if not (root / included).is_file():
        return "no such file below the include root"
    (layer, folder), (target, target_folder) = layer_of(path), layer_of(included)
    if layer == "vdxf":
        return None
    if layer not in BELOW:
        return f"the folder '{layer}' has no place among the layers (see {pathlib.Path(__file__).name})"
    if target != layer and target not in BELOW[layer].split():
        return f"{layer} must not know {target}"
    if folder and target_folder and folder != target_folder:
        if target_folder not in KERNEL_BELOW.get(folder, "").split():
            return f"kernel/{folder} must not know kernel/{target_folder}"
    return None


def main():
    root = pathlib.Path(sys.argv[1])
    files = sorted(p for p in root.rglob("*") if p.suffix in (".hpp", ".cpp"))
    faults = 0
    for file in files:
        path = file.relative_to(root)
        for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
            match = INCLUDE.match(line)
            fault = match and complaint(path, match[1], root)
            if fault:
                print(f"{path}:{number}: includes {match[1]}: {fault}")
                faults += 1
    print(f"{len(files)} files, {faults} faults")
    return 1 if faults or not files else 0


if __name__ == "__main__":
    sys.exit(main())
