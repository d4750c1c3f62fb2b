#include <quillory/desktop/Document.h>
#include <quillory/desktop/MessageBar.h>
#include <quillory/desktop/WorkformDialog.h>
#include <quillory/jobs/WorkformCatalog.h>
#include <quillory/jobs/WorkformHelps.h>
#include <quillory/store/Schema.h>

#include <QApplication>
#include <QCheckBox>
#include <QInputDialog>
#include <QLineEdit>
#include <QTimer>
#include <functional>
#include <tests/quillory/desktop/DeskTest.h>

namespace quillory {
namespace {

// A book with all numbers that belong to it alone.
std::string Numbered(const std::string& title, char scheme = 'a') {
    return MarcOf({std::string("LDR00000cam ") + scheme + "2200000 a 4500", "001" + title, "003ZZ",
                   "008240101s2023    nyua          000 0 eng d",
                   "24510\037a" + title + " /\037cJane Doe."});
}

// A person who makes records.
class NewRecordTest : public DeskTest {
protected:
    void SetUp() override { window_ = NewWindow(); }

    // Opens a dialog by Ctrl+N, in which `person` does something.
    void New(const std::function<void(WorkformDialog&)>& person) {
        bool isOpen = false;
        Activate();
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<WorkformDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            isOpen = true;
            person(*dialog);
        });
        Press(Qt::Key_N, Qt::ControlModifier);
        EXPECT_TRUE(isOpen);
        Wait();
    }
    static void Answer(WorkformDialog& dialog, const QString& place, const QString& text) {
        for (QLineEdit* edit : dialog.findChildren<QLineEdit*>()) {
            if (!edit->accessibleName().startsWith(place + u' ')) continue;
            edit->setFocus();
            edit->insert(text);
            return;
        }
        ADD_FAILURE() << "no question for " << place.toStdString();
    }
    static void Search(WorkformDialog& dialog, const QString& words) {
        for (QLineEdit* edit : dialog.findChildren<QLineEdit*>()) {
            if (edit->accessibleName() != "Words of a workform") continue;
            edit->clear();
            QTest::keyClicks(edit, words);
        }
    }
    // Chooses from the menus, by the text of the action.
    void Choose(const QString& text) {
        for (QAction* action : window_->findChildren<QAction*>()) {
            if (action->text() == text) action->trigger();
        }
    }
    void SaveAsWorkform(const QString& name) {
        QTimer::singleShot(0, [name] {
            auto* dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            dialog->setTextValue(name);
            dialog->accept();
        });
        Choose(QString::fromUtf8("Save as &Workform…"));
    }
};

// Nothing is open: a workform, its questions, a new file.
TEST_F(NewRecordTest, ARecordIsMadeFromAWorkformAndSavedInANewFile) {
    New([](WorkformDialog& dialog) {
        Search(dialog, "dvd video");
        Answer(dialog, "245 $a", "Rivers :");
        dialog.accept();
    });
    ASSERT_NE(window_->OpenDocument(), nullptr);
    EXPECT_TRUE(window_->OpenDocument()->IsUntitled());
    EXPECT_TRUE(window_->isWindowModified());
    EXPECT_EQ(Cell("245 $a"), "Rivers :");
    EXPECT_TRUE(Cell("007").startsWith("vd")) << Cell("007").toStdString();
    const TemporaryFile target("", ".mrk");
    ASSERT_TRUE(window_->SaveAs(QString::fromStdString(target.Path())));
    Wait();
    EXPECT_FALSE(window_->isWindowModified());
    const std::string saved = target.Read();
    EXPECT_TRUE(saved.starts_with("=LDR  00000ngm\\a22")) << saved;
    EXPECT_NE(saved.find("$aRivers :"), std::string::npos) << saved;
}

TEST_F(NewRecordTest, AfterAnEmptyFileARecordComesIntoANewOne) {
    OpenHere("");
    New([](WorkformDialog& dialog) {
        Search(dialog, "book not atlas");
        Answer(dialog, "245 $a", "One /");
        dialog.accept();
    });
    EXPECT_EQ(Cell("245 $a"), "One /");
    EXPECT_TRUE(window_->SaveAs(Path()));
    Wait();
    EXPECT_NE(file_->Read().find("\037aOne /"), std::string::npos);
}

TEST_F(NewRecordTest, ANewRecordComesLastInTheOpenFileAndTheOthersStay) {
    OpenHere(Numbered("One") + Numbered("Two"));
    window_->Filter("one");
    Wait();
    New([](WorkformDialog& dialog) {
        Search(dialog, "book not atlas");
        Answer(dialog, "245 $a", "Three /");
        dialog.accept();
    });
    EXPECT_EQ(window_->Current(), 2U);
    EXPECT_EQ(window_->List().model()->rowCount(), 3);
    EXPECT_TRUE(window_->Save());
    EXPECT_TRUE(file_->Read().starts_with(Numbered("One") + Numbered("Two")));
    EXPECT_NE(file_->Read().find("\037aThree /"), std::string::npos);
    window_->Table().AddField("500");
    EXPECT_TRUE(window_->Save());
    ASSERT_TRUE(window_->Open(Path()));
    Wait();
    EXPECT_EQ(window_->List().model()->rowCount(), 3);
}

