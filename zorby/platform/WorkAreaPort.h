#pragma once

#include <zorby/Export.h>

namespace zorby {

// The part of the screen that windows may cover, without task bars, in pixels. `right` and `bottom`
// are the first positions outside of it.
struct WorkArea {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

class ZORBY_EXPORT WorkAreaPort {
public:
    virtual ~WorkAreaPort() = default;
    virtual WorkArea Get() const = 0;
};

// Answers with the area that it was given.
class ZORBY_EXPORT FixedWorkArea : public WorkAreaPort {
public:
    explicit FixedWorkArea(const WorkArea& area = {0, 0, 1024, 768}) : area_(area) {}
    WorkArea Get() const override { return area_; }

private:
    WorkArea area_;
};

// Returns the port in force. The plain one is a FixedWorkArea of 1024 x 768.
ZORBY_EXPORT WorkAreaPort& CurrentWorkAreaPort();

// Puts a port in force that the caller owns and keeps alive. Null restores the plain one.
ZORBY_EXPORT void SetWorkAreaPort(WorkAreaPort* port);

}  // namespace zorby
