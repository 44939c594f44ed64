// The window of the slips, used as a player does.
#include <algorithm>
#include <cmath>
#include <tuple>

#include <QDir>
#include <QPointer>
#include <QPrinter>
#include <QTimer>
#include <QWheelEvent>

#include "platform/disk.h"
#include "platform/qt/desktop.h"
#include "platform/qt/folder.h"
#include "platform/qt/printer_qt.h"
#include "platform/qt/scala.h"
#include "platform/qt/scrivania.h"
#include "suite/stampa_prova.h"

using platform::q;
using prova::FinestraSchedine;
using schedine::Finestra;

constexpr int larghezza_foglio = 1000;
constexpr int altezza_foglio = 2000;

TEST_F(FinestraSchedine, ApreIlSistemaConsegnato) {
    sviluppa("altro", 3);
    sviluppa("prova", 47);
    cartella.scrivi("cst", "\"1,00\",\"Euro\"\r\n");
    consegna("prova");
    apri();
    EXPECT_TRUE(f->windowTitle().startsWith("stampa"));
    EXPECT_EQ(f->cmbsistema->Text(), "prova - SuperEnalotto");
    EXPECT_EQ(f->lblsistema->text(), "47 combinazioni in 10 schedine");
    EXPECT_EQ(f->lblconto->text(), "10 schedine su 2 fogli\nEuro 47,00");
    EXPECT_EQ(f->txtdalla[0]->text(), "1");
    EXPECT_EQ(f->txtdalla[1]->text(), "10");
    EXPECT_FALSE(f->riqgiocata->isVisible());
    EXPECT_TRUE(f->cmdpdf->isEnabled());
}

TEST_F(FinestraSchedine, SenzaConsegnaOffreUnaScelta) {
    sviluppa("prova", 4);
    sviluppa("lotto", 7, 4);
    for (const char* dati : {"", "\x01\xFF", "\"cruciverba\",\"manca\"\r\n"}) {
        trans(dati);
        apri();
        EXPECT_EQ(f->cmbsistema->ListIndex(), -1);
        EXPECT_FALSE(f->cmdstampa->isEnabled());
        EXPECT_FALSE(f->cmdpdf->isEnabled());
        EXPECT_NE(f->lblsistema->text().indexOf("sistema"), -1);
        scegli(f->cmbsistema, 1);
        EXPECT_TRUE(f->cmdpdf->isEnabled());
        EXPECT_EQ(f->windowTitle(), "stampa - lotto");
        EXPECT_TRUE(f->riqgiocata->isVisible());
    }
}

TEST_F(FinestraSchedine, NeiDueGiochiLoStessoNomeSiSceglie) {
    sviluppa("prova", 4);
    sviluppa("prova", 7, 3);
    consegna("prova");
    apri();
    EXPECT_EQ(f->lblsistema->text(),
              "Il sistema «prova» c'è nel SuperEnalotto e nel Lotto. Scegliete quale stampare.");
}

TEST_F(FinestraSchedine, SenzaNessunSistemaLoDice) {
    apri();
    EXPECT_TRUE(f->lblsistema->text().startsWith("Nessun sistema è elaborato"));
    EXPECT_FALSE(f->cmdpdf->isEnabled());
}

TEST_F(FinestraSchedine, IlTavoloVuotoDicePerche) {
    sviluppa("prova", 4);
    apri();
    const auto* invito = f->anteprima->findChild<QLabel*>("lblinvito");
    ASSERT_NE(invito, nullptr);
    EXPECT_TRUE(invito->isVisible());
    EXPECT_EQ(invito->text(), f->lblsistema->text());
    EXPECT_NEAR(invito->geometry().center().x(), f->anteprima->rect().center().x(), 1);
    EXPECT_LT(invito->width(), f->anteprima->width());
    scegli(f->cmbsistema, 0);
    EXPECT_FALSE(invito->isVisible());
}

