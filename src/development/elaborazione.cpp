#include "development/elaborazione.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "crossword/linee.h"
#include "platform/disk.h"
#include "platform/runtime.h"

namespace development {

namespace {

/// Lines between two calls of the progress routine.
constexpr std::int32_t passo = 250;

/// Text of a number and the separator behind it, ready to be appended.
struct Pezzo {
    std::array<char, 4> testo{};
    std::size_t lunghezza = 0;
};

Pezzo pezzo(int numero) {
    Pezzo p;
    for (const char c : std::to_string(numero) + ",") p.testo[p.lunghezza++] = c;
    return p;
}

}  // namespace

Elaborazione::Elaborazione(Richiesta richiesta, Avanzamento avanzamento)
    : richiesta_(std::move(richiesta)), avanzamento_(std::move(avanzamento)) {}

std::string Elaborazione::file_temporaneo() const {
    return richiesta_.cartella + "/temp" + estensione_sviluppo(richiesta_.lotto);
}

const TabellaPosizioni& Elaborazione::tabella(int n, int tipo) {
    const std::string nome = nome_tabella(richiesta_.lotto, richiesta_.forma, n, tipo);
    const auto nota = tabelle_.find(nome);
    if (nota != tabelle_.end()) return nota->second;
    TabellaPosizioni letta;
    if (!nome.empty() && tipo >= 0) {
        letta = leggi_tabella(richiesta_.ridotti + "/" + nome,
                              numeri_combinazione(richiesta_.lotto, richiesta_.forma), n);
    }
    return tabelle_.emplace(nome, std::move(letta)).first->second;
}

void Elaborazione::aggiungi_righe(const std::vector<std::uint8_t>& linea,
                                  const TabellaPosizioni& t) {
    std::vector<Pezzo> pezzi;
    pezzi.reserve(linea.size());
    for (const std::uint8_t numero : linea) pezzi.push_back(pezzo(numero));
    const auto k = static_cast<std::size_t>(t.k);
    // Room for the longest lines a damaged crossword can give: a whole piece a number, LF.
    testo_.resize(t.righe() * (k * sizeof(Pezzo::testo) + 1));
    char* p = testo_.data();
    for (std::size_t i = 0; i < t.posizioni.size(); i += k) {
        for (std::size_t j = 0; j < k; ++j) {
            const Pezzo& parte = pezzi[t.posizioni[i + j] - 1U];
            std::memcpy(p, parte.testo.data(), parte.testo.size());
            p += parte.lunghezza;
        }
        p[-1] = '\r';
        *p++ = '\n';
        if (++righe_scritte_ % passo == 0 && avanzamento_ && !avanzamento_(righe_scritte_)) {
            interrotta_ = true;
            break;
        }
    }
    testo_.resize(static_cast<std::size_t>(p - testo_.data()));
}

bool Elaborazione::elabora(std::vector<std::uint8_t> linea, int tipo) {
    if (linea.empty()) return false;
    ordina_controlli(linea, 0, linea.size() - 1);
    const TabellaPosizioni& t = tabella(static_cast<int>(linea.size()), tipo);
    if (!t.letta) return false;
    aggiungi_righe(linea, t);
    esiste_ = true;
    byte_scritti_ += static_cast<std::int64_t>(testo_.size());
    if (platform::aggiungi(file_temporaneo(), testo_) != platform::Esito::ok) {
        guasta_ = true;
        return false;
    }
    return true;
}

Conclusione Elaborazione::sviluppa() {
    for (const crossword::Linea& linea :
         crossword::linee_sviluppo(richiesta_.matrice, richiesta_.lotto)) {
        const int tipo = linea.gruppo == crossword::Gruppo::orizzontali ? richiesta_.tipo_righe
                         : linea.gruppo == crossword::Gruppo::verticali ? richiesta_.tipo_colonne
                                                                        : richiesta_.tipo_diagonali;
        elabora(linea.numeri, tipo);
        if (avanzamento_ && !interrotta_ && !avanzamento_(righe_scritte_)) interrotta_ = true;
        if (interrotta_) return Conclusione::interrotta;
    }
    if (!esiste_) return Conclusione::senza_file;
    // A full disk can pass unnoticed through the writing; the size cannot lie.
    if (platform::dimensione_file(file_temporaneo()) != byte_scritti_) guasta_ = true;
    return guasta_ ? Conclusione::guasta : Conclusione::completa;
}

void elimina_temporanei(const std::string& cartella,
                        const std::function<bool(const std::string&)>& cestina) {
    for (const std::string& nome : platform::Dir(cartella, "temp*")) {
        const std::string minuscolo = platform::LCase(nome);
        const bool di_lavoro = minuscolo == "temp.col" || minuscolo == "temp.lot" ||
                               minuscolo == "temp.mdb" || minuscolo == "temp.ldb" ||
                               platform::e_nome_di_lavoro(minuscolo);
        if (platform::lavoro_di_altri(minuscolo)) continue;
        if (di_lavoro) {
            platform::Kill(cartella + "/" + nome);
        } else if (cestina) {
            cestina(cartella + "/" + nome);
        }
    }
}

bool completa_sviluppo(const std::string& temporaneo, const std::string& finale,
                       std::int64_t dimensione) {
    if (platform::pubblica(temporaneo, finale, dimensione) == platform::Esito::ok) return true;
    // An old development must not stand beside a crossword that it no longer belongs to.
    platform::Kill(finale);
    return false;
}

}  // namespace development
