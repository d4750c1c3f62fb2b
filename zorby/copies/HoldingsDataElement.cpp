#include <zorby/archive/detail/SerializeItems.h>
#include <zorby/copies/HoldingsDataElement.h>
#include <zorby/text/detail/WhiteSpace.h>

namespace zorby {
namespace {

constexpr unsigned char kElementVersion = 1;
constexpr unsigned kDelimiterAndCode = 2;

}  // namespace

const CRuntimeClass CHoldingsDataElement::kRuntimeClass =
    RuntimeClassOf<CHoldingsDataElement>("CHoldingsDataElement");

void CHoldingsDataElement::Serialize(CArchive& archive) {
    unsigned char version = kElementVersion;
    SerializeElement(archive, version);
    if (version == kElementVersion) SerializeItems(archive, id_, text_);
}

void CHoldingsDataElement::Create(EHOLDINGSID id, std::string_view text, int userValue) {
    id_ = id;
    SetText(text);
    userValue_ = userValue;
}

void CHoldingsDataElement::CloneFrom(const CHoldingsDataElement& element) {
    id_ = element.id_;
    text_ = element.text_;
}

void CHoldingsDataElement::SetText(std::string_view text) {
    text_ = std::string(Trimmed(text));  // `text` may be part of the old text
}

bool CHoldingsDataElement::IsEqualTo(const CHoldingsDataElement& element) const {
    return id_ == element.id_ && text_ == element.text_;
}

unsigned CHoldingsDataElement::GetMARCSize() const {
    return text_.empty() ? 0 : static_cast<unsigned>(text_.size()) + kDelimiterAndCode;
}

EHOLDINGSID CHoldingsDataElement::GetID() const {
    return id_;
}

const std::string& CHoldingsDataElement::GetText() const {
    return text_;
}

int CHoldingsDataElement::GetUserValue() const {
    return userValue_;
}

void CHoldingsDataElement::SetMarkedForDeletion(int marked) {
    markedForDeletion_ = marked;
}

int CHoldingsDataElement::IsMarkedForDeletion() const {
    return markedForDeletion_;
}

}  // namespace zorby
