#include <zorby/controls/ModalDialog.h>
#include <zorby/platform/MemoryDialogs.h>
#include <zorby/platform/PortInForce.h>

#include <gtest/gtest.h>

#include <stdexcept>

using namespace zorby;

namespace {

enum Id { kRed = 10, kBlue, kDivider, kSmall, kLarge, kName, kColors, kPlain };

constexpr ControlRow kRows[] = {
    {ControlKind::kRadio, kRed, "&Red", {}},     {ControlKind::kRadio, kBlue, "&Blue", {}},
    {ControlKind::kLabel, kDivider, "or", {}},   {ControlKind::kRadio, kSmall, "&Small", {}},
    {ControlKind::kRadio, kLarge, "&Large", {}}, {ControlKind::kText, kName, {}, {}},
    {ControlKind::kList, kColors, {}, {}},       {ControlKind::kCheck, kPlain, "P&lain", {}},
};

class Order : public ModalDialog {
public:
    using ModalDialog::Controls;
    using ModalDialog::ModalDialog;

    void OnOK() override {
        name = Controls().Text(kName).GetText();
        if (!name.empty()) ModalDialog::OnOK();
    }
    int OnCmdMsg(int id, int code, TreeItem item) override {
        reports += std::to_string(id) + "/" + std::to_string(code) + " ";
        return ModalDialog::OnCmdMsg(id, code, item);
    }

    std::string name;
    std::string reports;

protected:
    void OnInitDialog() override {
        Controls().Add(kRows, {5, 7, 0, 0});
        Controls().List(kColors).Insert(0, "rust", 4);
        AddOkAndCancel(0, 100);
    }
};

// Which of the radio buttons and the check box are marked.
std::string Marks(const MemoryWindow& window) {
    std::string marks;
    for (const int id : {kRed, kBlue, kSmall, kLarge, kPlain}) {
        marks += window.Find(id)->isChecked ? '1' : '0';
    }
    return marks;
}

TEST(ModalDialog, APersonUsesWhatIsShownAndEnabled) {
    MemoryDialogs dialogs;
    const DialogsInForce inForce(dialogs);
    Order order(nullptr);
    dialogs.persons.push_back([&](MemoryWindow& window) {
        EXPECT_TRUE(window.Click("Blue"));
        EXPECT_TRUE(window.Click("Large"));
        EXPECT_TRUE(window.Click("Red"));
        EXPECT_TRUE(window.Click("Plain"));
        EXPECT_EQ(Marks(window), "10011") << "each pair is a group";
        EXPECT_TRUE(window.Choose(kColors, "rust"));
        EXPECT_FALSE(window.Choose(kColors, "gold"));
        EXPECT_FALSE(window.Type(kColors, "gold")) << "a list takes no text";
        EXPECT_FALSE(window.Click("or")) << "a label can't be clicked";
        order.Controls().At(kName).Enable(false);
        EXPECT_FALSE(window.Type(kName, "x"));
        order.Controls().At(kName).Enable(true);
        order.Controls().At(kName).Show(false);
        EXPECT_FALSE(window.Type(kName, "x"));
        order.Controls().EnableAll(false);
        EXPECT_FALSE(window.Ok());
        order.Controls().EnableAll(true);
        EXPECT_TRUE(window.Ok());
        EXPECT_TRUE(window.IsOpen());
        order.Controls().At(kName).Show(true);
        EXPECT_TRUE(window.Type(kName, "a chair"));
        EXPECT_EQ(window.Find(kName)->box.top, 7);
        EXPECT_TRUE(window.Ok());
        EXPECT_FALSE(window.IsOpen());
        EXPECT_FALSE(window.Type(kName, "too late"));
    });
    EXPECT_EQ(order.DoModal(), kIdOk);
    EXPECT_EQ(order.name, "a chair");
    EXPECT_EQ(order.reports, "11/0 14/0 10/0 17/0 16/1 1/0 15/2 1/0 ");
}

TEST(ModalDialog, NobodyThereCancels) {
    EXPECT_EQ(Order(nullptr).DoModal(), kIdCancel);
    MemoryDialogs dialogs;
    const DialogsInForce inForce(dialogs);
    dialogs.persons.push_back([](MemoryWindow& window) { window.Type(kName, "x"); });
    Order order(nullptr);
    EXPECT_EQ(order.DoModal(), kIdCancel);
    EXPECT_EQ(order.DoModal(), kIdCancel) << "a dialog can be shown again";
    EXPECT_EQ(dialogs.opened, 2);
    EXPECT_THROW(order.Controls().At(kName), std::out_of_range);
}

}  // namespace
