// Files of draws in every shape that players have them: read back exactly, or refused.
#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <numeric>
#include <random>

#include "archivio/lettura.h"

using namespace importazione;

namespace {

/// Equal on every machine, as the distributions of the library are not.
class Caso {
public:
    explicit Caso(std::uint32_t seme) : motore_(seme) {}
    std::size_t fino_a(std::size_t n) { return motore_() % n; }
    bool una_su(std::size_t n) { return fino_a(n) == 0; }
    template <typename T>
    void mescola(std::vector<T>& voci) {
        for (std::size_t i = voci.size(); i > 1; --i) std::swap(voci[i - 1], voci[fino_a(i)]);
    }
    template <typename T>
    const T& una_di(const std::vector<T>& voci) {
        return voci[fino_a(voci.size())];
    }

private:
    std::mt19937 motore_;
};

struct Concorso {
    Data data;
    std::int32_t numero = 0;
    std::int32_t annuo = 0;
    std::vector<std::int16_t> estratti;  ///< as they came
    std::int16_t jolly = 0;
    std::int16_t superstar = 0;  ///< 0 before there was one
};

std::vector<std::int16_t> estrai(Caso& caso, std::size_t quanti) {
    std::vector<std::int16_t> urna(90);
    std::iota(urna.begin(), urna.end(), std::int16_t{1});
    for (std::size_t i = 0; i < quanti; ++i) std::swap(urna[i], urna[i + caso.fino_a(90 - i)]);
    urna.resize(quanti);
    return urna;
}

/// A history of the game's length and days: two draws a week, later three, then four.
std::vector<Concorso> storia() {
    Caso caso(1997);
    std::vector<Concorso> concorsi;
    std::map<int, std::int32_t> nell_anno;
    const std::int32_t prima = platform::seriale({1997, 12, 3});
    const std::int32_t ultima = platform::seriale({2026, 8, 20});
    for (std::int32_t giorno = prima; giorno <= ultima; ++giorno) {
        const Data d = platform::da_seriale(giorno);
        const std::int32_t della_settimana = (giorno - prima) % 7;  // 0 is Wednesday
        const bool due = della_settimana == 0 || della_settimana == 3;
        const bool tre = della_settimana == 6 || della_settimana == 1 || della_settimana == 3;
        const bool quattro = tre || della_settimana == 2;
        if (d < Data{2005, 7, 1} ? !due : d < Data{2023, 7, 1} ? !tre : !quattro) continue;
        Concorso c;
        c.data = d;
        c.numero = static_cast<std::int32_t>(concorsi.size()) + 1;
        c.annuo = ++nell_anno[d.anno];
        c.estratti = estrai(caso, 7);
        c.jolly = c.estratti.back();
        c.estratti.pop_back();
        if (d >= Data{2006, 3, 28}) c.superstar = static_cast<std::int16_t>(1 + caso.fino_a(90));
        concorsi.push_back(c);
    }
    return concorsi;
}

std::string in_forma(const Data& d, std::size_t forma) {
    const auto corto = [](int n) { return std::to_string(n); };
    const auto lungo = [&](int n) { return (n < 10 ? "0" : "") + corto(n); };
    const std::string a = corto(d.anno);
    const std::string m = lungo(d.mese);
    const std::string g = lungo(d.giorno);
    const std::string forme[] = {a + "-" + m + "-" + g,
                                 a + "/" + m + "/" + g,
                                 a + m + g,
                                 g + "/" + m + "/" + a,
                                 corto(d.giorno) + "/" + corto(d.mese) + "/" + a,
                                 g + "." + m + "." + a,
                                 a + "-" + m + "-" + g + " 20:00:00"};
    return forme[forma % std::size(forme)];
}

/// Names of a day, a number, six drawn, Jolly, SuperStar and a wheel, as files spell them.
struct Nomi {
    std::string data, numero;
    std::vector<std::string> estratti;
    std::string jolly, superstar, ruota;
};

std::vector<std::string> numerati(const std::string& prima, const std::string& dopo = "") {
    std::vector<std::string> nomi;
    for (int i = 1; i <= 6; ++i) nomi.push_back(prima + std::to_string(i) + dopo);
    return nomi;
}

const std::vector<Nomi> tutti_i_nomi{
    {"data", "concorso", numerati("n"), "jolly", "superstar", "ruota"},
    {"Data", "Concorso", numerati("Numero "), "Jolly", "SuperStar", "Ruota"},
    {"Data estrazione", "N. concorso", numerati("num"), "Numero Jolly", "Numero SuperStar",
     "RUOTA"},
    {"DATA", "Conc.", numerati("Num. "), "JOLLY", "SUPERSTAR", "ruota"},
    {"date", "numero", numerati("number"), "jolly", "super star", "wheel"},
    {"Data", "Nr", numerati("", "°estratto"), "Jolly", "superstar", "Ruota"},
    {"data concorso", "n. estrazione", numerati("Estratto "), "Jolly", "SS", "Ruota"},
    {"Data",
     "Estrazione",
     {"Primo", "Secondo", "Terzo", "Quarto", "Quinto", "Sesto"},
     "Jolly",
     "SuperStar",
     "Ruota"},
    {"Data", "N.", numerati(""), "J", "Star", "Ruota"}};

/// How one file is written.
struct Forma {
    bool nomi = false;
    bool numero = false;
    bool numero_prima = false;
    bool annuo = false;
    bool jolly = false;
    bool superstar = false;
    bool ordinati = false;
};

std::string unisci(const std::vector<std::string>& campi, char separatore, bool virgolette) {
    std::string riga;
    for (const std::string& campo : campi) {
        if (&campo != campi.data()) riga += separatore;
        riga += virgolette ? '"' + campo + '"' : campo;
    }
    return riga;
}

/// The columns of a file, in the places where this one has them.
class Foglio {
public:
    Foglio(Caso& caso, bool nomi)
        : caso_(caso),
          separatore_("\t;,"[caso.fino_a(3)]),
          virgolette_(caso.una_su(6)),
          zeri_(caso.una_su(3)),
          forma_data_(caso.fino_a(7)),
          nomi_(nomi) {}

