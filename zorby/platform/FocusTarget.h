#pragma once

#include <zorby/Export.h>

namespace zorby {

// Who is told when a control gets the keyboard focus and when it loses it, whether a person moved
// the focus or the library did.
class ZORBY_EXPORT FocusTarget {
public:
    virtual ~FocusTarget() = default;

    virtual void OnSetFocus() = 0;
    // `gains` gets the focus; null is a control that is no target.
    virtual void OnKillFocus(const FocusTarget* gains) = 0;
};

// The focus of a window in memory. What has the focus must not go before it is taken away.
class ZORBY_EXPORT MemoryFocus {
public:
    // Null takes the focus away.
    void Give(FocusTarget* target) {
        if (target == owner_) return;
        FocusTarget* const loses = owner_;
        owner_ = target;
        if (loses) loses->OnKillFocus(target);
        if (target) target->OnSetFocus();
    }

    FocusTarget* Owner() const { return owner_; }

private:
    FocusTarget* owner_ = nullptr;
};

}  // namespace zorby
