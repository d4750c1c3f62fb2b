#pragma once

#include <quillory/store/Database.h>
#include <quillory/store/WorkformLocks.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

inline constexpr int kFirstUserWorkformId = 100;
inline constexpr int kAnybody = 0;  // for `who`: whoever it is in this process
inline constexpr int kUsable = 1;   // the state of a workform that has not been withdrawn

struct WorkformInfo {
    int id = 0;
    std::string name;  // bytes in the library's one-byte code
    int state = 0;     // 0 withdrawn: still there, but not for imports
    int holder = 0;    // who has it locked, 0 for nobody
};

// Why a save is refused.
enum SaveObstacle : int { kNoObstacle, kStandardName, kNoFurtherId, kLockedByOther };

enum WorkformKind : int { kStandardWorkforms, kUserWorkforms };

// The workforms that the library asks for through its callbacks. Those of users are in the
// database, each with a block of bytes that only the library understands. The standard ones are in
// a data file of the library, which names them anew in each run; the store only keeps their names
// from being taken.
//
// A user's workform exists from the moment that its block is stored; until then only its ID and its
// name are taken. Names are compared by their bytes. Failures throw FileError; a request that the
// rules refuse gives 0, false or nothing.
class WorkformStore {
public:
    explicit WorkformStore(const Database& database);

    // All that the library asks for through its one callback for entries:
    //  - an ID below 100 and a name: a standard workform of this run;
    //  - ID 0, a name, `held` 0: the ID of that name, which is given one if it has none;
    //  - ID 0, a backslash and a name, `held` 1: `who` saves a workform. The name keeps the ID that
    //    it has. Nothing else changes until StoreBlock, which also sets `state`. Refused for the
    //    name of a standard workform and for a workform that somebody else has locked; `who` 0 is
    //    anybody in this process;
    //  - an ID and no name: `who` locks the workform (`held` 1), or this process unlocks it (`held`
    //    0); its state stays as it is.
    // The result is the ID, or 0 for a refusal.
    int Register(int id, const char* name, int who, int held, int state);

    // Refused if `who` is 0, if there is no such workform, or if somebody else holds the lock.
    bool Lock(int id, int who);
    void Unlock(int id);

    // By name, a standard workform is found before a user's.
    std::optional<WorkformInfo> FindByName(std::string_view name) const;
    std::optional<WorkformInfo> FindById(int id) const;
    // In the order of their IDs.
    std::vector<WorkformInfo> List(WorkformKind kind) const;
    // Empty for an ID that was not registered.
    std::string StandardName(int id) const;

    // Nothing if there is no such workform. FileError if the bytes are not those that were stored.
    std::optional<std::string> Block(int id) const;
    // Finishes the save that Register began for this ID; replaces the block if it began none.
    // Throws UsageError if there is no such workform either.
    void StoreBlock(int id, std::string_view block);
    // Both steps of a save. The result is as that of Register.
    int Save(std::string_view name, int who, int state, std::string_view block);

    // Refused for a standard workform, and for one that somebody else has locked.
    bool Delete(int id);

    bool CanAllocateId() const;
    // What keeps `who` from saving a workform of this name.
    SaveObstacle ObstacleTo(std::string_view name, int who) const;

private:
    struct PendingSave {
        int id = 0;
        std::string name;
        int state = 0;
    };

    int RegisterStandard(int id, std::string_view name);
    int BeginSave(std::string_view name, int who, int state);
    int IdFor(std::string_view name);
    int UserIdOf(std::string_view name) const;
    int StandardIdOf(std::string_view name) const;
    std::optional<WorkformInfo> InfoFrom(const Statement& row) const;

    const Database& database_;
    WorkformLocks locks_;
    std::map<int, std::string> standard_;
    std::optional<PendingSave> pending_;
};

}  // namespace quillory
