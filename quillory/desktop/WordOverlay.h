#pragma once

#include <zorby/platform/EditPort.h>

#include <QPointer>
#include <QWidget>
#include <span>
#include <string_view>
#include <vector>

namespace quillory {

// A word in a colour of its own, laid over the word in an edit box.
class WordOverlay : public zorby::OverlayPort {
public:
    // The overlay goes when the parent does, or this object.
    WordOverlay(QWidget& parent, std::string_view text);
    ~WordOverlay() override;
    WordOverlay(const WordOverlay&) = delete;
    WordOverlay& operator=(const WordOverlay&) = delete;

    bool IsOpen() const override { return !window_.isNull(); }
    void Place(const zorby::ControlBox& box) override;
    void Show(bool show) override;
    void Draw(std::span<const zorby::OverlayRun> runs) override;

private:
    QPointer<QWidget> window_;
};

}  // namespace quillory
