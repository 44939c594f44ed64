// Every table that ships, proven from its file by plain enumeration; only the last comparison
// touches the program's own proof.
#include <algorithm>
#include <array>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "development/garanzie.h"
#include "support/cartella.h"

using support::contenuto;

namespace {

struct Attesa {
    const char* nome;
    std::size_t righe;
    int p;
    int t;
    unsigned quante;
};

void PrintTo(const Attesa& attesa, std::ostream* uscita) {
    *uscita << attesa.nome;
}

// Row counts as the captions tell them, and what the captions promise. The quartine of 14 numbers
// have the 18 rows of their caption, since 14 rows cannot give its guarantee.
constexpr std::array<Attesa, 136> tabelle_attese = {
    {{"cr0600", 1, 6, 6, 1},    {"cr0700", 7, 6, 6, 1},    {"cr0701", 1, 6, 5, 1},
     {"cr0702", 1, 6, 4, 1},    {"cr0703", 1, 6, 3, 1},    {"cr0800", 28, 6, 6, 1},
     {"cr0801", 4, 6, 5, 1},    {"cr0802", 1, 6, 4, 1},    {"cr0803", 1, 6, 3, 1},
     {"cr0900", 84, 6, 6, 1},   {"cr0901", 8, 6, 5, 1},    {"cr0902", 3, 6, 4, 1},
     {"cr0903", 1, 6, 3, 1},    {"cr0904", 12, 4, 4, 1},   {"cr1000", 210, 6, 6, 1},
     {"cr1001", 18, 6, 5, 1},   {"cr1002", 5, 6, 4, 1},    {"cr1003", 2, 6, 3, 1},
     {"cr1100", 462, 6, 6, 1},  {"cr1101", 34, 6, 5, 1},   {"cr1102", 11, 6, 4, 1},
     {"cr1103", 2, 6, 3, 1},    {"cr1104", 66, 4, 4, 3},   {"cr1200", 924, 6, 6, 1},
     {"cr1201", 68, 6, 5, 1},   {"cr1202", 10, 6, 4, 1},   {"cr1203", 4, 6, 3, 1},
     {"cr1204", 15, 3, 3, 1},   {"cr1205", 132, 5, 5, 1},  {"cr1300", 1716, 6, 6, 1},
     {"cr1301", 116, 6, 5, 1},  {"cr1302", 23, 6, 4, 1},   {"cr1303", 4, 6, 3, 1},
     {"cr1304", 250, 5, 5, 1},  {"cr1400", 3003, 6, 6, 1}, {"cr1401", 203, 6, 5, 1},
     {"cr1402", 23, 6, 4, 1},   {"cr1403", 7, 6, 3, 1},    {"cr1404", 18, 6, 4, 1},
     {"cr1500", 5005, 6, 6, 1}, {"cr1501", 315, 6, 5, 1},  {"cr1502", 31, 6, 4, 1},
     {"cr1503", 7, 6, 3, 1},    {"cr1504", 34, 3, 3, 1},   {"cr1505", 180, 4, 4, 1},
     {"cr1506", 70, 5, 4, 1},   {"cr1507", 25, 6, 4, 1},   {"tr0500", 10, 3, 3, 1},
     {"tr0501", 4, 2, 2, 1},    {"tr0600", 20, 3, 3, 1},   {"tr0601", 6, 2, 2, 1},
     {"tr0700", 35, 3, 3, 1},   {"tr0701", 7, 2, 2, 1},    {"tr0800", 56, 3, 3, 1},
     {"tr0801", 11, 2, 2, 1},   {"tr0900", 84, 3, 3, 1},   {"tr0901", 12, 2, 2, 1},
     {"tr1000", 120, 3, 3, 1},  {"tr1001", 17, 2, 2, 1},   {"tr1100", 165, 3, 3, 1},
     {"tr1101", 19, 2, 2, 1},   {"tr1200", 220, 3, 3, 1},  {"tr1201", 24, 2, 2, 1},
     {"tr1300", 286, 3, 3, 1},  {"tr1301", 26, 2, 2, 1},   {"tr1400", 364, 3, 3, 1},
     {"tr1401", 33, 2, 2, 1},   {"tr1500", 455, 3, 3, 1},  {"tr1501", 35, 2, 2, 1},
     {"qt0500", 5, 4, 4, 1},    {"qt0501", 1, 4, 3, 1},    {"qt0600", 15, 4, 4, 1},
     {"qt0601", 3, 2, 2, 1},    {"qt0700", 35, 4, 4, 1},   {"qt0701", 5, 2, 2, 1},
     {"qt0800", 70, 4, 4, 1},   {"qt0801", 6, 2, 2, 1},    {"qt0802", 14, 3, 3, 1},
     {"qt0900", 126, 4, 4, 1},  {"qt0901", 8, 2, 2, 1},    {"qt1000", 210, 4, 4, 1},
     {"qt1001", 9, 2, 2, 1},    {"qt1100", 330, 4, 4, 1},  {"qt1101", 11, 2, 2, 1},
     {"qt1102", 47, 3, 3, 1},   {"qt1200", 495, 4, 4, 1},  {"qt1201", 12, 2, 2, 1},
     {"qt1202", 57, 3, 3, 1},   {"qt1300", 715, 4, 4, 1},  {"qt1301", 13, 2, 2, 1},
     {"qt1302", 78, 3, 3, 1},   {"qt1400", 1001, 4, 4, 1}, {"qt1401", 18, 2, 2, 1},
     {"qt1402", 91, 3, 3, 1},   {"qt1500", 1365, 4, 4, 1}, {"qt1501", 19, 2, 2, 1},
     {"qt1502", 124, 3, 3, 1},  {"cn0500", 1, 5, 5, 1},    {"cn0600", 6, 5, 5, 1},
     {"cn0601", 1, 5, 4, 1},    {"cn0700", 21, 5, 5, 1},   {"cn0701", 3, 2, 2, 1},
     {"cn0702", 5, 3, 3, 1},    {"cn0703", 9, 4, 4, 1},    {"cn0800", 56, 5, 5, 1},
     {"cn0801", 4, 2, 2, 1},    {"cn0802", 8, 3, 3, 1},    {"cn0803", 20, 4, 4, 1},
     {"cn0900", 126, 5, 5, 1},  {"cn0901", 5, 2, 2, 1},    {"cn0902", 12, 3, 3, 1},
     {"cn0903", 30, 4, 4, 1},   {"cn1000", 252, 5, 5, 1},  {"cn1001", 6, 2, 2, 1},
     {"cn1002", 17, 3, 3, 1},   {"cn1003", 51, 4, 4, 1},   {"cn1100", 462, 5, 5, 1},
     {"cn1101", 7, 2, 2, 1},    {"cn1102", 20, 3, 3, 1},   {"cn1103", 66, 4, 4, 1},
     {"cn1200", 792, 5, 5, 1},  {"cn1201", 9, 2, 2, 1},    {"cn1202", 29, 3, 3, 1},
     {"cn1203", 113, 4, 4, 1},  {"cn1300", 1287, 5, 5, 1}, {"cn1301", 10, 2, 2, 1},
     {"cn1302", 34, 3, 3, 1},   {"cn1303", 157, 4, 4, 1},  {"cn1400", 2002, 5, 5, 1},
     {"cn1401", 12, 2, 2, 1},   {"cn1402", 43, 3, 3, 1},   {"cn1403", 230, 4, 4, 1},
     {"cn1500", 3003, 5, 5, 1}, {"cn1501", 13, 2, 2, 1},   {"cn1502", 56, 3, 3, 1},
     {"cn1503", 295, 4, 4, 1}}};

std::string file_di(const std::string& nome) {
    return SUITE_DIR "/ridotti/" + nome + ".rid";
}

/// Rows of a file that must be made of numbers, commas and CR LF alone.
std::vector<std::vector<int>> righe_di(const std::string& nome) {
    const std::string testo = contenuto(file_di(nome));
    std::vector<std::vector<int>> righe(1, std::vector<int>(1, 0));
    for (std::size_t i = 0; i < testo.size(); ++i) {
        const char c = testo[i];
        if (c >= '0' && c <= '9') {
            righe.back().back() = righe.back().back() * 10 + (c - '0');
        } else if (c == ',') {
            righe.back().push_back(0);
        } else if (c == '\r' && i + 1 < testo.size() && testo[i + 1] == '\n') {
            ++i;
            righe.emplace_back(1, 0);
        } else {
            ADD_FAILURE() << nome << ": byte " << static_cast<int>(c) << " at " << i;
            return {};
        }
    }
    EXPECT_EQ(righe.back(), std::vector<int>(1, 0)) << nome << ": no line end at the end";
    righe.pop_back();
    return righe;
}

int lunghezza(const std::string& nome) {
    return std::stoi(nome.substr(2, 2));
}

unsigned insieme(const std::vector<int>& numeri) {
    unsigned bit = 0;
    for (const int numero : numeri) bit |= 1U << numero;
    return bit;
}

/// What enumerating all draws of p numbers finds.
struct Trovato {
    unsigned minime = ~0U;              ///< fewest rows with t or more
    unsigned minime_o_superiore = ~0U;  ///< the same where no row has more than t
    std::map<int, unsigned> migliori;   ///< draws by their best row
};

Trovato enumera(const std::vector<std::vector<int>>& righe, int n, int p, int t) {
    std::vector<unsigned> insiemi;
    for (const std::vector<int>& riga : righe) insiemi.push_back(insieme(riga));
    Trovato trovato;
    for (unsigned sorteggio = 0; sorteggio < (1U << n); ++sorteggio) {
        if (__builtin_popcount(sorteggio) != p) continue;
        int migliore = 0;
        unsigned buone = 0;
        for (const unsigned riga : insiemi) {
            const int comuni = __builtin_popcount(riga & (sorteggio << 1));
            migliore = comuni > migliore ? comuni : migliore;
            buone += comuni >= t ? 1U : 0U;
        }
        ++trovato.migliori[migliore];
        trovato.minime = std::min(trovato.minime, buone);
        if (migliore <= t) trovato.minime_o_superiore = std::min(trovato.minime_o_superiore, buone);
    }
    return trovato;
}

class TabellaRidotta : public testing::TestWithParam<Attesa> {};

TEST_P(TabellaRidotta, RigheEGaranzia) {
    const Attesa& attesa = GetParam();
    const std::string nome = attesa.nome;
    const int n = lunghezza(nome);
    const std::size_t k = nome[0] == 't' ? 3 : nome[0] == 'q' ? 4 : nome[1] == 'n' ? 5 : 6;
    const std::vector<std::vector<int>> righe = righe_di(nome);
    ASSERT_EQ(righe.size(), attesa.righe);
    for (const std::vector<int>& riga : righe) {
        ASSERT_EQ(riga.size(), k);
        ASSERT_GE(riga.front(), 1);
        ASSERT_LE(riga.back(), n);
        ASSERT_TRUE(std::adjacent_find(riga.begin(), riga.end(), std::greater_equal<>()) ==
                    riga.end());
    }
    ASSERT_TRUE(std::adjacent_find(righe.begin(), righe.end(), std::greater_equal<>()) ==
                righe.end())
        << "rows not in lexicographic order, or repeated";
    const Trovato trovato = enumera(righe, n, attesa.p, attesa.t);
    EXPECT_GE(trovato.minime, attesa.quante);

    const auto parti = development::leggi_nome(nome + ".rid");
    ASSERT_TRUE(parti.has_value());
    EXPECT_EQ(development::garanzia_dichiarata(*parti),
              (development::Garanzia{attesa.p, attesa.t, static_cast<int>(attesa.quante)}));
    const development::Lettura lettura =
        development::leggi_rigorosa(contenuto(file_di(nome)), n, static_cast<int>(k));
    ASSERT_TRUE(lettura.errori.empty());
    ASSERT_TRUE(lettura.avvisi.empty());
    const auto tutte = development::tutte_le_vincite(lettura.tabella);
    ASSERT_GE(tutte.size(), static_cast<std::size_t>(attesa.p));
    const development::Vincite& v = tutte[static_cast<std::size_t>(attesa.p - 1)];
    EXPECT_EQ(v.minime[static_cast<std::size_t>(attesa.t)], trovato.minime);
    for (std::size_t livello = 0; livello <= k; ++livello) {
        const auto quanti = trovato.migliori.find(static_cast<int>(livello));
        EXPECT_EQ(v.migliore[livello], quanti == trovato.migliori.end() ? 0U : quanti->second);
    }
}

INSTANTIATE_TEST_SUITE_P(Tutte, TabellaRidotta, testing::ValuesIn(tabelle_attese),
                         [](const testing::TestParamInfo<Attesa>& parametro) {
                             return std::string(parametro.param.nome);
                         });

TEST(GaranzieUlteriori, OgniRigaDellElencoVale) {
    std::ifstream elenco(SUITE_DIR "/ridotti/garanzie.csv");
    std::string riga;
    ASSERT_TRUE(std::getline(elenco, riga));
    EXPECT_EQ(riga, "table,p,t,rows,or_one_row_higher");
    int quante = 0;
    while (std::getline(elenco, riga)) {
        SCOPED_TRACE(riga);
        std::replace(riga.begin(), riga.end(), ',', ' ');
        std::istringstream campi(riga);
        std::string nome;
        int p = 0;
        int t = 0;
        unsigned minime = 0;
        int o_superiore = -1;
        ASSERT_TRUE(campi >> nome >> p >> t >> minime >> o_superiore);
        const Trovato trovato = enumera(righe_di(nome), lunghezza(nome), p, t);
        EXPECT_GE(trovato.minime, minime);
        // The last column makes it one row more, or one that holds more.
        if (o_superiore == 1) {
            EXPECT_GE(trovato.minime_o_superiore, minime + 1);
        }
        ++quante;
    }
    EXPECT_EQ(quante, 170);
}

TEST(GaranzieUlteriori, DueCinqueOUnSeiEOgniQuaternaDueVolte) {
    const auto righe = righe_di("cr1501");
    EXPECT_EQ(enumera(righe, 15, 6, 5).minime, 1U);
    EXPECT_EQ(enumera(righe, 15, 6, 5).minime_o_superiore, 2U);
    EXPECT_EQ(enumera(righe, 15, 4, 4).minime, 2U);
}

TEST(GaranzieUlteriori, OttoQuartineSuNoveNumeriDannoAncheDueSuDue) {
    const auto righe = righe_di("qt0901");
    EXPECT_GE(enumera(righe, 9, 3, 2).minime, 1U);
    EXPECT_GE(enumera(righe, 9, 2, 2).minime, 1U);
}

TEST(GaranzieUlteriori, LaTabellaDi295ContieneIlDisegnoDi291) {
    const auto righe = righe_di("cn1503");
    std::vector<unsigned> della_tabella;
    for (const auto& riga : righe) della_tabella.push_back(insieme(riga));
    // Three turns of (1 2 3)(4 5 6)(7 8 9)(10 11 12) on the blocks of the design.
    const auto gira = [](unsigned blocco) {
        unsigned altro = 0;
        for (int i = 1; i <= 15; ++i) {
            const int dove = i > 12 ? i : i % 3 == 0 ? i - 2 : i + 1;
            if ((blocco >> i & 1U) != 0) altro |= 1U << dove;
        }
        return altro;
    };
    std::string testo = contenuto(SOURCE_DIR "/suite/ridotti/minimi/basi_tabelle.txt");
    testo.erase(0, testo.find("cn1503"));
    std::vector<unsigned> disegno;
    for (std::size_t i = testo.find('{'); i != std::string::npos; i = testo.find('{', i + 1)) {
        unsigned blocco = 0;
        std::istringstream numeri(testo.substr(i + 1, testo.find('}', i) - i - 1));
        for (std::string numero; std::getline(numeri, numero, ',');) {
            blocco |= 1U << std::stoi(numero);
        }
        for (int giro = 0; giro < 3; ++giro) {
            disegno.push_back(blocco);
            blocco = gira(blocco);
        }
    }
    std::sort(disegno.begin(), disegno.end());
    disegno.erase(std::unique(disegno.begin(), disegno.end()), disegno.end());
    EXPECT_EQ(disegno.size(), 291U);
    constexpr std::array<int, 15> nella_tabella = {1, 8, 10, 2,  14, 15, 4, 6,
                                                   5, 7, 11, 13, 3,  9,  12};
    for (const unsigned originale : disegno) {
        unsigned blocco = 0;
        for (std::size_t i = 0; i < nella_tabella.size(); ++i) {
            if ((originale >> (i + 1) & 1U) != 0) blocco |= 1U << nella_tabella[i];
        }
        EXPECT_TRUE(std::find(della_tabella.begin(), della_tabella.end(), blocco) !=
                    della_tabella.end());
    }
    for (unsigned quattro = 0; quattro < (1U << 15); ++quattro) {
        if (__builtin_popcount(quattro) != 4) continue;
        const unsigned sorteggio = quattro << 1;
        EXPECT_TRUE(std::any_of(disegno.begin(), disegno.end(), [sorteggio](unsigned blocco) {
            return (blocco & sorteggio) == sorteggio;
        })) << quattro;
    }
}

}  // namespace
