// Stands in for libFuzzer under any other compiler: the seeds, then as many mutations of them as
// were asked for, always the same.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "fuzz/ingresso.h"

namespace {

constexpr std::size_t lunghezza_massima = std::size_t{1} << 20;

using Parole = std::vector<std::string>;

std::string contenuto(const std::filesystem::path& nome) {
    std::ifstream f(nome, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), {}};
}

Parole semi(const std::string& cartella) {
    std::vector<std::filesystem::path> nomi;
    for (const auto& voce : std::filesystem::directory_iterator(cartella))
        nomi.push_back(voce.path());
    std::sort(nomi.begin(), nomi.end());
    Parole letti;
    for (const auto& nome : nomi) letti.push_back(contenuto(nome));
    return letti;
}

/// Words of a dictionary in libFuzzer's form: one between quotes a line, with \xNN, \\ and \".
Parole dizionario(const std::string& nome) {
    Parole parole;
    std::ifstream f(nome);
    for (std::string riga; std::getline(f, riga);) {
        const std::size_t da = riga.find('"');
        if (riga.starts_with('#') || da == std::string::npos) continue;
        std::string parola;
        for (std::size_t i = da + 1; i < riga.size() && riga[i] != '"'; ++i) {
            if (riga[i] == '\\' && riga[i + 1] == 'x') {
                parola += static_cast<char>(std::stoi(riga.substr(i + 2, 2), nullptr, 16));
                i += 3;
            } else {
                if (riga[i] == '\\') ++i;
                parola += riga[i];
            }
        }
        parole.push_back(parola);
    }
    return parole;
}

class Mutatore {
public:
    Mutatore(const Parole& semi, const Parole& parole) : semi_(semi), parole_(parole) {}

    std::string prossimo() {
        std::string dati = semi_[fino_a(semi_.size())];
        for (std::size_t n = fino_a(8) + 1; n > 0; --n) muta(dati);
        dati.resize(std::min(dati.size(), lunghezza_massima));
        return dati;
    }

private:
    std::size_t fino_a(std::size_t n) { return n == 0 ? 0 : caso_() % n; }

    void muta(std::string& dati) {
        const std::size_t dove = fino_a(dati.size() + 1);
        const std::size_t quanti = fino_a(std::min<std::size_t>(dati.size() - dove, 64) + 1);
        switch (fino_a(9)) {
            case 0:
                if (dove < dati.size()) dati[dove] = static_cast<char>(caso_());
                break;
            case 1:
                if (dove < dati.size())
                    dati[dove] = static_cast<char>(dati[dove] ^ (1 << fino_a(8)));
                break;
            case 2:
                dati.insert(dove, 1, static_cast<char>(caso_()));
                break;
            case 3:
                dati.erase(dove, quanti);
                break;
            case 4:
                dati.insert(dove, dati.substr(dove, quanti));
                break;
            case 5:
                dati.replace(dove, quanti, numeri_[fino_a(std::size(numeri_))]);
                break;
            case 6:
                if (!parole_.empty()) dati.insert(dove, parole_[fino_a(parole_.size())]);
                break;
            case 7: {
                const std::string& altro = semi_[fino_a(semi_.size())];
                const std::size_t da = fino_a(altro.size() + 1);
                dati.replace(dove, quanti, altro.substr(da, fino_a(altro.size() - da + 1)));
                break;
            }
            default:
                if (fino_a(4) == 0) dati.resize(dove);
        }
    }

    static constexpr const char* numeri_[] = {"0",
                                              "-1",
                                              "255",
                                              "256",
                                              "32767",
                                              "-32768",
                                              "1e9",
                                              "65536",
                                              "1E+308",
                                              "-2147483648",
                                              "2147483648",
                                              "4294967296",
                                              "90",
                                              "91",
                                              "&HFFFF",
                                              "0,5",
                                              "\"\"",
                                              ",",
                                              "\"",
                                              "\r",
                                              "\n",
                                              "\x1a",
                                              "99999999999999999999"};

    const Parole& semi_;
    const Parole& parole_;
    std::mt19937_64 caso_{20040612};
};

void prova(const std::string& dati) {
    // A copy of the exact size lets the sanitizer see a byte read too many.
    const std::vector<std::uint8_t> copia(dati.begin(), dati.end());
    LLVMFuzzerTestOneInput(copia.data(), copia.size());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: %s seeds dictionary mutations\n", argv[0]);
        return 2;
    }
    const Parole tutti = semi(argv[1]);
    if (tutti.empty()) return 2;
    const Parole parole = dizionario(argv[2]);
    for (const std::string& dati : tutti) prova(dati);
    prova("");
    const long quante = std::atol(argv[3]);
    Mutatore mutatore(tutti, parole);
    for (long i = 0; i < quante; ++i) prova(mutatore.prossimo());
    std::printf("%zu seeds, %ld mutations\n", tutti.size(), quante);
    return 0;
}
