// Where everything stands on the check form, and what happens when it is loaded. The list shows
// twelve rows and has the place of the crossword.
#include <QAbstractItemView>
#include <QShowEvent>

#include "app/finestra.h"
#include "check/estrazioni.h"
#include "check/frmspoglio.h"
#include "crossword/griglia.h"
#include "platform/qt/annuncio.h"
#include "platform/qt/desktop.h"
#include "platform/qt/disposizione.h"
#include "platform/qt/scala.h"

namespace check {

using platform::etichetta;
using platform::Frame;
using platform::membro;
using platform::pulsante;
using platform::px;
using platform::riquadro;
using platform::valore;

/// The packed rows as texts for the list.
class frmspoglio::Elenco : public platform::Righe {
public:
    explicit Elenco(const Dettaglio& dettaglio) : dettaglio_(dettaglio) {}
    [[nodiscard]] int quante() const override { return static_cast<int>(dettaglio_.righe()); }
    [[nodiscard]] QString testo(int riga, int colonna) const override {
        return platform::q(dettaglio_.testo(static_cast<std::size_t>(riga), colonna));
    }

private:
    const Dettaglio& dettaglio_;
};

namespace {

constexpr int margine = 8;
constexpr int sinistra = 300;
constexpr int x_destra = margine + sinistra + margine;
constexpr int destra = px(5225);
constexpr int larghezza = x_destra + destra + margine;
constexpr int y_sistema = 8;
constexpr int h_sistema = 82;
constexpr int y_estrazione = y_sistema + h_sistema + margine;
constexpr int h_estrazione = 210;
constexpr int h_lista = 268;
constexpr int y_ordine = y_sistema + h_lista + 6;
constexpr int y_esito = y_estrazione + h_estrazione + margine;
constexpr int h_esito = 76;
constexpr int y_avanzamento = y_esito + h_esito + 6;
constexpr int h_avanzamento = 8;
constexpr int y_comandi = y_avanzamento + h_avanzamento + 6;
constexpr int h_comandi = 44;
constexpr int altezza = y_comandi + h_comandi + margine;
constexpr int lato_casella = 34;

/// Frame that hides what lies beneath it.
Frame* coperchio(const QString& nome, QRect dove, QWidget* padre) {
    Frame* f = riquadro(nome, QString(), dove, padre);
    f->set_bordo(false);
    f->copre();
    f->hide();
    return f;
}

platform::ComboBox* elenco_lungo(const QString& nome, const QString& scopo, QRect dove,
                                 QWidget* padre) {
    platform::ComboBox* c = platform::elenco(nome, scopo, dove, padre);
    c->setProperty("lunga", true);
    c->setMaxVisibleItems(15);
    // Made for a list of the style's own kind, the view would have none.
    c->view()->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    return c;
}

/// A list of draws, in which digits look for a number, and with separators for a date.
platform::ComboBox* elenco_estrazioni(const QString& nome, const QString& scopo, QRect dove,
                                      QWidget* padre, const std::vector<std::string>& voci) {
    platform::ComboBox* c = elenco_lungo(nome, scopo, dove, padre);
    c->cerca_con("0123456789/.-", [&voci](const QString& digitato) {
        return cerca_estrazione(voci, platform::s(digitato));
    });
    return c;
}

/// A category of the result: what it is called above, how many below.
QLabel* categoria(const QString& nome, const QString& titolo, int x, int largo, QWidget* padre) {
    etichetta(titolo, {x, 12, largo, 22}, padre, Qt::AlignHCenter)->setProperty("titolo", true);
    QLabel* quante = valore(nome, {x, 38, largo, 26}, padre, Qt::AlignHCenter);
    // A number alone would be heard as the count.
    quante->setAccessibleName(titolo.size() > 3 ? titolo : QStringLiteral("Punti ") + titolo);
    return quante;
}

}  // namespace

frmspoglio::frmspoglio(app::Finestra& finestra)
    : QDialog(&finestra),
      finestra_(finestra),
      gioco_(finestra.sessione.gioco()),
      elenco_(std::make_unique<Elenco>(dettaglio_)) {
    setObjectName("frmspoglio");
    setWindowTitle("SPOGLIO VINCITE");
    setAttribute(Qt::WA_DeleteOnClose);
    setFixedSize(larghezza, altezza);
    crea_sistema();
    crea_estrazione();
    crea_estrazione_lotto();
    crea_cruciverba();
    crea_esito();
    crea_comandi();
    collega();
    spazio_in_piu();
    platform::rendi_scalabile(this);
    Form_Load();
}

frmspoglio::~frmspoglio() {
    // The list reads the rows, so it goes before them.
    delete ListView1;
}

void frmspoglio::crea_sistema() {
    Frame* f = riquadro("Frame1", QString(), {margine, y_sistema, sinistra, h_sistema}, this);
    etichetta(tr("Nome del Sitema"), {12, 14, 150, 24}, f);
    lblnomesistema = valore("lblnomesistema", {164, 14, 124, 24}, f, Qt::AlignLeft);
    etichetta(tr("Num. Comb. del Sistema"), {12, 44, 150, 24}, f);
    lblnumconb = valore("lblnumconb", {164, 44, 124, 24}, f, Qt::AlignRight);
    lblnomesistema->setAccessibleName(tr("Nome del Sitema"));
    lblnumconb->setAccessibleName(tr("Num. Comb. del Sistema"));
}

QLineEdit* frmspoglio::casella(const QString& nome, const QString& scopo, QRect dove,
                               QWidget* padre) {
    auto* t = new QLineEdit(padre);
    t->setObjectName(nome);
    t->setAccessibleName(scopo);
    t->setGeometry(dove);
    t->setAlignment(Qt::AlignCenter);
    t->setProperty("casella", true);
    t->installEventFilter(this);
    return t;
}

void frmspoglio::crea_estrazione() {
    Frame* f = riquadro("Frame3", QString(), {margine, y_estrazione, sinistra, h_estrazione}, this);
    const QString scelta = tr("Scegli la combinazione da esaminare");
    etichetta(scelta, {12, 12, 276, 20}, f);
    Combo1 = elenco_estrazioni("Combo1", scelta, {12, 34, 276, 26}, f, voci_);
    etichetta(tr("Combinazione Vincente"), {12, 70, 200, 20}, f);
    etichetta(tr("Jolly"), {288 - lato_casella, 70, lato_casella, 20}, f, Qt::AlignHCenter);
    for (int i = 1; i <= 6; ++i) {
        txtnum[static_cast<std::size_t>(i)] =
            casella(membro("txtnum", i), tr("Numero %1").arg(i),
                    {12 + (i - 1) * (lato_casella + 4), 92, lato_casella, 28}, f);
    }
    txtnum[0] =
        casella(membro("txtnum", 0), tr("Jolly"), {288 - lato_casella, 92, lato_casella, 28}, f);
    txtnum[0]->setProperty("jolly", true);
    const QString pannelli = tr("Numero di pannelli per Schedina");
    etichetta(pannelli, {12, 132, 212, 24}, f);
    Combo2 = elenco_lungo("Combo2", pannelli, {232, 132, 56, 24}, f);
    for (int i = 1; i <= 5; ++i) Combo2->AddItem(QString::number(i));
    Cmdspoglio = pulsante("Cmdspoglio", tr("Spoglio"), {168, 168, 120, 30}, f);
    Cmdspoglio->setDefault(true);
}

void frmspoglio::crea_estrazione_lotto() {
    Framevinclotto = coperchio("Framevinclotto", {4, 8, sinistra - 8, 118}, Combo1->parentWidget());
    const QString scelta = tr("Scegli la combinazione da esaminare");
    etichetta(scelta, {8, 4, 276, 20}, Framevinclotto);
    Combo3 = elenco_estrazioni("Combo3", scelta, {8, 26, 276, 26}, Framevinclotto, voci_);
    etichetta(tr("Combinazione Vincente"), {8, 62, 276, 20}, Framevinclotto);
    for (int i = 0; i < 5; ++i) {
        txtnumlotto[static_cast<std::size_t>(i)] =
            casella(membro("txtnumlotto", i), tr("Numero %1").arg(i + 1),
                    {8 + i * (lato_casella + 4), 84, lato_casella, 28}, Framevinclotto);
    }
}

void frmspoglio::crea_cruciverba() {
    const QRect dove(x_destra, y_sistema, destra, h_lista);
    ListView1 = new platform::ListaVirtuale(*elenco_, this);
    ListView1->setObjectName("ListView1");
    ListView1->setAccessibleName(tr("Elenco delle schedine vincenti"));
    ListView1->setGeometry(dove);
    ListView1->set_Width(4980);
    ListView1->setProperty("elenco", true);
    ListView1->setAlternatingRowColors(true);
    ListView1->setFocusPolicy(Qt::NoFocus);
    Frame4 = riquadro("Frame4", QString(), dove, this);
    Frame4->copre();
    MSFlexGrid1 = new platform::MSFlexGrid(Frame4);
    MSFlexGrid1->setObjectName("MSFlexGrid1");
    MSFlexGrid1->setAccessibleName(tr("Cruciverba"));
    MSFlexGrid1->setFocusPolicy(Qt::NoFocus);
    MSFlexGrid1->setProperty(platform::Scala::da_se, true);
    MSFlexGrid1->barra_esterna();
    Frame4->installEventFilter(this);
    piclist = new platform::Image(":/piclist.svg", {220, 160}, this);
    piclist->setObjectName("piclist");
    piclist->setFocusPolicy(Qt::NoFocus);
    piclist->setAttribute(Qt::WA_TransparentForMouseEvents);
    piclist->set_sfondi(Qt::white, Qt::white);
    piclist->setGeometry(dove);
    piclist->hide();
    const int y = y_ordine;
    lblordina = etichetta(tr("Ordina per"), {x_destra, y, 100, 28}, this, Qt::AlignRight);
    cmdpunti = pulsante("cmdpunti", tr("Punti"), {x_destra + 108, y, 116, 28}, this);
    cmdsched = pulsante("cmdsched", tr("N. Schedina"), {x_destra + 232, y, 116, 28}, this);
}

void frmspoglio::crea_esito() {
    Frame2 =
        riquadro("Frame2", QString(), {margine, y_esito, larghezza - 2 * margine, h_esito}, this);
    etichetta(tr("Punti"), {12, 12, 62, 22}, Frame2);
    etichetta(tr("N. Comb."), {12, 38, 62, 26}, Frame2);
    constexpr int x = 78;
    constexpr int passo = 54;
    constexpr int largo = 50;
    // The label of no points is the last of the array, since place 0 is the total.
    const std::array<std::size_t, 8> posti{7, 1, 2, 3, 4, 5, 0, 6};
    for (int i = 0; i < 8; ++i) {
        const std::size_t posto = posti[static_cast<std::size_t>(i)];
        if (posto == 0) {
            lblvinc_j[5] = categoria(membro("lblvinc_j", 5), "5+1", x + i * passo, largo, Frame2);
            continue;
        }
        const int indice = static_cast<int>(posto);
        lblvinc[posto] = categoria(membro("lblvinc", indice), QString::number(indice % 7),
                                   x + i * passo, largo, Frame2);
    }
    framelotto = coperchio("framelotto", {x - 4, 6, 8 * passo + 4, h_esito - 12}, Frame2);
    for (int p = 2; p <= 5; ++p) {
        QLabel* nuova = categoria(membro("lblvinclotto", p - 2), QString::number(p),
                                  4 + (p - 2) * 2 * passo, largo * 2, framelotto);
        lblvinclotto[static_cast<std::size_t>(p - 2)] = nuova;
    }
    // The same heights as beneath, where the frame begins six pixels further down.
    for (QLabel* e : framelotto->findChildren<QLabel*>()) e->move(e->x(), e->y() - 6);
    const int x_totale = x + 8 * passo + 4;
    lblvinc[0] = categoria(membro("lblvinc", 0), tr("Totale Comb. Vincenti"), x_totale,
                           Frame2->width() - x_totale - 10, Frame2);
    platform::rendi_annuncio(lblvinc[0]);
    picprog1 = new QFrame(this);
    picprog1->setObjectName("picprog1");
    picprog1->setProperty("binario", true);
    picprog1->setGeometry(margine, y_avanzamento, larghezza - 2 * margine, h_avanzamento);
    picprog1->hide();
    picprog2 = new QFrame(picprog1);
    picprog2->setObjectName("picprog2");
    picprog2->setProperty("barra", true);
    picprog2->setGeometry(0, 0, 0, h_avanzamento);
}

void frmspoglio::crea_comandi() {
    Frame* f = riquadro("Frame5", QString(),
                        {margine, y_comandi, larghezza - 2 * margine, h_comandi}, this);
    const QString dettaglio = tr("Dettaglio Schedine Vincenti");
    Cmdvincenti = pulsante("Cmdvincenti", dettaglio, {10, 8, 220, 28}, f);
    Command1 = pulsante("Command1", tr("Annulla"), {438, 8, 100, 28}, f);
    CmdEsci = pulsante("CmdEsci", tr("Esci"), {546, 8, 100, 28}, f);
    framedetlotto = coperchio("framedetlotto", {100, 4, 240, 36}, f);
    Cmdvincentilotto = pulsante("Cmdvincentilotto", dettaglio, {8, 4, 220, 28}, framedetlotto);
    Cmdvincenti->setEnabled(false);
    Cmdvincentilotto->setEnabled(false);
    riga_archivio = new statistics::RigaArchivio(finestra_, f);
    riga_archivio->setGeometry(243, 4, 189, 36);
}

// More room shows more combinations, and a larger crossword.
void frmspoglio::spazio_in_piu() {
    using platform::Scala;
    constexpr int a_sinistra = Scala::sta_a_sinistra;
    constexpr int in_fondo = Scala::allarga | Scala::segue_fondo;
    platform::ancora({lblnomesistema->parentWidget()}, a_sinistra | Scala::sta_in_alto);
    platform::ancora({Combo2->parentWidget()}, a_sinistra | Scala::alza);
    platform::ancora({Frame4, ListView1, piclist}, Scala::allarga | Scala::alza);
    platform::ancora({lblordina, cmdpunti, cmdsched}, Scala::segue_destra | Scala::segue_fondo);
    platform::ancora({Frame2, picprog1, CmdEsci->parentWidget()}, in_fondo);
    platform::ancora({Command1, CmdEsci}, Scala::segue_destra);
    platform::ancora({riga_archivio}, Scala::allarga);
    platform::ancora({picprog2}, Scala::in_proporzione);
    for (const QWidget* f : {static_cast<QWidget*>(Frame2), static_cast<QWidget*>(framelotto)}) {
        for (QWidget* w : f->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            platform::ancora({w}, Scala::in_proporzione);
        }
    }
}

void frmspoglio::collega() {
    connect(Combo1, &platform::ComboBox::Click, this, &frmspoglio::Combo1_Click);
    connect(Combo3, &platform::ComboBox::Click, this, &frmspoglio::Combo3_Click);
    connect(Cmdspoglio, &QPushButton::clicked, this, &frmspoglio::Cmdspoglio_Click);
    connect(Cmdvincenti, &QPushButton::clicked, this, &frmspoglio::Cmdvincenti_Click);
    connect(Cmdvincentilotto, &QPushButton::clicked, this, &frmspoglio::Cmdvincentilotto_Click);
    connect(Command1, &QPushButton::clicked, this, &frmspoglio::Command1_Click);
    connect(CmdEsci, &QPushButton::clicked, this, &QDialog::close);
    connect(cmdpunti, &QPushButton::clicked, this, [this] { ordina(cmdpunti, colonna_punti); });
    connect(cmdsched, &QPushButton::clicked, this, [this] { ordina(cmdsched, colonna_chiave); });
    const auto poi = [this](QLineEdit* casella, QWidget* prossima) {
        connect(casella, &QLineEdit::textChanged, this,
                [this, casella, prossima] { casella_piena(casella, prossima); });
    };
    for (std::size_t i = 1; i <= 6; ++i) poi(txtnum[i], txtnum[i < 6 ? i + 1 : 0]);
    poi(txtnum[0], Cmdspoglio);
    connect(riga_archivio, &statistics::RigaArchivio::cambiato, this,
            &frmspoglio::rivedi_estrazioni);
    // The Lotto boxes go round instead.
    for (std::size_t i = 0; i < 5; ++i) poi(txtnumlotto[i], txtnumlotto[(i + 1) % 5]);
}

void frmspoglio::ordine_tastiera() {
    QWidget* prima = txtnum[1];
    const auto poi = [&prima](QWidget* w) {
        QWidget::setTabOrder(prima, w);
        prima = w;
    };
    for (std::size_t i = 2; i <= 6; ++i) poi(txtnum[i]);
    poi(txtnum[0]);
    for (QLineEdit* casella : txtnumlotto) poi(casella);
    for (QWidget* w : std::initializer_list<QWidget*>{
             Cmdspoglio, Cmdvincenti, Cmdvincentilotto, riga_archivio->cmdarchivio, Command1,
             CmdEsci, cmdsched, cmdpunti, ListView1, Combo1, Combo3, Combo2}) {
        poi(w);
    }
}

void frmspoglio::Form_Load() {
    if (gioco_.e_lotto()) {
        Framevinclotto->show();
        framelotto->show();
        framedetlotto->show();
        framedetlotto->move(px(30), platform::posto_a_100(framedetlotto).y());
        // What lies beneath must not be reached by keys.
        for (QLineEdit* casella : txtnum) casella->setFocusPolicy(Qt::NoFocus);
        for (QWidget* w : {static_cast<QWidget*>(Combo1), static_cast<QWidget*>(Cmdvincenti)}) {
            w->setFocusPolicy(Qt::NoFocus);
        }
    }
    copia_cruciverba();
    Combo2->set_ListIndex(4);
    platform::centra(this, &finestra_);
    ordine_tastiera();
    apridatabase();
    riga_archivio->aggiorna();
}

void frmspoglio::copia_cruciverba() {
    const systems::Sessione& sessione = finestra_.sessione;
    MSFlexGrid1->hide();
    crossword::forma_griglia(MSFlexGrid1, sessione.colonne(), sessione.righe());
    crossword::scrivi_griglia(MSFlexGrid1, sessione.matrice());
    centra_cruciverba();
    MSFlexGrid1->show();
}

void frmspoglio::centra_cruciverba() {
    MSFlexGrid1->move(Frame4->width() / 2 - MSFlexGrid1->width() / 2,
                      Frame4->height() / 2 - MSFlexGrid1->height() / 2);
}

void frmspoglio::showEvent(QShowEvent* evento) {
    QDialog::showEvent(evento);
    if (evento->spontaneous() || focusWidget() != nullptr) return;
    (gioco_.e_lotto() ? txtnumlotto[0] : txtnum[1])->setFocus();
}

}  // namespace check
