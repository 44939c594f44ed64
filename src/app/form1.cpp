#include "app/form1.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <QShortcut>
#include <QTimer>

#include "app/aspetto.h"
#include "app/dialoghi.h"
#include "app/stile.h"
#include "platform/application.h"
#include "platform/desktop.h"
#include "platform/disk.h"
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
    crea_analisi();
    ordine_tastiera();
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    setFixedSize(centralWidget()->width(),
                 centralWidget()->height() + menuBar()->sizeHint().height());
    collega();
}

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
    for (int i = 1; i <= 90; ++i) {
        connect(CMDnum[static_cast<std::size_t>(i)], &QPushButton::clicked, this,
                [this, i] { CMDnum_Click(i); });
    }
    for (int i = 0; i < 3; ++i) {
        const auto k = static_cast<std::size_t>(i);
        for (platform::Image* immagine : {Imageb[k], Imagey[k]}) {
            connect(immagine, &QAbstractButton::clicked, this, [this, i] { Imageb_Click(i); });
        }
    }
    connect(Image8, &QAbstractButton::clicked, this, &Form1::Image8_Click);
    connect(Image10, &QAbstractButton::clicked, this, &Form1::Image10_Click);
    connect(MSFlexGrid1, &platform::MSFlexGrid::SelChange, this, [this] {
        colore_griglia();
        abilita_corrente();
    });
    connect(List1, &platform::ListBox::Click, this, &Form1::List1_Click);
    for (platform::ComboBox* misura : {Combo1, Combo2}) {
        connect(misura, &platform::ComboBox::Click, this, [this] { modifica_griglia(0); });
    }
    connect(cmdstat, &QPushButton::clicked, this, &Form1::cmdstat_Click);
    connect(cmdstat2, &QPushButton::clicked, this, &Form1::cmdstat2_Click);
    const std::array<platform::ComboBox*, 3> liste = {Combo3, Combo4, Combo5};
    for (std::size_t i = 0; i < liste.size(); ++i) {
        connect(liste[i], &platform::ComboBox::Click, this, [this, i, lista = liste[i]] {
            sessione.scegli_tipo(static_cast<crossword::Elenco>(i + 1), lista->ListIndex());
        });
    }
    connect(UpDown2, &QSpinBox::valueChanged, this, [this](int quote) { sessione.quote(quote); });
    connect(mnunuovo, &QAction::triggered, this, &Form1::mnunuovo_Click);
    connect(mnuapri, &QAction::triggered, this, &Form1::mnuapri_Click);
    connect(mnusalva, &QAction::triggered, this, &Form1::mnusalva_Click);
    connect(mnusalvanome, &QAction::triggered, this, &Form1::mnusalvanome_Click);
    connect(mnuRipetizioniCon, &QAction::triggered, this, &Form1::mnuRipetizioniCon_Click);
    connect(mnuRipetizioniSenza, &QAction::triggered, this, &Form1::mnuRipetizioniSenza_Click);
    connect(mnuEsci, &QAction::triggered, this, &Form1::controllo_salvataggio);
    connect(mnugest_sist, &QAction::triggered, this, &Form1::mnugest_sist_Click);
    connect(mnuImportocolonna, &QAction::triggered, this,
            [this] { dialoghi_.importo_colonna(*this); });
    connect(mnuanalisi, &QAction::triggered, this, &Form1::mnuanalisi_Click);
    connect(mnuaiuto, &QAction::triggered, this, [this] { dialoghi_.guida(*this); });
    connect(mnuweb, &QAction::triggered, this, [this] { dialoghi_.sito(*this); });
    connect(mnuinfo, &QAction::triggered, this, [this] { dialoghi_.informazioni(*this); });
    connect(MSFlexGrid1, &platform::MSFlexGrid::KeyPress, this, &Form1::MSFlexGrid1_KeyPress);
    connect(annulla, &QAction::triggered, this, [this] { rifai(true); });
    connect(ripeti, &QAction::triggered, this, [this] { rifai(false); });
    constexpr std::array<int, 4> a_tasto = {1, 2, 6, 7};
    for (std::size_t i = 0; i < a_tasto.size(); ++i) {
        const QKeySequence tasto(Qt::Key_F5 + static_cast<int>(i));
        connect(new QShortcut(tasto, this), &QShortcut::activated,
                Image3[static_cast<std::size_t>(a_tasto[i])], &QAbstractButton::click);
    }
    connect(new QShortcut(QKeySequence::Print, this), &QShortcut::activated, Image3[7],
            &QAbstractButton::click);
    connect(new QShortcut(QKeySequence(Qt::Key_Delete), this), &QShortcut::activated, this,
            &Form1::Form_KeyDown_Canc);
}

