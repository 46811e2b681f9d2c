#!/usr/bin/env bash
# Installs the Debian packages of one purpose, saying which are missing: tools/install_packages.sh build|check|servers|windows
set -euo pipefail

build=(g++ cmake ninja-build pkg-config libsqlite3-dev libpq-dev libmariadb-dev libcli11-dev nlohmann-json3-dev libzip-dev zlib1g-dev)
check=("${build[@]}" git ccache libgtest-dev clang-format clang-tidy python3 zip valgrind
       python3-pandas python3-numpy mypy python3-setuptools python3-wheel python3-pip)
# The database servers that the tests start, each in a folder of its own. procps ends them, util-linux changes the user.
servers=(postgresql mariadb-server procps util-linux)
# The COM servers: cross compilers, the compiler of type libraries, Wine to run the tests. npm fetches SQLite's source.
windows=("${build[@]}" libgtest-dev g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix mingw-w64-tools wine wine64 npm)

case "${1:-}" in
  build) wanted=("${build[@]}") ;;
  check) wanted=("${check[@]}") ;;
  servers) wanted=("${servers[@]}") ;;
  windows) wanted=("${windows[@]}") ;;
  *) echo "usage: $0 build|check|servers|windows" >&2; exit 2 ;;
esac

missing=()
for package in "${wanted[@]}"; do
  # One that did not come as a package will do.
  if [ "$package" = npm ] && command -v npm >/dev/null; then continue; fi
  status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
  [ "$status" = "install ok installed" ] || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
echo "Installing with apt-get: ${missing[*]}"
"${as_root[@]}" apt-get update -q
DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"
