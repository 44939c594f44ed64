#include "analysis/frmcercatabella.h"

#include <algorithm>
#include <array>
#include <thread>

#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QPointer>
#include <QVBoxLayout>

#include "development/adozione.h"
#include "development/economiche.h"
#include "development/garanzie.h"
#include "platform/qt/annuncio.h"
#include "platform/qt/desktop.h"
#include "platform/qt/disposizione.h"
#include "platform/qt/scala.h"
#include "platform/runtime.h"

namespace analysis {

using development::Desiderio;
using development::Maschera;
using platform::q;

namespace {

constexpr int margine = 8;
constexpr int larghezza_finestra = 520;
constexpr int passi_barra = 1000;
constexpr double ms_al_secondo = 1000;
/// By place in the list; 0 until it is stopped.
constexpr std::array<double, 4> secondi_scelti{10, 60, 300, 0};
/// More walks than this look at the same tables.
constexpr int fili_massimi = 4;

QString quante(std::size_t n) {
    return q(development::colonne_in_parole(n));
}

QString percento_di(std::uint64_t parte, std::uint64_t tutto) {
    return q(platform::Significative(static_cast<double>(parte) / static_cast<double>(tutto) * 100,
                                     3)) +
           " %";
}

}  // namespace

frmcercatabella::frmcercatabella(const Partenza& partenza, QWidget* padre)
    : DialogoRicerca(padre), da_(partenza) {
    setObjectName("frmcercatabella");
    setWindowTitle(tr("Cerca una tabella"));
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    auto* sotto = new QVBoxLayout(this);
    sotto->setContentsMargins(margine, margine, margine, margine);
    sotto->setSpacing(margine);
    crea_scelte(sotto);
    lblstato = platform::scritta({}, nullptr, this);
    lblstato->setObjectName("lblstato");
    lblstato->setWordWrap(true);
    platform::rendi_annuncio(lblstato);
    lblstato->setMinimumHeight(3 * lblstato->fontMetrics().lineSpacing());
    lblstato->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    sotto->addWidget(lblstato);
    ProgressBar1 = new QProgressBar(this);
    ProgressBar1->setObjectName("ProgressBar1");
    ProgressBar1->setAccessibleName(tr("Avanzamento"));
    ProgressBar1->setTextVisible(false);
    ProgressBar1->setFixedHeight(10);
    ProgressBar1->hide();
    sotto->addWidget(ProgressBar1);
    sotto->addStretch(1);
    cmdadotta = crea_piede(sotto, margine, "cmdadotta", tr("Adotta"), tr("Chiudi"));
    cmdadotta->setToolTip(tr("Prova la tabella e la mette fra quelle economiche"));
    connect(cmdadotta, &QPushButton::clicked, this, &frmcercatabella::adotta);
    dimentica();
    resize(larghezza_finestra, sizeHint().height());
    platform::rendi_scalabile(this);
    platform::centra(this, padre);
    platform::tieni_sullo_schermo(this);
}

void frmcercatabella::crea_scelte(QVBoxLayout* sotto) {
    auto* f = new platform::Frame(QString(), this);
    f->setObjectName("Frame1");
    auto* righe = new QVBoxLayout(f);
    righe->setContentsMargins(12, 10, 12, 10);
    righe->setSpacing(8);
    righe->addWidget(platform::scritta(q(da_.gioco.nome_combinazioni()) + tr(" su ") +
                                           QString::number(da_.n) +
                                           tr(" numeri: che cosa devono garantire"),
                                       "titolo", f));
    const auto fila = [&](std::initializer_list<QWidget*> parti) {
        auto* riga = new QHBoxLayout;
        riga->setSpacing(8);
        for (QWidget* parte : parti) riga->addWidget(parte);
        riga->addStretch(1);
        righe->addLayout(riga);
    };
    estratti = platform::elenco("estratti", tr("Numeri estratti"), {}, f);
    indovinati = platform::elenco("indovinati", tr("Numeri indovinati"), {}, f);
    estratti->setFixedSize(60, 24);
    indovinati->setFixedSize(60, 24);
    fila({platform::scritta(tr("Con"), nullptr, f), estratti,
          platform::scritta(tr("estratti, una combinazione ne indovina almeno"), nullptr, f),
          indovinati});
    colonne = new QSpinBox(f);
    colonne->setObjectName("colonne");
    colonne->setAccessibleName(tr("Colonne"));
    colonne->setSpecialValueText(tr("le meno possibili"));
    colonne->setRange(0, static_cast<int>(development::binomiale(da_.n, da_.gioco.numeri())));
    colonne->setMinimumSize(140, 24);
    colonne->setToolTip(
        tr("Con un numero di colonne si cerca la tabella che manca la garanzia meno spesso; "
           "quelle che avanzano si spendono dove rendono di più"));
    tempo = platform::elenco("tempo", tr("Quanto cercare"), {}, f);
    tempo->setFixedSize(170, 24);
    for (const QString& voce :
         {tr("10 secondi"), tr("1 minuto"), tr("5 minuti"), tr("finché non fermate")}) {
        tempo->AddItem(voce);
    }
    tempo->setCurrentIndex(1);
    fila({platform::scritta(tr("Colonne"), nullptr, f), colonne,
          platform::scritta(tr("Quanto cercare"), nullptr, f), tempo});
    sotto->addWidget(f);
    const int massimi = qMin(da_.n, development::estratti_di(da_.gioco));
    for (int p = 2; p <= massimi; ++p) estratti->AddItem(QString::number(p));
    estratti->setCurrentIndex(qBound(2, da_.garanzia.p, massimi) - 2);
    elenca_indovinati(da_.garanzia.t);
    connect(estratti, &platform::ComboBox::Click, this, [this] {
        elenca_indovinati(indovinati->Text().toInt());
        dimentica();
    });
    connect(indovinati, &platform::ComboBox::Click, this, &frmcercatabella::dimentica);
    connect(colonne, &QSpinBox::valueChanged, this, &frmcercatabella::dimentica);
}

Desiderio frmcercatabella::desiderio() const {
    return {da_.n, da_.gioco.numeri(), estratti->Text().toInt(), indovinati->Text().toInt(),
            colonne->value()};
}

/// As many as are drawn at most, and as a combination has.
void frmcercatabella::elenca_indovinati(int t) {
    const int massimi = qMin(estratti->Text().toInt(), da_.gioco.numeri());
    indovinati->Clear();
    for (int i = 2; i <= massimi; ++i) indovinati->AddItem(QString::number(i));
    indovinati->mostra(qBound(2, t, massimi) - 2);
}

/// What was found for another wish is nothing for this one.
void frmcercatabella::dimentica() {
    trovata_.clear();
    cmdadotta->setEnabled(false);
    const Desiderio d = desiderio();
    const std::string perche = development::impossibile(d);
    if (!perche.empty()) {
        platform::annuncia(lblstato, tr("Non si può: ") + q(perche) + ".");
        return;
    }
    const auto almeno = static_cast<std::size_t>(development::limite_inferiore(d));
    platform::annuncia(lblstato, (almeno == 1 ? tr("Serve almeno ") : tr("Servono almeno ")) +
                                     quante(almeno) + ".");
}

void frmcercatabella::occupato(bool si) {
    al_lavoro_ = si;
    for (QWidget* w :
         std::initializer_list<QWidget*>{estratti, indovinati, colonne, tempo, cmdcerca, CmdEsci}) {
        w->setEnabled(!si);
    }
    cmdferma->setEnabled(si);
    cmdadotta->setEnabled(!si && !trovata_.empty());
    ProgressBar1->setVisible(si);
    (si ? cmdferma : cmdadotta->isEnabled() ? cmdadotta : cmdcerca)->setFocus();
}

void frmcercatabella::mostra_andamento(double secondi) {
    const double tutti = secondi_scelti[static_cast<std::size_t>(qMax(tempo->ListIndex(), 0))];
    // Without an end there is no part of it.
    ProgressBar1->setRange(0, tutti > 0 ? passi_barra : 0);
    if (tutti > 0) ProgressBar1->setValue(static_cast<int>(secondi / tutti * passi_barra));
    QString testo = tr("Ricerca in corso da ") + QString::number(static_cast<int>(secondi)) + " s";
    if (!trovata_.empty()) testo += ": " + quante(trovata_.size());
    if (scoperti_ > 0) testo += ", " + q(development::scoperti_in_parole(scoperti_));
    lblstato->setText(testo + ".");
}

void frmcercatabella::cerca() {
    if (al_lavoro_) return;
    const Desiderio d = desiderio();
    if (!development::impossibile(d).empty()) {
        dimentica();
        return;
    }
    fermata_ = false;
    scoperti_ = 0;
    occupato(true);
    const double tutti = secondi_scelti[static_cast<std::size_t>(qMax(tempo->ListIndex(), 0))];
    const QPointer<frmcercatabella> ancora(this);
    QElapsedTimer orologio;
    orologio.start();
    development::Condotta condotta;
    condotta.seme = ++seme_;
    condotta.fili =
        std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 1, fili_massimi);
    condotta.inizio = trovata_;
    condotta.trovata = [&](const std::vector<Maschera>& righe, std::uint64_t scoperti) {
        if (!ancora) return;
        ancora->trovata_ = righe;
        ancora->scoperti_ = scoperti;
    };
    condotta.fermo = [&] {
        if (ancora)
            ancora->mostra_andamento(static_cast<double>(orologio.elapsed()) / ms_al_secondo);
        // Events run inside may close the form.
        platform::DoEvents();
        if (!ancora || ancora->fermata_) return true;
        return tutti > 0 && static_cast<double>(orologio.elapsed()) >= tutti * ms_al_secondo;
    };
    {
        const platform::LavoroLungo lavoro(cmdferma);
        development::cerca(d, condotta);
    }
    if (!ancora) return;
    occupato(false);
    concludi();
    if (chiusura_chiesta_) close();
}

