#include <zorby/charset/detail/KeyTableRows.h>

namespace zorby {
namespace {

constexpr unsigned kFirstLongNameID = 10000 + 0x80;

constexpr std::array<const char*, 139> kLongNames{{
    // clang-format off
    "Polish L",  // 10128
    "Scandinavian O",  // 10129
    "D with crossbar",  // 10130
    "Icelandic thorn-upper",  // 10131
    "AE digraph",  // 10132
    "OE digraph",  // 10133
    "Soft sign (prime)",  // 10134
    "Dot in middle of line",  // 10135
    "Musical flat",  // 10136
    "Subscript patent mark",  // 10137
    "Plus or minus",  // 10138
    "O-hook",  // 10139
    "U-hook",  // 10140
    "Alif",  // 10141
    "Ayn",  // 10142
    "Polish l",  // 10143
    "Scandinavian o",  // 10144
    "d with crossbar",  // 10145
    "Icelandic thorn-lower",  // 10146
    "ae digraph",  // 10147
    "oe digraph",  // 10148
    "Hard sign",  // 10149
    "Turkish i",  // 10150
    "British pound",  // 10151
    "Eth-lower",  // 10152
    "o-hook",  // 10153
    "u-hook",  // 10154
    "Degree sign",  // 10155
    "Script l",  // 10156
    "Phono copyright symbol",  // 10157
    "Copyright symbol",  // 10158
    "Musical sharp",  // 10159
    "Question mark-inverted",  // 10160
    "Exclamation point-inverted",  // 10161
    "Pseudo question",  // 10162
    "Grave (non-spacing)",  // 10163
    "Acute",  // 10164
    "Circumflex (non-spacing)",  // 10165
    "Tilde (non-spacing)",  // 10166
    "Macron",  // 10167
    "Breve",  // 10168
    "Dot above character",  // 10169
    "Umlaut/dieresis",  // 10170
    "Hacek",  // 10171
    "Circle above (Angstrom)",  // 10172
    "Ligature, first half",  // 10173
    "Ligature, second half",  // 10174
    "High comma, off center",  // 10175
    "Acute-double",  // 10176
    "Candrabindu",  // 10177
    "Cedilla",  // 10178
    "Hook-right",  // 10179
    "Dot below character",  // 10180
    "Dot below character-double",  // 10181
    "Circle below character",  // 10182
    "Underscore-double",  // 10183
    "Underscore (non-spacing)",  // 10184
    "Hook-left/tail",  // 10185
    "Cedilla-right",  // 10186
    "Upadhmaniya",  // 10187
    "Tilde-double, 1st half",  // 10188
    "Tilde-double, 2nd half",  // 10189
    "High comma, centered",  // 10190
    "Greek alpha lowercase",  // 10191
    "Greek beta lowercase",  // 10192
    "Greek gamma lowercase",  // 10193
    "Subscript (",  // 10194
    "Subscript )",  // 10195
    "Subscript +",  // 10196
    "Subscript -",  // 10197
    "Subscript 0",  // 10198
    "Subscript 1",  // 10199
    "Subscript 2",  // 10200
    "Subscript 3",  // 10201
    "Subscript 4",  // 10202
    "Subscript 5",  // 10203
    "Subscript 6",  // 10204
    "Subscript 7",  // 10205
    "Subscript 8",  // 10206
    "Subscript 9",  // 10207
    "Superscript (",  // 10208
    "Superscript )",  // 10209
    "Superscript +",  // 10210
    "Superscript -",  // 10211
    "Superscript 0",  // 10212
    "Superscript 1",  // 10213
    "Superscript 2",  // 10214
    "Superscript 3",  // 10215
    "Superscript 4",  // 10216
    "Superscript 5",  // 10217
    "Superscript 6",  // 10218
    "Superscript 7",  // 10219
    "Superscript 8",  // 10220
    "Superscript 9",  // 10221
    "a with acute",  // 10222
    "A with acute",  // 10223
    "a with circumflex",  // 10224
    "A with circumflex",  // 10225
    "a with grave",  // 10226
    "A with grave",  // 10227
    "c with cedilla",  // 10228
    "C with cedilla",  // 10229
    "e with acute",  // 10230
    "E with acute",  // 10231
    "e with grave",  // 10232
    "E with grave",  // 10233
    "e with umlaut/dieresis",  // 10234
    "E with umlaut/dieresis",  // 10235
    "i with acute",  // 10236
    "I with acute",  // 10237
    "i with circumflex",  // 10238
    "I with circumflex",  // 10239
    "i with umlaut/dieresis",  // 10240
    "I with umlaut/dieresis",  // 10241
    "n with tilde",  // 10242
    "N with tilde",  // 10243
    "o with acute",  // 10244
    "O with acute",  // 10245
    "o with circumflex",  // 10246
    "O with circumflex",  // 10247
    "o with umlaut/dieresis",  // 10248
    "O with umlaut/dieresis",  // 10249
    "u with acute",  // 10250
    "U with acute",  // 10251
    "u with grave",  // 10252
    "U with grave",  // 10253
    "u with umlaut/dieresis",  // 10254
    "U with umlaut/dieresis",  // 10255
    "e with circumflex",  // 10256
    "E with circumflex",  // 10257
    "u with circumflex",  // 10258
    "U with circumflex",  // 10259
    "a with umlaut/dieresis",  // 10260
    "A with umlaut/dieresis",  // 10261
    "i with grave",  // 10262
    "I with grave",  // 10263
    "o with grave",  // 10264
    "O with grave",  // 10265
    "A with circle above",  // 10266
    // clang-format on
}};

}  // namespace

const KeyRecord& KeyRecordOf(unsigned char code) {
    return kKeyTable[code];
}

const char* CharacterLongName(unsigned stringID) {
    const unsigned index = stringID - kFirstLongNameID;
    return index < kLongNames.size() ? kLongNames[index] : nullptr;
}

}  // namespace zorby
