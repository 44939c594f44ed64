// The table of the archive in memory: its values, its nulls, its order.
#include "platform/table.h"

#include <gtest/gtest.h>

#include "platform/query.h"
#include "platform/recordset.h"

using platform::Data;
using platform::esegui;
using platform::Query;
using platform::Table;
using platform::Valore;

namespace {

using Righe = std::vector<std::uint32_t>;

TEST(Valore, IsANumberOnlyWhenAllOfItIsOne) {
    EXPECT_EQ(Valore(-7).intero(), -7);
    EXPECT_EQ(Valore(std::string("12")).intero(), 12);
    EXPECT_EQ(Valore(std::string(" 12 ")).intero(), 12);
    for (const char* testo : {"", "x", "12x", "1 2", "99999999999"}) {
        EXPECT_EQ(Valore(std::string(testo)).intero(), std::nullopt) << testo;
    }
    EXPECT_EQ(Valore().intero(), std::nullopt);
    EXPECT_EQ(Valore(Data{2024, 1, 2}).intero(), std::nullopt);
}

TEST(Valore, TellsItselfAsText) {
    EXPECT_EQ(Valore(-7).testo(), "-7");
    EXPECT_EQ(Valore(std::string(" a ")).testo(), " a ");
    EXPECT_EQ(Valore(platform::da_seriale(2)).testo(), "01/01/1900");
    EXPECT_EQ(Valore().testo(), std::nullopt);
}

TEST(Valore, OnlyADayIsADay) {
    const Data giorno = platform::da_seriale(45000);
    EXPECT_EQ(Valore(giorno).data(), giorno);
    EXPECT_EQ(Valore(45000).data(), std::nullopt);
    EXPECT_EQ(Valore(std::string("01/01/1900")).data(), std::nullopt);
    EXPECT_TRUE(Valore().nullo());
    EXPECT_FALSE(Valore(0).nullo());
}

Table con_testi(const std::vector<std::string>& testi) {
    Table tabella;
    tabella.aggiungi_colonna("Ruota", Table::Tipo::testo);
    for (const std::string& testo : testi) {
        if (testo == "-") {
            tabella.accoda_nullo(0);
        } else {
            tabella.accoda(0, testo);
        }
    }
    return tabella;
}

TEST(Table, AColumnIsFoundByItsNameInAnyCase) {
    Table tabella;
    EXPECT_EQ(tabella.righe(), 0U);
    tabella.aggiungi_colonna("Anno", Table::Tipo::intero);
    tabella.aggiungi_colonna("Data", Table::Tipo::data);
    EXPECT_EQ(tabella.colonne(), 2U);
    EXPECT_EQ(tabella.colonna("ANNO"), 0U);
    EXPECT_EQ(tabella.colonna("data"), 1U);
    EXPECT_EQ(tabella.colonna("Ann"), std::nullopt);
    EXPECT_EQ(tabella.nome(1), "Data");
}

TEST(Table, ALaterColumnHoldsANullForEachRow) {
    Table tabella = con_testi({"ba", "ca"});
    tabella.aggiungi_colonna("n", Table::Tipo::intero);
    EXPECT_TRUE(tabella.valore(1, 0).nullo());
    EXPECT_TRUE(tabella.valore(1, 1).nullo());
    tabella.accoda(0, "fi");
    tabella.accoda(1, 5);
    EXPECT_EQ(tabella.righe(), 3U);
    EXPECT_EQ(tabella.valore(1, 2), Valore(5));
    EXPECT_EQ(tabella.valore(0, 2), Valore(std::string("fi")));
}

TEST(Table, OnlyTheNullsAreNull) {
    const Table tabella = con_testi({"a", "-", "b", "-", "c"});
    for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(tabella.nullo(0, i), i % 2 == 1) << i;
    EXPECT_EQ(tabella.valore(0, 2), Valore(std::string("b")));
    EXPECT_EQ(tabella.valore(0, 4), Valore(std::string("c")));
}

TEST(Table, ATextThatComesAgainIsStoredOnce) {
    const Table tabella = con_testi({"ba", "ca", "ba", "BA"});
    EXPECT_EQ(tabella.testi(0), (std::vector<std::string>{"ba", "ca", "BA"}));
    EXPECT_EQ(tabella.grezzo(0, 2), tabella.grezzo(0, 0));
}

TEST(Table, AColumnOfDaysGivesDays) {
    Table tabella;
    tabella.aggiungi_colonna("d", Table::Tipo::intero);
    tabella.cambia_tipo(0, Table::Tipo::data);
    tabella.accoda(0, 45000);
    EXPECT_EQ(tabella.valore(0, 0), Valore(platform::da_seriale(45000)));
}

TEST(Table, RowsGoByTextWithoutCaseNullsFirstAndEqualOnesAsTheyStand) {
    EXPECT_EQ(con_testi({"b", "A", "-", "a", "B", "-", "C"}).in_ordine(0),
              (Righe{2, 5, 1, 3, 0, 4, 6}));
}

TEST(Table, RowsGoByNumberNullsFirstAndEqualOnesAsTheyStand) {
    Table tabella;
    tabella.aggiungi_colonna("n", Table::Tipo::intero);
    for (const int n : {3, -2000000000, 3, 1}) tabella.accoda(0, n);
    tabella.accoda_nullo(0);
    EXPECT_EQ(tabella.in_ordine(0), (Righe{4, 1, 3, 0, 2}));
}

TEST(Table, RowsInOrderStay) {
    EXPECT_EQ(con_testi({"a", "A", "b"}).in_ordine(0), (Righe{0, 1, 2}));
}

TEST(Table, IsFullBeyondSixtyFourMebibytes) {
    Table tabella;
    tabella.aggiungi_colonna("n", Table::Tipo::intero);
    tabella.aggiungi_colonna("t", Table::Tipo::testo);
    constexpr int numeri = 16 << 20;
    tabella.riserva(numeri);
    for (int i = 0; i < numeri; ++i) tabella.accoda(0, i);
    EXPECT_FALSE(tabella.piena());
    tabella.accoda(1, "x");
    EXPECT_TRUE(tabella.piena());
}

TEST(Table, NullsFillItToo) {
    Table tabella;
    tabella.aggiungi_colonna("n", Table::Tipo::intero);
    constexpr int numeri = 16 << 20;
    tabella.riserva(numeri);
    for (int i = 0; i < numeri; ++i) tabella.accoda(0, i);
    tabella.accoda_nullo(0);
    EXPECT_TRUE(tabella.piena());
}

TEST(Table, ATextCountsTwiceItsLengthAndWhatHoldsIt) {
    Table tabella;
    tabella.aggiungi_colonna("t", Table::Tipo::testo);
    constexpr std::size_t tutto = std::size_t{64} << 20;
    constexpr std::size_t contorno = 132;
    tabella.accoda(0, std::string((tutto - contorno) / 2, 'x'));
    EXPECT_FALSE(tabella.piena());
    tabella.accoda(0, std::string(1, 'y'));
    EXPECT_TRUE(tabella.piena());
}

Query query(const char* ordine) {
    Query q;
    q.ordine = ordine;
    return q;
}

TEST(Query, WithoutAConditionAllRowsCome) {
    Righe righe;
    EXPECT_EQ(esegui(query("ruota"), con_testi({"b", "a"}), righe), 0);
    EXPECT_EQ(righe, (Righe{1, 0}));
}

TEST(Query, AColumnThatIsNotThereIsAnError) {
    Righe righe;
    EXPECT_EQ(esegui(query("x"), con_testi({"b"}), righe), platform::errore_campo_sconosciuto);
    Query q = query("ruota");
    q.dove = {"x", 1};
    EXPECT_EQ(esegui(q, con_testi({"b"}), righe), platform::errore_campo_sconosciuto);
}

TEST(Query, ATextIsComparedWithoutCaseAndANullIsNoText) {
    Righe righe;
    Query q = query("Ruota");
    q.dove = {"ruota", std::string("Ba")};
    EXPECT_EQ(esegui(q, con_testi({"ba", "-", "ca", "BA"}), righe), 0);
    EXPECT_EQ(righe, (Righe{0, 3}));
}

TEST(Query, AConditionOfAnotherTypeIsAnError) {
    Table tabella = con_testi({"ba"});
    tabella.aggiungi_colonna("n", Table::Tipo::intero);
    tabella.aggiungi_colonna("d", Table::Tipo::data);
    Righe righe;
    Query q = query("ruota");
    q.dove = {"ruota", 1};
    EXPECT_EQ(esegui(q, tabella, righe), platform::errore_tipi);
    q.dove = {"n", std::string("1")};
    EXPECT_EQ(esegui(q, tabella, righe), platform::errore_tipi);
    q.dove = {"d", 1};
    EXPECT_EQ(esegui(q, tabella, righe), platform::errore_tipi);
    q.dove = {"n", 1};
    EXPECT_EQ(esegui(q, tabella, righe), 0);
    EXPECT_EQ(righe, Righe());
}

TEST(Query, ANumberIsComparedAsOne) {
    Table tabella;
    tabella.aggiungi_colonna("n", Table::Tipo::intero);
    for (const int n : {5, 0, 5}) tabella.accoda(0, n);
    tabella.accoda_nullo(0);
    Righe righe;
    Query q = query("n");
    q.dove = {"n", 5};
    EXPECT_EQ(esegui(q, tabella, righe), 0);
    EXPECT_EQ(righe, (Righe{0, 2}));
    q.dove = {"n", 0};
    EXPECT_EQ(esegui(q, tabella, righe), 0);
    EXPECT_EQ(righe, Righe{1});
}

}  // namespace
