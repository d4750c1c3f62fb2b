#include <quillory/desktop/CodedEditor.h>
#include <quillory/desktop/Desk.h>
#include <quillory/desktop/MainWindow.h>
#include <quillory/desktop/RecordTable.h>
#include <quillory/desktop/Texts.h>
#include <quillory/reports/CodedDocument.h>

#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTabWidget>

// The window's part in the forms of coded fields.
namespace quillory {

void MainWindow::MakeCoded() {
    coded_ = new CodedEditor(record_, desk_.Lists(), tabs_);
    tabs_->insertTab(1, coded_, tr("Coded"));
    connect(coded_, &CodedEditor::PlaceChanged, this, &MainWindow::ShowHelp);
    connect(coded_, &CodedEditor::Said, this, &MainWindow::SayShortly);
}

void MainWindow::AddCodedActions(QMenu* menu) {
    struct Form {
        QString text;
        QString key;
        const char* tag;
    };
    for (const Form& form :
         {Form{tr("Form of 00&6"), tr("F6"), "006"}, Form{tr("Form of 00&7"), tr("F7"), "007"},
          Form{tr("Form of 00&8"), tr("F8"), "008"},
          Form{tr("Form of the &Leader"), tr("Ctrl+L"), "LDR"}}) {
        Add(menu, form.text, QKeySequence(form.key), kRecord, [this, tag = form.tag] {
            tabs_->setCurrentWidget(coded_);
            if (IsCodedShown()) coded_->GoToTag(tag);
        });
    }
}

bool MainWindow::IsCodedShown() const {
    return tabs_->currentWidget() == coded_;
}

// Findings of coded fields lead to their form if forms are what is shown.
void MainWindow::GoToFinding(const Place& place) {
    const std::string_view tag = place.Tag();
    const bool isCoded = place.IsLeader() || tag == "006" || tag == "007" || tag == "008";
    if (IsCodedShown() && isCoded) {
        coded_->GoTo(place);
        return;
    }
    tabs_->setCurrentWidget(table_);
    table_->GoTo(place);
}

// The element in hand with all its codes. False if none is in hand.
bool MainWindow::ShowCodedHelp() {
    const Element* element = IsCodedShown() ? coded_->CurrentElement() : nullptr;
    if (element == nullptr) return false;
    const Place place = coded_->CurrentPlace();
    const CodedElements documents =
        DescribeElements({{element, place.Tag() == "008"}}, desk_.Lists());
    helpHeading_->setText(ToQt(PlaceText(place) + "  " + element->name));
    help_->setFont(font());
    const QString text = ToQt(ToText(documents));
    help_->setPlainText(text.mid(text.indexOf(u'\n') + 1));  // the heading says the first line
    return true;
}

}  // namespace quillory
