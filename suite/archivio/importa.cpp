#include "importa.h"

#include <algorithm>
#include <numeric>

#include "lettura.h"
#include "platform/blocco.h"
#include "platform/codepage.h"
#include "platform/disk.h"
#include "platform/runtime.h"
#include "platform/sqlite.h"
#include "zip.h"

namespace importazione {

namespace {

constexpr std::int64_t file_massimo = std::int64_t{64} << 20;

/// Held while an archive is written, so that two imports cannot undo each other.
class Blocco {
public:
    explicit Blocco(const std::string& cartella)
        : cartella_(cartella, platform::File::Modo::cartella) {
        // Disks of other machines may know no such lock: nobody can be seen there.
        preso_ = !cartella_.aperto() || platform::blocca(cartella_) != platform::Presa::occupata;
    }
    [[nodiscard]] bool preso() const { return preso_; }

private:
    platform::File cartella_;
    bool preso_ = false;
};

template <typename Numeri>
std::string elenco(const Numeri& numeri) {
    std::string testo;
    for (const auto n : numeri) testo += (testo.empty() ? "" : " ") + std::to_string(n);
    return testo;
}

std::string per_esteso(const Sestina& s) {
    std::string testo = elenco(s.numeri);
    if (s.jolly) testo += " Jolly " + std::to_string(*s.jolly);
    if (s.superstar) testo += " SuperStar " + std::to_string(*s.superstar);
    return testo;
}

/// Keeps the first notes of a kind.
void annota(std::vector<Nota>& note, Nota nota) {
    if (note.size() < note_massime) note.push_back(std::move(nota));
}

class Importazione {
public:
    Importazione(Rapporto& rapporto, bool sostituisci, std::function<void()> respiro)
        : rapporto_(rapporto), sostituisci_(sostituisci), respiro_(std::move(respiro)) {}

    void file(const std::string& nome);

private:
    void zip(const std::string& nome, std::string_view dati);
    /// Takes over what a text holds; empty, or why it holds no draws at all.
    std::string testo(const std::string& nome, std::string_view dati);
    void lotto(const std::string& nome, const RigaLotto& riga, Portato& portato);
    void superenalotto(const std::string& nome, const RigaSuperEnalotto& riga, Portato& portato);
    void diversa(const std::string& nome, int riga, const std::string& quale,
                 const std::string& nuova, const std::string& vecchia, Portato& portato);
    void errore(const std::string& nome, const std::string& testo) {
        rapporto_.errori.push_back({nome, 0, testo});
    }

