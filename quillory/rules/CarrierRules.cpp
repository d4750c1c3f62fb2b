#include <quillory/rules/MediaTypes.h>
#include <quillory/rules/RuleFamilies.h>
#include <quillory/rules/Words.h>
#include <quillory/text/Trimmed.h>

#include <algorithm>
#include <array>
#include <vector>

namespace quillory {
namespace {

// The content types that go with a type of record (Leader/06). Types with which any goes are not
// listed.
struct ContentOfType {
    std::string_view types;
    std::string_view name;
    std::string_view codes;  // the usual one first
};

constexpr std::array kContentOfTypes = std::to_array<ContentOfType>({
    {"at", "language material", "txt tct sti tci xxx zzz"},
    {"cd", "notated music", "ntm tcm ntv tcn xxx zzz"},
    {"ef", "cartographic material", "cri crm crt crn crf crd xxx zzz"},
    {"g", "projected medium", "tdi tdm crm sti tci txt xxx zzz"},
    {"i", "nonmusical sound recording", "spw snd xxx zzz"},
    {"j", "musical sound recording", "prm snd xxx zzz"},
    {"k", "two-dimensional nonprojectable graphic", "sti tci txt tct xxx zzz"},
});

// Words of an extent in English, and the carriers that they name.
struct CarrierWords {
    std::string_view words;
    std::string_view codes;
};

constexpr std::array kCarrierWords = std::to_array<CarrierWords>({
    {"online resource", "cr"},
    {"audio disc", "sd"},
    {"sound disc", "sd"},
    {"videodisc", "vd"},
    {"videocassette", "vf"},
    {"audiocassette", "ss"},
    {"microfiche", "he hf"},
    {"microfilm reel", "hd"},
});

constexpr std::string_view kUnspecified = "zu";  // a carrier of any media

struct MediaCode {
    std::string_view code;
    const CheckedField* field;

