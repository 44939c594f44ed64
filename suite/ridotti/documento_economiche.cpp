// The economical tables in the document of the guarantees.
#include <algorithm>

#include "comune.h"
#include "development/coperture.h"
#include "development/economiche.h"
#include "documento.h"
#include "platform/disk.h"

namespace ridotti {

using crossword::Gioco;
using development::Garanzia;
using development::NomeTabella;

namespace {

Gioco gioco_di(const NomeTabella& nome) {
    return nome.k() == 6 ? Gioco::superenalotto() : Gioco::lotto(nome.k());
}

/// True for a told table that is sold with the same guarantee.
bool stessa(const Economica& e, const Voce& voce) {
    return voce.nome.prefisso == e.nome.prefisso && voce.nome.n == e.nome.n &&
           voce.garanzia == e.garanzia;
}

/// Rows of the smallest told table of the same guarantee; 0 for none.
std::size_t righe_dette(const Economica& e, const std::vector<Voce>& voci) {
    std::size_t poche = 0;
    for (const Voce& voce : voci) {
        if (!stessa(e, voce)) continue;
        const std::size_t righe = voce.tabella.righe.size();
        poche = poche == 0 ? righe : std::min(poche, righe);
    }
    return poche;
}

/// The best bound that is known: enumeration went beyond counting for some told tables.
int limite_di(const Economica& e, const std::vector<Voce>& voci) {
    int limite = development::limite_inferiore({e.nome.n, e.nome.k(), e.garanzia.p, e.garanzia.t});
    for (const Voce& voce : voci) {
        if (stessa(e, voce)) limite = std::max(limite, voce.minimo.limite);
    }
    return limite;
}

/// Tells the told tables of the same guarantee of a smaller one, or of one that can be read.
void aggiorna_minimi(const Economica& e, std::vector<Voce>& voci) {
    const auto quante = static_cast<int>(e.tabella.righe.size());
    for (Voce& voce : voci) {
        if (!stessa(e, voce)) continue;
        const bool uguale = quante == voce.minimo.trovato && voce.minimo.disegno.empty();
        if (quante > voce.minimo.trovato || (quante == voce.minimo.trovato && !uguale)) continue;
        voce.minimo.trovato = quante;
        voce.minimo.disegno = e.file + ".rid";
    }
}

std::string o_linea(std::size_t quante) {
    return quante == 0 ? "—" : std::to_string(quante);
}

std::string riga(const Economica& e, const std::vector<Voce>& voci) {
    const int n = e.nome.n;
    const int k = e.nome.k();
    const std::size_t quante = e.tabella.righe.size();
    const auto intere = static_cast<double>(development::binomiale(n, k));
    return "| " + std::to_string(n) + " | `" + e.file + "` | " + std::to_string(e.garanzia.p) +
           " → " + std::to_string(e.garanzia.t) + " | " + std::to_string(quante) + " | " +
           o_linea(righe_dette(e, voci)) + " | " +
           decimale(100.0 * static_cast<double>(quante) / intere, 2) + " | " +
           std::to_string(limite_di(e, voci)) + " | " +
           o_linea(static_cast<std::size_t>(minimo_noto(n, k, e.garanzia))) + " |\n";
}

}  // namespace

int raccogli_economiche(const std::string& tabelle, Dati& dati) {
    for (const std::string& nome : platform::Dir(tabelle, "*.rid")) {
        const auto parti = development::leggi_nome_economico(nome);
        if (!parti) continue;
        const auto garanzia = development::garanzia_del_numero(gioco_di(*parti), parti->tipo);
        // The player's own are not of the suite.
        if (!garanzia) continue;
        const std::string file = tabelle + "/" + nome;
        const TabellaLetta letta = leggi_tabella(file, parti->n, parti->k());
        stampa_errori(letta);
        if (!letta.lettura.errori.empty()) return impossibile;
        if (development::buchi(letta.lettura.tabella, *garanzia, 0).quanti > 0) {
            lamenta(platform::da_mostrare(file) + ": non vale " + in_parole(*garanzia));
            return garanzia_mancata;
        }
        dati.economiche.push_back(
            {*parti, nome.substr(0, nome.size() - 4), letta.lettura.tabella, *garanzia});
        aggiorna_minimi(dati.economiche.back(), dati.voci);
    }
    return riuscito;
}

std::string tavola_economiche(const Sezione& sezione, const Dati& dati) {
    std::string uscita =
        "| N | tabella | garanzia | righe | della tabella detta | % | limite inferiore "
        "| minimo noto |\n|--:|---|---|--:|--:|--:|--:|--:|\n";
    bool nessuna = true;
    for (const Economica& e : dati.economiche) {
        if (e.nome.prefisso != sezione.prefisso) continue;
        uscita += riga(e, dati.voci);
        nessuna = false;
    }
    return nessuna ? std::string() : "### Tabelle economiche\n\n" + uscita + "\n";
}

std::string sotto_il_noto(const Dati& dati) {
    std::string quali;
    for (const Economica& e : dati.economiche) {
        const int noto = minimo_noto(e.nome.n, e.nome.k(), e.garanzia);
        if (noto == 0 || e.tabella.righe.size() >= static_cast<std::size_t>(noto)) continue;
        quali += (quali.empty() ? "`" : ", `") + e.file + "` (" +
                 std::to_string(e.tabella.righe.size()) + " invece di " + std::to_string(noto) +
                 ")";
    }
    return quali.empty() ? std::string() : "Sotto il minimo noto stanno: " + quali + ".\n\n";
}

}  // namespace ridotti
