// The command as a player runs it.
#include <algorithm>
#include <array>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <poll.h>
#include <stdlib.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "avvio.h"
#include "platform/disk.h"
#include "support/cartella.h"

using support::contenuto;

namespace {

struct Risposta {
    int codice = -1;
    std::string uscita;
    std::string errori;
};

class Ridotti : public testing::Test {
protected:
    /// Runs the command with its outputs in files of the test's folder; `errori` may be a device.
    Risposta esegui(const std::vector<std::string>& parole, const std::string& terminale = "") {
        const std::string uscita = cartella_.file("uscita");
        const std::string errori = terminale.empty() ? cartella_.file("errori") : terminale;
        Risposta risposta;
        risposta.codice = support::avvia(RIDOTTI, parole, uscita, errori);
        risposta.uscita = contenuto(uscita);
        if (terminale.empty()) risposta.errori = contenuto(errori);
        return risposta;
    }
    /// Writes a table into the test's folder and returns its full name.
    std::string tabella(const std::string& nome, const std::string& testo) {
        cartella_.scrivi(nome, testo);
        return cartella_.file(nome);
    }
    static std::string spedita(const std::string& nome) {
        return SUITE_DIR "/ridotti/" + nome + ".rid";
    }
    support::Cartella cartella_;
};

TEST_F(Ridotti, IntegraliScriveLe43Tabelle) {
    const std::string dove = cartella_.file("nuova/cartella");
    EXPECT_EQ(esegui({"integrali", dove}).codice, 0);
    int quante = 0;
    for (const auto& voce : std::filesystem::directory_iterator(dove)) {
        EXPECT_EQ(contenuto(voce.path().generic_string()),
                  contenuto(SUITE_DIR "/ridotti/" + voce.path().filename().string()));
        ++quante;
    }
    EXPECT_EQ(quante, 43);
    EXPECT_EQ(contenuto(dove + "/cr0600.rid"), "1,2,3,4,5,6\r\n");
}

TEST_F(Ridotti, IntegraliDiceQuandoNonPuo) {
    const Risposta risposta = esegui({"integrali", tabella("file", "x") + "/sotto"});
    EXPECT_EQ(risposta.codice, 2);
    EXPECT_NE(risposta.errori.find("non posso creare la cartella"), std::string::npos);
    EXPECT_EQ(esegui({"integrali"}).codice, 2);
}

TEST_F(Ridotti, IntegraliEDocumentoRifiutanoLeOpzioniSconosciute) {
    const Risposta risposta = esegui({"integrali", "--x"});
    EXPECT_EQ(risposta.codice, 2);
    EXPECT_EQ(risposta.errori, "ridotti: opzione sconosciuta: --x\n");
    EXPECT_FALSE(std::filesystem::exists("--x"));
    EXPECT_EQ(esegui({"integrali", "--json", cartella_.file("y")}).codice, 2);
    EXPECT_FALSE(cartella_.esiste("y"));
    EXPECT_EQ(esegui({"documento", "--x", "a", "b"}).errori, risposta.errori);
    EXPECT_EQ(esegui({"vincite", "--guida", "a"}).codice, 2);
}

TEST_F(Ridotti, LaSuiteHaIlComandoAccantoAlProgramma) {
    EXPECT_EQ(std::filesystem::path(RIDOTTI).parent_path(), SUITE_DIR "/cruciverba");
    EXPECT_TRUE(std::filesystem::exists(RIDOTTI));
}

TEST_F(Ridotti, IByteDiControlloNonArrivanoAlTerminale) {
    const std::string mia = tabella("a\x1b[2J\n.rid", "1,2\n\x1b]0;x\a\n");
    const Risposta risposta = esegui({"verifica", "--garanzia", "2:2", mia});
    EXPECT_EQ(risposta.codice, 2);
    EXPECT_EQ(risposta.errori.find('\x1b'), std::string::npos) << risposta.errori;
    EXPECT_NE(risposta.errori.find("a\\x1B[2J\\x0A.rid:2:"), std::string::npos) << risposta.errori;
    const std::string sana = tabella("b\x1b.rid", "1,2\n3,4\n");
    EXPECT_EQ(esegui({"verifica", "--garanzia", "1:1", sana}).uscita.find('\x1b'),
              std::string::npos);
    EXPECT_EQ(esegui({"vincite", sana}).uscita.find('\x1b'), std::string::npos);
    // JSON has its own way for controls; bytes that are no text become digits.
    const Risposta json =
        esegui({"verifica", "--json", "--garanzia", "1:1", tabella("c\x1b\x9b\x7f.rid", "1,2\n")});
    EXPECT_NE(json.uscita.find("c\\u001b\\\\x9B\\u007f.rid"), std::string::npos) << json.uscita;
}

TEST_F(Ridotti, LaSuiteHaTutteLeTabelle) {
    int quante = 0;
    for (const auto& voce : std::filesystem::directory_iterator(SUITE_DIR "/ridotti")) {
        // Behind the length, the told types have a zero.
        const std::string nome = voce.path().filename().string();
        if (voce.path().extension() == ".rid" && nome[4] == '0') ++quante;
    }
    EXPECT_EQ(quante, 136);
    EXPECT_TRUE(std::filesystem::exists(SUITE_DIR "/ridotti/garanzie.csv"));
}

TEST_F(Ridotti, VerificaProvaQuelloCheIlNomeDichiara) {
    const Risposta risposta = esegui({"verifica", spedita("cr0904"), spedita("cr1104")});
    EXPECT_EQ(risposta.codice, 0);
    EXPECT_EQ(risposta.uscita,
              platform::da_mostrare(spedita("cr0904")) +
                  ": 12 righe di 6 su 9 numeri; con 4 estratti almeno una riga con 4 numeri "
                  "indovinati (quaterna): VALE\n" +
                  platform::da_mostrare(spedita("cr1104")) +
                  ": 66 righe di 6 su 11 numeri; con 4 estratti almeno 3 righe con 4 numeri "
                  "indovinati (quaterna): VALE\n");
    EXPECT_EQ(risposta.errori, "");
}

TEST_F(Ridotti, VerificaLeggeDalNomeLaGaranziaDiUnaEconomica) {
    const Risposta della_suite = esegui({"verifica", spedita("cr0956")});
    EXPECT_EQ(della_suite.codice, 0) << della_suite.errori;
    EXPECT_EQ(della_suite.uscita,
              platform::da_mostrare(spedita("cr0956")) +
                  ": 7 righe di 6 su 9 numeri; con 6 estratti almeno una riga con 5 numeri "
                  "indovinati (cinquina): VALE\n");
    // Under a suite's number the name holds, whatever else the rows are sure of.
    const std::string monca = tabella("tr0522.rid", "1,2,3\n1,2,4\n1,2,5\n1,4,5\n2,3,4\n");
    const Risposta non_vale = esegui({"verifica", monca});
    EXPECT_EQ(non_vale.codice, 1);
    EXPECT_EQ(non_vale.uscita,
              platform::da_mostrare(monca) +
                  ": 5 righe di 3 su 5 numeri; con 2 estratti almeno una riga con "
                  "2 numeri indovinati (ambo): NON VALE, 1 caso scoperto\n  3,5\n");
    // Under one of the player's own it is what the lists tell of it.
    const std::string propria = tabella("tr0571.rid", "1,2,3\n");
    const Risposta tre = esegui({"verifica", propria});
    EXPECT_EQ(tre.codice, 0) << tre.errori;
    EXPECT_EQ(tre.uscita, platform::da_mostrare(propria) +
                              ": 1 riga di 3 su 5 numeri; con 5 estratti almeno una riga con 3 "
                              "numeri indovinati (terno): VALE\n");
}

TEST_F(Ridotti, VerificaElencaIBuchi) {
    // The triples of seven numbers without the last: its three pairs are left out.
    std::string testo = contenuto(spedita("tr0701"));
    testo.resize(testo.rfind('\n', testo.size() - 2) + 1);
    const std::string file = tabella("tr0701.rid", testo);
    const Risposta risposta = esegui({"verifica", file});
    EXPECT_EQ(risposta.codice, 1);
    EXPECT_EQ(risposta.uscita,
              platform::da_mostrare(file) +
                  ": 6 righe di 3 su 7 numeri; con 2 estratti almeno una riga con 2 numeri "
                  "indovinati (ambo): NON VALE, 3 casi scoperti\n  4,6\n  4,7\n  6,7\n");
}

TEST_F(Ridotti, VerificaConUnaGaranziaData) {
    const std::string mia = tabella("mia.rid", "1,2\n3,4\n");
    EXPECT_EQ(esegui({"verifica", "--garanzia", "3:2", mia}).codice, 0);
    EXPECT_EQ(esegui({"verifica", "--garanzia", "2:2", mia}).codice, 1);
    EXPECT_EQ(esegui({"verifica", "--garanzia", "4:2:2", mia}).codice, 0);
    EXPECT_EQ(esegui({"verifica", "--garanzia", "4:2:3", mia}).codice, 1);
    EXPECT_EQ(esegui({"verifica", "--garanzia", "4:3", mia}).errori,
              platform::da_mostrare(mia) + ": nessuna riga di 2 numeri ne contiene 3\n");
    EXPECT_EQ(esegui({"verifica", "--garanzia", "5:2", mia}).errori,
              platform::da_mostrare(mia) + ": non si estraggono 5 numeri su 4\n");
    const Risposta senza = esegui({"verifica", mia});
    EXPECT_EQ(senza.codice, 2);
    EXPECT_EQ(senza.errori, platform::da_mostrare(mia) +
                                ": il nome non dice quale garanzia provare: serve --garanzia\n");
    const Risposta storta = esegui({"verifica", "--garanzia", "2:3", mia});
    EXPECT_EQ(storta.codice, 2);
    EXPECT_NE(storta.errori.find("\"2:3\""), std::string::npos);
}

TEST_F(Ridotti, TabelleGuasteConLaRiga) {
    const std::string buona = contenuto(spedita("tr0701"));
    const auto errore = [&](const std::string& testo) {
        const std::string file = tabella("tr0701.rid", testo);
        const Risposta risposta = esegui({"verifica", file});
        EXPECT_EQ(risposta.codice, 2);
        EXPECT_EQ(risposta.uscita, "");
        return risposta.errori.substr(std::min(file.size(), risposta.errori.size()));
    };
    EXPECT_EQ(errore(buona + buona.substr(0, buona.find('\n') + 1)), ":8: ripete la riga 1\n");
    EXPECT_EQ(errore(buona + "0,1,2\r\n"), ":8: la posizione 0 non sta fra 1 e 7\n");
    EXPECT_EQ(errore(buona + "1,2,8\r\n"), ":8: la posizione 8 non sta fra 1 e 7\n");
    EXPECT_EQ(errore(buona + "3,2,1\r\n"), ":8: posizioni non crescenti: dopo 3 viene 2\n");
    EXPECT_EQ(errore(""), ":1: il file è vuoto\n");
    EXPECT_EQ(esegui({"verifica", "/non/esiste.rid"}).errori,
              platform::da_mostrare("/non/esiste.rid") + ": il file non esiste\n");
    EXPECT_EQ(esegui({"verifica", cartella_.programma()}).codice, 2);
}

TEST_F(Ridotti, SenzaUltimaFineDiRigaAvvisaEProva) {
    std::string testo = contenuto(spedita("tr0701"));
    testo.resize(testo.size() - 2);
    const std::string file = tabella("tr0701.rid", testo);
    const Risposta risposta = esegui({"verifica", file});
    EXPECT_EQ(risposta.codice, 0);
    EXPECT_EQ(risposta.errori,
              platform::da_mostrare(file) +
                  ":7: avviso: manca la fine dell'ultima riga: il file può essere tronco\n");
}

TEST_F(Ridotti, IlCodiceDiUscitaEIlPeggiore) {
    const std::string mia = tabella("mia.rid", "1,2\n3,4\n");
    const std::string guasta = tabella("guasta.rid", "2,1\n");
    EXPECT_EQ(esegui({"verifica", "--garanzia", "2:2", guasta, mia}).codice, 2);
    EXPECT_EQ(esegui({"verifica", "--garanzia", "2:2", spedita("tr0701"), mia}).codice, 1);
}

TEST_F(Ridotti, VerificaInJson) {
    const std::string mia = tabella("mia.rid", "1,2\n3,4");
    EXPECT_EQ(esegui({"verifica", "--json", "--garanzia", "2:2", mia}).uscita,
              "[{\"file\":\"" + mia +
                  "\",\"righe\":2,\"k\":2,\"n\":4,\"garanzia\":{\"p\":2,\"t\":2,\"righe\":1,"
                  "\"oppure\":false},\"vale\":false,\"scoperti\":4,\"buchi\":[[1,3],[1,4],[2,3],"
                  "[2,4]],\"errori\":[],\"avvisi\":[{\"riga\":2,\"testo\":\"manca la fine "
                  "dell'ultima riga: il file può essere tronco\"}]}]\n");
    const std::string guasta = tabella("guasta \"x\".rid", "\\\n");
    EXPECT_EQ(esegui({"verifica", "--json", "--garanzia", "2:2", guasta}).uscita,
              "[{\"file\":\"" + cartella_.programma() +
                  "/guasta \\\"x\\\".rid\",\"errori\":[{\"riga\":1,\"testo\":\"carattere non "
                  "ammesso: \\\\\"}],\"avvisi\":[]}]\n");
}

TEST_F(Ridotti, VinciteDiUnaTabellaPropria) {
    const std::string mia = tabella("mia.rid", "1,2\n3,4\n");
    EXPECT_EQ(esegui({"vincite", mia}).uscita,
              platform::da_mostrare(mia) +
                  ": 2 righe di 2 su 4 numeri\n\n"
                  "Con 1 estratto (4 casi): sempre almeno una riga con 1 numero indovinato\n"
                  "  indovinati  casi in cui è il massimo   su cento   righe in media\n"
                  "           1                         4     100,00           1,0000\n"
                  "           0                         0       0,00           1,0000\n\n"
                  "Con 2 estratti (6 casi): sempre almeno una riga con 1 numero indovinato\n"
                  "  indovinati  casi in cui è il massimo   su cento   righe in media\n"
                  "           2                         2      33,33           0,3333\n"
                  "           1                         4      66,67           1,3333\n"
                  "           0                         0       0,00           0,3333\n\n"
                  "Con 3 estratti (4 casi): sempre almeno una riga con 2 numeri indovinati (ambo)\n"
                  "  indovinati  casi in cui è il massimo   su cento   righe in media\n"
                  "           2                         4     100,00           1,0000\n"
                  "           1                         0       0,00           1,0000\n"
                  "           0                         0       0,00           0,0000\n\n");
    EXPECT_EQ(esegui({"vincite", tabella("guasta.rid", "x\n")}).codice, 2);
    EXPECT_EQ(esegui({"vincite", mia, mia}).codice, 2);
}

TEST_F(Ridotti, VinciteDiceLeGaranzieDellElenco) {
    const Risposta risposta = esegui({"vincite", spedita("cr1501")});
    EXPECT_EQ(risposta.codice, 0);
    EXPECT_NE(risposta.uscita.find(
                  "Garanzie senza eccezioni:\n"
                  "  con 4 estratti almeno 2 righe con 4 numeri indovinati (quaterna)\n"
                  "  con 6 estratti almeno 2 righe con 5 numeri indovinati (cinquina), oppure una "
                  "riga con 6 numeri indovinati (sestina)\n\n"),
              std::string::npos);
}

TEST_F(Ridotti, VinciteSmentisceUnElencoFalso) {
    cartella_.scrivi("garanzie.csv", "table,p,t,rows,or_one_row_higher\ntr0701,2,2,2,0\nx\n");
    const std::string file = tabella("tr0701.rid", contenuto(spedita("tr0701")));
    const Risposta risposta = esegui({"vincite", file});
    EXPECT_EQ(risposta.codice, 1);
    EXPECT_NE(risposta.uscita.find("2 righe con 2 numeri indovinati (ambo): NON VALE\n"),
              std::string::npos);
    EXPECT_NE(risposta.errori.find("garanzie.csv:3: "), std::string::npos);
}

TEST_F(Ridotti, VinciteInJson) {
    const std::string mia = tabella("mia.rid", "1,2\n");
    EXPECT_EQ(
        esegui({"vincite", "--json", mia}).uscita,
        "{\"file\":\"" + mia +
            "\",\"righe\":1,\"k\":2,\"n\":2,\"estratti\":[\n"
            "{\"p\":1,\"casi\":2,\"garantita\":{\"p\":1,\"t\":1,\"righe\":1,\"oppure\":false},"
            "\"migliore\":[0,2,0],\"medie\":[0.0000,1.0000,0.0000]},\n"
            "{\"p\":2,\"casi\":1,\"garantita\":{\"p\":2,\"t\":2,\"righe\":1,\"oppure\":false},"
            "\"migliore\":[0,0,1],\"medie\":[0.0000,0.0000,1.0000]}],\n"
            "\"garanzie\":[],\n\"errori\":[],\"avvisi\":[]}\n");
}

TEST_F(Ridotti, ParoleSbagliate) {
    EXPECT_EQ(esegui({}).codice, 2);
    EXPECT_EQ(esegui({"altro"}).errori,
              "ridotti: comando sconosciuto: altro; ridotti --aiuto li elenca\n");
    EXPECT_EQ(esegui({"verifica"}).errori, "ridotti: manca il nome della tabella\n");
    EXPECT_EQ(esegui({"verifica", "--altro"}).errori, "ridotti: opzione sconosciuta: --altro\n");
    EXPECT_EQ(esegui({"vincite", "--garanzia", "2:2"}).codice, 2);
    const Risposta aiuto = esegui({"--aiuto"});
    EXPECT_EQ(aiuto.codice, 0);
    EXPECT_NE(aiuto.uscita.find("ridotti verifica [--json]"), std::string::npos);
    // A name that begins like an option stands after two dashes.
    EXPECT_EQ(esegui({"verifica", "--", "--json"}).errori, "--json: il file non esiste\n");
}

TEST_F(Ridotti, AvanzamentoSoloSulTerminale) {
    const std::string mia = tabella("mia.rid", "1,2,3,4,5,24\n6,7,8,9,10,11\n");
    const int padrone = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    ASSERT_GE(padrone, 0);
    ASSERT_EQ(::grantpt(padrone), 0);
    ASSERT_EQ(::unlockpt(padrone), 0);
    std::array<char, 128> nome{};
    ASSERT_EQ(::ptsname_r(padrone, nome.data(), nome.size()), 0);
    const int servo = ::open(nome.data(), O_RDWR | O_NOCTTY);
    ASSERT_GE(servo, 0);
    EXPECT_EQ(esegui({"verifica", "--garanzia", "6:1", mia}, nome.data()).codice, 1);
    // A terminal hands over what was written piece by piece.
    std::string mostrato;
    pollfd pronto{padrone, POLLIN, 0};
    while (!mostrato.ends_with("\r\033[K") && ::poll(&pronto, 1, 10000) == 1) {
        std::array<char, 4096> letto{};
        const ssize_t quanti = ::read(padrone, letto.data(), letto.size());
        if (quanti <= 0) break;
        mostrato.append(letto.data(), static_cast<std::size_t>(quanti));
    }
    ::close(servo);
    ::close(padrone);
    EXPECT_NE(mostrato.find("\r" + platform::da_mostrare(mia) + ": 12,1 %"), std::string::npos)
        << mostrato;
    EXPECT_TRUE(mostrato.ends_with("\r\033[K")) << mostrato;
    EXPECT_EQ(esegui({"verifica", "--garanzia", "6:1", mia}).errori, "");
}

TEST_F(Ridotti, DocumentoEQuelloConsegnato) {
    const Risposta risposta =
        esegui({"documento", SUITE_DIR "/ridotti", SOURCE_DIR "/suite/ridotti/minimi"});
    EXPECT_EQ(risposta.codice, 0);
    EXPECT_EQ(risposta.errori, "");
    // Compared as a truth value: the two texts are too long to be shown.
    EXPECT_TRUE(risposta.uscita == contenuto(SOURCE_DIR "/docs/garanzie.md"))
        << "ridotti documento build/suite/ridotti suite/ridotti/minimi > docs/garanzie.md";
    for (const char* riga :
         {"| 15 | `cr1505` | 180 | 4 → 4 | 5005 | 3,60 | 117 (`C15_6_4_117.txt`) | 93 (Schönheim) "
          "| 117 |\n",
          "| 15 | `cn1503` | 295 | 4 → 4 | 3003 | 9,82 | 291 (`basi_tabelle.txt`) | 273 "
          "(Schönheim) | 294 |\n",
          "| 11 | `cr1104` | 66 | 4 → 4, 3 righe | 462 | 14,29 | 66 | 66 (conteggio) | — |\n"}) {
        EXPECT_NE(risposta.uscita.find(riga), std::string::npos) << riga;
    }
}

TEST_F(Ridotti, DocumentoNonStampaGaranzieFalse) {
    cartella_.scrivi("tr0701.rid", "1,2,3\r\n");
    const Risposta risposta =
        esegui({"documento", cartella_.programma(), SOURCE_DIR "/suite/ridotti/minimi"});
    EXPECT_EQ(risposta.codice, 1);
    EXPECT_EQ(risposta.uscita, "");
    EXPECT_NE(risposta.errori.find("tr0701.rid: non vale con 2 estratti"), std::string::npos);
    EXPECT_EQ(esegui({"documento", "/non/esiste", "/non/esiste"}).codice, 2);
    EXPECT_EQ(esegui({"documento"}).codice, 2);
}

TEST_F(Ridotti, DocumentoPerLaGuida) {
    const Risposta risposta =
        esegui({"documento", "--guida", SUITE_DIR "/ridotti", SOURCE_DIR "/suite/ridotti/minimi"});
    EXPECT_EQ(risposta.codice, 0);
    for (const char* riga :
         {"<tr><td>9</td><td>12 sestine - Min.1(4) con 4 estratti</td><td>12</td><td>14,29</td><td>"
          "con 4 estratti almeno una riga con 4 numeri indovinati (quaterna)</td></tr>",
          "<tr><td>8</td><td>8 Numeri - 6 Quartine - Garanzia Ambo 1 con 2 Estratti</td><td>6</td>",
          "<tr><td>7</td><td>Autoridotto [N-1]</td>",
          "<tr><td>7</td><td>Autoridotto [N-2] di 8 numeri, nelle diagonali vicine</td>",
          "<tr><td>8</td><td>(in nessuna lista)</td>"}) {
        EXPECT_NE(risposta.uscita.find(riga), std::string::npos) << riga;
    }
}

TEST_F(Ridotti, DisegniMinimi) {
    // "C14_5_4_229": all 4-subsets of 14 by 229 rows of 5; "L15_6_5_4_40": 4 out of any 5.
    int quanti = 0;
    for (const auto& voce :
         std::filesystem::directory_iterator(SOURCE_DIR "/suite/ridotti/minimi")) {
        const std::string nome = voce.path().stem().string();
        if (nome[0] != 'C' && nome[0] != 'L') continue;
        std::vector<int> numeri;
        for (std::size_t i = 0; i != std::string::npos; i = nome.find('_', i + 1)) {
            numeri.push_back(std::stoi(nome.substr(i + 1)));
        }
        ASSERT_EQ(numeri.size(), nome[0] == 'C' ? 4U : 5U);
        const int t = numeri[numeri.size() - 2];
        const int p = nome[0] == 'C' ? t : numeri[2];
        const Risposta risposta =
            esegui({"verifica", "--garanzia", std::to_string(p) + ":" + std::to_string(t),
                    voce.path().generic_string()});
        EXPECT_EQ(risposta.codice, 0) << nome;
        const std::string inizio = platform::da_mostrare(voce.path().generic_string()) + ": " +
                                   std::to_string(numeri.back()) + " righe di " +
                                   std::to_string(numeri[1]) + " su " + std::to_string(numeri[0]) +
                                   " numeri;";
        EXPECT_EQ(risposta.uscita.substr(0, inizio.size()), inizio);
        ++quanti;
    }
    EXPECT_EQ(quanti, 15);
}

}  // namespace
