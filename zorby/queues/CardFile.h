#pragma once

#include <zorby/queues/QueueFile.h>

#include <string>

namespace zorby {

// The queue of this user's catalogue cards, "CardPrntQN.prn" in the data folder.
class ZORBY_EXPORT CCardFile : public CQueueFile {
public:
    ~CCardFile() override;

    static std::string GetFilePath();
    static bool PrintQueueExists();
    // Asks the user first. The result of the deletion isn't looked at.
    static void DeleteFile();

    // These leave the position at 4, where the host's part of the file begins. A file of fewer
    // than 4 bytes is new, and gets the number 0.
    int GetNumberOfPhysicalCards();
    void SetNumberOfPhysicalCards(const int& count);
    void SeekToFirstCard();

protected:
    std::string Path() const override;
};

}  // namespace zorby
