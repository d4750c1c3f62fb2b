#include <quillory/desktop/CodedChoice.h>
#include <quillory/desktop/CodedEditor.h>
#include <quillory/desktop/HoldBar.h>
#include <quillory/desktop/WorkformDialog.h>
#include <quillory/desktop/WorkformEditor.h>
#include <quillory/desktop/WorkformList.h>
#include <quillory/store/Schema.h>

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <tests/quillory/desktop/DeskTest.h>

namespace quillory {
namespace {

// A person who edits workforms.
class WorkformEditorTest : public StoreTest {
protected:
    void SetUp() override {
        editor_ = std::make_unique<WorkformEditor>(desk_->Lists());
        editor_->show();
        editor_->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(editor_.get()));
    }
    void TearDown() override {
        AnswerNext(QMessageBox::Discard);
        editor_.reset();
    }

    void Search(const QString& words) {
        editor_->List().Search().clear();
        QTest::keyClicks(&editor_->List().Search(), words);
    }
    void Copy(const QString& words, const QString& name) {
        Search(words);
        editor_->Copy();
        QTest::keyClicks(QApplication::focusWidget(), name);
    }
    template <class Control>
    Control* Named(const QString& name) {
        for (auto* control : editor_->findChildren<Control*>()) {
            if (control->accessibleName().startsWith(name)) return control;
        }
        ADD_FAILURE() << "nothing is named " << name.toStdString();
        return nullptr;
    }
    QLineEdit& Name() { return *Named<QLineEdit>("Name of"); }
    QPlainTextEdit& Reminder() { return *Named<QPlainTextEdit>("Reminder"); }
    QCheckBox& IsAsked() { return *editor_->findChild<QCheckBox*>(); }
    void GoTo(const std::string& place) { editor_->Table().GoTo(*ParsePlace(place)); }
    QString Cell(const std::string& place) {
        const QModelIndex at = editor_->Table().Model().IndexOf(*ParsePlace(place));
        return at.siblingAtColumn(RecordModel::Text).data().toString();
    }
    void Type(const std::string& place, const QString& text) {
        GoTo(place);
        editor_->Table().setFocus();
        QTest::keyClick(&editor_->Table(), Qt::Key_Return);
        QTest::keyClicks(QApplication::focusWidget(), text);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }
    void Press(int key, Qt::KeyboardModifiers with) {
        QTest::keyClick(editor_.get(), static_cast<Qt::Key>(key), with);
    }
    void Undo() { Press(Qt::Key_Z, Qt::ControlModifier); }
    // Answers a question if one comes.
    static void AnswerNext(QMessageBox::StandardButton answer) {
        QTimer::singleShot(0, [answer] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box != nullptr) box->button(answer)->click();
        });
    }
    static zorby::TemplateHolder Saved(const WorkformCatalog& catalog, const std::string& name) {
        return catalog.Get(catalog.Find(name).id);
    }
    static std::string Users() {
        CollectedMessages said;
        const Reporter reporter(said, {});
        const WorkformCatalog catalog(reporter);
        std::string names;
        for (const WorkformEntry& entry : catalog.Users()) names += entry.text + '|';
        return names;
    }

    std::unique_ptr<WorkformEditor> editor_;
};

