// The whole road of a check, by clicks alone: open, elaborate, check, list, sort, clear, leave.
#include <algorithm>
#include <map>
#include <sstream>

#include "check/modulo_spoglio.h"

using check::frmspoglio;
using support::Programma;

namespace {

using Numeri = std::vector<int>;

std::vector<Numeri> letto(const std::string& testo) {
    std::vector<Numeri> righe;
    std::istringstream f(testo);
    for (std::string riga; std::getline(f, riga);) {
        Numeri numeri;
        std::istringstream campi(riga);
        for (std::string campo; std::getline(campi, campo, ',');) {
            numeri.push_back(std::stoi(campo));
        }
        righe.push_back(numeri);
    }
    return righe;
}

int quanti(const Numeri& riga, const Numeri& vincenti) {
    return static_cast<int>(std::count_if(riga.begin(), riga.end(), [&](int n) {
        return std::find(vincenti.begin(), vincenti.end(), n) != vincenti.end();
    }));
}

std::vector<std::string> come_testi(const Numeri& numeri) {
    std::vector<std::string> t;
    for (const int n : numeri) t.push_back(std::to_string(n));
    return t;
}

class Strada : public support::ModuloSpoglio {
protected:
    Strada() { p.cartella.con_tabelle(); }

    /// Lays and saves a system, leaves it, and opens it from the list.
    void apri_sistema(const QString& nome) {
        p.riempi_e_salva(nome);
        Programma::voce(p.form1.mnunuovo);
        ASSERT_EQ(p.form1.Tag(), "");
        Programma::voce(p.form1.mnuapri);
        systems::Form2* form2 = Programma::gestore();
        ASSERT_NE(form2, nullptr);
        QTreeWidgetItem* voce = form2->ListView1->topLevelItem(0);
        QTest::mouseClick(form2->ListView1->viewport(), Qt::LeftButton, {},
                          form2->ListView1->visualItemRect(voce).center());
        Programma::clic(form2->Command5);
        ASSERT_EQ(p.form1.Tag(), nome);
        p.comando(1);
        p.mostrati();
    }
    frmspoglio& spoglia_sistema() {
        p.comando(6);
        EXPECT_TRUE(p.mostrati().empty());
        auto* f = modulo();
        if (f == nullptr) throw std::runtime_error("no check form");
        return *f;
    }
    void archivio(const support::Estrazioni& e) {
        support::togli_archivio(p.cartella.radice());
        std::filesystem::create_directories(p.cartella.radice() + "/archivio");
        support::scrivi_sqlite(p.cartella.radice() + "/archivio/drawit.sqlite", e);
    }
    /// The list by slips as it must read, worked out from the file.
    static QStringList punti_attesi(const std::vector<Numeri>& righe, const Numeri& vincenti,
                                    int jolly, int da) {
        QStringList attesi;
        for (const Numeri& riga : righe) {
            const int n = quanti(riga, vincenti);
            const bool cinque_e_uno = n > 4 && quanti(riga, {jolly}) > 0;
            if (n >= da) attesi << QString::number(n) + (cinque_e_uno ? " + 1" : "");
        }
        return attesi;
    }
    static void elenca_e_ordina(frmspoglio& f, QPushButton* dettaglio, QStringList attesi) {
        ASSERT_TRUE(dettaglio->isEnabled());
        Programma::clic(dettaglio);
        EXPECT_TRUE(f.ListView1->isVisible());
        EXPECT_FALSE(f.Frame4->isVisible());
        if (platform::Tag(f.cmdpunti).isEmpty()) {
            EXPECT_EQ(colonna(f, 2), attesi);
        }
        std::stable_sort(attesi.begin(), attesi.end());
        while (platform::Tag(f.cmdpunti) != "ASC") Programma::clic(f.cmdpunti);
        EXPECT_EQ(colonna(f, 2), attesi);
        Programma::clic(f.cmdpunti);
        std::reverse(attesi.begin(), attesi.end());
        EXPECT_EQ(colonna(f, 2), attesi);
        Programma::clic(f.Command1);
        EXPECT_TRUE(f.Frame4->isVisible());
        EXPECT_EQ(f.ListView1->righe(), 0);
        EXPECT_EQ(f.lblvinc[0]->text(), "");
    }
};

TEST_F(Strada, SuperenalottoFromTheListOfSystemsToThreeDrawsAndBack) {
    p.dimensioni(7, 6);
    apri_sistema("uno");
    const std::vector<Numeri> righe = letto(p.cartella.leggi("uno.col"));
    ASSERT_GT(righe.size(), 20U);
    // A played line, five of another with its sixth as the Jolly, and three of a third.
    const auto estratti = [&](std::size_t quale, int presi) {
        Numeri numeri(righe[quale].begin(), righe[quale].begin() + presi);
        for (int n = 90; numeri.size() < 6; --n) {
            if (quanti(righe[quale], {n}) == 0) numeri.push_back(n);
        }
        return numeri;
    };
    const std::vector<Numeri> draws{estratti(0, 6), estratti(righe.size() / 2, 5),
                                    estratti(righe.size() - 1, 3)};
    const Numeri jolly{89, righe[righe.size() / 2][5], 88};
    support::Estrazioni e;
    for (std::size_t n = 0; n < 3; ++n) {
        std::vector<std::string> riga = come_testi(draws[n]);
        riga.insert(riga.begin(), "2001-01-01");
        riga.push_back(std::to_string(jolly[n]));
        riga.emplace_back("<null>");
        riga.push_back(std::to_string(n + 1));
        e.archivios.push_back(riga);
    }
    archivio(e);
    frmspoglio& f = spoglia_sistema();
    EXPECT_EQ(f.lblnumconb->text(), QString::number(righe.size()));
    for (std::size_t n = 0; n < 3; ++n) {
        Programma::scegli(f.Combo1, 2 - static_cast<int>(n));
        Programma::clic(f.Cmdspoglio);
        const QStringList attesi = punti_attesi(righe, draws[n], jolly[n], 0);
        for (int k = 0; k <= 6; ++k) {
            const auto quante = attesi.count(QString::number(k));
            EXPECT_EQ(f.lblvinc[static_cast<std::size_t>(k == 0 ? 7 : k)]->text(),
                      k > 0 && quante == 0 ? QString() : QString::number(quante))
                << n << " " << k;
        }
        EXPECT_EQ(f.lblvinc_j[5]->text(), n == 1 ? "1" : "");
        elenca_e_ordina(f, f.Cmdvincenti, attesi);
    }
    Programma::clic(f.CmdEsci);
    EXPECT_TRUE(p.form1.isVisible());
    EXPECT_EQ(p.form1.Tag(), "uno");
}

TEST_F(Strada, LottoFromTheListOfSystemsToThreeDrawsAndBack) {
    Programma::clic(p.form1.Image10);
    Programma::clic(p.form1.Imageb[0]);
    apri_sistema("due");
    const std::vector<Numeri> righe = letto(p.cartella.leggi("due.lot"));
    ASSERT_GT(righe.size(), 20U);
    ASSERT_EQ(righe[0].size(), 3U);
    support::Estrazioni e = support::poche_estrazioni();
    const auto cinque = [&](std::size_t quale, int presi) {
        Numeri numeri(righe[quale].begin(), righe[quale].begin() + presi);
        for (int n = 90; numeri.size() < 5; --n) {
            if (quanti(righe[quale], {n}) == 0) numeri.push_back(n);
        }
        return numeri;
    };
    // Rome and Venice of the newest draw, and its national wheel.
    std::map<int, Numeri> draws{{7, cinque(0, 3)}, {9, cinque(5, 2)}, {10, cinque(9, 3)}};
    for (const auto& [voce, numeri] : draws) {
        auto& riga =
            voce == 10 ? e.archivion.back() : e.archivio[20 + static_cast<std::size_t>(voce)];
        const std::vector<std::string> scritti = come_testi(numeri);
        std::copy(scritti.begin(), scritti.end(), riga.begin() + 2);
    }
    archivio(e);
    frmspoglio& f = spoglia_sistema();
    for (const auto& [voce, numeri] : draws) {
        Programma::scegli(f.Combo3, voce);
        Programma::clic(f.Cmdspoglio);
        const QStringList attesi = punti_attesi(righe, numeri, 0, 2);
        for (int k = 2; k <= 5; ++k) {
            const auto quante = attesi.count(QString::number(k));
            EXPECT_EQ(f.lblvinclotto[static_cast<std::size_t>(k - 2)]->text(),
                      quante == 0 ? QString() : QString::number(quante));
        }
        EXPECT_EQ(f.lblvinc[0]->text(), QString::number(attesi.size()));
        elenca_e_ordina(f, f.Cmdvincentilotto, attesi);
    }
    f.close();
    EXPECT_TRUE(p.form1.isVisible());
    EXPECT_EQ(p.form1.Tag(), "due");
}

}  // namespace
