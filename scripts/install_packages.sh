#!/bin/sh
# Installs the Debian packages that a purpose needs, if any of them is missing.
#
#     scripts/install_packages.sh [build] [test] [bench] [fuzz] [format]
#
# Without an argument: build. Runs apt-get (through sudo when not root) only when something is missing.
set -eu

build="g++ cmake ninja-build pkg-config libeigen3-dev libcairo2-dev libassimp-dev zlib1g-dev \
    libcli11-dev libfmt-dev nlohmann-json3-dev"
test="python3 libgtest-dev"
bench="python3 libbenchmark-dev"
fuzz="clang"
format="clang-format"
# Independent tools that some tests compare against. Those tests are skipped without them.
test_peers="python3-ezdxf libdxflib-dev poppler-utils librsvg2-bin"

usage() {
    sed -n '2,6s/^# \{0,1\}//p' "$0" >&2
    exit 2
}

installed() {
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

missing_of() {
    for package in "$@"; do
        installed "$package" || printf '%s ' "$package"
    done
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "These packages are missing and there is no sudo to install them. As root, run:" >&2
        echo "    $*" >&2
        exit 1
    fi
}

apt() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=300 "$@"
}

wanted=""
peers=""
for purpose in "${@:-build}"; do
    case "$purpose" in
        build) wanted="$wanted $build" ;;
        test) wanted="$wanted $test" peers="$test_peers" ;;
        bench) wanted="$wanted $bench" ;;
        fuzz) wanted="$wanted $fuzz" ;;
        format) wanted="$wanted $format" ;;
        *) usage ;;
    esac
done

if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    echo "This is not a Debian system; please install what these packages hold:$wanted" >&2
    exit 0
fi

missing=$(missing_of $wanted)
missing_peers=$(missing_of $peers)
if [ -z "$missing$missing_peers" ]; then
    echo "All packages are installed."
    exit 0
fi

echo "Installing: $missing$missing_peers"
apt update -q || echo "The package lists could not be refreshed; going on with the old ones." >&2
if [ -n "$missing" ]; then
    apt install -q -y --no-install-recommends $missing
fi
for package in $missing_peers; do
    apt install -q -y --no-install-recommends "$package" ||
        echo "$package could not be installed; the tests that compare against it will be skipped." >&2
done