TEST_F(FinestraSchedine, UnTestoDiDueRigheSiVedeSubitoIntero) {
    sviluppa("prova", 4);
    consegna("prova");
    apri();
    const int prima = f->lblsistema->height();
    f->optgenere[2]->click();
    EXPECT_GE(f->lblsistema->height(), 2 * f->lblsistema->fontMetrics().height());
    EXPECT_GT(f->lblsistema->height(), prima);
    const QWidget* riquadro = f->lblsistema->parentWidget();
    EXPECT_TRUE(riquadro->rect().contains(f->lblsistema->geometry()));
    EXPECT_GT(f->optgenere[0]->parentWidget()->y(), riquadro->geometry().bottom());
    f->optgenere[0]->click();
    EXPECT_EQ(f->lblsistema->height(), prima);
}

TEST_F(FinestraSchedine, UnoSviluppoTroncatoNonSiStampa) {
    sviluppa("prova", 3);
    cartella.scrivi("prova.col", "1,2,3,4,5,6\r\n1,2,3");
    consegna("prova");
    apri();
    EXPECT_EQ(
        f->lblsistema->text(),
        "Lo sviluppo «prova.col» non si può stampare: riga 2, campo 4: la riga finisce qui, ma "
        "i numeri devono essere 6.");
    EXPECT_FALSE(f->cmdpdf->isEnabled());
    QTest::keyClick(f.get(), Qt::Key_P, Qt::ControlModifier);
    EXPECT_FALSE(std::filesystem::exists(uscita));
}

TEST_F(FinestraSchedine, IPdfSiRileggonoComeLoSviluppo) {
    sviluppa("prova", 47);
    consegna("prova");
    const std::string prima = libreria();
    apri();
    clic(f->cmdpdf);
    EXPECT_EQ(proposte, QStringList{"prova-schedine.pdf"});
    EXPECT_EQ(support::pagine(uscita), 2);
    EXPECT_EQ(messaggi.last(), "Le schedine sono nel file\n" + platform::da_mostrare(q(uscita)));
    EXPECT_EQ(lette_sotto_i_pannelli(), attese);
    clic(f->optgenere[1]);
    clic(f->cmdpdf);
    EXPECT_EQ(lette(6), attese);
    clic(f->chkgrande);
    EXPECT_TRUE(f->chkgrande->isChecked());
    clic(f->cmdpdf);
    EXPECT_EQ(lette(6), attese);
    EXPECT_EQ(libreria(), prima) << "the library is not this program's";
}

TEST_F(FinestraSchedine, IlModuloSiRileggeDaiSegni) {
    sviluppa("prova", 12);
    consegna("prova");
    const schedine::Modulo m = salva_modulo("mia");
    apri();
    clic(f->optgenere[2]);
    EXPECT_EQ(f->cmbmodulo->Text(), "mia");
    EXPECT_EQ(f->lblconto->text().section('\n', 0, 0), "3 schedine su 3 fogli");
    clic(f->cmdpdf);
    ASSERT_EQ(support::pagine(uscita), 3);
    const auto [largo, alto] = support::misura_pagina(uscita);
    EXPECT_NEAR(largo, larghezza_foglio / 254.0 * 72, 0.6);
    EXPECT_NEAR(alto, altezza_foglio / 254.0 * 72, 0.6);
    constexpr int dot = 300;
    std::vector<std::string> rilette;
    for (int pagina = 1; pagina <= 3; ++pagina) {
        const support::Immagine foto = support::fotografa(uscita, pagina, dot);
        for (std::size_t k = 0; k < m.pannelli.size(); ++k) {
            std::string chiaro;
            for (int n = 1; n <= 90; ++n) {
                const schedine::Punto p = schedine::cella(m, k, n);
                if (foto.scuro(p.x / 254 * dot, p.y / 254 * dot))
                    chiaro += (n < 10 ? "0" : "") + std::to_string(n) + " ";
            }
            if (!chiaro.empty()) rilette.push_back(chiaro);
        }
    }
    EXPECT_EQ(rilette, attese);
}

TEST_F(FinestraSchedine, UnModuloGuastoDiceRigaECampo) {
    sviluppa("prova", 12);
    consegna("prova");
    std::filesystem::create_directories(radice() + "schedine");
    std::ofstream(radice() + "schedine/mia.mod") << "foglio = 10, 2000\n";
    apri();
    clic(f->optgenere[2]);
    EXPECT_EQ(f->lblsistema->text(),
              "Il modulo «mia» non si può usare: riga 1, campo foglio: il valore 1 non va da 300 a "
              "4200.");
    EXPECT_FALSE(f->cmdpdf->isEnabled());
    clic(f->optgenere[0]);
    EXPECT_TRUE(f->cmdpdf->isEnabled());
}

