#include "development/tabelle.h"

#include "platform/text_file.h"

namespace development {

std::string nome_tabella(crossword::Gioco gioco, int n, int tipo) {
    if (!gioco.valido()) return "";
    // The told numbers have one figure, and those of the economical tables two.
    return gioco.prefisso_tabelle() + std::string(n < 10 ? "0" : "") + std::to_string(n) +
           (tipo < 10 ? "0" : "") + std::to_string(tipo) + ".rid";
}

TabellaPosizioni leggi_tabella(const std::string& nome, int k, int n) {
    TabellaPosizioni tabella;
    tabella.k = k;
    platform::TextReader file;
    // A hundred times the longest table of all.
    constexpr std::int64_t limite = std::int64_t{1} << 24;
    if (k < 1 || !file.apri(nome, limite)) return tabella;
    tabella.letta = true;
    while (!file.eof()) {
        const std::size_t inizio = tabella.posizioni.size();
        for (int i = 0; i < k; ++i) {
            std::uint8_t p = 0;
            if (!file.intero(p) || p < 1 || p > n) {
                tabella.posizioni.resize(inizio);
                return tabella;
            }
            tabella.posizioni.push_back(p);
        }
    }
    return tabella;
}

}  // namespace development
