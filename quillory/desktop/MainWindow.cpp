#include <quillory/desktop/CharacterPalette.h>
#include <quillory/desktop/CodedEditor.h>
#include <quillory/desktop/CopiesEditor.h>
#include <quillory/desktop/Desk.h>
#include <quillory/desktop/DeskSettings.h>
#include <quillory/desktop/Document.h>
#include <quillory/desktop/FindingsList.h>
#include <quillory/desktop/HoldBar.h>
#include <quillory/desktop/LinesEditor.h>
#include <quillory/desktop/MainWindow.h>
#include <quillory/desktop/MarcView.h>
#include <quillory/desktop/MessageBar.h>
#include <quillory/desktop/RecordListModel.h>
#include <quillory/desktop/RecordListView.h>
#include <quillory/desktop/RecordModel.h>
#include <quillory/desktop/RecordTable.h>
#include <quillory/desktop/Texts.h>
#include <quillory/jobs/EditJournal.h>
#include <quillory/reports/PlaceHelp.h>

#include <QElapsedTimer>
#include <QFontDatabase>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

namespace quillory {
namespace {

constexpr int kCheckPause = 150;      // milliseconds after a change
constexpr int kFilterPause = 300;     // after the last key
constexpr int kWorkMilliseconds = 8;  // at a time, so that the window goes on smoothly
constexpr std::size_t kWorkRecords = 64;
constexpr int kShares = 1000;
constexpr int kLeastHelpLines = 3;
constexpr int kSideChars = 28;  // in which a finding can be read

QLabel* Heading(QWidget* parent) {
    auto* label = new QLabel(parent);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    label->setWordWrap(true);
    label->setMargin(4);
    return label;
}

// Columns of a line stand below those of others only where all signs have one width.
QString WithoutColumns(QString text) {
    static const QRegularExpression kGap(QStringLiteral("(?<=\\S) {3,}"));
    return text.replace(kGap, QStringLiteral(": "));
}

}  // namespace

MainWindow::MainWindow(Desk& desk, DeskSettings& settings)
    : desk_(desk),
      settings_(settings),
      work_(new QTimer(this)),
      checks_(new QTimer(this)),
      typing_(new QTimer(this)) {
    setAcceptDrops(true);
    MakeCentre();
    MakeMenus();
    MakeToolBar();
    counts_ = new QLabel(this);
    progress_ = new QProgressBar(this);
    progress_->setRange(0, kShares);
    progress_->setMaximumWidth(160);
    progress_->hide();
    statusBar()->addPermanentWidget(progress_);
    statusBar()->addWidget(counts_);
    checks_->setSingleShot(true);
    checks_->setInterval(kCheckPause);
    typing_->setSingleShot(true);
    typing_->setInterval(kFilterPause);
    connect(work_, &QTimer::timeout, this, &MainWindow::WorkOn);
    connect(checks_, &QTimer::timeout, this, &MainWindow::CheckNow);
    connect(typing_, &QTimer::timeout, this, [this] { Filter(filter_->text()); });
    connect(&record_, &OpenRecord::Replaced, this, &MainWindow::CheckNow);
    connect(&record_, &OpenRecord::Changed, this, [this] {
        checks_->start();
        UpdateActions();
    });
    MakeJournalTimer();
    table_->SetDisplay(desk_.Display());
    resize(QSize(1366, 768).boundedTo(screen()->availableSize()));
    const int side = std::max(2 * width() / 10, kSideChars * fontMetrics().averageCharWidth());
    panes_->setSizes({3 * (width() - side) / 8, 5 * (width() - side) / 8, side});
    restoreGeometry(settings_.State(QStringLiteral("window/geometry")));
    panes_->restoreState(settings_.State(QStringLiteral("window/panes")));
    ShowFile();
}

// What is being typed needs the record, which goes before the widgets do.
MainWindow::~MainWindow() {
    table_->Finish();
}

void MainWindow::MakeCentre() {
    auto* centre = new QWidget(this);
    auto* layout = new QVBoxLayout(centre);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    MakeHoldBar(centre);
    messages_ = new MessageBar(centre);
    left_ = new MessageBar(centre);
    connect(left_, &MessageBar::ActionAsked, this, &MainWindow::TakeUpLeftByOthers);
    pages_ = new QStackedWidget(centre);
    panes_ = new QSplitter(Qt::Horizontal, pages_);
    panes_->setChildrenCollapsible(false);
    panes_->addWidget(MakeList());
    panes_->addWidget(MakeEditor());
    panes_->addWidget(MakeSide());
    panes_->setStretchFactor(0, 3);
    panes_->setStretchFactor(1, 5);
    panes_->setStretchFactor(2, 2);
    pages_->addWidget(MakeWelcome());
    pages_->addWidget(panes_);
    pages_->addWidget(MakeEmptyStore());
    layout->addWidget(hold_);
    layout->addWidget(left_);
    layout->addWidget(messages_);
    layout->addWidget(pages_, 1);
    setCentralWidget(centre);
}

QWidget* MainWindow::MakeWelcome() {
    auto* page = new QWidget(this);
    auto* layout = new QVBoxLayout(page);
    auto* words = new QLabel(
        tr("Open a file of records or the store, make a record, or try the samples."), page);
    QFont font = words->font();
    font.setPointSizeF(font.pointSizeF() * 1.4);
    words->setFont(font);
    words->setAlignment(Qt::AlignCenter);
    words->setWordWrap(true);
    auto* hint = new QLabel(tr("A file can also be dropped anywhere on this window."), page);
    hint->setAlignment(Qt::AlignCenter);
    auto* open = new QPushButton(tr("&Open a File…"), page);
    auto* make = new QPushButton(tr("&Make a Record…"), page);
    auto* store = new QPushButton(tr("Open the S&tore"), page);
    auto* samples = new QPushButton(tr("Try the &Samples"), page);
    connect(make, &QPushButton::clicked, this, &MainWindow::NewRecord);
    connect(open, &QPushButton::clicked, this, &MainWindow::ChooseFile);
    connect(store, &QPushButton::clicked, this, &MainWindow::OpenStore);
    connect(samples, &QPushButton::clicked, this, &MainWindow::OpenSamples);
    layout->addStretch(2);
    layout->addWidget(words);
    for (QPushButton* button : {open, make, store, samples}) {
        button->setMinimumSize(220, 40);
        layout->addWidget(button, 0, Qt::AlignHCenter);
    }
    layout->addWidget(hint);
    layout->addStretch(3);
    return page;
}

QWidget* MainWindow::MakeList() {
    listModel_ = new RecordListModel(desk_, this);
    list_ = new RecordListView(listModel_, this);
    connect(list_->horizontalHeader(), &QHeaderView::sortIndicatorChanged, this, &MainWindow::Sort);
    connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& now) { FollowRow(now); });
    connect(list_, &QTableView::activated, this, &MainWindow::GoIntoRecord);
    return list_;
}

