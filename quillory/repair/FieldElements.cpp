#include <quillory/coded/Material.h>
#include <quillory/repair/FieldElements.h>

namespace quillory {
namespace {

using namespace zorby;

bool IsOfTheFile(const Element& element) {
    if (element.form != CFLdr || element.IsUndefined()) return false;
    const CFPart part = element.parts.front();
    return part == CFPLdrRecordLength || part == CFPLdrBaseAddress;
}

std::vector<FieldElement> ElementsIn(CFType form, CFType material) {
    std::vector<FieldElement> elements;
    const auto add = [&elements](const Element& element, int offset) {
        if (IsOfTheFile(element)) return;
        elements.push_back({element, static_cast<std::size_t>(element.first + offset)});
    };
    bool hasSection = form != CF008Standard;
    for (const Element& element : ElementsOf(form)) {
        if (!hasSection && element.first >= kFirstMaterial008) {
            hasSection = true;
            for (const Element& inSection : ElementsOf(material)) {
                if (inSection.first > 0) add(inSection, kMaterialOffset008);
            }
        }
        add(element, 0);
    }
    return elements;
}

bool IsDay(const Element& element) {
    return !element.IsUndefined() && element.parts.front() == CFP008DateEntered;
}

// `number` is that of the last run so far.
std::vector<ElementRun> MakeRuns(CFType form, CFType material, std::uint8_t& number) {
    std::vector<ElementRun> runs;
    for (const FieldElement& at : ElementsIn(form, material)) {
        const bool goesOn = !runs.empty() && !runs.back().isDay && runs.back().End() == at.first &&
                            runs.back().size + at.Width() <= ElementRun::kMost;
        if (!goesOn) runs.push_back({at.first, 0, ++number, IsDay(at.element), {}});
        runs.back().elements.push_back(at);
        runs.back().size += at.Width();
    }
    return runs;
}

// By the number of a form, or of the material of an 008.
class LayoutTable {
public:
    LayoutTable() {
        Add(CFLdr, CFLdr, CF006None);
        for (const CFType form : FormsOf007()) Add(form, form, CF006None);
        for (const CFType form : FormsOf006()) {
            Add(form, form, CF006None);
            Add(form + kOf008, CF008Standard, form);
        }
    }

    const FieldLayout& Of(CFType form, CFType material) const {
        const int number = form == CF008Standard ? material + kOf008 : form;
        return layouts_[static_cast<std::size_t>(number)];
    }

private:
    static constexpr int kOf008 = 1000;  // beyond the numbers of forms

    void Add(int number, CFType form, CFType material) {
        const auto at = static_cast<std::size_t>(number);
        if (at >= layouts_.size()) layouts_.resize(at + 1);
        layouts_[at] = {static_cast<std::size_t>(LengthOfForm(form)),
                        MakeRuns(form, material, number_)};
    }

    std::vector<FieldLayout> layouts_;
    std::uint8_t number_ = 0;  // of the last run; there are about a hundred
};

}  // namespace

const FieldLayout& LayoutOf(CFType form, CFType material) {
    static const LayoutTable table;
    return table.Of(form, material);
}

}  // namespace quillory
