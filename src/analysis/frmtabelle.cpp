#include "analysis/frmtabelle.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "analysis/frmcercatabella.h"
#include "app/finestra.h"
#include "development/adozione.h"
#include "development/garanzie.h"
#include "platform/disk.h"
#include "platform/qt/annuncio.h"
#include "platform/qt/desktop.h"
#include "platform/qt/disposizione.h"
#include "platform/qt/folder.h"
#include "platform/qt/scala.h"

namespace analysis {

using crossword::Gioco;
using platform::q;

namespace {

constexpr int margine = 8;
constexpr int larghezza_pulsante = 100;
constexpr int righe_in_vista = 12;
/// No table is longer than the full one of 5005 rows.
constexpr std::int64_t byte_massimi = 1 << 20;
constexpr QSize misura(680, 660);

/// In the order of the list.
constexpr std::array giochi = {Gioco::superenalotto(), Gioco::lotto(3), Gioco::lotto(4),
                               Gioco::lotto(5)};

}  // namespace

frmtabelle::frmtabelle(app::Finestra& finestra) : QDialog(&finestra), finestra_(finestra) {
    setObjectName("frmtabelle");
    setWindowTitle("Tabelle");
    setAttribute(Qt::WA_DeleteOnClose);
    auto* sotto = new QVBoxLayout(this);
    sotto->setContentsMargins(margine, margine, margine, margine);
    sotto->setSpacing(margine);
    crea_scelte(sotto);
    catalogo = new VistaTavola("catalogo", righe_in_vista, this);
    vincite = new VistaTavola("vincite", 6, this);
    vincite->hide();
    lblstato = platform::scritta({}, nullptr, this);
    lblstato->setObjectName("lblstato");
    lblstato->setWordWrap(true);
    platform::rendi_annuncio(lblstato);
    sotto->addWidget(catalogo);
    sotto->addWidget(lblstato);
    sotto->addWidget(vincite);
    sotto->addStretch(1);
    crea_comandi(sotto);
    const systems::Sessione& sessione = finestra.sessione;
    for (int i = 0; i < static_cast<int>(giochi.size()); ++i) {
        if (giochi[static_cast<std::size_t>(i)] == sessione.gioco()) gioco->setCurrentIndex(i);
    }
    elenca_numeri(qMax(sessione.colonne(), sessione.righe()));
    connect(gioco, &platform::ComboBox::Click, this,
            [this] { elenca_numeri(numeri->Text().toInt()); });
    connect(numeri, &platform::ComboBox::Click, this, &frmtabelle::mostra);
    connect(catalogo->griglia, &QTableWidget::itemSelectionChanged, this,
            &frmtabelle::cambia_scelta);
    resize(misura);
    platform::rendi_scalabile(this);
    platform::centra(this, &finestra);
}

void frmtabelle::crea_scelte(QVBoxLayout* sotto) {
    auto* f = new platform::Frame(QString(), this);
    f->setObjectName("Frame1");
    auto* riga = new QHBoxLayout(f);
    riga->setContentsMargins(12, 10, 12, 10);
    riga->setSpacing(8);
    gioco = platform::elenco("gioco", tr("Gioco"), {}, f);
    numeri = platform::elenco("numeri", tr("Numeri della linea"), {}, f);
    gioco->setFixedSize(200, 24);
    numeri->setFixedSize(70, 24);
    for (const Gioco& uno : giochi) {
        gioco->AddItem(uno.e_lotto() ? tr("Lotto, ") + q(uno.nome_combinazioni()).toLower()
                                     : q(uno.nome()));
    }
    gioco->setCurrentIndex(0);
    riga->addWidget(platform::scritta(tr("Gioco"), "titolo", f));
    riga->addWidget(gioco);
    riga->addSpacing(12);
    riga->addWidget(platform::scritta(tr("Numeri della linea"), "titolo", f));
    riga->addWidget(numeri);
    riga->addStretch(1);
    sotto->addWidget(f);
}

void frmtabelle::crea_comandi(QVBoxLayout* sotto) {
    auto* riga = new QHBoxLayout;
    riga->setSpacing(margine);
    cmdvincite = platform::pulsante_in_fila("cmdvincite", tr("Vincite"), this, larghezza_pulsante);
    cmdvincite->setToolTip(tr("Che cosa vince la tabella, con ogni numero di estratti"));
    cmdprova = platform::pulsante_in_fila("cmdprova", tr("Prova"), this, larghezza_pulsante);
    cmdprova->setToolTip(tr("Prova la garanzia su tutti i sorteggi possibili"));
    CmdEsci = platform::pulsante_in_fila("CmdEsci", tr("Esci"), this, larghezza_pulsante);
    cmdcerca = platform::pulsante_in_fila("cmdcerca", tr("Cerca…"), this, larghezza_pulsante);
    cmdcerca->setToolTip(
        tr("Cerca una tabella più piccola con la stessa garanzia, o con un'altra"));
    cmdadotta = platform::pulsante_in_fila("cmdadotta", tr("Adotta…"), this, larghezza_pulsante);
    cmdadotta->setToolTip(tr("Prova una tabella di un file e la mette fra quelle economiche"));
    for (QPushButton* b : {cmdvincite, cmdprova, cmdcerca, cmdadotta}) riga->addWidget(b);
    riga->addStretch(1);
    riga->addWidget(CmdEsci);
    sotto->addLayout(riga);
    connect(cmdvincite, &QPushButton::clicked, this, [this] {
        if (const auto quale = scelta()) {
            vincite->mostra(catalogo_->vincite(*quale));
            vincite->show();
        }
    });
    connect(cmdprova, &QPushButton::clicked, this, [this] {
        if (const auto quale = scelta()) platform::annuncia(lblstato, q(catalogo_->prova(*quale)));
    });
    connect(cmdcerca, &QPushButton::clicked, this, &frmtabelle::cerca);
    connect(cmdadotta, &QPushButton::clicked, this, &frmtabelle::adotta_file);
    connect(CmdEsci, &QPushButton::clicked, this, &QDialog::close);
}

void frmtabelle::closeEvent(QCloseEvent* evento) {
    // The dialog's own would ask `reject`, which closes.
    evento->accept();
}

Gioco frmtabelle::gioco_scelto() const {
    return giochi[static_cast<std::size_t>(qMax(gioco->ListIndex(), 0))];
}

void frmtabelle::elenca_numeri(int quanti) {
    const Gioco scelto = gioco_scelto();
    const int da = scelto.lato_minimo();
    numeri->Clear();
    for (int n = da; n <= Gioco::lato_massimo; ++n) numeri->AddItem(QString::number(n));
    numeri->mostra(qBound(da, quanti, Gioco::lato_massimo) - da);
    mostra();
}

void frmtabelle::mostra() {
    catalogo_.emplace(finestra_.sessione.ridotti(), gioco_scelto(), numeri->Text().toInt());
    catalogo->mostra(catalogo_->tavola());
    catalogo->griglia->clearSelection();
    if (!catalogo_->tabelle().empty()) catalogo->griglia->selectRow(0);
    cambia_scelta();
}

std::optional<std::size_t> frmtabelle::scelta() const {
    const QList<QTableWidgetItem*> scelti = catalogo->griglia->selectedItems();
    if (scelti.isEmpty() || !catalogo_) return std::nullopt;
    const auto riga = static_cast<std::size_t>(scelti.front()->row());
    return riga < catalogo_->tabelle().size() ? std::optional(riga) : std::nullopt;
}

void frmtabelle::cambia_scelta() {
    const auto quale = scelta();
    for (QPushButton* b : {cmdvincite, cmdprova}) b->setEnabled(quale.has_value());
    vincite->hide();
    lblstato->setText(quale ? q(catalogo_->tabelle()[*quale].tipo) : QString());
}

void frmtabelle::cerca() {
    Partenza da{
        finestra_.sessione.ridotti(), gioco_scelto(), numeri->Text().toInt(), {}, {2, 2}, 0};
    if (const auto quale = scelta()) {
        const TabellaInCatalogo& una = catalogo_->tabelle()[*quale];
        da.nome = una.nome;
        da.garanzia = una.garanzia;
        da.righe = static_cast<int>(una.tabella.righe.size());
    }
    auto* form = new frmcercatabella(da, this);
    connect(form, &frmcercatabella::adottata, this, &frmtabelle::accogli);
    form->show();
}

void frmtabelle::adotta_file() {
    const Gioco scelto = gioco_scelto();
    const int n = numeri->Text().toInt();
    const QStringList file =
        platform::scegli_file(this, tr("Adotta una tabella"), {}, tr("Tabelle (*.rid *.txt)"));
    if (file.isEmpty()) return;
    const auto rifiuta = [this](const std::string& perche) {
        platform::annuncia(lblstato, tr("Non adottata: ") + q(perche) + ".");
    };
    const auto contenuto = platform::leggi_tutto(platform::s(file.front()), byte_massimi);
    if (!contenuto) return rifiuta("il file non si può leggere");
    development::Lettura letta = development::leggi_rigorosa(*contenuto, n, scelto.numeri());
    if (!letta.errori.empty()) {
        const development::ErroreRiga& primo = letta.errori.front();
        return rifiuta((primo.riga > 0 ? "riga " + std::to_string(primo.riga) + ": " : "") +
                       primo.testo);
    }
    const development::Adozione esito =
        development::adotta(std::move(letta.tabella), scelto, {}, finestra_.sessione.ridotti());
    if (!esito.rifiuto.empty()) return rifiuta(esito.rifiuto);
    accogli(q(esito.nome));
    platform::annuncia(lblstato, tr("Adottata: ") + q(esito.nome) + ", " +
                                     q(development::in_parole(esito.garanzia)) + ".");
}

void frmtabelle::accogli(const QString& nome) {
    finestra_.sessione.rinnova_tipi();
    mostra();
    for (std::size_t i = 0; i < catalogo_->tabelle().size(); ++i) {
        if (q(catalogo_->tabelle()[i].nome) + ".rid" == nome)
            catalogo->griglia->selectRow(static_cast<int>(i));
    }
}

}  // namespace analysis
