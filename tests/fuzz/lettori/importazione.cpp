// Files of draws as players have them, line by line.
#include "archivio/lettura.h"
#include "fuzz/ingresso.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    const importazione::Lettura l =
        importazione::leggi({reinterpret_cast<const char*>(dati), quanti});
    for (const auto& riga : l.lotto) {
        fuzz::esigi(riga.ruota < importazione::ruote_tutte);
        for (const std::int16_t n : riga.numeri) fuzz::esigi(n >= 1 && n <= 90);
    }
    for (const auto& riga : l.superenalotto) {
        for (const std::int16_t n : riga.sestina.numeri) fuzz::esigi(n >= 1 && n <= 90);
    }
    for (const auto& rifiuto : l.rifiuti) fuzz::esigi(!rifiuto.motivo.empty());
    return 0;
}
