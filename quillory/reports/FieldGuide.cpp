#include <quillory/reports/FieldGuide.h>

#include <algorithm>
#include <array>

namespace quillory {
namespace {

struct Entry {
    unsigned tag;
    std::string_view text;
};

// By tag.
constexpr auto kGuide = std::to_array<Entry>({
    {1, "The number that the system gave the record. Leave it to the system."},
    {3, "The code of the library or agency whose number stands in 001."},
    {5, "The date and time at which the record was last changed. The system writes it."},
    {6,
     "Codes for what the item is besides its main form, such as the disc in a book. Each "
     "further form takes a field."},
    {7, "Codes for the physical form. Carriers of different kinds take a field each."},
    {8,
     "Codes for dates, place, language and the nature of the material. Positions 18 to 34 "
     "depend on the type of record."},
    {10,
     "The control number of the Library of Congress. Copy it from LC cataloging or from "
     "the item, and never make one up."},
    {13, "Number, country and kind of a patent document."},
    {15,
     "The number of the item in a national bibliography. Name the bibliography by its "
     "code in subfield $2."},
    {18, "The code of the fee for copying an article, as printed in the item."},
    {20,
     "The ISBN without hyphens in $a, a qualifier such as \"paperback\" in $q, and a "
     "canceled or wrong ISBN in $z. Each ISBN takes a field."},
    {25,
     "The number that the Library of Congress gives to items that its overseas offices "
     "acquired."},
    {26,
     "Groups of characters taken from given lines, by which copies of an early printed "
     "book can be compared."},
    {27, "The Standard Technical Report Number (STRN). Other report numbers belong in 088."},
    {30, "The CODEN, a short code for the title of a serial in science."},
    {31,
     "The opening notes of a piece of music in coded form, so that a melody can be "
     "searched."},
    {32, "The number under which the post office registered a serial."},
    {35,
     "Numbers of this record in other systems. Put the code of the system in parentheses "
     "first, as in (OCoLC)814782."},
    {36, "The number that the producer of a data file gave to the study."},
    {38, "The agency that licenses the data of the record itself."},
    {40,
     "Who made the record ($a), in which language ($b), who entered it ($c), who changed "
     "it ($d) and by which rules ($e). RDA records have $b eng $e rda."},
    {42,
     "A code for the program that vouches for the record, such as pcc. Only its members "
     "may give it."},
    {43, "Codes for the areas that the item is about, seven characters each, as in n-us---."},
    {44, "Further countries of publication. The first one also stands in 008/15-17."},
    {51,
     "Call numbers of copies, issues or offprints that the Library of Congress shelves "
     "apart."},
    {61, "Call numbers of copies that the National Library of Medicine shelves apart."},
    {66, "The character sets of a MARC-8 record beside Latin. Records in Unicode have none."},
    {71, "Call numbers of copies that the National Agricultural Library shelves apart."},
    {74,
     "The item number under which the U.S. Government Publishing Office distributes a "
     "document."},
    {84,
     "A class number of any scheme that has no field of its own, such as RVK. The code of "
     "the scheme goes into $2."},
    {85,
     "How a Dewey number was built, part by part. It follows the 082 or 083 that it "
     "explains, linked by $8."},
    {88,
     "The number printed on a report. An STRN belongs in 027, a contract or grant number "
     "in 536."},
    {250,
     "The edition as the item states it, in its own words and abbreviations. Without a "
     "statement leave the field out."},
    {251,
     "A term for the version of a work in progress, such as a preprint or an accepted "
     "manuscript."},
    {254, "What the item says about the presentation of music, such as \"Full score\"."},
    {255,
     "Scale, projection and coordinates of a map as a reader sees them. Field 034 has the "
     "same in codes."},
    {256, "Characteristics of a computer file in AACR2 records. RDA records use 300 and 347."},
    {257, "The country in which the main offices of a film's producer are."},
    {258, "Country and value of a postage stamp."},
    {263,
     "The month in which a book is to appear, as yyyymm. Take it out once the item is in "
     "hand."},
    {264,
     "Who published, produced, distributed or made the item, where and when. The second "
     "indicator tells which, and each statement takes a field. A copyright date stands "
     "alone in a field with 4."},
    {300,
     "Extent in $a, illustrations, sound or color in $b, size in $c, and what comes with "
     "the item in $e."},
    {306, "Playing time as six digits, hhmmss. Several works take several subfields $a."},
    {310, "How often a serial appears now. A frequency of the past moves to 321."},
    {321, "How often a serial appeared earlier, with the dates in $b."},
    {334,
     "Whether the resource came out in one unit, in several, or as a serial or updating "
     "one."},
    {335,
     "Whether the resource was planned to be finished at once, or to grow by parts or "
     "over time."},
    {336,
     "The form in which the content is expressed, such as text or still image. Take term "
     "and code from the list, with rdacontent in $2. A picture book takes two fields."},
    {337,
     "The device needed to use the item. A printed book is unmediated, a disc is audio, "
     "video or computer. The source is rdamedia."},
    {338,
     "The kind of carrier, such as volume, audio disc or online resource. The source is "
     "rdacarrier."},
    {340,
     "Materials, layout, generation and other physical qualities, each in a subfield of "
     "its own."},
    {343, "Units and resolution of the plane coordinates of digital maps."},
    {344, "How sound is recorded and played, such as digital, optical or stereo."},
    {345, "How a film is projected, with its aspect ratio and speed."},
    {346, "Video format and broadcast standard, such as VHS or NTSC."},
    {347, "Type and format of a digital file, its size, and the region of a disc."},
    {348, "The format of printed music, such as study score or part, and the kind of notation."},
    {351, "How a collection is divided into series and arranged."},
    {352, "How a digital map or image is built, such as vector or raster."},
    {353, "Terms or codes for what supplements the content, such as an index or a bibliography."},
    {357, "Who may receive the item, where its originator limits that."},
    {365, "The price in the book trade. Prices of several currencies take a field each."},
    {366, "Whether the book trade can supply the item, and from when."},
    {370, "Places that a work or expression comes from or belongs to."},
    {380,
     "What kind of work it is, such as a play or a motion picture. It tells apart works "
     "of the same title."},
    {381, "Any other mark that tells a work or version from others of the same title."},
    {385, "For whom the item is meant, by age, level or group, from a list of terms."},
    {386, "Groups to which authors or contributors belong, such as a nation or profession."},
    {387, "Values that describe the version of a work that is taken as its typical one."},
    {500, "A note that no other note field is made for. Look for the special field first."},
    {501,
     "Other works that were issued in the same volume. Copies that were only bound "
     "together name the library in $5."},
    {502,
     "Degree, institution and year of a thesis, either as one sentence in $a or apart in "
     "$b, $c and $d."},
    {504,
     "Says that the item has a bibliography or references, and on which pages. An index "
     "beside them is mentioned here, too."},
    {507, "The scale of drawings and other visual material that is no map."},
    {508, "Those who made a film or recording and don't appear in it. Performers go into 511."},
    {513, "The kind of a report, and the time that it covers."},
    {514, "How exact and complete a set of data is, mostly of digital maps."},
    {515, "Irregular numbering of a serial, such as double issues or years without one."},
    {518,
     "When and where something was recorded, filmed or found. Field 033 has the same in "
     "codes."},
    {525, "Supplements of a serial that have no record of their own."},
    {530,
     "Other physical forms in which the same content can be had. Link their records by "
     "776."},
    {533, "Facts of a reproduction, where the record describes the original."},
    {534, "Facts of the original, where the record describes a reproduction."},
    {536, "Who paid for the work, with contract and grant numbers."},
    {538, "What is needed to play or run the item, such as a system or a disc drive."},
    {540, "What may be done with the item once it is in hand. Who may see it belongs in 506."},
    {546, "Languages, and in $b scripts, in words. Field 041 has the languages in codes."},
    {547, "Title changes of a serial that are too tangled for a plain 247 note."},
    {550, "Present and former issuing bodies of a serial."},
    {552, "What the features and values in a set of spatial data mean."},
    {562, "What tells one copy or version from others, such as marks on it."},
    {563, "The binding of the library's own copy, with the library in $5."},
    {580, "Relationships to other titles that the linking fields can't tell by their labels."},
    {584, "How fast a collection grows, and how often it is used."},
    {585, "Exhibitions in which the item was shown."},
    {656,
     "Occupations that the records of a collection reflect. The list of terms is named in "
     "$2."},
    {657,
     "Activities or functions from which the records of a collection arose. The list of "
     "terms is named in $2."},
    {658, "Aims of a curriculum that the item serves, with their code and source."},
    {662, "A place as subject, given from the country down to the city."},
    {751, "A place that is related to the item, such as where a university granted a degree."},
    {752,
     "The place of publication, given from the country down to the city, so that early "
     "printing can be searched by place."},
    {753, "Machine, language or system of a computer file."},
    {754, "Names of an animal, plant or other organism, rank by rank."},
    {758, "A link to an entity behind the record, such as the work."},
    {841, "Codes of a holdings record that is embedded here."},
    {842, "The physical form of the library's own copy in words."},
    {843, "Facts of a reproduction that is the library's own copy."},
    {844, "The name of the unit that the holdings are of, such as a supplement."},
    {845, "What may be done with the library's own copy."},
    {850, "The library that has the item. Details of a copy go into 852."},
    {855, "The captions and pattern by which the indexes of a serial are numbered."},
    {876, "Barcode, cost, status and loan rules of one piece."},
    {877, "Barcode, cost, status and loan rules of a piece of supplementary material."},
    {878, "Barcode, cost, status and loan rules of a piece of an index."},
    {881, "Statements written exactly as they stand on the item, without normalizing."},
    {882, "The record that takes the place of this one, in a record that is deleted."},
    {884, "By what conversion the record came out of another format, when, and by whom."},
    {885, "What a program found in matching this record with others."},
    {887, "Data of a format that isn't MARC, with the name of the format in $2."},
});

static_assert(std::ranges::is_sorted(kGuide, {}, &Entry::tag));

}  // namespace

std::string_view FieldGuide(unsigned tag) {
    const auto* entry = std::ranges::lower_bound(kGuide, tag, {}, &Entry::tag);
    return entry != kGuide.end() && entry->tag == tag ? entry->text : std::string_view();
}

}  // namespace quillory
