#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/KeyedFile.h>
#include <quillory/text/SearchText.h>

#include <algorithm>

namespace quillory {

bool KeyedFile::FindKeys(const Record& record, std::vector<std::string>& keys) {
    keys_.Of(record, keys);
    const bool hasKey = !keys.empty();
    if (!hasKey && substitute_) keys.push_back(substitute_(record));
    return hasKey;
}

Status KeyedFile::Read(const InputOptions& input, const std::function<bool(Item& item)>& take) {
    std::vector<std::string> keys;
    const Status read = kept_.Read(input, take, [&](const Item& item, std::string_view packed) {
        FindKeys(item.record, keys);
        records_.Add(packed, keys);
    });
    records_.Sort();
    return read;
}

const KeyedFile::Found& KeyedFile::At(Index record) {
    records_.Read(record, found_.packed);
    found_.file = kept_.Unpack(found_.packed, found_.item);
    found_.hasKey = FindKeys(found_.item.record, found_.keys);
    return found_;
}

bool KeyedFile::HasKey(Index record, const std::string& key) {
    return std::ranges::find(At(record).keys, key) != found_.keys.end();
}

std::optional<KeyedFile::Index> KeyedFile::FindPartner(const std::vector<std::string>& keys) {
    std::optional<Index> partner;
    for (const std::string& key : keys) {
        records_.Find(key, [&](Index record) {
            if (!HasKey(record, key)) return false;
            partner = record;
            return true;
        });
        if (partner) break;
    }
    return partner;
}

std::uint64_t KeyedFile::NameDoubles() {
    std::uint64_t doubles = 0;
    records_.ForEachDouble([&](Index first, Index other) {
        const std::vector<std::string> keys = At(first).keys;
        const std::uint64_t number = found_.item.number;
        const Found& found = At(other);
        const auto key = std::ranges::find_first_of(found.keys, keys);
        if (first == other || !found.hasKey || key == found.keys.end()) return;
        ++doubles;
        reporter_.Say(found.item, FaultCode::kKeyOfAnother, [&] {
            return Fault{
                FaultCode::kKeyOfAnother, {}, TidyText(*key), "record " + std::to_string(number)};
        });
    });
    kept_.Finish();
    return doubles;
}

}  // namespace quillory
