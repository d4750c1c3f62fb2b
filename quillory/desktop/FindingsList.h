#pragma once

#include <quillory/faults/Fault.h>
#include <quillory/places/Place.h>
#include <quillory/rules/Remark.h>

#include <QTreeWidget>
#include <optional>
#include <vector>

namespace quillory {

// What is wrong with a record, the heaviest first. A click, or Enter, leads to the place.
class FindingsList : public QTreeWidget {
    Q_OBJECT

public:
    explicit FindingsList(QWidget* parent = nullptr);

    // `obstacle`, if there is one, is why the record can't be saved as it is.
    void Show(const std::vector<Remark>& remarks, const std::optional<Fault>& obstacle = {});

Q_SIGNALS:
    void Chosen(const Place& place);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    // A text that is longer than its column goes on in further lines.
    void FitText();
    void FitRows();
    void Add(Severity severity, const Place& place, const QString& text, const QString& why);

    std::vector<Place> places_;
};

}  // namespace quillory
