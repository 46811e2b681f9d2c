#!/usr/bin/env bash
# Runs a command beside a PostgreSQL and a MariaDB of its own: tools/with_servers.sh COMMAND [ARGUMENT…]
# VESTARA_TEST_POSTGRESQL and VESTARA_TEST_MARIADB are their URLs; an engine that is not installed has none. The servers live in
# memory where there is some (VESTARA_SERVER_FOLDER names another place) and go with the command.
set -euo pipefail
tools=$(cd "$(dirname "$0")" && pwd)
PATH=$PATH:/usr/sbin

folder=$(mktemp -d -p "${VESTARA_SERVER_FOLDER:-/dev/shm}" vestara.XXXXXX 2>/dev/null || mktemp -d)
chmod 711 "$folder"
started=()
stop_servers() {
  for engine in "${started[@]}"; do "$tools/servers.sh" stop "$engine" "$folder/$engine" || true; done
  rm -rf "$folder"
}
trap stop_servers EXIT

# engine, a program that comes with it, variable
start() {
  if ! command -v "$2" >/dev/null; then echo "$1 is not installed: what needs it is left out"; return; fi
  local url
  started+=("$1")
  url=$("$tools/servers.sh" start "$1" "$folder/$1")
  export "$3=$url"
}
start postgresql pg_ctlcluster VESTARA_TEST_POSTGRESQL
start mariadb mariadbd VESTARA_TEST_MARIADB
"$@"
