#include "platform/installazione.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/application.h"
#include "platform/disk.h"
#include "platform/links.h"
#include "platform/macchina.h"
#include "platform/runtime.h"

namespace platform {

using macchina::Guasto;
using macchina::Voce;

namespace {

/// Folders whose files stay the suite's for as long as the player leaves them alone.
constexpr std::array rinnovate = {"ridotti", "skin", "archivio"};
/// Files of the program folder that come along; once given they are the player's.
constexpr std::array sistemi = {"*.sen", "*.col", "*.sel", "*.lot"};
/// Programs and pages that the suite's root leads to.
constexpr std::array collegati = {"guida", "guida.exe", "guida.html", "stampa", "stampa.exe"};

/// 64-bit FNV-1a in hexadecimal: tells a changed file from an unchanged one, proof of nothing more.
std::string impronta_di(std::string_view byte) {
    std::uint64_t valore = 0xcbf29ce484222325U;
    for (const char c : byte) {
        valore ^= static_cast<unsigned char>(c);
        valore *= 0x100000001b3U;
    }
    std::array<char, 16> cifre{};
    const auto esito = std::to_chars(cifre.data(), cifre.data() + cifre.size(), valore, 16);
    const auto quante = static_cast<std::size_t>(esito.ptr - cifre.data());
    return std::string(cifre.size() - quante, '0') + std::string(cifre.data(), quante);
}

std::optional<std::string> impronta_file(const std::string& nome) {
    const auto dati = leggi_tutto(nome);
    return dati ? std::optional(impronta_di(*dati)) : std::nullopt;
}

bool esiste_voce(const std::string& nome) {
    return macchina::c_e(nome_su_disco(nome));
}

std::string senza_estensione(const std::string& nome) {
    return nome.substr(0, nome.rfind('.'));
}

/// A user's own suite folder and the suite that fills it.
class Dotazione {
public:
    Dotazione(std::string suite, std::string utente, const std::string& programma)
        : suite_(std::move(suite)),
          utente_(std::move(utente)),
          cartella_(programma + "/"),
          programma_(utente_ + "/" + programma) {}
    /// Brings the folder up to the suite; what fails is left for the next start.
    void metti();

private:
    void leggi_registro();
    void leggi_dati(const std::string& file);
    void scrivi_registro(const std::string& timbro);
    [[nodiscard]] bool dato(const std::string& nome, const std::string& impronta) const {
        return dati_.contains({nome, impronta});
    }
    [[nodiscard]] bool dato(const std::string& nome) const;
    void dimentica(const std::string& nome);
    void segna(const std::string& nome, const std::string& impronta);

    [[nodiscard]] std::string timbro_della_suite() const;
    [[nodiscard]] std::vector<std::string> sistemi_della_suite() const;
    void rinnova();
    void rinnova_file(const std::string& nome);
    void dai_sistemi(const std::string& dove);
    [[nodiscard]] bool libero(const std::string& dove, const std::string& nome) const;
    void copia(const std::string& da, const std::string& a, const std::string& nome,
               const std::string& impronta);
    void collega(const std::string& nome);

