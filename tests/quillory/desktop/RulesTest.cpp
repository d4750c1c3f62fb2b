#include <quillory/desktop/FindingsList.h>
#include <quillory/desktop/MessageBar.h>
#include <quillory/desktop/RulesDialog.h>

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTreeWidget>
#include <tests/quillory/desktop/DeskTest.h>

namespace quillory {
namespace {

// A folder with records and a file of settings for checks.
class RulesTest : public StoreTest {
protected:
    void SetUp() override { Write("books.mrc", Book("Rivers")); }

    void Write(const QString& name, const std::string& bytes) const {
        QFile file(folder_.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    }
    std::unique_ptr<MainWindow> Opened() {
        auto window = NewWindow();
        EXPECT_TRUE(window->Open(folder_.filePath("books.mrc")));
        Wait(*window);
        window->CheckNow();
        return window;
    }
    // "100 ▲ text", a line each.
    static QString Findings(MainWindow& window) {
        QString lines;
        for (int i = 0; i < window.Findings().topLevelItemCount(); ++i) {
            const QTreeWidgetItem& item = *window.Findings().topLevelItem(i);
            lines += item.text(1) + u' ' + item.text(0) + u' ' + item.text(2) + u'\n';
        }
        return lines;
    }
    static QString Message(MainWindow& window) {
        return window.Messages().isHidden() ? QString()
                                            : window.Messages().findChild<QLabel*>()->text();
    }

    QTemporaryDir folder_;
};

constexpr const char* kOwn = R"(
skip = ["no-040"]
[severity]
no-extent = "note"
[[rule]]
id = "rivers"
where = '245a contains rivers'
message = "a river again"
severity = "error"
place = "245 $a"
)";

TEST_F(RulesTest, TheFileBesideTheRecordsSetsWhatTheyAreHeldAgainst) {
    auto window = Opened();
    const QString before = Findings(*window);
    EXPECT_TRUE(before.contains("040")) << before.toStdString();
    Write("quillory-check.toml", kOwn);
    window = Opened();
    const QString now = Findings(*window);
    EXPECT_EQ(Message(*window), "");
    EXPECT_TRUE(now.startsWith(QString::fromUtf8("245 $a ✖ a river again\n"))) << now.toStdString();
    EXPECT_FALSE(now.contains("040")) << now.toStdString();
    ASSERT_TRUE(QFile::remove(folder_.filePath("quillory-check.toml")));
    window = Opened();
    EXPECT_EQ(Findings(*window), before);
}

TEST_F(RulesTest, AFaultInTheFileSaysWhereItIsAndWhereTheRulesAre) {
    const QString before = Findings(*Opened());
    Write("quillory-check.toml", "skip = [\"isbn-invald\"]\n");
    auto window = Opened();
    const QString said = Message(*window);
    EXPECT_TRUE(
        said.contains("quillory-check.toml:1:9: there is no rule isbn-invald; perhaps "
                      "isbn-invalid is meant; Check > Rules lists all. Until"))
        << said.toStdString();
    EXPECT_FALSE(said.contains("--")) << said.toStdString();
    EXPECT_EQ(Findings(*window), before);
    Write("quillory-check.toml", "[[rule]]\nid = \"no-040\"\nwhere = 'has 040'\nmessage = \"x\"\n");
    window = Opened();
    EXPECT_TRUE(Message(*window).contains("there is a rule of this id already; Check > Rules"))
        << Message(*window).toStdString();
}

TEST_F(RulesTest, AllRulesAreListedWithTheirWeights) {
    Write("quillory-check.toml", kOwn);
    const auto window = Opened();
    RulesDialog dialog(desk_->Rules());
    dialog.show();
    auto& search = *dialog.findChild<QLineEdit*>();
    auto& list = *dialog.findChild<QTreeWidget*>();
    EXPECT_EQ(list.topLevelItemCount(), static_cast<int>(kRules) + 1);
    const std::vector<std::pair<QString, QString>> cases{
        {"no-040", "off"}, {"no-extent", "note"}, {"rivers", "error"}};
    for (const auto& [name, weight] : cases) {
        SCOPED_TRACE(name.toStdString());
        search.clear();
        QTest::keyClicks(&search, name);
        ASSERT_NE(list.currentItem(), nullptr);
        EXPECT_EQ(list.currentItem()->text(0), name);
        EXPECT_TRUE(list.currentItem()->text(1).endsWith(weight))
            << list.currentItem()->text(1).toStdString();
    }
    search.clear();
    QTest::keyClicks(&search, "isbn-invalid");
    EXPECT_TRUE(dialog.findChild<QPlainTextEdit*>()->toPlainText().contains("Such as: "));
}

}  // namespace
}  // namespace quillory