// More or fewer questions, those of another workform, and a word that finds the first one again.
TEST_F(NewRecordTest, AnswersStayWhateverIsAsked) {
    New([](WorkformDialog& dialog) {
        Search(dialog, "book not atlas");
        auto* all = dialog.findChild<QCheckBox*>();
        all->setChecked(true);
        Answer(dialog, "245 $a", "Rivers /");
        Answer(dialog, "500 $a", "Signed.");
        all->setChecked(false);
        Search(dialog, "large-print");
        dialog.accept();
    });
    EXPECT_EQ(Cell("245 $a"), "Rivers /");
    EXPECT_EQ(Cell("500 $a"), "Signed.");
}

TEST_F(NewRecordTest, AnAnswerThatCantBeIsNamedAndStays) {
    New([](WorkformDialog& dialog) {
        Search(dialog, "book not atlas");
        Answer(dialog, "245 $a", QString("Rivers") + QChar(0x1E));
        dialog.accept();
        EXPECT_TRUE(dialog.isVisible());
        dialog.reject();
    });
    EXPECT_EQ(window_->OpenDocument(), nullptr);
}

TEST_F(NewRecordTest, ACopyHasNoNumberOfTheOtherAndCanBeDiscarded) {
    OpenHere(Numbered("One", ' ') + Numbered("Two", ' '));
    Press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    Wait();
    EXPECT_EQ(window_->Current(), 2U);
    EXPECT_EQ(Cell("245 $a"), "One /");
    EXPECT_EQ(Cell("001"), "");
    EXPECT_TRUE(window_->Save());
    EXPECT_EQ(file_->Read(), Numbered("One", ' ') + Numbered("Two", ' ') +
                                 MarcOf({"LDR00000cam  2200000 a 4500",
                                         "008240101s2023    nyua          000 0 eng d",
                                         "24510\037aOne /\037cJane Doe."}));
    Press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    Wait();
    EXPECT_EQ(window_->OpenDocument()->File().Size(), 4U);
    Choose("&Discard the New Record");
    EXPECT_EQ(window_->OpenDocument()->File().Size(), 3U);
    EXPECT_FALSE(window_->OpenDocument()->IsChanged());
}

TEST_F(NewRecordTest, ARecordBecomesAWorkformThatNewOffers) {
    OpenHere(Numbered("One"));
    SaveAsWorkform("Our rivers");
    EXPECT_TRUE(window_->Messages().Text().contains("Our rivers"))
        << window_->Messages().Text().toStdString();
    New([](WorkformDialog& dialog) {
        Search(dialog, "our rivers");
        dialog.accept();
    });
    EXPECT_EQ(window_->Current(), 1U);
    EXPECT_EQ(Cell("245 $a"), "One /");
    EXPECT_EQ(Cell("245 $c"), "Jane Doe.");
    EXPECT_EQ(Cell("001"), "");
    EXPECT_EQ(Cell("008").mid(15, 7), "nyua   ");
}

TEST_F(NewRecordTest, AllMaterialsOfARecordBelongToItsWorkformAndWhatDoesNotIsNamed) {
    const Lines coded{"006m     o  d        ", "006jmunn     n   n l ", "007cr |||||||||||",
                      "007sd fsngnnmmned", "007vd cvaizq"};
    Lines lines{"LDR00000cam a2200000 a 4500", "001x"};
    lines.insert(lines.end(), coded.begin(), coded.end());
    lines.insert(lines.end(), {"008240101s2023    nyua          000 0 eng d", "009local",
                               "24510\037aKit /\037cJane Doe."});
    OpenHere(MarcOf(lines));
    SaveAsWorkform("Our kit");
    EXPECT_TRUE(window_->Messages().Text().endsWith("A workform has no room for 009."))
        << window_->Messages().Text().toStdString();
    New([](WorkformDialog& dialog) {
        Search(dialog, "our kit");
        dialog.accept();
    });
    Lines made;
    made.reserve(coded.size());
    for (const char* place : {"006", "006[2]", "007", "007[2]", "007[3]"}) {
        made.push_back(std::string(place).substr(0, 3) + Cell(place).toStdString());
    }
    EXPECT_EQ(made, coded);
    EXPECT_EQ(Cell("007[4]"), "");
}

TEST_F(NewRecordTest, AWorkformOfARecordRemindsAsThatOfItsMaterialDoes) {
    OpenHere(MarcOf({"LDR00000cgm a2200000 a 4500", "007vd cvaizq",
                     "008240101s2023    nyu090            vleng d", "24500\037aRivers."}));
    SaveAsWorkform("Our films");
    const Database store = OpenStore();
    const WorkformCatalog catalog(store);
    const zorby::TemplateHolder ours = catalog.Get(catalog.Find("Our films").id);
    const zorby::TemplateHolder standard = catalog.Get(catalog.Find("DVD video").id);
    EXPECT_FALSE(HelpOf({300, 'a'}, *standard).reminder.empty());
    EXPECT_EQ(HelpOf({300, 'a'}, *ours), HelpOf({300, 'a'}, *standard));
}

}  // namespace
}  // namespace quillory
