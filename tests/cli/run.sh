#!/usr/bin/env bash
# Runs one golden case of the qarvelt tool. A case is a folder holding:
#   args    the command line, one line, with paths relative to the folder
#   stdout  the exact standard output expected (absent: standard output must be empty)
#   stderr  lines that must each appear in standard error (optional)
#   code    the exit code expected (optional, default 0)
# Usage: run.sh TOOL CASE_FOLDER
set -u
tool=$1 case=$2
cd "$case" || exit 1
read -r -a args < args
actual_out=$(mktemp) actual_err=$(mktemp)
trap 'rm -f "$actual_out" "$actual_err"' EXIT
timeout 20 "$tool" "${args[@]}" >"$actual_out" 2>"$actual_err" </dev/null
code=$?
want_code=$(cat code 2>/dev/null || echo 0)
status=0
if [ "$code" != "$want_code" ]; then
  echo "exit code $code, expected $want_code"; status=1
fi
if [ -f stdout ]; then
  diff -u stdout "$actual_out" || status=1
elif [ -s "$actual_out" ]; then
  echo "standard output should be empty:"; cat "$actual_out"; status=1
fi
if [ -f stderr ]; then
  while IFS= read -r line; do
    [ -z "$line" ] && continue
    grep -qF -- "$line" "$actual_err" || { echo "standard error lacks: $line"; status=1; }
  done < stderr
fi
[ $status -eq 0 ] || { echo "--- standard error:"; cat "$actual_err"; }
exit $status
