#!/bin/sh
# Converts the project's own drawing with the tool and tells where the results lie.
#
#     scripts/demo.sh VDXF OUTPUT_FOLDER
set -eu
[ $# -eq 2 ] || { sed -n '2,4s/^# \{0,1\}//p' "$0" >&2; exit 2; }

vdxf=$1
out=$2
drawing=$(dirname "$0")/../examples/flange.dxf

mkdir -p "$out"
for result in flange.png flange.svg flange.glb flange.dxf flange.txt; do
    "$vdxf" convert -q "$drawing" "$out/$result"
done

"$vdxf" info "$drawing"
out=$(cd "$out" && pwd)
cat <<END

The drawing examples/flange.dxf became
  pictures               $out/flange.png
                         $out/flange.svg
  a mesh                 $out/flange.glb
  a rewritten drawing    $out/flange.dxf
  a dump of its shapes   $out/flange.txt
END
