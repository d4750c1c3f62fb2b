#pragma once

#include <quillory/jobs/WorkformCatalog.h>

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

class QLineEdit;
class QTreeWidget;

namespace quillory {

// The workforms to choose from, the user's own and the standard ones, by words of their names.
class WorkformList : public QWidget {
    Q_OBJECT

public:
    // The material of a workform. Throws FaultError for one that is damaged, which can't be chosen.
    using MaterialOf = std::function<std::string(int id)>;

    explicit WorkformList(MaterialOf materialOf, QWidget* parent = nullptr);

    void Fill(const WorkformCatalog& workforms);
    // Its ID; 0 if none is chosen.
    int Chosen() const;
    void Choose(int id);
    QLineEdit& Search() { return *search_; }

Q_SIGNALS:
    void Changed();  // another one is chosen
    void Entered();  // Enter was pressed in the box: the choice is made

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void AddGroup(const QString& title, const std::vector<WorkformEntry>& entries);
    void ShowMatches(const QString& typed);

    MaterialOf materialOf_;
    QLineEdit* search_;
    QTreeWidget* list_;
};

}  // namespace quillory
