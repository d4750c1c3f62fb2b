#pragma once

#include <quillory/desktop/OpenRecord.h>

#include <QMainWindow>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QAction;
class QLabel;
class QLineEdit;
class QMenu;
class QPlainTextEdit;
class QProgressBar;
class QSplitter;
class QStackedWidget;
class QTableView;
class QTabWidget;
class QTimer;

namespace quillory {

class CharacterPalette;
class CodedEditor;
class CopiesEditor;
class Desk;
class DeskSettings;
class Document;
class EditJournal;
class FindingsList;
class HoldBar;
class LinesEditor;
class MessageBar;
class RecordListModel;
class RecordTable;
struct KeptChange;

// The window: a list of records, the record in hand, and what is known of it.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    // Keeps the references.
    MainWindow(Desk& desk, DeskSettings& settings);
    ~MainWindow() override;

    // False, with a message, if the file can't be opened or the one that is open has to stay.
    bool Open(const QString& path);
    bool Save();
    bool SaveAs(const QString& path);
    void ShowRecord(std::size_t record);
    // Asks for new records that a program left which ended before it saved.
    void OfferNewRecordsLeft();
    // False, with a message, if what is typed can't be understood.
    bool Filter(const QString& typed);
    // The records of a file come last in the store, which is open.
    bool AddToStore(const QString& path);

    // For tests: what the window is made of.
    Document* OpenDocument() { return document_.get(); }
    RecordTable& Table() { return *table_; }
    LinesEditor& Lines() { return *lines_; }
    CodedEditor& Coded() { return *coded_; }
    CopiesEditor& Copies() { return *copies_; }
    FindingsList& Findings() { return *findings_; }
    QTableView& List() { return *list_; }
    CharacterPalette& Palette() { return *palette_; }
    MessageBar& Messages() { return *messages_; }
    HoldBar& Hold() { return *hold_; }
    MessageBar& LeftByOthers() { return *left_; }
    std::optional<std::size_t> Current() const { return current_; }
    bool IsWorking() const;
    // Does at once what a person would wait for a moment.
    void CheckNow();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    // What an action needs for its sense.
    enum Needs : int {
        kNothing,
        kFile,
        kRecord,
        kEditable,
        kRows,
        kRowOrCopy,
        kChanges,
        kUndo,
        kRedo,
        kRoomForNew,
        kStore,
        kHeld,
    };
    using Handler = std::function<void()>;

    void MakeCentre();
    QWidget* MakeWelcome();
    QWidget* MakeList();
    QWidget* MakeEditor();
    QWidget* MakeSide();
    QWidget* MakePalette(QWidget* side);
    void MakeMenus();
    void MakeFileMenu();
    void MakeEditMenu();
    void MakeRecordMenu();
    void MakeOtherMenus();
    void MakeToolBar();
    QAction* Add(QMenu* menu, const QString& text, const QKeySequence& key, Needs needs,
                 Handler handler);
    void UpdateActions();
    void FillRecent(QMenu* menu);

    void ChooseFile();
    void OpenSamples();
    void OpenStore();
    QWidget* MakeEmptyStore();
    void ChooseFileForStore();
    void ShowPage();
    void Reload();
    void ChooseTarget();
    bool CloseFile();
    void FollowRules();
    bool MayLoseChanges(const QString& question);
    void ShowFile();
    QString ChangeOnDisk() const;
    void NoteChangeOnDisk();

    void WorkOn();
    void ShowCounts();
    void Sort(int column, Qt::SortOrder order);
    void FollowRow(const QModelIndex& index);
    void SelectCurrentRow();
    void GoToMatch();
    void GoIntoRecord();
    void GoToRecord();
    void NextRecord(int by);

    void MakeCoded();
    void AddCodedActions(QMenu* menu);
    bool IsCodedShown() const;
    void GoToFinding(const Place& place);
    bool ShowCodedHelp();

    void MakeCopies();
    void ShowCopies();
    void FollowHoldings();
    bool ShowCopyHelp();
    void AddFieldOrCopy();
    void RemoveFieldOrCopy();

    void MakeJournalTimer();
    void TakeFile(const QString& path);
    std::unique_ptr<EditJournal> JournalFor(const QString& path);
    void KeepIn(std::unique_ptr<EditJournal> journal);
    void MakeHoldBar(QWidget* parent);
    bool IsHeldByAnother() const;
    void ShowHold();
    void ShowFileHold();
    void ShowRecordHold();
    void TakeOver();
    bool RefuseHeld();
    void RefuseTarget(const EditJournal& journal);
    void GoOnWith(std::unique_ptr<Document> document);
    void TakeDocument(std::unique_ptr<Document> document);