QWidget* MainWindow::MakeEditor() {
    tabs_ = new QTabWidget(this);
    table_ = new RecordTable(record_, tabs_);
    lines_ = new LinesEditor(record_, tabs_);
    tabs_->addTab(table_, tr("Record"));
    tabs_->addTab(lines_, tr("As Text"));
    MakeCoded();
    MakeCopies();
    connect(lines_, &LinesEditor::Typed, this, &MainWindow::UpdateActions);
    connect(table_, &RecordTable::PlaceChanged, this, &MainWindow::ShowHelp);
    connect(table_, &RecordTable::Said, this, &MainWindow::SayShortly);
    connect(tabs_, &QTabWidget::currentChanged, this, [this](int tab) {
        const bool isText = tabs_->widget(tab) == lines_;
        if (tabs_->widget(tab) != table_) table_->Finish();
        if (!isText && !lines_->Finish()) {
            tabs_->setCurrentWidget(lines_);
            return;
        }
        lines_->SetActive(isText);
        coded_->SetActive(IsCodedShown());
        ShowHelp();
        UpdateActions();
    });
    return tabs_;
}

QWidget* MainWindow::MakeSide() {
    auto* side = new QSplitter(Qt::Vertical, this);
    auto* above = new QWidget(side);
    auto* aboveLayout = new QVBoxLayout(above);
    helpHeading_ = Heading(above);
    help_ = new QPlainTextEdit(above);
    help_->setReadOnly(true);
    help_->setTabChangesFocus(true);
    help_->setMinimumHeight(kLeastHelpLines * fontMetrics().lineSpacing());
    help_->setAccessibleName(tr("What is known of the field in hand"));
    aboveLayout->addWidget(helpHeading_);
    aboveLayout->addWidget(help_, 1);
    auto* below = new QWidget(side);
    auto* belowLayout = new QVBoxLayout(below);
    findingsHeading_ = Heading(below);
    findings_ = new FindingsList(below);
    belowLayout->addWidget(findingsHeading_);
    belowLayout->addWidget(findings_, 1);
    for (QVBoxLayout* layout : {aboveLayout, belowLayout}) {
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
    }
    side->addWidget(MakePalette(side));
    connect(findings_, &FindingsList::Chosen, this, &MainWindow::GoToFinding);
    return side;
}

QWidget* MainWindow::MakePalette(QWidget* side) {
    palette_ = new CharacterPalette(side);
    palette_->hide();
    table_->SetCompanion(palette_);
    connect(palette_, &CharacterPalette::Chosen, this, &MainWindow::TypeCharacter);
    connect(palette_, &CharacterPalette::Left, this, &MainWindow::GoIntoRecord);
    return palette_;
}

