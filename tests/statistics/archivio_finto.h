// Invented draws held in memory, always the same for the same seed.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <random>
#include <utility>
#include <vector>

#include "statistics/lettore.h"

namespace support {

struct Record {
    statistics::Data data{2000, 1, 1};
    /// The six numbers; Lotto uses the first five.
    std::array<std::optional<std::int32_t>, 6> numeri;
    std::optional<std::int32_t> Jolly;
    std::optional<std::int32_t> superstar;
};

/// Chance that is the same on every run.
class Sorte {
public:
    explicit Sorte(std::uint32_t seme) : caso_(seme) {}
    /// From 0 to `n` - 1.
    int sotto(int n) { return static_cast<int>(caso_() % static_cast<std::uint64_t>(n)); }

private:
    std::mt19937 caso_;
};

/// Day number `i` of a calendar whose months all have 28 days.
inline statistics::Data giorno(int i) {
    return {1950 + i / 336, i / 28 % 12 + 1, i % 28 + 1};
}

/// `quanti` draws of different numbers up to `massimo`.
inline std::vector<Record> estrazioni(int quanti, std::uint32_t seme, int massimo = 90) {
    Sorte caso(seme);
    std::vector<Record> records;
    for (int i = 0; i < quanti; ++i) {
        Record r;
        r.data = giorno(i);
        std::array<bool, 91> preso{};
        for (auto& numero : r.numeri) {
            int n = 0;
            do {
                n = caso.sotto(massimo) + 1;
            } while (preso.at(static_cast<std::size_t>(n)));
            preso.at(static_cast<std::size_t>(n)) = true;
            numero = n;
        }
        r.Jolly = caso.sotto(90) + 1;
        if (i % 3 != 0) r.superstar = caso.sotto(90) + 1;
        records.push_back(r);
    }
    return records;
}

/// Walks a list of records as the classic engine does.
class ArchivioFinto : public statistics::LettoreEstrazioni {
public:
    explicit ArchivioFinto(std::vector<Record> records) : records_(std::move(records)) {}

    bool MoveFirst() override { return vai(0); }
    bool MoveLast() override { return vai(quanti() - 1); }
    bool MoveNext() override { return posto_ < quanti() && vai(posto_ + 1); }
    bool Move(std::int32_t n) override { return vai(posto_ + n); }
    bool alla_fine() override { return posto_ >= quanti(); }
    std::int32_t RecordCount() override { return quanti(); }
    std::optional<std::int32_t> estratto(int quale) override {
        const Record* r = record();
        return r ? r->numeri.at(static_cast<std::size_t>(quale - 1)) : std::nullopt;
    }
    std::optional<std::int32_t> Jolly() override {
        return record() ? record()->Jolly : std::nullopt;
    }
    std::optional<std::int32_t> superstar() override {
        return record() ? record()->superstar : std::nullopt;
    }
    std::optional<std::int32_t> campi_estratti(int quale) override { return estratto(quale); }
    std::optional<statistics::Data> data() override {
        return record() ? std::optional(record()->data) : std::nullopt;
    }

private:
    [[nodiscard]] std::int32_t quanti() const { return static_cast<std::int32_t>(records_.size()); }
    [[nodiscard]] const Record* record() const {
        const bool sopra = posto_ >= 0 && posto_ < quanti();
        return sopra ? &records_[static_cast<std::size_t>(posto_)] : nullptr;
    }
    bool vai(std::int32_t posto) {
        if (records_.empty()) return false;
        posto_ = std::min(std::max(posto, -1), quanti());
        return true;
    }
    std::vector<Record> records_;
    std::int32_t posto_ = 0;
};

}  // namespace support
