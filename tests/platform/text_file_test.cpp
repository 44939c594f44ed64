#include "platform/text_file.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/ambiente.h"
#include "platform/disk.h"
#include "support/cartella.h"
#include "support/guasti.h"

using platform::Record;
using platform::TextReader;

namespace {

constexpr std::size_t blocco = 65536;

/// A folder with one file to read.
class TextReaderTest : public testing::Test {
protected:
    void apri(const std::string& dati) {
        cartella_.scrivi("f", dati);
        ASSERT_TRUE(lettore_.apri(cartella_.file("f")));
    }
    std::string campo() {
        std::string testo = "lasciato";
        return lettore_.campo(testo) ? testo : "<fine>";
    }
    std::string riga() {
        std::string testo = "lasciata";
        return lettore_.riga(testo) ? testo : "<fine>";
    }
    double numero() {
        double n = -1;
        return lettore_.numero(n) ? n : -2;
    }

    support::Cartella cartella_;
    TextReader lettore_;
};

TEST_F(TextReaderTest, AFieldEndsAtACommaOrAtTheLineEnd) {
    apri("1,due\r\n3\n4\r5");
    for (const char* atteso : {"1", "due", "3", "4", "5", "<fine>"}) {
        EXPECT_EQ(campo(), atteso);
    }
}

TEST_F(TextReaderTest, BlanksAroundAFieldAreTrimmed) {
    apri("  a b \t, \"c\"  ,\t d\r\n");
    for (const char* atteso : {"a b", "c", "d", "<fine>"}) {
        EXPECT_EQ(campo(), atteso);
    }
}

TEST_F(TextReaderTest, QuotesAreStrippedAndKeepWhatTheyHold) {
    apri("\"0,50\",\"Euro\"\r\n\" a \",\"\",\"x\r\ny\"z,8");
    for (const char* atteso : {"0,50", "Euro", " a ", "", "x\r\ny", "8", "<fine>"}) {
        EXPECT_EQ(campo(), atteso);
    }
}

TEST_F(TextReaderTest, AQuoteThatNeverClosesTakesTheRest) {
    apri("1,\"abc,2\r\n3");
    EXPECT_EQ(campo(), "1");
    EXPECT_EQ(campo(), "abc,2\r\n3");
    EXPECT_EQ(campo(), "<fine>");
    EXPECT_TRUE(lettore_.eof());
}

TEST_F(TextReaderTest, ATrailingCommaLeavesAnEmptyFieldThatEndsTheLine) {
    apri("1,12,\r\n45,56,\r\n");
    for (const char* atteso : {"1", "12", "", "45", "56", "", "<fine>"}) {
        EXPECT_EQ(campo(), atteso);
    }
}

TEST_F(TextReaderTest, ATrailingCommaAtTheEndOfTheFileLeavesNoField) {
    apri("1,");
    EXPECT_EQ(numero(), 1);
    EXPECT_TRUE(lettore_.eof());
    EXPECT_EQ(campo(), "<fine>");
}

TEST_F(TextReaderTest, AReadPastTheEndLeavesItsTarget) {
    apri("7\r\n");
    std::int32_t n = 0;
    EXPECT_TRUE(lettore_.intero(n));
    EXPECT_TRUE(lettore_.eof());
    EXPECT_FALSE(lettore_.intero(n));
    EXPECT_EQ(n, 7);
    double d = 5;
    EXPECT_FALSE(lettore_.numero(d));
    EXPECT_EQ(d, 5);
    std::string s = "x";
    EXPECT_FALSE(lettore_.campo(s));
    EXPECT_FALSE(lettore_.riga(s));
    EXPECT_EQ(s, "x");
    EXPECT_FALSE(lettore_.salta_riga());
}

TEST_F(TextReaderTest, AnEmptyFileIsAtItsEnd) {
    apri("");
    EXPECT_TRUE(lettore_.eof());
    EXPECT_EQ(lettore_.seek(), 1);
    EXPECT_EQ(riga(), "<fine>");
}

TEST_F(TextReaderTest, ALastLineWithoutEndIsReadWhole) {
    apri("1\r\n23");
    EXPECT_EQ(numero(), 1);
    EXPECT_FALSE(lettore_.eof());
    EXPECT_EQ(numero(), 23);
    EXPECT_TRUE(lettore_.eof());
}

TEST_F(TextReaderTest, AFieldThatIsNoNumberReadsAsZero) {
    apri("abc,,\"4\",12x,-3,2.5\r\n,\r\n");
    for (const double atteso : {0.0, 0.0, 4.0, 12.0, -3.0, 2.5, 0.0, 0.0, -2.0}) {
        EXPECT_EQ(numero(), atteso);
    }
}

TEST_F(TextReaderTest, WholeNumbersOutOfRangeLeaveTheirTargetAndTheReadingGoesOn) {
    apri("256,255,-1,32768,-32768,99999999999,1e999,2.5,3.5\r\n");
    std::uint8_t b = 9;
    EXPECT_FALSE(lettore_.intero(b));
    EXPECT_EQ(b, 9);
    EXPECT_TRUE(lettore_.intero(b));
    EXPECT_EQ(b, 255);
    EXPECT_FALSE(lettore_.intero(b));
    EXPECT_EQ(b, 255);
    std::int16_t s = 8;
    EXPECT_FALSE(lettore_.intero(s));
    EXPECT_EQ(s, 8);
    EXPECT_TRUE(lettore_.intero(s));
    EXPECT_EQ(s, -32768);
    std::int32_t l = 7;
    EXPECT_FALSE(lettore_.intero(l));
    EXPECT_FALSE(lettore_.intero(l));
    EXPECT_EQ(l, 7);
    EXPECT_TRUE(lettore_.intero(l));
    EXPECT_EQ(l, 2);
    EXPECT_TRUE(lettore_.intero(l));
    EXPECT_EQ(l, 4);
}

TEST_F(TextReaderTest, QuickAndGeneralNumberReadingAgree) {
    const std::string dati = "1,12\r\n123456\n1234567,7 ,\r8,9\r\r\n 10,011\r\n3\r4,0";
    apri(dati);
    for (const double atteso :
         {1., 12., 123456., 1234567., 7., 0., 8., 9., 0., 10., 11., 3., 4., 0., -2.}) {
        EXPECT_EQ(numero(), atteso);
    }
}

TEST_F(TextReaderTest, NumbersReadTogetherAreThoseReadOneByOne) {
    const std::string strano =
        "1,22,333,4444,70000,x,, 5 ,\"6\",-7,08\r\n9\n10\r11\r\n,1.5,12,\"a\r\nb\",13,14,1\r2,3";
    for (const std::size_t prima :
         {std::size_t{0}, blocco - 40, blocco - 21, blocco - 4, blocco - 1}) {
        std::string dati;
        while (dati.size() + 4 <= prima) dati += "1,2,";
        dati.resize(prima, '3');
        dati += strano;
        apri(dati);
        std::vector<std::int16_t> singoli;
        for (std::int16_t n = -9; !lettore_.eof(); singoli.push_back(n)) lettore_.intero(n);
        for (const std::size_t quanti : {1, 3, 6}) {
            apri(dati);
            std::vector<std::int16_t> insieme;
            std::vector<std::int16_t> record(quanti, -9);
            std::int16_t ultimo = -9;
            // What fits no number keeps its target, which the single reads left at the one before.
            for (std::size_t posto = 0; posto < singoli.size(); posto += quanti) {
                for (std::size_t k = 0; k < quanti; ++k) record[k] = -1234;
                ASSERT_TRUE(lettore_.interi(record));
                for (const std::int16_t n : record) {
                    if (n != -1234) ultimo = n;
                    insieme.push_back(ultimo);
                }
            }
            insieme.resize(singoli.size());
            EXPECT_EQ(insieme, singoli) << prima << " " << quanti;
            EXPECT_FALSE(lettore_.interi(record));
        }
    }
}

TEST_F(TextReaderTest, WhatFollowsADigitCountsOnlyWhereItIsOne) {
    apri("1:,2/,30,4\r\n");
    std::vector<std::int16_t> record(4, -1);
    EXPECT_TRUE(lettore_.interi(record));
    EXPECT_EQ(record, (std::vector<std::int16_t>{1, 2, 30, 4}));
}

TEST_F(TextReaderTest, NumbersReadTogetherPastTheEndLeaveTheRest) {
    apri("1,2");
    std::vector<std::int16_t> record{7, 8, 9};
    EXPECT_TRUE(lettore_.interi(record));
    EXPECT_EQ(record, (std::vector<std::int16_t>{1, 2, 9}));
    EXPECT_FALSE(lettore_.interi(record));
    EXPECT_EQ(record, (std::vector<std::int16_t>{1, 2, 9}));
}

TEST_F(TextReaderTest, LinesEndWithAnyOfTheThreeEnds) {
    apri("a,\"b\" \r\n\nc\r\rd\n\r\ne");
    for (const char* atteso : {"a,\"b\" ", "", "c", "", "d", "", "e", "<fine>"}) {
        EXPECT_EQ(riga(), atteso);
    }
}

TEST_F(TextReaderTest, SkippingALineLeadsToTheNextOne) {
    apri("1,2\r\n3\n4\r5");
    EXPECT_EQ(numero(), 1);
    EXPECT_TRUE(lettore_.salta_riga());
    EXPECT_EQ(riga(), "3");
    EXPECT_TRUE(lettore_.salta_riga());
    EXPECT_EQ(numero(), 5);
    EXPECT_FALSE(lettore_.salta_riga());
}

TEST_F(TextReaderTest, TextsComeOutAsUtf8) {
    apri("\"citt\xE0\"\r\n\x80\r\n");
    EXPECT_EQ(campo(), "città");
    EXPECT_EQ(riga(), "€");
}

TEST_F(TextReaderTest, PositionsTakenInOnePassAreLineStartsInTheNext) {
    std::string dati;
    for (int i = 0; i < 20000; ++i) {
        dati += std::to_string(i) + "," + std::to_string(i % 90 + 1) + "\r\n";
    }
    apri(dati);
    std::vector<std::int64_t> inizi;
    while (!lettore_.eof()) {
        inizi.push_back(lettore_.seek());
        ASSERT_TRUE(lettore_.salta_riga());
    }
    ASSERT_EQ(inizi.size(), 20000U);
    EXPECT_EQ(inizi.front(), 1);
    EXPECT_EQ(lettore_.seek(), static_cast<std::int64_t>(dati.size()) + 1);
    for (std::size_t i = inizi.size(); i-- > 0;) {
        ASSERT_TRUE(lettore_.seek(inizi[i]));
        ASSERT_EQ(lettore_.seek(), inizi[i]);
        ASSERT_EQ(numero(), static_cast<double>(i));
        ASSERT_EQ(numero(), static_cast<double>(i % 90 + 1));
    }
}

TEST_F(TextReaderTest, SeekRefusesWhatIsNoPosition) {
    apri("123");
    EXPECT_TRUE(lettore_.seek(2));
    EXPECT_FALSE(lettore_.seek(0));
    EXPECT_FALSE(lettore_.seek(-5));
    EXPECT_EQ(numero(), 23);
    EXPECT_TRUE(lettore_.seek(1000));
    EXPECT_TRUE(lettore_.eof());
    EXPECT_EQ(campo(), "<fine>");
    EXPECT_TRUE(lettore_.seek(3));
    EXPECT_EQ(numero(), 3);
    lettore_.chiudi();
    EXPECT_FALSE(lettore_.seek(1));
}

TEST_F(TextReaderTest, FieldsAcrossTheEdgeOfTheBufferAreWhole) {
    const std::string campi = "1234,\"due, tre\" ,56\r\n78\n9\r10,\r\n";
    const std::vector<std::string> attesi = {"1234", "due, tre", "56", "78", "9", "10", ""};
    for (std::size_t indietro = 0; indietro <= campi.size(); ++indietro) {
        const std::string riempimento(blocco - indietro - 2, 'x');
        apri(riempimento + "\r\n" + campi);
        ASSERT_TRUE(lettore_.salta_riga());
        for (const std::string& atteso : attesi) {
            ASSERT_EQ(campo(), atteso) << indietro;
        }
        ASSERT_TRUE(lettore_.eof()) << indietro;
    }
}

TEST_F(TextReaderTest, NumbersAndLinesAcrossTheEdgeOfTheBufferAreWhole) {
    const std::string righe = "123456,78\r\n90,1234567\r\n5\n";
    for (std::size_t indietro = 0; indietro <= righe.size(); ++indietro) {
        apri(std::string(blocco - indietro - 1, 'x') + "\n" + righe);
        ASSERT_TRUE(lettore_.salta_riga());
        const std::int64_t inizio = lettore_.seek();
        for (const double atteso : {123456., 78., 90., 1234567., 5., -2.}) {
            ASSERT_EQ(numero(), atteso) << indietro;
        }
        ASSERT_TRUE(lettore_.seek(inizio));
        for (const char* attesa : {"123456,78", "90,1234567", "5", "<fine>"}) {
            ASSERT_EQ(riga(), attesa) << indietro;
        }
    }
}

TEST_F(TextReaderTest, ALineOfTenMegabytesComesWhole) {
    const std::string lunga(10'000'000, 'a');
    apri(lunga + "\r\nb");
    EXPECT_TRUE(riga() == lunga);
    EXPECT_EQ(riga(), "b");
    lettore_.seek(1);
    EXPECT_TRUE(campo() == lunga);
    lettore_.seek(1);
    EXPECT_TRUE(lettore_.salta_riga());
    EXPECT_EQ(riga(), "b");
}

TEST_F(TextReaderTest, OfAnEndlessLineTheMemoryHoldsAPartOnly) {
    constexpr std::int64_t lunghezza = 20'000'000;
    const std::string nome = cartella_.file("f");
    cartella_.scrivi("f", "\"");
    ASSERT_EQ(::truncate(nome.c_str(), lunghezza), 0);
    std::ofstream(nome, std::ios::app | std::ios::binary) << "\"\r\n7";
    ASSERT_TRUE(lettore_.apri(nome));
    EXPECT_EQ(campo().size(), std::size_t{1} << 24);
    EXPECT_EQ(numero(), 7);
    lettore_.seek(1);
    EXPECT_EQ(riga().size(), std::size_t{1} << 24);
    EXPECT_EQ(riga(), "7");
}

TEST_F(TextReaderTest, AHoleOfFourGigabytesIsTheEndOfTheFile) {
    const std::string nome = cartella_.file("f");
    cartella_.scrivi("f", "1,2\r\n");
    ASSERT_EQ(::truncate(nome.c_str(), std::int64_t{1} << 32), 0);
    const support::Disco disco;
    for (int modo = 0; modo < 4; ++modo) {
        ASSERT_TRUE(lettore_.apri(nome));
        EXPECT_EQ(numero(), 1);
        EXPECT_EQ(numero(), 2);
        std::string testo;
        std::array<std::int16_t, 6> sei{};
        EXPECT_TRUE(modo == 0   ? lettore_.campo(testo)
                    : modo == 1 ? lettore_.riga(testo)
                    : modo == 2 ? lettore_.salta_riga()
                                : lettore_.interi(sei));
        EXPECT_TRUE(lettore_.eof());
        EXPECT_FALSE(lettore_.campo(testo));
    }
    EXPECT_LT(disco.letti, std::int64_t{4} << 26);
    // Another place of the file is read as ever.
    EXPECT_TRUE(lettore_.seek(1));
    EXPECT_EQ(numero(), 1);
}

TEST_F(TextReaderTest, OfAHeadNoMoreIsThereThanTold) {
    cartella_.scrivi("f", "12,34,56\r\n78");
    ASSERT_TRUE(lettore_.apri(cartella_.file("f"), 5));
    EXPECT_EQ(numero(), 12);
    EXPECT_EQ(numero(), 34);
    EXPECT_TRUE(lettore_.eof());
    ASSERT_TRUE(lettore_.apri(cartella_.file("f")));
    for (const int n : {12, 34, 56, 78}) EXPECT_EQ(numero(), n);
}

TEST_F(TextReaderTest, AnyBytesAreReadToTheirEnd) {
    std::string dati;
    std::uint32_t x = 1;
    for (int i = 0; i < 200000; ++i) {
        x = x * 1664525U + 1013904223U;
        dati.push_back("\",\r\n\0 19\xE0-"[(x >> 20) % 10]);
    }
    apri(dati);
    int passi = 0;
    std::int64_t prima = 0;
    while (!lettore_.eof()) {
        ASSERT_GT(lettore_.seek(), prima);
        prima = lettore_.seek();
        if (++passi % 3 == 0) {
            numero();
        } else if (passi % 3 == 1) {
            campo();
        } else {
            riga();
        }
    }
    EXPECT_EQ(lettore_.seek(), static_cast<std::int64_t>(dati.size()) + 1);
}

TEST_F(TextReaderTest, AFileThatIsNotThereReadsAsEnded) {
    EXPECT_FALSE(lettore_.apri(cartella_.file("manca")));
    EXPECT_FALSE(lettore_.aperto());
    EXPECT_TRUE(lettore_.eof());
    EXPECT_FALSE(lettore_.seek(1));
    EXPECT_EQ(campo(), "<fine>");
    EXPECT_EQ(riga(), "<fine>");
}

TEST_F(TextReaderTest, FoldersPipesAndDevicesDoNotOpen) {
    EXPECT_FALSE(lettore_.apri(cartella_.programma()));
    ASSERT_EQ(::mkfifo(cartella_.file("fifo").c_str(), 0600), 0);
    EXPECT_FALSE(lettore_.apri(cartella_.file("fifo")));
    EXPECT_FALSE(lettore_.apri("/dev/zero"));
}

TEST_F(TextReaderTest, NamesAreMatchedWithoutCase) {
    cartella_.scrivi("Prova.SEN", "5");
    ASSERT_TRUE(lettore_.apri(cartella_.file("pROVA.sen")));
    EXPECT_EQ(numero(), 5);
}

TEST_F(TextReaderTest, OpeningAnewBeginsAtTheStart) {
    apri("1,2");
    EXPECT_EQ(numero(), 1);
    apri("3");
    EXPECT_EQ(lettore_.seek(), 1);
    EXPECT_EQ(numero(), 3);
}

/// Reads come in pieces, broken by signals, and fail for good after a while.
class Capricci : public platform::Syscalls {
public:
    explicit Capricci(std::int64_t leggibili) : leggibili_(leggibili) {}
    ssize_t read(int fd, void* dati, std::size_t quanti) override {
        if (++chiamate_ % 2 == 0) {
            errno = EINTR;
            return -1;
        }
        if (leggibili_ <= 0) {
            errno = EIO;
            return -1;
        }
        const ssize_t n = platform::Syscalls::read(fd, dati, std::min<std::size_t>(quanti, 3));
        leggibili_ -= n;
        return n;
    }

private:
    std::int64_t leggibili_;
    int chiamate_ = 0;
};

TEST_F(TextReaderTest, ShortAndInterruptedReadsChangeNothing) {
    Capricci capricci(std::numeric_limits<std::int64_t>::max());
    auto posto = std::make_optional<platform::Ripristina<platform::Syscalls*>>(
        platform::ambiente().chiamate, &capricci);
    apri("1234,\"due, tre\" ,56\r\n78\n9\r10,\r\n");
    for (const char* atteso : {"1234", "due, tre", "56", "78", "9", "10", "", "<fine>"}) {
        EXPECT_EQ(campo(), atteso);
    }
    posto.reset();
}

TEST_F(TextReaderTest, ADiskThatCannotBeReadFurtherEndsTheFile) {
    Capricci capricci(6);
    auto posto = std::make_optional<platform::Ripristina<platform::Syscalls*>>(
        platform::ambiente().chiamate, &capricci);
    apri("1,2\r\n345\r\n");
    EXPECT_EQ(numero(), 1);
    EXPECT_EQ(numero(), 2);
    EXPECT_EQ(numero(), 3);
    EXPECT_TRUE(lettore_.eof());
    EXPECT_EQ(campo(), "<fine>");
    posto.reset();
}

TEST(Record, QuotesStringsAndLeavesNumbersBare) {
    EXPECT_EQ(Record().scrivi(1200).scrivi(2).scrivi("2").scrivi(-1).testo(),
              "1200,2,\"2\",-1\r\n");
    EXPECT_EQ(Record().scrivi("0,50").scrivi("Euro").testo(), "\"0,50\",\"Euro\"\r\n");
    EXPECT_EQ(Record().scrivi("").testo(), "\"\"\r\n");
}

TEST(Record, WritesDatesBetweenNumberSigns) {
    EXPECT_EQ(Record().data(2004, 6, 12).testo(), "#2004-06-12#\r\n");
    EXPECT_EQ(Record().scrivi(1).data(999, 12, 1).testo(), "1,#0999-12-01#\r\n");
}

TEST(Record, AnEmptyRecordIsALineEnd) {
    EXPECT_EQ(Record().testo(), "\r\n");
}

TEST(Record, WritesSingleBytesAndNoEscapes) {
    EXPECT_EQ(Record().scrivi("città \"x\"").testo(), "\"citt\xE0 \"x\"\"\r\n");
}

TEST_F(TextReaderTest, WhatARecordWritesIsReadBack) {
    apri(Record().scrivi("0,50").scrivi("perché").scrivi(-32768).data(2004, 6, 12).testo());
    EXPECT_EQ(campo(), "0,50");
    EXPECT_EQ(campo(), "perché");
    EXPECT_EQ(numero(), -32768);
    EXPECT_EQ(campo(), "#2004-06-12#");
    EXPECT_TRUE(lettore_.eof());
}

}  // namespace
