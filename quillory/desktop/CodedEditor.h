#pragma once

#include <quillory/coded/CodeLists.h>
#include <quillory/edits/EditSession.h>
#include <quillory/rules/Remark.h>

#include <QWidget>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class QLabel;
class QMenu;
class QPushButton;
class QScrollArea;
class QTabBar;

namespace quillory {

class CodedForm;
class CodedStrip;
class OpenRecord;
struct NewCodedField;

// The Leader, 006, 007 and 008 of the record, each on a form of its own.
class CodedEditor : public QWidget {
    Q_OBJECT

public:
    // Keeps the references.
    CodedEditor(OpenRecord& record, const CodeLists& lists, QWidget* parent = nullptr);

    // Forms are made only while they are seen.
    void SetActive(bool isActive);
    void SetRemarks(const std::vector<Remark>& remarks);
    // To the form of a tag, or of the next field of that tag if it is there already. A record
    // without one says so, and how to add it.
    void GoToTag(std::string_view tag);
    void GoTo(const Place& place);
    // Of the element in hand.
    Place CurrentPlace() const;
    const Element* CurrentElement() const;
    // What is being typed becomes a part of the record.
    void Finish();
    void TellTyped();

Q_SIGNALS:
    void PlaceChanged();
    void Said(const QString& text);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    using FieldIndex = std::optional<std::size_t>;  // nothing for the Leader

    struct Tab {
        FieldIndex field;
        Place place;
        QString text;
    };

    void MakeButtons();
    void FillAddMenu();
    void FillSubmenu(QMenu& menu, const std::string& tag, std::vector<NewCodedField> fields);
    void Add(const std::string& tag, const std::string& content);
    void Remove();
    std::vector<Tab> TabsOf(const EditSession& session) const;
    void ShowRecord();
    void ShowTab();
    void ShowForm(const Tab& tab);
    void MakeForm(const Tab& tab, zorby::CFType form, const std::string& content);
    void RemoveForm();
    void ShowAdvice(bool isUnknown);
    void ShowNone();
    void MarkHand();
    void Take(int first, const std::string& value);
    void SayLost(const std::vector<std::string>& names);
    std::string ContentOf(const Tab& tab) const;
    const Tab* Current() const;
    void Select(std::size_t tab, int position = -1);

    OpenRecord& record_;
    const CodeLists& lists_;
    QTabBar* bar_;
    QPushButton* add_;
    QPushButton* remove_;
    QMenu* menu_;
    CodedStrip* strip_;
    QScrollArea* area_;
    QLabel* none_;  // what is said where there is no form
    CodedForm* form_ = nullptr;
    std::vector<Tab> tabs_;
    Place shown_;          // the field or Leader whose form is there
    std::string missing_;  // a tag that was asked for, and that the record lacks
    std::vector<Remark> remarks_;
    bool isActive_ = false;

    // A person who goes through the materials of a field.
    struct Steps {
        Place field;
        EditSession::State before;
        EditSession::State after;
    };
    Steps steps_;
};

}  // namespace quillory
