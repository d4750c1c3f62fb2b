#!/usr/bin/env bash
# The road of a record: read, shown, converted, read back and compared. Uses $QUILLORY.
set -euo pipefail

quillory=${QUILLORY:-quillory}
samples=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../data/samples/catalogue.mrk
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

step() { printf '\n== %s\n' "$*"; }
records() { tr -cd '\035' < "$1" | wc -c; }

step "Sample records in line form become ISO 2709 in UTF-8"
"$quillory" convert "$samples" -o "$folder/utf8.mrc"
count=$(records "$folder/utf8.mrc")
ls -l "$folder/utf8.mrc" | awk '{print $5 " bytes"}'

step "... and are shown (the second record)"
"$quillory" show --record 2 --width 80 "$folder/utf8.mrc"

step "To MARC-8: diacritics before their letters, escapes for other scripts"
"$quillory" convert "$folder/utf8.mrc" --to-charset marc8 -o "$folder/marc8.mrc"

step "Back to UTF-8, and compared"
"$quillory" convert "$folder/marc8.mrc" --to-charset utf8 -o "$folder/back.mrc"
cmp "$folder/utf8.mrc" "$folder/back.mrc"
echo "byte for byte the same"

step "To line form and to old MicroLIF, and back"
"$quillory" convert "$folder/utf8.mrc" -o "$folder/records.mrk"
"$quillory" convert "$folder/records.mrk" -o "$folder/from-mrk.mrc"
cmp "$folder/utf8.mrc" "$folder/from-mrk.mrc"
"$quillory" convert "$folder/utf8.mrc" -o "$folder/records.lif" || true
"$quillory" convert "$folder/records.lif" -o "$folder/from-lif.mrc" || true

step "A damaged file: the first record has a wrong length, the last is cut short, with text before it"
{
    "$quillory" convert "$folder/utf8.mrc" --to marc
    printf 'stray text'
    head -c 1000 "$folder/utf8.mrc"
} > "$folder/damaged.mrc"
printf '00099' | dd of="$folder/damaged.mrc" conv=notrunc status=none
"$quillory" convert "$folder/damaged.mrc" -o "$folder/sound.mrc" --rejects "$folder/rejects" || true
sound=$(records "$folder/sound.mrc")

step "Other tools read what was written"
if command -v yaz-marcdump > /dev/null; then
    for file in utf8 marc8 from-mrk from-lif sound; do
        complaints=$(yaz-marcdump -n "$folder/$file.mrc" 2>&1)
        printf '%-12s %3d records, yaz-marcdump: %s\n' "$file.mrc" "$(records "$folder/$file.mrc")" \
            "${complaints:-no complaint}"
    done
else
    echo "yaz-marcdump is not here to read it"
fi

step "Summary"
echo "$count records read, shown, taken to MARC-8 and line form and back: all the same."
echo "Of the damaged file $sound records were saved, and $(wc -c < "$folder/rejects") bytes kept as rejects."
