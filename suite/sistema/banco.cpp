#include "sistema/banco.h"

#include <filesystem>

#include "platform/application.h"
#include "platform/disk.h"
#include "platform/macchina.h"

namespace sistema {

namespace fs = std::filesystem;

Banco::Banco(const std::string& programma) {
    std::error_code errore;
    radice_ = platform::macchina::cartella_temporanea("sistema");
    if (radice_.empty()) return;
    fs::create_directory(cartella(), errore);
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
