// The words of a command line, sorted out.
#pragma once

#include <initializer_list>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace suite {

/// An option that a command knows.
struct Opzione {
    std::string_view nome;
    bool con_valore = false;  ///< the word that follows belongs to it
};

struct Parole {
    std::vector<std::string> file;               ///< and folders: all that is no option
    std::map<std::string, std::string> opzioni;  ///< of one given twice, the last
    std::optional<std::string> errore;           ///< the first word that is wrong

    [[nodiscard]] bool ha(const std::string& nome) const { return opzioni.contains(nome); }
    /// Value of an option; null when it was not given.
    [[nodiscard]] const std::string* valore(const std::string& nome) const;
};

/// Sorts out the words; behind "--" every word is a file.
Parole leggi_parole(std::span<const std::string> parole, std::span<const Opzione> ammesse);

}  // namespace suite
