#include "platform/links.h"

#include "platform/disk.h"
#include "platform/macchina.h"

namespace platform {

using macchina::Guasto;
using macchina::Voce;

bool esce_dalla_cartella(const std::string& nome) {
    const std::string reale = nome_su_disco(nome);
    if (!collegamento(nome)) return false;
    const std::string meta = macchina::percorso_reale(reale);
    return meta.empty() || macchina::percorso_reale(cartella_di(meta)) !=
                               macchina::percorso_reale(cartella_di(reale));
}

bool stesso_file(const std::string& origine, const std::string& arrivo) {
    const std::string da = nome_su_disco(origine);
    Voce meta;
    Voce voce;
    if (macchina::guarda_il_nome(nome_su_disco(arrivo), meta) != Guasto::nessuno) return false;
    return (macchina::guarda_il_nome(da, voce) == Guasto::nessuno && voce.stesso(meta)) ||
           (macchina::guarda(da, voce) == Guasto::nessuno && voce.stesso(meta));
}

bool collegamento(const std::string& nome) {
    Voce voce;
    return macchina::guarda_il_nome(nome_su_disco(nome), voce) == Guasto::nessuno &&
           voce.collegamento();
}

std::optional<Impronta> impronta(const std::string& nome) {
    Voce voce;
    if (macchina::guarda(nome_su_disco(nome), voce) != Guasto::nessuno || !voce.file())
        return std::nullopt;
    return Impronta{voce.disco, voce.nodo, voce.byte, voce.cambiato};
}

}  // namespace platform
