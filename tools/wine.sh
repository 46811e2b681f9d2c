#!/usr/bin/env bash
# Runs a Windows program under Wine, without a display and with a prefix of this build's own:
#   VESTARA_WINEPREFIX=build/windows/wineprefix tools/wine.sh program.exe arguments
#   tools/wine.sh --start | --stop     makes the prefix and keeps its server running | ends that
set -euo pipefail
export WINEPREFIX=${VESTARA_WINEPREFIX:?names the folder of the prefix}
export WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all,fixme+wscript,fixme+vbscript,fixme+jscript}
# Nothing that would look for a display, a browser or another run time.
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe=;winedbg.exe="
# Dates and numbers as text are the library's own affair; the rest follows one locale.
export LC_ALL=C.UTF-8
unset DISPLAY

case "${1:-}" in
  --start)
    mkdir -p "$WINEPREFIX"
    # With their output elsewhere: whoever starts this would otherwise wait for the server to end.
    wineserver -p >/dev/null 2>&1 </dev/null || true
    wine wineboot -u >"$WINEPREFIX/start.log" 2>&1 </dev/null || { cat "$WINEPREFIX/start.log"; exit 1; }
    ;;
  --stop) wineserver -k >/dev/null 2>&1 || true ;;
  *) exec wine "$@" ;;
esac
