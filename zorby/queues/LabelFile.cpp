#include <zorby/queues/LabelFile.h>

namespace zorby {

CLabelFile::~CLabelFile() = default;

std::string CLabelFile::GetFilePath() {
    return PathOf("LabelPrntQ");
}

bool CLabelFile::PrintQueueExists() {
    return CurrentFilePort().Exists(GetFilePath());
}

void CLabelFile::DeleteFile() {
    Delete(GetFilePath(), "Are you sure you want to delete the label queue?");
}

int CLabelFile::GetNumberOfPhysicalLabels() {
    return GetCount();
}

void CLabelFile::SetNumberOfPhysicalLabels(const int& count) {
    SetCount(count);
}

void CLabelFile::SeekToFirstLabel() {
    GetCount();
}

std::string CLabelFile::Path() const {
    return GetFilePath();
}

}  // namespace zorby