TEST_F(FinestraSchedine, UnModuloDellAltroGiocoNonSiStampa) {
    sviluppa("prova", 12);
    consegna("prova");
    schedine::Modulo m;
    m.lotto = true;
    salva_modulo("lotto", m);
    apri();
    clic(f->optgenere[2]);
    clic(f->cmdpdf);
    EXPECT_EQ(messaggi.last(), "Il modulo è per il Lotto, il sistema per il SuperEnalotto.");
    EXPECT_FALSE(std::filesystem::exists(uscita));
}

TEST_F(FinestraSchedine, DallaAllaECopie) {
    sviluppa("prova", 47);
    consegna("prova");
    apri();
    clic(f->optgenere[1]);
    scrivi(f->txtdalla[0], "4");
    scrivi(f->txtdalla[1], "6");
    scrivi(f->txtcopie, "2");
    EXPECT_EQ(f->lblconto->text(), "3 schedine su 2 fogli\nEuro 7,50");
    clic(f->cmdpdf);
    EXPECT_EQ(support::pagine(uscita), 2);
    std::vector<std::string> due(attese.begin() + 15, attese.begin() + 30);
    due.insert(due.end(), attese.begin() + 15, attese.begin() + 30);
    EXPECT_EQ(lette(6), due);
    scrivi(f->txtdalla[1], "999");
    EXPECT_EQ(f->txtdalla[1]->text(), "10");
    scrivi(f->txtdalla[0], "0");
    EXPECT_EQ(f->txtdalla[0]->text(), "1");
}

TEST_F(FinestraSchedine, SopraCentoSchedineSiChiede) {
    sviluppa("prova", 501);
    consegna("prova");
    apri();
    risposta = platform::vbNo;
    clic(f->cmdpdf);
    EXPECT_EQ(messaggi, QStringList{"Le schedine sono 101, su 21 fogli, per Euro 250,50.\n"
                                    "Si procede?"});
    EXPECT_FALSE(std::filesystem::exists(uscita));
    scrivi(f->txtdalla[1], "100");
    clic(f->cmdpdf);
    EXPECT_EQ(messaggi.size(), 2) << "a hundred are not asked for";
    EXPECT_EQ(support::pagine(uscita), 20);
}

TEST_F(FinestraSchedine, NelLottoRuoteEPostaSiDiconoUnaVolta) {
    sviluppa("lotto", 12, 4);
    consegna("lotto");
    apri();
    EXPECT_EQ(f->lblconto->text(), "3 schedine su 1 foglio");
    clic(f->chkruota[0]);
    clic(f->chkruota[10]);
    QTest::keyClicks(f->txtposta, "1,5");
    EXPECT_EQ(f->lblconto->text(), "3 schedine su 1 foglio\nEuro 18,00");
    clic(f->cmdpdf);
    int volte = 0;
    for (const auto& p : support::parole(uscita)) volte += p.testo == "Nazionale" ? 1 : 0;
    EXPECT_EQ(volte, 4) << "on each slip and in the head";
}

