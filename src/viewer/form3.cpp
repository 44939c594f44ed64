#include "viewer/form3.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QShowEvent>
#include <QWheelEvent>

#include "app/finestra.h"
#include "platform/application.h"
#include "platform/qt/annuncio.h"
#include "platform/qt/desktop.h"
#include "platform/qt/pittura.h"
#include "platform/qt/scala.h"
#include "platform/runtime.h"
#include "systems/elenco.h"
#include "systems/file_sistema.h"
#include "viewer/strumenti.h"

namespace viewer {

using platform::App;
using platform::px;
using platform::q;
using platform::s;

namespace {

// One notch of a wheel, in the eighths of a degree that the events tell.
constexpr int scatto = 120;

}  // namespace

std::string Form3::file_sviluppo() const {
    const std::string nome = s(platform::Tag(this));
    return systems::nome_ammesso(nome) ? App().file(nome + gioco_.estensione_sviluppo()) : "";
}

void Form3::iniz() {
    generagriglie();
    platform::set_Tag(HScroll1, QString::number(HScroll1->value()));
    const std::string nome = s(platform::Tag(this));
    std::int32_t conteggio = 0;
    if (systems::nome_ammesso(nome)) {
        platform::assegna(conteggio, systems::leggi_conteggio(App().Path, nome, gioco_));
    }
    indicizzato_ = platform::impronta(file_sviluppo());
    pagine_ = pagine_di(conteggio);
    // A bar without a range would show the busy pattern.
    ProgressBar1->setRange(0, qMax(1, conteggio));
    platform::DoEvents();
    popola_griglia2();
    ProgressBar1->setRange(0, qMax(0, pagine_) + 2);
    HScroll1->setRange(1, qMax(1, pagine_));
    ProgressBar1->hide();
    pronto_ = true;
    {
        // The bar may stand on 1 already, and then it would not tell a change.
        const QSignalBlocker muto(HScroll1);
        HScroll1->setValue(1);
    }
    HScroll1_Change();
    HScroll1->setEnabled(true);
    const platform::FinestraFerma ferma(this);
    lblsistema->setText(platform::Tag(this));
    lblpag[0]->setText("1");
    lblpag[1]->setText(QString::number(pagine_));
    lbltot->setText(q(platform::Format(conteggio, platform::Modello::interi)));
    if (ListView1->topLevelItemCount() == 0) {
        ListView1->invita(tr("Nessuna combinazione da leggere: elaborate il sistema (F5)."));
    }
    Frame1->hide();
    Frame2->show();
    platform::misura_a_100(this, {px(9135), px(7600)});
    platform::centra(this, &finestra_);
    Command1->setFocus();
    platform::DoEvents();
}

void Form3::generagriglie() {
    for (platform::ListView* colonne : {ListView1, ListView2}) {
        colonne->add_colonna("x1", 0, Qt::AlignLeft);
        for (int i = 2; i <= 7; ++i) {
            colonne->add_colonna("x" + QString::number(i), 500, Qt::AlignHCenter);
        }
    }
    for (platform::ListView* numeri : {ListView3, ListView4}) {
        numeri->add_colonna("x1", 0, Qt::AlignLeft);
        numeri->add_colonna("x2", 1000, Qt::AlignHCenter);
    }
}

void Form3::popola_griglia2() {
    posizioni_.costruisci(file_sviluppo(), pagine_, [this](std::int32_t righe) {
        ProgressBar1->setValue(qMin(righe, ProgressBar1->maximum()));
        platform::DoEvents();
    });
}

void Form3::popola_griglia(std::int32_t page, bool avanti) {
    // Frozen, so that the empty lists never flash between two pages.
    const platform::SenzaPittura ferma(Frame2);
    for (platform::ListView* l : {ListView1, ListView2, ListView3, ListView4}) l->svuota();
    platform::DoEvents();
    const int numeri = gioco_.numeri();
    Pagina pagina = leggi_pagina(file_sviluppo(), posizioni_.posizione(page), numeri);
    // Looked at after the reading, lest another program replaced the file in between.
    if (superato()) pagina = {};
    int linea = 0;
    for (const Riga& riga : pagina.righe) {
        ++linea;
        if (pronto_) mostra_riga(riga, numeri, linea, page);
    }
    if (pagina.seguente && avanti && HScroll1->value() < HScroll1->maximum()) {
        posizioni_.ricorda(HScroll1->value() + 1, *pagina.seguente);
    }
}

void Form3::mostra_riga(const Riga& riga, int numeri, int linea, std::int32_t page) {
    QStringList testi{QString()};
    for (int i = 0; i < numeri; ++i) {
        testi.append(QString::number(riga[static_cast<std::size_t>(i)]));
    }
    const bool sinistra = linea <= righe_blocco;
    (sinistra ? ListView1 : ListView2)->add_voce(testi);
    const qint64 numero = (qint64{page} - 1) * righe_pagina + linea;
    (sinistra ? ListView3 : ListView4)->add_voce({QString(), QString::number(numero)});
}

bool Form3::superato() const {
    return platform::impronta(file_sviluppo()) != indicizzato_;
}

std::vector<std::int32_t> Form3::cerca(const Cercati& cercati) {
    if (superato()) return {};
    return viewer::cerca(file_sviluppo(), gioco_.numeri(), cercati);
}

QString Form3::combinazione(std::int32_t n) const {
    const std::int32_t pagina = pagine_di(n);
    if (letta_ != pagina) {
        pagina_letta_ =
            leggi_pagina(file_sviluppo(), posizioni_.posizione(pagina), gioco_.numeri());
        letta_ = pagina;
    }
    const auto riga = static_cast<std::size_t>((n - 1) % righe_pagina);
    if (riga >= pagina_letta_.righe.size()) return {};
    QStringList testi;
    for (int i = 0; i < gioco_.numeri(); ++i) {
        testi << QString::number(pagina_letta_.righe[riga][static_cast<std::size_t>(i)]);
    }
    return testi.join("  ");
}

void Form3::mostra_combinazione(std::int32_t n) {
    if (!pronto_ || n < 1) return;
    HScroll1->setValue(pagine_di(n));
    const int linea = (n - 1) % righe_pagina;
    const bool sinistra = linea < righe_blocco;
    for (platform::ListView* l : {ListView1, ListView2, ListView3, ListView4}) l->clearSelection();
    for (platform::ListView* l :
         {sinistra ? ListView1 : ListView2, sinistra ? ListView3 : ListView4}) {
        l->setCurrentItem(l->topLevelItem(linea % righe_blocco));
    }
}

void Form3::rivedi() {
    if (superato()) close();
}

void Form3::HScroll1_Change() {
    const int valore = HScroll1->value();
    const bool avanti = valore >= platform::Tag(HScroll1).toInt();
    popola_griglia(valore, avanti);
    rivedi();
    platform::set_Tag(HScroll1, QString::number(valore));
    lblpag[0]->setText(QString::number(valore));
    platform::di(lblpag[0], tr("Pagina %1 di %2").arg(valore).arg(pagine_));
    if (pronto_) Command1->setFocus();
}

bool Form3::tasto_di_pagina(const QKeyEvent* evento) {
    if (!HScroll1->isEnabled()) return false;
    switch (evento->key()) {
        case Qt::Key_PageUp:
            HScroll1->setValue(HScroll1->value() - 1);
            return true;
        case Qt::Key_PageDown:
            HScroll1->setValue(HScroll1->value() + 1);
            return true;
        case Qt::Key_Home:
            HScroll1->setValue(HScroll1->minimum());
            return true;
        case Qt::Key_End:
            HScroll1->setValue(HScroll1->maximum());
            return true;
        default:
            return false;
    }
}

void Form3::rotella(const QWheelEvent* evento) {
    if (!HScroll1->isEnabled()) return;
    const QPoint giro = evento->angleDelta();
    const int quanto = giro.y() != 0 ? giro.y() : giro.x();
    if ((quanto < 0) != (resto_rotella_ < 0)) resto_rotella_ = 0;
    // A fine wheel or a touch pad tells its turn in small parts.
    resto_rotella_ += quanto;
    const int pagine = resto_rotella_ / scatto;
    resto_rotella_ %= scatto;
    if (pagine != 0) HScroll1->setValue(HScroll1->value() - pagine);
}

bool Form3::eventFilter(QObject* oggetto, QEvent* evento) {
    // The lists and the bar have uses of their own for these, none of which turns one page.
    if (evento->type() == QEvent::KeyPress && tasto_di_pagina(static_cast<QKeyEvent*>(evento))) {
        return true;
    }
    if (evento->type() == QEvent::Wheel) {
        rotella(static_cast<QWheelEvent*>(evento));
        return true;
    }
    return QDialog::eventFilter(oggetto, evento);
}

void Form3::keyPressEvent(QKeyEvent* evento) {
    if (!tasto_di_pagina(evento)) QDialog::keyPressEvent(evento);
}

void Form3::wheelEvent(QWheelEvent* evento) {
    rotella(evento);
    evento->accept();
}

void Form3::showEvent(QShowEvent* evento) {
    QDialog::showEvent(evento);
    if (!evento->spontaneous()) platform::centra(this, &finestra_);
}

void Form3::closeEvent(QCloseEvent* evento) {
    if (!strumenti->al_lavoro()) return QDialog::closeEvent(evento);
    strumenti->ferma();
    chiusura_chiesta_ = true;
    evento->ignore();
}

void Form3::hideEvent(QHideEvent* evento) {
    QDialog::hideEvent(evento);
    if (!evento->spontaneous()) pronto_ = false;
}

}  // namespace viewer