    std::string suite_;
    std::string utente_;
    std::string cartella_;  // the program folder's name and a separator
    std::string programma_;
    std::string timbro_;
    // Names below the root with the fingerprint of what was given under them.
    std::set<std::pair<std::string, std::string>> dati_;
    bool cambiati_ = false;
    bool intera_ = true;
    bool disco_pieno_ = false;
};

bool Dotazione::dato(const std::string& nome) const {
    const auto primo = dati_.lower_bound({nome, ""});
    return primo != dati_.end() && primo->first == nome;
}

void Dotazione::dimentica(const std::string& nome) {
    std::erase_if(dati_, [&](const auto& voce) { return voce.first == nome; });
}

void Dotazione::segna(const std::string& nome, const std::string& impronta) {
    dimentica(nome);
    dati_.emplace(nome, impronta);
    cambiati_ = true;
}

/// Lines "fingerprint name".
void Dotazione::leggi_dati(const std::string& file) {
    constexpr std::size_t cifre = 16;
    const std::string testo = leggi_tutto(file).value_or("");
    for (std::size_t i = 0; i < testo.size();) {
        const std::size_t fine = std::min(testo.find('\n', i), testo.size());
        if (fine - i > cifre + 1 && testo[i + cifre] == ' ') {
            dati_.emplace(testo.substr(i + cifre + 1, fine - i - cifre - 1),
                          testo.substr(i, cifre));
        }
        i = fine + 1;
    }
}

void Dotazione::leggi_registro() {
    dati_.clear();
    leggi_dati(utente_ + "/dotazione");
    const auto timbro = dati_.lower_bound({".", ""});
    timbro_ = timbro != dati_.end() && timbro->first == "." ? timbro->second : "";
    dimentica(".");
    // Versions that kept no record left what this list of theirs tells.
    if (dati_.empty() && esiste_cartella(programma_)) leggi_dati(suite_ + "/precedenti");
}

void Dotazione::scrivi_registro(const std::string& timbro) {
    std::string testo = timbro.empty() ? "" : timbro + " .\n";
    for (const auto& [nome, impronta] : dati_) testo.append(impronta + " " + nome + "\n");
    sostituisci(utente_ + "/dotazione", testo);
}

std::vector<std::string> Dotazione::sistemi_della_suite() const {
    std::vector<std::string> nomi;
    for (const char* modello : sistemi) {
        for (std::string& nome : Dir(suite_ + "/" + cartella_, modello)) {
            // Somebody else's working files are no systems.
            if (nome.front() != '.' && !LCase(nome).starts_with("temp")) nomi.push_back(nome);
        }
    }
    return nomi;
}

/// Changes with any file of the suite; empty when there is none.
std::string Dotazione::timbro_della_suite() const {
    std::string testo;
    const auto aggiungi_file = [&](const std::string& nome) {
        constexpr std::int64_t al_secondo = 1'000'000'000;
        Voce voce;
        if (macchina::guarda(suite_ + "/" + nome, voce) != Guasto::nessuno) return;
        testo.append(nome + "|" + std::to_string(voce.byte) + "|" +
                     std::to_string(voce.cambiato / al_secondo) + "." +
                     std::to_string(voce.cambiato % al_secondo) + "\n");
    };
    for (const std::string parte : rinnovate) {
        for (const std::string& nome : Dir(suite_ + "/" + parte, "*"))
            aggiungi_file(parte + "/" + nome);
    }
    for (const std::string& nome : sistemi_della_suite()) aggiungi_file(cartella_ + nome);
    return testo.empty() ? "" : impronta_di(testo);
}

void Dotazione::copia(const std::string& da, const std::string& a, const std::string& nome,
                      const std::string& impronta) {
    if (disco_pieno_) return;
    const Esito esito = FileCopy(da, a);
    if (esito == Esito::ok) {
        segna(nome, impronta);
    } else {
        intera_ = false;
        disco_pieno_ = esito == Esito::disco_pieno;
    }
}

void Dotazione::rinnova_file(const std::string& nome) {
    const std::string da = suite_ + "/" + nome;
    const std::string a = utente_ + "/" + nome;
    const auto nostra = impronta_file(da);
    if (!nostra) {
        intera_ = false;
        return;
    }
    // A database's log would be played back into a file that it is none of.
    if (esiste_voce(a + "-wal") || esiste_voce(a + "-journal")) return;
    if (esiste_voce(a)) {
        const auto sua = impronta_file(a);
        if (sua == nostra) {
            segna(nome, *nostra);
            return;
        }
        if (!sua || collegamento(a) || !dato(nome, *sua)) return;
    }
    copia(da, a, nome, *nostra);
}

/// True when of the system that `nome` is a file of nothing was changed, deleted or made by the
/// player: half of a pair must not come to stand beside another's half.
bool Dotazione::libero(const std::string& dove, const std::string& nome) const {
    const std::string stelo = LCase(senza_estensione(nome));
    for (const auto& [dato, impronta] : dati_) {
        if (LCase(senza_estensione(dato)) != cartella_ + stelo) continue;
        if (impronta_file(dove + dato.substr(cartella_.size() - 1)) != impronta) return false;
    }
    for (const char* modello : sistemi) {
        for (const std::string& altro : Dir(dove, modello)) {
            if (LCase(senza_estensione(altro)) == stelo && !dato(cartella_ + altro)) return false;
        }
    }
    return true;
}

void Dotazione::dai_sistemi(const std::string& dove) {
    const std::vector<std::string> nomi = sistemi_della_suite();
    std::vector<std::pair<std::string, std::string>> mancanti;
    for (const std::string& nome : nomi) {
        if (dato(cartella_ + nome)) continue;
        const auto nostra = impronta_file(suite_ + "/" + cartella_ + nome);
        if (!nostra) {
            intera_ = false;
        } else if (impronta_file(dove + "/" + nome) == nostra) {
            segna(cartella_ + nome, *nostra);
        } else {
            mancanti.emplace_back(nome, *nostra);
        }
    }
    for (const auto& [nome, nostra] : mancanti) {
        if (!libero(dove, nome)) continue;
        copia(suite_ + "/" + cartella_ + nome, dove + "/" + nome, cartella_ + nome, nostra);
    }
}

void Dotazione::rinnova() {
    const bool prima = !esiste_cartella(programma_);
    // Complete under another name first, so that a first start cut short is taken up again.
    const std::string dove = prima ? programma_ + ".nuova" : programma_;
    if (prima) {
        std::erase_if(dati_, [&](const auto& voce) { return voce.first.starts_with(cartella_); });
    }
    for (const std::string parte : rinnovate) {
        crea_cartella(utente_ + "/" + parte);
        spazza(utente_ + "/" + parte);
        for (const std::string& nome : Dir(suite_ + "/" + parte, "*"))
            rinnova_file(parte + "/" + nome);
    }
    crea_cartella(dove);
    spazza(dove);
    dai_sistemi(dove);
    if (disco_pieno_ || !prima) return;
    if (macchina::rinomina(dove, programma_) != Guasto::nessuno) crea_cartella(programma_);
}

/// Leads the root to a file of the suite; one that is there stays, and so does a link to it.
void Dotazione::collega(const std::string& nome) {
    const std::string qui = utente_ + "/" + nome;
    const std::string vero = macchina::percorso_reale(suite_ + "/" + nome);
    if (vero.empty()) return;
    Voce voce;
    if (macchina::guarda_il_nome(qui, voce) == Guasto::nessuno) {
        if (!voce.collegamento()) return;
        const std::string ora = macchina::meta(qui);
        const bool nostro = dato(nome, impronta_di(ora));
        if (ora == vero && nostro) return;
        // A link of this program's follows the suite, a dead one gives way, another is the
        // player's.
        if (ora != vero && macchina::guarda(qui, voce) == Guasto::nessuno && !nostro) return;
    }
    // Without a link the menu finds no guide and does nothing, so a failure needs no word.
    macchina::togli(qui);
    if (macchina::collega(vero, qui) == Guasto::nessuno) segna(nome, impronta_di(vero));
}

void Dotazione::metti() {
    leggi_registro();
    std::string timbro = timbro_della_suite();
    const bool da_rinnovare = timbro != timbro_ || !esiste_cartella(programma_);
    std::optional<Turno> turno;
    if (da_rinnovare && crea_cartella(utente_)) {
        // Two first starts at a time take turns; the second finds the work done.
        turno.emplace(utente_);
        leggi_registro();
        rinnova();
    }
    for (const char* nome : collegati) collega(nome);
    if (!da_rinnovare && !cambiati_) return;
    if (!timbro.empty() && !disco_pieno_) scrivi_registro(intera_ ? timbro : "");
}

}  // namespace

void riempi_radice(const std::string& suite, const std::string& utente,
                   const std::string& programma) {
    Dotazione(suite, utente, programma).metti();
}

}  // namespace platform
