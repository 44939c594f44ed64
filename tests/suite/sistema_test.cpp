// What the command tells of systems, and where it writes.
#include "analysis/cruciverba_prova.h"
#include "analysis/relazione.h"
#include "check/dettaglio.h"
#include "platform/disk.h"
#include "suite/sistema_prova.h"
#include "systems/appartenenza.h"

using namespace prova;

namespace {

std::vector<std::int64_t> interi(const Valore& lista) {
    std::vector<std::int64_t> numeri;
    for (const Valore& v : lista.lista) numeri.push_back(v.intero());
    return numeri;
}

/// The combinations of a development, as numbers.
std::vector<std::vector<std::int64_t>> combinazioni(const std::string& file) {
    std::vector<std::vector<std::int64_t>> tutte;
    for (const std::string& riga : support::righe_di(support::contenuto(file))) {
        std::vector<std::int64_t>& numeri = tutte.emplace_back();
        std::istringstream campi(riga);
        for (std::string campo; std::getline(campi, campo, ',');)
            numeri.push_back(std::stoll(campo));
    }
    return tutte;
}

TEST_F(Sistema, ContaDiceCioCheDiceLaFinestra) {
    const std::string file = pronto("a");
    const Valore v = comando.json({"conta", "--quote", "4", file})[0];
    EXPECT_EQ(v["file"].testo, file);
    EXPECT_EQ(v["gioco"].testo, "SuperEnalotto");
    EXPECT_EQ(v["colonne"].intero(), 7);
    EXPECT_EQ(v["righe"].intero(), 7);
    EXPECT_EQ(v["numeri_in_gioco"].intero(), 49);
    EXPECT_EQ(v["totale"].intero(), 116);
    EXPECT_EQ(v["senza_ripetizioni"].intero(), 116);
    EXPECT_EQ(v["importo"].testo, "58.00");
    EXPECT_EQ(v["quota"].testo, "14.50");
    EXPECT_EQ(v["valuta"].testo, "Euro");
    EXPECT_EQ(v["linee"]["diagonali"]["combinazioni"].testo, "2 Sist. da 7  -  4 Sist. da 1");
    EXPECT_EQ(v["linee"]["orizzontali"]["tipo"].testo, "Integrale");
    EXPECT_EQ(v["sviluppo"].testo, "presente");
    const Detto detto = comando({"conta", "--quote", "4", file});
    EXPECT_EQ(detto.codice, 0);
    for (const char* parte :
         {"Orizzontali", "7 colonne x 7 righe, 49 numeri in gioco.",
          "116 combinazioni; 116 senza ripetizioni.",
          "Importo: 58,00 Euro, in 4 quote da 14,50 Euro.", "Sviluppo: presente."}) {
        EXPECT_NE(detto.uscita.find(parte), std::string::npos) << parte << "\n" << detto.uscita;
    }
    EXPECT_EQ(detto.errori, "");
}

TEST_F(Sistema, ChiNonEMaiStatoSviluppatoCostaTutteLeCombinazioni) {
    const Valore v = comando.json({"conta", metti("b", Gioco::lotto(4), 8, 5)})[0];
    EXPECT_EQ(v["totale"].intero(), 8 * 5 + 5 * 70);
    EXPECT_EQ(v["senza_ripetizioni"].testo, "null");
    EXPECT_EQ(v["importo"].testo, "195.00");
    EXPECT_EQ(v["linee"]["diagonali"].testo, "null");
    EXPECT_EQ(v["sviluppo"].testo, "assente");
}

TEST_F(Sistema, IlPrezzoEQuelloDelProgramma) {
    cartella.scrivi("cst", "\"950\",\"Lire\"\r\n");
    const Valore v = comando.json({"conta", metti("a", Gioco(), 6, 6)})[0];
    EXPECT_EQ(v["importo"].testo, "13300.00");
    EXPECT_EQ(v["valuta"].testo, "Lire");
}

TEST_F(Sistema, SenzaDirloNonScriveNulla) {
    const std::string a = pronto("a");
    const std::string b = metti("b", Gioco::lotto(3), 6, 5);
    // What a session over the folder itself would make or take away.
    platform::Kill(cartella.file("cst"));
    cartella.scrivi(".sen", "mio");
    const auto prima = fotografia(cartella.radice());
    EXPECT_EQ(comando({"conta", a, b}).codice, 0);
    EXPECT_EQ(comando({"sviluppa", a, b}).codice, 0);
    EXPECT_EQ(comando({"spoglio", "--sviluppa", "--storico", a, b}).codice, 0);
    EXPECT_EQ(comando({"esporta", "--schede", a}).codice, 0);
    EXPECT_EQ(comando({"analisi", "--sviluppa", "--storico", b}).codice, 0);
    EXPECT_EQ(fotografia(cartella.radice()), prima);
}

TEST_F(Sistema, SviluppaAccantoComeIlProgramma) {
    for (const Gioco gioco : {Gioco(), Gioco::lotto(3), Gioco::lotto(5)}) {
        for (const bool ripetizioni : {false, true}) {
            const std::string file = metti("x", gioco, 7, 7, 85);
            const std::string sviluppo =
                cartella.file(std::string("x") + gioco.estensione_sviluppo());
            elabora("x", gioco, ripetizioni);
            const std::string atteso = support::contenuto(sviluppo);
            const std::string salvato = support::contenuto(file);
            metti("x", gioco, 7, 7, 85);
            platform::Kill(sviluppo);
            const Valore v = comando.json({"sviluppa", "--scrivi", file})[0];
            EXPECT_EQ(support::contenuto(sviluppo), atteso);
            EXPECT_EQ(support::contenuto(file), salvato);
            EXPECT_EQ(v["giocate"].intero(),
                      static_cast<std::int64_t>(support::righe_di(atteso).size()));
            EXPECT_EQ(v["scritto"].testo, sviluppo);
            EXPECT_TRUE(systems::sviluppo_proprio({cartella.programma(), "x", gioco}));
        }
    }
}

TEST_F(Sistema, LeRipetizioniSiPossonoDire) {
    // Two rows of the same numbers.
    std::string testo = support::contenuto(metti("x", Gioco(), 6, 7));
    const std::size_t riga = testo.find("\r\n") + 2;
    testo.replace(testo.find("\r\n", riga) + 2, std::string("8,9,10,11,12,13,").size(),
                  "6,5,4,3,2,1,");
    cartella.scrivi("x.sen", testo);
    const std::string file = cartella.file("x.sen");
    const Valore senza = comando.json({"sviluppa", "--ripetizioni", "senza", file})[0];
    const Valore con = comando.json({"sviluppa", "--ripetizioni", "con", file})[0];
    EXPECT_EQ(con["giocate"].intero(), con["totale"].intero());
    EXPECT_EQ(senza["giocate"].intero(), con["giocate"].intero() - 1);
    EXPECT_EQ(con["senza_ripetizioni"].intero(), senza["giocate"].intero());
    EXPECT_EQ(con["importo"].testo, "24.50");
    EXPECT_EQ(senza["importo"].testo, "24.00");
    cartella.scrivi("rip.dat", "");
    EXPECT_EQ(comando.json({"sviluppa", file})[0]["giocate"].intero(), con["giocate"].intero());
}

TEST_F(Sistema, SviluppaAltrove) {
    const std::string a = metti("a", Gioco(), 7, 7);
    const std::string b = metti("b", Gioco::lotto(5), 7, 6);
    elabora("a", Gioco());
    const std::string atteso = cartella.leggi("a.col");
    platform::Kill(cartella.file("a.col"));
    const std::string altrove = cartella.radice() + "/altrove";
    EXPECT_EQ(comando({"sviluppa", "-o", altrove + ".col", a}).codice, 0);
    EXPECT_EQ(support::contenuto(altrove + ".col"), atteso);
    std::filesystem::create_directory(altrove);
    EXPECT_EQ(comando({"sviluppa", "-o", altrove, a, b}).codice, 0);
    EXPECT_EQ(support::contenuto(altrove + "/a.col"), atteso);
    EXPECT_TRUE(std::filesystem::exists(altrove + "/b.lot"));
    EXPECT_FALSE(cartella.esiste("a.col"));
    // Beside the system it would stand without its count.
    const Detto accanto = comando({"sviluppa", "-o", cartella.programma(), a});
    EXPECT_EQ(accanto.codice, 1);
    EXPECT_NE(accanto.errori.find("--scrivi"), std::string::npos);
    EXPECT_FALSE(cartella.esiste("a.col"));
    EXPECT_EQ(comando({"sviluppa", "-o", a, a}).codice, 1);
    EXPECT_EQ(comando({"sviluppa", "-o", cartella.radice() + "/manca/a.col", a}).codice, 1);
}

TEST_F(Sistema, AttraversoUnCollegamentoNonScrive) {
    const std::string a = metti("a", Gioco(), 6, 6);
    const std::string altro = cartella.radice() + "/b.sen";
    std::filesystem::create_symlink(a, altro);
    EXPECT_EQ(comando({"sviluppa", altro}).codice, 0);
    const auto prima = fotografia(cartella.radice());
    const Detto detto = comando({"sviluppa", "--scrivi", altro});
    EXPECT_EQ(detto.codice, 1);
    EXPECT_NE(detto.errori.find("collegamento"), std::string::npos) << detto.errori;
    EXPECT_EQ(fotografia(cartella.radice()), prima);
}

TEST_F(Sistema, SenzaLaTabellaNonSiSviluppa) {
    const std::string a = metti("a", Gioco(), 8, 8);
    std::filesystem::remove(cartella.radice() + "/ridotti/cr0700.rid");
    const Detto detto = comando({"sviluppa", "--scrivi", a});
    EXPECT_EQ(detto.codice, 1);
    EXPECT_NE(detto.errori.find("manca la tabella cr0700.rid"), std::string::npos) << detto.errori;
    EXPECT_FALSE(cartella.esiste("a.col"));
}

TEST_F(Sistema, FermatoNonLasciaNulla) {
    const std::string a = metti("a", Gioco(), 15, 15);
    const auto prima = fotografia(cartella.radice());
    int volte = 0;
    comando.ambiente.fermato = [&] { return ++volte > 3; };
    const Detto detto = comando({"sviluppa", "--scrivi", a, a});
    EXPECT_EQ(detto.codice, 1);
    EXPECT_NE(detto.errori.find("interrott"), std::string::npos) << detto.errori;
    EXPECT_EQ(fotografia(cartella.radice()), prima);
}

TEST_F(Sistema, SpoglioConINumeriDetti) {
    const std::string file = pronto("a");
    const Valore v =
        comando.json({"spoglio", "--numeri", "1,2,3,4,5,7", "--jolly", "6", file})[0]["estrazioni"];
    ASSERT_EQ(v.lista.size(), 1U);
    EXPECT_EQ(v[0]["punti"]["6"].intero(), 1);
    EXPECT_EQ(v[0]["punti"]["5+1"].intero(), 6);
    EXPECT_EQ(v[0]["vincenti"].intero(), 7);
    EXPECT_EQ(interi(v[0]["numeri"]), (std::vector<std::int64_t>{1, 2, 3, 4, 5, 7}));
    const Valore senza =
        comando.json({"spoglio", "--numeri", "1,2,3,4,5,7", file})[0]["estrazioni"][0];
    EXPECT_EQ(senza["punti"]["5+1"].intero(), 0);
    EXPECT_EQ(senza["punti"]["5"].intero(), 6);
    EXPECT_EQ(senza["jolly"].testo, "null");
    const Detto lotto = comando({"spoglio", "--numeri", "1,2,3,4,5", file});
    EXPECT_EQ(lotto.codice, 1);
    EXPECT_EQ(lotto.errori, "sistema: " + platform::da_mostrare(file) +
                                ": per il SuperEnalotto servono sei numeri\n");
}

TEST_F(Sistema, IlDettaglioDiceLeSchedine) {
    const std::string file = pronto("a");
    const Valore v = comando.json({"spoglio", "--numeri", "1,2,3,8,9,10", "--dettaglio",
                                   "--pannelli", "3", file})[0]["estrazioni"][0];
    const auto righe = combinazioni(cartella.file("a.col"));
    std::size_t vinte = 0;
    std::size_t voce = 0;
    for (std::size_t i = 0; i < righe.size(); ++i) {
        int punti = 0;
        std::string numeri;
        for (const std::int64_t n : righe[i]) {
            punti += (n >= 1 && n <= 3) || (n >= 8 && n <= 10) ? 1 : 0;
            numeri += (numeri.empty() ? "" : " ") + std::to_string(n);
        }
        if (punti < 3) continue;
        ++vinte;
        const Valore& una = v["schedine"][voce++];
        EXPECT_EQ(una["combinazione"].intero(), static_cast<std::int64_t>(i + 1));
        EXPECT_EQ(una["schedina"].intero(), static_cast<std::int64_t>(i / 3 + 1));
        EXPECT_EQ(una["punti"].testo, std::to_string(punti));
        EXPECT_EQ(una["numeri"].testo, numeri);
    }
    EXPECT_GT(vinte, 0U);
    EXPECT_EQ(v["schedine"].lista.size(), vinte);
    EXPECT_EQ(v["vincenti"].intero(), static_cast<std::int64_t>(vinte));
}

TEST_F(Sistema, UnConcorsoSiTrovaPerNumeroEPerData) {
    const std::string file = pronto("a", Gioco::lotto(3));
    const Valore tutte = comando.json({"spoglio", "--concorso", "12", file})[0]["estrazioni"];
    ASSERT_EQ(tutte.lista.size(), 11U);
    const std::string data = tutte[0]["data"].testo;
    const Valore una =
        comando.json({"spoglio", "--concorso", data, "--ruota", "napoli", file})[0]["estrazioni"];
    ASSERT_EQ(una.lista.size(), 1U);
    EXPECT_EQ(una[0]["ruota"].testo, "Napoli");
    EXPECT_EQ(una[0]["concorso"].intero(), 12);
    EXPECT_EQ(interi(una[0]["numeri"]), interi(tutte[5]["numeri"]));
    const Valore sigla =
        comando.json({"spoglio", "--concorso", "12", "--ruota", "NA", file})[0]["estrazioni"];
    EXPECT_EQ(interi(sigla[0]["numeri"]), interi(una[0]["numeri"]));
    const Valore ultimo = comando.json({"spoglio", "--concorso", "ultimo", file})[0]["estrazioni"];
    EXPECT_EQ(ultimo[0]["concorso"].intero(), 320);
    const Detto nessuno = comando({"spoglio", "--concorso", "9999", file});
    EXPECT_EQ(nessuno.codice, 1);
    EXPECT_EQ(nessuno.errori,
              "sistema: " + platform::da_mostrare(file) + ": l'archivio non ha il concorso 9999\n");
    const Detto ruota = comando({"spoglio", "--storico", "--ruota", "BA", pronto("b")});
    EXPECT_EQ(ruota.codice, 1);
    support::togli_archivio(cartella.radice());
    const Detto senza = comando({"spoglio", "--storico", file});
    EXPECT_EQ(senza.codice, 1);
    EXPECT_NE(senza.errori.find("l'archivio delle estrazioni non si può leggere"),
              std::string::npos);
}

TEST_F(Sistema, LoStoricoELoSpoglioEstrazionePerEstrazione) {
    for (const Gioco gioco : {Gioco(), Gioco::lotto(3), Gioco::lotto(4), Gioco::lotto(5)}) {
        const std::string file = pronto("a", gioco, 9, 9, 3);
        const Valore v = comando.json({"spoglio", "--storico", file})[0];
        const std::size_t quante = gioco.e_lotto() ? 11 * 320 : 320;
        ASSERT_EQ(v["estrazioni"].lista.size(), quante);
        check::RichiestaSpoglio r;
        r.file = cartella.file(std::string("a") + gioco.estensione_sviluppo());
        r.combinazioni = static_cast<std::int32_t>(v["combinazioni"].intero());
        r.gioco = gioco;
        for (std::size_t i = 0; i < quante; i += gioco.e_lotto() ? 17 : 1) {
            const Valore& e = v["estrazioni"][i];
            std::size_t casella = 0;
            if (!gioco.e_lotto())
                r.vincente[casella++] = static_cast<std::int16_t>(e["jolly"].intero());
            for (const Valore& n : e["numeri"].lista)
                r.vincente[casella++] = static_cast<std::int16_t>(n.intero());
            check::Spoglio spoglio;
            ASSERT_TRUE(spoglio.conta(r, [](std::int32_t) { return true; }));
            for (int t = gioco.e_lotto() ? 2 : 0; t <= gioco.numeri(); ++t)
                ASSERT_EQ(e["punti"][std::to_string(t)].intero(), spoglio.totale(t)) << i;
            if (!gioco.e_lotto()) {
                ASSERT_EQ(e["punti"]["5+1"].intero(), spoglio.totale_jolly(5)) << i;
            }
            ASSERT_EQ(e["vincenti"].intero(), spoglio.vincenti()) << i;
        }
        platform::Kill(r.file);
    }
}

TEST_F(Sistema, EsportaLoSviluppo) {
    const std::string file = pronto("a");
    const auto righe = combinazioni(cartella.file("a.col"));
    const Detto detto = comando({"esporta", file});
    EXPECT_EQ(detto.codice, 0);
    EXPECT_TRUE(detto.uscita.starts_with("combinazione,n1,n2,n3,n4,n5,n6\n1,1,2,3,4,5,6\n"));
    EXPECT_EQ(static_cast<std::size_t>(std::count(detto.uscita.begin(), detto.uscita.end(), '\n')),
              righe.size() + 1);
    const Valore v = comando.json({"esporta", file})[0]["combinazioni"];
    ASSERT_EQ(v.lista.size(), righe.size());
    for (std::size_t i = 0; i < righe.size(); ++i) EXPECT_EQ(interi(v[i]), righe[i]);
}

TEST_F(Sistema, LeSchedeSonoQuelleDelProgramma) {
    const std::string file = pronto("a");
    const std::string lotto = pronto("l", Gioco::lotto(3), 5, 5);
    cartella.scrivi("col.dat", "\"3\"\r\n");
    const Valore v = comando.json({"esporta", "--schede", file, lotto});
    EXPECT_EQ(v[0]["colonne_per_schedina"].intero(), 3);
    EXPECT_EQ(v[0]["combinazioni"][3]["schedina"].intero(), 2);
    EXPECT_EQ(v[0]["combinazioni"][3]["colonna"].intero(), 1);
    EXPECT_EQ(v[1]["colonne_per_schedina"].intero(), 5);
    EXPECT_EQ(v[1]["combinazioni"][9]["schedina"].intero(), 2);
    EXPECT_EQ(v[1]["combinazioni"][9]["colonna"].intero(), 5);
    cartella.scrivi("col.dat", "\"mille\"\r\n");
    const Detto guasto = comando({"esporta", "--schede", file});
    EXPECT_EQ(guasto.codice, 1);
    EXPECT_NE(guasto.errori.find("col.dat"), std::string::npos);
    EXPECT_EQ(comando({"esporta", file}).codice, 0);
}

TEST_F(Sistema, EsportaInFile) {
    const std::string a = pronto("a");
    const std::string b = pronto("b", Gioco::lotto(5));
    const std::string csv = comando({"esporta", a}).uscita;
    const std::string cosa = cartella.radice() + "/uscita";
    EXPECT_EQ(comando({"esporta", "-o", cosa + ".csv", a}).codice, 0);
    EXPECT_EQ(support::contenuto(cosa + ".csv"), csv);
    EXPECT_EQ(comando({"esporta", a, b}).codice, 2);
    EXPECT_EQ(comando({"esporta", "-o", cosa, a, b}).codice, 2);
    std::filesystem::create_directory(cosa);
    EXPECT_EQ(comando({"esporta", "-o", cosa, a, b}).codice, 0);
    EXPECT_EQ(support::contenuto(cosa + "/a.csv"), csv);
    EXPECT_TRUE(std::filesystem::exists(cosa + "/b.csv"));
    comando.json({"esporta", "-o", cosa, a});
    EXPECT_TRUE(support::leggi_json(support::contenuto(cosa + "/a.json")).has_value());
    for (const char* suo : {"a.sen", "a.col"}) {
        const std::string prima = cartella.leggi(suo);
        EXPECT_EQ(comando({"esporta", "-o", cartella.file(suo), a}).codice, 1) << suo;
        EXPECT_EQ(cartella.leggi(suo), prima);
    }
}

TEST_F(Sistema, AnalisiComeLaFinestra) {
    cartella.scrivi("premi.dat", "");
    const std::string file = pronto("a", Gioco::lotto(4));
    const Detto detto = comando({"analisi", file});
    EXPECT_EQ(detto.codice, 0);
    analysis::Giocate giocate;
    ASSERT_EQ(analysis::leggi_giocate(cartella.file("a.lot"), 4, giocate),
              analysis::Lettura::letta);
    analysis::Analisi a;
    ASSERT_TRUE(analysis::analizza(giocate, 5, 1, a));
    const auto tavole = analysis::tavole_analisi(a, Gioco::lotto(4), {},
                                                 static_cast<double>(giocate.righe()) * 0.5);
    std::string atteso;
    for (const std::string& riga : analysis::righe_di_testo(tavole, 100)) atteso += riga + "\n";
    EXPECT_EQ(detto.uscita, "Analisi del sistema " + platform::da_mostrare(file) + "\n\n" + atteso);
    const Valore v = comando.json({"analisi", "--storico", "--ruota", "Roma", file})[0];
    EXPECT_EQ(v["giocate"].intero(), static_cast<std::int64_t>(giocate.righe()));
    EXPECT_EQ(v["estrazioni_possibili"].intero(), 43949268);
    std::int64_t somma = 0;
    for (int t = 0; t <= 4; ++t) {
        const auto i = static_cast<std::size_t>(t);
        somma += v["estrazioni"][i].intero();
        EXPECT_EQ(v["estrazioni_almeno"][i].intero(),
                  static_cast<std::int64_t>(a.distribuzione.estrazioni_almeno(t)));
    }
    EXPECT_EQ(somma, 43949268);
    EXPECT_EQ(v["garanzie"].lista.size(), 5U);
    EXPECT_EQ(v["storico"]["ruota"].testo, "Roma");
    EXPECT_EQ(v["storico"]["estrazioni"].intero(), 320);
    const Valore storico = comando.json({"spoglio", "--storico", "--ruota", "Roma", file})[0];
    std::int64_t vincenti = 0;
    for (const Valore& e : storico["estrazioni"].lista) vincenti += e["vincenti"].intero() > 0;
    EXPECT_EQ(v["storico"]["vincenti"].intero(), vincenti);
}

TEST_F(Sistema, IlProspettoEQuelloDelSistema) {
    const std::string a = pronto("a");
    const std::string b = metti("b", Gioco::lotto(5), 6, 8);
    std::vector<printing::Prospetto> stampati;
    std::vector<std::string> file;
    comando.ambiente.stampa = [&](const printing::Prospetto& p, const std::string& pdf) {
        stampati.push_back(p);
        file.push_back(pdf);
        return pdf.ends_with("b-prospetto.pdf") ? std::string("la carta è finita") : "";
    };
    EXPECT_EQ(comando({"prospetto", a}).codice, 2);
    EXPECT_EQ(comando({"prospetto", "-o", cartella.radice() + "/x.pdf", a, b}).codice, 2);
    EXPECT_EQ(comando({"prospetto", "-o", a, a}).codice, 1);
    EXPECT_TRUE(stampati.empty());
    const Detto detto = comando({"prospetto", "-o", cartella.radice(), "--quote", "2", a, b});
    EXPECT_EQ(detto.codice, 1);
    EXPECT_EQ(detto.errori, "sistema: " + platform::da_mostrare(b) + ": la carta è finita\n");
    ASSERT_EQ(file, (std::vector<std::string>{cartella.radice() + "/a-prospetto.pdf",
                                              cartella.radice() + "/b-prospetto.pdf"}));
    const printing::Prospetto& p = stampati[0];
    EXPECT_EQ(p.testata.nome, "a");
    EXPECT_EQ(p.testata.data.size(), 10U);
    EXPECT_EQ(p.matrice.colonne(), 7);
    EXPECT_EQ(p.totale, "116");
    EXPECT_EQ(p.senza_ripetizioni, "116");
    EXPECT_EQ(p.importo, "58,00");
    EXPECT_EQ(p.quote, "2");
    EXPECT_EQ(p.quota, "29,00");
    EXPECT_EQ(p.righe[2].combinazioni, "2 Sist. da 7  -  4 Sist. da 1");
    EXPECT_EQ(stampati[1].gioco, Gioco::lotto(5));
    EXPECT_EQ(stampati[1].senza_ripetizioni, "");
}

}  // namespace
