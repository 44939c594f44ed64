// A file whose being there tells that a program runs.
#pragma once

#include <string>

namespace platform {

/// Makes such a file, once for all programs that ask for it, and takes it away at its end. One
/// whose process is gone counts for nothing: it is no longer seen, and swept by the next.
class Segno {
public:
    /// `nome` in a folder that is there. One that cannot be made leaves the program to run without.
    explicit Segno(const std::string& nome);
    Segno(const Segno&) = delete;
    Segno& operator=(const Segno&) = delete;
    ~Segno();

    /// True when another process that lives has it.
    [[nodiscard]] bool occupato() const { return occupato_; }

private:
    [[nodiscard]] bool collega();
    [[nodiscard]] bool crea() const;

    std::string nome_;
    int turno_ = -1;  ///< the folder, locked while this lives
    int tenuto_ = -1;
    bool fatto_ = false;
    bool occupato_ = false;
};

}  // namespace platform
