// Where everything stands on the main form. Sizes in pixels at 100 %; those of board and grid
// are fixed by their cells, the rest follows an eight-pixel rhythm.
#include <QMenu>
#include <QMenuBar>

#include "app/form1.h"
#include "app/menu_aspetto.h"
#include "platform/application.h"
#include "platform/qt/desktop.h"
#include "platform/qt/disposizione.h"

namespace app {

using platform::ComboBox;
using platform::elenco;
using platform::etichetta;
using platform::Frame;
using platform::Image;
using platform::membro;
using platform::riquadro;
using platform::valore;

namespace {

constexpr int margine = 8;
constexpr int larghezza = 784;
constexpr int y_comandi = 8;
constexpr int h_comandi = 48;
constexpr int y_medio = 64;
constexpr int h_medio = 250;
constexpr int y_giochi = y_medio + h_medio + margine;
constexpr int h_giochi = 112;
constexpr int y_riepilogo = y_giochi + h_giochi + margine;
constexpr int h_riepilogo = 176;
constexpr int y_importo = y_riepilogo + h_riepilogo + margine;
constexpr int h_importo = 44;
constexpr int y_barra = y_importo + h_importo + 6;
constexpr int altezza = y_barra + 10 + 6;

constexpr int casella = platform::px(360);

Image* immagine(const QString& nome, const QString& risorsa, QSize misura, QRect dove,
                const QString& suggerimento, QWidget* padre) {
    auto* i = new Image(risorsa, misura, padre);
    i->setObjectName(nome);
    i->setGeometry(dove);
    i->setToolTip(suggerimento);
    i->setAccessibleName(suggerimento);
    return i;
}

QAction* comando(QMenu* menu, const QString& testo, const QString& nome,
                 const QKeySequence& tasto = {}) {
    QAction* a = menu->addAction(testo);
    a->setObjectName(nome);
    a->setShortcut(tasto);
    return a;
}

/// Command of the whole window that stands in no menu bar.
QAction* azione(const QString& nome, const QString& testo, const QKeySequence& tasto,
                QWidget* finestra) {
    auto* a = new QAction(testo, finestra);
    a->setObjectName(nome);
    a->setShortcut(tasto);
    finestra->addAction(a);
    return a;
}

}  // namespace

void Form1::crea_menu() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->menuAction()->setObjectName("mnufile");
    file->setObjectName("mnufile");
    mnunuovo = comando(file, tr("&Nuovo"), "mnunuovo");
    mnuapri = comando(file, tr("&Apri"), "mnuapri", QKeySequence::Open);
    mnusalva = comando(file, tr("&Salva"), "mnusalva", QKeySequence::Save);
    mnusalvanome = comando(file, tr("Salva con n&ome"), "mnusalvanome");
    file->addSeparator();
    QMenu* opzioni = file->addMenu(tr("Opzioni &Elaborazione"));
    opzioni->setObjectName("mnuopzElaborazione");
    opzioni->menuAction()->setObjectName("mnuopzElaborazione");
    mnuRipetizioniSenza = comando(opzioni, tr("Elabora &senza Ripetizioni"), "mnuRipetizioniSenza");
    mnuRipetizioniCon = comando(opzioni, tr("Elabora &con Ripetizioni"), "mnuRipetizioniCon");
    mnuRipetizioniSenza->setCheckable(true);
    mnuRipetizioniCon->setCheckable(true);
    opzioni->addSeparator();
    mnuEconomiche = comando(opzioni, tr("&Tabelle Economiche"), "mnuEconomiche");
    mnuEconomiche->setCheckable(true);
    file->addSeparator();
    mnuEsci = comando(file, tr("Es&ci"), "mnuEsci", QKeySequence(Qt::CTRL | Qt::Key_Q));

    QMenu* utility = menuBar()->addMenu(tr("&Utility"));
    utility->setObjectName("mnuutility");
    utility->menuAction()->setObjectName("mnuutility");
    mnugest_sist = comando(utility, tr("&Gestione Sistemi"), "mnugest_sist");
    mnuImportocolonna = comando(utility, tr("&Importo Colonna"), "mnuImportocolonna");

    utility->addSeparator();
    mnuanalisi = comando(utility, tr("&Analisi Sistema"), "mnuanalisi", QKeySequence(Qt::Key_F9));
    mnumigliora = comando(utility, tr("&Migliora la Disposizione"), "mnumigliora",
                          QKeySequence(Qt::CTRL | Qt::Key_M));
    mnutabelle = comando(utility, tr("&Tabelle"), "mnutabelle");
    mnuarchivio = comando(utility, tr("Archivio &Estrazioni"), "mnuarchivio");
    utility->addSeparator();
    aggiungi_menu_aspetto(utility, this, platform::radice(platform::App().Path));
    mostra_linee = comando(utility, tr("Mostra le &linee"), "mostra_linee");
    mostra_linee->setCheckable(true);

