// The player at the windows over the main form.
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include "platform/qt/desktop.h"
#include "soak/giocatore.h"

namespace soak {

void Giocatore::gioca_gestore(systems::Form2& f) {
    const auto lista = [this, &f] {
        platform::ListView* l = f.ListView1;
        if (l->topLevelItemCount() == 0) return;
        QTreeWidgetItem* item = l->topLevelItem(sorte_.sotto(l->topLevelItemCount()));
        QTest::mouseClick(l->viewport(), Qt::LeftButton, {}, l->visualItemRect(item).center());
    };
    esegui({
        {6, " scegli un sistema", lista},
        {6, " pulsante", [this, &f] { premi_un_pulsante(f); }},
        {8, " menu", [this, &f] { voce_gestore(f); }},
        {3, " apri",
         [this, &f, lista] {
             lista();
             clic(f.Command5);
         }},
        {2, " intestazione", [this, &f] { Q_EMIT f.ListView1->ColumnClick(sorte_.sotto(3)); }},
        {2, " scheda",
         [this, &f] {
             const int quale = sorte_.sotto(f.TabStrip1->count());
             QTest::mouseClick(f.TabStrip1, Qt::LeftButton, {},
                               f.TabStrip1->tabRect(quale).center());
         }},
        {1, " copia",
         [this, &f] {
             if (!f.txtduplica->isVisible()) return;
             QTest::keyClicks(f.txtduplica, nome());
             clic(f.cmddup_conferma);
         }},
        {1, " invio", [&f] { QTest::keyClick(&f, Qt::Key_Return); }},
        {1, " esc", [&f] { QTest::keyClick(&f, Qt::Key_Escape); }},
        {1, " chiudi", [&f] { f.close(); }},
    });
}

void Giocatore::voce_gestore(systems::Form2& f) {
    // The disabled list gives no menu.
    if (!f.ListView1->isEnabled()) return;
    const std::array<QAction*, 9> voci = {f.mnuduplica, f.mnuduplica, f.mnurinomina,
                                          f.mnuinvia,   f.mnuinvia,   f.mnuimporta,
                                          f.mnuimporta, f.mnuelimina, f.mnueliminatutti};
    QAction* scelta = sorte_.uno(voci);
    if (scelta == f.mnueliminatutti && !sorte_.una_su(3)) scelta = f.mnuduplica;
    if (scelta == f.mnurinomina) {
        rinomina(f);
        return;
    }
    if (scelta == f.mnuinvia) clessidra_ammessa_ = true;
    if (scelta == f.mnuimporta) estraneo_ = true;
    const QPointer<systems::Form2> ancora(&f);
    voce(scelta);
    QApplication::processEvents();
    if (ancora && scelta == f.mnuduplica && f.txtduplica->isVisible()) {
        QTest::keyClicks(f.txtduplica, nome());
        premi_un_pulsante(*f.picduplica);
    }
}

void Giocatore::rinomina(systems::Form2& f) {
    f.mnurinomina->trigger();
    QApplication::processEvents();
    auto* editore = f.ListView1->viewport()->findChild<QLineEdit*>();
    if (editore == nullptr) return;
    const QString nuovo = nome();
    annota("   rinomina " + nuovo);
    editore->selectAll();
    editore->insert(nuovo);
    QTest::keyClick(editore, sorte_.una_su(4) ? Qt::Key_Escape : Qt::Key_Return);
    QApplication::processEvents();
}

void Giocatore::gioca_visualizzatore(viewer::Form3& f) {
    const auto tasto = [&f](Qt::Key quale) { return [&f, quale] { QTest::keyClick(&f, quale); }; };
    esegui({
        {4, " avanti", tasto(Qt::Key_PageDown)},
        {2, " indietro", tasto(Qt::Key_PageUp)},
        {1, " inizio", tasto(Qt::Key_Home)},
        {1, " fine", tasto(Qt::Key_End)},
        {3, " barra",
         [this, &f] {
             QTest::mouseClick(f.HScroll1, Qt::LeftButton, {},
                               {sorte_.sotto(f.HScroll1->width()), 9});
         }},
        {1, " esci", [this, &f] { clic(f.Command1); }},
        {1, " esc", tasto(Qt::Key_Escape)},
        {1, " chiudi", [&f] { f.close(); }},
    });
}

void Giocatore::gioca_spoglio(check::frmspoglio& f) {
    const bool lotto = form1_->sessione.gioco().e_lotto();
    const auto casella = [this, &f, lotto] {
        QLineEdit* t = lotto ? sorte_.uno(f.txtnumlotto) : sorte_.uno(f.txtnum);
        if (!t->isVisible()) return;
        t->clear();
        QTest::keyClicks(t, sorte_.uno(QStringList{"07", "12", "33", "90", "5", "xx", "", "45"}));
    };
    const auto elenco = [this, &f, lotto] {
        platform::ComboBox* c = lotto ? f.Combo3 : f.Combo1;
        if (!c->isVisible()) return;
        for (int i = sorte_.sotto(5); i >= 0; --i) QTest::keyClick(c, Qt::Key_Down);
    };
    esegui({
        {5, " casella", casella},
        {4, " estrazione", elenco},
        {6, " spoglio", [this, &f] { clic(f.Cmdspoglio); }},
        {5, " dettaglio", [this, &f, lotto] { clic(lotto ? f.Cmdvincentilotto : f.Cmdvincenti); }},
        {8, " pulsante", [this, &f] { premi_un_pulsante(f); }},
        {2, " pannelli", [this, &f] { QTest::keyClick(f.Combo2, Qt::Key_Up); }},
        {1, " tab", [&f] { QTest::keyClick(&f, Qt::Key_Tab); }},
        {1, " esc", [&f] { QTest::keyClick(&f, Qt::Key_Escape); }},
        {1, " chiudi", [&f] { f.close(); }},
    });
}

void Giocatore::gioca_stampa(printing::frmstsvl& f) {
    esegui({
        {4, " opzione", [this, &f] { clic(sorte_.uno(f.Option1)); }},
        {3, " intervallo",
         [this, &f] {
             QLineEdit* t = sorte_.uno(f.txtdalla);
             t->setFocus();
             t->clear();
             QTest::keyClicks(t, sorte_.uno(QStringList{"0", "1", "7x", "99999", ""}));
         }},
        {8, " pulsante",
         [this, &f] {
             if (!troppo_grande()) premi_un_pulsante(f);
         }},
        {1, " esc", [&f] { QTest::keyClick(&f, Qt::Key_Escape); }},
    });
}

void Giocatore::gioca_importo(viewer::formeuro& f) {
    esegui({
        {4, " importo",
         [this, &f] {
             f.Text1->clear();
             QTest::keyClicks(f.Text1, sorte_.uno(QStringList{"1,00", "0,5", ",,5", "3", "", "x"}));
         }},
        {6, " pulsante", [this, &f] { premi_un_pulsante(f); }},
        {1, " esc", [&f] { QTest::keyClick(&f, Qt::Key_Escape); }},
    });
}

void Giocatore::gioca_analisi(analysis::frmanalisi& f) {
    const auto scheda = [this, &f] {
        const int quale = sorte_.sotto(f.schede->count());
        QTest::mouseClick(f.schede, Qt::LeftButton, {}, f.schede->tabRect(quale).center());
    };
    const auto premio = [this, &f] {
        QLineEdit* t = sorte_.uno(f.txtpremio);
        if (!t->isVisible()) return;
        t->setFocus();
        t->clear();
        QTest::keyClicks(t, sorte_.uno(QStringList{"100", "1.000,50", "0", "x", "-3", ""}));
        QTest::keyClick(t, Qt::Key_Return);
    };
    esegui({
        {5, " scheda", scheda},
        {3, " premio", premio},
        {2, " ruota",
         [this, &f] {
             if (f.Combo1 != nullptr) scegli(f.Combo1, 11);
         }},
        {6, " pulsante", [this, &f] { premi_un_pulsante(f); }},
        {1, " invio", [&f] { QTest::keyClick(&f, Qt::Key_Return); }},
        {1, " esc", [&f] { QTest::keyClick(&f, Qt::Key_Escape); }},
        {1, " chiudi", [&f] { f.close(); }},
    });
}

void Giocatore::gioca_tabelle(analysis::frmtabelle& f) {
    const auto riga = [this, &f] {
        QTableWidget* g = f.catalogo->griglia;
        if (g->rowCount() == 0) return;
        const QModelIndex i = g->model()->index(sorte_.sotto(g->rowCount()), 0);
        g->scrollTo(i);
        QTest::mouseClick(g->viewport(), Qt::LeftButton, {}, g->visualRect(i).center());
    };
    esegui({
        {3, " gioco", [this, &f] { scegli(f.gioco, 4); }},
        {3, " numeri", [this, &f] { scegli(f.numeri, 4); }},
        {4, " riga", riga},
        {6, " pulsante", [this, &f] { premi_un_pulsante(f); }},
        {1, " esc", [&f] { QTest::keyClick(&f, Qt::Key_Escape); }},
        {1, " chiudi", [&f] { f.close(); }},
    });
}

void Giocatore::gioca_box(QMessageBox& box) {
    // Escape answers the others.
    if (!sorte_.una_su(4)) clic(sorte_.uno(box.buttons()));
}

void Giocatore::gioca_migliora(analysis::frmmigliora& f) {
    const QPointer<analysis::frmmigliora> ancora(&f);
    for (int i = sorte_.sotto(4); i >= 0 && ancora && ancora->isVisible(); --i) {
        esegui({
            {3, "   modale: scopo", [this, &f] { scegli(f.scopo, 4); }},
            {3, "   modale: ferma un numero",
             [this, &f] {
                 const QModelIndex c = f.griglia->model()->index(
                     sorte_.sotto(f.griglia->rowCount()), sorte_.sotto(f.griglia->columnCount()));
                 QTest::mouseClick(f.griglia->viewport(), Qt::LeftButton, {},
                                   f.griglia->visualRect(c).center());
             }},
            {2, "   modale: pareggia", [this, &f] { clic(f.chkpareggia); }},
        });
    }
}

void Giocatore::gioca_cerca(analysis::frmcercatabella& f) {
    scegli(f.estratti, 5);
    scegli(f.indovinati, 5);
    if (sorte_.una_su(3)) f.colonne->setValue(sorte_.sotto(30));
    if (sorte_.una_su(2)) return;
    annota("   modale: cerca e ferma");
    // How far it comes is the machine's affair, so nothing is adopted of it.
    QTimer::singleShot(0, f.cmdferma,
                       [ferma = f.cmdferma] { QTest::mouseClick(ferma, Qt::LeftButton); });
    clic(f.cmdcerca);
    if (!f.CmdEsci->isEnabled() || f.ProgressBar1->isVisible()) {
        boxes_inattesi_ << "una ricerca che non finisce";
    }
}

}  // namespace soak
