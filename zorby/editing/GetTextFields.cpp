#include <zorby/editing/GetTextFields.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace zorby {

namespace {

std::size_t Inside(int position, std::string_view text) {
    return static_cast<std::size_t>(std::clamp(position, 0, static_cast<int>(text.size())));
}

template <class Matches>
const GetTextField* FindIf(const GetTextFields::Fields& fields, Matches matches) {
    const auto found = std::ranges::find_if(fields, matches);
    return found == fields.end() ? nullptr : &*found;
}

}  // namespace

void GetTextFields::Add(GetTextField field) {
    const auto place =
        std::ranges::upper_bound(fields_, field.position, {}, &GetTextField::position);
    fields_.insert(place, std::move(field));
}

bool GetTextFields::IsInUserDefinedGetTextField(const int& position, int& start, int& end,
                                                int* index) const {
    for (const GetTextField& field : fields_) {
        if (position <= field.position) return false;
        if (position >= field.End()) continue;
        start = field.position;
        end = field.End();
        if (index) *index = static_cast<int>(&field - fields_.data());
        return true;
    }
    return false;
}

void GetTextFields::UpdateGetTextInfo(const int& delta, const int& position) {
    for (GetTextField& field : fields_) {
        if (field.position >= position) field.position += delta;
    }
}

void GetTextFields::DeleteSelectedGetTextInfo(const int& start, const int& end) {
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        if (fields_[i].End() > end) return;
        if (fields_[i].position < start) continue;
        fields_.erase(fields_.begin() + static_cast<std::ptrdiff_t>(i));
    }
}

void GetTextFields::TextReplaced(int from, int removed, int added) {
    const int end = from + removed;
    if (removed > 0) {
        for (int before = Count() + 1; Count() < before;) {
            before = Count();
            DeleteSelectedGetTextInfo(from, end);
        }
    }
    std::erase_if(fields_, [from, end](const GetTextField& field) {
        return field.position < end && from < field.End();
    });
    UpdateGetTextInfo(added - removed, end);
}

const GetTextField* GetTextFields::EndingAt(int position) const {
    return FindIf(fields_, [position](const GetTextField& field) {
        return field.Length() > 0 && field.End() == position;
    });
}

const GetTextField* GetTextFields::BeginningAt(int position) const {
    return FindIf(fields_, [position](const GetTextField& field) {
        return field.Length() > 0 && field.position == position;
    });
}

const GetTextField* GetTextFields::LastBeginningIn(int start, int end) const {
    const GetTextField* last = nullptr;
    for (const GetTextField& field : fields_) {
        if (start <= field.position && field.position < end) last = &field;
    }
    return last;
}

std::string GetTextFields::WithDescriptions(std::string text) {
    Fields given = std::exchange(fields_, {});
    for (GetTextField& field : given) {
        int start = 0;
        int end = static_cast<int>(Inside(field.position, text));
        field.position = end;
        if (IsInUserDefinedGetTextField(field.position, start, end, nullptr)) field.position = end;
        text.insert(static_cast<std::size_t>(field.position), field.description);
        TextReplaced(field.position, 0, field.Length());
        Add(std::move(field));
    }
    return text;
}

std::string GetTextFields::WithoutDescriptions(std::string text) const {
    int removed = 0;
    for (const GetTextField& field : fields_) {
        text.erase(Inside(field.position - removed, text), field.description.size());
        removed += field.Length();
    }
    return text;
}

std::string GetTextFields::WithValues(std::string text) const {
    int delta = 0;
    for (const GetTextField& field : fields_) {
        text.insert(Inside(field.position - delta, text), field.subfieldText);
        delta += field.Length() - static_cast<int>(field.subfieldText.size());
    }
    return text;
}

int GetTextFields::Count() const {
    return static_cast<int>(fields_.size());
}

void GetTextFields::Clear() {
    fields_.clear();
}

}  // namespace zorby