    Place GetPlace() const { return field->GetPlace().Subfield('b'); }
};

using CodeList = std::vector<MediaCode>;

bool Has(const CodeList& codes, std::string_view code) {
    return std::ranges::find(codes, code, &MediaCode::code) != codes.end();
}

// The codes of a field of the RDA lists that the lists have.
CodeList CodesOf(const RecordInHand& record, unsigned tag) {
    CodeList codes;
    record.ForEachOf({tag}, [&](const CheckedField& field) {
        for (const auto& [subfield, text] : record.SubfieldsOf(field)) {
            if (subfield == 'b' && !MediaTermOf(tag, Trimmed(text)).empty()) {
                codes.push_back({Trimmed(text), &field});
            }
        }
    });
    return codes;
}

bool IsAmong(std::string_view code, std::string_view codes) {
    return codes.find(code) != codes.npos;
}

// The media type of a carrier: its first letter, but for reels and rolls of film.
char MediaOf(std::string_view carrier) {
    return carrier.front() == 'm' ? 'g' : carrier.front();
}

void CheckContent(const RecordInHand& record, RemarkSink& remarks) {
    const CodeList codes = CodesOf(record, 336);
    if (codes.empty()) return;
    const char type = record.LeaderByte(6);
    const auto row = std::ranges::find_if(kContentOfTypes, [type](const ContentOfType& content) {
        return content.types.find(type) != content.types.npos;
    });
    if (type == '\0' || row == kContentOfTypes.end()) return;
    const auto fits = [row](std::string_view code) { return IsAmong(code, row->codes); };
    if (std::ranges::any_of(codes, fits, &MediaCode::code)) return;
    remarks.Add(RuleId::ContentAgainstType, codes.front().GetPlace(),
                '"' + std::string(MediaTermOf(336, codes.front().code)) + '"',
                std::string(1, type) + " (" + std::string(row->name) + "), which goes with \"" +
                    std::string(MediaTermOf(336, row->codes.substr(0, 3))) + '"');
}

void CheckMedia(const RecordInHand& record, const CodeList& carriers, RemarkSink& remarks) {
    const CodeList media = CodesOf(record, 337);
    if (media.empty()) return;
    for (const MediaCode& carrier : carriers) {
        if (carrier.code == kUnspecified) continue;
        const char letter = MediaOf(carrier.code);
        const std::string_view own(&letter, 1);
        if (Has(media, own)) continue;
        remarks.Add(RuleId::CarrierAgainstMedia, carrier.GetPlace(),
                    '"' + std::string(MediaTermOf(338, carrier.code)) + '"',
                    '"' + std::string(MediaTermOf(337, own)) + '"');
    }
}

bool NamesCarrier(std::string_view extent, std::string_view words) {
    const auto same = [](char a, char b) { return (a | 0x20) == (b | 0x20); };
    return std::search(extent.begin(), extent.end(), words.begin(), words.end(), same) !=
           extent.end();
}

void CheckExtent(const RecordInHand& record, const CodeList& carriers, RemarkSink& remarks) {
    record.ForEachOf({300}, [&](const CheckedField& field) {
        const std::string_view extent = record.TextOf(field, 'a');
        for (const auto& row : kCarrierWords) {
            const auto isNamed = [&](std::string_view code) { return IsAmong(code, row.codes); };
            if (!NamesCarrier(extent, row.words)) continue;
            if (std::ranges::any_of(carriers, isNamed, &MediaCode::code)) continue;
            remarks.Add(RuleId::CarrierAgainstExtent, field.GetPlace().Subfield('a'),
                        '"' + std::string(row.words) + '"',
                        '"' + std::string(MediaTermOf(338, row.codes.substr(0, 2))) + '"');
        }
    });
}

// A category of 007 and the media that it describes.
struct CategoryOfMedia {
    char category;
    char media;
};

constexpr std::array kCategories = std::to_array<CategoryOfMedia>({
    {'c', 'c'},
    {'g', 'g'},
    {'h', 'h'},
    {'m', 'g'},
    {'s', 's'},
    {'v', 'v'},
});

bool HasCategory(const RecordInHand& record, char media) {
    return std::ranges::any_of(record.Fields(), [media](const CheckedField& field) {
        if (field.number != 7 || field.content.empty()) return false;
        const auto* row =
            std::ranges::find(kCategories, field.content[0], &CategoryOfMedia::category);
        return row != kCategories.end() && row->media == media;
    });
}

void Check007(const RecordInHand& record, const CodeList& carriers, RemarkSink& remarks) {
    for (const char media : std::string_view("chgsv")) {
        const auto isOfMedia = [media](std::string_view code) { return MediaOf(code) == media; };
        const auto carrier = std::ranges::find_if(carriers, isOfMedia, &MediaCode::code);
        if (carrier == carriers.end() || HasCategory(record, media)) continue;
        remarks.Add(RuleId::CarrierWithout007, Place::OfField(7U, 0),
                    '"' + std::string(MediaTermOf(338, carrier->code)) + '"');
    }
}

// 008/23, or 008/29 of maps and pictures; NUL without a whole 008.
struct FormOfItem {
    const CheckedField* field = nullptr;
    int position = 0;
    char value = '\0';
};

FormOfItem FormOf(const RecordInHand& record) {
    const CheckedField* field = record.Whole008();
    if (field == nullptr) return {};
    constexpr std::string_view kMapsAndPictures = "efgkor";
    const bool isIn29 = kMapsAndPictures.find(record.LeaderByte(6)) != kMapsAndPictures.npos;
    const int position = isIn29 ? 29 : 23;
    return {field, position, field->content[static_cast<std::size_t>(position)]};
}

void CheckFormOfItem(const RecordInHand& record, const CodeList& carriers, RemarkSink& remarks) {
    const FormOfItem form = FormOf(record);
    if (form.field == nullptr || form.value == '|') return;
    const Place place = form.field->GetPlace().Positions(form.position, form.position);
    const bool isOnline =
        std::ranges::all_of(carriers, [](const auto& carrier) { return carrier.code == "cr"; });
    if (form.value == 'o' && !Has(carriers, "cr")) {
        remarks.Add(RuleId::FormAgainstCarrier, place, "\"o\" (online)",
                    '"' + std::string(MediaTermOf(338, carriers.front().code)) + '"');
    } else if (isOnline && form.value != 'o' && form.value != 's') {
        remarks.Add(RuleId::FormAgainstCarrier, place, Shown({&form.value, 1}),
                    "\"online resource\", which is o");
    }
}

}  // namespace

void CheckCarriers(const RecordInHand& record, RemarkSink& remarks) {
    CheckContent(record, remarks);
    const CodeList carriers = CodesOf(record, 338);
    if (carriers.empty()) return;
    CheckMedia(record, carriers, remarks);
    CheckExtent(record, carriers, remarks);
    Check007(record, carriers, remarks);
    CheckFormOfItem(record, carriers, remarks);
}

}  // namespace quillory
