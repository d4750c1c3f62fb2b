#pragma once

#include <zorby/platform/MemoryDialogs.h>
#include <zorby/platform/PortInForce.h>

#include <string>
#include <tests/zorby/workforms/Workforms.h>
#include <utility>

// A dictionary with a field in most groups, a holdings system with two elements, and persons who
// use the dialogs.
class Selection : public Workforms {
protected:
    Selection() {
        folder.Write("MARCBibl.tfm", RichFormatBytes());
        zorby::CMARCFormat::InitializeYourself("");
        SetNames(zorby::EDO_CodeOnly);
    }

    static std::string RichFormatBytes() {
        zorby::CMARCFormat format;
        const std::pair<unsigned, const char*> fields[] = {
            {8, "Fixed data"},      {20, "ISBN"},    {100, "Main entry"}, {245, "Title statement"},
            {240, "Uniform title"}, {300, "Extent"}, {500, "Note"},       {505, "Contents"},
            {650, "Topic"},         {600, "Name"},   {700, "Added name"}, {830, "Series title"},
            {852, "Location"},      {856, "Link"},
        };
        for (const auto& [tag, name] : fields) format.AddField(tag, '#', '#', name, 1, 0, 0);
        const std::pair<unsigned, const char*> codes[] = {{20, "a"},   {100, "a"},   {245, "abh"},
                                                          {500, "a"},  {650, "axz"}, {600, "a"},
                                                          {852, "hp"}, {856, "u"}};
        for (const auto& [tag, all] : codes) {
            for (const char code : std::string(all)) {
                format.AddSubfield(tag, code, std::string("Part ") + code, 1, 0, 1, 1);
            }
        }
        format.AddIndicatorName(245, 1, "Added entry");
        format.AddIndicatorExpl(245, 1, "Whether to trace the title");
        format.AddIndicatorValue(245, 1, '0', "No");
        format.AddIndicatorValue(245, 1, '1', "Yes");
        format.AddIndicatorValue(650, 2, '0', "LCSH");
        format.AddIndicatorValue(650, 2, '7', "Source in $2");
        return Store(format);
    }

    static void SetNames(zorby::EDISPLAYOPTIONS option) {
        zorby::WriteZorbyProfileInt(zorby::ZP_DisplayNameOrMARC, option);
    }

    zorby::MemoryDialogs dialogs;
    zorby::DialogsInForce dialogsInForce{dialogs};
};
