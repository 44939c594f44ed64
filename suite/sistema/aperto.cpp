#include "sistema/aperto.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <set>

#include "comune/progresso.h"
#include "development/tabelle.h"
#include "platform/application.h"
#include "platform/disk.h"
#include "platform/runtime.h"
#include "systems/appartenenza.h"
#include "systems/elenco.h"

namespace sistema {

using crossword::Elenco;
using crossword::Gioco;
using systems::Elaborato;

namespace {

/// Name of the system in the session, whatever that of the file.
constexpr const char* in_linea = "sistema";
/// More than the file of the largest crossword takes.
constexpr std::int64_t byte_massimi = std::int64_t{1} << 20;
constexpr std::size_t lunga_estensione = 4;

/// The game that the ending of a name tells; nothing for any other file.
std::optional<Gioco> gioco_di(const std::string& file) {
    const std::string minuscolo = platform::LCase(file);
    for (const Gioco gioco : {Gioco::superenalotto(), Gioco::lotto()}) {
        if (minuscolo.ends_with(gioco.estensione_sistema())) return gioco;
    }
    return std::nullopt;
}

std::string in_numeri(int n, const char* uno, const char* molti) {
    return std::to_string(n) + (n == 1 ? uno : molti);
}

}  // namespace

Aperto::Aperto(std::string file, const Contesto& contesto)
    : file_(std::move(file)), contesto_(contesto) {}

systems::Coppia Aperto::propria() const {
    return {banco_->cartella(), in_linea, coppia_.gioco};
}

std::string Aperto::apri() {
    reale_ = platform::nome_su_disco(file_);
    const std::optional<Gioco> gioco = gioco_di(reale_);
    if (!gioco) return "non è un sistema: il nome deve finire con .sen o con .sel";
    const std::filesystem::path percorso(reale_);
    const std::string base = percorso.filename().string();
    coppia_ = {percorso.has_parent_path() ? percorso.parent_path().generic_string() : ".",
               base.substr(0, base.size() - lunga_estensione), *gioco};
    if (!systems::nome_ammesso(coppia_.nome)) return "il sistema non ha nome";
    if (!platform::esiste_file(reale_)) return "il file non c'è";
    impronta_ = platform::impronta(reale_);
    const std::optional<std::string> byte = platform::leggi_tutto(reale_, byte_massimi);
    if (!byte) return "il file non si può leggere, o è troppo grande per un sistema";
    banco_ = std::make_unique<Banco>(contesto_.programma);
    if (!banco_->pronto()) return "la cartella dei file temporanei non si può usare";
    {
        std::ofstream copia(propria().sistema(), std::ios::binary);
        if (!(copia << *byte).flush()) return "la cartella dei file temporanei è piena";
    }
    sessione_ = std::make_unique<systems::Sessione>(
        banco_->cartella(), platform::radice(contesto_.programma) + "ridotti");
    sessione_->avvia();
    if (gioco->e_lotto()) sessione_->passa_al_lotto();
    sessione_->quote(contesto_.quote);
    if (!sessione_->apri(in_linea)) return "il file non si può aprire";
    coppia_.gioco = sessione_->gioco();
    std::string guasto = difetto();
    if (!guasto.empty()) return guasto;
    // One that was never developed has no price yet.
    if (sessione_->senza_ripetizioni() == 0) sessione_->totale_combinazioni();
    avverti();
    return {};
}

bool Aperto::cambiato() const {
    return !impronta_ || platform::impronta(reale_) != impronta_;
}

std::string Aperto::difetto() const {
    const systems::Sessione& s = *sessione_;
    const crossword::Matrice& m = s.matrice();
    if (!s.gioco().valido()) {
        return "il file è guasto: un sistema del Lotto gioca 3, 4 o 5 numeri, non " +
               std::to_string(s.gioco().forma());
    }
    if (m.colonne() != s.colonne() || m.righe() != s.righe()) {
        return "il file è guasto: un cruciverba non ha " +
               in_numeri(m.colonne(), " colonna e ", " colonne e ") +
               in_numeri(m.righe(), " riga", " righe");
    }
    for (int y = 0; y < m.righe(); ++y) {
        for (int x = 0; x < m.colonne(); ++x) {
            if (m(x, y) >= 1 && m(x, y) <= analysis::numeri_del_gioco) continue;
            return "il file è guasto: nella riga " + std::to_string(y + 1) + ", colonna " +
                   std::to_string(x + 1) + ", non c'è un numero da 1 a 90";
        }
    }
    const systems::Coppia qui = propria();
    return difetto_dei_tipi(systems::leggi_sistema(qui.cartella, qui.nome, qui.gioco));
}

std::string Aperto::difetto_dei_tipi(const systems::Sistema& letto) const {
    struct Voce {
        const char* nome;
        Elenco elenco;
        std::int32_t tipo;
    };
    for (const Voce& v : {Voce{"righe", Elenco::orizzontali, letto.tipo_righe},
                          Voce{"colonne", Elenco::verticali, letto.tipo_colonne},
                          Voce{"diagonali", Elenco::diagonali, letto.tipo_diagonali}}) {
        if (!sessione_->linee(v.elenco) || sessione_->indice(v.elenco) == v.tipo) continue;
        return std::string("il file è guasto: il tipo ") + std::to_string(v.tipo) + " delle " +
               v.nome + " non è nella lista";
    }
    if (letto.senza_ripetizioni < 0) return "il file è guasto: conta combinazioni negative";
    return {};
}

void Aperto::avverti() {
    const crossword::Matrice& m = sessione_->matrice();
    std::set<int> ripetuti;
    for (int y = 0; y < m.righe(); ++y) {
        for (int x = 0; x < m.colonne(); ++x) {
            if (sessione_->sbarrati({x, y}).test(static_cast<std::size_t>(m(x, y))))
                ripetuti.insert(m(x, y));
        }
    }
    for (const int numero : ripetuti) {
        avvisi_.push_back("il numero " + std::to_string(numero) +
                          " sta più di una volta sulla stessa linea");
    }
}

std::string Aperto::tabella_mancante() const {
    const systems::Sessione& s = *sessione_;
    const auto manca = [&](int n, Elenco quale) {
        const std::string nome = development::nome_tabella(s.gioco(), n, s.indice(quale));
        return platform::esiste_file(s.ridotti() + "/" + nome) ? std::string() : nome;
    };
    std::vector<std::string> nomi{manca(s.colonne(), Elenco::orizzontali),
                                  manca(s.righe(), Elenco::verticali)};
    if (s.linee(Elenco::diagonali)) {
        nomi.push_back(manca(s.righe(), Elenco::diagonali));
        if (s.gioco().adiacenti(s.righe())) nomi.push_back(manca(s.righe() - 1, Elenco::diagonali));
    }
    const auto prima = std::find_if(nomi.begin(), nomi.end(),
                                    [](const std::string& nome) { return !nome.empty(); });
    return prima == nomi.end() ? "" : *prima;
}

std::string Aperto::sviluppa() {
    if (const std::string nome = tabella_mancante(); !nome.empty()) {
        return "manca la tabella " + nome + " in " + platform::da_mostrare(sessione_->ridotti());
    }
    suite::Progresso progresso("Sviluppo di " + platform::da_mostrare(file_));
    systems::SeguitoSviluppo seguito;
    const auto totale = static_cast<std::uint64_t>(std::max(sessione_->totale(), 1));
    seguito.avanzamento = [&](std::int32_t righe) {
        progresso.mostra(std::min(static_cast<std::uint64_t>(righe), totale), totale);
        return !contesto_.fermato();
    };
    switch (sessione_->sviluppa(seguito)) {
        case Elaborato::completo:
            return {};
        case Elaborato::interrotto:
            return "sviluppo interrotto";
        case Elaborato::senza_tabella:
            return "la tabella " + sessione_->tabelle_mancanti().front() + " in " +
                   platform::da_mostrare(sessione_->ridotti()) + " è guasta";
        case Elaborato::senza_file:
            return "le tabelle in " + platform::da_mostrare(sessione_->ridotti()) +
                   " non si possono leggere";
        case Elaborato::rimasto:
            return "lo sviluppo non si può scrivere, e quello di prima non si può togliere";
        default:
            return "lo sviluppo non si può scrivere: il disco è pieno o guasto";
    }
}

std::string Aperto::leggi_proprio(Sviluppo& sviluppo) {
    return leggi(propria().sviluppo(), sviluppo);
}

std::string Aperto::leggi_sviluppo(Sviluppo& sviluppo) {
    if (contesto_.qui) {
        std::string perche = sviluppa();
        return perche.empty() ? leggi_proprio(sviluppo) : perche;
    }
    const std::string file = coppia_.sviluppo();
    if (!platform::esiste_file(file)) {
        return "manca lo sviluppo: «sistema sviluppa --scrivi» lo fa, e con --sviluppa se ne usa "
               "uno senza scriverlo";
    }
    if (!systems::sviluppo_proprio(coppia_)) {
        return "lo sviluppo non è di questo cruciverba: «sistema sviluppa --scrivi» lo rifà";
    }
    std::string perche = leggi(file, sviluppo);
    if (!perche.empty()) return perche;
    const std::vector<int> propri = crossword::numeri_in_gioco(sessione_->matrice());
    for (const std::uint8_t numero : sviluppo.giocate.in_gioco) {
        if (std::binary_search(propri.begin(), propri.end(), int{numero})) continue;
        return "lo sviluppo non è di questo cruciverba: gioca il " + std::to_string(numero) +
               ", che il cruciverba non ha";
    }
    const std::int32_t contate = sessione_->senza_ripetizioni();
    if (contate > 0 && static_cast<std::size_t>(contate) != sviluppo.giocate.righe()) {
        avvisi_.push_back("lo sviluppo ha " + std::to_string(sviluppo.giocate.righe()) +
                          " combinazioni, e il sistema ne conta " + std::to_string(contate));
    }
    return {};
}

std::string Aperto::leggi(const std::string& file, Sviluppo& sviluppo) const {
    using analysis::Lettura;
    sviluppo.file = file;
    const Lettura lettura = analysis::leggi_giocate(file, coppia_.gioco.numeri(), sviluppo.giocate,
                                                    [this] { return !contesto_.fermato(); });
    if (lettura != Lettura::letta) return std::string(analysis::parola(lettura));
    const std::int64_t guaste = sviluppo.giocate.guaste;
    if (guaste == 0) return {};
    return guaste == 1
               ? "lo sviluppo è guasto: una riga non è una combinazione"
               : "lo sviluppo è guasto: " + std::to_string(guaste) + " righe non sono combinazioni";
}

}  // namespace sistema
