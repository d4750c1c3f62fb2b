#!/usr/bin/env bash
# Compares quillory with yaz-marcdump and MARC::Lint, and its repair with its convert, side by side on
# one machine.
#
# usage: peers.sh [--memory] [FILE...]
#
# Takes the sound records of the files (data/samples if none is given), brings them to MARC-8,
# repeats them to 200 MB, and runs both programs on that in turn; MARC::Lint, which is slow, on 20 MB
# and twice. --memory also measures the memory for a file of 2 GB.
# Environment: QUILLORY the program, ROUNDS (5) runs of each, of which the best counts, MEGABYTES
# (200) of records. The ratio is how many times faster quillory is, the aim how much it is to be.
set -euo pipefail

root=$(dirname "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")")
quillory=${QUILLORY:-$root/build/release/bin/quillory}
yaz=$(command -v yaz-marcdump || true)
lint=$(perl -MMARC::Lint -e 'print "perl"' 2> /dev/null || true)
rounds=${ROUNDS:-5}
megabytes=${MEGABYTES:-200}

die() {
    printf 'peers: %s\n' "$*" >&2
    exit 2
}

# measure OUTPUT COMMAND...: prints seconds and peak memory in KiB of a run. The memory is that which
# the system last told of before the end; exit status 1, for findings, is well.
measure() {
    python3 - "$@" << 'END'
import re, subprocess, sys, time

with open(sys.argv[1], "wb") as output:
    began = time.perf_counter()
    run = subprocess.Popen(sys.argv[2:], stdout=output, stderr=subprocess.DEVNULL)
    peak = 0
    while run.poll() is None:
        try:
            found = re.search(r"VmHWM:\s+(\d+)", open(f"/proc/{run.pid}/status").read())
            peak = int(found[1]) if found else peak
            run.wait(0.002)
        except subprocess.TimeoutExpired:
            pass
    seconds = time.perf_counter() - began
if run.returncode not in (0, 1):
    sys.exit(f"peers: {sys.argv[2]} ended with {run.returncode}")
print(f"{seconds:.4f} {peak}")
END
}

count_records() {
    tr -dc '\035' < "$1" | wc -c
}

# The same in MARCXML.
count_xml() {
    grep -c '</record>' "$1"
}

# What a check says at its end.
count_checked() {
    sed -nE 's/^([0-9]+) records? checked.*/\1/p' "$1"
}

# repeat MEGABYTES OUTPUT: the sample over and over until there is enough.
repeat() {
    local size=$(($1 * 1000000)) output=$2 once left
    once=$(stat -c %s "$work/sample.mrc")
    left=$(((size + once - 1) / once))
    for (( ; left > 0; left--)); do cat "$work/sample.mrc"; done > "$output"
}

least() {
    sort -g | head -n 1
}

most() {
    sort -g | tail -n 1
}

# quotient A B DIGITS
quotient() {
    awk -v a="$1" -v b="$2" -v digits="$3" 'BEGIN { printf "%.*f", digits, a / b }'
}

# row JOB AIM FILE [PEER COUNT COUNT_IN]: times both, whose commands stand in the arrays ours and
# theirs. PEER is the other program's name, COUNT finds in an output how many records came through,
# COUNT_IN how many are in the file.
row() {
    local job=$1 aim=$2 file=$3 name=${4-yaz-marcdump} count=${5-count_records} round records size
    local count_in=${6-count_records}
    local our_records their_records=- peer=${theirs[0]}
    measure "$work/ours" "${ours[@]}" > /dev/null
    our_records=$("$count" "$work/ours")
    if [[ -n $peer ]]; then
        measure "$work/theirs" "${theirs[@]}" > /dev/null
        their_records=$("$count" "$work/theirs")
    fi
    : > "$work/ours.runs"
    : > "$work/theirs.runs"
    for ((round = 0; round < rounds; round++)); do
        measure /dev/null "${ours[@]}" >> "$work/ours.runs"
        [[ -z $peer ]] || measure /dev/null "${theirs[@]}" >> "$work/theirs.runs"
    done
    records=$("$count_in" "$file")
    size=$(stat -c %s "$file")
    local our_time their_time peak ratio=-
    our_time=$(cut -d' ' -f1 "$work/ours.runs" | least)
    their_time=$(cut -d' ' -f1 "$work/theirs.runs" | least)
    peak=$(cut -d' ' -f2 "$work/ours.runs" | most)
    [[ -z $their_time ]] || ratio=$(quotient "$their_time" "$our_time" 2)
    print_side "$job" quillory "$our_time" "$records" "$size" "$ratio" "$aim" "$peak"
    [[ -z $their_time ]] ||
        print_side "" "$name" "$their_time" "$records" "$size" "" "" ""
    ((our_records == records)) || echo "    quillory did $our_records of $records records"
    [[ $their_records == - ]] || ((their_records == records)) ||
        echo "    $name did $their_records of $records records"
}

