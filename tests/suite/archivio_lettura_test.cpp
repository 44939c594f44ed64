// What the importer makes of lines and packed files.
#include <gtest/gtest.h>
#include <zlib.h>

#include "archivio/lettura.h"
#include "archivio/zip.h"

using namespace importazione;

namespace {

/// The one SuperEnalotto draw of a text.
Sestina una(const std::string& testo) {
    const Lettura l = leggi(testo);
    EXPECT_EQ(l.superenalotto.size(), 1U) << testo;
    EXPECT_TRUE(l.rifiuti.empty())
        << testo << ": " << (l.rifiuti.empty() ? "" : l.rifiuti[0].motivo);
    return l.superenalotto.empty() ? Sestina() : l.superenalotto[0].sestina;
}

Sestina sestina(std::optional<std::int16_t> jolly, std::optional<std::int16_t> superstar,
                std::optional<std::int32_t> numero = {}) {
    return {{20, 36, 39, 41, 72, 76}, jolly, superstar, numero};
}

std::string motivo(const std::string& testo) {
    const Lettura l = leggi(testo);
    EXPECT_EQ(l.rifiuti.size(), 1U) << testo;
    return l.rifiuti.empty() ? "" : l.rifiuti[0].motivo;
}

}  // namespace

TEST(LeggiData, QuattroFormeENessunaAltra) {
    const Data d{1997, 12, 3};
    for (const char* testo : {"1997-12-03", "1997/12/03", "19971203", "03/12/1997", "3/12/1997",
                              "1997-12-03 20:00:00", "1997-12-03T20:00"}) {
        EXPECT_EQ(leggi_data(testo), d) << testo;
    }
    for (const char* testo : {"", "1997", "1997-13-03", "1997-02-29", "31/04/2000", "97-12-03",
                              "1997-12", "1997-12-03-01", "abcd-12-03", "00000000", "1799-01-01",
                              "9999-01-01", "1997-12-3x", "-1-12-1997", "/ /"}) {
        EXPECT_EQ(leggi_data(testo), std::nullopt) << testo;
    }
    EXPECT_EQ(leggi_data("2000-02-29"), (Data{2000, 2, 29}));
}

TEST(Lotto, LoStoricoUfficialeConLeSigleDiOgniRuota) {
    std::string testo;
    const std::vector<std::string> nomi{"BA", "CA", "FI", "GE", "MI", "NA", "PA",
                                        "RM", "RO", "TO", "VE", "RN", "NZ", "NAZ"};
    for (const std::string& r : nomi) testo += "1939/01/07\t" + r + "\t58\t22\t47\t49\t69\r\n";
    const Lettura l = leggi(testo);
    ASSERT_EQ(l.lotto.size(), nomi.size());
    const std::vector<std::size_t> attese{0, 1, 2, 3, 4, 5, 6, 7, 7, 8, 9, 10, 10, 10};
    for (std::size_t i = 0; i < nomi.size(); ++i) {
        EXPECT_EQ(l.lotto[i].ruota, attese[i]) << nomi[i];
        EXPECT_EQ(l.lotto[i].data, (Data{1939, 1, 7}));
        EXPECT_EQ(l.lotto[i].numeri, (Cinquina{58, 22, 47, 49, 69}));
        EXPECT_EQ(l.lotto[i].numero, std::nullopt);
        EXPECT_EQ(l.lotto[i].riga, static_cast<int>(i) + 1);
    }
    EXPECT_TRUE(l.rifiuti.empty());
}

TEST(Lotto, ColNumeroPrimaODopoLaDataEConLIntestazione) {
    const Lettura l = leggi(
        "concorso,date,wheel,n1,n2,n3,n4,n5\n7,1939-07-08,ba,01,02,03,04,05\n"
        "1939-07-15;8;\"CA\";1;2;3;4;90\n");
    ASSERT_EQ(l.lotto.size(), 2U);
    EXPECT_EQ(l.lotto[0].numero, 7);
    EXPECT_EQ(l.lotto[0].numeri, (Cinquina{1, 2, 3, 4, 5}));
    EXPECT_EQ(l.lotto[1].numero, 8);
    EXPECT_EQ(l.lotto[1].ruota, 1U);
    EXPECT_TRUE(l.rifiuti.empty());
}