TEST_F(FinestraSchedine, SiSfogliaESiIngrandisce) {
    sviluppa("prova", 200);
    consegna("prova");
    apri();
    EXPECT_EQ(f->lblpagine->text(), "di 8");
    EXPECT_FALSE(f->cmdindietro->isEnabled());
    clic(f->cmdavanti);
    EXPECT_EQ(f->pagina(), 2);
    QTest::keyClick(f.get(), Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(f->pagina(), 8);
    EXPECT_FALSE(f->cmdavanti->isEnabled());
    QTest::keyClick(f.get(), Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(f->pagina(), 7);
    scrivi(f->txtpagina, "3");
    EXPECT_EQ(f->pagina(), 3);
    scrivi(f->txtpagina, "99");
    EXPECT_EQ(f->pagina(), 8);
    EXPECT_TRUE(f->anteprima->foglio_intero());
    QTest::keyClick(f.get(), Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(f->anteprima->ingrandimento(), 100);
    const double dot = f->screen()->physicalDotsPerInch();
    EXPECT_NEAR(f->anteprima->widget()->width(), 210 / 25.4 * dot + 24, 2) << "true scale";
    clic(f->cmdpiu);
    EXPECT_EQ(f->cmdvero->text(), "125 %");
    clic(f->cmdmeno);
    clic(f->cmdmeno);
    EXPECT_EQ(f->anteprima->ingrandimento(), 75);
    clic(f->cmdintero);
    EXPECT_TRUE(f->anteprima->foglio_intero());
}

TEST_F(FinestraSchedine, SiIngrandisceLaFinestraOIlFoglio) {
    sviluppa("prova", 200);
    consegna("prova");
    apri();
    const auto premi = [this](Qt::Key tasto, Qt::KeyboardModifiers con) {
        QTest::keyClick(f.get(), tasto, con);
        QApplication::processEvents();
    };
    premi(Qt::Key_1, Qt::ControlModifier);
    premi(Qt::Key_Plus, Qt::AltModifier);
    EXPECT_EQ(f->anteprima->ingrandimento(), 125);
    premi(Qt::Key_Minus, Qt::AltModifier);
    EXPECT_EQ(f->anteprima->ingrandimento(), 100);
    // The screen of the tests may have room for less than 100 %.
    const qreal prima = platform::scala(f.get());
    const int campo = f->txtpagina->width();
    premi(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_NEAR(platform::scala(f.get()), 0.9, 0.001);
    EXPECT_LT(f->txtpagina->width(), campo);
    EXPECT_EQ(f->anteprima->ingrandimento(), 100);
    premi(Qt::Key_0, Qt::ControlModifier);
    EXPECT_NEAR(platform::scala(f.get()), prima, 0.01);
    EXPECT_NEAR(f->txtpagina->width(), campo, 1);
    // Over the page the wheel is the page's.
    const auto gira = [](QWidget* sotto) {
        QWheelEvent giro(QPointF(5, 5), sotto->mapToGlobal(QPointF(5, 5)), {}, {0, -120},
                         Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
        // Else it would go no further than to this very control.
        QSpontaneKeyEvent::setSpontaneous(&giro);
        qApp->notify(sotto, &giro);
        QApplication::processEvents();
    };
    gira(f->anteprima->widget());
    EXPECT_EQ(f->anteprima->ingrandimento(), 75);
    EXPECT_NEAR(platform::scala(f.get()), prima, 0.01);
    gira(f->lblconto);
    EXPECT_EQ(f->anteprima->ingrandimento(), 75);
    EXPECT_NEAR(platform::scala(f.get()), 0.9, 0.001);
    premi(Qt::Key_2, Qt::ControlModifier);
    EXPECT_TRUE(f->anteprima->foglio_intero());
}

TEST_F(FinestraSchedine, LAnteprimaMostraLaPagina) {
    sviluppa("prova", 25);
    consegna("prova");
    apri();
    QTest::keyClick(f.get(), Qt::Key_1, Qt::ControlModifier);
    const QImage foglio = f->anteprima->widget()->grab().toImage();
    int scuri = 0;
    for (int y = 0; y < foglio.height(); ++y) {
        for (int x = 0; x < foglio.width(); ++x) scuri += qGray(foglio.pixel(x, y)) < 100 ? 1 : 0;
    }
    EXPECT_GT(scuri, 10000);
    EXPECT_GT(qGray(foglio.pixel(20, 20)), 250);
}

TEST_F(FinestraSchedine, FermataNonLasciaNulla) {
    sviluppa("prova", 4000);
    consegna("prova");
    std::ofstream(uscita) << "quello di prima";
    apri();
    QPointer<Finestra> finestra(f.get());
    std::function<void()> ferma = [&] {
        if (finestra->lavoro->isVisible()) {
            QTest::mouseClick(finestra->cmdferma, Qt::LeftButton);
        } else {
            QTimer::singleShot(0, qApp, ferma);
        }
    };
    QTimer::singleShot(0, qApp, ferma);
    clic(f->cmdpdf);
    EXPECT_EQ(messaggi.last(),
              "La stampa è stata fermata: il PDF non è stato scritto.\n\nIl PDF di prima è rimasto "
              "com'era.");
    EXPECT_EQ(platform::leggi_tutto(uscita), "quello di prima");
    EXPECT_FALSE(f->lavoro->isVisible());
    EXPECT_TRUE(platform::Dir(cartella.radice(), "temp*").empty());
}

TEST_F(FinestraSchedine, SullaCartaSiRiprendeDaDoveSiEFermata) {
    sviluppa("prova", 4000);
    consegna("prova");
    int documenti = 0;
    platform::scrivania().stampante = [this, &documenti] {
        auto carta = std::make_unique<QPrinter>(QPrinter::HighResolution);
        carta->setOutputFormat(QPrinter::PdfFormat);
        carta->setOutputFileName(q(cartella.radice() + "/carta" + std::to_string(++documenti)));
        return carta;
    };
    apri();
    ASSERT_EQ(f->lblpagine->text(), "di 160");
    QPointer<Finestra> finestra(f.get());
    // One asking tells that there is a printer; the second document begins with the third.
    std::function<void()> ferma = [&] {
        if (documenti >= 3) {
            QTest::mouseClick(finestra->cmdferma, Qt::LeftButton);
        } else {
            QTimer::singleShot(0, qApp, ferma);
        }
    };
    QTimer::singleShot(0, qApp, ferma);
    clic(f->cmdstampa);
    EXPECT_EQ(support::pagine(cartella.radice() + "/carta2"), 100);
    EXPECT_EQ(f->txtdalla[0]->text(), "501");
    EXPECT_EQ(f->txtdalla[1]->text(), "800");
    EXPECT_EQ(messaggi.last(),
              "La stampa è stata fermata.\n\nAlla stampante sono andate le schedine fino alla 500: "
              "si può riprendere dalla schedina 501.");
}

TEST_F(FinestraSchedine, IlTestoHaUnaSchedinaPerRiga) {
    sviluppa("prova", 6);
    consegna("prova");
    uscita = cartella.radice() + "/uscita.txt";
    apri();
    clic(f->cmdtesto);
    const std::string testo = platform::leggi_tutto(uscita).value_or("");
    EXPECT_EQ(std::count(testo.begin(), testo.end(), '\n'), 2);
    EXPECT_TRUE(testo.starts_with("1;01 16 31 46 61 76;02 16"));
}

TEST_F(FinestraSchedine, DoveNonSiScriveLoDice) {
    sviluppa("prova", 6);
    consegna("prova");
    uscita = cartella.radice() + "/manca/uscita.pdf";
    apri();
    clic(f->cmdpdf);
    EXPECT_EQ(messaggi.last(), "Le schedine non sono state scritte.\n\n" +
                                   platform::da_mostrare(q(uscita)) + "\nla cartella non esiste.");
}

TEST_F(FinestraSchedine, ElaboratoDiNuovoSiRilegge) {
    sviluppa("prova", 6);
    consegna("prova");
    apri();
    sviluppa("prova", 60);
    clic(f->cmdpdf);
    EXPECT_EQ(messaggi.last(),
              "Il sistema è stato elaborato di nuovo: controllate le schedine e riprovate.");
    EXPECT_FALSE(std::filesystem::exists(uscita));
    EXPECT_EQ(f->lblsistema->text(), "60 combinazioni in 12 schedine");
    clic(f->cmdpdf);
    EXPECT_TRUE(std::filesystem::exists(uscita));
}

TEST_F(FinestraSchedine, ElaboratoDiNuovoConTanteCombinazioniSiRilegge) {
    cartella.scrivi("prova.col", "1,2,3,4,5,6\r\n1,2,3,4,5,7\r\n");
    cartella.scrivi("prova.sen", "x");
    consegna("prova");
    apri();
    cartella.scrivi("prova.col", "1,2,3,4,5,6\r\n1,2,3,4,5,8\r\n");
    clic(f->cmdpdf);
    EXPECT_EQ(messaggi.last(),
              "Il sistema è stato elaborato di nuovo: controllate le schedine e riprovate.");
    EXPECT_FALSE(std::filesystem::exists(uscita));
    clic(f->cmdpdf);
    EXPECT_TRUE(std::filesystem::exists(uscita));
}

TEST_F(FinestraSchedine, ColDatGuastoSiDice) {
    sviluppa("prova", 6);
    cartella.scrivi("col.dat", "\"0\"\r\n");
    consegna("prova");
    apri();
    EXPECT_TRUE(f->lblsistema->text().contains("col.dat"));
    EXPECT_TRUE(f->cmdpdf->isEnabled());
}
