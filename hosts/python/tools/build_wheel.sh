#!/usr/bin/env bash
# Builds the wheel with its libraries, without network: tools/build_wheel.sh LIBRARY_FOLDER OUTPUT_FOLDER
# Needs python3-setuptools, python3-wheel and python3-pip. Everything happens in a temporary copy of the package.
set -euo pipefail
[ $# -eq 2 ] || { echo "usage: $0 LIBRARY_FOLDER OUTPUT_FOLDER" >&2; exit 2; }

package=$(cd "$(dirname "$0")/.." && pwd)
libraries=$(cd "$1" && pwd)
mkdir -p "$2"
output=$(cd "$2" && pwd)
python=${PYTHON:-python3}

tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
cp "$package"/{pyproject.toml,setup.py,README.md} "$package/../../LICENSE" "$tree"
mkdir -p "$tree/vestara/lib"
cp "$package"/vestara/*.py "$package"/vestara/*.pyi "$package/vestara/py.typed" "$tree/vestara"
for name in libautomation libvestara libdorvane; do
  cp -L "$libraries/$name.so.1" "$tree/vestara/lib"
done

# A build folder's search path is padded with empty entries, which would mean the current folder.
"$python" - "$tree"/vestara/lib/*.so.1 <<'PYTHON'
import pathlib, re, sys
for path in map(pathlib.Path, sys.argv[1:]):
    path.write_bytes(re.sub(rb"(?<=\0)(\$ORIGIN)(:+)(?=\0)", lambda m: m[1] + b"\0" * len(m[2]), path.read_bytes()))
PYTHON

cd "$tree"
"$python" -m pip wheel --quiet --no-index --no-deps --no-build-isolation --no-cache-dir --wheel-dir "$output" .
ls "$output"/vestara-*.whl
