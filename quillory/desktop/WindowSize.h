#pragma once

#include <QScreen>
#include <QWidget>

namespace quillory {

// The room that the screen of a window has for it, beside a frame.
inline QSize RoomFor(const QWidget& window) {
    return window.screen()->availableSize() - QSize(40, 60);
}

// A window begins with the size that it wants, as far as there is room.
inline void ResizeToScreen(QWidget& window, const QSize& wanted) {
    window.resize(wanted.boundedTo(RoomFor(window)));
}

}  // namespace quillory
