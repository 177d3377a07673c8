#!/usr/bin/env bash
# Runs the fuzz targets side by side from the seed corpora in fuzz/corpus/, a fixed number of
# executions each. New inputs go to a scratch folder (the seed corpora stay as they are); a crash is
# written to the current folder as crash-* and ends the run with a failure.
# Usage: scripts/fuzz.sh BUILD_DIR [TREE_RUNS] [DOCUMENT_RUNS] [SCRIPT_RUNS]
set -euo pipefail
build=$1 tree_runs=${2:-6000} document_runs=${3:-15000} script_runs=${4:-10000}
root="$(cd "$(dirname "$0")/.." && pwd)"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir -p "$scratch/trees" "$scratch/documents" "$scratch/scripts"
"$build/fuzz/qarvelt_fuzz_trees" -runs="$tree_runs" -max_len=512 "$scratch/trees" "$root/fuzz/corpus/trees" \
  >"$scratch/trees.log" 2>&1 &
trees=$!
"$build/fuzz/qarvelt_fuzz_documents" -runs="$document_runs" "$scratch/documents" "$root/fuzz/corpus/documents" \
  >"$scratch/documents.log" 2>&1 &
documents=$!
# The scripts target also starts from the golden cases' scripts and documents.
"$build/fuzz/qarvelt_fuzz_scripts" -runs="$script_runs" "$scratch/scripts" "$root/fuzz/corpus/scripts" "$root/tests/cli" \
  >"$scratch/scripts.log" 2>&1 &
scripts=$!
status=0
wait $trees || { echo "trees target failed:"; tail -n 60 "$scratch/trees.log"; status=1; }
wait $documents || { echo "documents target failed:"; tail -n 60 "$scratch/documents.log"; status=1; }
wait $scripts || { echo "scripts target failed:"; tail -n 60 "$scratch/scripts.log"; status=1; }
grep -h '^Done' "$scratch/trees.log" "$scratch/documents.log" "$scratch/scripts.log" || true
exit $status
