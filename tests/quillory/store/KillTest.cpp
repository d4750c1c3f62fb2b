#include <quillory/store/RecordStore.h>
#include <quillory/store/Schema.h>
#include <quillory/store/WorkformStore.h>

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdint>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <sys/wait.h>
#include <tests/zorby/platform/TemporaryFolder.h>
#include <unistd.h>
#include <vector>

namespace quillory {
namespace {

constexpr int kKills = 60;
constexpr int kWho = 9;
constexpr int kLocked = 100;
constexpr std::size_t kBatch = 8;

enum SavedKind : std::int32_t { kSavedRecord, kSavedWorkform, kSavedLock };

// What the process says as soon as something is saved.
struct Report {
    SavedKind kind;
    std::int32_t state;  // of a workform, which rises with each save
    std::int64_t id;
};

// Long enough for several pages, and told by its end.
std::string BytesOf(std::int64_t number) {
    return std::string(20000 + static_cast<std::size_t>(number % 7) * 5000, 'x') +
           std::to_string(number);
}

void Tell(int pipe, const Report& report) {
    if (write(pipe, &report, sizeof report) != ssize_t{sizeof report}) _exit(1);
}

// Saves workforms and records until it is killed.
[[noreturn]] void SaveForever(const std::string& path, int pipe, int round) {
    const Database database = OpenStore(path);
    WorkformStore workforms(database);
    RecordStore records(database);
    const int locked = workforms.Save("locked", kWho, 1, BytesOf(1));
    if (workforms.Lock(locked, kWho)) Tell(pipe, {kSavedLock, 0, locked});
    for (int n = 1;; ++n) {
        const int state = round * 100000 + n;
        const std::string name = "workform " + std::to_string(n % 5);
        const int id = workforms.Register(0, ("\\" + name).c_str(), kWho, 1, state);
        workforms.StoreBlock(id, BytesOf(state));
        Tell(pipe, {kSavedWorkform, state, id});
        Tell(pipe, {kSavedRecord, 0, records.Add({{"single", "", ""}, BytesOf(0), 0})});
        const std::vector<NewRecord> batch(kBatch, NewRecord{{"batch", "", ""}, BytesOf(0), id});
        const IdRange ids = records.AddAll(batch);
        for (std::int64_t i = ids.first; i <= ids.last; ++i) Tell(pipe, {kSavedRecord, 0, i});
    }
}

struct Saved {
    std::map<std::int64_t, int> states;  // of workforms, by ID
    std::int64_t records = 0;
    std::int64_t lastRecord = 0;
    int locks = 0;
};

// False if the process is dead and there are no more reports.
bool ReadReport(int pipe, Saved& saved) {
    Report report{};
    if (read(pipe, &report, sizeof report) != ssize_t{sizeof report}) return false;
    if (report.kind == kSavedWorkform) saved.states[report.id] = report.state;
    if (report.kind == kSavedLock) ++saved.locks;
    if (report.kind == kSavedRecord) {
        ++saved.records;
        saved.lastRecord = report.id;
    }
    return true;
}

// Kills the process a while after its start, or after so many reports, and reads all reports.
void WatchAndKill(pid_t child, int pipe, int reports, std::chrono::microseconds life,
                  Saved& saved) {
    for (int i = 0; i < reports; ++i) ReadReport(pipe, saved);
    usleep(static_cast<useconds_t>(life.count()));
    kill(child, SIGKILL);
    while (ReadReport(pipe, saved)) {
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
}

// All that was reported is there, whole, and nothing is there by half.
void Check(const std::string& path, const Saved& saved) {
    const Database database = OpenStore(path);
    Statement check = database.Prepare("PRAGMA integrity_check");
    ASSERT_TRUE(check.Step());
    ASSERT_EQ(check.Bytes(0), "ok");
    RecordStore records(database);
    EXPECT_GE(records.Count(), saved.records);
    std::int64_t inBatches = 0;
    std::int64_t reported = 0;
    records.Walk({}, [&](const StoredRecord& record) {
        EXPECT_EQ(record.bytes, BytesOf(0));
        if (record.summary.controlNumber == "batch") ++inBatches;
        if (record.id <= saved.lastRecord) ++reported;
        return true;
    });
    EXPECT_EQ(inBatches % static_cast<std::int64_t>(kBatch), 0);
    EXPECT_GE(reported, saved.records);

    WorkformStore workforms(database);
    for (const auto& [id, state] : saved.states) {
        SCOPED_TRACE(id);
        const std::optional<WorkformInfo> info = workforms.FindById(static_cast<int>(id));
        ASSERT_TRUE(info);
        EXPECT_GE(info->state, state);
        EXPECT_EQ(workforms.Block(info->id), BytesOf(info->state));
    }
    if (workforms.FindById(kLocked)) {
        EXPECT_EQ(workforms.FindById(kLocked)->holder, 0);
        EXPECT_TRUE(workforms.Lock(kLocked, kWho + 1));
    }
}

TEST(Store, LosesNothingThatWasReportedWhenKilled) {
    const TemporaryFolder folder;
    const std::string path = folder.Path("quillory.db");
    std::mt19937 random{20};
    Saved saved;
    for (int round = 0; round < kKills; ++round) {
        SCOPED_TRACE(round);
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        const pid_t child = fork();
        if (child == 0) {
            close(ends[0]);
            SaveForever(path, ends[1], round);
        }
        close(ends[1]);
        const int reports = round % 2 == 0 ? 0 : 5;
        WatchAndKill(child, ends[0], reports, std::chrono::microseconds(random() % 30000), saved);
        close(ends[0]);
        Check(path, saved);
        if (HasFatalFailure()) return;
        const Database database = OpenStore(path);
        database.Execute("DELETE FROM records");
        saved.records = 0;
    }
    EXPECT_GT(saved.lastRecord, 0);
    EXPECT_FALSE(saved.states.empty());
    EXPECT_GT(saved.locks, 0);
}

}  // namespace
}  // namespace quillory