TEST(Lotto, OgniRigaRifiutataHaIlSuoMotivo) {
    const std::string buona = "1939/01/07\tBA\t58\t22\t47\t49\t69\n";
    const std::vector<std::pair<std::string, std::string>> casi{
        {"1939/01/07\tXX\t58\t22\t47\t49\t69", "ruota sconosciuta: XX"},
        {"1939/01/07\tBA\t58\t22\t47\t49", "servono cinque numeri dopo la ruota"},
        {"1939/01/07\tBA\t58\t22\t47\t49\t69\t1", "servono cinque numeri dopo la ruota"},
        {"1939/01/07\tBA\t58\t22\t47\t49\t91", "numero fuori da 1-90: 91"},
        {"1939/01/07\tBA\t58\t22\t47\t49\t0", "numero fuori da 1-90: 0"},
        {"1939/01/07\tBA\t58\t22\t47\t49\t-3", "numero fuori da 1-90: -3"},
        {"1939/01/07\tBA\t58\t22\t47\t49\t", "numero fuori da 1-90: "},
        {"1939/01/07\tBA\t58\t22\t47\t49\t58", "numero ripetuto nell'estrazione"},
        {"1939/13/07\tBA\t58\t22\t47\t49\t69", "data mancante o non valida"},
        {"chiacchiere", "data mancante o non valida"},
        {"0,1939-07-08,BA,1,2,3,4,5", "numero di concorso non valido"},
        {"x,1939-07-08,BA,1,2,3,4,5", "numero di concorso non valido"},
        {"1,1939-07-08,1,BA,1,2,3,4,5", "numero di concorso non valido"},
        {std::string(2000, '1'), "riga troppo lunga"}};
    for (const auto& [riga, perche] : casi) {
        const Lettura l = leggi(buona + "\n" + riga + "\n" + buona);
        EXPECT_EQ(l.lotto.size(), 2U) << riga;
        ASSERT_EQ(l.rifiuti.size(), 1U) << riga;
        EXPECT_EQ(l.rifiuti[0].riga, 3);
        EXPECT_EQ(l.rifiuti[0].motivo, perche);
    }
}

TEST(SuperEnalotto, OgniFormaDelleColonne) {
    const std::string sei = "20,36,39,41,72,76";
    EXPECT_EQ(una("1997-12-03," + sei + ",88,5"), sestina(88, 5));
    EXPECT_EQ(una("1997-12-03," + sei + ",88,"), sestina(88, {}));
    EXPECT_EQ(una("1997-12-03," + sei + ",88,00"), sestina(88, {}));
    EXPECT_EQ(una("1997-12-03," + sei + ",88"), sestina(88, {}));
    EXPECT_EQ(una("1997-12-03," + sei), sestina({}, {}));
    EXPECT_EQ(una("1997-12-03," + sei + ",,"), sestina({}, {}));
    EXPECT_EQ(una("1997-12-03,1," + sei + ",88,5"), sestina(88, 5, 1));
    EXPECT_EQ(una("1,1997-12-03," + sei + ",88,"), sestina(88, {}, 1));
    EXPECT_EQ(una("19971203\t20\t36\t39\t41\t72\t76\t88\t05"), sestina(88, 5));
    EXPECT_EQ(una("\"1997/12/03\";\"20\";\"36\";\"39\";\"41\";\"72\";\"76\";\"88\";\"\""),
              sestina(88, {}));
    EXPECT_EQ(una("\xEF\xBB\xBF"
                  "Data;Concorso;N1;N2;N3;N4;N5;N6;Jolly\r\n"
                  "03/12/1997;1;20;36;39;41;72;76;88\r\n"),
              sestina(88, {}, 1));
    EXPECT_EQ(una("data,n1,n2,n3,n4,n5,n6,jolly\n1997-12-03,20,36,39,41,72,76,88\n"),
              sestina(88, {}));
    // The SuperStar comes from its own urn, the Jolly from that of the six.
    EXPECT_EQ(una("1997-12-03," + sei + ",88,20"), sestina(88, 20));
}

