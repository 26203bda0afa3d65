#!/usr/bin/env bash
# What tools/bench-gate calls worse: run as bench_gate.sh GATE.
set -euo pipefail
gate=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# expect CODE THIS PREVIOUS: both are lines of output.
expect() {
  printf '%b\n' "$2" >"$folder/this"
  printf '%b\n' "$3" >"$folder/previous"
  local code=0
  "$gate" --compare "$folder/this" "$folder/previous" >"$folder/out" || code=$?
  [ "$code" -eq "$1" ] || { echo "expected $1, not $code, for: $2 | $3"; cat "$folder/out"; exit 1; }
}

expect 0 'a to b:  1.10 (at most 1.5)' 'a to b:  1.01 (at most 1.5)'
expect 1 'a to b:  1.12 (at most 1.5)' 'a to b:  1.01 (at most 1.5)'
expect 0 'a to b:  9.00 (at most 1.5)\na to b: 1.00 (at most 1.5)' 'a to b: 1.0 (at most 1.2)'
expect 1 'a to b:  9.00 (at most 1.5)\na to b: 1.20 (at most 1.5)' 'a to b: 3.0 (at most 1.2)\na to b: 1.0 (at most 1.2)'
expect 0 'pages: 0.92 (at least 0.67; 700 pages)' 'pages: 1.00 (at least 0.67; 600 pages)'
expect 1 'pages: 0.90 (at least 0.67; 700 pages)' 'pages: 1.00 (at least 0.67; 600 pages)'
expect 1 'same: 1 (at most 9)\nx, y: 2.0 (at most 9)' 'x, y: 1.0 (at most 9)\nsame: 1 (at most 9)'
expect 0 'new: 5 (at most 9)\nfirst page: 15 ms (at most 300)' 'gone: 1 (at most 9)\nfirst page: 1 ms (at most 300)'
grep -q . "$folder/out" && { echo "figures of one side alone were compared"; exit 1; }
exit 0
