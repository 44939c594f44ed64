// Every window of the program in every state that a player brings it to.
#pragma once

#include <functional>
#include <string>

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

#include "analysis/frmanalisi.h"
#include "analysis/frmmigliora.h"
#include "analysis/frmtabelle.h"
#include "archivio/finestra.h"
#include "check/frmspoglio.h"
#include "help/frmAbout.h"
#include "platform/qt/folder.h"
#include "platform/qt/scrivania.h"
#include "printing/frmstsvl.h"
#include "stampa/editor.h"
#include "stampa/finestra.h"
#include "support/programma.h"
#include "viewer/form3.h"
#include "viewer/formeuro.h"
#include "viewer/frmcerca.h"
#include "viewer/strumenti.h"

namespace support {

/// The visible window of a kind, null when there is none.
template <typename Finestra>
Finestra* aperta() {
    for (QWidget* w : QApplication::topLevelWidgets()) {
        auto* f = qobject_cast<Finestra*>(w);
        if (f != nullptr && f->isVisible()) return f;
    }
    return nullptr;
}

/// Looks at a window that has the keyboard; `nome` tells which, and in what state.
using Sguardo = std::function<void(QWidget& finestra, const std::string& nome)>;

class FinestreAperte {
public:
    FinestreAperte(Programma& p, Sguardo sguardo) : p_(p), sguardo_(std::move(sguardo)) {}

