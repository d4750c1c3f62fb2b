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
    void AddField(int id, CEditMARCAlpha& field);
    void AddButton(int id, BitmapButtonPort& button);
    // Who gets the commands of context menus; null lets each field carry out its own.
    void SetMainWindow(CommandTarget* window);

    // Null if there is none with this number.
    CEditMARCAlpha* Field(int id) const;
    BitmapButtonPort* Button(int id) const;
    // In the order of their numbers.
    std::vector<CEditMARCAlpha*> Fields() const;
    CommandTarget* MainWindow() const;

private:
    std::map<int, CEditMARCAlpha*> fields_;
    std::map<int, BitmapButtonPort*> buttons_;
    CommandTarget* mainWindow_ = nullptr;
};

}  // namespace zorby
