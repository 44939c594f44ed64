// Where everything stands on the viewer.
#include <QHeaderView>

#include "app/finestra.h"
#include "platform/qt/annuncio.h"
#include "platform/qt/desktop.h"
#include "platform/qt/disposizione.h"
#include "platform/qt/scala.h"
#include "viewer/form3.h"
#include "viewer/strumenti.h"

namespace viewer {

using platform::etichetta;
using platform::membro;
using platform::posto;
using platform::px;
using platform::valore;

namespace {

constexpr QRect dove_dati(5, 5, 599, 497);
constexpr int y_liste = 74;
const int h_liste = px(5205);

}  // namespace

Form3::Form3(app::Finestra& finestra)
    : QDialog(&finestra), finestra_(finestra), gioco_(finestra.sessione.gioco()) {
    setObjectName("Form3");
    setWindowTitle(tr("Sviluppo"));
    setAttribute(Qt::WA_DeleteOnClose);
    setFixedSize(px(5820), px(1110));
    Frame2 = new platform::Frame(QString(), this);
    Frame2->setObjectName("Frame2");
    Frame2->setGeometry(dove_dati);
    Frame2->hide();
    crea_dati();
    crea_liste();
    crea_pagina();
    strumenti = new Strumenti(*this);
    crea_lettura();
    // The size that the player left it is that of the lists, which come after the reading.
    new platform::Scala(this);
}

void Form3::crea_lettura() {
    Frame1 = new platform::Frame(tr("Lettura dati in corso"), this);
    Frame1->setObjectName("Frame1");
    Frame1->setGeometry(4, 4, px(5820) - 8, px(1110) - 8);
    Label4 =
        posto(etichetta(tr("Lettura dei dati in corso"), {}, Frame1), "Label4", {10, 20, 360, 18});
    ProgressBar1 = new QProgressBar(Frame1);
    ProgressBar1->setObjectName("ProgressBar1");
    ProgressBar1->setAccessibleName(tr("Lettura dei dati in corso"));
    ProgressBar1->setGeometry(10, 42, 360, 14);
    ProgressBar1->setTextVisible(false);
    Frame1->raise();
}

void Form3::crea_dati() {
    Label2[0] = posto(etichetta(tr("Nome del Sistema"), {}, Frame2), membro("Label2", 0),
                      {18, 14, 112, 24});
    lblsistema = valore("lblsistema", {132, 14, 142, 24}, Frame2);
    Label2[1] = posto(etichetta(tr("Numero combinazioni del Sistema"), {}, Frame2),
                      membro("Label2", 1), {290, 14, 196, 24});
    lbltot = valore("lbltot", {488, 14, 93, 24}, Frame2);
    lbltot->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lblsistema->setAccessibleName(Label2[0]->text());
    lbltot->setAccessibleName(Label2[1]->text());
}

platform::ListView* Form3::lista(const QString& nome, QRect dove, const QString& scopo) {
    auto* l = new platform::ListView(Frame2);
    l->setObjectName(nome);
    l->setAccessibleName(scopo);
    l->setGeometry(dove);
    l->setProperty("sviluppo", true);
    QFont arial;
    arial.setFamilies({"Arial", "Liberation Sans"});
    arial.setStyleHint(QFont::SansSerif);
    arial.setPixelSize(12);
    l->setFont(arial);
    // The heads only name the columns for the program; the titles above are what is read.
    l->header()->hide();
    l->header()->setMinimumSectionSize(0);
    l->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    l->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    l->setAlternatingRowColors(true);
    l->installEventFilter(this);
    l->viewport()->installEventFilter(this);
    return l;
}

void Form3::crea_liste() {
    Shape1 = new QFrame(Frame2);
    Shape1->setObjectName("Shape1");
    Shape1->setGeometry(10, y_liste - 26, px(8715) - 2, h_liste + 34);
    Shape1->setProperty("fondo", true);
    struct Posto {
        platform::ListView** lista;
        const char* nome;
        const char* titolo;
        int sinistra;
        int larghezza;
    };
    const std::array<Posto, 4> posti{{
        {&ListView3, "ListView3", "Numero", 270, 1080},
        {&ListView1, "ListView1", "Combinazioni del sistema", 1350, 3030},
        {&ListView4, "ListView4", "Numero", 4605, 1080},
        {&ListView2, "ListView2", "Combinazioni del Sistema", 5685, 3030},
    }};
    for (std::size_t i = 0; i < posti.size(); ++i) {
        const Posto& p = posti[i];
        const int x = px(p.sinistra);
        const int largo = px(p.larghezza);
        Label1[i] = posto(etichetta(tr(p.titolo), {}, Frame2),
                          membro("Label1", static_cast<int>(i)), {x, y_liste - 23, largo, 20});
        Label1[i]->setAlignment(Qt::AlignCenter);
        Label1[i]->setProperty("su_fondo", true);
        *p.lista = lista(p.nome, {x, y_liste, largo, h_liste}, tr(p.titolo));
    }
}

void Form3::crea_pagina() {
    HScroll1 = new QScrollBar(Qt::Horizontal, Frame2);
    HScroll1->setObjectName("HScroll1");
    HScroll1->setAccessibleName(tr("Pagina"));
    HScroll1->setToolTip(tr("Cambia pagina (Pag su, Pag giù, Inizio, Fine)"));
    HScroll1->setGeometry(px(270), y_liste + h_liste + 14, px(8430), 18);
    HScroll1->setRange(1, 1);
    HScroll1->setPageStep(1);
    HScroll1->setEnabled(false);
    HScroll1->setContextMenuPolicy(Qt::NoContextMenu);
    HScroll1->installEventFilter(this);
    connect(HScroll1, &QScrollBar::valueChanged, this, &Form3::HScroll1_Change);
    const int y = y_liste + h_liste + 42;
    Label3[0] = posto(etichetta(tr("Pagina"), {}, Frame2), membro("Label3", 0), {18, y, 46, 24});
    lblpag[0] = valore(membro("lblpag", 0), {66, y, 76, 24}, Frame2);
    Label3[1] = posto(etichetta(tr("di"), {}, Frame2), membro("Label3", 1), {142, y, 24, 24});
    lblpag[1] = valore(membro("lblpag", 1), {166, y, 76, 24}, Frame2);
    for (QLabel* e : {Label3[1], lblpag[0], lblpag[1]}) e->setAlignment(Qt::AlignCenter);
    platform::rendi_annuncio(lblpag[0]);
    Command1 = new QPushButton(tr("Esci"), Frame2);
    Command1->setObjectName("Command1");
    Command1->setGeometry(px(8715) - 96, y - 2, 96, 28);
    Command1->setDefault(true);
    connect(Command1, &QPushButton::clicked, this, &QDialog::close);
}

}  // namespace viewer
