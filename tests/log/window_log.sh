#!/usr/bin/env bash
# window_log.sh BIN: starts the window program on a directory whose list of companies is damaged, and expects the
# failure in the user's log.
set -euo pipefail
folder=$(mktemp -d)
cleanup() {
  kill "$program" 2>/dev/null || true
  wait "$program" 2>/dev/null || true
  rm -rf "$folder"
}
mkdir -p "$folder/config/KELNAR" "$folder/date"
echo '<xml>' > "$folder/date/Societat.XML"
printf '[General]\nDatabasesPath=%s\n' "$folder/date" > "$folder/config/KELNAR/Setari_IMO.ini"
HOME=$folder XDG_CONFIG_HOME=$folder/config XDG_DATA_HOME=$folder/data XDG_STATE_HOME=$folder/state \
  QT_QPA_PLATFORM=offscreen "$1/tevra" > "$folder/out" 2>&1 &
program=$!
trap cleanup EXIT
log=$folder/state/tevra/tevra.log
for _ in $(seq 300); do
  grep -qs 'Societat.XML' "$log" && break
  sleep 0.1
done
if ! grep -E '^[0-9-]+ [0-9:]+ \[[0-9]+\] tevra -2147467259 Societat.XML' "$log"; then
  cat "$folder/out" "$log"
  exit 1
fi
