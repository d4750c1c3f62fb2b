#pragma once

#include <QDialog>

class QLineEdit;
class QPlainTextEdit;
class QTreeWidget;

namespace quillory {

class DeskRules;
struct Rule;

// The rules that records are held against, by their names, with their weights and reasons.
class RulesDialog : public QDialog {
    Q_OBJECT

public:
    // Keeps the reference.
    explicit RulesDialog(const DeskRules& rules, QWidget* parent = nullptr);

private:
    void Fill();
    void Add(const Rule& rule);
    void ShowMatches(const QString& typed);
    void ShowWords();

    const DeskRules& rules_;
    QLineEdit* search_;
    QTreeWidget* list_;
    QPlainTextEdit* words_;
};

}  // namespace quillory
