#include "development/economiche.h"

#include <algorithm>
#include <array>
#include <tuple>

#include "development/garanzie.h"
#include "development/tabelle.h"
#include "platform/disk.h"
#include "platform/runtime.h"

namespace development {

using crossword::Gioco;

namespace {

/// No table is longer than the full one of 5005 rows of six positions.
constexpr std::int64_t byte_massimi = 1 << 20;

/// "1 Ambo", "1 Terno" and so on, as the lists of Lotto have them.
const char* vincita(int t) {
    static constexpr std::array<const char*, 6> nomi = {"1 Numero", "1 Numero",   "1 Ambo",
                                                        "1 Terno",  "1 Quaterna", "1 Cinquina"};
    return nomi[static_cast<std::size_t>(std::clamp(t, 0, 5))];
}

std::string combinazioni(const Economica& e, Gioco gioco) {
    std::string nome = gioco.nome_combinazioni();
    if (e.righe == 1 && !nome.empty()) nome.back() = 'a';
    return std::to_string(e.righe) + " " + nome;
}

std::optional<Economica> prova(const std::string& contenuto, Gioco gioco, int n, int numero) {
    const Lettura letta = leggi_rigorosa(contenuto, n, gioco.numeri());
    if (!letta.errori.empty() || letta.tabella.righe.empty()) return std::nullopt;
    Economica e{numero, static_cast<int>(letta.tabella.righe.size()), {}};
    if (const auto detta = garanzia_del_numero(gioco, numero);
        detta && detta->p <= n && buchi(letta.tabella, *detta, 0).quanti == 0) {
        e.garanzia = *detta;
        return e;
    }
    const auto migliore = garanzia_migliore(letta.tabella, gioco);
    if (!migliore) return std::nullopt;
    e.garanzia = *migliore;
    return e;
}

}  // namespace

std::optional<Garanzia> garanzia_del_numero(Gioco gioco, int numero) {
    const int t = numero / 10;
    const int p = numero % 10;
    if (numero >= prima_propria || t < 2 || p < t || t > gioco.numeri() || p > estratti_di(gioco))
        return std::nullopt;
    return Garanzia{p, t};
}

std::optional<NomeTabella> leggi_nome_economico(std::string_view file) {
    const std::size_t cartella = file.find_last_of("/\\");
    if (cartella != std::string_view::npos) file.remove_prefix(cartella + 1);
    const std::string nome = platform::LCase(std::string(file));
    if (nome.size() != 10 || !nome.ends_with(".rid")) return std::nullopt;
    const std::string_view cifre = std::string_view(nome).substr(2, 4);
    if (!std::all_of(cifre.begin(), cifre.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return std::nullopt;
    const auto due = [&](std::size_t da) { return (cifre[da] - '0') * 10 + (cifre[da + 1] - '0'); };
    const NomeTabella parti{nome.substr(0, 2), due(0), due(2)};
    if (parti.k() == 0 || parti.n < parti.k() || parti.n > Gioco::lato_massimo ||
        !e_economica(parti.tipo)) {
        return std::nullopt;
    }
    return parti;
}

std::optional<Garanzia> garanzia_migliore(const Tabella& tabella, Gioco gioco) {
    std::optional<Garanzia> migliore;
    for (int p = 2; p <= std::min(estratti_di(gioco), tabella.n); ++p) {
        const int t = vincite(tabella, p).garantito();
        if (t >= 2 && (!migliore || t > migliore->t)) migliore = Garanzia{p, t};
    }
    return migliore;
}

std::string testo_economica(const Economica& e, Gioco gioco, int n) {
    const auto tutte = static_cast<double>(binomiale(n, gioco.numeri()));
    const std::string quante =
        combinazioni(e, gioco) + " (" + platform::Significative(e.righe / tutte * 100, 3) + " %)";
    const std::string p = std::to_string(e.garanzia.p);
    if (gioco.e_lotto()) {
        return std::to_string(n) + " Numeri - " + quante + " - Garanzia " + vincita(e.garanzia.t) +
               " con " + p + " Estratti";
    }
    return quante + " - Min.1(" + std::to_string(e.garanzia.t) + ") con " + p + " estratti";
}

std::optional<Economica> Economiche::una(const std::string& ridotti, Gioco gioco, int n,
                                         int numero) {
    if (!gioco.valido() || !e_economica(numero)) return std::nullopt;
    const std::string file = ridotti + "/" + nome_tabella(gioco, n, numero);
    const auto contenuto = platform::leggi_tutto(file, byte_massimi);
    if (!contenuto) return std::nullopt;
    const auto [dove, nuova] = provate_.try_emplace(file);
    if (nuova || dove->second.contenuto != *contenuto) {
        dove->second = {*contenuto, prova(*contenuto, gioco, n, numero)};
    }
    return dove->second.economica;
}

std::vector<Economica> Economiche::di(const std::string& ridotti, Gioco gioco, int n) {
    std::vector<Economica> tutte;
    if (!gioco.valido()) return tutte;
    const std::string lunghi = (n < 10 ? "0" : "") + std::to_string(n);
    for (const std::string& file :
         platform::Dir(ridotti, gioco.prefisso_tabelle() + lunghi + "??.rid")) {
        const auto nome = leggi_nome_economico(file);
        if (!nome) continue;
        if (const auto e = una(ridotti, gioco, n, nome->tipo)) tutte.push_back(*e);
    }
    std::sort(tutte.begin(), tutte.end(), [](const Economica& a, const Economica& b) {
        return std::tie(a.garanzia.t, a.garanzia.p, a.righe, a.numero) <
               std::tie(b.garanzia.t, b.garanzia.p, b.righe, b.numero);
    });
    return tutte;
}

}  // namespace development
