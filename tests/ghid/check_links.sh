#!/usr/bin/env bash
# check_links.sh GHID: every local link of the guide leads to a page, and the help file's project, contents and
# index name every page.
set -euo pipefail
cd "$1"
failed=0
for page in *.html; do
  for target in $(grep -o 'href="[^"#]*' "$page" | cut -d'"' -f2); do
    [ -e "$target" ] || { echo "$page: $target"; failed=1; }
  done
  for list in tevra.hhp tevra.hhc tevra.hhk; do
    grep -q "\"$page\"\|^$page$" "$list" || { echo "$list: $page"; failed=1; }
  done
done
exit $failed
