#include <quillory/coded/Material.h>
#include <quillory/desktop/CodedEditor.h>
#include <quillory/desktop/FieldPicker.h>
#include <quillory/desktop/HoldBar.h>
#include <quillory/desktop/RecordTable.h>
#include <quillory/desktop/Texts.h>
#include <quillory/desktop/WindowSize.h>
#include <quillory/desktop/WorkformEditor.h>
#include <quillory/desktop/WorkformList.h>
#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/text/QmText.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTabWidget>
#include <QTimer>
#include <QToolBar>
#include <QUndoStack>
#include <QVBoxLayout>
#include <iterator>
#include <string>
#include <unistd.h>
#include <utility>

namespace quillory {
namespace {

constexpr int kWidth = 1100;
constexpr int kHeight = 640;
constexpr int kWait = 1000;  // milliseconds

// The texts that help with a subfield, in the order in which they are shown.
constexpr std::string SubfieldHelp::*kHelpTexts[] = {&SubfieldHelp::rules, &SubfieldHelp::reminder,
                                                     &SubfieldHelp::examples};

int HelpStep(const SubfieldOfTag& subfield, int which) {
    constexpr int kCodes = 256;
    constexpr auto kTexts = static_cast<int>(std::size(kHelpTexts));
    const int place = static_cast<int>(subfield.tag) * kCodes + static_cast<uchar>(subfield.code);
    return place * kTexts + which;
}

}  // namespace

// From one content to the next. Nothing is done again when it is pushed.
class WorkformEditor::Step : public QUndoCommand {
public:
    Step(WorkformEditor& editor, WorkformContent before, WorkformContent after, int kind)
        : editor_(editor), before_(std::move(before)), after_(std::move(after)), kind_(kind) {}

