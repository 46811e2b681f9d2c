#!/usr/bin/env bash
# Runs one script under Wine: run_script.sh wine.sh script.vbs folder
# A script host of Wine ends with code 0 when a script breaks off or does not even parse, so the last line must be the
# sentinel. Its error stream tells more: there also errors are shown that a script raises and traps.
set -euo pipefail
wine=$1 script=$2 folder=$3
here=$(dirname "$script")
name=$(basename "$script")

# A copy of its own: parallel runs of one file get in each other's way.
copy=$(mktemp "$folder/XXXXXX-$name")
trap 'rm -f "$copy" "$copy.out" "$copy.err"' EXIT
cat "$here/common.${name##*.}" "$script" "$here/end.${name##*.}" >"$copy"

code=0
"$wine" 'C:\windows\system32\cscript.exe' "Z:${copy//\//\\}" "Z:$folder" >"$copy.out" 2>"$copy.err" || code=$?
cat "$copy.out"
if grep -a parser_error "$copy.err"; then exit 1; fi
if grep -aq '^FAILED' "$copy.out"; then exit 1; fi
if ! tail -n 1 "$copy.out" | grep -aq '^all checks done'; then
  cat "$copy.err"
  echo "the script broke off"
  exit 1
fi
exit "$code"
