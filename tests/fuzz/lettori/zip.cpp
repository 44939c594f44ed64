// Packed files of draws.
#include "archivio/zip.h"

#include "archivio/lettura.h"
#include "fuzz/ingresso.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    const std::string_view testo(reinterpret_cast<const char*>(dati), quanti);
    if (!importazione::e_uno_zip(testo)) return 0;
    const auto voci = importazione::apri_zip(testo);
    if (!voci) return 0;
    fuzz::esigi(voci->size() <= importazione::voci_zip_massime);
    for (const auto& voce : *voci) fuzz::esigi(voce.dati.size() <= importazione::voce_zip_massima);
    return 0;
}