    QMenu* guida = menuBar()->addMenu(tr("&Guida"));
    guida->setObjectName("mnuguida");
    guida->menuAction()->setObjectName("mnuguida");
    mnuaiuto = comando(guida, tr("&Aiuto"), "mnuaiuto", QKeySequence::HelpContents);
    mnuweb = comando(guida, tr("&Web Site"), "mnuweb");
    mnuinfo = comando(guida, tr("&Informazioni"), "mnuinfo");
}

void Form1::crea_comandi() {
    Picture2 = riquadro("Picture2", QString(),
                        {margine, y_comandi, larghezza - 2 * margine, h_comandi}, centralWidget());
    Picture2->setProperty("comandi", true);
    struct Comando {
        int x;
        QString testo;
    };
    const std::array<Comando, 9> comandi = {{{6, tr("Nuovo cruciverba (Ctrl+N)")},
                                             {66, tr("Elabora il sistema (F5)")},
                                             {110, tr("Visualizza lo sviluppo (F6)")},
                                             {170, tr("Svuota il cruciverba (Ctrl+Z lo rimette)")},
                                             {214, tr("Elimina il numero della casella (Canc)")},
                                             {258, tr("Completa con i numeri scelti")},
                                             {318, tr("Spoglio del sistema (F7)")},
                                             {362, tr("Stampa (F8, Ctrl+P)")},
                                             {larghezza - 2 * margine - 46, tr("Esci")}}};
    for (int i = 0; i < 9; ++i) {
        const Comando& c = comandi[static_cast<std::size_t>(i)];
        Image* nuova = immagine(membro("Image3", i), QStringLiteral(":/comando_%1.svg").arg(i),
                                {32, 32}, {c.x, 4, 40, 40}, c.testo, Picture2);
        nuova->set_sfondi(platform::colore(16707288), platform::colore(65535));
        Image3[static_cast<std::size_t>(i)] = nuova;
    }
}

void Form1::crea_tabellone() {
    Frame3 = riquadro("Frame3", tr("Tabellone"), {margine, y_medio, 256, h_medio}, centralWidget());
    for (int i = 0; i <= 90; ++i) {
        auto* b = new QPushButton(Frame3);
        b->setObjectName(membro("CMDnum", i));
        b->setProperty("numero", true);
        // Tab passes the board by: numbers are typed into the crossword.
        b->setFocusPolicy(Qt::ClickFocus);
        b->setAccessibleName(tr("Numero %1").arg(i));
        if (i == 0) {
            b->setGeometry(-casella, -casella, casella, casella);
            b->hide();
        } else {
            b->setGeometry(8 + (i - 1) % 10 * casella, 25 + (i - 1) / 10 * casella, casella,
                           casella);
        }
        CMDnum[static_cast<std::size_t>(i)] = b;
    }
}

