#!/bin/sh
# Peak memory of `qarvelt create` on a table document with many columns (1000 by default), each with
# a name, a data type and a length. The document is generated into a temporary folder and removed
# afterwards. The peak resident set size comes from /usr/bin/time -v; `qarvelt --version` is measured
# the same way, for the part every run pays (the program and its libraries).
#
#   bench/create_memory.sh [QARVELT_BINARY] [COLUMNS]
set -eu

tool=${1:-build/tools/qarvelt}
columns=${2:-1000}
[ -x "$tool" ] || { echo "no qarvelt binary at $tool (build the qarvelt_tool target)" >&2; exit 2; }
[ -x /usr/bin/time ] || { echo "needs /usr/bin/time (Debian package: time)" >&2; exit 2; }

dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT INT TERM

{
  printf '{\n  "schema": "SCOTT",\n  "name": "WIDE",\n  "columns": [\n'
  i=0
  while [ "$i" -lt "$columns" ]; do
    [ "$i" -gt 0 ] && printf ',\n'
    printf '    {"name": "C%d", "type": "VARCHAR2", "length": %d}' "$i" $((10 + i % 90))
    i=$((i + 1))
  done
  printf '\n  ]\n}\n'
} >"$dir/table.json"

peak_kb() {
  /usr/bin/time -v "$@" 2>"$dir/time.txt" >/dev/null
  sed -n 's/.*Maximum resident set size (kbytes): //p' "$dir/time.txt"
}

create_kb=$(peak_kb "$tool" create "$dir/table.json" --output "$dir/out.sql")
base_kb=$(peak_kb "$tool" --version)
grep -q "C$((columns - 1)) VARCHAR2" "$dir/out.sql" || { echo "the CREATE TABLE lacks its last column" >&2; exit 1; }

awk -v c="$create_kb" -v b="$base_kb" -v n="$columns" 'BEGIN {
  printf "qarvelt create, %d columns: peak %.1f MB (%d KB)\n", n, c / 1024, c
  printf "qarvelt --version:          peak %.1f MB (%d KB)\n", b / 1024, b
  printf "difference:                 %.1f MB, %.1f KB per column\n", (c - b) / 1024, (c - b) / n
}'
