#!/usr/bin/env bash
# report_program.sh BIN: the command `report` starts the program that writes reports, wherever both are installed; the
# other commands load no toolkit.
set -euo pipefail
bin=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
fail() {
  echo "$1"
  exit 1
}
if ldd "$bin/tevra-batch" | grep -i libqt; then fail "tevra-batch loads the toolkit"; fi

mkdir -p "$folder/bin" "$folder/share/tevra" "$folder/date"
cp "$bin/tevra-batch" "$folder/bin/"
cp "$bin/Kelnar.mdb" "$folder/share/tevra/"
export XDG_STATE_HOME=$folder/state
"$folder/bin/tevra-batch" --dir "$folder/date" create 01 Proba
# The password is read by the program that writes the report.
report() { echo 1 | "$folder/bin/tevra-batch" --dir "$folder/date" --user admin report charges --pdf "$folder/a.pdf"; }

code=0
report 2>"$folder/err" || code=$?
[ $code -eq 1 ] && grep -q "bin/tevra-batch-report nu poate fi pornit !" "$folder/err" ||
  fail "exit code $code: $(cat "$folder/err")"

cp "$bin/tevra-batch-report" "$folder/bin/"
report
pdftotext "$folder/a.pdf" - | grep -q "Cheltuieli cu amortizarea" || fail "no report"

code=0
"$folder/bin/tevra-batch" --user admin report charges --paper B4 --pdf "$folder/a.pdf" 2>"$folder/err" || code=$?
[ $code -eq 2 ] || fail "exit code $code: $(cat "$folder/err")"
