#pragma once

#include <quillory/coded/CodeLists.h>
#include <quillory/coded/FormOrder.h>
#include <quillory/rules/Remark.h>

#include <QWidget>
#include <optional>
#include <string>
#include <vector>

class QGridLayout;
class QLabel;
class QLineEdit;

namespace quillory {

class CodedChoice;

// The elements of one coded field, each with its name and a choice of codes, or a box for a value
// that is not a code.
class CodedForm : public QWidget {
    Q_OBJECT

public:
    // Keeps the reference to the lists. `field` is the place of the field or the Leader.
    CodedForm(const Place& field, zorby::CFType form, const CodeLists& lists,
              const std::string& content, QWidget* parent);

    // Whether the form has all that this content needs: a position that is undefined has a row only
    // if something stands in it.
    bool Fits(zorby::CFType form, const std::string& content) const;
    void SetContent(const std::string& content);
    // Marks the elements that the rules speak of.
    void SetRemarks(const std::vector<Remark>& remarks);
    // Puts the cursor into the element at this position, or into the first of the form.
    void GoTo(int position);
    // In a narrow room, names stand above their controls.
    void FitInto(int width);
    // What is being typed is taken, or refused.
    void Finish();
    // What is being typed in a box, as far as it goes; nothing is shown of it.
    void TellTyped();
    // The element in hand; a place without positions if none is.
    Place InHand() const { return inHand_; }
    const Element* ElementInHand() const { return elementInHand_; }

Q_SIGNALS:
    void HandChanged();
    void Changed(int first, const std::string& value);
    void Refused(const QString& element, const QString& typed);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Row {
        AskedElement asked;
        Place place;
        QLabel* heading = nullptr;  // above the row; null for most
        QLabel* positions = nullptr;
        QLabel* name = nullptr;
        QWidget* control = nullptr;  // holds the choices or the box
        QLabel* sign = nullptr;
        std::vector<CodedChoice*> choices;  // one for each code that the element takes
        QLineEdit* box = nullptr;           // instead of choices
        QLabel* meaning = nullptr;          // of what stands in the box
        std::string value;
    };

    bool Needs(const AskedElement& asked, const std::string& content) const;
    QLabel* MakeHeading(const QString& text);
    void AddRow(const AskedElement& asked, QLabel* heading);
    void Arrange();
    QWidget* MakeChoices(Row& row, std::size_t index);
    QWidget* MakeBox(Row& row, std::size_t index);
    void Show(Row& row, const std::string& content);
    void Take(std::size_t row, std::size_t at, const std::string& value);
    // Whether a box says something else than the value.
    static bool IsTyped(const Row& row);
    // What the box says, as wide as the element; nothing if that can't stand there.
    static std::optional<std::string> TypedValue(const Row& row);
    void TakeBox(std::size_t row);
    void Watch(QWidget& control, std::size_t row);
    static QWidget* ControlOf(const Row& row);

    Place field_;
    zorby::CFType form_;
    const CodeLists& lists_;
    QGridLayout* grid_;
    std::vector<Row> rows_;
    bool isNarrow_ = false;
    Place inHand_;
    const Element* elementInHand_ = nullptr;
};

}  // namespace quillory
