// Files as this system has them: wide names, long ones, files that another program holds.
#include <chrono>
#include <gtest/gtest.h>
#include <string>

#include "platform/application.h"
#include "platform/disk.h"
#include "platform/lavoro.h"
#include "platform/links.h"
#include "platform/macchina.h"
#include "platform/segno.h"
#include "platform/text_file.h"
#include "platform/win32/nomi.h"
#include "support/cartella.h"

using namespace platform;

namespace {

/// Another program that has a file open, and what it lets others do meanwhile.
class Altrui {
public:
    Altrui(const std::string& nome, DWORD lascia, DWORD diritti = GENERIC_READ)
        : file_(CreateFileW(win32::nome_largo(nome).c_str(), diritti, lascia, nullptr,
                            OPEN_EXISTING, 0, nullptr)) {
        EXPECT_TRUE(file_.valida()) << nome;
    }

private:
    win32::Maniglia file_;
};

class FileWin32 : public testing::Test {
protected:
    [[nodiscard]] std::size_t quanti() const { return Dir(cartella_.programma(), "*").size(); }
    [[nodiscard]] std::string contenuto(const std::string& nome) const {
        return leggi_tutto(cartella_.file(nome)).value_or("<manca>");
    }
    support::Cartella cartella_;
};

TEST_F(FileWin32, ANameOfAnyLettersIsWrittenListedAndDeleted) {
    for (const std::string nome : {"così è la città.sen", "€ – «漢字».sen", "gioco 🎲.sen"}) {
        EXPECT_EQ(sostituisci(cartella_.file(nome), "uno"), Esito::ok) << nome;
        EXPECT_EQ(Dir(cartella_.programma(), "*.sen"), std::vector<std::string>{nome});
        EXPECT_EQ(sostituisci(cartella_.file(nome), "due\r\n"), Esito::ok) << nome;
        EXPECT_EQ(contenuto(nome), "due\r\n");
        EXPECT_EQ(Kill(cartella_.file(nome)), Esito::ok) << nome;
        EXPECT_EQ(quanti(), 0U);
    }
}

TEST_F(FileWin32, HalfAPairGoesOverAndBack) {
    const std::wstring strano{L'a', static_cast<wchar_t>(0xDC20), L'b'};
    EXPECT_EQ(win32::largo(win32::stretto(strano)), strano);
    EXPECT_EQ(win32::largo("\xFF"
                           "a"),
              L"");
    EXPECT_EQ(win32::largo("\xC0\xAF"), L"");
    EXPECT_EQ(win32::largo("\xF5\x80\x80\x80"), L"");
}

TEST_F(FileWin32, BackslashesDrivesAndSharesAreUnderstood) {
    EXPECT_EQ(win32::nome_largo("C:/a/b.sen"), L"C:\\a\\b.sen");
    EXPECT_EQ(win32::nome_largo("C:\\a/b.sen"), L"C:\\a\\b.sen");
    EXPECT_EQ(win32::nome_largo("C:"), L"C:\\");
    EXPECT_EQ(win32::nome_largo("//server/condivisa/a.sen"), L"\\\\server\\condivisa\\a.sen");
    EXPECT_EQ(win32::nome_stretto(L"\\\\?\\UNC\\server\\condivisa\\a.sen"),
              "//server/condivisa/a.sen");
    EXPECT_EQ(win32::nome_stretto(L"\\\\?\\C:\\a\\b.sen"), "C:/a/b.sen");
    EXPECT_EQ(cartella_di("//server/condivisa/a.sen"), "//server/condivisa");
    const std::string lunga(300, 'x');
    EXPECT_TRUE(win32::nome_largo("C:/" + lunga).starts_with(L"\\\\?\\C:\\xxx"));
    EXPECT_TRUE(
        win32::nome_largo("//server/c/" + lunga).starts_with(L"\\\\?\\UNC\\server\\c\\xxx"));
    cartella_.scrivi("a.sen", "1");
    std::string rovesciato = cartella_.file("a.sen");
    for (char& c : rovesciato) c = c == '/' ? '\\' : c;
    EXPECT_EQ(leggi_tutto(rovesciato), "1");
}

TEST_F(FileWin32, PeopleReadANameWithTheSystemsOwnSigns) {
    EXPECT_EQ(da_mostrare("C:/sistemi/due parole.sen"), "C:\\sistemi\\due parole.sen");
    EXPECT_EQ(da_mostrare("//server/cartella"), "\\\\server\\cartella");
    EXPECT_EQ(da_mostrare("solo.sen"), "solo.sen");
}

TEST_F(FileWin32, DevicesStreamsAndSignsAreNoNames) {
    for (const std::string nome :
         {"nul", "con", "a:b.sen", "a?.sen", "a*.sen", "a|b", "a\"b", "a<b"}) {
        EXPECT_NE(sostituisci(cartella_.file(nome), "1"), Esito::ok) << nome;
        EXPECT_FALSE(esiste_file(cartella_.file(nome))) << nome;
    }
    EXPECT_EQ(quanti(), 0U);
}

TEST_F(FileWin32, APathLongerThanTheOldLimitIsAPathLikeOthers) {
    std::string lunga = cartella_.programma();
    for (int i = 0; i < 12; ++i) lunga += "/una cartella dal nome lungo " + std::to_string(i);
    ASSERT_GT(lunga.size(), 300U);
    ASSERT_TRUE(crea_cartella(lunga));
    EXPECT_EQ(scrivi(lunga + "/a.sen", "1"), Esito::ok);
    EXPECT_EQ(sostituisci(lunga + "/a.sen", "2"), Esito::ok);
    EXPECT_EQ(FileCopy(lunga + "/a.sen", lunga + "/b.sen"), Esito::ok);
    EXPECT_EQ(Name(lunga + "/b.sen", lunga + "/B.sen"), Esito::ok);
    EXPECT_EQ(Name(lunga + "/B.sen", lunga + "/c.sen"), Esito::ok);
    EXPECT_EQ(leggi_tutto(lunga + "/c.sen"), "2");
    EXPECT_EQ(Dir(lunga, "*"), (std::vector<std::string>{"a.sen", "c.sen"}));
    EXPECT_EQ(Kill(lunga + "/a.sen"), Esito::ok);
    EXPECT_EQ(Kill(lunga + "/c.sen"), Esito::ok);
    // The library's own steps know no such paths.
    for (; lunga != cartella_.programma(); lunga = cartella_di(lunga))
        EXPECT_NE(RemoveDirectoryW(win32::nome_largo(lunga).c_str()), 0) << lunga;
}

TEST_F(FileWin32, AFileThatAnotherHoldsForHimselfIsNeitherReplacedNorDeleted) {
    for (const DWORD lascia :
         {DWORD{0}, DWORD{FILE_SHARE_READ}, DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}}) {
        cartella_.scrivi("a.col", "vecchio");
        cartella_.scrivi("b.col", "altro");
        const Altrui altrui(cartella_.file("a.col"), lascia);
        EXPECT_EQ(sostituisci(cartella_.file("a.col"), "nuovo"), Esito::errore) << lascia;
        EXPECT_EQ(FileCopy(cartella_.file("b.col"), cartella_.file("a.col")), Esito::errore);
        EXPECT_EQ(Kill(cartella_.file("a.col")), Esito::errore) << lascia;
        EXPECT_EQ(Name(cartella_.file("a.col"), cartella_.file("c.col")), Esito::errore) << lascia;
        EXPECT_EQ(Dir(cartella_.programma(), "*"), (std::vector<std::string>{"a.col", "b.col"}));
        if (lascia != 0) {
            EXPECT_EQ(contenuto("a.col"), "vecchio");
        } else {
            EXPECT_EQ(leggi_tutto(cartella_.file("a.col")), std::nullopt);
        }
    }
    EXPECT_EQ(contenuto("a.col"), "vecchio");
    EXPECT_EQ(sostituisci(cartella_.file("a.col"), "nuovo"), Esito::ok);
}

