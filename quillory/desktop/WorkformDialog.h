#pragma once

#include <quillory/cataloging/Questions.h>
#include <quillory/cataloging/RecordMaker.h>
#include <quillory/desktop/CollectedMessages.h>
#include <quillory/jobs/WorkformCatalog.h>

#include <QDialog>
#include <map>
#include <optional>
#include <string>
#include <vector>

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QScrollArea;

namespace quillory {

class WorkformList;

// The making of a record: a choice of workforms, and what the chosen one asks.
class WorkformDialog : public QDialog {
    Q_OBJECT

public:
    // Throws FileError if the workforms can't be read.
    explicit WorkformDialog(QWidget* parent = nullptr);

    // The record that was made, in UTF-8. Views last as long as the dialog.
    const Record& Made() const { return made_; }
    void accept() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Box {
        Question question;
        QLineEdit* edit;
    };

    QWidget* MakeQuestions();
    void ShowQuestions();
    bool IsShown(const Question& question, const Pattern& pattern) const;
    void OrderForTab();
    void KeepAnswers();
    void AddHeading(const Question& question, QGridLayout& grid);
    void AddQuestion(const Question& question, QGridLayout& grid);
    void ShowHelp(const Place& place);
    std::string Chosen() const;
    bool TakeAnswers(Draft& draft);
    void BeginToAnswer();
    void GoToNextField(std::size_t from, int by);

    CollectedMessages messages_;
    std::optional<WorkformCatalog> workforms_;
    std::optional<RecordMaker> maker_;
    std::optional<Draft> draft_;
    Record made_;
    std::vector<Box> boxes_;
    std::map<std::string, QString> answers_;  // by the text of their place, also of boxes that went

    WorkformList* list_;
    QScrollArea* area_;
    QCheckBox* all_;
    QPlainTextEdit* help_;
    QLabel* fault_;
};

}  // namespace quillory
