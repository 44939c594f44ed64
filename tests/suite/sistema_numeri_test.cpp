// The command that makes another system of one: other numbers in its places, other places for them.
#include "analysis/cruciverba_prova.h"
#include "platform/disk.h"
#include "suite/sistema_prova.h"

using namespace prova;

namespace {

TEST_F(Sistema, SostituisciMetteAltriNumeriNegliStessiPosti) {
    const std::string a = pronto("a");
    const std::string prima = cartella.leggi("a.sen");
    std::string nuovi;
    for (int n = 90; n > 90 - 49; --n) nuovi += (nuovi.empty() ? "" : ",") + std::to_string(n);
    const std::string file = cartella.radice() + "/altro.sen";
    EXPECT_EQ(comando({"sostituisci", "--numeri", nuovi, "-o", file, a}).codice, 0);
    EXPECT_EQ(cartella.leggi("a.sen"), prima);
    const auto leggi = [&](const std::string& cosa) {
        return systems::leggi_sistema(cartella.radice(), cosa, Gioco());
    };
    const systems::Sistema v = systems::leggi_sistema(cartella.programma(), "a", Gioco());
    const systems::Sistema n = leggi("altro");
    EXPECT_EQ(n.senza_ripetizioni, 0);
    EXPECT_EQ(n.totale, v.totale);
    for (int y = 0; y < 7; ++y) {
        for (int x = 0; x < 7; ++x) EXPECT_EQ(n.matrice(x, y), 91 - v.matrice(x, y));
    }
    // Two that change places, and one that comes from outside.
    EXPECT_EQ(
        comando({"sostituisci", "--cambia", "1=2,2=1,3=90", "-o", file, "--sovrascrivi", a}).codice,
        0);
    const systems::Sistema c = leggi("altro");
    EXPECT_EQ(c.matrice(0, 0), 2);
    EXPECT_EQ(c.matrice(1, 0), 1);
    EXPECT_EQ(c.matrice(2, 0), 90);
    EXPECT_EQ(c.matrice(3, 0), 4);
    // The development has as many combinations, number for number.
    const Valore vecchio = comando.json({"sviluppa", a})[0];
    EXPECT_EQ(comando.json({"sviluppa", file})[0]["giocate"].intero(), vecchio["giocate"].intero());
}

/// A system whose numbers stand more than once, as laid at random.
systems::Sistema a_caso() {
    prova::Caso caso(3);  // NOLINT: the same crossword every run
    systems::Sistema s;
    s.tipo_righe = s.tipo_colonne = s.tipo_diagonali = 0;
    s.diagonali = "6";
    s.matrice = prova::cruciverba(caso, 7, 7, prova::numeri_a_caso(caso, 16)).value();
    return s;
}

TEST_F(Sistema, MiglioraScriveGliStessiNumeriDispostiMeglio) {
    const std::string a = cartella.file("a.sen");
    cartella.scrivi("a.sen", systems::testo_sistema(a_caso()));
    const std::string file = cartella.file("b.sen");
    const auto detto = comando({"migliora", "--passi", "20000", "--seme", "3", "-o", file, a});
    EXPECT_EQ(detto.codice, 0) << detto.errori;
    EXPECT_NE(detto.uscita.find("3 punti o meglio nel "), std::string::npos) << detto.uscita;
    EXPECT_NE(detto.uscita.find("spesa per una vincita"), std::string::npos);
    const auto numeri = [&](const std::string& nome) {
        const systems::Sistema s = systems::leggi_sistema(cartella.programma(), nome, Gioco());
        std::vector<int> tutti;
        for (int i = 0; i < 49; ++i) tutti.push_back(s.matrice(i % 7, i / 7));
        std::sort(tutti.begin(), tutti.end());
        return tutti;
    };
    EXPECT_EQ(numeri("b"), numeri("a"));
    const std::string scritto = support::contenuto(file);
    EXPECT_NE(scritto, support::contenuto(a));
    const Valore v = comando.json(
        {"migliora", "--passi", "20000", "--seme", "3", "--sovrascrivi", "-o", file, a})[0];
    EXPECT_EQ(support::contenuto(file), scritto) << "the same steps, the same crossword";
    EXPECT_EQ(v["scritto"].testo, file);
    EXPECT_GT(v["dopo"]["estrazioni_vincenti"].intero(),
              v["prima"]["estrazioni_vincenti"].intero());
    EXPECT_EQ(v["dopo"]["estrazioni_possibili"].intero(), 622614630);
}

TEST_F(Sistema, MiglioraNonScriveDoveNonDeve) {
    const std::string a = cartella.file("a.sen");
    cartella.scrivi("a.sen", systems::testo_sistema(a_caso()));
    const std::string b = cartella.file("b.sen");
    const auto prima = fotografia(cartella.radice());
    for (const std::vector<std::string>& parole :
         std::vector<std::vector<std::string>>{{a},
                                               {"-o", b, "--scopo", "6", a},
                                               {"-o", b, "--scopo", "x", a},
                                               {"-o", b, "--tempo", "0", a},
                                               {"-o", b, "--tempo", "1", "--passi", "5", a},
                                               {"-o", b, "--seme", "-1", a}}) {
        std::vector<std::string> tutte = parole;
        tutte.insert(tutte.begin(), "migliora");
        EXPECT_EQ(comando(tutte).codice, 2) << parole.back();
    }
    EXPECT_EQ(comando({"migliora", "--passi", "10", "-o", a, a}).codice, 1);
    const std::string terzine = metti("t", Gioco::lotto(3), 6, 6);
    const auto dopo = fotografia(cartella.radice());
    EXPECT_EQ(comando({"migliora", "--scopo", "4", "--passi", "10", "-o", cartella.file("u.sel"),
                       terzine})
                  .codice,
              1);
    EXPECT_EQ(fotografia(cartella.radice()), dopo);
    EXPECT_GT(dopo.size(), prima.size());
}

TEST_F(Sistema, SostituisciNonCopreENonSbaglia) {
    const std::string a = pronto("a");
    const std::string b = pronto("b");
    const std::string altro = cartella.radice() + "/altro.sen";
    const auto prima = fotografia(cartella.radice());
    const auto rifiuta = [&](std::vector<std::string> parole, const std::string& parte) {
        parole.insert(parole.begin(), "sostituisci");
        parole.push_back(a);
        const Detto detto = comando(parole);
        EXPECT_EQ(detto.codice, 1);
        EXPECT_NE(detto.errori.find(parte), std::string::npos) << detto.errori;
    };
    rifiuta({"--cambia", "60=2", "-o", altro}, "non ha il 60");
    rifiuta({"--cambia", "1=2", "-o", altro}, "il 2 è già nel cruciverba");
    rifiuta({"--numeri", "1,2,3", "-o", altro}, "ha 49 numeri, e quelli nuovi sono 3");
    rifiuta({"--cambia", "1=90", "-o", b}, "c'è già");
    rifiuta({"--cambia", "1=90", "-o", a}, "il file del sistema stesso");
    rifiuta({"--cambia", "1=90", "-o", cartella.programma()}, "il file del sistema stesso");
    rifiuta({"--cambia", "1=90", "-o", cartella.radice() + "/x.sel"}, "deve finire con .sen");
    rifiuta({"--cambia", "1=90", "-o", cartella.radice() + "/manca/x.sen"}, "non si può scrivere");
    EXPECT_EQ(fotografia(cartella.radice()), prima);
    for (const std::vector<std::string>& parole : std::vector<std::vector<std::string>>{
             {"sostituisci", "--cambia", "1=90", a},
             {"sostituisci", "-o", altro, a},
             {"sostituisci", "--numeri", "1", "--cambia", "1=2", "-o", altro, a},
             {"sostituisci", "--numeri", "1,1", "-o", altro, a},
             {"sostituisci", "--cambia", "1", "-o", altro, a},
             {"sostituisci", "--cambia", "1=", "-o", altro, a},
             {"sostituisci", "--cambia", "1=90,2=90", "-o", altro, a},
             {"sostituisci", "--cambia", "1=90,1=89", "-o", altro, a}}) {
        EXPECT_EQ(comando(parole).codice, 2) << testing::PrintToString(parole);
    }
    // Told to, it takes the place of a system, and that one's development goes.
    EXPECT_EQ(comando({"sostituisci", "--cambia", "1=90", "-o", b, "--sovrascrivi", a}).codice, 0);
    EXPECT_FALSE(cartella.esiste("b.col"));
    EXPECT_TRUE(cartella.leggi("b.sen").find("\r\n90,2,") != std::string::npos);
}

}  // namespace
