// The player at the main form.
#include <filesystem>
#include <fstream>

#include <QAbstractItemView>
#include <QTest>

#include "platform/qt/desktop.h"
#include "platform/runtime.h"
#include "soak/giocatore.h"

namespace soak {

void Giocatore::gioca_form1() {
    form1_->activateWindow();
    std::vector<Scelta> scelte = scelte_numeri();
    for (const auto& altre : {scelte_scelte(), scelte_comandi()}) {
        scelte.insert(scelte.end(), altre.begin(), altre.end());
    }
    esegui(scelte);
}

std::vector<Giocatore::Scelta> Giocatore::scelte_numeri() {
    return {
        {24, " numero", [this] { numero(); }},
        {8, " cella", [this] { cella(); }},
        {8, " digita", [this] { digita(); }},
        {6, " riempi", [this] { riempi(); }},
        {3, " canc", [this] { QTest::keyClick(form1_.get(), Qt::Key_Delete); }},
        {6, " annulla", [this] { va_e_viene(Qt::Key_Z, Qt::Key_Y); }},
        {4, " ripeti", [this] { va_e_viene(Qt::Key_Y, Qt::Key_Z); }},
        {3, " freccia",
         [this] {
             QTest::keyClick(form1_->MSFlexGrid1,
                             sorte_.uno(QList<Qt::Key>{Qt::Key_Left, Qt::Key_Right, Qt::Key_Up,
                                                       Qt::Key_Down, Qt::Key_End}));
         }},
        {3, " lista", [this] { lista(); }},
    };
}

std::vector<Giocatore::Scelta> Giocatore::scelte_scelte() {
    const int sempre_piccoli = sorte_.una_su(12) ? 10 : 3;
    return {
        {2, " colonne", [this, sempre_piccoli] { scegli(form1_->Combo1, sempre_piccoli); }},
        {2, " righe", [this, sempre_piccoli] { scegli(form1_->Combo2, sempre_piccoli); }},
        {3, " tipo righe", [this] { scegli(form1_->Combo3, 8); }},
        {3, " tipo colonne", [this] { scegli(form1_->Combo4, 8); }},
        {2, " tipo diagonali", [this] { scegli(form1_->Combo5, 8); }},
        {1, " ruota", [this] { scegli(form1_->Combo6, 11); }},
        {3, " quote", [this] { quote(); }},
        {3, " gioco", [this] { gioco(); }},
        {2, " tab", [this] { QTest::keyClick(form1_.get(), Qt::Key_Tab); }},
    };
}

std::vector<Giocatore::Scelta> Giocatore::scelte_comandi() {
    return {
        {10, " genera",
         [this] {
             clic(form1_->sessione.gioco().e_lotto() && sorte_.una_su(2) ? form1_->cmdstat2
                                                                         : form1_->cmdstat);
         }},
        {24, " comando",
         [this] {
             comando(sorte_.uno(std::array{0, 1, 1, 2, 2, 3, 4, 5, 6, 6, 7, 7}));
         }},
        {1, " esci", [this] { comando(8); }},
        {12, " menu", [this] { menu(); }},
        {4, " scorciatoia", [this] { scorciatoia(); }},
        {2, " file", [this] { guasta_un_file(); }},
        {1, " chiudi", [this] { form1_->close(); }},
    };
}

void Giocatore::va_e_viene(Qt::Key va, Qt::Key viene) {
    // A step alone seldom comes where there is one to take back.
    for (int i = sorte_.sotto(4); i >= 0; --i) {
        QTest::keyClick(form1_.get(), sorte_.una_su(3) ? viene : va, Qt::ControlModifier);
    }
}

void Giocatore::numero() {
    // Mostly one that the board offers, now and then whatever comes.
    std::vector<int> offerti;
    for (int i = 1; i <= 90; ++i) {
        if (form1_->CMDnum[static_cast<std::size_t>(i)]->isEnabled()) offerti.push_back(i);
    }
    const bool qualunque = offerti.empty() || sorte_.una_su(4);
    const int n = qualunque ? 1 + sorte_.sotto(90) : sorte_.uno(offerti);
    annota(QStringLiteral("   %1").arg(n));
    clic(form1_->CMDnum[static_cast<std::size_t>(n)]);
}

void Giocatore::cella() {
    platform::MSFlexGrid* g = form1_->MSFlexGrid1;
    const int r = sorte_.sotto(g->Rows());
    const int c = sorte_.sotto(g->Cols());
    annota(QStringLiteral("   %1,%2").arg(r).arg(c));
    const QModelIndex i = g->model()->index(r, c);
    g->scrollTo(i);
    QTest::mouseClick(g->viewport(), Qt::LeftButton, {}, g->visualRect(i).center());
}

void Giocatore::digita() {
    const QString tasti = sorte_.una_su(5) ? sorte_.uno(QStringList{"0", "00", "99", "a7", "x"})
                                           : QString::number(1 + sorte_.sotto(90));
    annota("   " + tasti);
    form1_->MSFlexGrid1->setFocus();
    QTest::keyClicks(form1_->MSFlexGrid1, tasti);
    QTest::keyClick(form1_->MSFlexGrid1, sorte_.una_su(6) ? Qt::Key_Escape : Qt::Key_Return);
}

void Giocatore::riempi() {
    if (form1_->sessione.colonne() * form1_->sessione.righe() > 64) return;
    for (int r = 0; r < form1_->sessione.righe(); ++r) {
        for (int c = 0; c < form1_->sessione.colonne(); ++c) {
            if (form1_->sessione.matrice()(c, r) != 0) continue;
            platform::MSFlexGrid* g = form1_->MSFlexGrid1;
            const QModelIndex i = g->model()->index(r, c);
            g->scrollTo(i);
            QTest::mouseClick(g->viewport(), Qt::LeftButton, {}, g->visualRect(i).center());
            int n = sorte_.sotto(90);
            for (int passo = 0; passo < 90; ++passo, n = (n + 1) % 90) {
                QPushButton* numero = form1_->CMDnum[static_cast<std::size_t>(n) + 1];
                if (!numero->isEnabled()) continue;
                clic(numero);
                break;
            }
        }
    }
}

void Giocatore::scegli(platform::ComboBox* combo, int voci) {
    if (!combo->isVisible()) return;
    const int indice = sorte_.sotto(voci);
    annota(QStringLiteral("   %1 %2").arg(combo->objectName()).arg(indice));
    if (!combo->isEnabled() || combo->count() == 0) {
        QTest::keyClick(combo, Qt::Key_Down);
        return;
    }
    if (sorte_.una_su(3)) {
        QTest::keyClick(combo, sorte_.una_su(2) ? Qt::Key_Down : Qt::Key_Up);
        return;
    }
    combo->showPopup();
    combo->view()->setCurrentIndex(combo->model()->index(qMin(indice, combo->count() - 1), 0));
    QTest::keyClick(combo->view(), Qt::Key_Return);
    QApplication::processEvents();
}

void Giocatore::comando(int quale) {
    annota(QStringLiteral("   %1").arg(quale));
    // A big development would only cost time; the way there is the same.
    if ((quale == 1 || quale == 2 || quale == 6) && troppo_grande()) return;
    if (quale == 5 && form1_->sessione.colonne() * form1_->sessione.righe() > 100) return;
    clic(form1_->Image3[static_cast<std::size_t>(quale)]);
}

void Giocatore::menu() {
    const app::Form1& f = *form1_;
    if (!troppo_grande() && sorte_.una_su(4)) {
        voce(sorte_.uno(std::array{f.mnuanalisi, f.mnuanalisi, f.mnutabelle, f.mnumigliora}));
        return;
    }
    const std::array<QAction*, 12> voci = {f.mnunuovo,
                                           f.mnuapri,
                                           f.mnuapri,
                                           f.mnusalva,
                                           f.mnusalvanome,
                                           f.mnugest_sist,
                                           f.mnuImportocolonna,
                                           f.mnuaiuto,
                                           f.mnuweb,
                                           f.mnuinfo,
                                           f.mnuRipetizioniSenza,
                                           f.mnuRipetizioniCon};
    voce(sorte_.una_su(40) ? f.mnuEsci : sorte_.uno(voci));
}

void Giocatore::scorciatoia() {
    if (troppo_grande()) return;
    const auto [tasto, con] = sorte_.uno(
        std::vector<std::pair<Qt::Key, Qt::KeyboardModifiers>>{{Qt::Key_F5, {}},
                                                               {Qt::Key_F6, {}},
                                                               {Qt::Key_F7, {}},
                                                               {Qt::Key_F8, {}},
                                                               {Qt::Key_S, Qt::ControlModifier},
                                                               {Qt::Key_O, Qt::ControlModifier}});
    annota(QStringLiteral("   %1").arg(QKeySequence(tasto).toString()));
    QTest::keyClick(form1_.get(), tasto, con);
}

void Giocatore::lista() {
    platform::ListBox* l = form1_->List1;
    if (l->count() == 0) return;
    QListWidgetItem* item = l->item(sorte_.sotto(l->count()));
    l->scrollToItem(item);
    QTest::mouseClick(l->viewport(), Qt::LeftButton, {}, l->visualItemRect(item).center());
}

void Giocatore::quote() {
    for (int i = sorte_.sotto(4); i >= 0; --i) {
        QTest::keyClick(form1_->UpDown2, sorte_.una_su(3) ? Qt::Key_Down : Qt::Key_Up);
    }
}

void Giocatore::gioco() {
    const app::Form1& f = *form1_;
    const std::array<platform::Image*, 10> immagini = {
        f.Image7,    f.Image8,    f.Image9,    f.Image10,   f.Imageb[0],
        f.Imageb[1], f.Imageb[2], f.Imagey[0], f.Imagey[1], f.Imagey[2]};
    platform::Image* scelta = sorte_.uno(immagini);
    annota("   " + scelta->objectName());
    clic(scelta);
}

void Giocatore::guasta_un_file() {
    const std::string nome = sorte_.uno(std::vector<std::string>{
        "a.sen", "b.sen", "a.sel", "a.col", "b.lot", "c1.col", "rotto.sen", "rotto.sel"});
    annota("   " + platform::q(nome));
    if (sorte_.una_su(2)) {
        std::filesystem::remove(cartella_.file(nome));
        return;
    }
    estraneo_ = true;
    cartella_.scrivi(
        nome, sorte_.uno(std::vector<std::string>{
                  "", "1,2,3\r\n", "x\"y,,\r\n1,2", "14,5,5,\"6\",0,0,0,0\r\n1,2,3,",
                  "9,6,5,\"2\",1,0,0,4,12\r\n7,8,9,200,11,-2,\r\n", std::string(300, '\xff')}));
}

}  // namespace soak