    void colonna(const std::string& nome) { intestazione_.push_back(nome); }
    void riga(const std::vector<std::string>& campi) { righe_.push_back(campi); }
    [[nodiscard]] std::string data(const Data& d) const { return in_forma(d, forma_data_); }
    [[nodiscard]] std::string numero(std::int32_t n) const {
        return n == 0 ? "" : (zeri_ && n < 10 ? "0" : "") + std::to_string(n);
    }
    std::string testo() {
        std::vector<std::size_t> posti(intestazione_.size());
        std::iota(posti.begin(), posti.end(), 0U);
        // Only names can tell of another order.
        if (nomi_ && caso_.una_su(2)) caso_.mescola(posti);
        const std::size_t ordine = caso_.fino_a(3);
        if (ordine == 1) std::reverse(righe_.begin(), righe_.end());
        if (ordine == 2) caso_.mescola(righe_);
        if (nomi_) righe_.insert(righe_.begin(), intestazione_);
        const std::string a_capo = caso_.una_su(2) ? "\r\n" : "\n";
        const std::string coda = caso_.una_su(8) ? std::string(1, separatore_) : "";
        std::string esito = caso_.una_su(4) ? "\xEF\xBB\xBF" : "";
        for (const auto& riga : righe_) {
            std::vector<std::string> campi;
            for (const std::size_t i : posti) campi.push_back(riga[i]);
            esito += unisci(campi, separatore_, virgolette_) + coda + a_capo;
        }
        return esito;
    }

private:
    Caso& caso_;
    char separatore_;
    bool virgolette_;
    bool zeri_;
    std::size_t forma_data_;
    bool nomi_;
    std::vector<std::string> intestazione_;
    std::vector<std::vector<std::string>> righe_;
};

std::vector<Concorso> scelti(Caso& caso, const std::vector<Concorso>& storia) {
    const std::vector<std::size_t> lunghezze{1, 2, 3, 4, 5, 8, 13, 30, 60, 150, 400};
    const std::size_t quanti = std::min(storia.size(), caso.una_di(lunghezze));
    const std::size_t da = caso.fino_a(storia.size() - quanti + 1);
    const auto inizio = storia.begin() + static_cast<std::ptrdiff_t>(da);
    return {inizio, inizio + static_cast<std::ptrdiff_t>(quanti)};
}

std::string file_superenalotto(Caso& caso, const Forma& f, std::vector<Concorso>& concorsi) {
    const Nomi& nomi = caso.una_di(tutti_i_nomi);
    Foglio foglio(caso, f.nomi);
    if (f.numero && f.numero_prima) foglio.colonna(nomi.numero);
    foglio.colonna(nomi.data);
    if (f.numero && !f.numero_prima) foglio.colonna(nomi.numero);
    for (const std::string& nome : nomi.estratti) foglio.colonna(nome);
    if (f.jolly) foglio.colonna(nomi.jolly);
    if (f.superstar) foglio.colonna(nomi.superstar);
    for (Concorso& c : concorsi) {
        if (f.ordinati) std::sort(c.estratti.begin(), c.estratti.end());
        const std::int32_t numero = f.annuo ? c.annuo : c.numero;
        std::vector<std::string> riga;
        if (f.numero && f.numero_prima) riga.push_back(foglio.numero(numero));
        riga.push_back(foglio.data(c.data));
        if (f.numero && !f.numero_prima) riga.push_back(foglio.numero(numero));
        for (const std::int16_t n : c.estratti) riga.push_back(foglio.numero(n));
        if (f.jolly) riga.push_back(foglio.numero(c.jolly));
        if (f.superstar) riga.push_back(foglio.numero(c.superstar));
        foglio.riga(riga);
    }
    return foglio.testo();
}

/// The draws as the file tells them.
std::map<Data, Sestina> attese(const Forma& f, const std::vector<Concorso>& concorsi) {
    std::map<Data, Sestina> esito;
    for (const Concorso& c : concorsi) {
        Sestina s;
        std::copy(c.estratti.begin(), c.estratti.end(), s.numeri.begin());
        if (f.jolly) s.jolly = c.jolly;
        if (f.superstar && c.superstar != 0) s.superstar = c.superstar;
        if (f.numero) s.numero = f.annuo ? c.annuo : c.numero;
        esito[c.data] = s;
    }
    return esito;
}

std::map<Data, Sestina> lette(const Lettura& l) {
    std::map<Data, Sestina> esito;
    for (const RigaSuperEnalotto& r : l.superenalotto) esito[r.data] = r.sestina;
    return esito;
}

/// Writes so many files of the history and reads them again; returns how many were refused.
int prova(const std::vector<Concorso>& storia, int quanti, std::uint32_t seme) {
    int rifiutati = 0;
    for (int i = 0; i < quanti; ++i) {
        Caso caso(seme + static_cast<std::uint32_t>(i));
        Forma f;
        f.nomi = caso.una_su(2);
        f.numero = caso.una_su(2);
        f.numero_prima = caso.una_su(2);
        f.annuo = caso.una_su(2);
        f.jolly = !caso.una_su(3);
        f.superstar = !caso.una_su(3);
        f.ordinati = !caso.una_su(3);
        std::vector<Concorso> concorsi = scelti(caso, storia);
        const std::string testo = file_superenalotto(caso, f, concorsi);
        const Lettura l = leggi(testo);
        const std::string inizio = testo.substr(0, 300);
        if (!l.errore.empty()) {
            EXPECT_FALSE(f.nomi) << l.errore << "\n" << inizio;
            EXPECT_FALSE(l.riconosciuta());
            ++rifiutati;
            continue;
        }
        EXPECT_EQ(l.rifiutate, 0) << (l.rifiuti.empty() ? "" : l.rifiuti[0].motivo) << "\n"
                                  << inizio;
        EXPECT_TRUE(lette(l) == attese(f, concorsi)) << seme + static_cast<std::uint32_t>(i) << "\n"
                                                     << inizio;
        if (testing::Test::HasFailure()) break;
    }
    return rifiutati;
}

const std::string sette = "20;36;39;41;72;76;88";

}  // namespace

