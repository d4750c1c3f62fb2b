#include <zorby/queues/CardFile.h>

namespace zorby {

CCardFile::~CCardFile() = default;

std::string CCardFile::GetFilePath() {
    return PathOf("CardPrntQ");
}

bool CCardFile::PrintQueueExists() {
    return CurrentFilePort().Exists(GetFilePath());
}

void CCardFile::DeleteFile() {
    Delete(GetFilePath(), "Are you sure you want to delete the card queue?");
}

int CCardFile::GetNumberOfPhysicalCards() {
    return GetCount();
}

void CCardFile::SetNumberOfPhysicalCards(const int& count) {
    SetCount(count);
}

void CCardFile::SeekToFirstCard() {
    GetCount();
}

std::string CCardFile::Path() const {
    return GetFilePath();
}

}  // namespace zorby