    void tutte() {
        for (const bool lotto : {false, true}) {
            gioco_ = lotto ? " in Lotto" : " in SuperEnalotto";
            if (lotto) Programma::clic(p_.form1.Image10);
            guarda(p_.form1, "Form1");
            gestore_in_salvataggio();
            p_.comando(1);
            p_.mostrati();
            p_.cella(2, 3);
            guarda(p_.form1, "Form1 con un sistema");
            gestore();
            visualizzatore();
            stampa();
            importo();
            tabelle();
            informazioni();
            analisi();
            spoglio();
            importatore();
            schedine();
        }
    }

private:
    void guarda(QWidget& f, const std::string& nome) {
        f.activateWindow();
        QApplication::processEvents();
        sguardo_(f, nome + gioco_);
    }
    void gestore_in_salvataggio() {
        p_.riempi();
        p_.nel_gestore([this](systems::Form2& f) {
            guarda(f, "Form2 in salvataggio");
            QTest::keyClicks(f.Text1, "prova");
            Programma::clic(f.cmdsalva);
        });
        Programma::voce(p_.form1.mnusalva);
        ASSERT_EQ(p_.form1.Tag(), "prova");
    }
    void gestore() {
        Programma::voce(p_.form1.mnuapri);
        guarda(*aperta<systems::Form2>(), "Form2 in apertura");
        Programma::voce(p_.form1.mnugest_sist);
        auto* f = aperta<systems::Form2>();
        f->ListView1->setCurrentItem(f->ListView1->topLevelItem(0));
        guarda(*f, "Form2 in gestione");
        Programma::voce(f->mnuduplica);
        guarda(*f, "Form2 con la copia");
        Programma::clic(f->cmddup_annulla);
        const platform::Ripristina dialogo(
            platform::scrivania().sceglie_cartella,
            [](const QString&, const QString& inizio) { return inizio; });
        Programma::voce(f->mnuimporta);
        guarda(*f, "Form2 in importazione");
        f->close();
    }
    void visualizzatore() {
        p_.comando(2);
        auto* f = aperta<viewer::Form3>();
        ASSERT_NE(f, nullptr);
        guarda(*f, "Form3");
        Programma::clic(f->strumenti->cmdcerca);
        auto* cerca = aperta<viewer::frmcerca>();
        ASSERT_NE(cerca, nullptr);
        guarda(*cerca, "frmcerca");
        cerca->txtnumeri->setText(QString::number(p_.griglia()[0][0]));
        guarda(*cerca, "frmcerca con le combinazioni trovate");
        cerca->close();
        f->close();
    }
    void stampa() {
        p_.comando(7);
        auto* f = aperta<printing::frmstsvl>();
        ASSERT_NE(f, nullptr);
        guarda(*f, "frmstsvl");
        Programma::clic(f->Option1[1]);
        guarda(*f, "frmstsvl con una scelta");
        f->close();
    }
    void importo() {
        Programma::voce(p_.form1.mnuImportocolonna);
        guarda(*aperta<viewer::formeuro>(), "formeuro");
        aperta<viewer::formeuro>()->close();
    }
    void tabelle() {
        Programma::voce(p_.form1.mnutabelle);
        auto* f = aperta<analysis::frmtabelle>();
        ASSERT_NE(f, nullptr);
        guarda(*f, "frmtabelle");
        Programma::clic(f->cmdvincite);
        guarda(*f, "frmtabelle con le vincite");
        Programma::clic(f->CmdEsci);
    }
    void informazioni() {
        help::frmAbout f(p_.form1);
        f.show();
        guarda(f, "frmAbout");
    }
    void importatore() {
        importazione::Finestra f(p_.cartella.radice() + "/archivio/drawit.sqlite");
        f.setStyleSheet(p_.form1.styleSheet());
        f.show();
        guarda(f, "Archivio");
        QMimeData dati;
        dati.setUrls({QUrl::fromLocalFile("/nessuno.csv")});
        QDragEnterEvent entra({10, 10}, Qt::CopyAction, &dati, Qt::LeftButton, {});
        QApplication::sendEvent(&f, &entra);
        guarda(f, "Archivio con un file sopra");
        QDropEvent lascia({10, 10}, Qt::CopyAction, &dati, Qt::LeftButton, {});
        QApplication::sendEvent(&f, &lascia);
        ASSERT_FALSE(f.txtrapporto->document()->isEmpty());
        f.chksostituisci->setChecked(true);
        guarda(f, "Archivio con il rapporto");
    }
    void schedine() {
        ::schedine::Finestra f(p_.cartella.radice() + "/");
        f.setStyleSheet(p_.form1.styleSheet());
        f.show();
        guarda(f, "Stampa senza un sistema");
        f.cmbsistema->set_ListIndex(gioco_ == " in Lotto" ? 1 : 0);
        guarda(f, "Stampa");
        f.optgenere[1]->setChecked(true);
        guarda(f, "Stampa, l'elenco");
        f.optgenere[2]->setChecked(true);
        guarda(f, "Stampa, senza moduli");
        ::schedine::Editor e(p_.cartella.radice() + "/", {}, &f);
        e.setStyleSheet(p_.form1.styleSheet());
        e.show();
        guarda(e, "Modulo");
    }
    void analisi() {
        Programma::voce(p_.form1.mnuanalisi);
        auto* f = aperta<analysis::frmanalisi>();
        ASSERT_NE(f, nullptr);
        for (int i = 0; i < f->schede->count(); ++i) {
            f->schede->setCurrentIndex(i);
            guarda(*f, "frmanalisi, scheda " + std::to_string(i));
        }
        Programma::clic(f->cmdmigliora);
        auto* m = aperta<analysis::frmmigliora>();
        ASSERT_NE(m, nullptr);
        guarda(*m, "frmmigliora");
        m->close();
        Programma::clic(f->CmdEsci);
    }
    void spoglio() {
        p_.comando(6);
        auto* f = aperta<check::frmspoglio>();
        ASSERT_NE(f, nullptr);
        guarda(*f, "frmspoglio");
        // A played combination wins, so that the list has rows.
        const bool lotto = p_.form1.sessione.gioco().e_lotto();
        const auto numeri = p_.griglia();
        for (std::size_t i = 0; i < 5; ++i) {
            const QString n = QString::number(numeri[i][0]);
            f->txtnumlotto[i]->setText(n);
            f->txtnum[i + 1]->setText(n);
        }
        f->txtnum[6]->setText(QString::number(numeri.back()[0]));
        Programma::clic(f->Cmdspoglio);
        guarda(*f, "frmspoglio dopo lo spoglio");
        Programma::clic(lotto ? f->Cmdvincentilotto : f->Cmdvincenti);
        ASSERT_TRUE(f->ListView1->isVisible());
        guarda(*f, "frmspoglio con l'elenco");
        Programma::clic(f->CmdEsci);
    }

    Programma& p_;
    Sguardo sguardo_;
    std::string gioco_;
};

}  // namespace support