TEST(ColonneSuperEnalotto, DuemilaFileSiRileggonoEsattiOSiRifiutano) {
    const int rifiutati = prova(storia(), 2000, 1);
    // Nothing would be easier than to refuse them all.
    EXPECT_LT(rifiutati, 500);
    RecordProperty("rifiutati", rifiutati);
}

TEST(ColonneLotto, TrecentoFileSiRileggonoEsatti) {
    const std::vector<std::string> ruote{"BA", "CA", "FI", "GE", "MI", "NA",
                                         "PA", "RM", "TO", "VE", "NAZ"};
    const std::vector<Concorso> concorsi = storia();
    for (std::uint32_t seme = 0; seme < 300; ++seme) {
        Caso caso(seme);
        const bool con_nomi = caso.una_su(2);
        const bool con_numero = caso.una_su(2);
        const bool prima = caso.una_su(2);
        const Nomi& nomi = caso.una_di(tutti_i_nomi);
        Foglio foglio(caso, con_nomi);
        if (con_numero && prima) foglio.colonna(nomi.numero);
        foglio.colonna(nomi.data);
        if (con_numero && !prima) foglio.colonna(nomi.numero);
        foglio.colonna(nomi.ruota);
        for (std::size_t i = 0; i < 5; ++i) foglio.colonna(nomi.estratti[i]);
        std::map<std::pair<Data, std::size_t>, Cinquina> attesi;
        for (const Concorso& c : scelti(caso, concorsi)) {
            const std::size_t ruota = caso.fino_a(ruote.size());
            const auto estratti = estrai(caso, 5);
            std::copy(estratti.begin(), estratti.end(), attesi[{c.data, ruota}].begin());
            std::vector<std::string> riga;
            if (con_numero && prima) riga.push_back(foglio.numero(c.numero));
            riga.push_back(foglio.data(c.data));
            if (con_numero && !prima) riga.push_back(foglio.numero(c.numero));
            riga.push_back(ruote[ruota]);
            for (const std::int16_t n : estratti) riga.push_back(foglio.numero(n));
            foglio.riga(riga);
        }
        const std::string testo = foglio.testo();
        const Lettura l = leggi(testo);
        std::map<std::pair<Data, std::size_t>, Cinquina> letti;
        for (const RigaLotto& r : l.lotto) {
            letti[{r.data, r.ruota}] = r.numeri;
            EXPECT_EQ(r.numero.has_value(), con_numero);
        }
        ASSERT_TRUE(l.errore.empty() && l.rifiutate == 0 && letti == attesi)
            << seme << l.errore << "\n"
            << testo.substr(0, 300);
    }
}

