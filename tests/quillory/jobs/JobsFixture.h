#pragma once

#include <quillory/faults/Errors.h>
#include <quillory/jobs/Reporter.h>
#include <zorby/platform/PortInForce.h>
#include <zorby/settings/Profile.h>
#include <zorby/text/General.h>
#include <zorby/workforms/TemplateList.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <tests/zorby/platform/TemporaryFolder.h>
#include <utility>
#include <vector>

namespace quillory {

// Keeps what a job says, a line a message.
class RecordedPort : public JobPort {
public:
    void Say(const Message& message) override { text += MessageLine(message) + "\n"; }

    std::string text;
};

// Jobs with a home folder of their own, on the third of February 2026.
class Jobs : public testing::Test {
protected:
    Jobs() {
        clock_.localTime.tm_year = 126;
        clock_.localTime.tm_mon = 1;
        clock_.localTime.tm_mday = 3;
        setenv("QUILLORY_HOME", folder_.Path("home").c_str(), 1);
    }
    ~Jobs() override {
        unsetenv("QUILLORY_HOME");
        zorby::CTemplateList::DestroyTemplateList();
        zorby::SetZorbyProfilePath("");
        zorby::CGeneral::m_iniUserProfile.Initialize("");
    }

    // The text of the error that `act` throws; empty if it throws none.
    template <class Act>
    static std::string ErrorOf(Act act) {
        try {
            act();
        } catch (const FaultError& error) {
            return error.what();
        }
        return {};
    }

    // A file with these bytes.
    std::string File(const std::string& name, const std::string& bytes) const {
        folder_.Write(name, bytes);
        return folder_.Path(name);
    }
    bool IsThere(const std::string& name) const {
        return std::filesystem::exists(folder_.Path(name));
    }
    // What has been said since the last call.
    std::string Said() { return std::exchange(port_.text, {}); }

    TemporaryFolder folder_;
    RecordedPort port_;
    Reporter reporter_{port_, {false, true}};
    zorby::SimulatedClock clock_;
    zorby::ClockInForce clockInForce_{clock_};
};

}  // namespace quillory
