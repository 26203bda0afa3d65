#!/usr/bin/env bash
# verify.sh PACKAGING BIN: systemd accepts the units, and the command of the service runs on a company.
set -euo pipefail
packaging=$1 bin=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
fail() {
  echo "$1"
  exit 1
}

mkdir -p "$folder/root/date" "$folder/root/rapoarte" "$folder/root/salvari"
command=$(sed -n '/^ExecStart=/,/[^\\]$/p' "$packaging/tevra-month-end.service" | tr -d '\\\n')
[[ $command == *' --all '* ]] || fail "no command in the service: $command"
[[ $command != *--again* && $command != *--yes* ]] || fail "the service agrees to what a person should agree to"
for path in /usr/bin/tevra-batch /srv/tevra/date /srv/tevra/rapoarte /srv/tevra/salvari /etc/tevra/parole; do
  [[ $command == *$path* ]] || fail "the service does not speak of $path"
done
read -ra words <<< "${command#ExecStart=}"
words=("${words[@]//\/usr\/bin/"$bin"}")
words=("${words[@]//\/srv\/tevra/"$folder/root"}")
words=("${words[@]//\/etc\/tevra\/parole/"$folder/parole"}")
export XDG_STATE_HOME=$folder/state XDG_CACHE_HOME=$folder/cache
"$bin/tevra-batch" --dir "$folder/root/date" create 01 Proba
(umask 077 && echo "01;admin;1" > "$folder/parole")
"${words[@]}"
[ "$(find "$folder/root/rapoarte" -name 'Cheltuieli_01_*.pdf' | wc -l)" -eq 4 ] || fail "no reports"
[ "$(find "$folder/root/salvari" -name '*.mdb' | wc -l)" -eq 1 ] || fail "no backup"

if ! command -v systemd-analyze > /dev/null; then
  echo "systemd-analyze is missing; the units were not verified"
  exit 0
fi
for unit in tevra-month-end.service tevra-month-end.timer; do
  sed -e "s|/usr/bin/tevra-batch|$bin/tevra-batch|" "$packaging/$unit" > "$folder/$unit"
done
# The tool wants the pages of Documentation= and the user only on an installed system.
systemd-analyze verify --man=no "$folder/tevra-month-end.service" "$folder/tevra-month-end.timer" 2> "$folder/said" ||
  fail "$(cat "$folder/said")"
if grep tevra-month-end "$folder/said"; then fail "systemd-analyze has remarks"; fi
systemd-analyze calendar --iterations=1 "$(sed -n 's/^OnCalendar=//p' "$packaging/tevra-month-end.timer")" > "$folder/when" ||
  fail "the timer's moment is none"
