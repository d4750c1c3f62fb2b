#include <zorby/platform/ProfileFilePort.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <functional>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <tests/zorby/platform/TemporaryFolder.h>
#include <thread>
#include <unistd.h>

using namespace zorby;

namespace {

pid_t Start(const std::function<bool()>& work) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(work() ? 0 : 1);
    return child;
}

bool Succeeded(pid_t child) {
    int status = 0;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// Permissions don't bind root, so that their tests run as somebody else.
bool StopBeingRoot() {
    constexpr uid_t kNobody = 65534;
    return ::geteuid() != 0 || (::setegid(kNobody) == 0 && ::seteuid(kNobody) == 0);
}

class DiskProfileFiles : public testing::Test {
protected:
    int Write(const std::string& name, const std::string& key, const char* value) {
        return CurrentProfileFilePort().WriteValue(folder.Path(name), "S", key, value);
    }

    mode_t ModeOf(const std::string& name) {
        struct stat status {};
        EXPECT_EQ(::lstat(folder.Path(name).c_str(), &status), 0);
        return status.st_mode;
    }

    TemporaryFolder folder;
};

TEST_F(DiskProfileFiles, KeepsTheModeOfTheFile) {
    for (const mode_t mode : {0600U, 0640U, 0666U}) {
        SCOPED_TRACE(mode);
        folder.Write("f", "");
        ASSERT_EQ(::chmod(folder.Path("f").c_str(), mode), 0);
        EXPECT_EQ(Write("f", "a", std::to_string(mode).c_str()), 1);
        EXPECT_EQ(ModeOf("f") & 07777, mode);
    }
    EXPECT_EQ(folder.FileCount(), 1);
}

TEST_F(DiskProfileFiles, FollowsLinksToTheRealFile) {
    std::filesystem::create_directory(folder.Path("real"));
    std::filesystem::create_symlink("real/f", folder.Path("second"));
    std::filesystem::create_symlink(folder.Path("second"), folder.Path("first"));
    EXPECT_EQ(Write("first", "a", "1"), 1) << "the file is yet to be made";
    EXPECT_EQ(Write("first", "b", "2"), 1);
    EXPECT_EQ(folder.Read("real/f"), "[S]\na=1\nb=2\n");
    EXPECT_TRUE(S_ISLNK(ModeOf("first")) && S_ISLNK(ModeOf("second")));

    std::filesystem::create_symlink("loop", folder.Path("loop"));
    EXPECT_EQ(Write("loop", "a", "1"), 0);
    EXPECT_EQ(errno, ELOOP);
}

TEST_F(DiskProfileFiles, RefusesWhatIsNoFile) {
    ASSERT_EQ(::mkfifo(folder.Path("pipe").c_str(), 0600), 0);
    std::filesystem::create_directory(folder.Path("folder"));
    std::string text = "untouched";
    for (const char* name : {"pipe", "folder", "absent/f"}) {
        EXPECT_EQ(Write(name, "a", "1"), 0) << name;
        EXPECT_EQ(CurrentProfileFilePort().ReadText(folder.Path(name), text), 0) << name;
    }
    EXPECT_EQ(text, "untouched");
    EXPECT_EQ(folder.FileCount(), 2);
}

TEST_F(DiskProfileFiles, LeavesTheFileIfItMayNotWrite) {
    const std::string before = "[S]\na=1\n";
    folder.Write("f", before);
    ASSERT_EQ(::chmod(folder.Path("f").c_str(), 0444), 0);
    const auto isRefused = [&] {
        return StopBeingRoot() && Write("f", "a", "2") == 0 && errno == EACCES;
    };
    ASSERT_EQ(::chmod(folder.Path().c_str(), 0777), 0);
    EXPECT_TRUE(Succeeded(Start(isRefused))) << "file";
    ASSERT_EQ(::chmod(folder.Path("f").c_str(), 0666), 0);
    ASSERT_EQ(::chmod(folder.Path().c_str(), 0555), 0);
    EXPECT_TRUE(Succeeded(Start(isRefused))) << "folder";
    ASSERT_EQ(::chmod(folder.Path().c_str(), 0755), 0);
    EXPECT_EQ(folder.Read("f"), before);
    EXPECT_EQ(folder.FileCount(), 1);
}

TEST_F(DiskProfileFiles, LeavesTheFileIfThereIsNoRoom) {
    const std::string before = "[S]\nlong=" + std::string(5000, 'x') + "\n";
    folder.Write("f", before);
    const auto isRefused = [&] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit most{4096, 4096};
        return ::setrlimit(RLIMIT_FSIZE, &most) == 0 && Write("f", "a", "2") == 0 && errno == EFBIG;
    };
    EXPECT_TRUE(Succeeded(Start(isRefused)));
    EXPECT_EQ(folder.Read("f"), before);
    EXPECT_EQ(folder.FileCount(), 1);
}

TEST_F(DiskProfileFiles, ProcessesThatWriteAtOnceLoseNothing) {
    constexpr int kWrites = 40;
    const auto writer = [&](const std::string& prefix) {
        return [this, prefix] {
            int written = 0;
            for (int i = 0; i < kWrites; ++i) {
                written += Write("f", prefix + std::to_string(i), "1");
            }
            return written == kWrites;
        };
    };
    const pid_t first = Start(writer("a"));
    const pid_t second = Start(writer("b"));
    EXPECT_TRUE(writer("c")());
    EXPECT_TRUE(Succeeded(first));
    EXPECT_TRUE(Succeeded(second));
    for (const char prefix : {'a', 'b', 'c'}) {
        for (int i = 0; i < kWrites; ++i) {
            const std::string key = prefix + std::to_string(i);
            EXPECT_EQ(CurrentProfileFilePort().ReadInt(folder.Path("f"), "S", key, 0), 1) << key;
        }
    }
    EXPECT_EQ(folder.FileCount(), 1);
}

TEST_F(DiskProfileFiles, AKilledWriterLeavesAWholeFileThatOthersCanWrite) {
    const std::string padding(20000, 'x');
    ASSERT_EQ(Write("f", "z", padding.c_str()), 1);
    for (int round = 0; round < 20; ++round) {
        SCOPED_TRACE(round);
        const pid_t writer = Start([&] {
            for (int i = 1;; ++i) Write("f", "count", std::to_string(i).c_str());
            return false;
        });
        std::this_thread::sleep_for(std::chrono::milliseconds(round % 7 + 1));
        ::kill(writer, SIGKILL);
        ASSERT_FALSE(Succeeded(writer));
        const std::string count =
            std::to_string(CurrentProfileFilePort().ReadInt(folder.Path("f"), "S", "count", -1));
        std::string expected = "[S]\nz=" + padding + "\n";
        if (count != "-1") expected.append("count=").append(count).append("\n");
        ASSERT_EQ(folder.Read("f"), expected);
    }
    folder.Write(".f.new", "what a killed writer left");
    EXPECT_EQ(Write("f", "count", "0"), 1);
    EXPECT_EQ(folder.FileCount(), 1);
}

}  // namespace