TEST_F(FileWin32, WhatThisProgramReadsItMayReplaceMeanwhile) {
    cartella_.scrivi("a.col", "1,2\r\n3,4\r\n");
    TextReader lettore(cartella_.file("a.col"));
    std::string riga;
    ASSERT_TRUE(lettore.riga(riga));
    EXPECT_EQ(riga, "1,2");
    EXPECT_EQ(sostituisci(cartella_.file("a.col"), "5,6\r\n"), Esito::ok);
    ASSERT_TRUE(lettore.riga(riga));
    EXPECT_EQ(riga, "3,4");
    EXPECT_EQ(contenuto("a.col"), "5,6\r\n");
    EXPECT_EQ(Kill(cartella_.file("a.col")), Esito::ok);
}

TEST_F(FileWin32, AFileThatMayOnlyBeReadStays) {
    cartella_.scrivi("a.sen", "1");
    SetFileAttributesW(win32::nome_largo(cartella_.file("a.sen")).c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(Kill(cartella_.file("a.sen")), Esito::errore);
    EXPECT_EQ(contenuto("a.sen"), "1");
    SetFileAttributesW(win32::nome_largo(cartella_.file("a.sen")).c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(Kill(cartella_.file("a.sen")), Esito::ok);
}

TEST_F(FileWin32, AReplacedFileKeepsTheDayOfItsMaking) {
    constexpr std::int64_t giorno = 925'905'600;
    cartella_.scrivi("a.sen", "1");
    {
        File file(cartella_.file("a.sen"), File::Modo::cambia);
        ASSERT_TRUE(file.nasce(giorno));
    }
    ASSERT_EQ(data_creazione(cartella_.file("a.sen")), giorno);
    EXPECT_EQ(sostituisci(cartella_.file("a.sen"), "2"), Esito::ok);
    EXPECT_EQ(data_creazione(cartella_.file("a.sen")), giorno);
}

TEST_F(FileWin32, AWordGoesWithAFileAndLeavesItsTimeAlone) {
    cartella_.scrivi("a.col", "1");
    const auto prima = impronta(cartella_.file("a.col"));
    ASSERT_TRUE(annota(cartella_.file("a.col"), "parola"));
    EXPECT_EQ(annotazione(cartella_.file("a.col")), "parola");
    EXPECT_EQ(impronta(cartella_.file("a.col")), prima);
    EXPECT_EQ(FileCopy(cartella_.file("a.col"), cartella_.file("b.col")), Esito::ok);
    EXPECT_EQ(annotazione(cartella_.file("b.col")), "parola");
    EXPECT_EQ(Name(cartella_.file("b.col"), cartella_.file("c.col")), Esito::ok);
    EXPECT_EQ(annotazione(cartella_.file("c.col")), "parola");
}

TEST_F(FileWin32, ANameTakesAnotherCase) {
    cartella_.scrivi("primo.sen", "1");
    EXPECT_EQ(Name(cartella_.file("primo.sen"), cartella_.file("PRIMO.sen")), Esito::ok);
    EXPECT_EQ(Dir(cartella_.programma(), "*"), std::vector<std::string>{"PRIMO.sen"});
    EXPECT_EQ(contenuto("Primo.SEN"), "1");
}

TEST_F(FileWin32, AWorkingFileThatIsHeldIsNotSwept) {
    {
        Lavoro lavoro(cartella_.programma());
        ASSERT_EQ(lavoro.esito(), Esito::ok);
        lavoro.file().chiudi();
        spazza(cartella_.programma());
        EXPECT_EQ(quanti(), 1U);
    }
    EXPECT_EQ(quanti(), 0U);
    cartella_.scrivi("temp-1-1.nuovo", "avanzo");
    spazza(cartella_.programma());
    EXPECT_EQ(quanti(), 0U);
}

TEST_F(FileWin32, WhatIsGivenToTheBinIsNoLongerThere) {
    cartella_.scrivi("tempo.sen", "x");
    EXPECT_TRUE(macchina::cestina(cartella_.file("tempo.sen")));
    EXPECT_FALSE(macchina::cestina(cartella_.file("tempo.sen")));
    EXPECT_EQ(quanti(), 0U);
}

TEST_F(FileWin32, ASecondInstanceSeesTheFirstAndLeavesNothing) {
    {
        Application prima;
        prima.Path = cartella_.programma();
        EXPECT_FALSE(prima.PrevInstance());
        EXPECT_FALSE(prima.PrevInstance());
        Application seconda;
        seconda.Path = cartella_.programma() + "/.";
        EXPECT_TRUE(seconda.PrevInstance());
        Application altrove;
        altrove.Path = cartella_.radice();
        EXPECT_FALSE(altrove.PrevInstance());
        EXPECT_EQ(quanti(), 0U);
    }
    Application dopo;
    dopo.Path = cartella_.programma();
    EXPECT_FALSE(dopo.PrevInstance());
}

TEST_F(FileWin32, ATurnIsOneProgramsAndLeavesNothing) {
    {
        const Turno mio(cartella_.programma());
        EXPECT_TRUE(mio.preso());
        EXPECT_FALSE(Turno(cartella_.programma(), std::chrono::milliseconds(0)).preso());
    }
    EXPECT_EQ(quanti(), 0U);
    EXPECT_TRUE(Turno(cartella_.programma(), std::chrono::milliseconds(0)).preso());
}

TEST_F(FileWin32, AMarkerIsThereAsLongAsItsProgram) {
    {
        const Segno segno(cartella_.file("sch"));
        EXPECT_FALSE(segno.occupato());
        EXPECT_TRUE(esiste_file(cartella_.file("sch")));
        EXPECT_TRUE(Segno(cartella_.file("sch")).occupato());
        EXPECT_TRUE(esiste_file(cartella_.file("sch")));
    }
    EXPECT_FALSE(esiste_file(cartella_.file("sch")));
    cartella_.scrivi("sch", "");
    const Segno dopo(cartella_.file("sch"));
    EXPECT_FALSE(dopo.occupato());
}

TEST_F(FileWin32, TheFolderOfTheProgramIsNamedWithPlainSlashes) {
    const std::string cartella = cartella_eseguibile();
    EXPECT_TRUE(esiste_file(cartella + "/test_core.exe")) << cartella;
    EXPECT_EQ(cartella.find('\\'), std::string::npos);
    EXPECT_EQ(macchina::percorso_reale(cartella_.programma()).find('\\'), std::string::npos);
    EXPECT_TRUE(esiste_cartella(macchina::percorso_reale(cartella_.programma())));
}

}  // namespace
