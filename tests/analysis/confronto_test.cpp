#include "analysis/confronto.h"

#include <gtest/gtest.h>

using namespace analysis;
using crossword::Gioco;

namespace {

/// One combination, and two that share five numbers.
Misura misura(const std::vector<std::array<std::int16_t, 6>>& righe) {
    Giocate giocate;
    EXPECT_EQ(prepara_giocate(righe, 6, giocate), Lettura::letta);
    Misura m;
    m.righe = giocate.righe();
    m.combinazioni = giocate.combinazioni.size();
    EXPECT_TRUE(calcola_distribuzione(giocate, Insiemi(giocate, 4), 6, 1, m.distribuzione));
    return m;
}
const Gioco enalotto = Gioco::superenalotto();

}  // namespace

TEST(Confronto, DiceQuantoPiuSpessoEAChePrezzo) {
    const Misura prima = misura({{1, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5, 6}});
    const Misura dopo = misura({{1, 2, 3, 4, 5, 6}, {7, 8, 9, 10, 11, 12}});
    const Tavola t = tavola_confronto(prima, dopo, enalotto, 3, {0.5, true});
    ASSERT_EQ(t.righe.size(), 7U);
    EXPECT_EQ(t.righe[2],
              (std::vector<std::string>{"3 punti o meglio", "0,3146 %", "0,629 %", "+100 %"}));
    EXPECT_EQ(t.righe[4], (std::vector<std::string>{"combinazioni diverse", "1", "2", "+100 %"}));
    EXPECT_EQ(t.righe[5], (std::vector<std::string>{"spesa, in euro", "1,00", "1,00", "nessuna"}));
    EXPECT_EQ(t.righe[6][0], "spesa per una vincita, in euro");
    EXPECT_EQ(t.righe[6][3], "-50 %");
    ASSERT_EQ(t.note.size(), 2U);
    EXPECT_TRUE(t.note[0].starts_with("Per una vincita da 3 punti o meglio si spendono in media"));
}

TEST(Confronto, SenzaRipetizioniDiceQuantoCostanoLeCombinazioniInPiu) {
    const Misura prima = misura({{1, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5, 6}});
    const Misura dopo = misura({{1, 2, 3, 4, 5, 6}, {7, 8, 9, 10, 11, 12}});
    const Tavola t = tavola_confronto(prima, dopo, enalotto, 3, {0.5, false});
    EXPECT_EQ(t.righe[5], (std::vector<std::string>{"spesa, in euro", "0,50", "1,00", "+100 %"}));
    ASSERT_EQ(t.note.size(), 3U);
    EXPECT_EQ(t.note[2],
              "Le combinazioni ripetute sono 1 in meno: senza ripetizioni il sistema costa "
              "0,50 euro in più.");
}

TEST(Confronto, UnaFrasePerOgniEsito) {
    Disposizione d;
    d.prima = misura({{1, 2, 3, 4, 5, 6}});
    d.dopo = misura({{1, 2, 3, 4, 5, 6}, {7, 8, 9, 10, 11, 12}});
    d.esito = Disposta::migliorata;
    EXPECT_EQ(
        frase_disposta(d, enalotto, 3),
        "3 punti o meglio nello 0,629 % delle estrazioni invece che nello 0,3146 %: una vincita "
        "ogni 159 estrazioni, non ogni 318 estrazioni");
    for (const auto& [esito, inizio] : std::vector<std::pair<Disposta, std::string>>{
             {Disposta::uguale, "Non è stata trovata"},
             {Disposta::incompleta, "Per disporre meglio"},
             {Disposta::fuori_regola, "Il cruciverba non segue"},
             {Disposta::senza_tabelle, "Nessuna linea"},
             {Disposta::senza_scopo, "Nessuna combinazione può fare 3 punti"},
             {Disposta::annullata, "Ricerca annullata"}}) {
        d.esito = esito;
        EXPECT_TRUE(frase_disposta(d, enalotto, 3).starts_with(inizio));
    }
}
