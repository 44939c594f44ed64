// What stands on the main form: its menus, the frames that its rooms fill, the commands. Sizes in
// pixels at 100 %; those of board and grid are fixed by their cells, the rest follows an
// eight-pixel rhythm.
#include <QMenu>
#include <QMenuBar>

#include "app/form1.h"
#include "app/menu_aspetto.h"
#include "platform/application.h"
#include "platform/qt/desktop.h"
#include "platform/qt/disposizione.h"
#include "statistics/riga_archivio.h"

namespace app {

/// Entry of a menu; one without a name is a line between others.
struct Form1::Voce {
    QAction* Form1::*azione = nullptr;
    const char* nome = nullptr;
    QString testo;
    QKeySequence tasto;
    std::function<void(Form1&)> fa;
    bool spunta = false;  ///< it shows whether it is in force
};

namespace {

constexpr QSize misura(784, 692);

QMenu* menu(QMenu* nuovo, const char* nome) {
    nuovo->setObjectName(nome);
    nuovo->menuAction()->setObjectName(nome);
    return nuovo;
}

}  // namespace

void Form1::riempi(QMenu* menu, const std::vector<Voce>& voci) {
    for (const Voce& v : voci) {
        if (v.nome == nullptr) {
            menu->addSeparator();
            continue;
        }
        QAction* a = menu->addAction(v.testo);
        a->setObjectName(v.nome);
        a->setShortcut(v.tasto);
        a->setCheckable(v.spunta);
        if (v.fa) connect(a, &QAction::triggered, this, [this, fa = v.fa] { fa(*this); });
        this->*v.azione = a;
    }
}

void Form1::crea_menu() {
    const auto apre = [](void (Dialoghi::*finestra)(Finestra&)) {
        return [finestra](Form1& f) { (f.dialoghi_.*finestra)(f); };
    };
    const Voce riga;
    QMenu* file = menu(menuBar()->addMenu(tr("&File")), "mnufile");
    riempi(
        file,
        {{&Form1::mnunuovo, "mnunuovo", tr("&Nuovo"), {}, &Form1::mnunuovo_Click},
         {&Form1::mnuapri, "mnuapri", tr("&Apri"), QKeySequence::Open, &Form1::mnuapri_Click},
         {&Form1::mnusalva, "mnusalva", tr("&Salva"), QKeySequence::Save, &Form1::mnusalva_Click},
         {&Form1::mnusalvanome,
          "mnusalvanome",
          tr("Salva con n&ome"),
          {},
          &Form1::mnusalvanome_Click},
         riga});
    QMenu* opzioni = menu(file->addMenu(tr("Opzioni &Elaborazione")), "mnuopzElaborazione");
    riempi(opzioni, {{&Form1::mnuRipetizioniSenza,
                      "mnuRipetizioniSenza",
                      tr("Elabora &senza Ripetizioni"),
                      {},
                      &Form1::mnuRipetizioniSenza_Click,
                      true},
                     {&Form1::mnuRipetizioniCon,
                      "mnuRipetizioniCon",
                      tr("Elabora &con Ripetizioni"),
                      {},
                      &Form1::mnuRipetizioniCon_Click,
                      true},
                     riga,
                     {&Form1::mnuEconomiche,
                      "mnuEconomiche",
                      tr("&Tabelle Economiche"),
                      {},
                      &Form1::mnuEconomiche_Click,
                      true}});
    riempi(file, {riga,
                  {&Form1::mnuEsci, "mnuEsci", tr("Es&ci"), QKeySequence(Qt::CTRL | Qt::Key_Q),
                   &Form1::controllo_salvataggio}});

    QMenu* utility = menu(menuBar()->addMenu(tr("&Utility")), "mnuutility");
    riempi(utility,
           {{&Form1::mnugest_sist,
             "mnugest_sist",
             tr("&Gestione Sistemi"),
             {},
             &Form1::mnugest_sist_Click},
            {&Form1::mnuImportocolonna,
             "mnuImportocolonna",
             tr("&Importo Colonna"),
             {},
             apre(&Dialoghi::importo_colonna)},
            riga,
            {&Form1::mnuanalisi, "mnuanalisi", tr("&Analisi Sistema"), QKeySequence(Qt::Key_F9),
             &Form1::mnuanalisi_Click},
            {&Form1::mnumigliora, "mnumigliora", tr("&Migliora la Disposizione"),
             QKeySequence(Qt::CTRL | Qt::Key_M), &Form1::mnumigliora_Click},
            {&Form1::mnutabelle, "mnutabelle", tr("&Tabelle"), {}, apre(&Dialoghi::tabelle)},
            {&Form1::mnuarchivio, "mnuarchivio", tr("Archivio &Estrazioni"), {}, {}},
            riga});
    aggiungi_menu_aspetto(utility, this, platform::radice(platform::App().Path));
    riempi(utility, {{&Form1::mostra_linee, "mostra_linee", tr("Mostra le &linee"), {}, {}, true}});

    QMenu* guida = menu(menuBar()->addMenu(tr("&Guida")), "mnuguida");
    riempi(guida,
           {{&Form1::mnuaiuto, "mnuaiuto", tr("&Aiuto"), QKeySequence::HelpContents,
             apre(&Dialoghi::guida)},
            {&Form1::mnuweb, "mnuweb", tr("&Web Site"), {}, apre(&Dialoghi::sito)},
            {&Form1::mnuinfo, "mnuinfo", tr("&Informazioni"), {}, apre(&Dialoghi::informazioni)}});
}

void Form1::crea_riquadri() {
    QWidget* area = centralWidget();
    area->setFixedSize(misura);
    platform::disponi({{&Picture2, "Picture2", {}, {8, 8, 768, 48}},
                       {&Frame3, "Frame3", tr("Tabellone"), {8, 64, 256, 250}},
                       {&Frame1, "Frame1", tr("Cruciverba"), {272, 64, 384, 250}},
                       {&Frame5, "Frame5", tr("Lista"), {664, 64, 112, 250}},
                       {&Frame9, "Frame9", tr("Gioco"), {8, 322, 388, 112}},
                       {&Frame8, "Frame8", tr("Forma"), {274, 322, 122, 112}},
                       {&Frame4, "Frame4", tr(" Dimensioni Cruciverba"), {404, 322, 146, 112}},
                       {&Frame7, "Frame7", tr("Sistema Statistico"), {558, 322, 218, 112}},
                       {&Frame2, "Frame2", {}, {8, 442, 768, 176}},
                       {&Frame6, "Frame6", {}, {8, 626, 768, 44}}},
                      area);
    Picture2->setAccessibleName(tr("Comandi"));
    Frame2->setAccessibleName(tr("Riepilogo"));
    Frame6->setAccessibleName(tr("Importo"));
    ProgressBar1 = platform::posto(new QProgressBar(area), "ProgressBar1", {8, 676, 768, 10});
    ProgressBar1->setAccessibleName(tr("Avanzamento"));
    ProgressBar1->setTextVisible(false);
    ProgressBar1->hide();
}

void Form1::crea_comandi() {
    Picture2->setProperty("comandi", true);
    struct Comando {
        int x;
        QString scopo;
    };
    const std::array<Comando, 9> comandi = {{{6, tr("Nuovo cruciverba (Ctrl+N)")},
                                             {66, tr("Elabora il sistema (F5)")},
                                             {110, tr("Visualizza lo sviluppo (F6)")},
                                             {170, tr("Svuota il cruciverba (Ctrl+Z lo rimette)")},
                                             {214, tr("Elimina il numero della casella (Canc)")},
                                             {258, tr("Completa con i numeri scelti")},
                                             {318, tr("Spoglio del sistema (F7)")},
                                             {362, tr("Stampa (F8, Ctrl+P)")},
                                             {722, tr("Esci")}}};
    for (int i = 0; i < 9; ++i) {
        const auto k = static_cast<std::size_t>(i);
        Image3[k] = platform::immagine(platform::membro("Image3", i),
                                       QStringLiteral(":/comando_%1.svg").arg(i), {32, 32},
                                       {comandi[k].x, 4, 40, 40}, comandi[k].scopo, Picture2);
        Image3[k]->set_sfondi(platform::colore(16707288), platform::colore(65535));
        connect(Image3[k], &QAbstractButton::clicked, this, [this, i] { Image3_Click(i); });
    }
}

void Form1::ordine_tastiera() {
    const auto importa = [this](const char* riga) {
        return Frame7->findChild<statistics::RigaArchivio*>(riga)->cmdarchivio;
    };
    QList<QWidget*> ordine = {MSFlexGrid1, List1,
                              Image8,      Image10,
                              Imageb[0],   Imageb[1],
                              Imageb[2],   Combo1,
                              Combo2,      importa("archivio_breve"),
                              cmdstat,     importa("archivio"),
                              Combo6,      cmdstat2,
                              Combo3,      Combo4,
                              Combo5,      UpDown2};
    for (platform::Image* i : Image3) ordine << i;
    for (qsizetype i = 1; i < ordine.size(); ++i) setTabOrder(ordine[i - 1], ordine[i]);
}

}  // namespace app