/// What the search came to, held against the table that it began with.
void frmcercatabella::concludi() {
    if (trovata_.empty()) {
        platform::annuncia(lblstato, tr("Nessuna tabella trovata in tempo."));
        return;
    }
    const Desiderio d = desiderio();
    const auto limite = static_cast<std::size_t>(development::limite_inferiore(d));
    QString testo = quante(trovata_.size());
    if (scoperti_ > 0) {
        testo += tr(": la garanzia manca ") +
                 q(platform::nel(
                     platform::s(percento_di(scoperti_, development::binomiale(d.n, d.p))))) +
                 tr(" dei sorteggi.");
    } else {
        testo += ", " + q(development::in_parole({d.p, d.t})) + ". ";
        testo += trovata_.size() == limite
                     ? tr("Con meno non è possibile.")
                     : tr("Meno di ") + quante(limite) + tr(" non è possibile.");
        const QString oltre =
            d.righe > 0 ? q(development::oltre_in_parole(d, trovata_)) : QString();
        if (!oltre.isEmpty()) testo += " " + oltre + ".";
        const bool confrontabile =
            !da_.nome.empty() && da_.garanzia == development::Garanzia{d.p, d.t};
        if (const int meno = da_.righe - static_cast<int>(trovata_.size());
            confrontabile && d.righe == 0) {
            testo += " " + q(da_.nome) + tr(" ne ha ") + QString::number(da_.righe);
            testo += meno > 1    ? tr(": se ne risparmiano ") + QString::number(meno) + "."
                     : meno == 1 ? tr(": se ne risparmia una.")
                                 : QString(".");
        }
    }
    platform::annuncia(lblstato, testo);
}

void frmcercatabella::adotta() {
    if (al_lavoro_ || trovata_.empty()) return;
    const Desiderio d = desiderio();
    const std::optional<development::Garanzia> detta =
        scoperti_ == 0 ? std::optional(development::Garanzia{d.p, d.t}) : std::nullopt;
    const development::Adozione esito =
        development::adotta({d.n, d.k, trovata_}, da_.gioco, detta, da_.ridotti);
    if (!esito.rifiuto.empty()) {
        platform::annuncia(lblstato, tr("Non adottata: ") + q(esito.rifiuto) + ".");
        return;
    }
    cmdadotta->setEnabled(false);
    platform::annuncia(lblstato, tr("Adottata: ") + q(esito.nome) +
                                     tr(", negli elenchi con la garanzia più alta: ") +
                                     q(development::in_parole(esito.garanzia)) + ".");
    emit adottata(q(esito.nome));
}

}  // namespace analysis
