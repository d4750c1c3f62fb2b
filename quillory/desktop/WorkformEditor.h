#pragma once

#include <quillory/coded/CodeLists.h>
#include <quillory/desktop/CollectedMessages.h>
#include <quillory/desktop/OpenRecord.h>
#include <quillory/jobs/WorkformCatalog.h>
#include <quillory/jobs/WorkformContent.h>

#include <QDialog>
#include <array>
#include <memory>
#include <optional>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QTabWidget;
class QTimer;
class QToolBar;
class QUndoStack;

namespace quillory {

class CodedEditor;
class HoldBar;
class RecordTable;
class WorkformList;

// The user's workforms: how new records begin, and what is asked and said when one is made. Those
// of the standard are shown, and copied to be edited. One of the user's that is in hand is locked,
// so that another window only shows it.
class WorkformEditor : public QDialog {
    Q_OBJECT

public:
    // Keeps the reference. Throws FileError if the workforms can't be read.
    explicit WorkformEditor(const CodeLists& lists, QWidget* parent = nullptr);
    ~WorkformEditor() override;

    // False, with a message, if the workform can't be saved.
    bool Save();
    void Copy();
    void reject() override;

    // For tests: what the dialog is made of.
    WorkformList& List() { return *list_; }
    RecordTable& Table() { return *table_; }
    CodedEditor& Coded() { return *coded_; }
    HoldBar& Hold() { return *hold_; }
    QString Said() const;

private:
    class Step;
    // Steps of one kind that come one after the other are undone as one, as with letter after
    // letter.
    static constexpr int kStepOfItsOwn = -1;
    static constexpr int kNameStep = 0;

    QWidget* MakeList();
    QWidget* MakeContent(const CodeLists& lists);
    QWidget* MakeHelp();
    QWidget* MakeHelpTexts();
    void NoteTypedHelp(int which);
    QWidget* MakeButtons();
    void MakeTools();
    template <class Handler>
    void AddTool(const QString& text, const QString& key, Handler handler);
    void AddField();
    void Remove();

    void Follow();
    // False if it can't be shown; the one in hand stays then, unless it is gone.
    bool Show(int id);
    void Begin(WorkformContent content, int from, int own);
    void Lock(int id);
    void Unlock();
    void LockAgain();
    void FillList(int id);
    void ShowGone();
    void ShowHold();
    int HolderNow();
    void TakeOver();
    bool MayLeave();
    void FinishTyping();
    WorkformContent Content() const;
    void Note(int kind);
    void NoteHelp(int kind);
    void Give(const WorkformContent& content);
    SubfieldHelp HelpNow(const SubfieldOfTag& subfield) const;
    void ShowHelp();
    void Update();
    bool IsFixed() const { return isStandard_ || isHeld_; }
    void Say(const QString& text);
    void Warn(const QString& text);
    void ReadStore();
    void Renew(int id);

    CollectedMessages messages_;
    std::optional<WorkformCatalog> workforms_;
    zorby::TemplateHolder from_;  // what the one in hand began as
    int own_ = 0;                 // the ID in the store of the one in hand; 0 for one that is new
    int locked_ = 0;              // the ID of the one that is locked; 0 for none
    bool isStandard_ = true;
    bool isHeld_ = false;   // another window has it
    WorkformContent now_;   // as far as it is noted
    SubfieldHelps before_;  // of what was changed
    std::unique_ptr<EditSession> session_;
    OpenRecord record_;
    QUndoStack* undo_;
    bool isShowing_ = false;  // what changes is not done by a person

    HoldBar* hold_;
    QTimer* waiting_;  // for a workform that another window has
    WorkformList* list_;
    QPushButton* copy_;
    QPushButton* remove_;
    QPushButton* save_;
    QLineEdit* name_;
    QLabel* material_;
    QToolBar* tools_;
    QTabWidget* tabs_;
    RecordTable* table_ = nullptr;
    CodedEditor* coded_ = nullptr;
    QLabel* helpHeading_;
    QCheckBox* isAsked_;
    std::array<QPlainTextEdit*, 3> texts_{};  // rules, a reminder, examples
    QLabel* said_;
};

}  // namespace quillory
