#!/usr/bin/env bash
# Every C++ file stands as clang-format writes it.
set -euo pipefail
cd "$(dirname "$0")/.."
git ls-files -z '*.h' '*.cpp' | xargs -0 clang-format --dry-run -Werror
