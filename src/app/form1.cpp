#include "app/form1.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <QShortcut>

#include "app/aspetto.h"
#include "app/dialoghi.h"
#include "platform/application.h"
#include "platform/desktop.h"
#include "platform/disk.h"
#include "platform/runtime.h"

namespace app {

using platform::App;

Form1::Form1(Dialoghi& dialoghi) : dialoghi_(dialoghi) {
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
    for (int i = 1; i <= 90; ++i) {
        connect(CMDnum[static_cast<std::size_t>(i)], &QPushButton::clicked, this, [this, i] {
            if (!in_completamento_) CMDnum_Click(i);
        });
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
        abilita_disabilita(static_cast<std::int16_t>(MSFlexGrid1->Row()),
                           static_cast<std::int16_t>(MSFlexGrid1->Col()));
    });
    connect(List1, &platform::ListBox::Click, this, &Form1::List1_Click);
    for (platform::ComboBox* misura : {Combo1, Combo2}) {
        connect(misura, &platform::ComboBox::Click, this, [this] { modifica_griglia(0); });
    }
    connect(cmdstat, &QPushButton::clicked, this, &Form1::cmdstat_Click);
    connect(cmdstat2, &QPushButton::clicked, this, &Form1::cmdstat2_Click);
    connect(Combo3, &platform::ComboBox::Click, this, &Form1::Combo3_Click);
    connect(Combo4, &platform::ComboBox::Click, this, &Form1::Combo4_Click);
    connect(Combo5, &platform::ComboBox::Click, this, &Form1::Combo5_Click);
    connect(UpDown2, &QSpinBox::valueChanged, this, &Form1::UpDown2_Change);
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
    connect(annulla, &QAction::triggered, this, &Form1::annulla_modifica);
    connect(ripeti, &QAction::triggered, this, &Form1::ripeti_modifica);
    constexpr std::array<int, 4> a_tasto = {1, 2, 6, 7};
    for (std::size_t i = 0; i < a_tasto.size(); ++i) {
        const QKeySequence tasto(Qt::Key_F5 + static_cast<int>(i));
        connect(new QShortcut(tasto, this), &QShortcut::activated,
                Image3[static_cast<std::size_t>(a_tasto[i])], &QAbstractButton::click);
    }
    connect(new QShortcut(QKeySequence(Qt::Key_Delete), this), &QShortcut::activated, this,
            &Form1::Form_KeyDown_Canc);
}

void Form1::sistema_in_linea(const QString& nome) {
    cronologia_.vuota();
    aggiorna_annulla();
    salvato_come(nome);
}

void Form1::salvato_come(const QString& nome) {
    sviluppo_superato_ = false;
    platform::set_Tag(this, nome);
    lblsistema->setText(nome);
}

int Form1::forma() const {
    return platform::CInt(platform::Val(platform::s(platform::Tag(Frame9)))).value_or(0);
}

crossword::Gioco Form1::gioco() const {
    return lotto ? crossword::Gioco::lotto(forma()) : crossword::Gioco::superenalotto();
}

int Form1::righe() const {
    return platform::CInt(platform::Val(platform::s(Combo2->Text()))).value_or(0);
}

int Form1::colonne() const {
    return platform::CInt(platform::Val(platform::s(Combo1->Text()))).value_or(0);
}

void Form1::Form_Load() {
    // The forms that open later are this one's children and take its skin from it.
    const std::string aspetto = foglio_aspetto(platform::radice(App().Path));
    if (!aspetto.empty()) setStyleSheet(platform::q(aspetto));
    matrice = crossword::Matrice(1, 1);
    platform::LockWindowUpdate(this);
    const bool con = platform::esiste_file(App().file("rip.dat"));
    mnuRipetizioniCon->setChecked(con);
    mnuRipetizioniSenza->setChecked(!con);
    Inizializza1();
    INIZIZLAIZZA_MATSIS();
    for (int i = 6; i <= 15; ++i) {
        Combo1->AddItem(QString::number(i));
        Combo2->AddItem(QString::number(i));
    }
    Combo1->set_ListIndex(0);
    Combo2->set_ListIndex(0);
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

void Form1::inizializza() {
    apri_archivio();
    salvato = true;
    MSFlexGrid1->cella(0, 0);
    MSFlexGrid1->setFocus();
    sistema_in_linea(QString());
    importo();
}

void Form1::pulisci() {
    for (const char* nome : {".sen", ".col"}) platform::Kill(App().file(nome));
}

void Form1::Form_KeyDown_Canc() {
    rimuovi();
    aggiorna_lblngioco();
}

void Form1::aggiorna_lblngioco() {
    const int quanti = aggiorna_lista();
    lblngioco->setText(quanti == 0 ? QString() : QString::number(quanti));
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
    if (in_elaborazione_ || in_completamento_) {
        // The job ends at its next pending-events point and closes the form itself.
        chiusura_chiesta_ = true;
        evento->ignore();
        return;
    }
    platform::Kill(App().file("act"));
    archivio.chiudi();
    dialoghi_.chiudi_tutti();
    evento->accept();
}

}  // namespace app
