#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <sstream>
#include <string>
#include <tests/zorby/editing/Editing.h>
#include <utility>

using namespace zorby;

namespace {

// Keys by the names on the keyboard, or a character of the palette by its number.
class EditScript : public Editing {
protected:
    void Play(const std::string& script) {
        std::istringstream words(script);
        for (std::string word; words >> word;) {
            if (!word.starts_with('<')) {
                Type(word);
            } else if (std::isdigit(static_cast<unsigned char>(word[1]))) {
                edit.AddCharFromButton(static_cast<unsigned>(std::stoi(word.substr(1))));
            } else {
                Key(word);
            }
        }
    }

private:
    void Key(const std::string& name) {
        static const std::map<std::string, KeyStroke> kKeys = {
            {"<Left>", {EditKey::kLeft}},
            {"<Home>", {EditKey::kHome}},
            {"<End>", {EditKey::kEnd}},
            {"<Shift+Left>", {EditKey::kLeft, true}},
            {"<Ctrl+A>", {EditKey::kA, false, true}},
            {"<Ctrl+C>", {EditKey::kC, false, true}},
            {"<Ctrl+V>", {EditKey::kV, false, true}},
            {"<Ctrl+X>", {EditKey::kX, false, true}},
            {"<Ctrl+Z>", {EditKey::kZ, false, true}},
        };
        if (name == "<Space>") {
            Type(" ");
        } else if (name == "<Backspace>") {
            Type("\x08");
        } else {
            edit.OnKeyDown(kKeys.at(name));
        }
    }
};

TEST_F(EditScript, ATitleWithDiacritics) {
    const std::pair<const char*, const char*> script[] = {
        {"Anto <10171>", "Anto\xAB"},                     // a hacek on the wrong letter
        {"<Backspace>", "Ant"},                           // goes with it
        {"on <10236> n", "Anton\xECn"},                   // i with acute
        {"<Space> Dvor <10171>", "Anton\xECn Dvor\xAB"},  // r with hacek
        {"<10222> k", "Anton\xECn Dvor\xAB\xDEk"},        // a with acute
        {"<Ctrl+Z>", ""},                                 // one run
        {"<Ctrl+Z>", "Anton\xECn Dvor\xAB\xDEk"},         // and again
        {"<Shift+Left> <Shift+Left> <Shift+Left> <Ctrl+C>", "Anton\xECn Dvor\xAB\xDEk"},
        {"<End> <Space> / <Space> <Ctrl+V>", "Anton\xECn Dvor\xAB\xDEk / r\xAB\xDEk"},
        {"<Ctrl+Z>", "Anton\xECn Dvor\xAB\xDEk / "},
        {"<Ctrl+A> <Ctrl+X>", ""},
        {"<Ctrl+V> <Home> The <Space>", "The Anton\xECn Dvor\xAB\xDEk / "},
    };
    edit.SetWindowTextA("");
    for (const auto& [keys, text] : script) {
        Play(keys);
        EXPECT_EQ(Real(), text) << keys;
        EXPECT_EQ(box.text, text) << "this display type shows the code itself";
    }
    EXPECT_EQ(box.caret, 4);
    EXPECT_TRUE(signals.sounds.empty());
}

}  // namespace
