// Puts the bytes of one trial where a reader looks for its file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <string_view>
#include <unistd.h>

// What both libFuzzer and the replay call.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti);

namespace fuzz {

/// A folder of this process in memory, laid out as a suite's root and gone with the process.
class Suite {
public:
    Suite() {
        const char* base = ::access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp";
        std::string modello = std::string(base) + "/fuzzXXXXXX";
        if (::mkdtemp(modello.data()) == nullptr) std::abort();
        radice_ = modello;
        std::filesystem::create_directories(programma());
        std::filesystem::create_directories(radice_ + "/skin");
    }
    Suite(const Suite&) = delete;
    Suite& operator=(const Suite&) = delete;
    ~Suite() {
        std::error_code errore;
        std::filesystem::remove_all(radice_, errore);
    }
    [[nodiscard]] std::string programma() const { return radice_ + "/cruciverba"; }
    [[nodiscard]] std::string radice() const { return radice_ + "/"; }
    [[nodiscard]] std::string file(const std::string& nome) const {
        return programma() + "/" + nome;
    }

private:
    std::string radice_;
};

/// One file that is filled anew for every trial, without the cost of making it.
class Ingresso {
public:
    explicit Ingresso(std::string nome)
        : nome_(std::move(nome)), fd_(::open(nome_.c_str(), O_RDWR | O_CREAT, 0600)) {
        if (fd_ < 0) std::abort();
    }
    Ingresso(const Ingresso&) = delete;
    Ingresso& operator=(const Ingresso&) = delete;
    ~Ingresso() { ::close(fd_); }
    const std::string& riempi(std::string_view dati) {
        if (::ftruncate(fd_, 0) != 0 ||
            ::pwrite(fd_, dati.data(), dati.size(), 0) != static_cast<ssize_t>(dati.size())) {
            std::abort();
        }
        return nome_;
    }
    const std::string& riempi(const std::uint8_t* dati, std::size_t quanti) {
        return riempi({reinterpret_cast<const char*>(dati), quanti});
    }

private:
    std::string nome_;
    int fd_;
};

/// Ends the trial as a finding when a promise of the reader does not hold.
inline void esigi(bool vero) {
    if (!vero) __builtin_trap();
}

}  // namespace fuzz