TEST(ColonneSuperEnalotto, IlPrimoEstrattoNonDiventaMaiIlConcorso) {
    for (const std::string nomi :
         {"Data;Numero 1;Numero 2;Numero 3;Numero 4;Numero 5;Numero 6",
          "data;num1;num2;num3;num4;num5;num6", "Data;Num. 1;Num. 2;Num. 3;Num. 4;Num. 5;Num. 6",
          "data;number1;number2;number3;number4;number5;number6",
          "Data;Numero;Numero;Numero;Numero;Numero;Numero"}) {
        const Lettura l = leggi(nomi + ";Jolly;SuperStar\n12/03/2021;3;" + "20;36;39;41;72;88;5\n");
        ASSERT_EQ(l.superenalotto.size(), 1U) << nomi << l.errore;
        EXPECT_EQ(l.superenalotto[0].sestina,
                  (Sestina{{3, 20, 36, 39, 41, 72}, 88, 5, std::nullopt}))
            << nomi;
    }
}

TEST(ColonneSuperEnalotto, QuelCheSiLeggeInDueModiSiRifiutaColPerche) {
    // Two draws whose first numbers follow each other, at the beginning of a year.
    for (const auto& [primo, secondo] : {std::pair{"3", "4"}, std::pair{"5", "6"}}) {
        const Lettura l = leggi(std::string("07/01/2021;") + primo + ";20;36;39;41;72;88;50\n" +
                                "09/01/2021;" + secondo + ";21;37;40;42;73;89;51\n");
        EXPECT_FALSE(l.riconosciuta());
        EXPECT_TRUE(l.errore.starts_with("non si capisce se il primo numero dopo la data"))
            << primo;
    }
    // A last column that may be the Jolly or the SuperStar.
    const Lettura l = leggi("12/10/2021;" + sette + "\n");
    EXPECT_FALSE(l.riconosciuta());
    EXPECT_TRUE(l.errore.starts_with("non si capisce se l'ultima colonna è il Jolly")) << l.errore;
    // Before 2006 there was no SuperStar.
    EXPECT_EQ(leggi("12/10/2005;" + sette + "\n").superenalotto.at(0).sestina.jolly, 88);
}

TEST(ColonneSuperEnalotto, ColMesePrimaDelGiornoSiRifiuta) {
    const Lettura l =
        leggi("data;n1;n2;n3;n4;n5;n6;jolly\n10/12/2021;" + sette + "\n10/14/2021;" + sette + "\n");
    EXPECT_TRUE(l.errore.starts_with("le date sembrano scritte col mese prima")) << l.errore;
}

TEST(ColonneSuperEnalotto, IntestazioniCheNonDiconoDoveSonoINumeri) {
    for (const std::string nomi :
         {"data;jolly;a;b;c;d;e;f;g", "data;n1;n3;n2;n4;n5;jolly", "data;n1;n1;n2;n3;n4;n5;n6",
          "a;b;data;concorso;c;d;e;f", "data;data;n1;n2;n3;n4;n5;n6"}) {
        const Lettura l = leggi(nomi + "\n12/10/2005;" + sette + "\n");
        EXPECT_TRUE(l.errore.starts_with("l'intestazione ")) << nomi << ": " << l.errore;
    }
}

TEST(ColonneSuperEnalotto, OgniParteSiLeggeColSuoNome) {
    const Lettura l = leggi(
        "data;superstar;jolly;n1;n2;n3;n4;n5;n6;premio\n12/10/2021;5;88;20;36;39;"
        "41;72;76;1.000\n"
        "n6;n5;n4;n3;n2;n1;data;conc\n1;2;3;4;5;6;14/10/2021;123\n");
    ASSERT_EQ(l.superenalotto.size(), 2U) << l.errore;
    EXPECT_EQ(l.superenalotto[0].sestina, (Sestina{{20, 36, 39, 41, 72, 76}, 88, 5, std::nullopt}));
    EXPECT_EQ(l.superenalotto[1].sestina, (Sestina{{6, 5, 4, 3, 2, 1}, {}, {}, 123}));
}