print_side() {
    local job=$1 program=$2 seconds=$3 records=$4 size=$5 ratio=$6 aim=$7 peak=$8
    printf '%-17s %-13s %12.0f %8.1f %7s %6s %s\n' "$job" "$program" \
        "$(quotient "$records" "$seconds" 0)" "$(quotient "$((size / 1000000))" "$seconds" 1)" \
        "$ratio" "$aim" "${peak:+$(quotient "$peak" 1024 1) MiB}"
}

memory=0
files=()
for argument in "$@"; do
    case $argument in
        --memory) memory=1 ;;
        -*) die "unknown option $argument" ;;
        *) files+=("$argument") ;;
    esac
done
((${#files[@]})) || mapfile -t files < <(compgen -G "$root/data/samples/*.mr[ck]" || true)
((${#files[@]})) || die "no files of records: give some as arguments"
[[ -x $quillory ]] || die "$quillory: there is no such program; build it first"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
[[ -n $yaz && -n $lint ]] || echo "yaz-marcdump or MARC::Lint is not installed: no figures of it"

# convert CHARSET OUTPUT FILE...
convert() {
    "$quillory" convert --quiet --to-charset "$1" --to marc -o "$2" "${@:3}" 2> /dev/null ||
        (($? == 1)) || die "no records in ${*:3}"
}

# A sample of a few megabytes at least, so that not every record costs a call of cat.
convert marc8 "$work/sample.mrc" "${files[@]}"
[[ -s $work/sample.mrc ]] || die "no records in ${files[*]}"
while (($(stat -c %s "$work/sample.mrc") < 4000000)); do
    cat "$work/sample.mrc" "$work/sample.mrc" > "$work/twice.mrc"
    mv "$work/twice.mrc" "$work/sample.mrc"
done
marc8=$work/marc8.mrc
utf8=$work/utf8.mrc
repeat "$megabytes" "$marc8"
convert utf8 "$utf8" "$marc8"

printf '%-17s %-13s %12s %8s %7s %6s %s\n' job program records/s MB/s ratio aim 'peak memory'
ours=("$quillory" convert --quiet --to marc "$marc8")
theirs=("$yaz" -o marc "$marc8")
row 'marc to marc' 12 "$marc8"
ours=("$quillory" convert --quiet --to marc --from-charset marc8 --to-charset utf8 "$marc8")
theirs=("$yaz" -f MARC-8 -t UTF-8 -o marc -l "9=97" "$marc8")
row 'MARC-8 to UTF-8' 18 "$marc8"
ours=("$quillory" convert --quiet --to marc --from-charset utf8 --to-charset marc8 "$utf8")
theirs=("$yaz" -f UTF-8 -t MARC-8 -o marc -l "9=32" "$utf8")
row 'UTF-8 to MARC-8' 20 "$utf8"
# XML takes three times the room, and any reader of it its time.
repeat "$((megabytes / 5))" "$work/part.mrc"
xml=$work/part.xml
"$quillory" convert --quiet --to marcxml -o "$xml" "$work/part.mrc"
ours=("$quillory" convert --quiet --from-charset marc8 --to marcxml "$work/part.mrc")
theirs=("$yaz" -f MARC-8 -t UTF-8 -o marcxml "$work/part.mrc")
row 'marc to MARCXML' 10 "$work/part.mrc" yaz-marcdump count_xml
ours=("$quillory" convert --quiet --to marc "$xml")
theirs=("$yaz" -i marcxml -o marc "$xml")
row 'MARCXML to marc' 10 "$xml" yaz-marcdump count_records count_xml
# No other tool repairs coded fields, so this is compared with carrying the same records unchanged.
ours=("$quillory" repair --quiet --to marc "$marc8")
theirs=("$quillory" convert --quiet --to marc "$marc8")
row 'repair' - "$marc8" convert
repeat 20 "$work/checked.mrc"
rounds=$((rounds < 2 ? rounds : 2))
ours=("$quillory" check --policy custom "$work/checked.mrc")
theirs=("$lint" "$root/benchmarks/lint.pl" "$work/checked.mrc")
row 'check' 100 "$work/checked.mrc" MARC::Lint count_checked

if ((memory)); then
    repeat 2000 "$work/large.mrc"
    printf '\n%-17s %-13s %12s %s\n' 'marc to marc' quillory 'peak memory' '(aim: under 32 MiB)'
    for file in "$marc8" "$work/large.mrc"; do
        read -r _ peak <<< "$(measure /dev/null "$quillory" convert --quiet --to marc "$file")"
        printf '%-17s %-13s %12s\n' "$(($(stat -c %s "$file") / 1000000)) MB" '' \
            "$(quotient "$peak" 1024 1) MiB"
    done
fi
