// What the command refuses: developments of others, damaged files, wrong words.
#include <random>

#include "platform/disk.h"
#include "suite/sistema_prova.h"

using namespace prova;

namespace {

const std::vector<std::vector<std::string>> che_leggono_lo_sviluppo = {
    {"spoglio", "--storico"}, {"esporta"}, {"esporta", "--schede"}, {"analisi"}};

std::vector<std::string> con(std::vector<std::string> parole, const std::string& altra) {
    parole.push_back(altra);
    return parole;
}

TEST_F(Sistema, LoSviluppoDiUnAltroCruciverbaNonSiUsa) {
    const std::string file = pronto("a");
    // The player changes a type and saves: the development stays, and is of before.
    std::string testo = cartella.leggi("a.sen");
    testo.replace(testo.find(",0,0,0,"), 7, ",1,0,0,");
    cartella.scrivi("a.sen", testo);
    EXPECT_EQ(comando.json({"conta", file})[0]["sviluppo"].testo, "di un altro cruciverba");
    for (const auto& parole : che_leggono_lo_sviluppo) {
        const Detto detto = comando(con(parole, file));
        EXPECT_EQ(detto.codice, 1) << parole[0];
        EXPECT_EQ(detto.uscita, "");
        EXPECT_NE(detto.errori.find("lo sviluppo non è di questo cruciverba"), std::string::npos)
            << detto.errori;
        const Valore v = comando.json(con(parole, file), 1);
        EXPECT_NE(v[0]["errore"].testo.find("non è di questo cruciverba"), std::string::npos);
        // Made here, it belongs.
        EXPECT_EQ(comando(con(con(parole, "--sviluppa"), file)).codice, 0) << parole[0];
    }
    EXPECT_EQ(comando({"sviluppa", "--scrivi", file}).codice, 0);
    EXPECT_EQ(comando({"analisi", file}).codice, 0);
}

TEST_F(Sistema, SenzaMarcaLoTradisconoINumeri) {
    const std::string file = metti("a", Gioco(), 6, 6);
    cartella.scrivi("a.col", "1,2,3,4,5,90\r\n");
    for (const auto& parole : che_leggono_lo_sviluppo) {
        const Detto detto = comando(con(parole, file));
        EXPECT_EQ(detto.codice, 1);
        EXPECT_NE(detto.errori.find("gioca il 90, che il cruciverba non ha"), std::string::npos)
            << detto.errori;
    }
}

TEST_F(Sistema, UnConteggioDiversoEUnAvviso) {
    const std::string file = pronto("a");
    const std::string tutto = cartella.leggi("a.col");
    cartella.scrivi("b.sen", cartella.leggi("a.sen"));
    cartella.scrivi("b.col", tutto.substr(0, tutto.find("\r\n") + 2));
    const Detto detto = comando({"esporta", cartella.file("b.sen")});
    EXPECT_EQ(detto.codice, 0);
    EXPECT_NE(detto.errori.find("avviso: lo sviluppo ha 1 combinazioni, e il sistema ne conta 116"),
              std::string::npos)
        << detto.errori;
    EXPECT_EQ(comando.json({"esporta", cartella.file("b.sen")})[0]["avvisi"].lista.size(), 1U);
}

TEST_F(Sistema, LoSviluppoCheMancaOEGuasto) {
    const std::string file = metti("a", Gioco(), 6, 6);
    for (const auto& [contenuto, parte] : std::vector<std::pair<const char*, const char*>>{
             {nullptr, "manca lo sviluppo"},
             {"", "non contiene combinazioni"},
             {"1,2,3\r\n", "non contiene combinazioni"},
             {"1,2,3,4,5,6\r\n1,2,3,4,5,95\r\n", "guasto: una riga non è una combinazione"},
             {"1,2,3,4,5,6\r\n6,5,4,3,2,1\r\nx\r\n", "guasto: 2 righe non sono combinazioni"}}) {
        if (contenuto != nullptr) cartella.scrivi("a.col", contenuto);
        for (const auto& parole : che_leggono_lo_sviluppo) {
            const Detto detto = comando(con(parole, file));
            EXPECT_EQ(detto.codice, 1);
            EXPECT_NE(detto.errori.find(parte), std::string::npos) << detto.errori;
        }
    }
}

TEST_F(Sistema, IFileCheNonSonoSistemi) {
    const std::string buono = support::contenuto(metti("a", Gioco(), 6, 6));
    std::string zero = buono;
    zero.replace(zero.find("\r\n1,") + 2, 1, "0");
    std::string tipo = buono;
    tipo.replace(tipo.find(",0,0,0,"), 7, ",9,0,0,");
    std::string diagonale = buono;
    diagonale.replace(diagonale.find(",0,0,0,"), 7, ",0,0,-1,");
    for (const auto& [contenuto, parte] : std::vector<std::pair<std::string, std::string>>{
             {"", "guasto"},
             {std::string(500, '\0'), "guasto"},
             {"0,200,3,\"\",0,0,0,0\r\n", "un cruciverba non ha 4 colonne e 201 righe"},
             {buono.substr(0, buono.size() / 2), "non c'è un numero da 1 a 90"},
             {zero, "nella riga 1, colonna 1, non c'è un numero da 1 a 90"},
             {tipo, "il tipo 9 delle righe non è nella lista"},
             {diagonale, "il tipo -1 delle diagonali non è nella lista"},
             {std::string(2 << 20, '1'), "troppo grande"}}) {
        cartella.scrivi("x.sen", contenuto);
        const Detto detto = comando({"conta", cartella.file("x.sen")});
        EXPECT_EQ(detto.codice, 1);
        EXPECT_EQ(detto.uscita, "");
        EXPECT_NE(detto.errori.find(parte), std::string::npos) << detto.errori;
    }
    cartella.scrivi("x.sel", "0,4,4,\"2\",0,0,0,7,0\r\n");
    EXPECT_NE(comando({"conta", cartella.file("x.sel")}).errori.find("non 7"), std::string::npos);
    std::filesystem::create_directory(cartella.file("d.sen"));
    EXPECT_NE(comando({"conta", cartella.file("d.sen")}).errori.find("il file non c'è"),
              std::string::npos);
    EXPECT_NE(comando({"conta", cartella.file("a.col")}).errori.find(".sen o con .sel"),
              std::string::npos);
    EXPECT_EQ(comando({"conta", ""}).codice, 1);
    EXPECT_EQ(comando({"conta", cartella.programma() + "/.sen"}).codice, 1);
    // Capitals and a path without a folder are no fault.
    cartella.scrivi("M.SEN", buono);
    EXPECT_EQ(comando({"conta", cartella.file("m.sen")}).codice, 0);
}

TEST_F(Sistema, UnNumeroDueVolteSuUnaLineaEUnAvviso) {
    std::string testo = support::contenuto(metti("a", Gioco(), 6, 6));
    testo.replace(testo.find("\r\n1,2,") + 2, 4, "1,1,");
    cartella.scrivi("a.sen", testo);
    const Detto detto = comando({"conta", cartella.file("a.sen")});
    EXPECT_EQ(detto.codice, 0);
    EXPECT_EQ(detto.errori, "sistema: " + platform::da_mostrare(cartella.file("a.sen")) +
                                ": avviso: il numero 1 sta più di una volta sulla stessa linea\n");
}

TEST_F(Sistema, UnoGuastoNonFermaGliAltri) {
    const std::string a = pronto("a");
    const std::string b = pronto("b", Gioco::lotto(3));
    cartella.scrivi("x.sen", "rotto");
    const std::string x = cartella.file("x.sen");
    for (const std::vector<std::string>& parole : std::vector<std::vector<std::string>>{
             {"conta"}, {"sviluppa"}, {"spoglio", "--storico"}, {"esporta"}, {"analisi"}}) {
        const Valore v = comando.json(con(con(con(parole, a), x), b), 1);
        ASSERT_EQ(v.lista.size(), 3U);
        EXPECT_EQ(v[0]["file"].testo, a);
        EXPECT_EQ(v[0]["gioco"].testo, "SuperEnalotto");
        EXPECT_EQ(v[1]["file"].testo, x);
        EXPECT_NE(v[1]["errore"].testo, "");
        EXPECT_EQ(v[2]["gioco"].testo, "Lotto");
    }
    const Detto detto = comando({"conta", a, x, b});
    EXPECT_EQ(detto.codice, 1);
    EXPECT_NE(detto.uscita.find(platform::da_mostrare(b)), std::string::npos);
    EXPECT_TRUE(
        detto.errori.starts_with("sistema: " + platform::da_mostrare(x) + ": il file è guasto"));
}

TEST_F(Sistema, LeParoleSbagliate) {
    const std::string a = pronto("a");
    const auto prima = fotografia(cartella.radice());
    for (const std::vector<std::string>& parole : std::vector<std::vector<std::string>>{
             {},
             {"canta", a},
             {"conta"},
             {"conta", "--x", a},
             {"conta", "--quote", "0", a},
             {"conta", "--quote", "1000", a},
             {"conta", "--quote", "due", a},
             {"conta", a, "--quote"},
             {"conta", "--storico", a},
             {"conta", "--programma", "/tmp", a},
             {"conta", "--programma", "/nessuna/cruciverba", a},
             {"sviluppa", "--scrivi", "-o", "/tmp", a},
             {"sviluppa", "--ripetizioni", "forse", a},
             {"sviluppa", "-o", "", a},
             {"sviluppa", "-o", cartella.radice() + "/una", a, a},
             {"spoglio", a},
             {"spoglio", "--storico", "--concorso", "3", a},
             {"spoglio", "--concorso", "", a},
             {"spoglio", "--numeri", "1,2,3,4", a},
             {"spoglio", "--numeri", "1,2,3,4,5,5", a},
             {"spoglio", "--numeri", "1,2,3,4,5,91", a},
             {"spoglio", "--numeri", "1,2,3,4,5,0", a},
             {"spoglio", "--numeri", "1,2,3,4,5,", a},
             {"spoglio", "--numeri", "1 2 3 4 5 6", a},
             {"spoglio", "--numeri", "1,2,3,4,5", "--jolly", "6", a},
             {"spoglio", "--numeri", "1,2,3,4,5,6", "--jolly", "6", a},
             {"spoglio", "--numeri", "1,2,3,4,5,6", "--jolly", "100", a},
             {"spoglio", "--numeri", "1,2,3,4,5,6", "--ruota", "BA", a},
             {"spoglio", "--storico", "--ruota", "Atlantide", a},
             {"spoglio", "--storico", "--dettaglio", a},
             {"spoglio", "--concorso", "1", "--pannelli", "3", a},
             {"spoglio", "--concorso", "1", "--dettaglio", "--pannelli", "6", a},
             {"analisi", "--ruota", "BA", a}}) {
        const Detto detto = comando(parole);
        EXPECT_EQ(detto.codice, 2) << testing::PrintToString(parole);
        EXPECT_EQ(detto.uscita, "");
        EXPECT_TRUE(detto.errori.starts_with("sistema: ")) << detto.errori;
        EXPECT_NE(detto.errori.find("--aiuto"), std::string::npos) << detto.errori;
    }
    EXPECT_EQ(fotografia(cartella.radice()), prima);
    for (const char* aiuto : {"--aiuto", "--help", "-h"}) {
        const Detto detto = comando({aiuto});
        EXPECT_EQ(detto.codice, 0);
        EXPECT_TRUE(detto.uscita.starts_with("Uso: sistema conta"));
    }
}

TEST_F(Sistema, DopoDueTrattiniOgniParolaEUnFile) {
    const Detto detto = comando({"conta", "--", "--quote"});
    EXPECT_EQ(detto.codice, 1);
    EXPECT_TRUE(detto.errori.starts_with("sistema: --quote: non è un sistema")) << detto.errori;
}

TEST_F(Sistema, IByteDiControlloNonArrivanoAlTerminale) {
    const std::string buono = support::contenuto(metti("a", Gioco(), 6, 6));
    cartella.scrivi("e\x1b[2J\n.sen", buono);
    const std::string file = cartella.file("e\x1b[2J\n.sen");
    const Detto detto = comando({"conta", file, file + "x"});
    EXPECT_EQ(detto.codice, 1);
    EXPECT_EQ((detto.uscita + detto.errori).find('\x1b'), std::string::npos);
    EXPECT_NE(detto.uscita.find("e\\x1B[2J\\x0A.sen"), std::string::npos) << detto.uscita;
    EXPECT_EQ(comando.json({"conta", file})[0]["file"].testo, file);
}

TEST_F(Sistema, FileDiQualunqueByte) {
    const std::string sistema_buono = support::contenuto(pronto("a"));
    const std::string sviluppo_buono = cartella.leggi("a.col");
    std::mt19937 caso(7);  // NOLINT: the same bytes every run
    const auto rovina = [&caso](std::string dati) {
        for (unsigned n = caso() % 4; n > 0 && !dati.empty(); --n) {
            const std::size_t dove = caso() % dati.size();
            switch (caso() % 4) {
                case 0:
                    dati[dove] = static_cast<char>(caso());
                    break;
                case 1:
                    dati.erase(dove, caso() % 9);
                    break;
                case 2:
                    dati.insert(dove, std::to_string(caso() % 100000));
                    break;
                default:
                    dati.resize(dove);
            }
        }
        return dati;
    };
    int riusciti = 0;
    for (int i = 0; i < 150; ++i) {
        const bool lotto = i % 3 == 0;
        const std::string file = cartella.file(lotto ? "x.sel" : "x.sen");
        cartella.scrivi(lotto ? "x.sel" : "x.sen", rovina(sistema_buono));
        cartella.scrivi(lotto ? "x.lot" : "x.col", rovina(sviluppo_buono));
        const auto prima = fotografia(cartella.programma());
        for (const std::vector<std::string>& parole :
             std::vector<std::vector<std::string>>{{"conta", file},
                                                   {"sviluppa", file},
                                                   {"spoglio", "--numeri", "1,2,3,4,5,6", file},
                                                   {"esporta", "--schede", file},
                                                   {"analisi", file}}) {
            const Detto detto = comando(con(parole, "--json"));
            EXPECT_TRUE(detto.codice == 0 || detto.codice == 1);
            EXPECT_EQ(detto.codice == 0,
                      detto.errori.find("avviso") != std::string::npos || detto.errori.empty());
            const auto letto = support::leggi_json(detto.uscita);
            ASSERT_TRUE(letto.has_value()) << detto.uscita;
            EXPECT_EQ((*letto)[0]["errore"].testo.empty(), detto.codice == 0);
            riusciti += detto.codice == 0 ? 1 : 0;
        }
        ASSERT_EQ(fotografia(cartella.programma()), prima);
    }
    EXPECT_GT(riusciti, 50);
}

}  // namespace
