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
    // Keeps the pointer until another one is shown. A record that is read only takes no steps.
    void Show(EditSession* session, bool isReadOnly = false) {
        session_ = session;
        isReadOnly_ = isReadOnly;
        Q_EMIT Replaced();
    }
    bool IsReadOnly() const { return isReadOnly_; }
    bool CanChange() const { return session_ != nullptr && !isReadOnly_; }
    // Carries out a step, of which all views then know.
    template <class Step>
    void Do(Step&& step) {
        if (!CanChange()) return;
        step(*session_);
        if (!isTried_) Q_EMIT Changed();
    }
    bool IsTried() const { return isTried_; }
    // What the record would be after some work, of which nobody knows and nothing stays.
    template <class Work>
    EditSession::State Try(Work&& work) {
        isTried_ = true;
        EditSession::State state = session_->Try(work);
        isTried_ = false;
        return state;
    }

Q_SIGNALS:
    void Replaced();  // by another record
    void Changed();

private:
    EditSession* session_ = nullptr;
    bool isReadOnly_ = false;
    bool isTried_ = false;
};

}  // namespace quillory
