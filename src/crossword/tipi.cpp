#include "crossword/tipi.h"

#include <utility>

#include "platform/runtime.h"

namespace crossword {

namespace {

constexpr int primo_superenalotto = Gioco::superenalotto().lato_minimo();
constexpr int primo_lotto = Gioco::lotto().lato_minimo();

const std::vector<std::vector<std::int16_t>> sestine = {
    {1},
    {7, 1, 1, 1},
    {28, 4, 1, 1},
    {84, 8, 3, 1, 12},
    {210, 18, 5, 2},
    {462, 34, 11, 2, 66},
    {924, 68, 10, 4, 15, 132},
    {1716, 116, 23, 4, 250},
    {3003, 203, 23, 7, 18},
    {5005, 315, 31, 7, 34, 180, 70, 25},
};

const std::vector<std::vector<std::int16_t>> terzine = {
    {10, 4},   {20, 6},   {35, 7},   {56, 11},  {84, 12},  {120, 17},
    {165, 19}, {220, 24}, {286, 26}, {364, 33}, {455, 35},
};

// At 14 the count stays 14 though the type plays 18, and at 8 there is a third count without a
// type.
const std::vector<std::vector<std::int16_t>> quartine = {
    {5, 1},        {15, 3},       {35, 5},       {70, 6, 14},    {126, 8},        {210, 9},
    {330, 11, 47}, {495, 12, 57}, {715, 13, 78}, {1001, 14, 91}, {1365, 19, 124},
};

// At 7 there is a fourth count without a type.
const std::vector<std::vector<std::int16_t>> cinquine = {
    {1},
    {6, 1},
    {21, 3, 5, 9},
    {56, 4, 8, 20},
    {126, 5, 12, 30},
    {252, 6, 17, 51},
    {462, 7, 20, 66},
    {792, 9, 29, 113},
    {1287, 10, 34, 157},
    {2002, 12, 43, 230},
    {3003, 13, 56, 295},
};

const std::vector<std::vector<std::int16_t>>& tabella(Gioco gioco) {
    switch (gioco.numeri()) {
        case 3:
            return terzine;
        case 4:
            return quartine;
        case 5:
            return cinquine;
        default:
            return sestine;
    }
}

std::vector<std::string> tipi_superenalotto(Elenco quale, int n) {
    std::vector<std::string> tipi{"Integrale"};
    if (n == 6 || (n == 7 && quale == Elenco::diagonali)) return tipi;
    const int ridotti = n == 7 ? 1 : n == 8 ? 2 : 3;
    for (int i = 1; i <= ridotti; ++i) {
        tipi.push_back("Autoridotto [N-" + std::to_string(i) + "]");
    }
    static const std::vector<std::pair<int, std::vector<std::string>>> nominati = {
        {9, {"12 sestine - Min.1(4) con 4 estratti"}},
        {11, {"66 Sestine - Min.3(4) con 4 estratti"}},
        {12, {"15 sestine - Min.1(3) con 3 estratti", "132 Sestine - Min.1(5) con 5 estratti"}},
        {13, {"250 Sestine - Min.1(5) con 5 estratti"}},
        {14, {"18 Sestine - Min.1(4) con 6 estratti"}},
        {15,
         {"34 Sestine - Min.1(3) con 3 estratti", "180 Sestine - Min.1(4) con 4 estratti",
          "70 Sestine - Min.1(4) con 5 estratti", "25 Sestine - Min.1(4) con 6 estratti"}},
    };
    for (const auto& [numeri, testi] : nominati) {
        if (numeri == n) tipi.insert(tipi.end(), testi.begin(), testi.end());
    }
    return tipi;
}

std::string testo_lotto(int n, int quante, const char* coda) {
    return std::to_string(n) + " Numeri - " + std::to_string(quante) + coda;
}

std::vector<std::string> tipi_terzine(int n) {
    const int quante = terzine[static_cast<std::size_t>(n - primo_lotto)][1];
    return {"Integrale", testo_lotto(n, quante, " Terzine - Garanzia Ambo con 2 Estratti")};
}

std::vector<std::string> tipi_quartine(int n) {
    if (n == 5) return {"Integrale", "Autoridotto [N-1]"};
    std::vector<std::string> tipi{"Integrale"};
    const auto& conti = quartine[static_cast<std::size_t>(n - primo_lotto)];
    if (n == 8) {
        tipi.emplace_back("8 Numeri - 6 Quartine - Garanzia Ambo 1 con 2 Estratti");
    } else if (n == 9) {
        tipi.emplace_back("9 Numeri - 8 Quartine - Garanzia 1 Ambo con 3 Estratti");
    } else {
        const int quante = n == 14 ? 18 : conti[1];
        tipi.push_back(testo_lotto(n, quante, " Quartine - Garanzia 1 Ambo con 2 Estratti"));
    }
    if (n >= 11) {
        tipi.push_back(testo_lotto(n, conti[2], " Quartine - Garanzia 1 Terno con 3 Estratti"));
    }
    return tipi;
}

std::vector<std::string> tipi_cinquine(int n) {
    if (n == 5) return {"Integrale"};
    if (n == 6) return {"Integrale", "Autoridotto [N-1]"};
    const auto& conti = cinquine[static_cast<std::size_t>(n - primo_lotto)];
    std::vector<std::string> tipi{
        "Integrale", testo_lotto(n, conti[1], " Cinquine - Garanzia 1 Ambo con 2 Estratti"),
        testo_lotto(n, conti[2], " Cinquine - Garanzia 1 Terno con 3 Estratti")};
    if (n >= 8) {
        tipi.push_back(testo_lotto(n, conti[3], " Cinquine - Garanzia 1 Quaterna con 4 Estratti"));
    }
    return tipi;
}

}  // namespace

std::vector<std::string> tipi_sistema(Gioco gioco, Elenco quale, int n) {
    if (!gioco.valido() || n < gioco.lato_minimo() || n > Gioco::lato_massimo) return {};
    std::vector<std::string> tipi;
    switch (gioco.numeri()) {
        case 3:
            tipi = tipi_terzine(n);
            break;
        case 4:
            tipi = tipi_quartine(n);
            break;
        case 5:
            tipi = tipi_cinquine(n);
            break;
        default:
            tipi = tipi_superenalotto(quale, n);
            break;
    }
    // A type of the diagonals also serves lines one shorter, and named tables exist for one N.
    if (quale == Elenco::diagonali && tipi.size() > 4) tipi.resize(4);
    return tipi;
}

void Matsis::INIZIZLAIZZA_MATSIS(Gioco gioco) {
    if (!gioco.valido()) return;
    const auto& righe = tabella(gioco);
    for (std::size_t i = 0; i < righe.size(); ++i) {
        for (std::size_t t = 0; t < righe[i].size(); ++t) valori_[i][t] = righe[i][t];
    }
}

std::optional<std::int16_t> Matsis::operator()(int i, int t) const {
    if (i < 0 || i >= 11 || t < 0 || t >= 8) return std::nullopt;
    return valori_[static_cast<std::size_t>(i)][static_cast<std::size_t>(t)];
}

std::optional<std::string> testo_diagonali(const Matsis& matsis, int n, int t) {
    const auto intere = matsis(n - primo_superenalotto, t);
    if (!intere) return std::nullopt;
    if (n == primo_superenalotto) return "2 Sist. da " + platform::Str(*intere);
    const auto corte = matsis(n - primo_superenalotto - 1, t);
    if (!corte) return std::nullopt;
    return testo_diagonali(*intere, *corte);
}

std::string testo_diagonali(std::int32_t intere, std::int32_t corte) {
    return "2 Sist. da" + platform::Str(intere) + "  -  4 Sist. da" + platform::Str(corte);
}

std::optional<std::int32_t> combinazioni_diagonali(const Matsis& matsis, int n, int t) {
    const auto intere = matsis(n - primo_superenalotto, t);
    if (!intere) return std::nullopt;
    if (n == primo_superenalotto) return *intere * 2;
    const auto corte = matsis(n - primo_superenalotto - 1, t);
    if (!corte) return std::nullopt;
    return *intere * 2 + *corte * 4;
}

}  // namespace crossword
