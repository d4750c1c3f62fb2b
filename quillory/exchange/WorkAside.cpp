#include <quillory/exchange/SignalsBlocked.h>
#include <quillory/exchange/WorkAside.h>

#include <array>
#include <cstddef>
#include <utility>

namespace quillory {
namespace {

constexpr std::size_t kPieceSize = std::size_t{1} << 18;
constexpr std::size_t kPieces = 4;

}  // namespace

WorkAside::WorkAside(Work work) : work_(std::move(work)) {
    for (std::size_t i = 0; i < kPieces; ++i) free_.Put({});
    const SignalsBlocked blocked;
    thread_ = std::jthread([this] { Run(); });
}

WorkAside::~WorkAside() {
    todo_.Close();
}

void WorkAside::Run() {
    while (auto piece = todo_.Take()) {
        try {
            work_(*piece);
        } catch (...) {
            const std::lock_guard lock(mutex_);
            failure_ = std::current_exception();
            work_ = [](std::string_view) {};
        }
        free_.Put(std::move(*piece));
    }
}

void WorkAside::ThrowFailure() {
    const std::lock_guard lock(mutex_);
    if (failure_) std::rethrow_exception(failure_);
}

void WorkAside::Do(std::string_view bytes) {
    while (!bytes.empty()) {
        ThrowFailure();
        auto piece = *free_.Take();
        piece = bytes.substr(0, kPieceSize);
        bytes.remove_prefix(piece.size());
        todo_.Put(std::move(piece));
    }
}

void WorkAside::Finish() {
    std::array<std::string, kPieces> all;
    for (std::string& piece : all) piece = *free_.Take();
    for (std::string& piece : all) free_.Put(std::move(piece));
    ThrowFailure();
}

}  // namespace quillory
