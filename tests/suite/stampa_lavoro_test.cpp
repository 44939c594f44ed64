// A print job of slips: its pages on the recorded drawing, its costs, its text.
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "stampa/impaginazione.h"
#include "stampa/lavoro.h"
#include "support/cartella.h"
#include "support/stampante.h"

using crossword::Gioco;
using schedine::Fine;
using schedine::Genere;
using schedine::Lavoro;
using schedine::Opzioni;
using support::Operazione;
using support::Registratore;
using support::Tipo;

namespace {

Fine stampa(Registratore& r, Lavoro& lavoro, std::int64_t prima, std::int64_t ultima,
            std::int64_t fatte, std::int64_t tutte) {
    return schedine::concludi(r, schedine::disegna(r, r, lavoro, prima, ultima, fatte, tutte));
}

class LavoroSchedine : public testing::Test {
protected:
    /// A development of so many lines, none like another.
    void sviluppa(int righe, int numeri = 6) {
        std::string dati;
        attese_.clear();
        for (int i = 0; i < righe; ++i) {
            std::string chiaro;
            for (int k = 0; k < numeri; ++k) {
                const int n = 1 + k * 15 + (k < 2 ? (i / (k == 0 ? 1 : 15)) % 15 : k % 15);
                dati += std::to_string(n) + (k < numeri - 1 ? "," : "\r\n");
                chiaro += (k > 0 ? " " : "") + std::string(n < 10 ? "0" : "") + std::to_string(n);
            }
            attese_.push_back(chiaro);
        }
        cartella_.scrivi("x.col", dati);
        ASSERT_FALSE(sviluppo_.apri(cartella_.file("x.col"), numeri));
    }
    static Opzioni opzioni(Genere genere, int per_schedina = 5) {
        Opzioni o;
        o.genere = genere;
        o.sistema = "prova";
        o.per_schedina = per_schedina;
        o.prezzo = 0.5;
        return o;
    }
    /// All pages as one document.
    static std::unique_ptr<Registratore> stampato(Lavoro& lavoro) {
        auto fatto = std::make_unique<Registratore>();
        Registratore& r = *fatto;
        EXPECT_EQ(stampa(r, lavoro, 1, lavoro.pagine(), 0, lavoro.pagine()), Fine::stampato);
        EXPECT_EQ(r.fogli, lavoro.pagine());
        return fatto;
    }
    /// The columns that stand in clear, in order.
    static std::vector<std::string> in_chiaro(const Registratore& r, std::size_t numeri) {
        std::vector<std::string> righe;
        for (const Operazione& o : r.testi()) {
            const std::size_t dopo = o.testo.find(") ");
            const std::string t = dopo == std::string::npos ? o.testo : o.testo.substr(dopo + 2);
            if (t.size() == numeri * 3 - 1 &&
                t.find_first_not_of("0123456789 ") == std::string::npos)
                righe.push_back(t);
        }
        return righe;
    }
    /// Nothing stands beyond the sheet's edges or over its foot.
    static void nel_foglio(const Registratore& r) {
        for (const Operazione& o : r.fatte) {
            if (o.tipo != Tipo::testo && o.tipo != Tipo::riquadro && o.tipo != Tipo::tratto)
                continue;
            const float destra =
                o.tipo == Tipo::testo ? o.x1 + support::largo(o.testo, o.corpo) : o.x2;
            const float basso = o.tipo == Tipo::testo ? o.y1 + support::alto(o.corpo) : o.y2;
            EXPECT_GE(o.x1, 0) << testing::PrintToString(o);
            EXPECT_GE(o.y1, 0) << testing::PrintToString(o);
            EXPECT_LE(destra, support::foglio_largo) << testing::PrintToString(o);
            EXPECT_LE(basso, support::foglio_alto) << testing::PrintToString(o);
        }
    }

    support::Cartella cartella_;
    schedine::Sviluppo sviluppo_;
    std::vector<std::string> attese_;
};

}  // namespace

