#pragma once

#include <quillory/holdings/RecordHoldings.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>
#include <zorby/platform/ProfileFilePort.h>
#include <zorby/settings/Profile.h>
#include <zorby/text/General.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
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

    // A record of fields such as "852  $hA$pB", divided by line ends.
    class TestRecord {
    public:
        explicit TestRecord(std::string fields) : text_(std::move(fields)) {
            std::ranges::replace(text_, '$', '\037');
            for (std::string_view rest = text_; !rest.empty();) {
                const std::size_t end = std::min(rest.find('\n'), rest.size());
                record.fields.push_back({rest.substr(0, 3), rest.substr(3, end - 3)});
                rest.remove_prefix(std::min(end + 1, rest.size()));
            }
            record.leader = "00000nam a2200000 a 4500";
            record.bytes = "unchanged";
        }
        TestRecord(const TestRecord&) = delete;
        TestRecord& operator=(const TestRecord&) = delete;

        std::string Text() const {
            std::string text;
            for (const auto& [tag, content] : record.fields) {
                text += text.empty() ? "" : "\n";
                text.append(tag).append(content);
            }
            std::ranges::replace(text, '\037', '$');
            return text;
        }
        bool IsUnchanged() const { return !record.bytes.empty(); }

        Record record;

    private:
        std::string text_;
    };

private:
    zorby::MemoryProfileFiles files_;
};

}  // namespace quillory
