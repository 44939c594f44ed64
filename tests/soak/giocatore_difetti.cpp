// What must be true of the idle program.
#include <set>

#include "crossword/linee.h"
#include "platform/qt/desktop.h"
#include "platform/runtime.h"
#include "soak/giocatore.h"
#include "viewer/importo.h"

namespace soak {

using platform::leggi_numero;
using platform::q;
using platform::s;

QStringList Giocatore::difetti() {
    QStringList difetti = std::exchange(boxes_inattesi_, {});
    controlla_finestre(difetti);
    controlla_cruciverba(difetti);
    // The form of a damaged system may be one that has no types, and then nothing is counted.
    const bool senza_tipi =
        form1_->sessione.gioco().e_lotto() &&
        (form1_->sessione.gioco().forma() < 3 || form1_->sessione.gioco().forma() > 5);
    if (!senza_tipi) {
        controlla_conteggi(difetti);
        controlla_importo(difetti);
    }
    return difetti;
}

void Giocatore::controlla_cruciverba(QStringList& difetti) {
    const app::Form1& f = *form1_;
    const crossword::Matrice& m = f.sessione.matrice();
    const platform::MSFlexGrid* g = f.MSFlexGrid1;
    if (platform::Tag(&f) != f.lblsistema->text()) difetti << "Form1.Tag e lblsistema";
    if (g->Cols() != f.sessione.colonne() || g->Rows() != f.sessione.righe())
        difetti << "griglia e dimensioni";
    // The crossword of a damaged system may have sizes that the grid cannot take.
    const bool altra_misura = m.colonne() != g->Cols() || m.righe() != g->Rows();
    if (altra_misura && !estraneo_) difetti << "griglia e matrice";
    std::set<int> diversi;
    for (int y = 0; y < m.righe(); ++y) {
        for (int x = 0; x < m.colonne(); ++x) {
            const int n = m(x, y);
            if (n >= 1 && n <= 90) diversi.insert(n);
            const QString testo = g->testo(y, x);
            if (!altra_misura && testo != (n == 0 ? QString() : QString::number(n))) {
                difetti
                    << QStringLiteral("casella %1,%2: \"%3\" e %4").arg(y).arg(x).arg(testo).arg(n);
            }
            if (!estraneo_ && n > 0 &&
                crossword::numeri_sulle_linee(m, y, x).test(static_cast<std::size_t>(n))) {
                difetti << QStringLiteral("%1 due volte su una linea").arg(n);
            }
        }
    }
    const QString quanti = f.lblngioco->text();
    const bool niente = diversi.empty() && quanti.isEmpty();
    if (!niente && quanti != QString::number(diversi.size())) {
        difetti << QStringLiteral("in gioco %1, diversi %2").arg(quanti).arg(diversi.size());
    }
    if (f.List1->count() != static_cast<int>(diversi.size())) difetti << "lista e numeri diversi";
    const std::bitset<91> vietati = crossword::numeri_sulle_linee(m, g->Row(), g->Col());
    for (std::size_t i = 1; i <= 90; ++i) {
        if (f.CMDnum[i]->isEnabled() == vietati.test(i)) {
            difetti << QStringLiteral("tabellone: %1 in %2,%3").arg(i).arg(g->Row()).arg(g->Col());
        }
        if (!f.CMDnum[i]->isVisibleTo(&f)) difetti << QStringLiteral("nascosto: %1").arg(i);
    }
}

void Giocatore::controlla_conteggi(QStringList& difetti) {
    const app::Form1& f = *form1_;
    const platform::MSFlexGrid* g = f.MSFlexGrid2;
    crossword::Matsis matsis;
    matsis.INIZIZLAIZZA_MATSIS(f.sessione.gioco());
    const bool quadrata = f.sessione.righe() == f.sessione.colonne();
    const int primo = f.sessione.gioco().e_lotto() ? 5 : 6;
    if (f.Combo5->isEnabled() != quadrata) difetti << "Combo5 e la forma della griglia";
    if (f.Combo1->count() != 16 - primo) difetti << "dimensioni del gioco";
    if (f.Frame8->isVisibleTo(&f) != f.sessione.gioco().e_lotto()) difetti << "Frame8 e il gioco";
    if (f.Frame10->isVisibleTo(f.Frame7) != f.sessione.gioco().e_lotto())
        difetti << "Frame10 e il gioco";
    const auto per_linea = [&matsis, primo](int n, const platform::ComboBox* tipo) {
        return matsis(n - primo, tipo->ListIndex()).value_or(0);
    };
    std::int32_t totale = f.sessione.righe() * per_linea(f.sessione.colonne(), f.Combo3) +
                          f.sessione.colonne() * per_linea(f.sessione.righe(), f.Combo4);
    if (quadrata && f.sessione.gioco().e_lotto())
        totale += per_linea(f.sessione.righe(), f.Combo5) * 2;
    if (quadrata && !f.sessione.gioco().e_lotto()) {
        totale +=
            crossword::combinazioni_diagonali(matsis, f.sessione.righe(), f.Combo5->ListIndex())
                .value_or(0);
    }
    if (leggi_numero(s(g->testo(4, 3))) != totale) {
        difetti << QStringLiteral("totale %1, contate %2").arg(g->testo(4, 3)).arg(totale);
    }
}

void Giocatore::controlla_importo(QStringList& difetti) {
    const app::Form1& f = *form1_;
    const platform::MSFlexGrid* g = f.MSFlexGrid2;
    const std::string prezzo =
        viewer::leggi_cst(cartella_.programma(), viewer::Lettore::calcolo_importo).prezzo;
    const std::string quote = s(f.lblnumquote->text());
    const QString mostrato = f.lblimportotot->text();
    const bool senza = !g->testo(5, 3).isEmpty();
    const auto atteso = [&](std::int32_t n) {
        return q(viewer::calcola_totale(n, prezzo, quote).formattato);
    };
    const std::int32_t quante = leggi_numero(s(g->testo(senza ? 5 : 4, 3)));
    // A system opened with no count of its own has the price of no columns.
    const bool zero = !senza && !f.Tag().isEmpty() && mostrato == atteso(0);
    if (mostrato != atteso(quante) && !zero) {
        difetti << QStringLiteral("importo %1 per %2").arg(mostrato).arg(quante);
    }
    const auto totale = viewer::calcola_totale(zero ? 0 : quante, prezzo, quote);
    const auto dal_testo = viewer::quota_da_testo(s(mostrato), quote);
    const QString quota = f.lblquote->text();
    if (quota != q(totale.quota.value_or("")) && quota != q(dal_testo.value_or(""))) {
        difetti << QStringLiteral("quota %1 di %2").arg(quota, mostrato);
    }
}

void Giocatore::controlla_finestre(QStringList& difetti) {
    if (QApplication::activeModalWidget() != nullptr) {
        difetti << "modale: " + QApplication::activeModalWidget()->objectName();
    }
    if (modali_ != 0) difetti << "una finestra modale mai giocata";
    if (QApplication::activePopupWidget() != nullptr) difetti << "un menu aperto";
    QStringList nomi;
    for (const QWidget* w : QApplication::topLevelWidgets()) {
        if (!w->isVisible() || w->windowType() == Qt::ToolTip) continue;
        nomi << w->objectName();
        QList<const QWidget*> suoi{w};
        for (const QWidget* figlio : w->findChildren<QWidget*>()) suoi << figlio;
        for (const QWidget* figlio : suoi) {
            if (!figlio->updatesEnabled()) difetti << "fermo: " + figlio->objectName();
        }
        if (!w->isEnabled()) difetti << "spenta: " + w->objectName();
    }
    if (nomi.removeDuplicates() > 0) difetti << "doppie: " + nomi.join(' ');
    const QStringList note{"Form1",    "Form2",    "Form3",      "frmspoglio",
                           "frmstsvl", "formeuro", "frmanalisi", "frmtabelle"};
    for (const QString& nome : nomi) {
        if (!note.contains(nome)) difetti << "finestra: " + nome;
    }
    if (nomi.contains("Form1") == nomi.contains("frmspoglio")) difetti << "Form1 e lo spoglio";
    if (form1_->ProgressBar1->isVisible()) difetti << "barra rimasta";
    if (const auto* f = aperta<analysis::frmanalisi>()) {
        if (f->ProgressBar1->isVisible() || f->cmdannulla->isVisible() || !f->CmdEsci->isEnabled())
            difetti << "un'analisi che non finisce";
    }
    if (platform::MousePointer() != 0 && clessidra_ammessa_) platform::MousePointer(0);
    clessidra_ammessa_ = false;
    if (platform::MousePointer() != 0 || QApplication::overrideCursor() != nullptr) {
        difetti << "puntatore";
    }
}

}  // namespace soak