TEST(SuperEnalotto, SenzaIntestazioneIlNumeroSiRiconosceDalSuoCorso) {
    const auto primo = [](const std::string& testo) {
        const Lettura l = leggi(testo);
        EXPECT_TRUE(l.rifiuti.empty()) << testo;
        return l.superenalotto.empty() ? std::nullopt : l.superenalotto[0].sestina.numero;
    };
    // Beyond 90 it is no number drawn.
    EXPECT_EQ(primo("1997-12-03,100,20,36,39,41,72,76,88\n"), 100);
    // It goes up by one, and begins anew with the year, in whatever order the draws stand.
    EXPECT_EQ(primo("1997-12-30,7,20,36,39,41,72,76,88\n1998-01-03,1,2,3,4,5,6,7,9\n"
                    "1997-12-27,6,2,3,4,5,16,17,19\n"),
              7);
    EXPECT_EQ(primo("1997-12-03,20,36,39,41,72,76,88,1\n1997-12-06,2,4,25,29,30,52,24,3\n"),
              std::nullopt);
    EXPECT_EQ(primo("1997-12-03,5,1,2,3,4,6,7\n1997-12-06,6,1,2,3,4,7,8\n"), 5);
}

TEST(SuperEnalotto, IlNomeDellaColonnaDopoLaDataDiceSeContaLeEstrazioni) {
    // One draw alone has no course to be known by, so the name decides.
    for (const char* nome : {"concorso", "Conc.", "estrazione", "numero", "Num", "NR", "n."}) {
        EXPECT_EQ(una("data;" + std::string(nome) +
                      ";n1;n2;n3;n4;n5;n6;jolly\n03/12/1997;7;20;36;39;41;72;76;88\n"),
                  sestina(88, {}, 7))
            << nome;
    }
    // Numbers drawn that happen to go up by one.
    for (const char* nome : {"n1", "N1", "1", "primo"}) {
        const Lettura l = leggi("data;" + std::string(nome) +
                                ";b;c;d;e;f;jolly\n03/12/1997;5;10;20;30;40;50;60\n"
                                "06/12/1997;6;11;21;31;41;51;61\n");
        ASSERT_EQ(l.superenalotto.size(), 2U) << nome;
        EXPECT_EQ(l.superenalotto[0].sestina.numero, std::nullopt) << nome;
        EXPECT_EQ(l.superenalotto[0].sestina.jolly, 60) << nome;
    }
}

TEST(SuperEnalotto, ConUnNomeSconosciutoDecideIlContenuto) {
    const std::string nomi = "data;quale;n1;n2;n3;n4;n5;n6;jolly\n";
    const Lettura l = leggi(nomi +
                            "03/12/1997;5;20;36;39;41;72;76;88\n"
                            "06/12/1997;6;2;4;25;29;30;52;24\n");
    ASSERT_EQ(l.superenalotto.size(), 2U);
    EXPECT_EQ(l.superenalotto[0].sestina, sestina(88, {}, 5));
    EXPECT_EQ(l.superenalotto[1].sestina.numero, 6);
    // One line has no course, and the names tell where the numbers drawn are.
    EXPECT_EQ(una(nomi + "03/12/1997;5;20;36;39;41;72;76;88\n"), sestina(88, {}));
}

