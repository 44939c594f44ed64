// A program folder of its own for a moment, among the temporary files.
#pragma once

#include <string>

namespace sistema {

/// A program folder with the player's settings, gone with the object: a session at work there
/// leaves no trace where his systems are.
class Banco {
public:
    /// `programma` is the player's program folder.
    explicit Banco(const std::string& programma);
    Banco(const Banco&) = delete;
    Banco& operator=(const Banco&) = delete;
    ~Banco();

    /// False when the disk refused it.
    [[nodiscard]] bool pronto() const { return !radice_.empty(); }
    /// The program folder, without a final separator.
    [[nodiscard]] std::string cartella() const { return radice_ + "/cruciverba"; }
    [[nodiscard]] std::string file(const std::string& nome) const {
        return cartella() + "/" + nome;
    }

private:
    void via();
    std::string radice_;
};

}  // namespace sistema
