#!/usr/bin/env bash
# Installs the built library into a scratch prefix and builds a consumer against it twice: with
# find_package(qarvelt) and with pkg-config. Arguments: build directory, this folder, C++ compiler.
set -euo pipefail
build=$1 here=$2 cxx=${3:-c++}
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

cmake --install "$build" --prefix "$scratch/prefix" >/dev/null

cmake -S "$here" -B "$scratch/consumer" -DCMAKE_PREFIX_PATH="$scratch/prefix" -DCMAKE_CXX_COMPILER="$cxx" >/dev/null
cmake --build "$scratch/consumer" >/dev/null
LD_LIBRARY_PATH="$scratch/prefix/lib:$scratch/prefix/lib64:${LD_LIBRARY_PATH:-}" "$scratch/consumer/consumer"

pc=$(find "$scratch/prefix" -name qarvelt.pc -print -quit)
export PKG_CONFIG_PATH=$(dirname "$pc")
# shellcheck disable=SC2046
"$cxx" -std=c++17 "$here/consumer.cpp" -o "$scratch/pc-consumer" $(pkg-config --cflags --libs qarvelt)
libdir=$(pkg-config --variable=libdir qarvelt)
LD_LIBRARY_PATH="$libdir:${LD_LIBRARY_PATH:-}" "$scratch/pc-consumer"

# The installed tool and Python module run from the prefix alone, through their run paths.
tool=$scratch/prefix/bin/qarvelt
if [ -x "$tool" ]; then
  env -u LD_LIBRARY_PATH "$tool" kinds | grep -q "^CREATE TABLE "
  echo '{"name": "T", "columns": [{"name": "A", "type": "DATE"}]}' >"$scratch/t.json"
  [ "$(env -u LD_LIBRARY_PATH "$tool" create "$scratch/t.json")" = "CREATE TABLE T (A DATE);" ]
fi
module=$(find "$scratch/prefix" -path '*/dist-packages/qarvelt' -type d -print -quit)
if [ -n "$module" ]; then
  env -u LD_LIBRARY_PATH PYTHONPATH="$(dirname "$module")" /usr/bin/python3 -c '
import qarvelt
assert qarvelt.create({"name": "T", "columns": [{"name": "A", "type": "DATE"}]}) == ["CREATE TABLE T (A DATE)"]
'
fi
echo "installed package: consumers, tool and module run"
