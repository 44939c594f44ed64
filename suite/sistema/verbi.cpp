#include "sistema/verbi.h"

#include <algorithm>
#include <filesystem>
#include <thread>

#include "platform/disk.h"
#include "platform/runtime.h"
#include "statistics/archivio.h"

namespace sistema {

namespace {

/// A price as it is shown, with a digit before its comma.
std::string euro(const std::string& testo) {
    return testo.starts_with(',') ? "0" + testo : testo;
}

/// A price as it is shown, as JSON; one beyond all measure is none.
std::string numero_json(const std::string& testo) {
    std::string numero;
    for (const char c : euro(testo)) {
        if (c == '.') continue;
        numero += c == ',' ? '.' : c;
    }
    return numero.empty() ? "null" : numero;
}

}  // namespace

std::string Destinazione::leggi(const suite::Parole& parole, const Contesto& contesto, bool serve) {
    const std::string* dove = parole.valore("-o");
    if (dove == nullptr) return serve ? "-o dice dove scrivere: manca" : "";
    if (dove->empty()) return "-o vuole un file o una cartella";
    dove_ = *dove;
    cartella_ = platform::esiste_cartella(dove_);
    if (!cartella_ && contesto.sistemi > 1) return "più sistemi vogliono una cartella dopo -o";
    return {};
}

std::string Destinazione::per(const Aperto& aperto, const std::string& coda) const {
    return cartella_ ? dove_ + (dove_.ends_with('/') ? "" : "/") + aperto.nome() + coda : dove_;
}

std::string Destinazione::vietata(const Aperto& aperto, const std::string& file) {
    namespace fs = std::filesystem;
    const auto reale = [](const std::string& nome) {
        std::error_code errore;
        return fs::weakly_canonical(fs::absolute(platform::nome_su_disco(nome), errore), errore);
    };
    const fs::path cercato = reale(file);
    if (cercato == reale(aperto.coppia().sistema())) return "-o è il file del sistema stesso";
    if (cercato != reale(aperto.coppia().sviluppo())) return {};
    return "-o è lo sviluppo del sistema: accanto lo scrive «sistema sviluppa --scrivi»";
}

std::string non_scritto(const std::string& file) {
    return "il file " + platform::da_mostrare(file) + " non si può scrivere";
}

std::string arrivo(const std::string& file, const Aperto& aperto, bool sovrascrivi,
                   systems::Coppia& coppia) {
    const crossword::Gioco gioco = aperto.coppia().gioco;
    std::string errore = Destinazione::vietata(aperto, file);
    if (!errore.empty()) return errore;
    const std::string estensione = gioco.estensione_sistema();
    if (!platform::LCase(file).ends_with(estensione))
        return "il file dopo -o deve finire con " + estensione;
    const std::size_t barra = file.rfind('/');
    const std::size_t inizio = barra == std::string::npos ? 0 : barra + 1;
    coppia = {inizio == 0 ? "." : file.substr(0, inizio),
              file.substr(inizio, file.size() - inizio - estensione.size()), gioco};
    if (coppia.nome.empty()) return "il file dopo -o non ha nome";
    if (!sovrascrivi && platform::esiste_file(file))
        return platform::da_mostrare(file) + " c'è già: con --sovrascrivi prende il suo posto";
    return {};
}

std::string scrivi(const Aperto& aperto, const systems::Coppia& coppia) {
    if (!systems::scrivi_sistema(coppia.cartella, coppia.nome, aperto.sessione().sistema()))
        return non_scritto(coppia.sistema());
    // An old development must not stand beside another crossword.
    platform::Kill(coppia.sviluppo());
    return {};
}

std::string intero(std::uint64_t n) {
    return n == 0 ? "0" : platform::Format(static_cast<double>(n), platform::Modello::interi);
}

std::string combinazioni(std::uint64_t n) {
    return intero(n) + (n == 1 ? " combinazione" : " combinazioni");
}

std::string importo(const systems::Prezzo& prezzo) {
    std::string testo = euro(prezzo.totale) + " " + prezzo.valuta;
    if (prezzo.quote == "1") return testo;
    return testo + ", in " + prezzo.quote + " quote da " + euro(prezzo.quota) + " " + prezzo.valuta;
}

void importo(const systems::Prezzo& prezzo, suite::Json& json) {
    json.voce("importo").fatto(numero_json(prezzo.totale));
    json.voce("quote").fatto(prezzo.quote);
    json.voce("quota").fatto(numero_json(prezzo.quota));
    json.voce("valuta").testo(prezzo.valuta);
}

std::vector<int> leggi_numeri(const std::string& testo) {
    std::vector<int> numeri;
    std::size_t da = 0;
    while (da <= testo.size()) {
        const std::size_t a = std::min(testo.find(',', da), testo.size());
        const std::string parola = testo.substr(da, a - da);
        const bool cifre = !parola.empty() && parola.size() <= 2 &&
                           parola.find_first_not_of("0123456789") == std::string::npos;
        const int numero = cifre ? static_cast<int>(platform::Val(parola)) : 0;
        if (numero < 1 || numero > analysis::numeri_del_gioco ||
            std::find(numeri.begin(), numeri.end(), numero) != numeri.end()) {
            return {};
        }
        numeri.push_back(numero);
        da = a + 1;
    }
    return numeri;
}

std::string titolo(const Aperto& aperto) {
    return platform::da_mostrare(aperto.file());
}

void descrivi(const systems::Sessione& s, suite::Json& json) {
    json.voce("gioco").testo(s.gioco().nome());
    json.voce("numeri_per_combinazione").intero(s.gioco().numeri());
    json.voce("colonne").intero(s.colonne());
    json.voce("righe").intero(s.righe());
    json.voce("numeri_in_gioco").intero(s.numeri_in_gioco());
}

std::string in_righe(std::span<const analysis::Tavola> tavole) {
    constexpr std::size_t larghezza = 100;
    std::string testo;
    for (const std::string& riga : analysis::righe_di_testo(tavole, larghezza))
        testo += riga + "\n";
    return testo;
}

std::string leggi_ruota(const suite::Parole& parole, Ruota& ruota) {
    const std::string* detta = parole.valore("--ruota");
    if (detta == nullptr) return {};
    const std::string cercata = platform::LCase(*detta);
    for (const statistics::Ruota& r : statistics::ruote) {
        if (cercata != platform::LCase(r.nome) && cercata != platform::LCase(r.codice)) continue;
        ruota = {std::string(r.codice), std::string(r.nome), true};
        return {};
    }
    return "nessuna ruota si chiama «" + *detta + "»";
}

std::string ruota_fuori_luogo(const Ruota& ruota, const Aperto& aperto) {
    const bool fuori = ruota.data && !aperto.coppia().gioco.e_lotto();
    return fuori ? "--ruota vale per i sistemi del Lotto" : "";
}

int esecutori() {
    return static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
}

}  // namespace sistema
