#!/usr/bin/env bash
# Database servers for tests and benchmarks, each alone in a folder of its own, reached by a socket in it only.
#
#   tools/servers.sh start  ENGINE FOLDER   makes the folder's server where it is missing, starts it, prints its URL
#   tools/servers.sh stop   ENGINE FOLDER   ends it in order
#   tools/servers.sh kill   ENGINE FOLDER   ends it at once, as a power cut would
#   tools/servers.sh url    ENGINE FOLDER
#
# ENGINE is postgresql or mariadb. The user is "vestara" without a password, the database "vestara". By default nothing is
# synced to disk; DURABLE=yes keeps the engine's own settings. SERVER_OPTIONS are handed to the server as they stand.
set -euo pipefail
PATH=$PATH:/usr/sbin

usage() { sed -n '2,11s/^# \{0,1\}//p' "$0" >&2; exit 2; }
[ $# -eq 3 ] || usage
action=$1 engine=$2 folder=$3

# A socket's path is short by nature (107 bytes), a test's folder need not be.
case "$engine" in
  postgresql) url="postgresql://vestara@/vestara?socket=$folder" ;;
  mariadb) url="mariadb://vestara@/vestara?socket=$folder/socket" ;;
  *) usage ;;
esac

fail() { echo "$0: $*" >&2; tail -n 20 "$folder/log" >&2 2>/dev/null || true; exit 1; }

# Servers refuse to run as root: there they get the user that their package made.
owner=postgres
[ "$engine" = postgresql ] || owner=mysql
as_owner=()
[ "$(id -u)" -ne 0 ] || as_owner=(setpriv --reuid "$owner" --regid "$owner" --clear-groups)

hand_over() {
  mkdir -p "$folder"
  [ "$(id -u)" -ne 0 ] || chown "$owner:$owner" "$folder"
}

postgresql_programs() {
  local newest
  newest=$(printf '%s\n' /usr/lib/postgresql/*/bin | sort -V | tail -1)
  [ -x "$newest/postgres" ] || fail "PostgreSQL is not installed; tools/install_packages.sh servers"
  echo "$newest"
}

make_postgresql() {
  hand_over
  "${as_owner[@]}" "$(postgresql_programs)/initdb" -D "$folder/data" -U vestara -A trust -E UTF8 --locale=C.UTF-8 --no-sync \
    >"$folder/made.log" 2>&1 || fail "initdb failed: $(tail -n 3 "$folder/made.log")"
}

start_postgresql() {
  [ -f "$folder/data/PG_VERSION" ] || make_postgresql
  local sync=(-c fsync=off -c synchronous_commit=off -c full_page_writes=off)
  [ "${DURABLE:-no}" = no ] || sync=()
  # What a killed server leaves behind.
  rm -f "$folder/data/postmaster.pid" "$folder"/.s.PGSQL.*
  # shellcheck disable=SC2086
  "${as_owner[@]}" "$(postgresql_programs)/postgres" -D "$folder/data" -k "$folder" -c listen_addresses= "${sync[@]}" \
    ${SERVER_OPTIONS:-} >>"$folder/log" 2>&1 </dev/null &
  echo $! >"$folder/pid"
}

answers_postgresql() {
  psql -h "$folder" -U vestara -d postgres -Atqc "SELECT 1" >/dev/null 2>&1 || return 1
  [ "$(psql -h "$folder" -U vestara -d postgres -Atqc "SELECT count(*) FROM pg_database WHERE datname='vestara'")" = 1 ] ||
    createdb -h "$folder" -U vestara vestara
}

make_mariadb() {
  "${as_owner[@]}" env TMPDIR="$folder/temporary" mariadb-install-db --no-defaults --datadir="$folder/data" \
    --auth-root-authentication-method=normal --skip-test-db --innodb-log-file-size=16M >"$folder/made.log" 2>&1 ||
    fail "mariadb-install-db failed: $(tail -n 3 "$folder/made.log")"
}

start_mariadb() {
  hand_over
  # A MariaDB that starts removes the temporary tables of every other one with the same temporary folder.
  "${as_owner[@]}" mkdir -p "$folder/temporary"
  command -v mariadbd >/dev/null || fail "MariaDB is not installed; tools/install_packages.sh servers"
  [ -d "$folder/data/mysql" ] || make_mariadb
  local sync=(--innodb-flush-log-at-trx-commit=2 --innodb-flush-method=nosync --innodb-doublewrite=0)
  [ "${DURABLE:-no}" = no ] || sync=()
  # shellcheck disable=SC2086
  "${as_owner[@]}" mariadbd --no-defaults --datadir="$folder/data" --tmpdir="$folder/temporary" \
    --socket="$folder/socket" --pid-file="$folder/data/server.pid" --skip-networking --skip-log-bin \
    --innodb-log-file-size=16M --performance-schema=off "${sync[@]}" ${SERVER_OPTIONS:-} >>"$folder/log" 2>&1 </dev/null &
  echo $! >"$folder/pid"
}

answers_mariadb() {
  mariadb --no-defaults -S "$folder/socket" -u root -e "CREATE DATABASE IF NOT EXISTS vestara CHARACTER SET utf8mb4;
    CREATE USER IF NOT EXISTS vestara@localhost; GRANT ALL ON *.* TO vestara@localhost WITH GRANT OPTION" >/dev/null 2>&1
}

# One that ended but was not yet waited for is none.
is_alive() { kill -0 "$1" 2>/dev/null && ! grep -q '^State:.Z' "/proc/$1/status" 2>/dev/null; }
running() { [ -f "$folder/pid" ] && is_alive "$(cat "$folder/pid")"; }

start() {
  running || "start_$engine"
  for _ in $(seq 300); do
    "answers_$engine" && return
    running || fail "the server ended while it was starting"
    sleep 0.1
  done
  fail "the server does not answer after 30 seconds"
}

# Sends a signal to the server and waits for its end. Only processes of this folder's server are ever touched.
end_by() {
  [ -f "$folder/pid" ] || return 0
  local pid workers=
  pid=$(cat "$folder/pid")
  # PostgreSQL's workers are children of the first process; they would outlive it for a while.
  [ "$1" != KILL ] || workers=$(pgrep -P "$pid" || true)
  # shellcheck disable=SC2086
  kill "-$1" "$pid" $workers 2>/dev/null || true
  for _ in $(seq 300); do
    is_alive "$pid" || { rm -f "$folder/pid"; return 0; }
    sleep 0.1
  done
  fail "the server (process $pid) does not end"
}

case "$action" in
  start) start; echo "$url" ;;
  stop) if [ "$engine" = postgresql ]; then end_by INT; else end_by TERM; fi ;;
  kill) end_by KILL ;;
  url) echo "$url" ;;
  *) usage ;;
esac
