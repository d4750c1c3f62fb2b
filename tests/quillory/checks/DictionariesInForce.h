#pragma once

#include <zorby/format/MARCFormat.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>
#include <zorby/platform/ApplicationPort.h>
#include <zorby/settings/Profile.h>
#include <zorby/text/General.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace quillory {

// The compiled dictionaries and the settings of a new user, in force while the object lasts.
class DictionariesInForce {
public:
    explicit DictionariesInForce(const char* userDefined = "") {
        zorby::CGeneral::m_iniUserProfile.Initialize("");
        Load(userDefined);
    }
    ~DictionariesInForce() {
        zorby::CMARCFormat::FreeYourself();
        zorby::CInfoAboutHoldingsTypeList::DestroyYourself();
        zorby::CGeneral::m_iniUserProfile.Initialize("");
    }
    DictionariesInForce(const DictionariesInForce&) = delete;
    DictionariesInForce& operator=(const DictionariesInForce&) = delete;

    // Again, with other fields of the user's own.
    static void Load(const char* userDefined) {
        const std::string folder = std::filesystem::path(CODES_FILE).parent_path().string() + "/";
        zorby::FixedApplication application(folder, '/', false);
        zorby::SetApplicationPort(&application);
        ASSERT_EQ(zorby::CInfoAboutHoldingsTypeList::CreateTheOneAndOnly(folder), 1);
        ASSERT_EQ(zorby::CMARCFormat::InitializeYourself(userDefined), 1);
        zorby::SetApplicationPort(nullptr);
    }
};

}  // namespace quillory
