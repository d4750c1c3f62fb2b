#include <quillory/store/HolderText.h>
#include <zorby/platform/ClockPort.h>

#include <ctime>
#include <pwd.h>
#include <unistd.h>

namespace quillory {
namespace {

std::string UserName() {
    const passwd* user = getpwuid(geteuid());
    return user == nullptr ? std::string("somebody") : std::string(user->pw_name);
}

}  // namespace

std::string HolderText() {
    char host[256] = "";
    gethostname(host, sizeof host - 1);
    const std::tm now = zorby::CurrentClockPort().LocalTime();
    char time[16];
    std::strftime(time, sizeof time, "%H:%M", &now);
    return UserName() + " on " + host + ", program " + std::to_string(getpid()) + ", since " + time;
}

}  // namespace quillory
