#include "analysis/frmmigliora.h"

#include <thread>

#include <QElapsedTimer>
#include <QLayout>
#include <QPointer>

#include "analysis/confronto.h"
#include "app/finestra.h"
#include "platform/application.h"
#include "platform/qt/annuncio.h"
#include "platform/qt/desktop.h"

namespace analysis {

using platform::App;
using platform::q;

namespace {

/// Between two looks at the picture.
constexpr int passo_ms = 15;
constexpr int passi_barra = 1000;

/// Of a cell among all of them, row by row.
std::size_t posto(int riga, int colonna, int colonne) {
    return static_cast<std::size_t>(riga) * static_cast<std::size_t>(colonne) +
           static_cast<std::size_t>(colonna);
}

}  // namespace

int frmmigliora::punti() const {
    return scopo->ListIndex() + 2;
}

void frmmigliora::mostra_griglia() {
    const crossword::Matrice& m = trovata_ ? trovata_->matrice : sistema_.matrice;
    for (int y = 0; y < m.righe(); ++y) {
        for (int x = 0; x < m.colonne(); ++x) {
            const bool ferma = ferme_[posto(y, x, m.colonne())];
            const QString numero = QString::number(m(x, y));
            QTableWidgetItem* cella = griglia->item(y, x);
            cella->setText(ferma ? "[" + numero + "]" : numero);
            cella->setData(Qt::AccessibleTextRole, ferma ? numero + tr(", fermo") : numero);
        }
    }
}

void frmmigliora::cambia_ferma(int riga, int colonna) {
    if (al_lavoro_ || riga < 0 || colonna < 0) return;
    const std::size_t c = posto(riga, colonna, sistema_.matrice.colonne());
    ferme_[c] = !ferme_[c];
    mostra_griglia();
}

/// What was found for another aim is no start for this one.
void frmmigliora::dimentica() {
    trovata_.reset();
    cmdusa->setEnabled(false);
    confronto->hide();
    mostra_griglia();
    if (prima_) mostra_chance(prima_->almeno(punti()), 0);
}

RichiestaDisposizione frmmigliora::richiesta() const {
    constexpr std::array<double, 3> secondi{5, 30, 0};
    RichiestaDisposizione r;
    r.sistema = sistema_;
    if (trovata_) r.sistema.matrice = trovata_->matrice;
    r.ridotti = finestra_.sessione.ridotti();
    r.scopo = punti();
    r.ferme = ferme_;
    r.pareggia = chkpareggia->isChecked();
    if (classi_ && chkclassi->isChecked()) r.classi = *classi_;
    r.seme = seme_;
    r.secondi = secondi[static_cast<std::size_t>(tempo->ListIndex())];
    r.esecutori = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
    return r;
}

void frmmigliora::occupato(bool si) {
    al_lavoro_ = si;
    for (QWidget* w : std::initializer_list<QWidget*>{scopo, tempo, chkpareggia, chkclassi, griglia,
                                                      cmdcerca, CmdEsci}) {
        w->setEnabled(!si);
    }
    cmdferma->setEnabled(si);
    cmdusa->setEnabled(!si && trovata_);
    ProgressBar1->setVisible(si);
    (si ? cmdferma : trovata_ ? cmdusa : cmdcerca)->setFocus();
}

void frmmigliora::mostra_chance(double prima, double migliore) {
    mostrata_ = migliore;
    QList<Grafico::Voce> voci{{tr("adesso"), prima, q(percento(prima, 1))}};
    if (migliore > 0) voci << Grafico::Voce{tr("nuova"), migliore, q(percento(migliore, 1))};
    grafico->mostra(tr("Estrazioni con una vincita, su cento"), voci);
    grafico->show();
}

void frmmigliora::mostra_andamento(const Andamento& a) {
    if (a.conteggio && ordine_ == Ordine::basta) {
        platform::annuncia(lblstato, tr("Fermata: si contano le estrazioni della migliore."));
    }
    // Without an end there is no part of it.
    ProgressBar1->setRange(0, a.parte > 0 ? passi_barra : 0);
    ProgressBar1->setValue(static_cast<int>(a.parte * passi_barra));
    if (a.prima == 0 || mostrata_ == a.migliore) return;
    mostra_chance(prima_ ? prima_->almeno(punti()) : a.prima, a.migliore);
}

void frmmigliora::cerca() {
    if (al_lavoro_) return;
    ordine_ = Ordine::continua;
    ++seme_;
    mostrata_ = -1;
    platform::annuncia(lblstato, tr("Ricerca in corso: le estrazioni si contano tutte."));
    occupato(true);
    const RichiestaDisposizione r = richiesta();
    const QPointer<frmmigliora> ancora(this);
    Disposizione d;
    {
        const platform::LavoroLungo lavoro(cmdferma);
        QElapsedTimer ultima;
        ultima.start();
        // Events run inside may close the main form, and this one with it.
        d = disponi(r, [&](const Andamento& a) {
            if (ancora && ultima.elapsed() >= passo_ms) {
                ancora->mostra_andamento(a);
                platform::DoEvents();
                ultima.restart();
            }
            return ancora ? ancora->ordine_ : Ordine::annulla;
        });
    }
    if (!ancora) return;
    accogli(std::move(d));
    occupato(false);
    if (chiusura_chiesta_) close();
}

void frmmigliora::accogli(Disposizione&& d) {
    const crossword::Gioco gioco = sistema_.gioco;
    const bool contate = d.esito == Disposta::migliorata || d.esito == Disposta::uguale;
    if (contate && !prima_) prima_ = d.prima;
    // A search that goes on from a better layout is held against the crossword all the same.
    if (contate) d.prima = *prima_;
    const bool migliore = d.esito == Disposta::migliorata;
    const Disposizione& detta = contate && !migliore && trovata_ ? *trovata_ : d;
    platform::annuncia(lblstato, q(frase_disposta(detta, gioco, punti())) + ".");
    if (migliore) trovata_ = std::move(d);
    if (!trovata_) return;
    const Costo costo{prezzo_in_euro(App().Path), finestra_.sessione.con_ripetizioni()};
    confronto->mostra(tavola_confronto(*prima_, trovata_->dopo, gioco, punti(), costo));
    confronto->show();
    mostra_chance(prima_->almeno(punti()), trovata_->dopo.almeno(punti()));
    mostra_griglia();
    // Sentences take the more lines the narrower they are, which no window asks for by itself.
    layout()->activate();
    resize(width(), qMax(height(), layout()->totalHeightForWidth(width())));
    platform::tieni_sullo_schermo(this);
}

void frmmigliora::usa() {
    if (al_lavoro_ || !trovata_ || !finestra_.sessione.disponi(trovata_->matrice)) return;
    finestra_.mostra_analisi(q(frase_disposta(*trovata_, sistema_.gioco, punti())) +
                             tr(". Ctrl+Z: come prima"));
    auto* analisi = qobject_cast<frmanalisi*>(parentWidget());
    close();
    // What is analysed behind this is the old layout.
    if (analisi != nullptr) analisi->close();
}

}  // namespace analysis
