#pragma once

#include <zorby/holdings/InfoAboutHoldingsTypeList.h>

#include <filesystem>
#include <fstream>
#include <fuzz/Persisted.h>
#include <string>
#include <unistd.h>

namespace zorby::fuzz {

// By way of a file, which is how a dictionary comes in force.
inline void PutInForce(CInfoAboutHoldingsTypeList& list) {
    const std::string folder = std::filesystem::temp_directory_path() /
                               ("fuzz_holdings_" + std::to_string(getpid()) + "/");
    std::filesystem::create_directory(folder);
    std::ofstream(folder + "zorby.hld", std::ios::binary) << Store(list);
    Expect(CInfoAboutHoldingsTypeList::CreateTheOneAndOnly(folder) == 1,
           "a dictionary that was stored loads");
    std::filesystem::remove_all(folder);
}

}  // namespace zorby::fuzz