// The view that is shown takes the keys.
void MainWindow::GoIntoRecord() {
    const QWidget* view = tabs_->currentWidget();
    if (view == lines_) {
        lines_->Box().setFocus();
    } else if (view == coded_) {
        coded_->GoTo(coded_->CurrentPlace());
    } else if (view == copies_) {
        copies_->TakeFocus();
    } else {
        table_->TakeFocus();
    }
}

void MainWindow::TypeCharacter(unsigned id) {
    if (tabs_->currentWidget() == lines_) {
        lines_->Box().setFocus();
        lines_->Box().insertPlainText(CharacterText(id));
    } else if (!table_->TypeCharacter(id)) {
        messages_->Say(tr("Go to the text of a subfield first: the character is typed there."));
    }
}

bool MainWindow::Try(const Handler& work) {
    try {
        work();
        return true;
    } catch (const std::runtime_error& error) {
        messages_->Warn(ToQt(error.what()));
        return false;
    }
}

bool MainWindow::IsWorking() const {
    return work_->isActive();
}

// A slice of what takes time: the index, the filter, the order.
void MainWindow::WorkOn() {
    if (document_ == nullptr) return work_->stop();
    Try([this] {
        QElapsedTimer time;
        time.start();
        bool goesOn = true;
        while (goesOn && !time.hasExpired(kWorkMilliseconds)) {
            goesOn = document_->Listing().Work(kWorkRecords);
        }
        if (!goesOn) work_->stop();
    });
    if (!document_->Listing().IsDone()) {
        listModel_->Grow();
    } else {
        work_->stop();
        if (isSorted_) {
            listModel_->Renew();
        } else {
            listModel_->Grow();
        }
        SelectCurrentRow();
    }
    if (!current_ && document_->Listing().Size() > 0) ShowRecord(document_->Listing().At(0));
    GoToMatch();
    ShowCounts();
}

void MainWindow::ShowCounts() {
    ShowPage();
    if (document_ == nullptr) {
        counts_->clear();
        progress_->hide();
        return;
    }
    RecordListing& listing = document_->Listing();
    const std::size_t size = document_->File().Size();
    QString text = size == 1 ? tr("1 record") : tr("%L1 records").arg(size);
    if (listing.IsFiltered()) text += tr(", %L1 shown").arg(listing.Size());
    if (const std::size_t changes = document_->File().Changes()) {
        text += tr(", %L1 changed and not saved").arg(changes);
    }
    counts_->setText(text);
    progress_->setVisible(!listing.IsDone());
    progress_->setValue(static_cast<int>(listing.Share() * kShares));
    setWindowModified(document_->IsChanged());
}

bool MainWindow::Filter(const QString& typed) {
    if (document_ == nullptr) return false;
    typing_->stop();
    isMatchWanted_ = false;
    if (filter_->text() != typed) filter_->setText(typed);
    const bool isUnderstood = Try([&] {
        document_->Listing().Filter(typed.toStdString());
        listModel_->Renew();
        messages_->hide();
        work_->start();
        ShowCounts();
    });
    typing_->stop();
    return isUnderstood;
}

void MainWindow::Sort(int column, Qt::SortOrder order) {
    if (document_ == nullptr) return;
    isSorted_ = column > 0;
    const auto which = isSorted_ ? static_cast<ListColumn>(column) : ListColumn::Number;
    document_->Listing().Sort(which, isSorted_ && order == Qt::DescendingOrder);
    listModel_->Renew();
    work_->start();
}

void MainWindow::FollowRow(const QModelIndex& index) {
    const auto record = listModel_->RecordAt(index);
    if (record && record != current_) ShowRecord(*record);
}

// None, if the list does not have the record in hand.
void MainWindow::SelectCurrentRow() {
    const auto row = current_ ? document_->Listing().RowOf(*current_) : std::nullopt;
    if (!row) return list_->selectionModel()->clear();
    if (static_cast<int>(*row) >= listModel_->rowCount()) return;
    const QModelIndex index = listModel_->index(static_cast<int>(*row), 1);
    if (list_->selectionModel()->isRowSelected(index.row())) return;
    list_->setCurrentIndex(index);
    list_->scrollTo(index);
}

// When all are found, the first one, unless the record in hand is one.
void MainWindow::GoToMatch() {
    RecordListing& listing = document_->Listing();
    if (!isMatchWanted_ || !listing.IsDone()) return;
    isMatchWanted_ = false;
    const bool isMatch = current_ && listing.RowOf(*current_).has_value();
    if (listing.Size() == 0) SayShortly(tr("No record is found."));
    if (!isMatch && listing.Size() > 0) ShowRecord(listing.At(0));
}

