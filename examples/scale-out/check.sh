#!/usr/bin/env bash
# Checks one large file of ISO 2709 in parts, on all processors, and puts the results together, with the numbers
# and offsets that the records have in the whole file.
#
# usage: check.sh FILE OUTPUT [OPTION of quillory check...]
#
# The ending of OUTPUT says what it becomes: .jsonl a line of JSON for each record, .html a page, .json or .txt
# sums. BLOCK=64M makes larger parts than 32M; each is the work of one thread.
set -euo pipefail

here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
# shellcheck source=/dev/null
source "$here/parts.sh"

# shellcheck disable=SC2154,SC2317 # parts.sh sets the folder, and calls this
check_part() {
    local status=0
    cat > "$parts/$1.mrc"
    "${QUILLORY:-quillory}" check --quiet --jobs 1 "${@:2}" --format jsonl -o "$parts/$1.jsonl" \
        "$parts/$1.mrc" || status=$?
    echo "$status" > "$parts/$1.status"
    stat -c %s "$parts/$1.mrc" > "$parts/$1.size"
    rm "$parts/$1.mrc"
    ((status < 2))
}

# Those of the options that a report has, too.
options_of_report() {
    while (($# > 0)); do
        case $1 in
            --rows | --fail-on) printf '%s\n' "$1" "${2-}" ;;
            --rows=* | --fail-on=*) printf '%s\n' "$1" ;;
        esac
        shift
    done
}

(($# >= 2)) || die "usage: check.sh FILE OUTPUT [OPTION...]"
file=$1 output=$2
make_folder_beside "$output"
run_on_parts "$file" check_part "${@:3}"
results_named .jsonl | python3 "$here/together.py" "$file" > "$parts/whole.jsonl"
mapfile -t options < <(options_of_report "${@:3}")
status=0
# What the parts have said of damage is not said again.
"${QUILLORY:-quillory}" report "${options[@]}" "$parts/whole.jsonl" -o "$output" 2> "$parts/messages" || status=$?
((status < 2)) || die "$(cat "$parts/messages")"
exit "$status"