TEST_F(LavoroSchedine, TuttiINumeriEscono) {
    struct Caso {
        Genere genere;
        bool grande;
        int righe;
        int per_schedina;
    };
    for (const Caso& c :
         {Caso{Genere::ricopiare, false, 47, 5}, Caso{Genere::ricopiare, false, 30, 2},
          Caso{Genere::ricopiare, false, 60, 12}, Caso{Genere::ricopiare, false, 80, 40},
          Caso{Genere::ricopiare, false, 1, 255}, Caso{Genere::elenco, false, 203, 5},
          Caso{Genere::elenco, true, 203, 5}, Caso{Genere::elenco, false, 100, 1},
          Caso{Genere::elenco, false, 220, 100}, Caso{Genere::elenco, true, 220, 200}}) {
        SCOPED_TRACE(std::to_string(c.righe) + " lines, " + std::to_string(c.per_schedina) +
                     " a slip");
        sviluppa(c.righe);
        Opzioni o = opzioni(c.genere, c.per_schedina);
        o.grande = c.grande;
        Lavoro lavoro(sviluppo_, o);
        EXPECT_EQ(lavoro.schedine(), (c.righe + c.per_schedina - 1) / c.per_schedina);
        const auto fatto = stampato(lavoro);
        const Registratore& r = *fatto;
        EXPECT_EQ(in_chiaro(r, 6), attese_);
        nel_foglio(r);
    }
}

TEST_F(LavoroSchedine, OgniColonnaStaNellaSuaSchedina) {
    sviluppa(47);
    Lavoro lavoro(sviluppo_, opzioni(Genere::elenco));
    const auto fatto = stampato(lavoro);
    const Registratore& r = *fatto;
    int schedina = 0;
    int colonna = 0;
    for (const Operazione& o : r.testi()) {
        if (o.testo.starts_with("n. ")) {
            EXPECT_EQ(o.testo, "n. " + std::to_string(++schedina));
            EXPECT_EQ((schedina - 1) * 5, colonna);
        }
        if (o.testo.find(") ") == std::string::npos) continue;
        EXPECT_EQ(std::stoi(o.testo), colonna % 5 + 1);
        ++colonna;
    }
    EXPECT_EQ(schedina, 10);
    EXPECT_TRUE(r.stampato("Euro 2,50"));
    EXPECT_TRUE(r.stampato("Euro 1,00")) << "the last slip has two columns";
}

TEST_F(LavoroSchedine, IPannelliSegnanoINumeriGiocati) {
    sviluppa(7);
    Lavoro lavoro(sviluppo_, opzioni(Genere::ricopiare));
    const auto fatto = stampato(lavoro);
    const Registratore& r = *fatto;
    // Each number stands once in each panel; those in bold are played, inside a heavy box.
    std::map<std::string, int> volte;
    int giocati = 0;
    for (const Operazione& o : r.testi()) {
        if (o.testo.size() > 2 || o.testo.empty()) continue;
        ++volte[o.testo];
        giocati += o.grassetto ? 1 : 0;
    }
    EXPECT_EQ(volte.size(), 90U);
    for (const auto& [numero, quante] : volte) EXPECT_EQ(quante, 7) << numero;
    EXPECT_EQ(giocati, 7 * 6);
    EXPECT_EQ(r.di_tipo(Tipo::riquadro).size(), 7U * 6 + 2 * 2);
    EXPECT_TRUE(r.stampato("Schedina n. 2"));
    EXPECT_TRUE(r.stampato("Pannello 5"));
    EXPECT_TRUE(r.stampato("Schedine da ricopiare: prova"));
    EXPECT_TRUE(r.stampato("Foglio 1 di 1"));
}

TEST_F(LavoroSchedine, NelLottoRuoteEPostaSonoSuOgniSchedina) {
    sviluppa(12, 4);
    Opzioni o = opzioni(Genere::ricopiare);
    o.gioco = Gioco::lotto(4);
    o.giocata = {{0, 4}, 150};
    Lavoro lavoro(sviluppo_, o);
    const auto fatto = stampato(lavoro);
    const Registratore& r = *fatto;
    int volte = 0;
    for (const Operazione& op : r.testi()) volte += op.testo == "Bari Milano  Posta 1,50" ? 1 : 0;
    EXPECT_EQ(volte, 3);
    EXPECT_TRUE(r.stampato("Euro 7,50"));
    EXPECT_DOUBLE_EQ(lavoro.conto().importo, 18);
    o.giocata.ruote = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    Lavoro tutte(sviluppo_, o);
    nel_foglio(*stampato(tutte));
}