TEST(SuperEnalotto, OgniRigaRifiutataHaIlSuoMotivo) {
    EXPECT_EQ(motivo("1997-12-03,20,36,39,41,72"), "servono sei numeri, Jolly e SuperStar");
    EXPECT_EQ(motivo("1997-12-03,20,36,39,41,72,91"), "numero fuori da 1-90: 91");
    EXPECT_EQ(motivo("1997-12-03,20,36,39,41,72,"), "numero fuori da 1-90: ");
    EXPECT_EQ(motivo("1997-12-03,20,36,39,41,72,20"), "numero ripetuto nell'estrazione");
    EXPECT_EQ(motivo("1997-12-03,20,36,39,41,72,76,76"), "numero ripetuto nell'estrazione");
    EXPECT_EQ(motivo("1997-12-03,20,36,39,41,72,76,88,99"), "numero fuori da 1-90: 99");
    EXPECT_EQ(motivo("1997-12-03,0,20,36,39,41,72,76,88,9"), "numero di concorso non valido");
    EXPECT_EQ(motivo("1997-12-03,1,20,36,39,41,72,76,88,9,3"),
              "servono sei numeri, Jolly e SuperStar");
    EXPECT_EQ(motivo("1997-12-03"), "servono sei numeri, Jolly e SuperStar");
}

TEST(Leggi, QualunqueCosaSiaRispondeENonCadono) {
    EXPECT_FALSE(leggi("").riconosciuta());
    EXPECT_FALSE(leggi("\n\r\n\n").riconosciuta());
    EXPECT_FALSE(leggi("solo una intestazione, forse").riconosciuta());
    std::uint32_t stato = 7;
    for (int prova = 0; prova < 300; ++prova) {
        std::string dati = "1939/01/07\tBA\t58\t22\t47\t49\t69\n1997-12-03,20,36,39,41,72,76,88\n";
        for (int i = 0; i < 12; ++i) {
            stato = stato * 1664525U + 1013904223U;
            dati[(stato >> 8) % dati.size()] = static_cast<char>(stato >> 24);
        }
        const Lettura l = leggi(dati);
        EXPECT_LE(l.lotto.size() + l.superenalotto.size() + l.rifiuti.size(), 20U);
    }
    // A quote that is never closed takes the rest of its line only.
    EXPECT_EQ(leggi("\"1997-12-03,1\n1939/01/07\tBA\t58\t22\t47\t49\t69\n").lotto.size(), 1U);
}