void MainWindow::ShowRecord(std::size_t record) {
    if (document_ == nullptr || record >= document_->File().Size()) return;
    if (!FinishEditing()) return SelectCurrentRow();
    TakeRecord();
    const auto former = current_;
    Try([&] {
        EditSession* session = document_->SessionOf(record);
        current_ = record;
        record_.Show(session, IsHeldByAnother() || !HolderInHand().isEmpty());
        if (former && former != record) document_->Leave(*former);
    });
    ShowHold();
    SelectCurrentRow();
    ShowHelp();
    UpdateActions();
}

// What is being typed becomes a part of the record. False if it can't be read.
bool MainWindow::FinishEditing() {
    table_->Finish();
    coded_->Finish();
    copies_->Finish();
    const QString unread = tr(
        "The text of the record can't be read yet: see below it. Undo takes back what was typed.");
    const bool isRead = lines_->Finish();
    if (!isRead) messages_->Warn(unread);
    if (isRead && messages_->Text() == unread) messages_->hide();
    return isRead;
}

// The list and the file know of what was edited.
void MainWindow::TakeRecord() {
    if (!current_ || record_.Session() == nullptr) return;
    KeepChanges();
    const Losses losses = document_->Take(*current_);
    ShowLosses(losses);
    listModel_->Refresh(*current_);
    ShowCounts();
}

// What else the status bar says stays, unless something is lost.
void MainWindow::ShowLosses(const Losses& losses) {
    const QString lost = losses.Empty() ? QString()
                                        : tr("Not in the character set of this record: %1")
                                              .arg(ToQt(losses.Text("")).simplified());
    if (lost.isEmpty() && !lost_.isEmpty()) statusBar()->clearMessage();
    if (!lost.isEmpty()) statusBar()->showMessage(lost);
    lost_ = lost;
}

void MainWindow::SayShortly(const QString& text) {
    constexpr int kShortly = 5000;  // milliseconds
    statusBar()->showMessage(text, kShortly);
}

void MainWindow::CheckNow() {
    checks_->stop();
    TakeRecord();
    UpdateActions();
    if (record_.Session() == nullptr) {
        findings_->Show({});
        findingsHeading_->setText(tr("Findings"));
        return;
    }
    Record record;
    Losses unused;
    record_.Session()->Give(record, unused);
    const std::vector<Remark> remarks = desk_.Check(record);
    const bool isIso2709 = document_->File().GetForm().name == Forms().front().name;
    const auto obstacle =
        record_.Session()->IsChanged() ? record_.Session()->WhatIsWrong(isIso2709) : std::nullopt;
    table_->Model().SetRemarks(remarks);
    coded_->SetRemarks(remarks);
    findings_->Show(remarks, obstacle);
    findingsHeading_->setText(remarks.empty() ? tr("Findings: none")
                                              : tr("Findings (%1)").arg(remarks.size()));
}

void MainWindow::ShowHelp() {
    if (current_ && record_.Session() == nullptr && document_ != nullptr) {
        const ItemFault* fault = document_->File().FaultAt(*current_);
        helpHeading_->setText(tr("Damaged record"));
        help_->setPlainText(tr("This record can't be read: %1\n\nIts bytes stay as they are when "
                               "the file is saved.")
                                .arg(fault == nullptr ? QString() : ToQt(FaultText(*fault))));
        return;
    }
    const Place place = table_->CurrentPlace();
    if (record_.Session() == nullptr || place.IsRecord()) {
        helpHeading_->setText(tr("Nothing in hand"));
        help_->clear();
        return;
    }
    if (ShowCodedHelp() || ShowCopyHelp()) return;
    const PlaceHelp help =
        HelpOn(place, record_.Session()->InUtf8(), desk_.GetDecoder(), zorby::EDO_CodeAndName);
    helpHeading_->setText(ToQt(help.heading));
    const QString text = ToQt(help.text);
    const QString flowing = WithoutColumns(text);
    const bool isTable = place.IsControl() && flowing != text;
    help_->setFont(isTable ? QFontDatabase::systemFont(QFontDatabase::FixedFont) : font());
    help_->setPlainText(isTable ? text : flowing);
}

void MainWindow::ShowFile() {
    const bool isOpen = document_ != nullptr;
    const QString name = !isOpen                   ? QString()
                         : document_->IsUntitled() ? tr("New records")
                         : document_->IsStore()    ? tr("Store")
                                                   : ToQt(document_->File().Path());
    const QString sign = IsHeldByAnother() ? tr(" (read only)") : QStringLiteral("[*]");
    setWindowTitle(isOpen ? name + sign : name);
    filter_->setEnabled(isOpen);
    ShowCounts();
    UpdateActions();
}

}  // namespace quillory
