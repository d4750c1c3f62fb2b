#!/usr/bin/env bash
# Checks one large file of ISO 2709 in parts, on all processors, and puts the findings together, a line of
# JSON for each record, with the numbers and offsets that the records have in the whole file.
#
# usage: check.sh FILE OUTPUT.jsonl [OPTION of quillory check...]
#
# BLOCK=64M makes larger parts than 32M. The status is the worst of all parts. What two records
# share, such as their number, can't be looked for in parts: those rules are left out.
set -euo pipefail

here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source=/dev/null
source "$here/parts.sh"

# shellcheck disable=SC2154,SC2317 # parts.sh sets the folder, and calls this
check_part() {
    local status=0
    cat > "$parts/$1.mrc"
    "${QUILLORY:-quillory}" check --quiet "${@:2}" --skip control-number-repeated --skip number-repeated \
        --format jsonl -o "$parts/$1.jsonl" "$parts/$1.mrc" || status=$?
    echo "$status" > "$parts/$1.status"
    stat -c %s "$parts/$1.mrc" > "$parts/$1.size"
    rm "$parts/$1.mrc"
    ((status < 2))
}

(($# >= 2)) || die "usage: check.sh FILE OUTPUT.jsonl [OPTION...]"
file=$1 output=$2
make_folder_beside "$output"
run_on_parts "$file" check_part "${@:3}"
results_named .jsonl | python3 "$here/together.py" "$file" > "$parts/whole"
mv "$parts/whole" "$output"
exit "$(worst_status)"
