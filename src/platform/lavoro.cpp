#include "platform/lavoro.h"

#include <ctime>

#include "platform/macchina.h"
#include "platform/runtime.h"

namespace platform {

using macchina::Guasto;
using macchina::Voce;

namespace {

std::string nome_numerato(const std::string& cartella, int n) {
    return cartella + "/temp-" + std::to_string(macchina::processo()) + "-" + std::to_string(n) +
           ".nuovo";
}

}  // namespace

Esito esito_di(Guasto guasto) {
    switch (guasto) {
        case Guasto::nessuno:
            return Esito::ok;
        case Guasto::assente:
            return Esito::assente;
        case Guasto::pieno:
            return Esito::disco_pieno;
        default:
            return Esito::errore;
    }
}

Esito concludi(File& file, Esito esito) {
    if (!file.chiudi() && esito == Esito::ok) return esito_di(file.guasto());
    return esito;
}

bool Lavoro::prendi(const std::string& nome) {
    Voce voce;
    // A sweeper may have found the file before it was locked: then it is, or will be, deleted.
    if (blocca(file_) == Presa::occupata || !file_.guarda(voce) || voce.nomi == 0) {
        file_.chiudi();
        return false;
    }
    custode_.tieni(file_);
    nome_ = nome;
    esito_ = Esito::ok;
    return true;
}

Lavoro::Lavoro(const std::string& cartella) {
    constexpr int tentativi = 100;
    for (int n = 0; n < tentativi; ++n) {
        const std::string prova = nome_numerato(cartella, n);
        if (file_.apri(prova, File::Modo::nuovo)) {
            if (prendi(prova)) return;
        } else if (file_.guasto() != Guasto::esiste) {
            esito_ = esito_di(file_.guasto());
            return;
        }
    }
}

Lavoro::~Lavoro() {
    file_.chiudi();
    if (!nome_.empty()) macchina::togli(nome_);
    lascia();
}

void Lavoro::lascia() {
    nome_.clear();
    custode_.lascia();
}

Esito Lavoro::pubblica(const std::string& nome, std::int64_t dimensione, Creazione creazione) {
    const Esito esito = platform::pubblica(nome_, nome, dimensione, creazione);
    if (esito == Esito::ok) lascia();
    return esito;
}

Accantonato::~Accantonato() {
    if (!nome_.empty()) macchina::togli(nome_);
}

Esito Accantonato::metti(const std::string& nome) {
    constexpr int tentativi = 200;
    if (!esiste_file(nome)) return Esito::assente;
    prima_ = nome_su_disco(nome);
    if (custode_.apri(prima_, File::Modo::leggi_se_file)) blocca(custode_);
    const std::string cartella = cartella_di(prima_);
    for (int n = tentativi / 2; n < tentativi; ++n) {
        const std::string prova = nome_numerato(cartella, n);
        if (macchina::c_e(prova)) continue;
        const Esito esito = Name(prima_, prova);
        if (esito == Esito::ok) nome_ = prova;
        return esito;
    }
    return Esito::errore;
}

Esito Accantonato::rimetti() {
    if (nome_.empty()) return Esito::assente;
    const Esito esito = Name(nome_, prima_);
    if (esito == Esito::ok) nome_.clear();
    return esito;
}

bool e_nome_di_lavoro(std::string_view nome) {
    if (!nome.starts_with("temp-") || !nome.ends_with(".nuovo")) return false;
    if (nome.size() < 12) return false;
    const std::string_view numeri = nome.substr(5, nome.size() - 11);
    return numeri.find_first_not_of("0123456789-") == std::string_view::npos && numeri[0] != '-';
}

void spazza(const std::string& cartella) {
    constexpr std::int64_t al_secondo = 1'000'000'000;
    constexpr auto un_giorno = std::time_t{24} * 60 * 60;
    for (const std::string& nome : Dir(cartella, "temp-*")) {
        if (!e_nome_di_lavoro(LCase(nome))) continue;
        const std::string completo = cartella + "/" + nome;
        File file(completo, File::Modo::cambia);
        if (!file.aperto()) file.apri(completo, File::Modo::leggi_se_file);
        if (!file.aperto()) continue;
        const Presa presa = blocca(file);
        Voce voce;
        // Where no lock tells whose it is, only time does.
        const bool vecchio =
            file.guarda(voce) && voce.cambiato / al_secondo < std::time(nullptr) - un_giorno;
        if (presa == Presa::presa || (presa == Presa::impossibile && vecchio)) Kill(completo);
    }
}

}  // namespace platform
