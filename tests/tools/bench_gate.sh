#!/usr/bin/env bash
# What tools/bench-gate calls worse: run as bench_gate.sh GATE.
set -euo pipefail
gate=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# expect CODE (THIS PREVIOUS)..: the lines of output of pairs of runs.
expect() {
  local expected=$1 files=() code=0 text
  shift
  for text in "$@"; do
    files+=("$folder/${#files[@]}")
    printf '%b\n' "$text" >"${files[-1]}"
  done
  "$gate" --compare "${files[@]}" >"$folder/out" || code=$?
  [ "$code" -eq "$expected" ] || { echo "expected $expected, not $code, for: $*"; cat "$folder/out"; exit 1; }
}

most() { echo "$1: $2 (at most 1.5)"; }
before=$(most 'a to b' 1.00)
worse=$(most 'a to b' 1.12)
little=$(most 'a to b' 1.09)
expect 0 "$little" "$before" "$little" "$before" "$little" "$before"
expect 1 "$worse" "$before" "$worse" "$before" "$worse" "$before"
# Two pairs are too few; a disturbed run of either side decides nothing.
expect 0 "$worse" "$before" "$worse" "$before"
grep -q UNSURE "$folder/out"
expect 0 "$(most 'a to b' 9)" "$before" "$before" "$before" "$little" "$before"
expect 1 "$worse" "$before" "$worse" "$(most 'a to b' 9)" "$worse" "$before" "$worse" "$before"
# What shall be large is worse when it is smaller.
slow='pages: 0.90 (at least 0.67; 700 pages)' fast='pages: 1.00 (at least 0.67; 600 pages)'
expect 1 "$slow" "$fast" "$slow" "$fast" "$slow" "$fast"
expect 0 "$fast" "$slow" "$fast" "$slow" "$fast" "$slow"
# One worse figure of several is enough, whatever its place.
both="$before\n$(most 'x, y' 1.0)" one="$(most 'x, y' 2.0)\n$before"
expect 1 "$one" "$both" "$one" "$both" "$one" "$both"
# What one side alone has, or what has a unit, is not compared.
new='new: 5 (at most 9)\nfirst page: 15 ms (at most 300)' gone='gone: 1 (at most 9)\nfirst page: 1 ms (at most 300)'
expect 0 "$new" "$gone" "$new" "$gone" "$new" "$gone"
grep -q . "$folder/out" && { echo "figures were compared that cannot be"; exit 1; }
exit 0
