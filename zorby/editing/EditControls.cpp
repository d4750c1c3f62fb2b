#include <zorby/editing/EditControls.h>

namespace zorby {
namespace {

template <class Control>
Control* Find(const std::map<int, Control*>& controls, int id) {
    const auto found = controls.find(id);
    return found == controls.end() ? nullptr : found->second;
}

}  // namespace

void EditControls::AddField(int id, CEditMARCAlpha& field) {
    fields_[id] = &field;
}

void EditControls::AddButton(int id, BitmapButtonPort& button) {
    buttons_[id] = &button;
}

void EditControls::SetMainWindow(CommandTarget* window) {
    mainWindow_ = window;
}

CEditMARCAlpha* EditControls::Field(int id) const {
    return Find(fields_, id);
}

BitmapButtonPort* EditControls::Button(int id) const {
    return Find(buttons_, id);
}

std::vector<CEditMARCAlpha*> EditControls::Fields() const {
    std::vector<CEditMARCAlpha*> fields;
    for (const auto& [id, field] : fields_) fields.push_back(field);
    return fields;
}

CommandTarget* EditControls::MainWindow() const {
    return mainWindow_;
}

}  // namespace zorby