void Form1::Form_Load() {
    // The forms that open later are this one's children and take its skin from it.
    const std::string aspetto = foglio_aspetto(platform::radice(App().Path), desktop_scuro());
    if (!aspetto.empty()) setStyleSheet(platform::q(aspetto));
    platform::LockWindowUpdate(this);
    riepilogo_.inizia(MSFlexGrid2);
    sessione.osserva([this](const systems::Cambiamento& cambiato) { mostra(cambiato); });
    sessione.avvia();
    mostra_ripetizioni();
    for (const statistics::Ruota& ruota : statistics::ruote) {
        Combo6->AddItem(platform::q(std::string(ruota.nome)));
    }
    Combo6->set_ListIndex(0);
    for (int i = 1; i <= 90; ++i) {
        CMDnum[static_cast<std::size_t>(i)]->setText(QString::number(i));
    }
    inizializza();
    platform::DoEvents();
    platform::LockWindowUpdate(nullptr);
}

void Form1::offri_ripresa() {
    if (const auto interrotto = ripresa_.interrotto()) {
        const QString quale =
            interrotto->nome.empty()
                ? QStringLiteral("Il cruciverba non aveva ancora un nome")
                : "Il cruciverba era del sistema " + platform::q(interrotto->nome);
        const QString testo = QString(
                                  "L'ultima volta il programma si è interrotto prima di un "
                                  "salvataggio.\n%1 e conteneva %2 numeri.\n\nRiprenderlo?")
                                  .arg(quale)
                                  .arg(interrotto->numeri);
        const int risposta =
            platform::MsgBox(this, {testo, platform::Pulsanti::si_no, "Tabellino"});
        if (risposta == platform::vbYes) {
            ripresa_.riprendi();
        } else {
            ripresa_.dimentica();
        }
    }
    constexpr int ogni_tre_secondi = 3000;
    auto* orologio = new QTimer(this);
    orologio->setObjectName("ripresa");
    connect(orologio, &QTimer::timeout, this, [this] { ripresa_.tieni(); });
    orologio->start(ogni_tre_secondi);
}

void Form1::inizializza() {
    apri_archivio();
    MSFlexGrid1->cella(0, 0);
    MSFlexGrid1->setFocus();
}

void Form1::apri_archivio() {
    const platform::Err errore = sessione.apri_archivio();
    if (!errore.ok()) statistics::errore_archivio(this, errore, "Sortivario");
}

void Form1::Image3_Click(int Index) {
    if (Index != 8) Image3[static_cast<std::size_t>(Index)]->a_riposo();
    switch (Index) {
        case 0:
            nuovo_cruciverba();
            break;
        case 1:
            cmd_elabora();
            break;
        case 2:
            sviluppo();
            break;
        case 3:
            modifica_griglia(0);
            break;
        case 4:
            Form_KeyDown_Canc();
            break;
        case 5:
            completa_con_scelti();
            break;
        case 6: {
            platform::MousePointer(11);
            bool pronto = false;
            verifica_spoglio(pronto);
            if (pronto) dialoghi_.spoglio(*this);
            platform::MousePointer(0);
            break;
        }
        case 7:
            if (!Tag().isEmpty()) {
                dialoghi_.stampa(*this);
            } else {
                platform::MsgBox(this,
                                 {"Nessun sistema in linea.", platform::Pulsanti::ok, "Tabellino"});
            }
            break;
        case 8:
            controllo_salvataggio();
            break;
        default:
            break;
    }
}

void Form1::closeEvent(QCloseEvent* evento) {
    if (in_elaborazione()) {
        // The job ends at its next pending-events point and closes the form itself.
        chiusura_chiesta_ = true;
        evento->ignore();
        return;
    }
    platform::Kill(App().file("act"));
    ripresa_.dimentica();
    sessione.archivio.chiudi();
    dialoghi_.chiudi_tutti();
    evento->accept();
}

}  // namespace app
