#include "app/spazio.h"

#include "app/form1.h"
#include "crossword/tabellone.h"
#include "platform/qt/scala.h"
#include "statistics/riga_archivio.h"

namespace app {

using platform::ancora;
using platform::Scala;

namespace {

/// Room, in pixels at 100 %, from which a crossword beside or below the others is the larger one.
constexpr int soglia_a_lato = 300;
constexpr int soglia_sotto = 440;

constexpr int a_sinistra = Scala::sta_a_sinistra | Scala::sta_in_alto;

}  // namespace

Spazio::Spazio(Form1& form, QWidget& piede) : QObject(&form), cruciverba_(form.Frame1) {
    raccogli(form, piede);
    new crossword::Tabellone(form.CMDnum);
    scala_ = platform::rendi_scalabile(&form);
    connect(scala_, &Scala::dispone, this, &Spazio::aggiorna);
    aggiorna();
}

void Spazio::raccogli(Form1& form, QWidget& piede) {
    const auto posto = [this](QWidget* chi, int come_detto, QRect altrove, int come) {
        posti_.push_back({chi, chi->geometry(), come_detto, altrove, come});
        ancora({chi}, come_detto);
    };
    // Board, games and lists share the height of the crossword and of the games as they are told.
    const int alto = form.Frame3->y();
    const int fondo = form.Frame9->geometry().bottom() + 1;
    const int sinistra = form.Frame3->x();
    const int passo = sinistra;
    const int h = fondo - alto;
    const QRect lista = form.Frame5->geometry();
    constexpr int largo_tabellone = 360;
    const int x = sinistra + largo_tabellone + passo;
    const int largo = lista.x() - passo - x;
    const int terzo = (h - 2 * passo) / 3;
    const auto riga = [&](int quale) {
        return QRect(x, alto + quale * (terzo + passo), largo, terzo);
    };
    posto(form.Frame3, a_sinistra | Scala::alza, {sinistra, alto, largo_tabellone, h}, a_sinistra);
    posto(form.Frame5, Scala::segue_destra | Scala::alza, {lista.x(), alto, lista.width(), h},
          a_sinistra);
    posto(form.Frame9, Scala::allarga | Scala::segue_fondo, riga(0), a_sinistra);
    const int forma = form.Frame8->width();
    posto(form.Frame4, Scala::segue_destra | Scala::segue_fondo, riga(1), a_sinistra);
    posto(form.Frame8, Scala::segue_destra | Scala::segue_fondo,
          {x + largo - forma, riga(1).y(), forma, terzo}, a_sinistra);
    posto(form.Frame7, Scala::segue_destra | Scala::segue_fondo, riga(2), a_sinistra);
    for (QWidget* w : {form.Frame2, form.Frame6}) {
        posto(w, Scala::allarga | Scala::segue_fondo, w->geometry(),
              Scala::sta_a_sinistra | Scala::segue_fondo);
        for (QWidget* dentro : w->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            ancora({dentro}, Scala::in_proporzione);
        }
    }
    ancora({form.Picture2}, Scala::allarga | Scala::sta_in_alto);
    ancora({cruciverba_}, Scala::allarga | Scala::alza);
    ancora({form.ProgressBar1, &piede}, Scala::allarga | Scala::segue_fondo);
    ancora({form.Image3[8]}, Scala::segue_destra);
    ancora({form.cmdstat}, Scala::allarga);
    ancora({form.Frame7->findChild<statistics::RigaArchivio*>("archivio")}, Scala::allarga);
    // It begins where the others end, and ends as far from the edge as they do.
    const QRect riepilogo = form.Frame2->geometry();
    a_lato_ = QRect(riepilogo.right() + 1 + passo, alto, -passo,
                    form.Frame6->geometry().bottom() + 1 - alto);
    sotto_ = QRect(sinistra, riepilogo.y(), riepilogo.width(), -passo);
    detto_ = form.Frame1->geometry();
}

void Spazio::aggiorna() {
    const QSize resto = scala_->resto();
    const Vista vista = resto.width() >= soglia_a_lato   ? Vista::a_lato
                        : resto.height() >= soglia_sotto ? Vista::sotto
                                                         : Vista::detta;
    if (vista == vista_) return;
    vista_ = vista;
    disponi(vista);
}

void Spazio::disponi(Vista vista) {
    for (const Posto& p : posti_) {
        if (vista == Vista::detta) {
            scala_->colloca(p.chi, p.detto, p.come_detto);
        } else {
            scala_->colloca(p.chi, p.altrove, p.come);
        }
    }
    const QRect suo = vista == Vista::detta ? detto_ : vista == Vista::a_lato ? a_lato_ : sotto_;
    scala_->colloca(cruciverba_, suo, Scala::allarga | Scala::alza);
}

}  // namespace app