    void undo() override { editor_.Give(before_); }
    void redo() override {
        if (isDone_) editor_.Give(after_);
        isDone_ = true;
    }
    int id() const override { return kind_; }
    bool mergeWith(const QUndoCommand* next) override {
        after_ = static_cast<const Step*>(next)->after_;
        return true;
    }

private:
    WorkformEditor& editor_;
    WorkformContent before_;
    WorkformContent after_;
    int kind_;
    bool isDone_ = false;
};

WorkformEditor::WorkformEditor(const CodeLists& lists, QWidget* parent)
    : QDialog(parent),
      undo_(new QUndoStack(this)),
      hold_(new HoldBar(this)),
      waiting_(new QTimer(this)),
      list_(new WorkformList(
          [this](int id) { return MaterialText(ContentOf(workforms_->Get(id)).record.leader); },
          this)),
      copy_(new QPushButton(tr("Copy to &Edit"), this)),
      remove_(new QPushButton(tr("&Delete…"), this)),
      save_(new QPushButton(tr("&Save"), this)),
      name_(new QLineEdit(this)),
      material_(new QLabel(this)),
      tools_(new QToolBar(this)),
      tabs_(new QTabWidget(this)),
      helpHeading_(new QLabel(this)),
      isAsked_(new QCheckBox(tr("&Ask for it when a record is made"), this)),
      said_(new QLabel(this)) {
    const Reporter reporter(messages_, {.quiet = true});
    workforms_.emplace(reporter);
    setWindowTitle(tr("Workforms") + QStringLiteral("[*]"));
    ResizeToScreen(*this, {kWidth, kHeight});
    auto* panes = new QSplitter(this);
    panes->setChildrenCollapsible(false);
    panes->addWidget(MakeList());
    panes->addWidget(MakeContent(lists));
    panes->setStretchFactor(1, 1);
    panes->setSizes({width() * 3 / 10, width() * 7 / 10});
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(hold_);
    layout->addWidget(panes, 1);
    layout->addWidget(said_);
    layout->addWidget(MakeButtons());
    hold_->CopyButton().hide();
    waiting_->setInterval(kWait);
    connect(waiting_, &QTimer::timeout, this, &WorkformEditor::ShowHold);
    connect(hold_, &HoldBar::TakeAsked, this, &WorkformEditor::TakeOver);
    connect(list_, &WorkformList::Changed, this, &WorkformEditor::Follow);
    connect(undo_, &QUndoStack::indexChanged, this, &WorkformEditor::Update);
    list_->Fill(*workforms_);
    list_->setFocus();
}

// What is being typed needs the record, which goes before the widgets do, and they speak to the
// end.
WorkformEditor::~WorkformEditor() {
    isShowing_ = true;
    table_->Finish();
    undo_->disconnect(this);
    for (QWidget* part : findChildren<QWidget*>()) part->disconnect(this);
}

void WorkformEditor::AddField() {
    FinishTyping();
    tabs_->setCurrentWidget(table_);
    FieldPicker picker(this);
    if (picker.exec() == QDialog::Accepted && !picker.Tag().empty()) table_->AddField(picker.Tag());
}

// The choice in the list goes back if the one in hand has to stay.
void WorkformEditor::Follow() {
    const int id = list_->Chosen();
    if (id != 0 && MayLeave() && Show(id)) return;
    const QSignalBlocker quiet(list_);
    if (from_) list_->Choose(from_->GetOwnID());
}

bool WorkformEditor::Show(int id) {
    const bool isStandard = id < kFirstUserWorkformId;
    const int own = isStandard ? 0 : id;
    try {
        if (!isStandard && !workforms_->Store()->FindById(id)) {
            ShowGone();
            return false;
        }
        WorkformContent content = ContentOf(workforms_->Get(id));
        Lock(own);
        isStandard_ = isStandard;
        Begin(std::move(content), id, own);
        said_->hide();
        Update();
        return true;
    } catch (const FaultError& error) {
        Warn(ToQt(error.what()));
    }
    const bool isOwnLost = own_ != 0 && !isHeld_ && locked_ != own_;
    if (isOwnLost) LockAgain();
    return false;
}

void WorkformEditor::Copy() {
    const int id = list_->Chosen();
    if (!MayLeave() || id == 0 || !Show(id)) return;
    WorkformContent copy = now_;
    copy.name = tr("%1 (copy)").arg(ToQt(copy.name)).toStdString();
    Begin(std::move(copy), id, 0);
    isStandard_ = false;
    Lock(0);
    Update();
    name_->setFocus();
    name_->selectAll();
}

// Another window has renamed or deleted what is chosen in the list.
void WorkformEditor::ShowGone() {
    FillList(0);
    Show(list_->Chosen());
    Warn(tr("That workform is not there any more: another window has renamed or deleted it."));
}

// One of the user's, in the place of the one that was locked before; 0 for none.
void WorkformEditor::Lock(int id) {
    Unlock();
    isHeld_ = id != 0 && !workforms_->Store()->Lock(id, getpid());
    if (!isHeld_) locked_ = id;
}

void WorkformEditor::Unlock() {
    if (locked_ != 0) workforms_->Store()->Unlock(locked_);
    locked_ = 0;
}

// Asks again from time to time, so that a person knows when it is free.
void WorkformEditor::ShowHold() {
    if (!isHeld_) {
        waiting_->stop();
        hold_->hide();
        return;
    }
    waiting_->start();
    if (HolderNow() == 0) {
        hold_->ShowFree(
            tr("This workform is open in no other window any more. Take it over to "
               "change it: it is read again then."));
    } else {
        hold_->ShowHeld(
            tr("This workform is open in another window. Here it can be read, and "
               "copied to be edited. It can be taken over when that window has left "
               "it."));
    }
}

// The number of the program that has the one in hand; 0 for none.
int WorkformEditor::HolderNow() {
    try {
        const auto known = workforms_->Store()->FindById(own_);
        return known ? known->holder : 0;
    } catch (const FaultError& error) {
        Warn(ToQt(error.what()));
        return 0;
    }
}

// What was changed here before the other window had it is not given up unasked.
void WorkformEditor::TakeOver() {
    if (undo_->isClean()) {
        Show(own_);
        return;
    }
    QMessageBox box(QMessageBox::Question, tr("Workforms"),
                    tr("The other window may have saved “%1”. Read it again, and give up what you "
                       "changed here? Or keep yours, which replaces it when you save?")
                        .arg(name_->text()),
                    QMessageBox::Cancel, this);
    const auto* again = box.addButton(tr("&Read Again"), QMessageBox::DestructiveRole);
    const auto* mine = box.addButton(tr("&Keep Mine"), QMessageBox::AcceptRole);
    box.exec();
    if (box.clickedButton() == again) Show(own_);
    if (box.clickedButton() == mine) LockAgain();
}

// The workforms as the store has them now, at the one of this ID if it is there.
void WorkformEditor::FillList(int id) {
    const QSignalBlocker quiet(list_);
    list_->Search().clear();
    list_->Fill(*workforms_);
    list_->Choose(id);
}

void WorkformEditor::Begin(WorkformContent content, int from, int own) {
    isShowing_ = true;
    table_->Finish();
    from_ = workforms_->Get(from);
    own_ = own;
    session_ = std::make_unique<EditSession>(RecordOf(content.record), kCharsetUtf8);
    content.record = session_->Now();
    now_ = std::move(content);
    before_.clear();
    name_->setText(ToQt(now_.name));
    record_.Show(session_.get());
    undo_->clear();
    isShowing_ = false;
    ShowHelp();
}

// Whether the one in hand may be left, saved or not.
bool WorkformEditor::MayLeave() {
    FinishTyping();
    if (undo_->isClean()) return true;
    const auto answer = QMessageBox::question(
        this, tr("Workforms"), tr("Save the changes of the workform “%1”?").arg(name_->text()),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    if (answer == QMessageBox::Save) return Save();
    return answer == QMessageBox::Discard;
}

void WorkformEditor::reject() {
    if (MayLeave()) QDialog::reject();
}

void WorkformEditor::FinishTyping() {
    table_->Finish();
    coded_->Finish();
}

WorkformContent WorkformEditor::Content() const {
    return {name_->text().trimmed().toStdString(), session_->Now(), now_.helps};
}

void WorkformEditor::Note(int kind) {
    if (isShowing_ || session_ == nullptr) return;
    WorkformContent content = Content();
    if (content == now_) return;
    undo_->push(new Step(*this, std::exchange(now_, content), content, kind));
}

void WorkformEditor::NoteTypedHelp(int which) {
    const Place place = table_->CurrentPlace();
    NoteHelp(HelpStep({place.Number(), place.code}, which));
}

void WorkformEditor::NoteHelp(int kind) {
    const Place place = table_->CurrentPlace();
    if (isShowing_ || place.code == '\0') return;
    const SubfieldOfTag subfield{place.Number(), place.code};
    before_.emplace(subfield, HelpOf(subfield, *from_));
    WorkformContent content = now_;
    SubfieldHelp& help = content.helps[subfield];
    help.isAsked = isAsked_->isChecked();
    for (std::size_t i = 0; i < texts_.size(); ++i) {
        help.*kHelpTexts[i] = TextIn(*texts_[i]).toStdString();
    }
    undo_->push(new Step(*this, std::exchange(now_, content), content, kind));
}

void WorkformEditor::Give(const WorkformContent& content) {
    isShowing_ = true;
    now_ = content;
    name_->setText(ToQt(content.name));
    record_.Do([&](EditSession& session) { session.Become(content.record); });
    isShowing_ = false;
    ShowHelp();
}

// A change that was undone after it was saved gives what was before.
SubfieldHelp WorkformEditor::HelpNow(const SubfieldOfTag& subfield) const {
    for (const SubfieldHelps* helps : {&now_.helps, &before_}) {
        if (const auto known = helps->find(subfield); known != helps->end()) return known->second;
    }
    return HelpOf(subfield, *from_);
}

// What is asked and said of the subfield in hand.
void WorkformEditor::ShowHelp() {
    if (isShowing_ || session_ == nullptr) return;
    isShowing_ = true;
    const bool isTable = tabs_->currentWidget() == table_;
    helpHeading_->parentWidget()->setVisible(isTable);
    const Place place = isTable ? table_->CurrentPlace() : Place::OfRecord();
    const bool isSubfield = place.code != '\0' && place.Number() != kNoTag;
    const SubfieldOfTag subfield{place.Number(), place.code};
    const SubfieldHelp help = isSubfield ? HelpNow(subfield) : SubfieldHelp();
    helpHeading_->setText(isSubfield ? tr("When a record is made: %1").arg(ToQt(PlaceText(place)))
                                     : tr("When a record is made: no subfield is in hand"));
    isAsked_->setChecked(help.isAsked);
    isAsked_->setEnabled(isSubfield && !IsFixed());
    for (std::size_t i = 0; i < texts_.size(); ++i) {
        const QString text = ToQt(help.*kHelpTexts[i]);
        if (TextIn(*texts_[i]) != text) texts_[i]->setPlainText(text);
        texts_[i]->setReadOnly(!isSubfield || IsFixed());
    }
    isShowing_ = false;
}

// What can be done with the one in hand.
void WorkformEditor::Update() {
    ShowHold();
    const QString material = ToQt(MaterialText(now_.record.leader));
    material_->setText(isStandard_
                           ? tr("%1; a standard workform, which a copy can change").arg(material)
                           : material);
    setWindowModified(!undo_->isClean());
    name_->setReadOnly(IsFixed());
    tools_->setEnabled(!IsFixed());
    coded_->setEnabled(!IsFixed());
    table_->setAcceptDrops(!IsFixed());
    table_->setEditTriggers(
        IsFixed() ? QAbstractItemView::NoEditTriggers
                  : QAbstractItemView::DoubleClicked | QAbstractItemView::AnyKeyPressed |
                        QAbstractItemView::EditKeyPressed | QAbstractItemView::SelectedClicked);
    const bool isUnsaved = own_ == 0 || !undo_->isClean();
    save_->setEnabled(!IsFixed() && isUnsaved);
    remove_->setEnabled(own_ != 0 && !isHeld_);
    ShowHelp();
}

bool WorkformEditor::Save() {
    FinishTyping();
    WorkformContent content = now_;
    content.helps.insert(before_.begin(), before_.end());
    try {
        Unlock();
        const SavedWorkform saved = SaveWorkform(content, from_->GetOwnID(), own_);
        Renew(saved.id);
        QString text = tr("“%1” is saved.").arg(ToQt(content.name));
        for (const Place& place : saved.leftOut) {
            text += u' ' + tr("It has no room for %1.").arg(ToQt(PlaceText(place)));
        }
        Say(text);
        return true;
    } catch (const UsageError& error) {
        const bool isThere = error.What().code == FaultCode::kWorkformThere;
        Warn(isThere ? tr("There is a workform of that name already.") : ToQt(error.what()));
        name_->setFocus();
    } catch (const FaultError& error) {
        Warn(ToQt(error.what()));
    }
    LockAgain();
    return false;
}

// What could not be saved or deleted stays locked.
void WorkformEditor::LockAgain() {
    try {
        Lock(own_);
        Update();
    } catch (const FaultError& error) {
        Warn(ToQt(error.what()));
    }
}

// The store has changed, or is there for the first time.
void WorkformEditor::ReadStore() {
    if (workforms_->Store() != nullptr) return;
    const Reporter reporter(messages_, {.quiet = true});
    from_.reset();
    workforms_.emplace(reporter);
}

void WorkformEditor::Renew(int id) {
    ReadStore();
    from_ = workforms_->Get(id);
    own_ = id;
    Lock(id);
    FillList(id);
    undo_->setClean();
    Update();
}

void WorkformEditor::Remove() {
    const bool isMeant =
        own_ != 0 &&
        QMessageBox::question(this, tr("Workforms"),
                              tr("Delete the workform “%1”? That can't be undone.")
                                  .arg(ToQt(QmToUtf8(from_->GetName())))) == QMessageBox::Yes;
    if (!isMeant) return;
    try {
        Unlock();
        DeleteWorkform(own_);
        undo_->clear();
        {
            const QSignalBlocker quiet(list_);
            list_->Search().clear();
        }
        list_->Fill(*workforms_);
        return;
    } catch (const FaultError& error) {
        Warn(ToQt(error.what()));
    }
    LockAgain();
}

void WorkformEditor::Say(const QString& text) {
    said_->setText(text);
    said_->show();
}

void WorkformEditor::Warn(const QString& text) {
    Say(SignOf(Severity::Error) + u' ' + text);
}

QString WorkformEditor::Said() const {
    return said_->text();
}

}  // namespace quillory
