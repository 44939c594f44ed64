#include "stampa/finestra.h"

#include <algorithm>

#include <QCloseEvent>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QScreen>

#include "platform/qt/desktop.h"
#include "platform/qt/scala.h"
#include "platform/runtime.h"
#include "stampa/editor.h"
#include "viewer/importo.h"

namespace schedine {

using platform::q;
using platform::s;

namespace {

constexpr QSize misura(1040, 720);
constexpr QSize misura_minima(860, 420);
constexpr int centesimi_all_euro = 100;

QString intero(std::int64_t quanti) {
    return quanti == 0
               ? "0"
               : q(platform::Format(static_cast<double>(quanti), platform::Modello::interi));
}

QString quanti(std::int64_t n, const QString& uno, const QString& molti) {
    return intero(n) + " " + (n == 1 ? uno : molti);
}

}  // namespace

Finestra::Finestra(std::string radice) : radice_(std::move(radice)) {
    setObjectName("Stampa");
    setWindowTitle("stampa");
    setWindowFlags(Qt::Window);
    auto* riga = new QHBoxLayout(this);
    riga->setContentsMargins(12, 12, 12, 12);
    riga->setSpacing(12);
    riga->addWidget(crea_sinistra());
    riga->addWidget(crea_destra(), 1);
    crea_lavoro();
    setMinimumSize(misura_minima);
    resize(misura.boundedTo(screen()->availableGeometry().size() * 0.94));
    platform::rendi_scalabile(this);
    crea_scorciatoie();
    optgenere[0]->setChecked(true);

    for (QRadioButton* o : optgenere) {
        connect(o, &QRadioButton::toggled, this, [this](bool scelto) {
            if (scelto) cambia_genere();
        });
    }
    connect(chkgrande, &QCheckBox::toggled, this, &Finestra::aggiorna);
    for (QCheckBox* c : chkruota) connect(c, &QCheckBox::toggled, this, &Finestra::aggiorna);
    connect(txtposta, &QLineEdit::textChanged, this, &Finestra::aggiorna);
    for (QLineEdit* t : txtdalla) {
        connect(t, &QLineEdit::textEdited, this, &Finestra::aggiorna);
        connect(t, &QLineEdit::editingFinished, this, &Finestra::convalida_intervallo);
    }
    connect(txtcopie, &QLineEdit::textChanged, this, &Finestra::mostra_conto);
    connect(cmbsistema, &platform::ComboBox::Click, this,
            [this] { scegli_sistema(cmbsistema->ListIndex()); });
    connect(cmbmodulo, &platform::ComboBox::Click, this, &Finestra::cambia_genere);
    connect(cmdmodifica, &QPushButton::clicked, this, [this] { modifica_modulo(false); });
    connect(cmdnuovo, &QPushButton::clicked, this, [this] { modifica_modulo(true); });
    connect(cmdstampa, &QPushButton::clicked, this, &Finestra::stampa_carta);
    connect(cmdpdf, &QPushButton::clicked, this, &Finestra::scrivi_pdf);
    connect(cmdtesto, &QPushButton::clicked, this, &Finestra::scrivi_testo);
    connect(cmdchiudi, &QPushButton::clicked, this, &QWidget::close);
    connect(cmdferma, &QPushButton::clicked, this, [this] { fermato_ = true; });
    connect(cmdindietro, &QPushButton::clicked, this, [this] { vai(pagina_ - 1); });
    connect(cmdavanti, &QPushButton::clicked, this, [this] { vai(pagina_ + 1); });
    connect(txtpagina, &QLineEdit::editingFinished, this,
            [this] { vai(txtpagina->text().toLongLong()); });
    connect(cmdmeno, &QPushButton::clicked, this, [this] { anteprima->ingrandisci(-1); });
    connect(cmdpiu, &QPushButton::clicked, this, [this] { anteprima->ingrandisci(1); });
    connect(cmdvero, &QPushButton::clicked, this, [this] { anteprima->a_grandezza_vera(); });
    connect(cmdintero, &QPushButton::clicked, this, [this] { anteprima->intero(true); });
    connect(anteprima, &Anteprima::Ingrandito, this, [this] {
        cmdvero->setText(QString::number(anteprima->ingrandimento()) + " %");
        cmdintero->setChecked(anteprima->foglio_intero());
    });
    connect(anteprima, &Anteprima::Pagina, this, [this](int passi) { vai(pagina_ + passi); });
    carica_moduli({});
    carica_sistemi();
}

Finestra::~Finestra() {
    // A field that loses the keyboard as it goes would still tell of it.
    for (QLineEdit* t : {txtdalla[0], txtdalla[1], txtpagina}) t->disconnect(this);
}

/// The systems of the calling program, and the one that it handed over.
void Finestra::carica_sistemi() {
    const LetturaConsegna letta = leggi_consegna(radice_);
    scelte_ = scelte(radice_ + (letta.consegna ? letta.consegna->programma : "cruciverba"));
    std::vector<Scelta> consegnate;
    if (letta.consegna) consegnate = trova(radice_, *letta.consegna);
    for (const Scelta& c : consegnate) {
        if (std::find(scelte_.begin(), scelte_.end(), c) == scelte_.end()) scelte_.push_back(c);
    }
    caricando_ = true;
    for (const Scelta& c : scelte_) cmbsistema->AddItem(q(c.nome) + " - " + c.gioco.nome());
    cmbsistema->setCurrentIndex(-1);
    caricando_ = false;
    if (consegnate.size() == 1) {
        const auto quale = std::find(scelte_.begin(), scelte_.end(), consegnate.front());
        cmbsistema->set_ListIndex(static_cast<int>(quale - scelte_.begin()));
        return;
    }
    if (letta.difetto) {
        difetto_ = "Il file «trans» non dice quale sistema stampare (" + q(letta.difetto->testo()) +
                   "). Scegliete un sistema.";
    } else if (consegnate.size() > 1) {
        difetto_ = "Il sistema «" + q(letta.consegna->sistema) +
                   "» c'è nel SuperEnalotto e nel Lotto. Scegliete quale stampare.";
    } else if (letta.consegna) {
        difetto_ = "Del sistema «" + q(letta.consegna->sistema) +
                   "» non c'è lo sviluppo: elaboratelo, o scegliete un altro sistema.";
    } else {
        difetto_ = "Scegliete il sistema di cui stampare le schedine.";
    }
    if (scelte_.empty()) {
        difetto_ = "Nessun sistema è elaborato: elaboratene uno con Tabellino, poi tornate qui.";
    }
    aggiorna();
}

void Finestra::scegli_sistema(int indice) {
    if (caricando_ || indice < 0 || indice >= static_cast<int>(scelte_.size())) return;
    scelta_ = scelte_[static_cast<std::size_t>(indice)];
    setWindowTitle("stampa - " + q(scelta_->nome));
    lavoro_.reset();
    const auto difetto = apri(*scelta_, sviluppo_);
    difetto_ = difetto ? "Lo sviluppo «" + q(scelta_->nome) + scelta_->gioco.estensione_sviluppo() +
                             "» non si può stampare: " + q(difetto->testo()) + "."
                       : "";
    per_schedina_ = colonne_per_schedina(scelta_->cartella, scelta_->gioco);
    const viewer::Importo importo = viewer::leggi_cst(scelta_->cartella, viewer::Lettore::annulla);
    prezzo_ = viewer::valore_prezzo(importo.prezzo);
    valuta_ = importo.valuta == "Lire" ? "Lire" : "Euro";
    for (QLineEdit* t : txtdalla) t->clear();
    pagina_ = 1;
    aggiorna();
    convalida_intervallo();
}

void Finestra::carica_moduli(const QString& scelto) {
    caricando_ = true;
    cmbmodulo->Clear();
    for (const std::string& nome : moduli(radice_)) cmbmodulo->AddItem(q(nome));
    const int quale = cmbmodulo->findText(scelto);
    cmbmodulo->setCurrentIndex(quale < 0 && cmbmodulo->count() > 0 ? 0 : quale);
    caricando_ = false;
    cambia_genere();
}

void Finestra::modifica_modulo(bool nuovo) {
    const QString nome = nuovo ? QString() : cmbmodulo->Text();
    Editor editor(radice_, nome, this);
    if (nuovo && scelta_) editor.gioco(scelta_->gioco.e_lotto());
    editor.exec();
    carica_moduli(editor.salvato().isEmpty() ? cmbmodulo->Text() : editor.salvato());
}

void Finestra::cambia_genere() {
    if (caricando_) return;
    chkgrande->setEnabled(genere() == Genere::elenco);
    cmbmodulo->setEnabled(cmbmodulo->count() > 0);
    cmdmodifica->setEnabled(cmbmodulo->count() > 0);
    difetto_modulo_.clear();
    if (genere() == Genere::modulo) {
        const QString nome = cmbmodulo->Text();
        if (nome.isEmpty()) {
            difetto_modulo_ =
                "Non c'è ancora nessun modulo: con «Nuovo…» dite dove sono le caselle della vostra "
                "schedina.";
        } else if (const auto d = leggi_modulo(file_modulo(radice_, s(nome)), modulo_)) {
            difetto_modulo_ = "Il modulo «" + nome + "» non si può usare: " + q(d->testo()) + ".";
        }
    }
    // The slips of another kind may be others, and the range with them.
    for (QLineEdit* t : txtdalla) t->clear();
    pagina_ = 1;
    aggiorna();
    convalida_intervallo();
}

Genere Finestra::genere() const {
    return optgenere[2]->isChecked()   ? Genere::modulo
           : optgenere[1]->isChecked() ? Genere::elenco
                                       : Genere::ricopiare;
}

Giocata Finestra::giocata() const {
    Giocata g;
    for (std::size_t i = 0; i < chkruota.size(); ++i) {
        if (chkruota[i]->isChecked()) g.ruote.push_back(i);
    }
    g.centesimi = qRound(viewer::valore_prezzo(s(txtposta->text())) * centesimi_all_euro);
    return g;
}

int Finestra::copie() const {
    return std::max(1, txtcopie->text().toInt());
}

Opzioni Finestra::opzioni() const {
    Opzioni o;
    o.genere = genere();
    o.grande = chkgrande->isChecked();
    o.modulo = modulo_;
    o.sistema = scelta_->nome;
    o.gioco = scelta_->gioco;
    o.per_schedina = per_schedina_.colonne;
    o.prezzo = prezzo_;
    if (o.gioco.e_lotto()) {
        o.giocata = giocata();
    } else {
        o.valuta = valuta_;
    }
    o.dalla = std::max(1LL, txtdalla[0]->text().toLongLong());
    o.alla = txtdalla[1]->text().toLongLong();
    if (o.alla > 0) o.dalla = std::min(o.dalla, o.alla);
    return o;
}

/// Everything that follows from the choices.
void Finestra::aggiorna() {
    if (caricando_) return;
    const bool lotto = scelta_ && scelta_->gioco.e_lotto();
    riqgiocata->setVisible(lotto);
    std::unique_ptr<Lavoro> nuovo;
    if (scelta_ && difetto_.isEmpty() && difetto_modulo_.isEmpty()) {
        nuovo = std::make_unique<Lavoro>(sviluppo_, opzioni());
    }
    anteprima->mostra(nullptr, 1);
    lavoro_ = std::move(nuovo);
    mostra_sistema();
    for (QPushButton* b : {cmdstampa, cmdpdf, cmdtesto}) b->setEnabled(lavoro_ != nullptr);
    for (QLineEdit* t : {txtdalla[0], txtdalla[1], txtcopie}) t->setEnabled(lavoro_ != nullptr);
    mostra_conto();
    vai(pagina_);
}

// Layouts in one another would take their heights one after the other, and a text of two lines
// would be seen cut meanwhile.
void Finestra::assesta() {
    constexpr int livelli = 4;
    for (int i = 0; i < livelli; ++i) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    }
}