    Rapporto& rapporto_;
    bool sostituisci_;
    std::function<void()> respiro_;
};

void Importazione::file(const std::string& nome) {
    const auto dimensione = platform::dimensione_file(nome);
    if (!dimensione) return errore(nome, "il file non c'è");
    if (*dimensione > file_massimo) return errore(nome, "il file è troppo grande");
    const auto dati = platform::leggi_tutto(nome, file_massimo);
    if (!dati) return errore(nome, "il file non si può leggere");
    if (e_uno_zip(*dati)) return zip(nome, *dati);
    const std::string perche = testo(nome, *dati);
    if (!perche.empty()) errore(nome, perche);
}

void Importazione::zip(const std::string& nome, std::string_view dati) {
    const auto voci = apri_zip(dati);
    if (!voci) return errore(nome, "il file ZIP è danneggiato, cifrato o troppo grande");
    if (voci->empty()) return errore(nome, "il file ZIP è vuoto");
    std::vector<Nota> senza;
    for (const FileZip& voce : *voci) {
        const std::string intero = nome + ":" + voce.nome;
        std::string perche = testo(intero, voce.dati);
        if (!perche.empty()) senza.push_back({intero, 0, std::move(perche)});
    }
    // An explanation or a picture beside the draws does no harm.
    auto& dove = senza.size() < voci->size() ? rapporto_.lasciati : rapporto_.errori;
    dove.insert(dove.end(), senza.begin(), senza.end());
}

std::string Importazione::testo(const std::string& nome, std::string_view dati) {
    const Lettura lettura = leggi(dati, respiro_);
    if (!lettura.errore.empty()) {
        errore(nome, lettura.errore);
        return "";
    }
    if (!lettura.riconosciuta()) {
        const std::string perche = lettura.rifiuti.empty()
                                       ? std::string()
                                       : " (riga " + std::to_string(lettura.rifiuti[0].riga) +
                                             ": " + lettura.rifiuti[0].motivo + ")";
        return "non contiene estrazioni del Lotto o del SuperEnalotto" + perche;
    }
    Portato portato;
    portato.file = nome;
    portato.rifiutate = lettura.rifiutate;
    for (const Rifiuto& r : lettura.rifiuti) annota(rapporto_.rifiuti, {nome, r.riga, r.motivo});
    for (const RigaLotto& r : lettura.lotto) lotto(nome, r, portato);
    for (const RigaSuperEnalotto& r : lettura.superenalotto) superenalotto(nome, r, portato);
    rapporto_.portati.push_back(portato);
    return "";
}

void Importazione::diversa(const std::string& nome, int riga, const std::string& quale,
                           const std::string& nuova, const std::string& vecchia, Portato& portato) {
    ++portato.diverse;
    annota(rapporto_.differenze, {nome, riga,
                                  quale + ": " + nuova + " nel file, " + vecchia +
                                      " nell'archivio" + (sostituisci_ ? " (sostituita)" : "")});
}

void Importazione::lotto(const std::string& nome, const RigaLotto& riga, Portato& portato) {
    Contenuto& c = rapporto_.contenuto;
    if (c.lotto_dimostrativo) {
        c.lotto.clear();
        c.lotto_dimostrativo = false;
        rapporto_.sostituito_dimostrativo = true;
    }
    GiornoLotto& giorno = c.lotto[riga.data];
    auto& ruota = giorno.ruote[riga.ruota];
    // A draw that stays as it is stored keeps its number too.
    const bool nuova = !ruota;
    const bool uguale = ruota == riga.numeri;
    if (riga.numero && (uguale || sostituisci_ || !giorno.numero)) giorno.numero = riga.numero;
    if (nuova || uguale) {
        ++(nuova ? portato.nuove : portato.uguali);
        ruota = riga.numeri;
        return;
    }
    diversa(nome, riga.riga, italiana(riga.data) + " " + std::string(sigle[riga.ruota]),
            elenco(riga.numeri), elenco(*ruota), portato);
    if (sostituisci_) ruota = riga.numeri;
}

void Importazione::superenalotto(const std::string& nome, const RigaSuperEnalotto& riga,
                                 Portato& portato) {
    Contenuto& c = rapporto_.contenuto;
    if (c.superenalotto_dimostrativo) {
        c.superenalotto.clear();
        c.superenalotto_dimostrativo = false;
        rapporto_.sostituito_dimostrativo = true;
    }
    const auto [dove, nuova] = c.superenalotto.try_emplace(riga.data, riga.sestina);
    Sestina& s = dove->second;
    if (nuova) {
        ++portato.nuove;
        return;
    }
    if (s.stessa(riga.sestina)) {
        if (riga.sestina.numero) s.numero = riga.sestina.numero;
        ++portato.uguali;
        return;
    }
    diversa(nome, riga.riga, italiana(riga.data), per_esteso(riga.sestina), per_esteso(s), portato);
    if (!sostituisci_) return;
    const auto numero = s.numero;
    s = riga.sestina;
    if (!s.numero) s.numero = numero;
}

/// The draws with the numbers that the program would read.
bool uguali(const Contenuto& a, const Contenuto& b) {
    const auto senza_numeri = [](Contenuto c) {
        for (auto& [data, giorno] : c.lotto) giorno.numero.reset();
        for (auto& [data, sestina] : c.superenalotto) sestina.numero.reset();
        return c;
    };
    return numera(a.lotto) == numera(b.lotto) &&
           numera(a.superenalotto) == numera(b.superenalotto) && senza_numeri(a) == senza_numeri(b);
}

std::string plurale(std::int64_t quante, const char* una, const char* tante) {
    return platform::CStr(static_cast<double>(quante)) + " " + (quante == 1 ? una : tante);
}

}  // namespace

std::string Nota::in_riga() const {
    return platform::da_mostrare(file) + (riga > 0 ? ":" + std::to_string(riga) : std::string()) +
           ": " + platform::mostrabile(testo);
}

std::int64_t Rapporto::rifiutate() const {
    return std::accumulate(portati.begin(), portati.end(), std::int64_t{0},
                           [](std::int64_t n, const Portato& p) { return n + p.rifiutate; });
}

std::int64_t Rapporto::diverse() const {
    return std::accumulate(portati.begin(), portati.end(), std::int64_t{0},
                           [](std::int64_t n, const Portato& p) { return n + p.diverse; });
}

bool metti_dimostrativo(const std::string& destinazione) {
    const std::string cartella = platform::cartella_di(destinazione);
    if (!platform::crea_cartella(cartella)) return false;
    const Blocco blocco(cartella);
    if (platform::esiste_file(destinazione)) return true;
    return blocco.preso() && salva(destinazione, dimostrativo());
}

Rapporto importa(const std::string& destinazione, const std::vector<std::string>& file,
                 bool sostituisci, const Avanzamento& avanzamento) {
    Rapporto rapporto;
    const auto errore = [&](const std::string& testo) {
        rapporto.errori.push_back({destinazione, 0, testo});
        return rapporto;
    };
    const std::string cartella = platform::cartella_di(destinazione);
    if (!platform::crea_cartella(cartella)) return errore("la cartella non si può creare");
    const Blocco blocco(cartella);
    if (!blocco.preso()) return errore("un'altra importazione è in corso");
    Contenuto prima;
    const int letto = carica(destinazione, prima);
    const bool c_era = platform::dimensione_file(destinazione).has_value();
    if (c_era && letto != 0) {
        return errore("l'archivio non si legge: " +
                      std::string(platform::Err{letto}.Description()));
    }
    if (platform::in_uso_altrui(destinazione)) {
        return errore("un altro programma tiene aperto l'archivio: chiudilo e riprova");
    }
    rapporto.contenuto = prima;
    std::size_t fatti = 0;
    const auto avanza = [&] {
        if (avanzamento) avanzamento(fatti, file.size());
    };
    Importazione lavoro(rapporto, sostituisci, avanza);
    for (; fatti < file.size(); ++fatti) {
        avanza();
        lavoro.file(file[fatti]);
    }
    for (const auto& [data, giorno] : rapporto.contenuto.lotto) {
        rapporto.incomplete += giorno.completo() ? 0 : 1;
    }
    if (!rapporto.errori.empty()) return rapporto;
    if (!c_era || !uguali(prima, rapporto.contenuto)) {
        if (!salva(destinazione, rapporto.contenuto))
            return errore("l'archivio non si può scrivere");
        rapporto.scritto = true;
    }
    rapporto.riuscito = true;
    avanza();
    return rapporto;
}

std::vector<std::string> in_righe(const Rapporto& r) {
    std::vector<std::string> righe;
    for (const Portato& p : r.portati) {
        if (!r.riuscito) {
            righe.push_back(platform::da_mostrare(p.file) + ": letto, ma non importato");
            continue;
        }
        righe.push_back(platform::da_mostrare(p.file) + ": " +
                        plurale(p.nuove, "riga nuova", "righe nuove") + ", " +
                        plurale(p.uguali, "già presente", "già presenti") + ", " +
                        plurale(p.diverse, "diversa", "diverse") + ", " +
                        plurale(p.rifiutate, "rifiutata", "rifiutate"));
    }
    if (r.incomplete > 0 && r.riuscito) {
        righe.push_back(
            plurale(r.incomplete, "estrazione del Lotto ha", "estrazioni del Lotto hanno") +
            " meno di dieci ruote: fuori dall'archivio finché non sono complete");
    }
    if (!r.riuscito) {
        righe.emplace_back("Niente è stato scritto.");
        return righe;
    }
    for (const Nota& nota : r.lasciati) righe.push_back("Lasciato da parte: " + nota.in_riga());
    if (r.sostituito_dimostrativo) {
        righe.emplace_back("Le estrazioni dimostrative sono state sostituite.");
    }
    righe.emplace_back(r.scritto ? "Archivio aggiornato." : "L'archivio era già aggiornato.");
    return righe;
}

namespace {

template <typename Estrazioni>
std::string riassunto(const std::string& gioco, const Estrazioni& numeri, bool dimostrativo) {
    std::string testo = gioco + ": ";
    if (numeri.empty()) return testo + "nessuna estrazione";
    testo += plurale(static_cast<std::int64_t>(numeri.size()), "estrazione", "estrazioni");
    testo += " dal " + italiana(numeri.begin()->first) + " al " + italiana(numeri.rbegin()->first) +
             ", concorsi da " + std::to_string(numeri.begin()->second) + " a " +
             std::to_string(numeri.rbegin()->second);
    return testo + (dimostrativo ? " (archivio dimostrativo)" : "");
}

}  // namespace

std::vector<std::string> stato(const Contenuto& c) {
    auto lotto = numera(c.lotto);
    std::vector<std::string> righe{
        riassunto("SuperEnalotto", numera(c.superenalotto), c.superenalotto_dimostrativo),
        riassunto("Lotto", lotto, c.lotto_dimostrativo)};
    std::int64_t incomplete = 0;
    for (const auto& [data, giorno] : c.lotto) {
        incomplete += giorno.completo() ? 0 : 1;
        if (!giorno.completo() || !giorno.ruote[ruote_regionali]) lotto.erase(data);
    }
    righe.push_back(riassunto("Ruota Nazionale", lotto, c.lotto_dimostrativo));
    if (incomplete > 0) {
        righe.push_back("In attesa delle altre ruote: " +
                        plurale(incomplete, "estrazione del Lotto", "estrazioni del Lotto"));
    }
    return righe;
}

}  // namespace importazione
