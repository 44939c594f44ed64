#include "platform/recordset.h"

#include <gtest/gtest.h>

#include "support/archivio.h"
#include "support/cartella.h"

using namespace platform;
using support::apri;

namespace {

/// Tables of a few records: `t` with n = 10, 20, 20, 40, 30, `vuota` with none.
class RecordsetTest : public testing::Test {
protected:
    RecordsetTest() {
        const std::string file = cartella_.file("a.sqlite");
        support::esegui_sql(file,
                            "CREATE TABLE t(nome TEXT, n INTEGER, giorno DATE);"
                            "INSERT INTO t VALUES('a',10,'1999-01-05'),('b',20,NULL),"
                            "('c',20,'1871-01-07'),(NULL,40,'2004-06-12'),('',30,'1899-12-30');"
                            "CREATE TABLE vuota(nome TEXT, n INTEGER);");
        db_ = apri(cartella_.file("a.mdb"));
        t_ = apri(db_, "t");
        vuota_ = apri(db_, "vuota");
        query_ = apri(db_, platform::Query{"t", "n"});
    }
    static std::string nome(const Recordset& rs) { return support::testo(rs.Fields(0).Value()); }
    /// Error number of reading the current record.
    static int lettura(const Recordset& rs) {
        Valore v;
        return rs.Fields(0).Value(v).Number;
    }