void Finestra::mostra_sistema() {
    QString testo = difetto_.isEmpty() ? difetto_modulo_ : difetto_;
    if (testo.isEmpty() && lavoro_ != nullptr) {
        testo = quanti(sviluppo_.colonne(), "combinazione", "combinazioni") + " in " +
                quanti(lavoro_->schedine(), "schedina", "schedine");
        if (per_schedina_.guasto && genere() != Genere::modulo) {
            testo += "\nIl file «col.dat» non dice quante colonne ha una schedina: sono " +
                     QString::number(per_schedina_.colonne) + ".";
        }
        const std::string manca =
            genere() == Genere::modulo
                ? manca_al_modulo(modulo_, scelta_->gioco.e_lotto(), giocata())
                : std::string();
        if (!manca.empty()) testo += "\n" + q(manca);
    }
    lblsistema->setText(testo);
    anteprima->invita(lavoro_ == nullptr ? testo : QString());
}

void Finestra::mostra_conto() {
    lblconto->setText(conto_in_parole());
    assesta();
}

QString Finestra::conto_in_parole() const {
    if (lavoro_ == nullptr) return {};
    const Conto c = lavoro_->conto();
    const std::int64_t n = copie();
    QString testo = quanti(c.schedine, "schedina", "schedine") + " su " +
                    quanti(c.fogli * n, "foglio", "fogli");
    if (c.importo > 0) {
        testo += "\n" + q(lavoro_->opzioni().valuta) + " " +
                 q(platform::Format(c.importo, platform::Modello::decimali_zero));
    }
    return testo;
}

