#!/usr/bin/env bash
# clang-tidy over the product sources, several at once as the release build compiles them: most of the time goes into headers,
# and these are read once for eight sources. The bridge to COM is not built on this platform.
# One file alone, with the dev build's commands: clang-tidy --quiet -p build/dev FILE
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset tidy >/dev/null
files=$(sed -n "s|^ *\"file\": \"$PWD/\(.*\)\",\{0,1\}\$|\1|p" build/tidy/compile_commands.json)

# Reads the files that it is given by lines.
tidy() { xargs -P "$(nproc)" -n 1 clang-tidy --quiet -p build/tidy "$@" 2> >(grep -v 'warnings generated' >&2 || true); }

found=no
# Sources that are read together count as headers, which the path-sensitive analyzer follows when it is told to: the system's too.
# The headers of the command line (options, JSON) would cost more than all the rest.
grep -v hosts/ <<<"$files" | tidy --extra-arg=-Xclang --extra-arg=-analyzer-opt-analyze-headers || found=yes
grep hosts/ <<<"$files" | tidy || found=yes
[ "$found" = no ]
