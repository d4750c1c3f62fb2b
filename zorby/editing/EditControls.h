#pragma once

#include <zorby/Export.h>
#include <zorby/platform/ButtonPort.h>

#include <map>
#include <vector>

namespace zorby {

class CEditMARCAlpha;

// What a dialog has of the fields for MARC text and of the buttons that type into them, by their
// numbers. It owns none of them, and must not outlive them.
class ZORBY_EXPORT EditControls {
public:
    void AddField(int id, CEditMARCAlpha& field) { fields_[id] = &field; }
    void AddButton(int id, BitmapButtonPort& button) { buttons_[id] = &button; }
    // Who gets the commands of context menus; null lets each field carry out its own.
    void SetMainWindow(CommandTarget* window) { mainWindow_ = window; }

    // Null if there is none with this number.
    CEditMARCAlpha* Field(int id) const {
        const auto found = fields_.find(id);
        return found == fields_.end() ? nullptr : found->second;
    }
    BitmapButtonPort* Button(int id) const {
        const auto found = buttons_.find(id);
        return found == buttons_.end() ? nullptr : found->second;
    }
    // In the order of their numbers.
    std::vector<CEditMARCAlpha*> Fields() const {
        std::vector<CEditMARCAlpha*> fields;
        for (const auto& [id, field] : fields_) fields.push_back(field);
        return fields;
    }
    CommandTarget* MainWindow() const { return mainWindow_; }

private:
    std::map<int, CEditMARCAlpha*> fields_;
    std::map<int, BitmapButtonPort*> buttons_;
    CommandTarget* mainWindow_ = nullptr;
};

}  // namespace zorby
