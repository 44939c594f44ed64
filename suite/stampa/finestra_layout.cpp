// Where everything stands in the window of the slips.
#include <QGridLayout>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QRegularExpressionValidator>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>

#include "platform/qt/desktop.h"
#include "platform/qt/disposizione.h"
#include "stampa/finestra.h"

namespace schedine {

using platform::Frame;
using platform::membro;
using platform::q;

namespace {

constexpr int larghezza_sinistra = 320;
constexpr int alto_titolo = 24;
constexpr int cifre = 9;

QLabel* scritta(const QString& nome, QWidget* padre) {
    auto* e = new QLabel(padre);
    e->setObjectName(nome);
    e->setWordWrap(true);
    e->setTextFormat(Qt::PlainText);
    return e;
}

/// Panel with a caption and a column inside.
Frame* riquadro(const QString& nome, const QString& titolo, QWidget* padre) {
    auto* f = new Frame(titolo, padre);
    f->setObjectName(nome);
    auto* dentro = new QVBoxLayout(f);
    dentro->setContentsMargins(12, alto_titolo, 12, 10);
    dentro->setSpacing(6);
    return f;
}

QVBoxLayout* colonna_di(Frame* f) {
    return qobject_cast<QVBoxLayout*>(f->layout());
}

QLineEdit* campo(const QString& nome, const QString& scopo, int largo, QWidget* padre) {
    auto* t = new QLineEdit(padre);
    t->setObjectName(nome);
    t->setAccessibleName(scopo);
    t->setAlignment(Qt::AlignRight);
    t->setFixedSize(largo, 24);
    return t;
}

QLineEdit* campo_numero(const QString& nome, const QString& scopo, int largo, QWidget* padre) {
    QLineEdit* t = campo(nome, scopo, largo, padre);
    t->setValidator(new QRegularExpressionValidator(
        QRegularExpression("[0-9]{0," + QString::number(cifre) + "}"), t));
    return t;
}

}  // namespace

void Finestra::crea_sistema(QVBoxLayout* colonna) {
    Frame* f = riquadro("riqsistema", "Sistema", this);
    cmbsistema = platform::elenco("cmbsistema", "Sistema di cui stampare le schedine", {}, f);
    cmbsistema->setFixedHeight(24);
    lblsistema = scritta("lblsistema", f);
    colonna_di(f)->addWidget(cmbsistema);
    colonna_di(f)->addWidget(lblsistema);
    colonna->addWidget(f);
}

void Finestra::crea_generi(QVBoxLayout* colonna) {
    Frame* f = riquadro("riqgenere", "Che cosa si stampa", this);
    const std::array<QString, 3> nomi = {"Schedine da &ricopiare", "&Elenco per la ricevitoria",
                                         "&Modulo prestampato"};
    for (int i = 0; i < 3; ++i) {
        auto* o = new QRadioButton(nomi[static_cast<std::size_t>(i)], f);
        o->setObjectName(membro("optgenere", i));
        optgenere[static_cast<std::size_t>(i)] = o;
        colonna_di(f)->addWidget(o);
        if (i == 1) {
            chkgrande = new QCheckBox("&Caratteri grandi", f);
            chkgrande->setObjectName("chkgrande");
            auto* rientro = new QHBoxLayout;
            rientro->setContentsMargins(20, 0, 0, 0);
            rientro->addWidget(chkgrande);
            colonna_di(f)->addLayout(rientro);
        }
    }
    cmbmodulo = platform::elenco("cmbmodulo", "Modulo delle vostre schedine", {}, f);
    cmbmodulo->setFixedHeight(24);
    cmdmodifica = platform::pulsante_in_fila("cmdmodifica", "M&odifica…", f);
    cmdnuovo = platform::pulsante_in_fila("cmdnuovo", "&Nuovo…", f);
    auto* scelta = new QHBoxLayout;
    scelta->setContentsMargins(20, 0, 0, 0);
    scelta->setSpacing(6);
    scelta->addWidget(cmbmodulo, 1);
    scelta->addWidget(cmdmodifica);
    scelta->addWidget(cmdnuovo);
    colonna_di(f)->addLayout(scelta);
    colonna->addWidget(f);
}

void Finestra::crea_giocata(QVBoxLayout* colonna) {
    riqgiocata = riquadro("riqgiocata", "Giocata del Lotto", this);
    auto* ruote = new QGridLayout;
    ruote->setHorizontalSpacing(6);
    ruote->setVerticalSpacing(2);
    constexpr int per_riga = 3;
    for (std::size_t i = 0; i < chkruota.size(); ++i) {
        const std::string_view nome = statistics::ruote[i].nome;
        auto* c = new QCheckBox(q(std::string(nome)), riqgiocata);
        c->setObjectName(membro("chkruota", static_cast<int>(i)));
        c->setAccessibleName("Ruota di " + c->text());
        chkruota[i] = c;
        ruote->addWidget(c, static_cast<int>(i) / per_riga, static_cast<int>(i) % per_riga);
    }
    colonna_di(riqgiocata)->addLayout(ruote);
    auto* posta = new QHBoxLayout;
    auto* dice = new QLabel("Posta di o&gni colonna, a concorso (euro)", riqgiocata);
    txtposta = campo("txtposta", "Posta di ogni colonna a concorso, in euro", 70, riqgiocata);
    txtposta->setValidator(
        new QRegularExpressionValidator(QRegularExpression("[0-9]{0,5}(,[0-9]{0,2})?"), txtposta));
    dice->setBuddy(txtposta);
    posta->addWidget(dice, 1);
    posta->addWidget(txtposta);
    colonna_di(riqgiocata)->addLayout(posta);
    colonna->addWidget(riqgiocata);
}

void Finestra::crea_intervallo(QVBoxLayout* colonna) {
    Frame* f = riquadro("riqintervallo", "Quali schedine", this);
    auto* riga = new QHBoxLayout;
    riga->setSpacing(6);
    const std::array<QString, 2> nomi = {"&dalla", "&alla"};
    const std::array<QString, 2> scopi = {"Prima schedina", "Ultima schedina"};
    for (int i = 0; i < 2; ++i) {
        const auto k = static_cast<std::size_t>(i);
        auto* dice = new QLabel(nomi[k], f);
        txtdalla[k] = campo_numero(membro("txtdalla", i), scopi[k], 62, f);
        dice->setBuddy(txtdalla[k]);
        riga->addWidget(dice);
        riga->addWidget(txtdalla[k]);
    }
    riga->addStretch();
    auto* copie = new QLabel("cop&ie", f);
    txtcopie = campo("txtcopie", "Copie", 40, f);
    txtcopie->setValidator(
        new QRegularExpressionValidator(QRegularExpression("[0-9]{0,2}"), txtcopie));
    txtcopie->setText("1");
    copie->setBuddy(txtcopie);
    riga->addWidget(copie);
    riga->addWidget(txtcopie);
    colonna_di(f)->addLayout(riga);
    lblconto = scritta("lblconto", f);
    lblconto->setProperty("titolo", true);
    colonna_di(f)->addWidget(lblconto);
    colonna->addWidget(f);
}

void Finestra::crea_uscite(QVBoxLayout* colonna) {
    cmdstampa = platform::pulsante_in_fila("cmdstampa", "&Stampa", this);
    cmdstampa->setDefault(true);
    cmdpdf = platform::pulsante_in_fila("cmdpdf", "&PDF…", this);
    cmdtesto = platform::pulsante_in_fila("cmdtesto", "&Testo…", this);
    cmdchiudi = platform::pulsante_in_fila("cmdchiudi", "Chi&udi", this);
    cmdstampa->setToolTip("Manda le schedine alla stampante (Ctrl+P)");
    cmdpdf->setToolTip("Scrive le pagine in un file PDF");
    cmdtesto->setToolTip("Scrive un file di testo con una schedina per riga");
    auto* griglia = new QGridLayout;
    griglia->setSpacing(8);
    griglia->addWidget(cmdstampa, 0, 0);
    griglia->addWidget(cmdpdf, 0, 1);
    griglia->addWidget(cmdtesto, 1, 0);
    griglia->addWidget(cmdchiudi, 1, 1);
    colonna->addLayout(griglia);
}

QWidget* Finestra::crea_sinistra() {
    auto* lato = new QWidget;
    lato->setObjectName("lato");
    auto* colonna = new QVBoxLayout(lato);
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(8);
    crea_sistema(colonna);
    crea_generi(colonna);
    crea_giocata(colonna);
    crea_intervallo(colonna);
    colonna->addStretch();
    // A small screen scrolls the choices, and never hides what they lead to.
    auto* scorre = new QScrollArea(this);
    scorre->setObjectName("scelte");
    scorre->setFrameShape(QFrame::NoFrame);
    scorre->setWidgetResizable(true);
    scorre->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scorre->setFocusPolicy(Qt::NoFocus);
    scorre->setWidget(lato);
    scorre->viewport()->setAutoFillBackground(false);
    lato->setAutoFillBackground(false);
    auto* tutto = new QWidget(this);
    tutto->setFixedWidth(larghezza_sinistra);
    auto* pila = new QVBoxLayout(tutto);
    pila->setContentsMargins(0, 0, 0, 0);
    pila->setSpacing(8);
    pila->addWidget(scorre, 1);
    crea_uscite(pila);
    return tutto;
}

QWidget* Finestra::crea_destra() {
    auto* lato = new QWidget(this);
    auto* colonna = new QVBoxLayout(lato);
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(8);
    cmdindietro = platform::pulsante_in_fila("cmdindietro", "◄", lato);
    cmdavanti = platform::pulsante_in_fila("cmdavanti", "►", lato);
    cmdmeno = platform::pulsante_in_fila("cmdmeno", "−", lato);
    cmdpiu = platform::pulsante_in_fila("cmdpiu", "+", lato);
    cmdvero = platform::pulsante_in_fila("cmdvero", "100 %", lato);
    cmdintero = platform::pulsante_in_fila("cmdintero", "Foglio intero", lato);
    cmdintero->setCheckable(true);
    const auto dice = [](QPushButton* b, const QString& nome, const QString& tasti) {
        b->setAccessibleName(nome);
        b->setToolTip(nome + " (" + tasti + ")");
    };
    dice(cmdindietro, "Foglio precedente", "Ctrl+Pag↑");
    dice(cmdavanti, "Foglio seguente", "Ctrl+Pag↓");
    dice(cmdmeno, "Rimpicciolisci il foglio", "Alt+−");
    dice(cmdpiu, "Ingrandisci il foglio", "Alt++");
    dice(cmdvero, "Grandezza vera", "Ctrl+1");
    dice(cmdintero, "Foglio intero", "Ctrl+2");
    for (QPushButton* b : {cmdindietro, cmdavanti, cmdmeno, cmdpiu}) b->setFixedWidth(40);
    for (QPushButton* b : {cmdmeno, cmdpiu}) b->setFont(carattere_segni());
    cmdvero->setMinimumWidth(70);
    txtpagina = campo_numero("txtpagina", "Foglio mostrato", 60, lato);
    lblpagine = scritta("lblpagine", lato);
    lblpagine->setWordWrap(false);
    auto* sopra = new QHBoxLayout;
    sopra->setSpacing(6);
    sopra->addWidget(cmdindietro);
    sopra->addWidget(new QLabel("Foglio", lato));
    sopra->addWidget(txtpagina);
    sopra->addWidget(lblpagine);
    sopra->addWidget(cmdavanti);
    sopra->addStretch();
    for (QPushButton* b : {cmdmeno, cmdvero, cmdpiu, cmdintero}) sopra->addWidget(b);
    colonna->addLayout(sopra);
    anteprima = new Anteprima(lato);
    colonna->addWidget(anteprima, 1);
    return lato;
}

void Finestra::crea_lavoro() {
    lavoro = new QFrame(this);
    lavoro->setObjectName("lavoro");
    lavoro->setProperty("forma", "invio");
    auto* riga = new QHBoxLayout(lavoro);
    riga->setContentsMargins(16, 10, 16, 10);
    riga->setSpacing(12);
    lbllavoro = scritta("lbllavoro", lavoro);
    lbllavoro->setWordWrap(false);
    barra = new QProgressBar(lavoro);
    barra->setObjectName("barra");
    barra->setAccessibleName("Avanzamento della stampa");
    barra->setTextVisible(false);
    barra->setRange(0, 1000);
    barra->setFixedHeight(14);
    cmdferma = platform::pulsante_in_fila("cmdferma", "Ferma", lavoro);
    cmdferma->setShortcut(Qt::Key_Escape);
    riga->addWidget(lbllavoro);
    riga->addWidget(barra, 1);
    riga->addWidget(cmdferma);
    lavoro->hide();
}

void Finestra::crea_scorciatoie() {
    const auto tasto = [this](const QKeySequence& tasti, auto fare) {
        connect(new QShortcut(tasti, this), &QShortcut::activated, this, fare);
    };
    tasto(QKeySequence::Print, [this] { stampa_carta(); });
    tasto(Qt::CTRL | Qt::Key_PageDown, [this] { vai(pagina_ + 1); });
    tasto(Qt::CTRL | Qt::Key_PageUp, [this] { vai(pagina_ - 1); });
    tasto(Qt::CTRL | Qt::Key_Home, [this] { vai(1); });
    tasto(Qt::CTRL | Qt::Key_End, [this] {
        if (lavoro_ != nullptr) vai(lavoro_->pagine());
    });
    // Ctrl with plus, minus and 0 is for the window, as everywhere.
    tasto(Qt::ALT | Qt::Key_Plus, [this] { anteprima->ingrandisci(1); });
    tasto(Qt::ALT | Qt::Key_Minus, [this] { anteprima->ingrandisci(-1); });
    tasto(Qt::CTRL | Qt::Key_1, [this] { anteprima->a_grandezza_vera(); });
    tasto(Qt::CTRL | Qt::Key_2, [this] { anteprima->intero(true); });
    tasto(Qt::CTRL | Qt::Key_W, [this] { close(); });
}

}  // namespace schedine
