#include "development/elaborazione.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>
#include <utility>

#include "platform/disk.h"
#include "platform/runtime.h"

namespace development {

namespace {

constexpr std::string_view prefisso_temporanei = "temp";

/// Lines between two calls of the progress routine.
constexpr std::int32_t passo = 250;

/// Combinations between the one that is looked up and the one whose place is fetched meanwhile.
constexpr std::size_t anticipo = 16;

/// Text of a number and the separator behind it, ready to be appended.
struct Pezzo {
    std::array<char, 4> testo{};
    std::uint32_t lunghezza = 0;
};

Pezzo pezzo(int numero) {
    Pezzo p;
    for (const char c : std::to_string(numero) + ",") p.testo[p.lunghezza++] = c;
    return p;
}

}  // namespace

Elaborazione::Elaborazione(Richiesta richiesta, AvanzamentoSviluppo avanzamento)
    : richiesta_(std::move(richiesta)), avanzamento_(std::move(avanzamento)) {}

std::string Elaborazione::file_temporaneo() const {
    return richiesta_.cartella + "/temp" + richiesta_.gioco.estensione_sviluppo();
}

const TabellaPosizioni& Elaborazione::tabella(int n, int tipo) {
    const std::string nome = nome_tabella(richiesta_.gioco, n, tipo);
    const auto nota = tabelle_.find(nome);
    if (nota != tabelle_.end()) return nota->second;
    TabellaPosizioni letta;
    if (!nome.empty() && tipo >= 0) {
        letta = leggi_tabella(richiesta_.ridotti + "/" + nome, richiesta_.gioco.numeri(), n);
    }
    return tabelle_.emplace(nome, std::move(letta)).first->second;
}

void Elaborazione::aggiungi_righe(const std::vector<std::uint8_t>& linea,
                                  const TabellaPosizioni& t) {
    std::vector<Pezzo> pezzi;
    pezzi.reserve(linea.size());
    for (const std::uint8_t numero : linea) pezzi.push_back(pezzo(numero));
    const auto k = static_cast<std::size_t>(t.k);
    combinazioni_.clear();
    // Room for the longest lines a damaged crossword can give: a whole piece a number, LF.
    testo_.resize(std::max(testo_.size(), t.righe() * (k * sizeof(Pezzo::testo) + 1)));
    char* p = testo_.data();
    for (std::size_t i = 0; i < t.posizioni.size(); i += k) {
        const char* const inizio = p;
        Combinazione combinazione = 0;
        for (std::size_t j = 0; j < k; ++j) {
            const std::size_t posto = t.posizioni[i + j] - 1U;
            const Pezzo& parte = pezzi[posto];
            std::memcpy(p, parte.testo.data(), parte.testo.size());
            p += parte.lunghezza;
            combinazione = combinazione << 8 | linea[posto];
        }
        p[-1] = '\r';
        *p++ = '\n';
        combinazioni_.push_back(combinazione | static_cast<Combinazione>(p - inizio) << 56);
        if (++righe_sviluppate_ % passo == 0 && avanzamento_ && !avanzamento_(righe_sviluppate_)) {
            interrotta_ = true;
            break;
        }
    }
    byte_linea_ = static_cast<std::size_t>(p - testo_.data());
}

void Elaborazione::togli_ripetizioni() {
    char* fine = testo_.data();
    const char* riga = testo_.data();
    std::size_t tenute = 0;
    for (std::size_t i = 0; i < combinazioni_.size(); ++i) {
        if (i + anticipo < combinazioni_.size()) viste_->avvicina(combinazioni_[i + anticipo]);
        const std::size_t byte = byte_riga(combinazioni_[i]);
        if (viste_->aggiungi(combinazioni_[i])) {
            if (fine != riga) std::memmove(fine, riga, byte);
            fine += byte;
            ++tenute;
        }
        riga += byte;
    }
    byte_linea_ = static_cast<std::size_t>(fine - testo_.data());
    combinazioni_.resize(tenute);
}

bool Elaborazione::elabora(std::vector<std::uint8_t> linea, int tipo) {
    if (linea.empty()) return false;
    ordina_controlli(linea, 0, linea.size() - 1);
    const TabellaPosizioni& t = tabella(static_cast<int>(linea.size()), tipo);
    if (!t.letta) return false;
    aggiungi_righe(linea, t);
    if (viste_) togli_ripetizioni();
    esiste_ = true;
    righe_scritte_ += static_cast<std::int32_t>(combinazioni_.size());
    byte_scritti_ += static_cast<std::int64_t>(byte_linea_);
    const std::string_view righe(testo_.data(), byte_linea_);
    if (platform::aggiungi(file_temporaneo(), righe) != platform::Esito::ok) {
        guasta_ = true;
        return false;
    }
    return true;
}

int Elaborazione::tipo_di(const crossword::Linea& linea) const {
    switch (linea.gruppo) {
        case crossword::Gruppo::orizzontali:
            return richiesta_.tipo_righe;
        case crossword::Gruppo::verticali:
            return richiesta_.tipo_colonne;
        default:
            return richiesta_.tipo_diagonali;
    }
}

Conclusione Elaborazione::sviluppa() {
    const auto linee = crossword::linee_sviluppo(richiesta_.matrice, richiesta_.gioco);
    if (richiesta_.senza_ripetizioni) {
        std::size_t quante = 0;
        for (const crossword::Linea& linea : linee) {
            quante += tabella(static_cast<int>(linea.numeri.size()), tipo_di(linea)).righe();
        }
        viste_.emplace(quante);
    }
    for (const crossword::Linea& linea : linee) {
        elabora(linea.numeri, tipo_di(linea));
        if (avanzamento_ && !interrotta_ && !avanzamento_(righe_sviluppate_)) interrotta_ = true;
        if (interrotta_) return Conclusione::interrotta;
    }
    if (!esiste_) return Conclusione::senza_file;
    // A full disk can pass unnoticed through the writing; the size cannot lie.
    if (platform::dimensione_file(file_temporaneo()) != byte_scritti_) guasta_ = true;
    return guasta_ ? Conclusione::guasta : Conclusione::completa;
}

bool e_temporaneo(std::string_view nome) {
    return platform::LCase(std::string(nome)).starts_with(prefisso_temporanei);
}

void elimina_temporanei(const std::string& cartella,
                        const std::function<bool(const std::string&)>& cestina) {
    platform::spazza(cartella);
    for (const std::string& nome :
         platform::Dir(cartella, std::string(prefisso_temporanei) + "*")) {
        const std::string minuscolo = platform::LCase(nome);
        // What is left of these, its owner is still about to use.
        if (platform::e_nome_di_lavoro(minuscolo)) continue;
        const bool di_lavoro = minuscolo == "temp.col" || minuscolo == "temp.lot" ||
                               minuscolo == "temp.mdb" || minuscolo == "temp.ldb";
        if (di_lavoro) {
            platform::Kill(cartella + "/" + nome);
        } else if (cestina) {
            cestina(cartella + "/" + nome);
        }
    }
}

bool completa_sviluppo(const std::string& temporaneo, const std::string& finale,
                       std::int64_t dimensione) {
    const std::string arrivo = platform::dietro_il_collegamento(finale);
    if (platform::pubblica(temporaneo, arrivo, dimensione) == platform::Esito::ok) return true;
    // An old development must not stand beside a crossword that it no longer belongs to.
    platform::Kill(finale);
    return false;
}

}  // namespace development
