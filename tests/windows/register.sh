#!/usr/bin/env bash
# register.sh wine.sh clean|install|remove libraries…
# Installs with regsvr32, as a user does. Removing must leave the registry as it was found.
set -euo pipefail
wine=$1 what=$2
shift 2

# Every key of the classes; the user's own may be missing. Values are left out: Wine changes some of its own.
keys() {
  "$wine" reg export 'HKLM\Software\Classes' "$1-machine.reg" /y >/dev/null
  "$wine" reg export 'HKCU\Software\Classes' "$1-user.reg" /y >/dev/null 2>&1 || : >"$1-user.reg"
  cat "$1-machine.reg" "$1-user.reg" | tr -d '\r\0' | grep -a '^\[' >"$1"
}

if [ "$what" = clean ]; then
  # What an interrupted run left.
  for library in "$@"; do "$wine" regsvr32 /s /u "$library"; done
  # Wine's script host writes keys of its own when it first runs in a prefix.
  echo "WScript.Echo 1" >first.vbs
  "$wine" 'C:\windows\system32\cscript.exe' /nologo "Z:$PWD/first.vbs" >/dev/null 2>&1
elif [ "$what" = install ]; then
  keys before
  for library in "$@"; do "$wine" regsvr32 /s "$library"; done
  keys registered
  if cmp -s before registered; then echo "nothing was registered"; exit 1; fi
  # Once more must change nothing.
  for library in "$@"; do "$wine" regsvr32 /s "$library"; done
  keys again
  cmp registered again
else
  for library in "$@"; do "$wine" regsvr32 /s /u "$library"; done
  keys after
  diff before after
fi
