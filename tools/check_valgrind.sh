#!/usr/bin/env bash
# The example in C under valgrind, over the release libraries: no error, nothing lost: tools/check_valgrind.sh build/release
set -euo pipefail
cd "$(dirname "$0")/.."
libraries=$PWD/$1/lib
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
gcc -std=c11 -Wall -Wextra -O1 -g -I. tests/c_abi/example.c -o "$folder/example" -L"$libraries" -lautomation \
  -Wl,-rpath,"$libraries"
cd "$folder"
VESTARA_LOG_DIR=$folder valgrind --quiet --leak-check=full --errors-for-leak-kinds=definite,indirect --error-exitcode=9 \
  --suppressions="$OLDPWD/tests/c_abi/valgrind.supp" ./example
