#!/usr/bin/env bash
# The road of a record: made from a workform, shown, written, read by other tools, converted,
# compared, and printed. Uses $QUILLORY.
set -euo pipefail

quillory=${QUILLORY:-quillory}
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
root=${here%/*}
samples=$root/data/samples/catalogue.mrk
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export QUILLORY_HOME=$folder/home
book="Book (not atlas or songbook)"

step() { printf '\n== %s\n' "$*"; }
records() { tr -cd '\035' < "$1" | wc -c; }

# What other tools say of a file.
read_by_yaz() {
    local complaints
    complaints=$(yaz-marcdump -n "$1" 2>&1)
    printf '%-14s %3d records, yaz-marcdump: %s\n' "${1##*/}" "$(records "$1")" "${complaints:-no complaint}"
}
read_by_perl() {
    perl -MMARC::Batch -e '
        my $batch = MARC::Batch->new("USMARC", $ARGV[0]);
        my ($count, $complaints) = (0, 0);
        while (my $record = $batch->next) { $count++; $complaints += $record->warnings; }
        $complaints += $batch->warnings;
        printf "%-14s %3d records, MARC::Record: %s\n", $ARGV[0] =~ s{.*/}{}r, $count,
            $complaints ? "$complaints complaints" : "no complaint";' "$1"
}

readers=() missing=()
if command -v yaz-marcdump > /dev/null; then readers+=(read_by_yaz); else missing+=(yaz); fi
if perl -MMARC::Batch -e 1 2> /dev/null; then readers+=(read_by_perl); else missing+=(libmarc-record-perl); fi

read_elsewhere() {
    local reader
    for reader in "${readers[@]}"; do
        "$reader" "$1"
    done
}

((${#missing[@]} == 0)) ||
    echo "Other tools read the records, too, once their packages are installed: ${missing[*]}"

step "A workform, made our own: every record gets the code of our library"
"$quillory" workforms save "Our book" --from "$book" --set 040a=ZorbyS --set 040c=ZorbyS
"$quillory" workforms "Our book" | head -n 12

step "A few typed fields become a finished record"
"$quillory" new --workform "Our book" --set language=eng --set country=enk \
    --set 020a=9780306406157 --set "090a=VK1523 .W43 2021" --set 100a="Weber, Anna," --set 100e="author." \
    --set 245a="The river below :" --set 245b="a history of the Danube pilots /" \
    --set 245c="Anna Weber ; translated by José Müller." \
    --set 264a="London :" --set 264b="Harbour Press," --set 264c=2021 \
    --set 300a="xii, 312 pages ;" --set 300c="24 cm" \
    --set '650=_0$aRiver pilots$zDanube River Valley$xHistory.' \
    --set 700a="Müller, José," --set 700e="translator." -o "$folder/new.mrc"
"$quillory" show --decode --width 80 "$folder/new.mrc"
read_elsewhere "$folder/new.mrc"

step "Descriptions of several materials become a file of records"
"$quillory" catalog "$here"/*.toml -o "$folder/catalog.mrc"
"$quillory" show --record 4 --width 80 "$folder/catalog.mrc"
read_elsewhere "$folder/catalog.mrc"

step "They are kept in the store"
"$quillory" records add "$folder/new.mrc" "$folder/catalog.mrc"
"$quillory" records list

step "A control field with values that are not codes is put right, and each repair named"
"$quillory" convert "$folder/new.mrc" --to mrk |
    sed 's/^\(=008.*\)eng\\d$/\1ENG\\d/; s/^\(=008.*\)\\000/\1?000/' > "$folder/faulty.mrk"
"$quillory" repair --each "$folder/faulty.mrk" -o "$folder/repaired.mrc"

step "Only sound records leave, with the copies of a list, in the fields of a holdings system"
printf '001\tCall number\tBar code\nzx0006\tMAP WIE\t3001\nzx0006\tMAP WIE c.2\t3002\n' > "$folder/copies.tsv"
"$quillory" convert "$folder/catalog.mrc" --to mrk |
    sed '/^=245  10$aThe river below/d; s/^=245  00$aDe laatste.*/=245  00$aDE VEERMAN/' \
        > "$folder/leaving.mrk"
"$quillory" check "$folder/leaving.mrk" --policy tlc || true
"$quillory" export "$folder/leaving.mrk" --policy tlc --holdings "$folder/copies.tsv" \
    --holdings-type Alexandria -o "$folder/export.mrc" --rejects "$folder/stopped.mrk" || true
"$quillory" show --record 4 --width 80 "$folder/export.mrc" | tail -n 5
read_elsewhere "$folder/export.mrc"

step "Sample records in line form become ISO 2709 in UTF-8"
"$quillory" convert "$samples" -o "$folder/utf8.mrc"
count=$(records "$folder/utf8.mrc")
echo "$(wc -c < "$folder/utf8.mrc") bytes"

step "To MARC-8, and back to UTF-8: byte for byte the same"
"$quillory" convert "$folder/utf8.mrc" --to-charset marc8 -o "$folder/marc8.mrc"
"$quillory" convert "$folder/marc8.mrc" --to-charset utf8 -o "$folder/back.mrc"
cmp "$folder/utf8.mrc" "$folder/back.mrc"

step "To line form and to old MicroLIF, and back"
"$quillory" convert "$folder/utf8.mrc" -o "$folder/records.mrk"
"$quillory" convert "$folder/records.mrk" -o "$folder/from-mrk.mrc"
cmp "$folder/utf8.mrc" "$folder/from-mrk.mrc"
"$quillory" convert "$folder/utf8.mrc" -o "$folder/records.lif" || true
"$quillory" convert "$folder/records.lif" -o "$folder/from-lif.mrc" || true

step "To MARCXML and MARC-in-JSON, and back"
for form in xml jsonl; do
    "$quillory" convert "$folder/marc8.mrc" -o "$folder/records.$form"
    "$quillory" convert "$folder/records.$form" -o "$folder/from-$form.mrc"
    cmp "$folder/utf8.mrc" "$folder/from-$form.mrc"
done
head -n 6 "$folder/records.xml"

step "A damaged file: the first record has a wrong length, the last is cut short, with text before it"
{
    "$quillory" convert "$folder/utf8.mrc" --to marc
    printf 'stray text'
    head -c 1000 "$folder/utf8.mrc"
} > "$folder/damaged.mrc"
printf '00099' | dd of="$folder/damaged.mrc" conv=notrunc status=none
"$quillory" convert "$folder/damaged.mrc" -o "$folder/sound.mrc" --rejects "$folder/rejects" || true
sound=$(records "$folder/sound.mrc")

((${#readers[@]} == 0)) || step "Other tools read what was written"
for file in utf8 marc8 from-mrk from-lif from-xml from-jsonl sound; do
    read_elsewhere "$folder/$file.mrc"
done

step "Summary"
echo "$(records "$folder/catalog.mrc") records made of descriptions, and one of typed fields."
echo "$count records read, taken to MARC-8, line form, MARCXML, JSON and back: all the same."
echo "Of the damaged file $sound records were saved, and $(wc -c < "$folder/rejects") bytes kept as rejects."

step "A catalogue card of the new record, to look at and to print"
pdf=$root/build/card.pdf
[[ -w ${pdf%/*} ]] || pdf=$folder/card.pdf
"$quillory" cards --make main "$folder/new.mrc"
"$quillory" cards --make main --per-sheet 1 "$folder/new.mrc" -o "$pdf"
