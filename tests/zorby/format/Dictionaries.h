#pragma once

#include <zorby/format/MARCFormat.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>
#include <zorby/platform/ApplicationPort.h>
#include <zorby/platform/MessagePort.h>
#include <zorby/platform/ProfileFilePort.h>
#include <zorby/settings/Profile.h>
#include <zorby/text/General.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <tests/zorby/archive/Persisted.h>
#include <tests/zorby/platform/TemporaryFolder.h>
#include <utility>

// Both dictionaries in a folder of their own, and a user's settings in memory. Neither dictionary
// is in force at first.
class Dictionaries : public testing::Test {
protected:
    Dictionaries() {
        zorby::SetProfileFilePort(&files);
        zorby::SetApplicationPort(&application);
        zorby::SetMessagePort(&messages);
        zorby::ZorbyProfileChangeUserID(7);
        zorby::CGeneral::m_iniUserProfile.Initialize("");
        folder.Write("MARCBibl.tfm", FormatBytes());
        folder.Write("zorby.hld", HoldingsBytes());
    }

    ~Dictionaries() override {
        zorby::CMARCFormat::FreeYourself();
        zorby::CInfoAboutHoldingsTypeList::DestroyYourself();
        zorby::CGeneral::m_iniUserProfile.Initialize("");
        zorby::ZorbyProfileChangeUserID(0);
        zorby::SetMessagePort(nullptr);
        zorby::SetApplicationPort(nullptr);
        zorby::SetProfileFilePort(nullptr);
    }

    static std::string FormatBytes() {
        zorby::CMARCFormat format;
        format.SetName("MARC 21");
        format.AddField(8, '#', '#', "Fixed data", 0, 1, 0);
        format.AddField(245, '1', '#', "Title statement", 0, 1, 1);
        format.AddField(500, '#', '#', "Note", 1, 0, 0);
        format.AddSubfield(245, 'a', "Title", 0, 1, 1, 1);
        format.AddSubfield(245, 'b', "Remainder", 0, 0, 0, 0);
        format.AddIndicatorName(245, 1, "Added entry");
        format.AddIndicatorExpl(245, 1, "Whether to trace the title");
        format.AddIndicatorValue(245, 1, '0', "No");
        format.AddIndicatorValue(245, 1, '1', "Yes");
        format.AddIndicatorValue(500, 1, '#', "Undefined");
        return Store(format);
    }

    // A type for each group of settings, and both of some pairs.
    static std::string HoldingsBytes() {
        using namespace zorby;
        CInfoAboutHoldingsTypeList list;
        list.AddType(Type("Basic", HT_TYPE_1, 852, HID_TYPE_1_CALL_NUMBER));
        list.AddType(Type("Follett", HT_FOLLETT, 852, HID_FOLLETT_BAR_CODE));
        list.AddType(Type("Dynix", HT_DYNIX, 949, HID_DYNIX_BAR_CODE));
        list.AddType(Type("LWLP 2", HT_LWLP_2, 900, HID_LWLP_CALL_NUMBER));
        list.AddType(Type("Unison", HT_FOLLETT_UNISON, 852, HID_FOLLETT_UNISON_BAR_CODE));
        auto follett = Type("Follett 2", HT_FOLLETT_2, 900, HID_FOLLETT_BAR_CODE);
        follett->AddOldName("Follett old");
        follett->AddField("Call number", 9, 852, 'h', ';', HID_FOLLETT_CALL_NUMBER, 1, "Call");
        list.AddType(std::move(follett));
        list.AddType(Type("Alexandria", HT_ALEXANDRIA, 852, HID_ALEXANDRIA_CALL_NUMBER));
        list.AddType(Type("Fifteen", HT_TYPE_15, 852, HID_TYPE_12_CALL_NUMBER));
        list.AddType(Type("Mandarin EZ Transfer", HT_MANDARIN_EZ, 852, EHOLDINGSID{}));
        return Store(list);
    }

    static std::unique_ptr<zorby::CInfoAboutHoldingsType> Type(const char* name,
                                                               zorby::EHOLDINGSTYPE type,
                                                               unsigned tag,
                                                               zorby::EHOLDINGSID id) {
        auto made = std::make_unique<zorby::CInfoAboutHoldingsType>();
        made->Create(name, type, 0, 0);
        made->AddField(name, tag, 'p', '\0', id, 0, "");
        return made;
    }

    static void SetHoldings(const std::string& settings) {
        zorby::WriteZorbyProfileString(zorby::ZP_NewHoldings, settings);
    }

    static void SetEasy(const std::string& type, const std::string& extra = "") {
        SetHoldings("EasyOrCustom=Easy\\\\HoldingsType=" + type +
                    "\\\\HoldingsExtraSettings=" + extra + "\\\\");
    }

    TemporaryFolder folder;
    zorby::MemoryProfileFiles files;
    zorby::FixedApplication application{folder.Path(), '/', false};
    zorby::RecordedMessages messages;
};
