#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/store/Clock.h>
#include <quillory/store/WorkformStore.h>

#include <zlib.h>

#include <limits>
#include <utility>

namespace quillory {
namespace {

constexpr char kSaveMark = '\\';  // before the name of a workform that is being saved

std::int64_t CrcOf(std::string_view block) {
    return static_cast<std::int64_t>(
        crc32_z(0, reinterpret_cast<const Bytef*>(block.data()), block.size()));
}

bool IsUserId(int id) {
    return id >= kFirstUserWorkformId;
}

}  // namespace

WorkformStore::WorkformStore(const Database& database)
    : database_(database), locks_(database.Path() + "-locks") {}

int WorkformStore::Register(int id, const char* name, int who, int held, int state) {
    if (name == nullptr) {
        if (held != 0) return Lock(id, who) ? id : 0;
        Unlock(id);
        return id;
    }
    const std::string_view text(name);
    if (id != 0) return RegisterStandard(id, text);
    if (held != 0 && text.starts_with(kSaveMark)) return BeginSave(text.substr(1), who, state);
    const int standard = StandardIdOf(text);
    return standard != 0 ? standard : IdFor(text);
}

int WorkformStore::RegisterStandard(int id, std::string_view name) {
    if (id < 1 || IsUserId(id)) return 0;
    standard_[id] = name;
    return id;
}

int WorkformStore::BeginSave(std::string_view name, int who, int state) {
    pending_.reset();
    if (ObstacleTo(name, who) != kNoObstacle) return 0;
    const int id = IdFor(name);
    if (id == 0) return 0;
    pending_ = {id, std::string(name), state};
    return id;
}

SaveObstacle WorkformStore::ObstacleTo(std::string_view name, int who) const {
    if (StandardIdOf(name) != 0) return kStandardName;
    const int known = UserIdOf(name);
    if (known == 0) return CanAllocateId() ? kNoObstacle : kNoFurtherId;
    return locks_.IsHeldByOther(known, who) ? kLockedByOther : kNoObstacle;
}

// The ID of the user's workform of this name. A new name is given an ID.
int WorkformStore::IdFor(std::string_view name) {
    if (name.empty()) return 0;
    if (const int known = UserIdOf(name); known != 0) return known;
    if (!CanAllocateId()) return 0;
    database_
        .Prepare(
            "INSERT INTO workforms (name, state, created, changed) VALUES (?1, 0, ?2, ?2)"
            " ON CONFLICT (name) DO NOTHING")
        .BindBytes(1, name)
        .Bind(2, SecondsNow())
        .Run();
    return UserIdOf(name);
}

int WorkformStore::UserIdOf(std::string_view name) const {
    Statement row = database_.Prepare("SELECT id FROM workforms WHERE name = ?");
    return row.BindBytes(1, name).Step() ? static_cast<int>(row.Number(0)) : 0;
}

int WorkformStore::StandardIdOf(std::string_view name) const {
    for (const auto& [id, standardName] : standard_) {
        if (standardName == name) return id;
    }
    return 0;
}

bool WorkformStore::Lock(int id, int who) {
    return who != 0 && IsUserId(id) && FindById(id) && locks_.Lock(id, who);
}

void WorkformStore::Unlock(int id) {
    locks_.Unlock(id);
}

std::optional<WorkformInfo> WorkformStore::InfoFrom(const Statement& row) const {
    const auto id = static_cast<int>(row.Number(0));
    return WorkformInfo{id, std::string(row.Bytes(1)), static_cast<int>(row.Number(2)),
                        locks_.HolderOf(id)};
}

std::optional<WorkformInfo> WorkformStore::FindByName(std::string_view name) const {
    if (const int standard = StandardIdOf(name); standard != 0) return FindById(standard);
    Statement row = database_.Prepare(
        "SELECT id, name, state FROM workforms WHERE name = ? AND block IS NOT NULL");
    return row.BindBytes(1, name).Step() ? InfoFrom(row) : std::nullopt;
}

std::optional<WorkformInfo> WorkformStore::FindById(int id) const {
    if (const auto standard = standard_.find(id); standard != standard_.end()) {
        return WorkformInfo{id, standard->second, 1, 0};
    }
    Statement row = database_.Prepare(
        "SELECT id, name, state FROM workforms WHERE id = ? AND block IS NOT NULL");
    return row.Bind(1, id).Step() ? InfoFrom(row) : std::nullopt;
}

std::vector<WorkformInfo> WorkformStore::List(WorkformKind kind) const {
    std::vector<WorkformInfo> list;
    if (kind == kStandardWorkforms) {
        for (const auto& [id, name] : standard_) list.push_back({id, name, 1, 0});
        return list;
    }
    Statement row = database_.Prepare(
        "SELECT id, name, state FROM workforms WHERE block IS NOT NULL ORDER BY id");
    while (row.Step()) list.push_back(*InfoFrom(row));
    return list;
}

std::string WorkformStore::StandardName(int id) const {
    const auto standard = standard_.find(id);
    return standard == standard_.end() ? std::string() : standard->second;
}

std::optional<std::string> WorkformStore::Block(int id) const {
    Statement row =
        database_.Prepare("SELECT block, crc FROM workforms WHERE id = ? AND block IS NOT NULL");
    if (!row.Bind(1, id).Step()) return std::nullopt;
    const std::string_view block = row.Bytes(0);
    if (row.Number(1) != CrcOf(block)) {
        throw FileError(database_.Path(), {FaultCode::kDamagedWorkform, {}, std::to_string(id)});
    }
    return std::string(block);
}

// The row may have gone since the save began. Even so no other workform has its ID.
void WorkformStore::StoreBlock(int id, std::string_view block) {
    const std::optional<PendingSave> pending = std::exchange(pending_, std::nullopt);
    const bool isSave = pending && pending->id == id;
    const std::optional<WorkformInfo> known = isSave ? std::nullopt : FindById(id);
    if (!isSave && (!known || !IsUserId(id))) {
        throw UsageError({FaultCode::kNoWorkform, {}, std::to_string(id)});
    }
    database_
        .Prepare(
            "INSERT INTO workforms (id, name, state, created, changed, crc, block)"
            " VALUES (?1, ?2, ?3, ?4, ?4, ?5, ?6)"
            " ON CONFLICT (id) DO UPDATE SET state = ?3, changed = ?4, crc = ?5, block = ?6")
        .Bind(1, id)
        .BindBytes(2, isSave ? pending->name : known->name)
        .Bind(3, isSave ? pending->state : known->state)
        .Bind(4, SecondsNow())
        .Bind(5, CrcOf(block))
        .BindBytes(6, block)
        .Run();
}

int WorkformStore::Save(std::string_view name, int who, int state, std::string_view block) {
    const int id = BeginSave(name, who, state);
    if (id != 0) StoreBlock(id, block);
    return id;
}

bool WorkformStore::Delete(int id) {
    if (!IsUserId(id) || locks_.IsHeldByOther(id, 0)) return false;
    database_.Prepare("DELETE FROM workforms WHERE id = ?").Bind(1, id).Run();
    locks_.Unlock(id);
    return database_.Changes() > 0;
}

bool WorkformStore::CanAllocateId() const {
    Statement last = database_.Prepare("SELECT seq FROM sqlite_sequence WHERE name = 'workforms'");
    return last.Step() && last.Number(0) < std::numeric_limits<int>::max();
}

}  // namespace quillory
