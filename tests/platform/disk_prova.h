// A folder whose names the tests of the disk look at.
#pragma once

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/cartella.h"

namespace prova {

class Disk : public testing::Test {
protected:
    [[nodiscard]] std::string f(const std::string& nome) const { return cartella_.file(nome); }
    [[nodiscard]] std::vector<std::string> tutti() const {
        std::vector<std::string> nomi;
        for (const auto& voce : std::filesystem::directory_iterator(cartella_.programma())) {
            nomi.push_back(voce.path().filename().string());
        }
        std::sort(nomi.begin(), nomi.end());
        return nomi;
    }
    using Nomi = std::vector<std::string>;
    support::Cartella cartella_;
};

}  // namespace prova
