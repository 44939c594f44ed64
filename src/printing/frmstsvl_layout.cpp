// Where everything stands in the print options.
#include <QValidator>

#include "platform/qt/disposizione.h"
#include "printing/frmstsvl.h"

namespace printing {

using platform::Frame;
using platform::membro;
using platform::pulsante;

namespace {

constexpr int x_destra = 224;
constexpr int larghezza_destra = 148;
constexpr int y_prima = 16;
constexpr int passo_opzioni = 42;
constexpr int altezza_opzione = 36;

class SoloCifre : public QValidator {
public:
    using QValidator::QValidator;
    State validate(QString& testo, int& /*posizione*/) const override {
        for (const QChar c : testo) {
            if (c < u'0' || c > u'9') return Invalid;
        }
        return Acceptable;
    }
};

/// Option that is chosen by a click anywhere on its coloured ground.
class Opzione : public QRadioButton {
public:
    using QRadioButton::QRadioButton;

protected:
    [[nodiscard]] bool hitButton(const QPoint& punto) const override {
        return rect().contains(punto);
    }
};

/// Ground of a kind that the style sheet knows.
QFrame* forma(const QString& nome, QRect dove, const QString& specie, QWidget* padre) {
    QFrame* f = platform::posto(new QFrame(padre), nome, dove);
    f->setAttribute(Qt::WA_TransparentForMouseEvents);
    f->setProperty("forma", specie);
    return f;
}

/// What a button with a French caption does.
void di_che_cosa_fa(QPushButton* pulsante, const QString& scopo) {
    pulsante->setAccessibleName(pulsante->text() + ": " + scopo);
    pulsante->setToolTip(scopo.left(1).toUpper() + scopo.mid(1));
}

}  // namespace

void frmstsvl::crea_opzioni() {
    Frame2 = new Frame(QString(), this);
    Frame2->setObjectName("Frame2");
    Frame2->setGeometry(8, 8, 384, 196);
    Frame2->set_bordo(false);
    Shape2 = forma("Shape2", {}, "fondo", Frame2);
    const std::array<QString, 3> opzioni = {"Prospetto", "Sviluppo", "Schedine"};
    for (int i = 0; i < 3; ++i) {
        const auto k = static_cast<std::size_t>(i);
        const QRect dove(12, y_prima + i * passo_opzioni, 200, altezza_opzione);
        Shape1[k] = forma(membro("Shape1", i), dove, opzioni[k].toLower(), Frame2);
        auto* o = new Opzione(opzioni[k], Frame2);
        o->setObjectName(membro("Option1", i));
        o->setGeometry(dove.adjusted(12, 0, -4, 0));
        Option1[k] = o;
    }
}

void frmstsvl::crea_intervallo() {
    Frame1 = new Frame("Interval d'imprimage", Frame2);
    Frame1->setObjectName("Frame1");
    Frame1->setGeometry(x_destra, y_prima - 2, larghezza_destra, 82);
    const std::array<QString, 2> scopi = {tr("Prima riga"), tr("Ultima riga")};
    for (int i = 0; i < 2; ++i) {
        const auto k = static_cast<std::size_t>(i);
        auto* t = new QLineEdit(Frame1);
        t->setObjectName(membro("txtdalla", i));
        t->setAccessibleName(scopi[k]);
        t->setAlignment(Qt::AlignRight);
        t->setGeometry(10 + i * 70, 36, 58, 24);
        t->setValidator(new SoloCifre(t));
        t->installEventFilter(this);
        txtdalla[k] = t;
    }
    auto* fra = new QLabel(QStringLiteral("–"), Frame1);
    fra->setGeometry(68, 36, 12, 24);
    fra->setAlignment(Qt::AlignCenter);
}

void frmstsvl::crea_pulsanti() {
    cmdstampa = pulsante("cmdstampa", "Imprimer",
                         {x_destra, y_prima + 2 * passo_opzioni + 3, larghezza_destra, 30}, Frame2);
    constexpr int y = 152;
    forma(QString(), {12, y - 9, 360, 1}, "riga", Frame2);
    Command2 = pulsante("Command2", "Conferma", {12, y, 132, 30}, Frame2);
    Command2->setDefault(true);
    Command3 = pulsante("Command3", "Annulla", {154, y, 104, 30}, Frame2);
    Command1 = pulsante("Command1", "Effacer", {268, y, 104, 30}, Frame2);
    di_che_cosa_fa(cmdstampa, "stampa subito lo sviluppo del SuperEnalotto");
    di_che_cosa_fa(Command1, "chiudi senza stampare");
}

void frmstsvl::crea_invio() {
    Picture1 = forma("Picture1", {52, 50, 280, 84}, "invio", Frame2);
    Label1[0] = new QLabel("Envoi données à l'imprimante. Attendre SVP", Picture1);
    Label1[1] = new QLabel(Picture1);
    for (int i = 0; i < 2; ++i) {
        QLabel* riga = Label1[static_cast<std::size_t>(i)];
        riga->setObjectName(membro("Label1", i));
        riga->setAlignment(Qt::AlignCenter);
        riga->setGeometry(8, 10 + i * 20, 264, 18);
    }
    Picture2 = forma("Picture2", {20, 58, 240, 12}, "binario", Picture1);
    // It belongs to the design and stays hidden: no job shows it.
    Picture1->hide();
}

void frmstsvl::crea_lavoro() {
    lavoro = platform::posto(new QFrame(Frame2), "lavoro", {0, 0, 384, 196});
    lavoro->setProperty("forma", "invio");
    QLabel* titolo = platform::etichetta("Stampa in corso", {32, 40, 200, 20}, lavoro);
    titolo->setObjectName("lbllavoro");
    lblpagina = platform::etichetta({}, {232, 40, 120, 20}, lavoro, Qt::AlignRight);
    lblpagina->setObjectName("lblpagina");
    barra = platform::posto(new QProgressBar(lavoro), "barra", {32, 68, 320, 14});
    barra->setAccessibleName("Avanzamento della stampa");
    barra->setTextVisible(false);
    barra->setRange(0, 1000);
    cmdferma = pulsante("cmdferma", "Annulla", {140, 112, 104, 30}, lavoro);
    cmdferma->setShortcut(Qt::Key_Escape);
    lavoro->hide();
}

void frmstsvl::ordine_tastiera() {
    // The focus comes up on cmdstampa: from there the choices are next, the other buttons last.
    QWidget* prima = cmdstampa;
    for (QWidget* w : {static_cast<QWidget*>(Option1[0]), static_cast<QWidget*>(Option1[1]),
                       static_cast<QWidget*>(Option1[2]), static_cast<QWidget*>(txtdalla[0]),
                       static_cast<QWidget*>(txtdalla[1]), static_cast<QWidget*>(Command2),
                       static_cast<QWidget*>(Command3), static_cast<QWidget*>(Command1)}) {
        QWidget::setTabOrder(prima, w);
        prima = w;
    }
}

}  // namespace printing