void Finestra::vai(qint64 pagina) {
    const qint64 tutte = lavoro_ == nullptr ? 0 : lavoro_->pagine();
    pagina_ = std::clamp(pagina, qint64{1}, std::max(qint64{1}, tutte));
    txtpagina->setText(QString::number(pagina_));
    txtpagina->setEnabled(tutte > 1);
    lblpagine->setText("di " + intero(tutte));
    cmdindietro->setEnabled(pagina_ > 1);
    cmdavanti->setEnabled(pagina_ < tutte);
    anteprima->mostra(lavoro_.get(), pagina_);
}

/// The fields say what is printed, whatever was typed.
void Finestra::convalida_intervallo() {
    if (lavoro_ == nullptr) return;
    const QString dalla = QString::number(lavoro_->opzioni().dalla);
    const QString alla = QString::number(lavoro_->opzioni().alla);
    txtdalla[0]->setText(dalla);
    txtdalla[1]->setText(alla);
}

void Finestra::closeEvent(QCloseEvent* evento) {
    // A job ends first, without a trace; then the window may be closed again.
    if (al_lavoro_) {
        fermato_ = true;
        evento->ignore();
        return;
    }
    QDialog::closeEvent(evento);
}

void Finestra::reject() {
    if (al_lavoro_) {
        fermato_ = true;
        return;
    }
    QDialog::reject();
}

void Finestra::resizeEvent(QResizeEvent* evento) {
    QDialog::resizeEvent(evento);
    metti_lavoro();
}

void Finestra::metti_lavoro() {
    const qreal f = platform::scala(this);
    const int alto = platform::scalato(52, f);
    const int margine = platform::scalato(12, f);
    lavoro->setGeometry(margine, height() - alto - margine, width() - 2 * margine, alto);
}

}  // namespace schedine
