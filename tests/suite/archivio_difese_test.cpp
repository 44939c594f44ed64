// What the importer does when files, disks and other programs are against it.
#include <cerrno>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>
#include <zlib.h>

#include "archivio/lettura.h"
#include "platform/ambiente.h"
#include "platform/disk.h"
#include "platform/sqlite.h"
#include "suite/archivio_prova.h"

using namespace prova;

namespace {

const std::string altra_sestina = "1997-12-06,32,4,25,29,30,52,24,\n";

class DifeseArchivio : public prova::ArchivioSuite {
protected:
    [[nodiscard]] Contenuto contenuto() const {
        Contenuto c;
        EXPECT_EQ(carica(archivio_, c), 0);
        return c;
    }
};

/// Files put in a ZIP archive as they are.
std::string riposti(const std::vector<std::pair<std::string, std::string>>& file) {
    std::string dati;
    std::string indice;
    const auto numero = [](std::size_t n, int byte) {
        std::string testo;
        for (int i = 0; i < byte; ++i) testo += i < 8 ? static_cast<char>(n >> (8 * i)) : '\0';
        return testo;
    };
    for (const auto& [nome, corpo] : file) {
        const auto crc = ::crc32(0, reinterpret_cast<const Bytef*>(corpo.data()),
                                 static_cast<uInt>(corpo.size()));
        const std::string comune = numero(20, 2) + numero(0, 8) + numero(crc, 4) +
                                   numero(corpo.size(), 4) + numero(corpo.size(), 4) +
                                   numero(nome.size(), 2) + numero(0, 2);
        indice += "PK\1\2" + numero(20, 2) + comune + numero(0, 10) + numero(dati.size(), 4) + nome;
        dati += "PK\3\4" + comune + nome + corpo;
    }
    return dati + indice + "PK\5\6" + numero(0, 4) + numero(file.size(), 2) +
           numero(file.size(), 2) + numero(indice.size(), 4) + numero(dati.size(), 4) +
           numero(0, 2);
}

/// Refuses locks as a disk that knows none.
class SenzaBlocchi : public platform::Syscalls {
public:
    explicit SenzaBlocchi(int errore) : errore_(errore) {}
    SenzaBlocchi(const SenzaBlocchi&) = delete;
    SenzaBlocchi& operator=(const SenzaBlocchi&) = delete;
    int flock(int /*fd*/, int /*operazione*/) override {
        errno = errore_;
        return -1;
    }

private:
    int errore_;
    platform::Ripristina<platform::Syscalls*> posto_{platform::ambiente().chiamate, this};
};

}  // namespace

