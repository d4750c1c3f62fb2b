#pragma once

#include <quillory/holdings/RecordHoldings.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>
#include <zorby/platform/ProfileFilePort.h>
#include <zorby/settings/Profile.h>
#include <zorby/text/General.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <tests/quillory/exchange/TemporaryFile.h>
#include <vector>

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

    static HoldingsSystem System(const std::string& name) {
        PutInForce(*FindHoldingsType(name));
        return HoldingsSystemInForce();
    }

    // A record of fields such as "852  $hA$pB", divided by line ends, that carries views of them.
    struct Text {
        explicit Text(std::string fields, char label = 'a')
            : leader("     nam "s + label + "22     2a 4500"), text(std::move(fields)) {
            for (char& c : text) c = c == '$' ? '\037' : c;
            for (std::string_view rest = text; !rest.empty();) {
                const std::size_t end = std::min(rest.find('\n'), rest.size());
                record.fields.push_back({rest.substr(0, 3), rest.substr(3, end - 3)});
                rest.remove_prefix(std::min(end + 1, rest.size()));
            }
            record.leader = leader;
            record.bytes = "as it was";
        }
        std::string leader;
        std::string text;
        Record record;
    };

    static std::string TextOf(const Record& record) {
        std::string text;
        for (const auto& field : record.fields) {
            text += (text.empty() ? "" : "\n") + std::string(field.tag) + std::string(field.content);
        }
        for (char& c : text) c = c == '\037' ? '$' : c;
        return text;
    }

private:
    zorby::MemoryProfileFiles files_;
};

}  // namespace quillory
