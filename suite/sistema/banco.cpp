#include "sistema/banco.h"

#include <filesystem>
#include <stdlib.h>

#include "platform/application.h"
#include "platform/disk.h"

namespace sistema {

namespace fs = std::filesystem;

Banco::Banco(const std::string& programma) {
    std::error_code errore;
    std::string modello = (fs::temp_directory_path(errore) / "sistemaXXXXXX").string();
    if (errore || ::mkdtemp(modello.data()) == nullptr) return;
    radice_ = modello;
    const fs::path tabelle = fs::absolute(platform::radice(programma) + "ridotti", errore);
    if (!errore) fs::create_directory(cartella(), errore);
    if (!errore) fs::create_directory_symlink(tabelle, radice_ + "/ridotti", errore);
    for (const char* nome : {"cst", "rip.dat", "col.dat"}) {
        const std::string origine = platform::nome_su_disco(programma + "/" + nome);
        if (!errore && platform::esiste_file(origine)) fs::copy_file(origine, file(nome), errore);
    }
    if (errore) via();
}

Banco::~Banco() {
    via();
}

void Banco::via() {
    std::error_code errore;
    if (pronto()) fs::remove_all(radice_, errore);
    radice_.clear();
}

}  // namespace sistema