namespace {

void metti(std::string& dati, std::uint32_t n, int byte) {
    for (int i = 0; i < byte; ++i) dati += static_cast<char>(n >> (8 * i));
}

std::string sgonfia(const std::string& dati) {
    std::string uscita(dati.size() + 100, '\0');
    z_stream z{};
    deflateInit2(&z, 9, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
    std::string copia = dati;
    z.next_in = reinterpret_cast<Bytef*>(copia.data());
    z.avail_in = static_cast<uInt>(copia.size());
    z.next_out = reinterpret_cast<Bytef*>(uscita.data());
    z.avail_out = static_cast<uInt>(uscita.size());
    deflate(&z, Z_FINISH);
    uscita.resize(z.total_out);
    deflateEnd(&z);
    return uscita;
}

/// A ZIP archive of these files, packed or only stored.
std::string zip(const std::vector<FileZip>& file, bool compresso, const std::string& coda = "") {
    std::string dati;
    std::string indice;
    for (const FileZip& f : file) {
        const std::string corpo = compresso ? sgonfia(f.dati) : f.dati;
        const auto crc = static_cast<std::uint32_t>(crc32(
            0, reinterpret_cast<const Bytef*>(f.dati.data()), static_cast<uInt>(f.dati.size())));
        const auto qui = static_cast<std::uint32_t>(dati.size());
        std::string comune;
        metti(comune, 20, 2);
        metti(comune, 0, 2);
        metti(comune, compresso ? 8 : 0, 2);
        metti(comune, 0, 4);
        metti(comune, crc, 4);
        metti(comune, static_cast<std::uint32_t>(corpo.size()), 4);
        metti(comune, static_cast<std::uint32_t>(f.dati.size()), 4);
        metti(comune, static_cast<std::uint32_t>(f.nome.size()), 2);
        metti(comune, 0, 2);
        dati += "PK\3\4" + comune + f.nome + corpo;
        indice += "PK\1\2";
        metti(indice, 20, 2);
        indice += comune;
        metti(indice, 0, 2);
        metti(indice, 0, 2);
        metti(indice, 0, 2);
        metti(indice, 0, 4);
        metti(indice, qui, 4);
        indice += f.nome;
    }
    const auto inizio = static_cast<std::uint32_t>(dati.size());
    dati += indice + "PK\5\6";
    metti(dati, 0, 4);
    metti(dati, static_cast<std::uint32_t>(file.size()), 2);
    metti(dati, static_cast<std::uint32_t>(file.size()), 2);
    metti(dati, static_cast<std::uint32_t>(indice.size()), 4);
    metti(dati, inizio, 4);
    metti(dati, static_cast<std::uint32_t>(coda.size()), 2);
    return dati + coda;
}

const std::vector<FileZip> due{{"storico.txt", "1939/01/07\tBA\t58\t22\t47\t49\t69\n"},
                               {"b/c.txt", std::string(5000, 'x')}};

}  // namespace

TEST(Zip, CompressoOSoloRiposto) {
    for (const bool compresso : {false, true}) {
        for (const char* coda : {"", "un commento PK in coda"}) {
            const std::string dati = zip(due, compresso, coda);
            EXPECT_TRUE(e_uno_zip(dati));
            const auto aperto = apri_zip(dati);
            ASSERT_TRUE(aperto);
            ASSERT_EQ(aperto->size(), 2U);
            for (std::size_t i = 0; i < 2; ++i) {
                EXPECT_EQ((*aperto)[i].nome, due[i].nome);
                EXPECT_EQ((*aperto)[i].dati, due[i].dati);
            }
        }
    }
    EXPECT_FALSE(e_uno_zip("1939/01/07"));
    EXPECT_FALSE(e_uno_zip(""));
}

TEST(Zip, LeCartelleSiSaltano) {
    const auto aperto = apri_zip(zip({{"cartella/", ""}, due[0]}, false));
    ASSERT_TRUE(aperto);
    ASSERT_EQ(aperto->size(), 1U);
    EXPECT_TRUE(apri_zip(zip({}, false))->empty());
}

TEST(Zip, DanneggiatoInQualunqueByteNonDaMaiAltriDati) {
    for (const bool compresso : {false, true}) {
        const std::string intero = zip({due[0]}, compresso);
        for (std::size_t i = 0; i < intero.size(); ++i) {
            for (const int maschera : {1, 0x80, 0xff}) {
                std::string dati = intero;
                dati[i] = static_cast<char>(dati[i] ^ maschera);
                const auto aperto = apri_zip(dati);
                // Names, times and versions are not checked; the content is, by its sum.
                if (aperto && !aperto->empty()) {
                    EXPECT_EQ(aperto->at(0).dati, due[0].dati) << i;
                }
            }
            EXPECT_FALSE(apri_zip(std::string_view(intero).substr(0, i)).has_value());
        }
    }
}

TEST(Zip, OltreIConfiniSiRifiuta) {
    // One file that claims more than the bound, then many that do so together.
    std::string dati = zip({due[0]}, true);
    const std::size_t indice = dati.find("PK\1\2");
    for (int i = 0; i < 4; ++i) dati[indice + 24 + static_cast<std::size_t>(i)] = '\x7f';
    EXPECT_FALSE(apri_zip(dati));
    const std::string grande(std::size_t{40} << 20, '0');
    EXPECT_TRUE(apri_zip(zip({{"a", grande}}, true)));
    EXPECT_FALSE(apri_zip(zip({{"a", grande}, {"b", grande}}, true)));
    EXPECT_FALSE(apri_zip(zip(std::vector<FileZip>(257, due[0]), false)));
    std::string cifrato = zip({due[0]}, true);
    cifrato[cifrato.find("PK\1\2") + 8] = 1;
    EXPECT_FALSE(apri_zip(cifrato));
}
