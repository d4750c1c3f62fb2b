#include <quillory/reports/StoredRecordLines.h>

#include <nlohmann/json.hpp>

#include <array>
#include <ctime>

namespace quillory {
namespace {

// As ISO 8601.
std::string TimeText(std::int64_t seconds) {
    const std::time_t time = seconds;
    std::tm parts{};
    gmtime_r(&time, &parts);
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &parts)};
}

std::string Padded(std::string text, std::size_t width) {
    if (text.size() < width) text.resize(width, ' ');
    return text;
}

}  // namespace

std::string StoredRecordJson(const StoredRecord& record) {
    nlohmann::ordered_json line{
        {"id", record.id},
        {"control_number", record.summary.controlNumber},
        {"title", record.summary.title},
        {"type", record.summary.type},
        {"added", TimeText(record.added)},
        {"changed", TimeText(record.changed)},
    };
    if (record.workform != 0) line["workform"] = record.workform;
    return line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

std::string StoredRecordText(const StoredRecord& record) {
    constexpr std::size_t kIdWidth = 8;
    constexpr std::size_t kNumberWidth = 16;
    constexpr std::size_t kTypeWidth = 2;
    return Padded(std::to_string(record.id), kIdWidth) + " " +
           Padded(record.summary.controlNumber, kNumberWidth) + " " +
           Padded(record.summary.type, kTypeWidth) + " " + record.summary.title + "\n";
}

}  // namespace quillory