TEST_F(LavoroSchedine, DallaAllaStampaSoloQuelle) {
    sviluppa(47);
    Opzioni o = opzioni(Genere::elenco);
    o.dalla = 4;
    o.alla = 6;
    Lavoro lavoro(sviluppo_, o);
    const auto conto = lavoro.conto();
    EXPECT_EQ(conto.schedine, 3);
    EXPECT_EQ(conto.colonne, 15);
    EXPECT_DOUBLE_EQ(conto.importo, 7.5);
    EXPECT_EQ(in_chiaro(*stampato(lavoro), 6),
              std::vector<std::string>(attese_.begin() + 15, attese_.begin() + 30));
    o.dalla = 9;
    o.alla = 99;
    const auto ultime = Lavoro(sviluppo_, o).conto();
    EXPECT_EQ(ultime.schedine, 2);
    EXPECT_EQ(ultime.colonne, 7);
}

TEST_F(LavoroSchedine, IlModuloDiceQuanteColonneHaUnaSchedina) {
    sviluppa(11);
    Opzioni o = opzioni(Genere::modulo);
    o.modulo.pannelli.resize(2);
    const Lavoro lavoro(sviluppo_, o);
    EXPECT_EQ(lavoro.schedine(), 6);
    EXPECT_EQ(lavoro.pagine(), 6);
    EXPECT_EQ(lavoro.foglio().x, 1000);
    EXPECT_EQ(lavoro.foglio().y, 2000);
}

TEST_F(LavoroSchedine, FermatoNonLasciaNulla) {
    sviluppa(200);
    Lavoro lavoro(sviluppo_, opzioni(Genere::ricopiare));
    ASSERT_EQ(lavoro.pagine(), 8);
    Registratore r;
    r.ferma_dopo = 3;
    EXPECT_EQ(stampa(r, lavoro, 1, 8, 0, 8), Fine::fermato);
    EXPECT_TRUE(r.di_tipo(Tipo::fine).empty());
    EXPECT_EQ(r.di_tipo(Tipo::scarto).size(), 1U);
    Registratore perso;
    perso.persa = true;
    EXPECT_EQ(stampa(perso, lavoro, 1, 8, 0, 8), Fine::perso);
    Registratore rifiutato;
    rifiutato.riesce = false;
    EXPECT_EQ(stampa(rifiutato, lavoro, 1, 8, 0, 8), Fine::perso);
}

TEST_F(LavoroSchedine, UnaParteSiStampaDaSola) {
    sviluppa(200);
    Lavoro lavoro(sviluppo_, opzioni(Genere::ricopiare));
    Registratore r;
    EXPECT_EQ(stampa(r, lavoro, 3, 4, 2, 8), Fine::stampato);
    EXPECT_EQ(r.fogli, 2);
    EXPECT_EQ(r.avanzamenti.back().first, 4);
    EXPECT_DOUBLE_EQ(r.avanzamenti.back().second, 0.5);
    const auto tratto = lavoro.tratto(3);
    EXPECT_EQ(tratto.prima, 11);
    EXPECT_EQ(lavoro.tratto(4).ultima, 20);
    EXPECT_EQ(in_chiaro(r, 6),
              std::vector<std::string>(attese_.begin() + 50, attese_.begin() + 100));
}

TEST_F(LavoroSchedine, IlTestoHaUnaSchedinaPerRiga) {
    sviluppa(12);
    Opzioni o = opzioni(Genere::ricopiare);
    o.dalla = 2;
    Lavoro lavoro(sviluppo_, o);
    Registratore schermo;
    std::string motivo;
    ASSERT_TRUE(schedine::esporta(cartella_.file("x.txt"), schermo, lavoro, motivo)) << motivo;
    EXPECT_EQ(cartella_.leggi("x.txt"), "2;" + attese_[5] + ";" + attese_[6] + ";" + attese_[7] +
                                            ";" + attese_[8] + ";" + attese_[9] + "\r\n3;" +
                                            attese_[10] + ";" + attese_[11] + "\r\n");
    EXPECT_FALSE(schedine::esporta(cartella_.file("manca/x.txt"), schermo, lavoro, motivo));
    EXPECT_EQ(motivo, "la cartella non esiste");
}

TEST_F(LavoroSchedine, UnaPaginaQualunqueSiDisegnaDaSola) {
    constexpr int schedine_tutte = 34000;
    sviluppa(schedine_tutte * 5);
    Lavoro lavoro(sviluppo_, opzioni(Genere::ricopiare));
    EXPECT_EQ(lavoro.schedine(), schedine_tutte);
    EXPECT_EQ(lavoro.pagine(), 6800);
    EXPECT_DOUBLE_EQ(lavoro.conto().importo, 85000);
    Registratore r;
    ASSERT_TRUE(lavoro.disegna(r, 6800));
    EXPECT_EQ(in_chiaro(r, 6), std::vector<std::string>(attese_.end() - 25, attese_.end()));
}
