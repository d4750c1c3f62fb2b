#pragma once

#include <quillory/holdings/RecordHoldings.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>
#include <zorby/platform/ProfileFilePort.h>
#include <zorby/settings/Profile.h>
#include <zorby/text/General.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/quillory/exchange/TemporaryFile.h>

namespace quillory {

// The compiled holdings dictionary in force, and settings in memory.
class HoldingsFixture : public testing::Test {
protected:
    HoldingsFixture() {
        zorby::SetProfileFilePort(&files_);
        zorby::ZorbyProfileChangeUserID(7);
        zorby::CGeneral::m_iniUserProfile.Initialize("");
        zorby::CInfoAboutHoldingsTypeList::CreateTheOneAndOnly(DATA_FOLDER "/");
    }
    ~HoldingsFixture() override {
        zorby::CInfoAboutHoldingsTypeList::DestroyYourself();
        zorby::CGeneral::m_iniUserProfile.Initialize("");
        zorby::ZorbyProfileChangeUserID(0);
        zorby::SetProfileFilePort(nullptr);
    }

    // Puts it in force.
    static HoldingsSystem System(const std::string& name) {
        PutInForce(*FindHoldingsType(name));
        return HoldingsSystemInForce();
    }

private:
    zorby::MemoryProfileFiles files_;
};

}  // namespace quillory
