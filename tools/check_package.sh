#!/usr/bin/env bash
# Installs a build tree into a temporary folder, moves what was installed, and builds a small host against it, once by
# its CMake package and once by pkg-config: tools/check_package.sh build/release
set -euo pipefail
cd "$(dirname "$0")/.."
tree=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

cmake --install "$tree" --prefix "$folder/first" >/dev/null
mv "$folder/first" "$folder/installed"
library_folder=$(dirname "$(find "$folder/installed" -name 'libvestara.so.1')")

# Few headers are installed, and those work together without anything else.
most_headers=48
include=$folder/installed/include/vestara-1
(cd "$include" && find . -name '*.h' -printf '#include <%P>\n') >"$folder/headers.cpp"
count=$(wc -l <"$folder/headers.cpp")
[ "$count" -le $most_headers ] || { echo "$count headers are installed, $most_headers at most" >&2; exit 1; }
g++ -std=c++20 -fsyntax-only -I "$include" "$folder/headers.cpp"

cmake -G Ninja -S tests/package -B "$folder/host" -DCMAKE_PREFIX_PATH="$folder/installed" >/dev/null
cmake --build "$folder/host" >/dev/null
export VESTARA_LOG_DIR="$folder"
"$folder/host/host"

# By the files themselves, without a word about where the tree lies now.
flags=$(PKG_CONFIG_PATH="$library_folder/pkgconfig" pkg-config --cflags --libs vestara dorvane)
# shellcheck disable=SC2086
g++ tests/package/host.cpp -o "$folder/host2" $flags -Wl,-rpath,"$library_folder"
"$folder/host2"

readelf -d "$library_folder/libvestara.so.1" | grep -q 'SONAME.*libvestara\.so\.1'
"$folder/installed/bin/vestara" --version
