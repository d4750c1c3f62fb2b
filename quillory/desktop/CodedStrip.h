#pragma once

#include <QWidget>
#include <string>

namespace quillory {

// The bytes of a coded field in a row, blanks as "#", with the part in hand marked. A click on a
// byte leads to its part.
class CodedStrip : public QWidget {
    Q_OBJECT

public:
    explicit CodedStrip(QWidget* parent = nullptr);

    void SetBytes(const std::string& bytes);
    void Mark(int first, int last);
    // The first and last position marked; -1 if none is.
    int First() const { return first_; }
    int Last() const { return last_; }

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;

Q_SIGNALS:
    void Clicked(int position);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    int CellWidth() const;
    int LineHeight() const;
    // Bytes in a line, a multiple of ten.
    int Columns(int width) const;
    QRect CellOf(int position) const;
    void Describe();

    std::string bytes_;
    int first_ = -1;
    int last_ = -1;
};

}  // namespace quillory
