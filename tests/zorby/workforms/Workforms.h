#pragma once

#include <zorby/platform/ClockPort.h>
#include <zorby/workforms/TemplateList.h>

#include <cstdlib>
#include <cstring>
#include <map>
#include <tests/zorby/format/Dictionaries.h>
#include <vector>

inline constexpr const char* kBook = "Book (not atlas or songbook)";

// A host's database of workforms, in memory, that remembers what it was asked to do.
struct FakeHost {
    struct Entry {
        std::string name;
        std::string block;
        int state = 1;
    };
    std::map<int, Entry> entries;
    std::map<int, std::string> standard;
    std::vector<std::string> updates;
    int nextID = 100;

    inline static FakeHost* current = nullptr;

    static zorby::TemplateCallbacks Callbacks() {
        zorby::TemplateCallbacks callbacks{};
        callbacks.infoByName = [](const char* name, int* id, int*, int*, int* state) {
            for (const auto& [number, entry] : current->entries) {
                if (entry.name != name) continue;
                if (id != nullptr) *id = number;
                if (state != nullptr) *state = entry.state;
                return 1;
            }
            return 0;
        };
        callbacks.infoByID = [](const int& id, std::string* name, int*, int*, int* state) {
            const auto found = current->entries.find(id);
            if (found == current->entries.end()) return 0;
            if (name != nullptr) *name = found->second.name;
            if (state != nullptr) *state = found->second.state;
            return 1;
        };
        callbacks.update = [](int id, const char* name, int a, int b, int c, int d, int e) {
            std::string call = std::to_string(id) + " " + (name == nullptr ? "(null)" : name);
            for (const int value : {a, b, c, d, e}) call += " " + std::to_string(value);
            current->updates.push_back(call);
            if (id != 0) return id;
            const int added = current->nextID == 0 ? 0 : current->nextID++;
            if (added != 0) current->entries[added].name = name + (*name == '\\' ? 1 : 0);
            return added;
        };
        callbacks.remove = [](int id) { current->entries.erase(id); };
        callbacks.fetchBlock = [](int id, void** block, int& size) {
            const auto found = current->entries.find(id);
            if (found == current->entries.end()) return 0;
            size = static_cast<int>(found->second.block.size());
            *block = std::malloc(found->second.block.size() + 1);
            std::memcpy(*block, found->second.block.data(), found->second.block.size());
            return 1;
        };
        callbacks.storeBlock = [](int id, void* block, int size) {
            current->entries[id].block.assign(static_cast<const char*>(block),
                                              static_cast<std::size_t>(size));
        };
        callbacks.userTemplates = [](zorby::CStringAndUINTArraySorted& list, int) {
            for (const auto& [id, entry] : current->entries) {
                list.push_back({entry.name, static_cast<unsigned>(id)});
            }
            return 1;
        };
        callbacks.templateIDs = [](zorby::CUIntArray& ids, int) {
            ids = {1, 2};
            return 1;
        };
        callbacks.standardName = [](int id, std::string& name) {
            name = current->standard[id];
            return 1;
        };
        callbacks.canAllocateID = [] { return current->nextID; };
        return callbacks;
    }
};

// A small dictionary, a user's settings, four standard workforms in a file, and a host.
class Workforms : public Dictionaries {
protected:
    Workforms() {
        FakeHost::current = &host;
        zorby::SetClockPort(&clock);
        clock.localTime.tm_year = 126;
        clock.localTime.tm_mon = 10;
        clock.localTime.tm_mday = 21;
        zorby::CMARCFormat::InitializeYourself("");
        zorby::CInfoAboutHoldingsTypeList::CreateTheOneAndOnly(folder.Path());
        WriteStandard(StandardList());
    }

    ~Workforms() override {
        zorby::CTemplate::InitTemplateCB({});
        zorby::CTemplateList::DestroyTemplateList();
        zorby::SetClockPort(nullptr);
        FakeHost::current = nullptr;
    }

    int Start() {
        const int loaded = zorby::CTemplateList::InitializeTemplateList(folder.Path());
        zorby::CTemplate::InitTemplateCB(FakeHost::Callbacks());
        return loaded;
    }

    static void Make(zorby::CTemplate& workform, const char* name, int id, const char* base,
                     zorby::MaterialType material, zorby::CFType type006, zorby::CFType type007,
                     std::string_view field007 = {}, std::string_view second006 = {}) {
        workform.SetName(name);
        workform.SetID(id);
        workform.SetBaseTemplateName(base);
        workform.ControlFieldsSetMain(material, type006, type007, "00000nam#a2200000#i#4500",
                                      std::string(32, '#'), field007,
                                      "######s########xx#a##j#s####000#1#eng##", second006);
    }

    static std::string StandardList(const char* firstName = kBook) {
        using namespace zorby;
        CTemplate book, music, map, largePrint;
        Make(book, firstName, 1, "", MTBook, CF006Books, CF007None, "", "m#####o##d########");
        book.AddFld(245, "10", "abc", "ab", "a");
        book.AddFld(500, "__", "a", "", "");
        book.AddRET(245, 'a', "Rule of the base", "Example", "");
        book.AddIndicatorDefault(500, '3', '4');
        book.AddIndicatorExpl(245, 2, "Of the base");
        book.AddIndicatorName(245, 2, "Name in the base");
        Make(music, "Music", 2, "", MTMusic, CF006MusicSound, CF007None);
        Make(map, "Map", 3, "", MTMap, CF006Map, CF007Map, "aj#canzn");
        Make(largePrint, "Large print", 4, firstName, MTBook, CF006Books, CF007None);
        largePrint.AddSubfieldRules(245, 'b', "Own rule");
        largePrint.AddIndicatorName(245, 1, "Own name");
        std::string bytes("\4\0\0\0", 4);
        for (CTemplate* workform : {&book, &music, &map, &largePrint}) bytes += Store(*workform);
        return bytes;
    }

    void WriteStandard(const std::string& bytes) const { folder.Write("zorby.ttm", bytes); }

    FakeHost host;
    zorby::SimulatedClock clock;
};
