#!/usr/bin/env bash
# Installs the Debian packages of one purpose, saying which are missing: tools/install_packages.sh build|check
set -euo pipefail

build=(g++ cmake ninja-build pkg-config libsqlite3-dev libcli11-dev nlohmann-json3-dev libzip-dev)
check=("${build[@]}" git ccache libgtest-dev clang-format clang-tidy python3 zip valgrind
       python3-pandas python3-numpy mypy python3-setuptools python3-wheel python3-pip)

case "${1:-}" in
  build) wanted=("${build[@]}") ;;
  check) wanted=("${check[@]}") ;;
  *) echo "usage: $0 build|check" >&2; exit 2 ;;
esac

missing=()
for package in "${wanted[@]}"; do
  status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
  [ "$status" = "install ok installed" ] || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
echo "Installing with apt-get: ${missing[*]}"
"${as_root[@]}" apt-get update -q
DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"