    QString HolderInHand();
    void FollowOthers();
    void ShowSavedByOthers();
    void ShowAdded(std::size_t before);
    void RefreshHolders();
    void ShowAgain();
    void ReadAgainTelling();
    void ReadAgain();
    void KeepRefused(std::size_t record, const RecordState& wanted, const QString& why);
    void WriteRefused(std::size_t record, const RecordState& wanted);
    void KeepTypedSince();
    void ShowRefused(const Document* document, const QString& why);

    void WarnOfObstacle();
    EditSession::State TypedState();
    void KeepChanges();
    KeptChange ChangeInHand(const RecordState& typed, bool isTouched);
    void KeepIfNews(const KeptChange& change);
    bool Keep(const KeptChange& change);
    void ForgetChanges();
    void TakeBackKept(std::size_t record);
    bool AreChangesKept() const;
    void ReadUnderChanges();
    void OfferLeft();
    bool WantsLeft(std::size_t count, const std::string& path);
    std::optional<std::size_t> TakeUp(KeptChange& change);
    std::vector<KeptChange> TakeUp(std::vector<KeptChange> left);
    void SayWhatIsApart(std::size_t taken, const std::vector<KeptChange>& others);
    void ShowLeftByOthers();
    void TakeUpLeftByOthers();

    void AddNewActions(QMenu* menu);
    void NewRecord();
    void CopyRecord();
    void AddRecord(const Record& record);
    void ShowListing();
    void DiscardNewRecord();
    void SaveRecordAsWorkform();
    bool MayReplaceWorkform(const QString& name);
    void SayWorkformSaved(const QString& name, const std::vector<Place>& leftOut);

    // In the status bar, for a moment.
    void SayShortly(const QString& text);
    bool FinishEditing();
    void TakeRecord();
    void ShowLosses(const Losses& losses);
    void ShowHelp();
    void AddField();
    void Repair();
    void TypeCharacter(unsigned id);
    void Undo();
    void Redo();
    void GoThroughSteps(void (EditSession::*step)());
    void SetDisplay(int display);
    void SetDark(bool isDark);
    // False, with a message, if the work failed.
    bool Try(const Handler& work);

    Desk& desk_;
    DeskSettings& settings_;
    std::unique_ptr<Document> document_;
    std::optional<std::size_t> current_;
    OpenRecord record_;
    std::unique_ptr<EditJournal> journal_;       // null if changes can't be kept
    std::map<std::size_t, std::uint64_t> kept_;  // by record, the sign of what the journal has
    QString lost_;           // what is said of characters that the record can't hold
    bool isUnsafe_ = false;  // the journal could not be written
    std::map<std::size_t, std::string> refused_;  // by record, as lines: what it could not become
    std::string refusedPath_;                     // where that is kept

    QStackedWidget* pages_ = nullptr;
    QSplitter* panes_ = nullptr;
    HoldBar* hold_ = nullptr;
    MessageBar* messages_ = nullptr;
    MessageBar* left_ = nullptr;  // offers what another window left
    bool isLeftOffered_ = false;
    QLineEdit* filter_ = nullptr;
    RecordListModel* listModel_ = nullptr;
    QTableView* list_ = nullptr;
    QTabWidget* tabs_ = nullptr;
    RecordTable* table_ = nullptr;
    LinesEditor* lines_ = nullptr;
    CodedEditor* coded_ = nullptr;
    CopiesEditor* copies_ = nullptr;
    QLabel* helpHeading_ = nullptr;
    QPlainTextEdit* help_ = nullptr;
    QLabel* findingsHeading_ = nullptr;
    FindingsList* findings_ = nullptr;
    CharacterPalette* palette_ = nullptr;
    QLabel* counts_ = nullptr;
    QProgressBar* progress_ = nullptr;
    QTimer* work_ = nullptr;
    QTimer* checks_ = nullptr;
    QTimer* keeping_ = nullptr;
    QTimer* waiting_ = nullptr;  // for a file that another window has
    QTimer* typing_ = nullptr;   // in the filter
    bool isSorted_ = false;
    bool isMatchWanted_ = false;  // of the filter, in place of a record that is none
    std::vector<std::pair<QAction*, Needs>> actions_;
    QAction* undo_ = nullptr;
    QAction* new_ = nullptr;
    QAction* open_ = nullptr;
    QAction* save_ = nullptr;
    QAction* redo_ = nullptr;
    QAction* addField_ = nullptr;
    QAction* repair_ = nullptr;
};

}  // namespace quillory
