#pragma once

#include <zorby/platform/ApplicationPort.h>
#include <zorby/platform/ClipboardPort.h>
#include <zorby/platform/ClockPort.h>
#include <zorby/platform/FilePort.h>
#include <zorby/platform/MenuPort.h>
#include <zorby/platform/MessagePort.h>
#include <zorby/platform/ProfileFilePort.h>
#include <zorby/platform/QuestionPort.h>
#include <zorby/platform/SignalPort.h>
#include <zorby/platform/WindowPort.h>

namespace zorby {

// Puts a port in force as long as the object lives, and then restores the one that was in force
// before, however the scope is left. Both ports must outlive the object.
template <class Port, Port& (*Current)(), void (*Set)(Port*)>
class PortInForce {
public:
    explicit PortInForce(Port& port) : before_(Current()) { Set(&port); }
    ~PortInForce() { Set(&before_); }
    PortInForce(const PortInForce&) = delete;
    PortInForce& operator=(const PortInForce&) = delete;

private:
    Port& before_;
};

using ApplicationInForce = PortInForce<ApplicationPort, CurrentApplicationPort, SetApplicationPort>;
using ClipboardInForce = PortInForce<ClipboardPort, CurrentClipboardPort, SetClipboardPort>;
using ClockInForce = PortInForce<ClockPort, CurrentClockPort, SetClockPort>;
using DialogsInForce = PortInForce<DialogPort, CurrentDialogPort, SetDialogPort>;
using FilesInForce = PortInForce<FilePort, CurrentFilePort, SetFilePort>;
using MenusInForce = PortInForce<MenuPort, CurrentMenuPort, SetMenuPort>;
using MessagesInForce = PortInForce<MessagePort, CurrentMessagePort, SetMessagePort>;
using ProfileFilesInForce =
    PortInForce<ProfileFilePort, CurrentProfileFilePort, SetProfileFilePort>;
using QuestionsInForce = PortInForce<QuestionPort, CurrentQuestionPort, SetQuestionPort>;
using SignalsInForce = PortInForce<SignalPort, CurrentSignalPort, SetSignalPort>;

}  // namespace zorby
