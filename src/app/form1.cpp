#include "app/form1.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <QShortcut>

#include "app/aspetto.h"
#include "app/form1_parti.h"
#include "app/stile.h"
#include "platform/application.h"
#include "platform/disk.h"
#include "platform/qt/desktop.h"
#include "platform/qt/scala.h"
#include "platform/runtime.h"
#include "statistics/avviso_archivio.h"

namespace app {

using platform::App;

Form1::Form1(Dialoghi& dialoghi) : Finestra(App().Path), dialoghi_(dialoghi) {
    setObjectName("Form1");
    setWindowTitle("Sortivario Plus - Sistemi a Cruciverba");
    setCentralWidget(new QWidget(this));
    crea_menu();
    crea_comandi();
    crea_tabellone();
    crea_cruciverba();
    crea_lista();
    crea_giochi();
    crea_generatori();
    crea_riepilogo();
    crea_importo();
    ordine_tastiera();
    parti_ = std::make_unique<Parti>(*this, dialoghi);
    lblpasso = parti_->piede->lblpasso;
    lblanalisi = parti_->piede->lblanalisi;
    setFixedSize(centralWidget()->width(),
                 centralWidget()->height() + menuBar()->sizeHint().height());
    // In a window that is higher than its width asks for, crossword and list take the height.
    using platform::Scala;
    platform::ancora({Picture2, Frame3}, Scala::sta_in_alto);
    platform::ancora({Frame1, Frame5, List1}, Scala::alza);
    platform::ancora({Frame9, Frame8, Frame4, Frame7, Frame2, Frame6, ProgressBar1, parti_->piede},
                     Scala::segue_fondo);
    for (QWidget* w : Frame5->findChildren<QLabel*>()) platform::ancora({w}, Scala::segue_fondo);
    platform::rendi_scalabile(this);
    collega();
}

Form1::~Form1() = default;

void Form1::collega() {
    // A half-typed number must not wait behind another command for its second digit.
    const auto dimentica_cifra = [this] { MSFlexGrid1->set_digitato(QString()); };
    for (const QAbstractButton* b : findChildren<QAbstractButton*>()) {
        connect(b, &QAbstractButton::clicked, this, dimentica_cifra);
    }
    for (const QAction* a : findChildren<QAction*>()) {
        connect(a, &QAction::triggered, this, dimentica_cifra);
    }
    for (int i = 0; i < 9; ++i) {
        connect(Image3[static_cast<std::size_t>(i)], &QAbstractButton::clicked, this,
                [this, i] { Image3_Click(i); });
    }
    for (int i = 0; i < 3; ++i) {
        const auto k = static_cast<std::size_t>(i);
        for (platform::Image* immagine : {Imageb[k], Imagey[k]}) {
            connect(immagine, &QAbstractButton::clicked, this, [this, i] { Imageb_Click(i); });
        }
    }
    connect(Image8, &QAbstractButton::clicked, this, &Form1::Image8_Click);
    connect(Image10, &QAbstractButton::clicked, this, &Form1::Image10_Click);
    for (platform::ComboBox* misura : {Combo1, Combo2}) {
        connect(misura, &platform::ComboBox::Click, this, [this] { modifica_griglia(0); });
    }
    for (QPushButton* genera : {cmdstat, cmdstat2}) {
        connect(genera, &QPushButton::clicked, this, [this] { parti_->riempimento.genera(); });
    }
    const std::array<platform::ComboBox*, 3> liste = {Combo3, Combo4, Combo5};
    for (std::size_t i = 0; i < liste.size(); ++i) {
        connect(liste[i], &platform::ComboBox::Click, this, [this, i, lista = liste[i]] {
            sessione.scegli_tipo(static_cast<crossword::Elenco>(i + 1), lista->ListIndex());
        });
    }
    connect(UpDown2, &QSpinBox::valueChanged, this, [this](int quote) { sessione.quote(quote); });
    connect(mnunuovo, &QAction::triggered, this, &Form1::mnunuovo_Click);
    connect(mnuapri, &QAction::triggered, this, &Form1::mnuapri_Click);
    connect(mnusalva, &QAction::triggered, this, [this] { parti_->archiviatore.mnusalva_Click(); });
    connect(mnusalvanome, &QAction::triggered, this, &Form1::mnusalvanome_Click);
    connect(mnuRipetizioniCon, &QAction::triggered, this, &Form1::mnuRipetizioniCon_Click);
    connect(mnuRipetizioniSenza, &QAction::triggered, this, &Form1::mnuRipetizioniSenza_Click);
    connect(mnuEconomiche, &QAction::triggered, this, [this](bool con) {
        sessione.economiche(con);
        mostra_opzioni();
    });
    connect(mnuEsci, &QAction::triggered, this, &Form1::controllo_salvataggio);
    connect(mnugest_sist, &QAction::triggered, this, &Form1::mnugest_sist_Click);
    connect(mnuImportocolonna, &QAction::triggered, this,
            [this] { dialoghi_.importo_colonna(*this); });
    mostra_linee->setChecked(parti_->vista.luce().accesa());
    connect(mostra_linee, &QAction::toggled, this,
            [this](bool mostrate) { parti_->vista.luce().accendi(mostrate); });
    connect(mnuanalisi, &QAction::triggered, this, &Form1::mnuanalisi_Click);
    connect(mnumigliora, &QAction::triggered, this, [this] {
        if (!in_elaborazione()) dialoghi_.migliora(*this);
    });
    connect(mnutabelle, &QAction::triggered, this, [this] { dialoghi_.tabelle(*this); });
    connect(mnuaiuto, &QAction::triggered, this, [this] { dialoghi_.guida(*this); });
    connect(mnuweb, &QAction::triggered, this, [this] { dialoghi_.sito(*this); });
    connect(mnuinfo, &QAction::triggered, this, [this] { dialoghi_.informazioni(*this); });
    connect(annulla, &QAction::triggered, this, [this] { parti_->vista.rifai(true); });
    connect(ripeti, &QAction::triggered, this, [this] { parti_->vista.rifai(false); });
    constexpr std::array<int, 4> a_tasto = {1, 2, 6, 7};
    for (std::size_t i = 0; i < a_tasto.size(); ++i) {
        const QKeySequence tasto(Qt::Key_F5 + static_cast<int>(i));
        connect(new QShortcut(tasto, this), &QShortcut::activated,
                Image3[static_cast<std::size_t>(a_tasto[i])], &QAbstractButton::click);
    }
    // The menu's "Nuovo" empties without a question, which a slip of a key must not.
    connect(new QShortcut(QKeySequence::New, this), &QShortcut::activated, Image3[0],
            &QAbstractButton::click);
    connect(new QShortcut(QKeySequence::Print, this), &QShortcut::activated, Image3[7],
            &QAbstractButton::click);
    connect(new QShortcut(QKeySequence(Qt::Key_Delete), this), &QShortcut::activated, this,
            [this] { parti_->vista.rimuovi(); });
}

// Start and end.

void Form1::Form_Load() {
    // The forms that open later are this one's children and take its skin from it.
    const std::string aspetto = foglio_aspetto(platform::radice(App().Path), desktop_scuro());
    if (!aspetto.empty()) setStyleSheet(platform::q(aspetto));
    const platform::FinestraFerma ferma(this);
    sessione.osserva([this](const systems::Cambiamento& cambiato) { mostra(cambiato); });
    sessione.avvia();
    mostra_opzioni();
    for (const statistics::Ruota& ruota : statistics::ruote) {
        Combo6->AddItem(platform::q(std::string(ruota.nome)));
    }
    Combo6->set_ListIndex(0);
    inizializza();
    platform::DoEvents();
}

void Form1::offri_ripresa() {
    parti_->archiviatore.offri_ripresa();
}

void Form1::inizializza() {
    apri_archivio();
    MSFlexGrid1->cella(0, 0);
    MSFlexGrid1->setFocus();
}

void Form1::apri_archivio() {
    const platform::Err errore = sessione.apri_archivio();
    if (!errore.ok()) statistics::errore_archivio(this, errore, "Sortivario");
    parti_->archivio.aggiorna();
}

void Form1::closeEvent(QCloseEvent* evento) {
    if (in_elaborazione()) {
        // The job ends at its next pending-events point and closes the form itself.
        parti_->lavori.ferma();
        evento->ignore();
        return;
    }
    platform::Kill(App().file("act"));
    parti_->archiviatore.dimentica_ripresa();
    sessione.archivio.chiudi();
    dialoghi_.chiudi_tutti();
    evento->accept();
}

void Form1::controllo_salvataggio() {
    if (parti_->archiviatore.controllo_salvataggio()) close();
}

// Games and crossword.

void Form1::passa(void (systems::Sessione::*al_gioco)()) {
    const platform::Clessidra attesa;
    platform::DoEvents();
    const platform::FinestraFerma ferma(this);
    (sessione.*al_gioco)();
    rivedi_sviluppo();
    MSFlexGrid1->setFocus();
    platform::DoEvents();
}

void Form1::Image8_Click() {
    passa(&systems::Sessione::passa_al_superenalotto);
}

void Form1::Image10_Click() {
    passa(&systems::Sessione::passa_al_lotto);
}

bool Form1::offre(crossword::Gioco gioco) const {
    return (gioco.e_lotto() ? Image10 : Image8)->isEnabled();
}

void Form1::Imageb_Click(int Index) {
    sessione.cambia_forma(Index + 3);
    rivedi_sviluppo();
}

void Form1::nuovo_cruciverba() {
    if (parti_->archiviatore.nuovo_cruciverba()) resetta();
}

void Form1::resetta() {
    sessione.azzera();
    MSFlexGrid1->setFocus();
}

void Form1::mnunuovo_Click() {
    sessione.nuovo();
    MSFlexGrid1->setFocus();
}

void Form1::modifica_griglia(std::uint8_t /*non_usato*/) {
    sessione.dimensioni(Combo1->Text().toInt(), Combo2->Text().toInt());
}

void Form1::CMDnum_Click(int Index) {
    parti_->vista.CMDnum_Click(Index);
}

void Form1::completa() {
    parti_->riempimento.completa();
}

// Files.

void Form1::salva_sistema(bool& esito) {
    parti_->archiviatore.salva_sistema(esito);
}

void Form1::mnusalvanome_Click() {
    parti_->archiviatore.mnusalvanome_Click();
}

void Form1::mnuapri_Click() {
    parti_->archiviatore.mnuapri_Click();
}

void Form1::mnugest_sist_Click() {
    dialoghi_.gestore_utility(*this);
}

void Form1::mnuRipetizioniCon_Click() {
    sessione.ripetizioni(true);
    mostra_opzioni();
}

void Form1::mnuRipetizioniSenza_Click() {
    sessione.ripetizioni(false);
    mostra_opzioni();
}

// Development.

bool Form1::in_elaborazione() const {
    return parti_->lavori.in_corso() || sessione.occupata();
}

void Form1::cmd_elabora() {
    parti_->elaboratore.cmd_elabora();
}

void Form1::sviluppo() {
    parti_->elaboratore.sviluppo();
}

void Form1::verifica_spoglio(bool& pronto) {
    parti_->elaboratore.verifica_spoglio(pronto);
}

bool Form1::sviluppo_valido() {
    return parti_->elaboratore.sviluppo_valido();
}

void Form1::rivedi_sviluppo() {
    dialoghi_.rivedi_sviluppo();
    parti_->piede->aggiorna();
}

void Form1::mnuanalisi_Click() {
    bool pronto = false;
    verifica_spoglio(pronto);
    if (pronto) dialoghi_.analisi(*this);
}

void Form1::spoglio() {
    const platform::Clessidra attesa;
    bool pronto = false;
    verifica_spoglio(pronto);
    if (pronto) dialoghi_.spoglio(*this);
}

void Form1::stampa() {
    if (!Tag().isEmpty()) {
        dialoghi_.stampa(*this);
    } else {
        platform::MsgBox(this, {"Nessun sistema in linea.", platform::Pulsanti::ok, "Tabellino"});
    }
}

void Form1::Image3_Click(int Index) {
    if (Index != 8) Image3[static_cast<std::size_t>(Index)]->a_riposo();
    switch (Index) {
        case 0:
            return nuovo_cruciverba();
        case 1:
            return cmd_elabora();
        case 2:
            return sviluppo();
        case 3:
            return modifica_griglia(0);
        case 4:
            return parti_->vista.rimuovi();
        case 5:
            return parti_->riempimento.completa_con_scelti();
        case 6:
            return spoglio();
        case 7:
            return stampa();
        default:
            return controllo_salvataggio();
    }
}

}  // namespace app