TEST_F(WorkformEditorTest, AStandardOneIsOnlyShown) {
    Search("dvd");
    const QString before = Cell("245 $a");
    Type("245 $a", "Rivers");
    EXPECT_EQ(Cell("245 $a"), before);
    EXPECT_FALSE(IsAsked().isEnabled());
    EXPECT_TRUE(Reminder().isReadOnly());
    Press(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(Cell("245 $a"), before);
    EXPECT_FALSE(editor_->isWindowModified());
}

TEST_F(WorkformEditorTest, ACopyIsEditedSavedAndOffered) {
    Copy("book not atlas", "Our books");
    Type("040 $a", "ZS");
    Type("245 $b", "a novel /");
    GoTo("250 $a");
    IsAsked().setChecked(true);
    Reminder().selectAll();
    QTest::keyClicks(&Reminder(), "Look on the back of the title page.");
    for (const auto& [name, text] :
         {std::pair("Rules", "As it stands."), {"Examples", "2nd ed."}}) {
        Named<QPlainTextEdit>(name)->selectAll();
        QTest::keyClicks(Named<QPlainTextEdit>(name), text);
    }
    editor_->findChild<QTabWidget*>()->setCurrentWidget(&editor_->Coded());
    editor_->Coded().GoTo(*ParsePlace("008/33"));
    QTest::keyClicks(QApplication::focusWidget(), "1");
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(editor_->Said(), QString::fromUtf8("“Our books” is saved."));
    EXPECT_FALSE(editor_->isWindowModified());
    {
        const Database store = OpenStore();
        const WorkformCatalog catalog(store);
        const zorby::TemplateHolder saved = Saved(catalog, "Our books");
        const WorkformContent content = ContentOf(Saved(catalog, "Our books"));
        const WorkformContent standard = ContentOf(Saved(catalog, "Book (not atlas or songbook)"));
        const EditSession session(RecordOf(content.record), kCharsetUtf8);
        EXPECT_EQ(content.record.fields.size(), standard.record.fields.size());
        EXPECT_EQ(content.record.fields[0].content.at(33), '1');
        const auto field040 = FieldAt(session.Now(), *ParsePlace("040"));
        ASSERT_TRUE(field040);
        EXPECT_TRUE(content.record.fields[*field040].content.starts_with("  \037aZS"));
        const SubfieldHelp help = HelpOf({250, 'a'}, *saved);
        EXPECT_TRUE(help.isAsked);
        EXPECT_EQ(help.reminder, "Look on the back of the title page.");
        EXPECT_EQ(help.rules, "As it stands.");
        EXPECT_EQ(help.examples, "2nd ed.");
        // What was not touched is as in the standard one.
        const zorby::TemplateHolder from = Saved(catalog, "Book (not atlas or songbook)");
        for (const char code : {'a', 'b', 'c'}) {
            EXPECT_EQ(HelpOf({245, code}, *saved), HelpOf({245, code}, *from)) << code;
        }
    }
    WorkformDialog dialog;
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    QTest::keyClicks(QApplication::focusWidget(), "our books");
    QStringList asked;
    for (const QLineEdit* box : dialog.findChildren<QLineEdit*>()) {
        asked << box->accessibleName().section(QStringLiteral("  "), 0, 0);
    }
    EXPECT_TRUE(asked.contains("250 $a")) << asked.join(u'|').toStdString();
    for (QLineEdit* box : dialog.findChildren<QLineEdit*>()) {
        if (box->accessibleName().startsWith("250 $a")) box->setFocus();
    }
    EXPECT_EQ(dialog.findChild<QPlainTextEdit*>()->toPlainText(),
              "As it stands.\nLook on the back of the title page.\n2nd ed.\n");
}

// A workform that rests on another is edited again and again: what it says of its own stays.
TEST_F(WorkformEditorTest, WhatACopyOfASpecialOneSaysStays) {
    Copy("dvd video", "Our DVDs");
    EXPECT_TRUE(editor_->Save());
    GoTo("245 $a");
    const QString examples = Named<QPlainTextEdit>("Examples")->toPlainText();
    EXPECT_FALSE(examples.isEmpty());
    Named<QPlainTextEdit>("Examples")->clear();
    EXPECT_TRUE(editor_->Save());
    EXPECT_EQ(Named<QPlainTextEdit>("Examples")->toPlainText(), "") << "a text can be left out";
    Undo();
    EXPECT_EQ(Named<QPlainTextEdit>("Examples")->toPlainText(), examples);
    Reminder().setPlainText("Look at the disc.\nAnd at the case.");
    EXPECT_TRUE(editor_->Save());
    Undo();
    EXPECT_TRUE(editor_->Save());
    Name().setText("Our discs");
    EXPECT_TRUE(editor_->Save());
    const Database store = OpenStore();
    const WorkformCatalog catalog(store);
    const zorby::TemplateHolder standard = Saved(catalog, "DVD video");
    const zorby::TemplateHolder ours = Saved(catalog, "Our discs");
    EXPECT_EQ(ours->GetMaterialType(), standard->GetMaterialType());
    WorkformContent content = ContentOf(Saved(catalog, "Our discs"));
    content.name = "DVD video";
    EXPECT_EQ(content, ContentOf(Saved(catalog, "DVD video")));
    for (const auto& [tag, fieldContent, given] : content.record.fields) {
        for (const char code : {'a', 'b', 'c'}) {
            const SubfieldOfTag subfield{TagNumber(tag), code};
            EXPECT_EQ(HelpOf(subfield, *ours), HelpOf(subfield, *standard)) << tag << code;
        }
    }
}

TEST_F(WorkformEditorTest, AnotherMaterialRestsOnTheStandardOneOfThat) {
    Copy("book not atlas", "Sheets");
    editor_->findChild<QTabWidget*>()->setCurrentWidget(&editor_->Coded());
    editor_->Coded().GoTo(*ParsePlace("leader/06"));
    QTest::keyClicks(QApplication::focusWidget(), "e");
    EXPECT_TRUE(editor_->Save());
    const Database store = OpenStore();
    const WorkformCatalog catalog(store);
    const zorby::TemplateHolder sheets = Saved(catalog, "Sheets");
    const zorby::TemplateHolder map = Saved(catalog, "Map");
    EXPECT_EQ(sheets->GetMainMaterial().Get006Type(), map->GetMainMaterial().Get006Type());
    EXPECT_EQ(HelpOf({255, 'a'}, *sheets), HelpOf({255, 'a'}, *map));
}

TEST_F(WorkformEditorTest, EachStepIsUndone) {
    Copy("dvd", "Films");
    const QString field = Cell("245 $b");
    Type("245 $b", "a film /");
    GoTo("245 $a");
    const bool wasAsked = IsAsked().isChecked();
    IsAsked().setChecked(!wasAsked);
    const QString reminder = Reminder().toPlainText();
    QTest::keyClicks(&Reminder(), "No article!");
    Press(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(Cell("245 $a"), "");
    for (int i = 0; i < 5; ++i) Undo();
    EXPECT_FALSE(editor_->isWindowModified());
    EXPECT_EQ(Cell("245 $b"), field);
    GoTo("245 $a");
    EXPECT_EQ(IsAsked().isChecked(), wasAsked);
    EXPECT_EQ(Reminder().toPlainText(), reminder);
    for (int i = 0; i < 4; ++i) Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    GoTo("245 $a");
    EXPECT_EQ(IsAsked().isChecked(), !wasAsked);
    EXPECT_TRUE(Reminder().toPlainText().contains("No article!"));
    EXPECT_NE(Cell("245 $b"), field);
}

TEST_F(WorkformEditorTest, ANameThatIsMissingOrTakenIsNamedAndNothingIsSaved) {
    Copy("map", "Our maps");
    EXPECT_TRUE(editor_->Save());
    const std::string before = Users();
    const std::vector<std::pair<QString, QString>> cases{
        {"", "a workform needs a name"},
        {"Our maps", "There is a workform of that name already."},
        {"Book (not atlas or songbook)", "is the name of a standard workform"},
        {QString::fromUtf8("日"), "can't hold all characters"},
    };
    for (const auto& [name, message] : cases) {
        SCOPED_TRACE(name.toStdString());
        editor_->List().Choose(1);
        editor_->Copy();
        Name().setText(name);
        EXPECT_FALSE(editor_->Save());
        EXPECT_TRUE(editor_->Said().contains(message)) << editor_->Said().toStdString();
        EXPECT_EQ(Users(), before);
        AnswerNext(QMessageBox::Discard);
    }
}

TEST_F(WorkformEditorTest, OneIsRenamedAndDeletedAndLeftOnlyWithAnAnswer) {
    Copy("globe", "Globes");
    EXPECT_TRUE(editor_->Save());
    Name().setText("Round maps");
    AnswerNext(QMessageBox::Cancel);
    editor_->List().Choose(1);
    EXPECT_EQ(Name().text(), "Round maps");
    EXPECT_TRUE(editor_->isWindowModified());
    EXPECT_TRUE(editor_->Save());
    EXPECT_EQ(Users().find("Globes"), std::string::npos) << Users();
    EXPECT_NE(Users().find("Round maps"), std::string::npos) << Users();
    AnswerNext(QMessageBox::Yes);
    for (QPushButton* button : editor_->findChildren<QPushButton*>()) {
        if (button->text().startsWith(QString::fromUtf8("&Delete"))) button->click();
    }
    EXPECT_EQ(Users().find("Round maps"), std::string::npos) << Users();
    EXPECT_FALSE(editor_->isWindowModified());
    EXPECT_NE(Name().text(), "Round maps");
}

// Whoever has it in hand first has it; the other one reads it, and takes it over once it is left.
TEST_F(WorkformEditorTest, TwoWindowsDoNotEditOne) {
    Copy("kit", "Our kits");
    EXPECT_TRUE(editor_->Save());
    WorkformEditor second(desk_->Lists());
    second.show();
    const auto show = [](WorkformEditor& editor, const QString& words) {
        editor.List().Search().clear();
        editor.List().Search().insert(words);
    };
    const auto name = [](WorkformEditor& editor) {
        for (auto* box : editor.findChildren<QLineEdit*>()) {
            if (box->accessibleName() == "Name of the workform") return box;
        }
        return static_cast<QLineEdit*>(nullptr);
    };
    show(second, "our kits");
    EXPECT_TRUE(second.Hold().Text().contains("open in another window."))
        << second.Hold().Text().toStdString();
    EXPECT_FALSE(second.Hold().TakeButton().isEnabled());
    QTest::keyClicks(name(second), "Not ours");
    EXPECT_FALSE(second.isWindowModified());

    Type("245 $a", "Kit");
    EXPECT_TRUE(editor_->Save()) << editor_->Said().toStdString();
    QTest::qWait(1100);
    EXPECT_FALSE(second.Hold().TakeButton().isEnabled()) << "a save lets nobody in";
    Search("map");
    EXPECT_TRUE(QTest::qWaitFor([&] { return second.Hold().TakeButton().isEnabled(); }));
    second.Hold().TakeButton().click();
    EXPECT_EQ(second.Hold().Text(), "");
    second.Table().GoTo(*ParsePlace("245 $a"));
    EXPECT_TRUE(second.Table().currentIndex().data().toString().endsWith("Kit")) << "read again";
    Search("our kits");
    EXPECT_TRUE(editor_->Hold().Text().contains("open in another window"));

    name(second)->selectAll();
    QTest::keyClicks(name(second), "Our crates");
    EXPECT_TRUE(second.Save()) << second.Said().toStdString();
    EXPECT_NE(Users().find("Our crates"), std::string::npos) << Users();
    EXPECT_EQ(Users().find("Our kits"), std::string::npos) << Users();
    EXPECT_TRUE(QTest::qWaitFor([&] { return editor_->Hold().TakeButton().isEnabled(); }));
    editor_->Hold().TakeButton().click();
    EXPECT_TRUE(editor_->Said().contains("another window has renamed or deleted it"));
    EXPECT_EQ(editor_->Hold().Text(), "");
}

}  // namespace
}  // namespace quillory
