#include <quillory/store/RecordLocks.h>

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <optional>
#include <string>
#include <sys/wait.h>
#include <tests/zorby/platform/TemporaryFolder.h>
#include <unistd.h>

namespace quillory {
namespace {

std::string ProgramText(pid_t pid) {
    return ", program " + std::to_string(pid) + ", since ";
}

class RecordLocksTest : public testing::Test {
protected:
    // Another process that has locked a record, and waits to be killed.
    pid_t LockElsewhere(std::int64_t id) const {
        int ends[2];
        EXPECT_EQ(pipe(ends), 0);
        const pid_t child = fork();
        if (child == 0) {
            RecordLocks locks(store_);
            const char isLocked = locks.Lock(id) ? 'y' : 'n';
            if (write(ends[1], &isLocked, 1) == 1) pause();
            _exit(0);
        }
        char isLocked = ' ';
        EXPECT_EQ(read(ends[0], &isLocked, 1), 1);
        EXPECT_EQ(isLocked, 'y');
        close(ends[0]);
        close(ends[1]);
        return child;
    }
    static void Kill(pid_t child) {
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
    }

    TemporaryFolder folder_;
    std::string store_ = folder_.Path("quillory.db");
};

TEST_F(RecordLocksTest, TwoWindowsOfOneProgramAreTwo) {
    RecordLocks one(store_);
    std::optional<RecordLocks> other(std::in_place, store_);
    EXPECT_TRUE(one.Lock(7));
    EXPECT_TRUE(one.Lock(7));
    EXPECT_TRUE(one.HolderElsewhere(7).empty());
    EXPECT_FALSE(other->Lock(7));
    EXPECT_FALSE(other->IsOurs(7));
    EXPECT_NE(other->HolderElsewhere(7).find(ProgramText(getpid())), std::string::npos)
        << other->HolderElsewhere(7);
    for (const std::int64_t neighbour : {6, 8}) {
        EXPECT_TRUE(other->Lock(neighbour)) << neighbour;
        EXPECT_FALSE(one.HolderElsewhere(neighbour).empty()) << neighbour;
    }
    other->Unlock(7);  // which is not its own
    EXPECT_FALSE(other->Lock(7));
    one.Unlock(7);
    EXPECT_TRUE(other->Lock(7));
    other->UnlockAll();
    EXPECT_TRUE(one.Lock(6));
    EXPECT_TRUE(other->Lock(7));
    other.reset();
    EXPECT_TRUE(one.Lock(7));
}

TEST_F(RecordLocksTest, AProgramThatIsKilledLeavesNoLock) {
    constexpr std::int64_t kLast = std::int64_t{1} << 32;  // as many as a store will ever have
    RecordLocks here(store_);
    for (const std::int64_t id : {std::int64_t{1}, kLast}) {
        SCOPED_TRACE(id);
        const pid_t child = LockElsewhere(id);
        EXPECT_FALSE(here.Lock(id));
        EXPECT_NE(here.HolderElsewhere(id).find(ProgramText(child)), std::string::npos)
            << here.HolderElsewhere(id);
        Kill(child);
        EXPECT_TRUE(here.HolderElsewhere(id).empty());
        EXPECT_TRUE(here.Lock(id));
    }
    const std::string file = store_ + "-record-locks";
    EXPECT_GT(std::filesystem::file_size(file), std::uint64_t{1} << 32);
    std::filesystem::remove(file);
}

}  // namespace
}  // namespace quillory
