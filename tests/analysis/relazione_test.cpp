#include "analysis/relazione.h"

#include <gtest/gtest.h>

using namespace analysis;
using crossword::Gioco;

namespace {

using Righe = std::vector<std::vector<std::string>>;

Analisi analisi_di(const std::vector<std::array<std::int16_t, 6>>& righe, Gioco gioco) {
    Giocate giocate;
    EXPECT_EQ(prepara_giocate(righe, gioco.numeri(), giocate), Lettura::letta);
    Analisi a;
    EXPECT_TRUE(analizza(giocate, gioco.e_lotto() ? 5 : 6, 1, a));
    return a;
}

const Gioco enalotto = Gioco::superenalotto();

/// One combination, whose draws anybody can count.
Analisi una_sestina() {
    return analisi_di({{1, 2, 3, 4, 5, 6}}, enalotto);
}

TEST(Relazione, PercentoMaiArrotondatoATutto) {
    EXPECT_EQ(percento(0, 4), "0 %");
    EXPECT_EQ(percento(4, 4), "100 %");
    EXPECT_EQ(percento(1, 3), "33,33 %");
    EXPECT_EQ(percento(1, 622614630), "0,0000001606 %");
    EXPECT_EQ(percento(622614629, 622614630), "99,9999998 %");
    EXPECT_EQ(percento(1, 0), "");
}

TEST(Relazione, OgniRisultatoHaIlSuoNome) {
    const auto superenalotto = crossword::Gioco::superenalotto();
    const auto terzine = crossword::Gioco::lotto(3);
    EXPECT_EQ(nome_risultato(superenalotto, 0), "nessun punto");
    EXPECT_EQ(nome_risultato(superenalotto, 1), "1 punto");
    EXPECT_EQ(nome_risultato(terzine, 0), "nessun numero");
    EXPECT_EQ(nome_risultato(terzine, 1), "1 numero");
    EXPECT_EQ(nome_risultato(terzine, 5), "5 numeri");
    EXPECT_EQ(nome_risultato(superenalotto, 7), "7 punti");
}

TEST(Relazione, UnaSestinaInTutteLeEstrazioni) {
    const Tavola t = tavola_estrazioni(una_sestina(), enalotto);
    EXPECT_EQ(t.titolo, "Tutte le 622.614.630 estrazioni possibili");
    ASSERT_EQ(t.righe.size(), 7U);
    EXPECT_EQ(t.righe[0], (std::vector<std::string>{"6 punti", "1", "0,0000001606 %", "1",
                                                    "0,0000001606 %", "1 su 622.614.630"}));
    EXPECT_EQ(t.righe[1][1], "504");
    EXPECT_EQ(t.righe[1][3], "505");
    EXPECT_EQ(t.righe[3], (std::vector<std::string>{"3 punti", "1.905.680", "0,3061 %", "1.958.475",
                                                    "0,3146 %", "1 su 318"}));
    EXPECT_EQ(t.righe[6][0], "nessun punto");
    EXPECT_EQ(t.righe[6][5], "sempre");
    ASSERT_EQ(t.note.size(), 2U);
    EXPECT_EQ(t.note[0],
              "5 + 1: 504 delle 52.299.628.920 estrazioni con il loro Jolly, 0,0000009637 %, "
              "1 su 103.769.105. Qui sopra stanno fra i 5 punti.");
}

TEST(Relazione, GaranzieInParole) {
    const Tavola t = tavola_garanzie(una_sestina(), enalotto);
    EXPECT_EQ(t.righe, (Righe{{"1", "almeno 1 punto", "almeno 1 combinazione", "6"},
                              {"2", "almeno 2 punti", "almeno 1 combinazione", "15"},
                              {"3", "almeno 3 punti", "almeno 1 combinazione", "20"},
                              {"4", "almeno 4 punti", "almeno 1 combinazione", "15"},
                              {"5", "almeno 5 punti", "almeno 1 combinazione", "6"},
                              {"6", "almeno 6 punti", "almeno 1 combinazione", "1"}}));
}

TEST(Relazione, DoveIlMinimoNonECertoSiDiceForsePiu) {
    Analisi a = una_sestina();
    EXPECT_EQ(tavola_garanzie(a, enalotto).note.size(), 1U);
    a.minimi[3].esatto = false;
    const Tavola t = tavola_garanzie(a, enalotto);
    EXPECT_EQ(t.righe[2][2], "almeno 1 combinazione (forse più)");
    ASSERT_EQ(t.note.size(), 2U);
    EXPECT_EQ(t.note[1], "«Forse più»: le combinazioni non sono meno di quelle dette.");
}

TEST(Relazione, BuchiEdEsempiNelLotto) {
    const Gioco terzine = Gioco::lotto(3);
    // Two that share nothing: a pair with a number of each side is a hole.
    const Analisi a = analisi_di({{1, 2, 3}, {7, 8, 9}}, terzine);
    const Tavola buchi = tavola_buchi(a, terzine);
    EXPECT_EQ(buchi.righe, (Righe{{"ambo", "2", "9", "60 %"}, {"terno", "3", "18", "90 %"}}));
    const Tavola esempi = tavola_esempi(a, terzine);
    ASSERT_EQ(esempi.righe.size(), 16U);
    EXPECT_EQ(esempi.righe[0], (std::vector<std::string>{"ambo", "1 7"}));
    EXPECT_EQ(esempi.righe[8], (std::vector<std::string>{"terno", "1 2 7"}));
    const Tavola sistema = tavola_sistema(a, terzine);
    EXPECT_EQ(sistema.righe[0][1], "Lotto in Terzine");
    EXPECT_EQ(sistema.righe[1][1], "6");
    EXPECT_EQ(tavola_garanzie(a, terzine).righe[0],
              (std::vector<std::string>{"1", "almeno 1 numero", "almeno 1 combinazione", "6"}));
    EXPECT_EQ(tavola_garanzie(a, terzine).righe[2][1], "almeno ambo");
    EXPECT_EQ(tavola_insiemi(a, terzine).righe[1],
              (std::vector<std::string>{"2", "0", "9", "6", ""}));
}

TEST(Relazione, NienteGarantitoSiDice) {
    const Gioco gioco = Gioco::lotto(5);
    const Analisi a = analisi_di({{1, 2, 3, 4, 5}}, gioco);
    const Tavola buchi = tavola_buchi(a, gioco);
    for (const auto& riga : buchi.righe) EXPECT_EQ(riga[2], "nessuno") << riga[0];
}

TEST(Relazione, IlRitornoSottoUnoEDetto) {
    const Analisi a = una_sestina();
    Premi premi;
    EXPECT_EQ(frase_ritorno(a, premi, 1),
              "Scrivete i premi per sapere quanto torna in media di ogni euro speso.");
    premi.premio[3] = 30;
    EXPECT_EQ(frase_ritorno(a, premi, 1),
              "Per ogni euro speso tornano in media 0,092 euro: meno di uno. A lungo andare si "
              "perde, come sempre con i premi veri.");
    premi.premio[3] = 3000;
    EXPECT_EQ(frase_ritorno(a, premi, 1),
              "Per ogni euro speso tornano in media 9,2 euro: con i premi veri è sempre meno di "
              "uno. Controllate quelli scritti.");
    premi.premio[3] = 30;
    const Tavola t = tavola_medie(a, enalotto, premi, 1);
    ASSERT_EQ(t.righe.size(), 6U);
    EXPECT_EQ(t.righe[4], (std::vector<std::string>{"3 punti", "0,00306", "30", "0,09"}));
    EXPECT_EQ(t.note[0], "Spesa per estrazione: 1,00 euro.");
}

TEST(Relazione, RiassuntoInUnaRiga) {
    EXPECT_EQ(
        riassunto(una_sestina(), enalotto),
        "Analisi: 3 punti o meglio nello 0,3146 % delle estrazioni; con 6 numeri usciti almeno "
        "6 punti");
}

TEST(Relazione, RigheGuasteSonoDette) {
    const Analisi a = analisi_di({{1, 2, 3, 4, 5, 6}, {6, 5, 4, 3, 2, 1}}, enalotto);
    EXPECT_EQ(tavola_sistema(a, enalotto).note,
              std::vector<std::string>{
                  "1 riga dello sviluppo non è una combinazione ed è stata saltata."});
    EXPECT_TRUE(tavola_sistema(una_sestina(), enalotto).note.empty());
}

Estrazione estrazione(int concorso, const std::string& data, const std::string& ruota,
                      std::array<std::uint8_t, 6> numeri, std::uint8_t jolly = 0) {
    return {concorso, data, ruota, numeri, jolly};
}

TEST(Relazione, PassatoDiTutteLeRuote) {
    const Gioco gioco = Gioco::lotto(3);
    Giocate giocate;
    ASSERT_EQ(prepara_giocate(std::vector<std::array<std::int16_t, 6>>{{1, 2, 3}}, 3, giocate),
              Lettura::letta);
    const std::vector<Estrazione> tutte{estrazione(1, "02/01/2020", "Bari", {1, 2, 3, 40, 50}),
                                        estrazione(1, "02/01/2020", "Roma", {10, 20, 30, 40, 50}),
                                        estrazione(2, "04/01/2020", "Bari", {10, 20, 30, 40, 50}),
                                        estrazione(2, "04/01/2020", "Roma", {10, 20, 30, 40, 50}),
                                        estrazione(3, "06/01/2021", "Bari", {10, 20, 30, 40, 50}),
                                        estrazione(3, "06/01/2021", "Roma", {10, 20, 30, 40, 1}),
                                        estrazione(4, "08/01/2021", "Bari", {1, 2, 30, 40, 50}),
                                        estrazione(4, "08/01/2021", "Roma", {10, 20, 30, 40, 50}),
                                        estrazione(5, "09/01/2021", "Bari", {10, 20, 30, 40, 50})};
    Storico s;
    ASSERT_TRUE(calcola_storico(Mappe(giocate), tutte, 2, 1, s));
    EXPECT_EQ(s.concorsi, 5U);
    EXPECT_EQ(s.concorsi_vincenti, 2U);
    const Tavola categorie = tavola_categorie(s, tutte, gioco);
    EXPECT_EQ(categorie.righe, (Righe{{"terno", "1", "1"}, {"ambo", "1", "1"}}));
    EXPECT_EQ(categorie.note,
              (std::vector<std::string>{
                  "Con una vincita: 2 delle 9 estrazioni, 22,22 %, dal 02/01/2020 al 09/01/2021.",
                  "La serie più lunga senza vincite: 2 concorsi, dal concorso 2 del 04/01/2020 al "
                  "3 del 06/01/2021.",
                  "Dall'ultima vincita: 1 concorso.",
                  "Le estrazioni passate non dicono nulla delle prossime: i numeri non hanno "
                  "memoria."}));
    EXPECT_EQ(tavola_migliori(s, tutte, gioco).righe,
              (Righe{{"1", "02/01/2020", "Bari", "1", ""}, {"4", "08/01/2021", "Bari", "", "1"}}));
    EXPECT_EQ(tavola_anni(s, tutte, gioco).righe,
              (Righe{{"2020", "4", "1", "25 %", "terno"}, {"2021", "5", "1", "20 %", "ambo"}}));
}

TEST(Relazione, PassatoDelSuperenalottoConIlJolly) {
    Giocate giocate;
    ASSERT_EQ(
        prepara_giocate(std::vector<std::array<std::int16_t, 6>>{{1, 2, 3, 4, 5, 6}}, 6, giocate),
        Lettura::letta);
    const std::vector<Estrazione> tutte{estrazione(7, "02/01/2020", "", {1, 2, 3, 4, 5, 80}, 6),
                                        estrazione(8, "04/01/2020", "", {1, 2, 80, 81, 82, 83}, 6)};
    Storico s;
    ASSERT_TRUE(calcola_storico(Mappe(giocate), tutte, 3, 1, s));
    EXPECT_EQ(tavola_categorie(s, tutte, enalotto).righe, (Righe{{"6 punti", "0", "0"},
                                                                 {"5 + 1", "1", "1"},
                                                                 {"5 punti", "0", "0"},
                                                                 {"4 punti", "0", "0"},
                                                                 {"3 punti", "0", "0"}}));
    EXPECT_EQ(tavola_migliori(s, tutte, enalotto).colonne,
              (std::vector<std::string>{"Concorso", "Data", "6 punti", "5 + 1", "5 punti",
                                        "4 punti", "3 punti"}));
}

TEST(Relazione, ArchivioVuoto) {
    Storico s;
    const Tavola t = tavola_categorie(s, {}, enalotto);
    EXPECT_EQ(t.note, std::vector<std::string>{"L'archivio non ha estrazioni da esaminare."});
    EXPECT_TRUE(tavola_anni(s, {}, enalotto).righe.empty());
    EXPECT_EQ(tavola_migliori(s, {}, enalotto).note,
              std::vector<std::string>{"Nessuna estrazione ha una vincita."});
}

TEST(Relazione, TestoIncolonnato) {
    const Tavola una{
        "Città", {"Nome", "Quanti"}, {{"però", "7"}, {"no", "1.000"}}, {"una nota che va a capo"}};
    EXPECT_EQ(
        righe_di_testo(std::vector<Tavola>{una, una}, 12),
        (std::vector<std::string>{"Città", "-----", "Nome  Quanti", "però       7", "no     1.000",
                                  "una nota che", "va a capo", "", "Città", "-----", "Nome  Quanti",
                                  "però       7", "no     1.000", "una nota che", "va a capo"}));
}

}  // namespace
