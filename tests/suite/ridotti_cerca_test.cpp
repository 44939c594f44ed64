// The search as a player runs it: refusals, stops, and what is on the disk whatever happens.
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "development/garanzie.h"
#include "platform/disk.h"
#include "support/cartella.h"

namespace {

/// A running command, whose standard output is read line by line.
class Corsa {
public:
    explicit Corsa(std::vector<std::string> parole, const std::string& errori) {
        parole.insert(parole.begin(), {RIDOTTI, "cerca"});
        std::array<int, 2> tubo{};
        if (::pipe2(tubo.data(), O_CLOEXEC) != 0) return;
        figlio_ = ::fork();
        if (figlio_ == 0) {
            ::dup2(tubo[1], STDOUT_FILENO);
            ::dup2(::open(errori.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
            std::vector<char*> argomenti;
            for (std::string& parola : parole) argomenti.push_back(parola.data());
            argomenti.push_back(nullptr);
            ::execv(RIDOTTI, argomenti.data());
            ::_exit(127);
        }
        ::close(tubo[1]);
        uscita_ = ::fdopen(tubo[0], "r");
    }
    Corsa(const Corsa&) = delete;
    Corsa& operator=(const Corsa&) = delete;
    ~Corsa() {
        if (uscita_ != nullptr) std::fclose(uscita_);
    }
    /// The next line, without its end; nothing at the end.
    std::optional<std::string> riga() {
        std::string testo;
        for (int c = std::fgetc(uscita_); c != EOF; c = std::fgetc(uscita_)) {
            if (c == '\n') return testo;
            testo += static_cast<char>(c);
        }
        return testo.empty() ? std::nullopt : std::optional(testo);
    }
    void segnala(int segnale) const { ::kill(figlio_, segnale); }
    /// Exit code, or minus the signal that ended it.
    [[nodiscard]] int fine() const {
        int stato = 0;
        ::waitpid(figlio_, &stato, 0);
        return WIFEXITED(stato) ? WEXITSTATUS(stato) : -WTERMSIG(stato);
    }

private:
    pid_t figlio_ = -1;
    std::FILE* uscita_ = nullptr;
};

class RidottiCerca : public testing::Test {
protected:
    struct Risposta {
        int codice = -1;
        std::vector<std::string> righe;
        std::string errori;
    };
    Risposta esegui(const std::vector<std::string>& parole) {
        Corsa corsa(parole, cartella_.file("errori"));
        Risposta risposta;
        while (auto riga = corsa.riga()) risposta.righe.push_back(*riga);
        risposta.codice = corsa.fine();
        risposta.errori = cartella_.leggi("errori");
        return risposta;
    }
    /// Words of a wish that ends by reaching its bound.
    [[nodiscard]] std::vector<std::string> facile(const std::string& file) const {
        return {"--numeri", "7",  "--combinazione",    "3", "--garanzia",
                "2:2",      "-o", cartella_.file(file)};
    }
    /// Words of one that goes on until it is stopped.
    [[nodiscard]] std::vector<std::string> lunga(const std::string& file) const {
        return {"--numeri", "13",      "--combinazione", "6",  "--garanzia",
                "6:5",      "--tempo", "1000000",        "-o", cartella_.file(file)};
    }
    [[nodiscard]] development::Lettura letta(const std::string& file, int n, int k) const {
        return development::leggi_rigorosa(cartella_.leggi(file), n, k);
    }
    support::Cartella cartella_;
};

TEST_F(RidottiCerca, TrovaLaPiuPiccolaELaProva) {
    const Risposta r = esegui(facile("mia.rid"));
    EXPECT_EQ(r.codice, 0);
    EXPECT_EQ(r.errori, "");
    ASSERT_GE(r.righe.size(), 2U);
    EXPECT_EQ(r.righe[r.righe.size() - 2].substr(0, 23), "7 colonne, 0 scoperti, ");
    EXPECT_EQ(r.righe.back(), cartella_.file("mia.rid") +
                                  ": 7 righe di 3 su 7 numeri; con 2 estratti almeno una riga con "
                                  "2 numeri indovinati (ambo): VALE, e con meno righe non è "
                                  "possibile");
    const auto lettura = letta("mia.rid", 7, 3);
    EXPECT_TRUE(lettura.errori.empty());
    EXPECT_EQ(development::buchi(lettura.tabella, {2, 2}, 0).quanti, 0U);
}

TEST_F(RidottiCerca, ConLeRigheContateDiceQuantiSorteggiManca) {
    const Risposta r = esegui({"--numeri", "8", "--combinazione", "3", "--garanzia", "2:2",
                               "--righe", "11", "--tempo", "0,2", "-o", cartella_.file("a.rid")});
    const auto lettura = letta("a.rid", 8, 3);
    EXPECT_EQ(lettura.tabella.righe.size(), 11U);
    const auto buchi = development::buchi(lettura.tabella, {2, 2}, 0).quanti;
    EXPECT_EQ(r.codice, buchi == 0 ? 0 : 1);
    const Risposta poche = esegui({"--numeri", "8", "--combinazione", "3", "--garanzia", "2:2",
                                   "--righe", "10", "-o", cartella_.file("b.rid")});
    EXPECT_EQ(poche.codice, 2);
    EXPECT_EQ(poche.errori,
              "ridotti: 10 righe sono poche: per questa garanzia ne servono almeno 11\n");
    EXPECT_FALSE(cartella_.esiste("b.rid"));
}

TEST_F(RidottiCerca, LeRigheCheAvanzanoDiconoCheCosaComprano) {
    const Risposta r = esegui({"--numeri", "7", "--combinazione", "3", "--garanzia", "3:2",
                               "--righe", "10", "-o", cartella_.file("a.rid")});
    EXPECT_EQ(r.codice, 0) << r.errori;
    EXPECT_EQ(letta("a.rid", 7, 3).tabella.righe.size(), 10U);
    ASSERT_FALSE(r.righe.empty());
    EXPECT_EQ(r.righe.back(), cartella_.file("a.rid") +
                                  ": 10 righe di 3 su 7 numeri; con 3 estratti almeno una riga con "
                                  "2 numeri indovinati (ambo): 3 o più nel 28,6 % dei casi; VALE; "
                                  "meno di 3 righe non è possibile");
}

TEST_F(RidottiCerca, RifiutaCioCheNonHaSenso) {
    const auto con = [&](const std::string& nome, const std::string& valore) {
        std::vector<std::string> parole = facile("no.rid");
        const auto dove = std::find(parole.begin(), parole.end(), nome);
        if (dove == parole.end()) {
            parole.insert(parole.end(), {nome, valore});
        } else {
            *(dove + 1) = valore;
        }
        const Risposta r = esegui(parole);
        EXPECT_EQ(r.codice, 2) << nome << valore;
        EXPECT_TRUE(r.righe.empty());
        EXPECT_FALSE(cartella_.esiste("no.rid"));
        return r.errori;
    };
    EXPECT_EQ(con("--combinazione", "21"), "ridotti: una combinazione ha da 1 a 20 numeri\n");
    EXPECT_EQ(con("--combinazione", "1"),
              "ridotti: nessuna combinazione di 1 numeri ne contiene 2\n");
    EXPECT_NE(con("--garanzia", "1001:2").find("--garanzia vuole p:t"), std::string::npos);
    EXPECT_EQ(con("mia.rid", "tua.rid"),
              "ridotti: cerca scrive dove dice -o: \"mia.rid\" avanza\n");
    EXPECT_EQ(con("--garanzia", "2:3"), "ridotti: con 2 estratti non se ne indovinano 3\n");
    EXPECT_EQ(con("--garanzia", "8:2"), "ridotti: non si estraggono 8 numeri su 7\n");
    EXPECT_NE(con("--garanzia", "due").find("--garanzia vuole p:t"), std::string::npos);
    EXPECT_NE(con("--garanzia", "2:2:2").find("--garanzia vuole p:t"), std::string::npos);
    EXPECT_EQ(con("--numeri", "31"), "ridotti: i numeri vanno da 1 a 30\n");
    EXPECT_EQ(con("--numeri", "2"), "ridotti: una combinazione di 3 non sta in 2 numeri\n");
    EXPECT_EQ(con("--numeri", "-7"), "ridotti: --numeri vuole un numero: \"-7\" non lo è\n");
    EXPECT_NE(con("--righe", "0").find("--righe vuole un numero"), std::string::npos);
    EXPECT_NE(con("--righe", "36").find("le combinazioni possibili sono 35"), std::string::npos);
    for (const char* tempo : {"0", "-1", "x", "nan", "inf", "9999999999"}) {
        EXPECT_NE(con("--tempo", tempo).find("--tempo vuole un numero di secondi"),
                  std::string::npos);
    }
    EXPECT_NE(con("--seme", "-1").find("--seme vuole un numero"), std::string::npos);
    EXPECT_NE(con("--da", cartella_.file("assente.rid")).find("il file non esiste"),
              std::string::npos);
    EXPECT_EQ(con("--json", ""), "ridotti: opzione sconosciuta: --json\n");
    EXPECT_EQ(esegui({"--numeri", "7"}).errori, "ridotti: cerca vuole anche --combinazione\n");
    const Risposta altrove = esegui(
        {"--numeri", "7", "--combinazione", "3", "--garanzia", "2:2", "-o", "/non/esiste/mia.rid"});
    EXPECT_EQ(altrove.codice, 2);
    EXPECT_EQ(altrove.errori, "ridotti: non posso scrivere /non/esiste/mia.rid\n");
}

TEST_F(RidottiCerca, RiparteDaUnFileENeDiceLaRigaSbagliata) {
    ASSERT_EQ(esegui(facile("prima.rid")).codice, 0);
    std::vector<std::string> parole = facile("dopo.rid");
    parole.insert(parole.end(), {"--da", cartella_.file("prima.rid")});
    const Risposta r = esegui(parole);
    EXPECT_EQ(r.codice, 0);
    EXPECT_EQ(cartella_.leggi("dopo.rid"), cartella_.leggi("prima.rid"));
    cartella_.scrivi("prima.rid", "1,2,3\r\n1,4\r\n");
    const Risposta guasta = esegui(parole);
    EXPECT_EQ(guasta.codice, 2);
    EXPECT_EQ(guasta.errori, cartella_.file("prima.rid") + ":2: 2 posizioni invece di 3\n");
    cartella_.scrivi("prima.rid", "1,2,8\r\n");
    EXPECT_EQ(esegui(parole).errori,
              cartella_.file("prima.rid") + ":1: la posizione 8 non sta fra 1 e 7\n");
}

TEST_F(RidottiCerca, FermataLasciaLaMiglioreIntera) {
    Corsa corsa(lunga("mia.rid"), cartella_.file("errori"));
    ASSERT_TRUE(corsa.riga());
    corsa.segnala(SIGINT);
    while (corsa.riga()) {
    }
    EXPECT_EQ(corsa.fine(), 0);
    const auto lettura = letta("mia.rid", 13, 6);
    EXPECT_TRUE(lettura.errori.empty());
    EXPECT_EQ(development::buchi(lettura.tabella, {6, 5}, 0).quanti, 0U);
}

TEST_F(RidottiCerca, UccisaLasciaUnaTabellaInteraEDaLiSiRiparte) {
    {
        Corsa corsa(lunga("mia.rid"), cartella_.file("errori"));
        // The first one is on the disk when the second is told.
        ASSERT_TRUE(corsa.riga());
        ASSERT_TRUE(corsa.riga());
        corsa.segnala(SIGKILL);
        EXPECT_EQ(corsa.fine(), -SIGKILL);
    }
    const auto lettura = letta("mia.rid", 13, 6);
    EXPECT_TRUE(lettura.errori.empty());
    EXPECT_TRUE(lettura.avvisi.empty());
    EXPECT_EQ(development::buchi(lettura.tabella, {6, 5}, 0).quanti, 0U);
    std::vector<std::string> parole = lunga("mia.rid");
    parole[7] = "0.01";
    parole.insert(parole.end(), {"--da", cartella_.file("mia.rid")});
    EXPECT_EQ(esegui(parole).codice, 0);
    EXPECT_LE(letta("mia.rid", 13, 6).tabella.righe.size(), lettura.tabella.righe.size());
}

}  // namespace
