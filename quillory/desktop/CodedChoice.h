#pragma once

#include <quillory/coded/CodeLists.h>

#include <QComboBox>
#include <string>
#include <vector>

namespace quillory {

// The choice of one code. A value that the list lacks is shown as what it is, and stays in the list
// as long as it stands in the record. A long list, and one with numbers in it, takes typing: a
// code, or words of its meaning.
class CodedChoice : public QComboBox {
    Q_OBJECT

public:
    // `width` is the length of a code in bytes. `takesOthers`: also values that are no codes.
    CodedChoice(const std::vector<CodeMeaning>& codes, int width, bool takesOthers,
                QWidget* parent);

    // What stands in the record; shorter than a code if the field ends before.
    void SetValue(const CodeMeaning& value);
    // Takes what is being typed, or refuses it.
    void Finish();

Q_SIGNALS:
    void Chosen(const std::string& code);
    // What was typed is no value of this element, and the one before stands again.
    void Refused(const QString& typed);

protected:
    void showPopup() override;
    void paintEvent(QPaintEvent* event) override;

private:
    void AddCode(const CodeMeaning& code);
    void RemoveForeign();
    void Choose(int index);
    int FindTyped(const QString& typed) const;
    std::string CodeAt(int index) const;

    int width_;
    bool takesOthers_;
    int listed_ = 0;     // items after these are values outside of the list
    std::string value_;  // in the record
};

// "a  Illustrations", with what there is to say of its time.
QString ChoiceText(const CodeMeaning& code);

}  // namespace quillory
