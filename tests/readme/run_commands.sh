#!/usr/bin/env bash
# run_commands.sh BIN SOURCE: runs the tevra-batch commands that README.md shows, as they stand there, in a
# folder with the files that they speak of.
set -euo pipefail
bin=$1 source=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/DIR"
cd "$folder"
echo 1 > parola.txt
(umask 077 && echo "01;admin;1" > parole.txt)
cat > active.csv <<'CSV'
COD,DENUMIRE,TIP_AM,CONT,COD_LOC,DATA_ACH,DATA_IN_AM,DATA_SF,VAL_CUMP,VAL_CUMP_VAL,COTA_ANUALA
1,Strung,L,2131,H1,2026-01-10,01.02.2026,2031-02-01,12000,2400,0.2
CSV
PATH=$bin:$PATH
mapfile -t commands < <(grep -E '^    tevra-batch ' "$source/README.md")
[ ${#commands[@]} -ge 5 ] || { echo "README.md shows no commands"; exit 1; }
for command in "${commands[@]}"; do
  echo "+ ${command#    }"
  bash -c "$command" < parola.txt
done
[ "$(grep -c . active.csv)" -eq 3 ] || { echo "the list has another number of lines"; exit 1; }
grep -q '^1,1,Strung,L,2131,2026-02-01,2031-02-01,2026-10-31,12000,2400,1800,360,10200,2040$' active.csv
