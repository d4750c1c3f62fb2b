#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/jobs/PrintTarget.h>

#include <cstdio>
#include <utility>

namespace quillory {
namespace {

constexpr std::string_view kPageSign = "{}";

std::string CodePointText(char32_t codePoint) {
    char text[16];
    std::snprintf(text, sizeof text, "U+%04X", static_cast<unsigned>(codePoint));
    return text;
}

}  // namespace

PageTarget::PageTarget(PageOptions options) : options_(std::move(options)) {
    CheckNotTheSame(options_.preview, options_.pdf, "the pages and the preview");
    if (!options_.pdf.empty()) {
        outputs_.push_back(std::make_unique<Output>(options_.pdf));
        pdf_ = MakePdfPages(typesetter_, *outputs_.back());
    }
    if (!options_.preview.empty()) {
        pictures_ = MakePngPages(typesetter_, [this](std::string_view png) { TakePicture(png); });
    }
}

PageTarget::~PageTarget() = default;

void PageTarget::Begin(const Sheet& sheet) {
    sheet_ = sheet;
    place_ = static_cast<std::size_t>(options_.skip) % sheet_.places.size();
}

void PageTarget::Take(const PrintItem&, const std::vector<Panel>& panels) {
    for (const Panel& panel : panels) Draw(panel);
}

void PageTarget::Draw(const Panel& panel) {
    if (!isPageOpen_) {
        isPageOpen_ = true;
        ++pages_;
        if (pdf_) pdf_->BeginPage(sheet_.width, sheet_.height);
        if (HasPicture(pages_)) pictures_->BeginPage(sheet_.width, sheet_.height);
    }
    const PaperPoint at = sheet_.places[place_];
    if (pdf_) pdf_->Draw(panel, at, options_.withEdges);
    if (HasPicture(pages_)) pictures_->Draw(panel, at, options_.withEdges);
    if (++place_ == sheet_.places.size()) EndPage();
}

void PageTarget::EndPage() {
    if (pdf_) pdf_->EndPage();
    if (HasPicture(pages_)) pictures_->EndPage();
    place_ = 0;
    isPageOpen_ = false;
}

bool PageTarget::HasPicture(std::uint64_t page) const {
    return pictures_ && (page == 1 || options_.preview.find(kPageSign) != std::string::npos);
}

void PageTarget::TakePicture(std::string_view png) {
    std::string path = options_.preview;
    const std::size_t sign = path.find(kPageSign);
    if (sign != path.npos) path.replace(sign, kPageSign.size(), std::to_string(pages_));
    CheckNotAnInput(options_.inputs, path);
    CheckNotTheSame(path, options_.pdf, "the pages and the preview");
    outputs_.push_back(std::make_unique<Output>(path));
    outputs_.back()->Write(png);
    outputs_.back()->Complete();
}

Status PageTarget::Finish(Reporter& reporter) {
    if (isPageOpen_) EndPage();
    if (pdf_) pdf_->Finish();
    for (const auto& output : outputs_) output->Complete();
    for (const auto& output : outputs_) output->Finish();
    const MissingSigns& missing = typesetter_.Missing();
    if (missing.count == 0) return kStatusWell;
    reporter.Say(FaultReason({FaultCode::kMissingSigns,
                              {},
                              Counted(missing.count, "character"),
                              CodePointText(missing.first)}));
    return kStatusFindings;
}

std::string PageTarget::Summary() const {
    const std::string& name = options_.pdf.empty() ? options_.preview : options_.pdf;
    return " on " + Counted(pages_, "sheet") + (name == "-" ? "" : " (" + name + ")");
}

}  // namespace quillory