    support::Cartella cartella_;
    Database db_;
    Recordset t_;
    Recordset vuota_;
    Recordset query_;
};

TEST_F(RecordsetTest, OpeningStandsOnTheFirstRecord) {
    EXPECT_EQ(nome(t_), "a");
    EXPECT_FALSE(t_.bof());
    EXPECT_FALSE(t_.eof());
}

TEST_F(RecordsetTest, TheEndsAreFirstAndLast) {
    EXPECT_TRUE(t_.MoveLast().ok());
    EXPECT_EQ(nome(t_), "");
    EXPECT_TRUE(t_.MoveFirst().ok());
    EXPECT_EQ(nome(t_), "a");
}

TEST_F(RecordsetTest, NextGoesToTheEndOnceAndFailsThere) {
    t_.MoveLast();
    EXPECT_TRUE(t_.MoveNext().ok());
    EXPECT_TRUE(t_.eof());
    EXPECT_FALSE(t_.bof());
    EXPECT_EQ(lettura(t_), 3021);
    EXPECT_EQ(t_.MoveNext().Number, 3021);
    EXPECT_TRUE(t_.eof());
    EXPECT_TRUE(t_.MovePrevious().ok());
    EXPECT_EQ(nome(t_), "");
}

TEST_F(RecordsetTest, PreviousGoesBeforeTheFirstOnceAndFailsThere) {
    EXPECT_TRUE(t_.MovePrevious().ok());
    EXPECT_TRUE(t_.bof());
    EXPECT_FALSE(t_.eof());
    EXPECT_EQ(lettura(t_), 3021);
    EXPECT_EQ(t_.MovePrevious().Number, 3021);
    EXPECT_TRUE(t_.bof());
    EXPECT_TRUE(t_.MoveNext().ok());
    EXPECT_EQ(nome(t_), "a");
}

TEST_F(RecordsetTest, AMoveCountsFromTheCurrentRecord) {
    EXPECT_TRUE(t_.Move(2).ok());
    EXPECT_EQ(nome(t_), "c");
    EXPECT_TRUE(t_.Move(-1).ok());
    EXPECT_EQ(nome(t_), "b");
    EXPECT_TRUE(t_.Move(0).ok());
    EXPECT_EQ(nome(t_), "b");
}

TEST_F(RecordsetTest, AMoveBeforeTheFirstRecordStopsThereWithoutAnError) {
    t_.MoveLast();
    EXPECT_TRUE(t_.Move(-199).ok());
    EXPECT_TRUE(t_.bof());
    EXPECT_EQ(lettura(t_), 3021);
    EXPECT_TRUE(t_.MoveNext().ok());
    EXPECT_EQ(nome(t_), "a");
}

TEST_F(RecordsetTest, AMovePastTheLastRecordStopsThereWithoutAnError) {
    EXPECT_TRUE(t_.Move(2147483647).ok());
    EXPECT_TRUE(t_.eof());
    EXPECT_TRUE(t_.Move(-2147483647 - 1).ok());
    EXPECT_TRUE(t_.bof());
}

TEST_F(RecordsetTest, AMoveThatStartsAtAnEndMustComeBack) {
    t_.Move(5);
    EXPECT_EQ(t_.Move(1).Number, 3021);
    EXPECT_EQ(t_.Move(0).Number, 3021);
    EXPECT_TRUE(t_.Move(-2).ok());
    EXPECT_EQ(nome(t_), "<null>");
    t_.Move(-9);
    EXPECT_EQ(t_.Move(-1).Number, 3021);
    EXPECT_EQ(t_.Move(0).Number, 3021);
    EXPECT_TRUE(t_.Move(2).ok());
    EXPECT_EQ(nome(t_), "b");
}

TEST_F(RecordsetTest, WithoutRecordsBothEndsAreTrueAndEveryStepFails) {
    EXPECT_TRUE(vuota_.eof());
    EXPECT_TRUE(vuota_.bof());
    EXPECT_EQ(vuota_.RecordCount(), 0);
    EXPECT_EQ(vuota_.MoveFirst().Number, 3021);
    EXPECT_EQ(vuota_.MoveLast().Number, 3021);
    EXPECT_EQ(vuota_.MoveNext().Number, 3021);
    EXPECT_EQ(vuota_.MovePrevious().Number, 3021);
    EXPECT_EQ(vuota_.Move(0).Number, 3021);
    EXPECT_EQ(lettura(vuota_), 3021);
    EXPECT_TRUE(vuota_.eof());
    EXPECT_EQ(apri(db_, platform::Query{"vuota", "n"}).RecordCount(), 0);
}

TEST_F(RecordsetTest, ATableKnowsItsCountAndAQueryWhatWasReached) {
    EXPECT_EQ(t_.RecordCount(), 5);
    EXPECT_EQ(query_.RecordCount(), 1);
    query_.Move(2);
    EXPECT_EQ(query_.RecordCount(), 3);
    query_.MoveFirst();
    EXPECT_EQ(query_.RecordCount(), 3);
    query_.MoveLast();
    EXPECT_EQ(query_.RecordCount(), 5);
    query_.MoveNext();
    EXPECT_EQ(query_.RecordCount(), 5);
}

TEST_F(RecordsetTest, FieldsAreFoundByOrdinalOrByNameWithoutCase) {
    EXPECT_EQ(t_.Fields(1).Value(), Valore(10));
    EXPECT_EQ(t_.Fields("N").Value(), Valore(10));
    EXPECT_EQ(t_.Fields("GIORNO").Value(), Valore(Data{1999, 1, 5}));
    Field campo = t_.Fields(0);
    EXPECT_EQ(t_.Fields(3, campo).Number, 3265);
    EXPECT_EQ(t_.Fields(-1, campo).Number, 3265);
    EXPECT_EQ(t_.Fields("altro", campo).Number, 3265);
    EXPECT_EQ(campo.Value(), Valore(std::string("a")));
}

TEST_F(RecordsetTest, AFieldOfNothingReadsAsAnError) {
    Valore v(7);
    EXPECT_EQ(t_.Fields(9).Value(v).Number, 91);
    EXPECT_EQ(v, Valore(7));
    EXPECT_TRUE(t_.Fields(9).Value().nullo());
}

TEST_F(RecordsetTest, ABoundFieldFollowsTheCurrentRecord) {
    const Field n = t_.Fields("n");
    EXPECT_EQ(n.Value(), Valore(10));
    t_.MoveNext();
    EXPECT_EQ(n.Value(), Valore(20));
    t_ = Recordset();
    EXPECT_EQ(n.Value(), Valore(20));
}

TEST_F(RecordsetTest, NullEmptyNumberTextAndDayAreToldApart) {
    EXPECT_EQ(t_.Fields("nome").Value(), Valore(std::string("a")));
    EXPECT_EQ(t_.Fields("giorno").Value(), Valore(Data{1999, 1, 5}));
    t_.MoveNext();
    EXPECT_TRUE(t_.Fields("giorno").Value().nullo());
    t_.MoveNext();
    EXPECT_EQ(t_.Fields("giorno").Value(), Valore(Data{1871, 1, 7}));
    t_.MoveNext();
    EXPECT_TRUE(t_.Fields("nome").Value().nullo());
    t_.MoveNext();
    EXPECT_EQ(t_.Fields("nome").Value(), Valore(std::string()));
    EXPECT_EQ(t_.Fields("giorno").Value(), Valore(Data{1899, 12, 30}));
}

TEST_F(RecordsetTest, AnIndexOrdersATableAndGoesToItsFirstRecord) {
    t_.MoveLast();
    EXPECT_TRUE(t_.Index("N").ok());
    EXPECT_EQ(nome(t_), "a");
    std::string nomi;
    for (const auto& riga : support::tutte(t_)) nomi += riga[0] + " ";
    EXPECT_EQ(nomi, "a b c  <null> ");
    EXPECT_EQ(t_.Index("altro").Number, 3015);
    EXPECT_TRUE(t_.Seek("=", 10).ok());
    EXPECT_EQ(nome(t_), "a");
    EXPECT_EQ(query_.Index("n").Number, 3251);
}

TEST_F(RecordsetTest, NullsComeFirstInAnIndexAndAreNotFound) {
    support::esegui_sql(cartella_.file("b.sqlite"),
                        "CREATE TABLE t(n INTEGER); INSERT INTO t VALUES(0),(-5),(NULL),(3);");
    Recordset rs = apri(apri(cartella_.file("b.mdb")), "t");
    rs.Index("n");
    EXPECT_EQ(support::tutte(rs), (support::Righe{{"<null>"}, {"-5"}, {"0"}, {"3"}}));
    EXPECT_TRUE(rs.Seek("=", 0).ok());
    EXPECT_EQ(rs.Fields(0).Value(), Valore(0));
    rs.MovePrevious();
    EXPECT_EQ(rs.Fields(0).Value(), Valore(-5));
}

TEST_F(RecordsetTest, ASeekFindsTheFirstOfEqualKeys) {
    t_.Index("n");
    EXPECT_TRUE(t_.Seek("=", 20).ok());
    EXPECT_EQ(nome(t_), "b");
    t_.MoveNext();
    EXPECT_EQ(nome(t_), "c");
    EXPECT_TRUE(t_.Seek("=", 40).ok());
    EXPECT_EQ(nome(t_), "<null>");
}

TEST_F(RecordsetTest, ASeekThatFindsNothingLeavesNoCurrentRecord) {
    t_.Index("n");
    EXPECT_TRUE(t_.Seek("=", 25).ok());
    EXPECT_FALSE(t_.eof());
    EXPECT_FALSE(t_.bof());
    EXPECT_EQ(lettura(t_), 3021);
    EXPECT_EQ(t_.MoveNext().Number, 3021);
    EXPECT_EQ(t_.Move(0).Number, 3021);
    EXPECT_TRUE(t_.Seek("=", 99).ok());
    EXPECT_EQ(lettura(t_), 3021);
    EXPECT_TRUE(t_.MoveLast().ok());
    EXPECT_EQ(nome(t_), "<null>");
    EXPECT_TRUE(t_.Seek("=", 10).ok());
    EXPECT_EQ(nome(t_), "a");
    vuota_.Index("n");
    EXPECT_TRUE(vuota_.Seek("=", 1).ok());
    EXPECT_EQ(lettura(vuota_), 3021);
}

TEST_F(RecordsetTest, ASeekNeedsAnIndexOfNumbersAndTheEqualsSign) {
    EXPECT_EQ(t_.Seek("=", 10).Number, 3019);
    EXPECT_EQ(query_.Seek("=", 10).Number, 3251);
    t_.Index("n");
    EXPECT_EQ(t_.Seek(">=", 10).Number, 3001);
    t_.Index("nome");
    EXPECT_EQ(t_.Seek("=", 10).Number, 3464);
}

TEST_F(RecordsetTest, CopiesShareOneCurrentRecord) {
    Recordset altra = t_;
    altra.MoveNext();
    EXPECT_EQ(nome(t_), "b");
    Recordset nuova = apri(db_, "t");
    nuova.MoveLast();
    EXPECT_EQ(nome(t_), "b");
}

TEST_F(RecordsetTest, AClosedRecordsetAnswersEveryUseWithAnError) {
    const Field campo = t_.Fields(0);
    Valore v;
    Field altro;
    EXPECT_TRUE(t_.Close().ok());
    EXPECT_EQ(t_.Close().Number, 3420);
    EXPECT_EQ(t_.MoveFirst().Number, 3420);
    EXPECT_EQ(t_.MoveLast().Number, 3420);
    EXPECT_EQ(t_.Move(1).Number, 3420);
    EXPECT_EQ(t_.Index("n").Number, 3420);
    EXPECT_EQ(t_.Seek("=", 1).Number, 3420);
    EXPECT_EQ(t_.Fields(0, altro).Number, 3420);
    EXPECT_EQ(t_.Fields("n", altro).Number, 3420);
    EXPECT_EQ(campo.Value(v).Number, 3420);
    EXPECT_EQ(t_.RecordCount(), 0);
    EXPECT_TRUE(t_.eof());
    EXPECT_TRUE(t_.bof());
    EXPECT_EQ(nome(query_), "a");
}

TEST_F(RecordsetTest, AHandleWithoutARecordsetAnswersWithAnError) {
    Recordset nulla;
    EXPECT_EQ(nulla.MoveNext().Number, 91);
    EXPECT_EQ(nulla.Close().Number, 91);
    EXPECT_TRUE(nulla.eof());
    EXPECT_TRUE(nulla.bof());
}

TEST(Err, EveryErrorHasADescriptionAndNoneHasNone) {
    EXPECT_TRUE(Err{}.ok());
    EXPECT_EQ(Err{}.Description(), "");
    EXPECT_EQ(Err{3024}.Description(), "Impossibile trovare il file.");
    EXPECT_EQ(Err{3343}.Description(), "Formato di database non riconosciuto.");
    EXPECT_EQ(Err{3051}.Description(), "Impossibile aprire il file: permesso negato.");
    EXPECT_EQ(Err{3356}.Description(), "Il file è già aperto in modo esclusivo.");
    EXPECT_EQ(Err{12345}.Description(), "Errore non previsto.");
}

TEST(Valore, ANumberIsReadFromNumbersAndFromTextsThatAreOne) {
    EXPECT_EQ(Valore(7).intero(), 7);
    EXPECT_EQ(Valore(std::string(" 12 ")).intero(), 12);
    EXPECT_EQ(Valore(std::string("12a")).intero(), std::nullopt);
    EXPECT_EQ(Valore(std::string()).intero(), std::nullopt);
    EXPECT_EQ(Valore(Data{2004, 6, 12}).intero(), std::nullopt);
    EXPECT_EQ(Valore().intero(), std::nullopt);
}

TEST(Valore, ATextIsReadFromAllButNull) {
    EXPECT_EQ(Valore(-7).testo(), "-7");
    EXPECT_EQ(Valore(std::string(" x")).testo(), " x");
    EXPECT_EQ(Valore(Data{204, 6, 2}).testo(), "02/06/0204");
    EXPECT_EQ(Valore().testo(), std::nullopt);
    EXPECT_EQ(Valore(5).data(), std::nullopt);
}

TEST(Data, DaysCountFromTheEndOf1899) {
    EXPECT_EQ(seriale({1899, 12, 30}), 0);
    EXPECT_EQ(seriale({1900, 3, 1}), 61);
    EXPECT_EQ(seriale({1871, 1, 7}), -10584);
    EXPECT_EQ(da_seriale(-10584), (Data{1871, 1, 7}));
    EXPECT_EQ(da_seriale(38150), (Data{2004, 6, 12}));
}

TEST(Data, ADayIsReadFromItsIsoTextOnly) {
    EXPECT_EQ(da_iso("2004-02-29"), (Data{2004, 2, 29}));
    EXPECT_EQ(da_iso("2004-06-12 20:30:00"), (Data{2004, 6, 12}));
    EXPECT_EQ(da_iso("2004-06-12T20:30"), (Data{2004, 6, 12}));
    for (const char* altro :
         {"", "2003-02-29", "2004-13-01", "2004-00-01", "2004-01-00", "2004-01-32", "2004/06/12",
          "12-06-2004", "2004-06-1", "2004-06-123", "-204-06-12", "2004-0a-12", "0099-01-01"}) {
        EXPECT_EQ(da_iso(altro), std::nullopt) << altro;
    }
}

}  // namespace