TEST_F(DifeseArchivio, ConLArchivioApertoDaUnAltroProgrammaInWalNonLoSostituisce) {
    porta(una_sestina);
    sqlite3* altro = nullptr;
    ASSERT_EQ(sqlite3_open(archivio_.c_str(), &altro), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(altro,
                           "PRAGMA journal_mode=WAL; UPDATE archivios SET \"Jolly\"=89;"
                           "CREATE TABLE loro(x)",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    ASSERT_TRUE(fs::exists(archivio_ + "-wal"));
    const Rapporto r = porta(altra_sestina);
    EXPECT_FALSE(r.riuscito);
    ASSERT_EQ(r.errori.size(), 1U);
    EXPECT_EQ(r.errori[0].testo, "un altro programma tiene aperto l'archivio: chiudilo e riprova");
    // Nor does one that began before the other program came.
    EXPECT_FALSE(salva(archivio_, dimostrativo()));
    sqlite3_close(altro);
    EXPECT_TRUE(porta(altra_sestina).riuscito);
    EXPECT_EQ(contenuto().superenalotto.size(), 2U);
    EXPECT_EQ(contenuto().superenalotto.begin()->second.jolly, 89);
}

TEST_F(DifeseArchivio, UnProgrammaMortoInWalNonDanneggiaQuelloCheSiImporta) {
    porta(una_sestina);
    const pid_t figlio = ::fork();
    if (figlio == 0) {
        sqlite3* db = nullptr;
        sqlite3_open(archivio_.c_str(), &db);
        sqlite3_exec(db, "PRAGMA journal_mode=WAL; UPDATE archivios SET \"Jolly\"=89;", nullptr,
                     nullptr, nullptr);
        ::_exit(0);
    }
    ASSERT_EQ(::waitpid(figlio, nullptr, 0), figlio);
    ASSERT_TRUE(fs::exists(archivio_ + "-wal"));
    EXPECT_TRUE(porta(altra_sestina).riuscito);
    EXPECT_FALSE(platform::in_uso_altrui(archivio_));
    EXPECT_EQ(contenuto().superenalotto.size(), 2U);
    EXPECT_EQ(contenuto().superenalotto.begin()->second.jolly, 89);
    EXPECT_TRUE(difetti(archivio_).empty());
}

TEST_F(DifeseArchivio, UnDiscoSenzaBlocchiImportaLoStesso) {
    for (const int errore : {ENOLCK, EOPNOTSUPP, EINVAL}) {
        const SenzaBlocchi disco(errore);
        EXPECT_TRUE(porta(una_sestina).riuscito) << errore;
    }
    const SenzaBlocchi occupato(EWOULDBLOCK);
    EXPECT_EQ(porta(una_sestina).errori.at(0).testo, "un'altra importazione è in corso");
}

TEST_F(DifeseArchivio, UnEstrazioneCheRestaComEraTieneAncheIlSuoNumero) {
    const auto numero = [&] { return contenuto().superenalotto.begin()->second.numero; };
    porta("100,1997-12-03,20,36,39,41,72,76,88,5\n");
    porta("200,1997-12-03,20,36,39,41,72,77,88,5\n");
    EXPECT_EQ(numero(), 100);
    porta("300,1997-12-03,20,36,39,41,72,76,88,5\n");
    EXPECT_EQ(numero(), 300);
    porta("400,1997-12-03,20,36,39,41,72,77,88,5\n", true);
    EXPECT_EQ(numero(), 400);
}

TEST_F(DifeseArchivio, AncheIlNumeroDelLotto) {
    const auto giorno = [](int numero, int primo) {
        std::string testo;
        for (std::size_t r = 0; r < ruote_regionali; ++r) {
            testo += std::to_string(numero) + ",2024-01-02," + std::string(sigle[r]);
            for (int i = 0; i < 5; ++i) testo += "," + std::to_string(primo + i);
            testo += "\n";
        }
        return testo;
    };
    const auto numero = [&] { return contenuto().lotto.begin()->second.numero; };
    porta(giorno(100, 1));
    porta(giorno(200, 11));
    EXPECT_EQ(numero(), 100);
    porta(giorno(300, 1));
    EXPECT_EQ(numero(), 300);
    porta(giorno(400, 11), true);
    EXPECT_EQ(numero(), 400);
}

TEST_F(DifeseArchivio, MilioniDiRigheSbagliateSiContanoENonSiTengono) {
    std::string registro;
    while (registro.size() < (std::size_t{8} << 20)) registro += "una riga qualunque\n";
    int respiri = 0;
    const Lettura l = leggi(registro, [&respiri] { ++respiri; });
    EXPECT_FALSE(l.riconosciuta());
    EXPECT_EQ(l.rifiuti.size(), rifiuti_tenuti);
    EXPECT_LE(l.rifiutate, rifiuti_massimi + 1);
    EXPECT_GT(respiri, 2);
    // Draws among so many others are not trusted either.
    EXPECT_EQ(leggi(una_sestina + registro).errore,
              "il file ha troppe righe che non sono estrazioni");
    // The notes of many such files are bounded together, and none is lost from the count.
    std::string poche = una_sestina;
    for (int i = 0; i < 150; ++i) poche += "riga\n";
    const Rapporto r =
        importa(archivio_, {scrivi("a.txt", poche), scrivi("b.txt", poche)}, false, {});
    EXPECT_EQ(r.rifiuti.size(), note_massime);
    EXPECT_EQ(r.rifiutate(), 300);
}

TEST_F(DifeseArchivio, UnFileLungoLasciaRespirareLaFinestra) {
    std::string lungo;
    for (int i = 0; i < 10000; ++i) lungo += "1997-12-03,20,36,39,41,72,76,88,5\n";
    int passi = 0;
    const Rapporto r = importa(archivio_, {scrivi("a.txt", lungo)}, false,
                               [&](std::size_t, std::size_t) { ++passi; });
    EXPECT_TRUE(r.riuscito);
    EXPECT_GT(passi, 6);
}

TEST_F(DifeseArchivio, NelloZipICompagniSenzaEstrazioniSiLascianoDaParte) {
    const std::string zip =
        scrivi("tutto.zip", riposti({{"leggimi.txt", "buona fortuna\n"}, {"s.csv", una_sestina}}));
    const Rapporto r = importa(archivio_, {zip}, false, {});
    ASSERT_TRUE(r.riuscito) << r.errori.at(0).in_riga();
    EXPECT_EQ(r.rifiutate(), 0);
    ASSERT_EQ(r.lasciati.size(), 1U);
    EXPECT_EQ(r.lasciati[0].file, zip + ":leggimi.txt");
    const auto righe = in_righe(r);
    EXPECT_TRUE(std::any_of(righe.begin(), righe.end(), [&](const std::string& riga) {
        return riga.starts_with("Lasciato da parte: " + platform::da_mostrare(zip) +
                                ":leggimi.txt: ");
    }));
    // Alone they are no archive of draws.
    const Rapporto solo =
        importa(archivio_, {scrivi("x.zip", riposti({{"leggimi.txt", "ciao\n"}}))}, false, {});
    EXPECT_FALSE(solo.riuscito);
}

TEST_F(DifeseArchivio, UnFileSbagliatoFermaTuttiEIlRapportoDiceQuale) {
    const std::string buono = scrivi("buono.csv", una_sestina);
    const std::string dubbio = scrivi("dubbio.csv", "07/01/2021;3;20;36;39;41;72;88;50\n");
    const Rapporto r = importa(archivio_, {buono, dubbio}, false, {});
    EXPECT_FALSE(r.riuscito);
    EXPECT_FALSE(fs::exists(archivio_));
    EXPECT_EQ(r.errori.at(0).file, dubbio);
    EXPECT_EQ(in_righe(r),
              (std::vector<std::string>{platform::da_mostrare(buono) + ": letto, ma non importato",
                                        "Niente è stato scritto."}));
}

TEST_F(DifeseArchivio, LaVerificaDiceQuantiDifettiTace) {
    ASSERT_TRUE(salva(archivio_, dimostrativo()));
    support::esegui_sql(archivio_, "UPDATE archivios SET \"1°estratto\"=91");
    const auto trovati = difetti(archivio_);
    ASSERT_EQ(trovati.size(), 21U);
    EXPECT_EQ(trovati.back(), "e altri 300 difetti");
}

TEST_F(DifeseArchivio, IByteDiControlloDeiFileNonSiMostrano) {
    const Rapporto r = porta(una_sestina + "1939/01/07\t\x1b[2J\x9b" + "x\t58\t22\t47\t49\t69\n");
    ASSERT_EQ(r.rifiuti.size(), 1U);
    EXPECT_TRUE(r.rifiuti[0].in_riga().ends_with(":2: ruota sconosciuta: \\x1B[2J\\x9Bx"))
        << r.rifiuti[0].in_riga();
    const Rapporto nome = importa(archivio_, {cartella_.file("a\n\x1b]0;b\a")}, false, {});
    const std::string detto = nome.errori.at(0).in_riga();
    EXPECT_TRUE(std::none_of(detto.begin(), detto.end(), [](char c) { return c > 0 && c < ' '; }));
}
