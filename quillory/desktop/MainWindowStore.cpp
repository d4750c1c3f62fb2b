#include <quillory/desktop/CollectedMessages.h>
#include <quillory/desktop/Document.h>
#include <quillory/desktop/MainWindow.h>
#include <quillory/desktop/MessageBar.h>
#include <quillory/desktop/Texts.h>
#include <quillory/jobs/StoreJobs.h>
#include <quillory/store/HomeFolder.h>
#include <quillory/store/Schema.h>

#include <QFileDialog>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

// The window's part in the store.
namespace quillory {
namespace {

enum Page : int { kWelcome, kEditor, kEmptyStore };

}  // namespace

void MainWindow::OpenStore() {
    Try([this] { Open(ToQt(StorePath())); });
}

void MainWindow::ShowPage() {
    const bool isOpen = document_ != nullptr;
    const bool isEmptyStore = isOpen && document_->IsStore() && document_->File().Size() == 0;
    pages_->setCurrentIndex(isEmptyStore ? kEmptyStore : isOpen ? kEditor : kWelcome);
}

QWidget* MainWindow::MakeEmptyStore() {
    auto* page = new QWidget(this);
    auto* layout = new QVBoxLayout(page);
    auto* words = new QLabel(
        tr("The store keeps your records in one place, with what they were before each change. "
           "It has none yet."),
        page);
    words->setAlignment(Qt::AlignCenter);
    words->setWordWrap(true);
    auto* add = new QPushButton(tr("&Add the Records of a File…"), page);
    auto* make = new QPushButton(tr("&Make a Record…"), page);
    connect(add, &QPushButton::clicked, this, &MainWindow::ChooseFileForStore);
    connect(make, &QPushButton::clicked, this, &MainWindow::NewRecord);
    layout->addStretch(2);
    layout->addWidget(words);
    for (QPushButton* button : {add, make}) {
        button->setMinimumSize(260, 40);
        layout->addWidget(button, 0, Qt::AlignHCenter);
    }
    layout->addStretch(3);
    return page;
}

void MainWindow::ChooseFileForStore() {
    const QString path = QFileDialog::getOpenFileName(this, tr("Add the records of a file"));
    if (!path.isEmpty()) AddToStore(path);
}

// What was changed before is saved, or discarded, first: the list is read again.
bool MainWindow::AddToStore(const QString& path) {
    const bool isOurs = document_ != nullptr && document_->IsStore() && !IsHeldByAnother();
    if (!isOurs || !FinishEditing()) return false;
    TakeRecord();
    if (!MayLoseChanges(tr("Save the changes before records are added?"))) return false;
    ForgetChanges();
    bool isAdded = false;
    Try([&] {
        CollectedMessages said;
        Reporter reporter(said, {});
        AddOptions options;
        options.input.files = {path.toStdString()};
        AddRecordsToStore(options, reporter);
        GoOnWith(std::make_unique<Document>(StorePath()));
        messages_->Say(ToQt(said.text).trimmed());
        isAdded = true;
    });
    return isAdded;
}

}  // namespace quillory
