#include <quillory/exchange/Input.h>
#include <quillory/store/RecordStore.h>
#include <quillory/store/Schema.h>
#include <quillory/store/WorkformStore.h>

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>
#include <sys/wait.h>
#include <tests/zorby/platform/TemporaryFolder.h>
#include <unistd.h>
#include <vector>

namespace quillory {
namespace {

namespace fs = std::filesystem;

std::string FailureOf(const std::function<void()>& act) {
    try {
        act();
    } catch (const FileError& error) {
        return error.what();
    }
    return "none";
}

std::int64_t NumberFrom(const Database& database, std::string_view sql) {
    Statement statement = database.Prepare(sql);
    return statement.Step() ? statement.Number(0) : -1;
}

// Runs in a process of its own; true if it came to its end well.
bool InChild(const std::function<bool()>& act) {
    const pid_t child = fork();
    if (child == 0) _exit(act() ? 0 : 1);
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST(Database, IsMadeWithItsFolderAndKeepsItsPromises) {
    const TemporaryFolder folder;
    const std::string path = folder.Path("a/b/quillory.db");
    const Database database = OpenStore(path);
    EXPECT_EQ(NumberFrom(database, "PRAGMA foreign_keys"), 1);
    EXPECT_EQ(NumberFrom(database, "PRAGMA synchronous"), 2);
    Statement mode = database.Prepare("PRAGMA journal_mode");
    ASSERT_TRUE(mode.Step());
    EXPECT_EQ(mode.Bytes(0), "wal");
}

TEST(Database, BringsAnOlderFormUpAndKeepsWhatItHolds) {
    const TemporaryFolder folder;
    const std::string path = folder.Path("quillory.db");
    int id = 0;
    {
        const Database old(path, SchemaSteps().first(1));
        WorkformStore workforms(old);
        id = workforms.Save("Atlas", 0, 1, "block");
        EXPECT_THROW(RecordStore{old}, FileError);
    }
    const Database database = OpenStore(path);
    EXPECT_EQ(NumberFrom(database, "PRAGMA user_version"),
              static_cast<std::int64_t>(SchemaSteps().size()));
    EXPECT_EQ(WorkformStore(database).Block(id), "block");
    EXPECT_EQ(RecordStore(database).Count(), 0);
}

TEST(Database, AStepThatFailsLeavesTheOldForm) {
    const TemporaryFolder folder;
    const std::string path = folder.Path("quillory.db");
    { const Database old(path, SchemaSteps().first(1)); }
    const std::array<const char*, 2> steps{"", "CREATE TABLE t (a); CREATE TABLE t (a)"};
    EXPECT_NE(FailureOf([&] { const Database broken(path, steps); }), "none");
    const Database database = OpenStore(path);
    EXPECT_EQ(NumberFrom(database, "SELECT count(*) FROM sqlite_schema WHERE name = 't'"), 0);
}

TEST(Database, LeavesAloneWhatIsNotItsOwn) {
    const TemporaryFolder folder;
    const std::array<const char*, 4> newer{"", "", "", "CREATE TABLE future (a)"};
    { const Database made(folder.Path("newer.db"), newer); }
    {
        const Database made(folder.Path("other.db"), newer);
        made.Execute("PRAGMA application_id = 77");
    }
    OpenStore(folder.Path("views.db"))
        .Execute(
            "ALTER TABLE records RENAME TO kept; CREATE VIEW records AS SELECT * FROM kept;"
            "PRAGMA journal_mode = DELETE");
    folder.Write("text.db", "These are no pages of a database, whatever the name may say. " +
                                std::string(2000, '.'));
    const std::vector<std::pair<std::string, std::string>> cases{
        {"newer.db", "was written by a newer quillory (form 4; this one knows up to 3)"},
        {"other.db", "is a database, but not a store of quillory"},
        {"text.db", "is not a database"},
        {"views.db", "has views or triggers, which no store of quillory has"},
    };
    for (const auto& [name, reason] : cases) {
        SCOPED_TRACE(name);
        const std::string path = folder.Path(name);
        const std::string before = folder.Read(name);
        EXPECT_EQ(FailureOf([&] { OpenStore(path); }),
                  std::string(path).append(": ").append(reason));
        EXPECT_EQ(folder.Read(name), before);
    }
    EXPECT_EQ(FailureOf([&] { OpenStore(folder.Path("text.db/quillory.db")); }),
              folder.Path("text.db") + ": can't be made: Not a directory");
    fs::create_directory(folder.Path("folder.db"));
    EXPECT_EQ(FailureOf([&] { OpenStore(folder.Path("folder.db")); }),
              folder.Path("folder.db") + ": can't be opened: Is a directory");
}

// As somebody who may read and not write; root may do everything.
TEST(Database, SaysThatAPlaceIsReadOnly) {
    const TemporaryFolder folder;
    const std::string path = folder.Path("quillory.db");
    { const Database made = OpenStore(path); }
    fs::permissions(path, fs::perms(0444));
    fs::permissions(folder.Path(), fs::perms(0555));
    constexpr uid_t kNobody = 65534;
    EXPECT_TRUE(InChild([&] {
        if (geteuid() == 0 && seteuid(kNobody) != 0) return false;
        EXPECT_EQ(FailureOf([&] { OpenStore(path); }),
                  path + ": can't be written: Permission denied");
        EXPECT_EQ(FailureOf([&] { OpenStore(folder.Path("new.db")); }),
                  folder.Path("new.db") + ": can't be made: Permission denied");
        return !testing::Test::HasFailure();
    }));
    fs::permissions(folder.Path(), fs::perms(0755));
}

TEST(Database, DamageInTheFileIsNamed) {
    const TemporaryFolder folder;
    const std::string path = folder.Path("quillory.db");
    {
        const Database database = OpenStore(path);
        RecordStore records(database);
        for (int i = 0; i < 300; ++i) records.Add({{}, std::string(900, 'r'), 0});
    }
    std::string bytes = folder.Read("quillory.db");
    constexpr std::size_t kPage = 16384;
    for (std::size_t i = 2 * kPage; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 7);
    folder.Write("quillory.db", bytes);
    const std::string failure = FailureOf([&] {
        const Database database = OpenStore(path);
        RecordStore(database).Walk({}, [](const StoredRecord&) { return true; });
    });
    EXPECT_TRUE(failure.starts_with(path + ": is damaged: ")) << failure;
}

TEST(Database, ATransactionIsAllOrNothing) {
    const TemporaryFolder folder;
    const Database database = OpenStore(folder.Path("quillory.db"));
    RecordStore records(database);
    records.Add({{"1", "", ""}, "bytes", 0});
    {
        const Transaction given(database);
        records.Delete(1);
    }
    EXPECT_EQ(records.Count(), 1);
    // A workform that is not there: the whole batch is refused, and IDs go on behind it.
    const std::vector<NewRecord> batch{{{}, "a", 0}, {{}, "b", 555}};
    EXPECT_THROW(records.AddAll(batch), FileError);
    EXPECT_EQ(records.Count(), 1);
    EXPECT_GT(records.Add({{}, "c", 0}), 1);
}

TEST(Database, WaitsForAnotherWriterAndThenGivesUp) {
    const TemporaryFolder folder;
    const std::string path = folder.Path("quillory.db");
    const Database first = OpenStore(path);
    const Database second(path, SchemaSteps(), std::chrono::milliseconds(50));
    RecordStore records(second);
    {
        const Transaction held(first);
        EXPECT_EQ(FailureOf([&] {
                      records.Add({{}, "x", 0});
                  }),
                  path + ": is in use by another program that does not finish");
        EXPECT_EQ(records.Count(), 0);
    }
    EXPECT_EQ(records.Add({{}, "x", 0}), 1);
}

TEST(Database, ManyProcessesMakeAndWriteTheSameStore) {
    constexpr int kProcesses = 6;
    constexpr int kEach = 40;
    const TemporaryFolder folder;
    const std::string path = folder.Path("quillory.db");
    std::vector<pid_t> children;
    for (int i = 0; i < kProcesses; ++i) {
        const pid_t child = fork();
        if (child == 0) {
            const std::string failure = FailureOf([&] {
                const Database database = OpenStore(path);
                RecordStore records(database);
                WorkformStore workforms(database);
                for (int n = 0; n < kEach; ++n) {
                    records.Add({{}, "bytes", 0});
                    workforms.Save("shared " + std::to_string(n), 0, 1, "block");
                }
            });
            if (failure != "none") std::fprintf(stderr, "%s\n", failure.c_str());
            _exit(failure == "none" ? 0 : 1);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0) << "process " << child;
    }
    const Database database = OpenStore(path);
    EXPECT_EQ(RecordStore(database).Count(), kProcesses * kEach);
    EXPECT_EQ(WorkformStore(database).List(kUserWorkforms).size(), std::size_t{kEach});
}

}  // namespace
}  // namespace quillory