void Form1::crea_cruciverba() {
    Frame1 = riquadro("Frame1", tr("Cruciverba"), {272, y_medio, 384, h_medio}, centralWidget());
    MSFlexGrid1 = new platform::MSFlexGrid(Frame1);
    MSFlexGrid1->setObjectName("MSFlexGrid1");
    MSFlexGrid1->setAccessibleName(tr("Cruciverba"));
    MSFlexGrid1->cursore_visibile(true);
    MSFlexGrid1->barra_esterna();
    MSFlexGrid1->setToolTip(tr("Clic su un numero del tabellone, o due cifre dalla tastiera"));
    annulla =
        azione("annulla", tr("&Annulla la modifica"), QKeySequence(Qt::CTRL | Qt::Key_Z), this);
    ripeti = azione("ripeti", tr("&Ripeti la modifica"), QKeySequence(Qt::CTRL | Qt::Key_Y), this);
    ripeti->setShortcuts({Qt::CTRL | Qt::Key_Y, Qt::CTRL | Qt::SHIFT | Qt::Key_Z});
    MSFlexGrid1->addActions({annulla, ripeti});
    MSFlexGrid1->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void Form1::crea_lista() {
    Frame5 = riquadro("Frame5", tr("Lista"), {664, y_medio, 112, h_medio}, centralWidget());
    List1 = new platform::ListBox(Frame5);
    List1->setObjectName("List1");
    List1->setAccessibleName(tr("Numeri in gioco"));
    List1->setGeometry(8, 22, 96, 180);
    etichetta(tr("Numeri  in gioco"), {8, 205, 96, 16}, Frame5, Qt::AlignHCenter);
    lblngioco = valore("lblngioco", {8, 222, 96, 22}, Frame5, Qt::AlignHCenter);
}

void Form1::crea_giochi() {
    Frame9 = riquadro("Frame9", tr("Gioco"), {margine, y_giochi, 388, h_giochi}, centralWidget());
    platform::set_Tag(Frame9, "5");
    const QSize placca(120, 36);
    const QRect sinistra(8, 30, 122, 40);
    const QRect destra(136, 30, 122, 40);
    const QString se = tr("Passa al SuperEnalotto");
    const QString lo = tr("Passa al Lotto");
    Image8 = immagine("Image8", ":/gioco_superenalotto.svg", placca, sinistra, se, Frame9);
    Image7 = immagine("Image7", ":/gioco_superenalotto_attivo.svg", placca, sinistra,
                      tr("SuperEnalotto"), Frame9);
    Image9 = immagine("Image9", ":/gioco_lotto_attivo.svg", placca, destra, tr("Lotto"), Frame9);
    Image10 = immagine("Image10", ":/gioco_lotto.svg", placca, destra, lo, Frame9);
    // The pictures of the game in force do nothing: Tab passes them by.
    for (Image* in_forza : {Image7, Image9}) in_forza->setFocusPolicy(Qt::NoFocus);
    etichetta(tr("SuperEnalotto"), {8, 76, 122, 18}, Frame9, Qt::AlignHCenter);
    etichetta(tr("Lotto"), {136, 76, 122, 18}, Frame9, Qt::AlignHCenter);

    Frame8 = riquadro("Frame8", tr("Forma"), {274, y_giochi, 122, h_giochi}, centralWidget());
    const std::array<QString, 3> forme = {tr("Terzine"), tr("Quartine"), tr("Cinquine")};
    for (int i = 0; i < 3; ++i) {
        const auto k = static_cast<std::size_t>(i);
        const QRect dove(platform::px(105), 22 + i * 29, 62, 24);
        etichetta(forme[k], {71, dove.y(), 49, dove.height()}, Frame8);
        const QString base = QStringLiteral(":/forma_%1").arg(i);
        Imageb[k] = immagine(membro("Imageb", i), base + ".svg", {60, 20}, dove, forme[k], Frame8);
        Imagey[k] = immagine(membro("Imagey", i), base + "_attiva.svg", {60, 20}, dove,
                             tr("%1 (scelta)").arg(forme[k]), Frame8);
        // The form chosen acts no more: Tab passes it by, as it does the game in force.
        Imagey[k]->setFocusPolicy(Qt::NoFocus);
        Imagey[k]->setVisible(i == 2);
        Imageb[k]->setVisible(i != 2);
    }
    Frame8->hide();
}

void Form1::crea_generatori() {
    Frame4 = riquadro("Frame4", tr(" Dimensioni Cruciverba"), {404, y_giochi, 146, h_giochi},
                      centralWidget());
    etichetta(tr("Colonne"), {12, 34, 54, 24}, Frame4);
    etichetta(tr("Righe"), {12, 68, 54, 24}, Frame4);
    Combo1 = elenco("Combo1", tr("Colonne"), {68, 34, 66, 24}, Frame4);
    Combo2 = elenco("Combo2", tr("Righe"), {68, 68, 66, 24}, Frame4);

    Frame7 = riquadro("Frame7", tr("Sistema Statistico"), {558, y_giochi, 218, h_giochi},
                      centralWidget());
    cmdstat = new QPushButton(tr("Genera"), Frame7);
    cmdstat->setObjectName("cmdstat");
    cmdstat->setGeometry(12, 24, 194, 28);
    Frame10 = riquadro("Frame10", QString(), {4, 56, 210, 52}, Frame7);
    Frame10->set_bordo(false);
    etichetta(tr("Ruota"), {8, 0, 100, 18}, Frame10);
    Combo6 = elenco("Combo6", tr("Ruota"), {8, 19, 100, 24}, Frame10);
    cmdstat2 = new QPushButton(tr("Genera"), Frame10);
    cmdstat2->setObjectName("cmdstat2");
    cmdstat2->setGeometry(116, 18, 86, 26);
    Frame10->hide();
}

void Form1::crea_riepilogo() {
    Frame2 =
        riquadro("Frame2", QString(), {margine, y_riepilogo, larghezza - 2 * margine, h_riepilogo},
                 centralWidget());
    QLabel* titolo = etichetta(tr(" Sistema in linea"), {8, 6, 110, 22}, Frame2);
    titolo->setProperty("titolo", true);
    lblsistema = valore("lblsistema", {120, 6, 640, 22}, Frame2, Qt::AlignLeft);
    MSFlexGrid2 = new platform::MSFlexGrid(Frame2);
    MSFlexGrid2->setObjectName("MSFlexGrid2");
    MSFlexGrid2->setAccessibleName(tr("Riepilogo delle combinazioni"));
    MSFlexGrid2->setFocusPolicy(Qt::NoFocus);
    MSFlexGrid2->setGeometry(9, 32, 750, 134);
    MSFlexGrid2->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    MSFlexGrid2->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The lists lie over the cells of column 2, rows 1 to 3.
    const int x = 9 + 1 + platform::px(2085) + platform::px(850);
    const std::array<QString, 3> scopi = {tr("Tipo delle righe"), tr("Tipo delle colonne"),
                                          tr("Tipo delle diagonali")};
    const std::array<ComboBox**, 3> liste = {&Combo3, &Combo4, &Combo5};
    for (int i = 0; i < 3; ++i) {
        const auto k = static_cast<std::size_t>(i);
        const QRect dove(x, 33 + (i + 1) * platform::px(325), platform::px(5000) - 1,
                         platform::px(325) - 1);
        *liste[k] = elenco(QStringLiteral("Combo%1").arg(i + 3), scopi[k], dove, Frame2);
        (*liste[k])->setProperty("in_griglia", true);
    }
}

void Form1::crea_importo() {
    Frame6 = riquadro("Frame6", QString(), {margine, y_importo, larghezza - 2 * margine, h_importo},
                      centralWidget());
    const Qt::Alignment destra = Qt::AlignRight;
    etichetta(tr("Importo totale"), {12, 10, 88, 24}, Frame6)->setProperty("titolo", true);
    lblimportotot = valore("lblimportotot", {104, 10, 108, 24}, Frame6, destra);
    lblvaluta[0] = etichetta(QString(), {218, 10, 40, 24}, Frame6);
    etichetta(tr("Quote"), {300, 10, 44, 24}, Frame6)->setProperty("titolo", true);
    lblnumquote = valore("lblnumquote", {346, 10, 44, 24}, Frame6, destra);
    lblnumquote->setText("1");
    UpDown2 = new platform::UpDown(Frame6);
    UpDown2->setObjectName("UpDown2");
    UpDown2->setAccessibleName(tr("Numero di quote"));
    UpDown2->setToolTip(UpDown2->accessibleName());
    UpDown2->setGeometry(392, 10, 20, 24);
    etichetta(tr("Importo di una quota"), {456, 10, 130, 24}, Frame6)->setProperty("titolo", true);
    lblquote = valore("lblquote", {590, 10, 108, 24}, Frame6, destra);
    lblvaluta[1] = etichetta(QString(), {704, 10, 40, 24}, Frame6);
    for (int i = 0; i < 2; ++i) {
        lblvaluta[static_cast<std::size_t>(i)]->setObjectName(membro("lblvaluta", i));
    }

    ProgressBar1 = new QProgressBar(centralWidget());
    ProgressBar1->setObjectName("ProgressBar1");
    ProgressBar1->setAccessibleName(tr("Avanzamento"));
    ProgressBar1->setTextVisible(false);
    ProgressBar1->setGeometry(margine, y_barra, larghezza - 2 * margine, 10);
    ProgressBar1->hide();
    centralWidget()->setFixedSize(larghezza, altezza);
}

void Form1::ordine_tastiera() {
    QWidget* prima = MSFlexGrid1;
    const auto poi = [&prima](QWidget* w) {
        QWidget::setTabOrder(prima, w);
        prima = w;
    };
    for (QWidget* w : {static_cast<QWidget*>(List1), static_cast<QWidget*>(Image8),
                       static_cast<QWidget*>(Image10)}) {
        poi(w);
    }
    for (platform::Image* i : Imageb) poi(i);
    for (QWidget* w : {static_cast<QWidget*>(Combo1), static_cast<QWidget*>(Combo2),
                       static_cast<QWidget*>(cmdstat), static_cast<QWidget*>(Combo6),
                       static_cast<QWidget*>(cmdstat2), static_cast<QWidget*>(Combo3),
                       static_cast<QWidget*>(Combo4), static_cast<QWidget*>(Combo5),
                       static_cast<QWidget*>(UpDown2)}) {
        poi(w);
    }
    for (platform::Image* i : Image3) poi(i);
}

}  // namespace app
