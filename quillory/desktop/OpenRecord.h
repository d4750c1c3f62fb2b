#pragma once

#include <quillory/edits/EditSession.h>

#include <QObject>

namespace quillory {

// The record that the views of a window show and change, each in its own way.
class OpenRecord : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    // Null if no record is open.
    EditSession* Session() const { return session_; }
    // Keeps the pointer until another one is shown.
    void Show(EditSession* session) {
        session_ = session;
        Q_EMIT Replaced();
    }
    // Carries out a step, of which all views then know.
    template <class Step>
    void Do(Step&& step) {
        if (session_ == nullptr) return;
        step(*session_);
        Q_EMIT Changed();
    }

Q_SIGNALS:
    void Replaced();  // by another record
    void Changed();

private:
    EditSession* session_ = nullptr;
};

}  // namespace quillory
