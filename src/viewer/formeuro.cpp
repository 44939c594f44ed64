#include "viewer/formeuro.h"

#include <algorithm>

#include <QKeyEvent>
#include <QLabel>
#include <QShowEvent>
#include <QValidator>

#include "app/finestra.h"
#include "platform/application.h"
#include "platform/qt/controls.h"
#include "platform/qt/desktop.h"
#include "platform/qt/scala.h"
#include "viewer/importo.h"

namespace viewer {

using platform::App;
using platform::MsgBox;
using platform::Pulsanti;

namespace {

qsizetype estranei(const QString& testo) {
    return std::count_if(testo.begin(), testo.end(),
                         [](QChar c) { return !tasto_prezzo(c.unicode()); });
}

/// Refuses a pasted text that brings in what cannot be typed; what the file held stays editable.
class FiltroPrezzo : public QValidator {
public:
    FiltroPrezzo(QObject* padre, qsizetype dal_file) : QValidator(padre), dal_file_(dal_file) {}
    State validate(QString& testo, int& /*posizione*/) const override {
        return estranei(testo) > dal_file_ ? Invalid : Acceptable;
    }

private:
    qsizetype dal_file_;
};

}  // namespace

formeuro::formeuro(app::Finestra& finestra) : QDialog(&finestra), finestra_(finestra) {
    setObjectName("formeuro");
    setWindowTitle("Importo colonna");
    setAttribute(Qt::WA_DeleteOnClose);
    setFixedSize(360, 128);
    auto* riquadro = new platform::Frame(QString(), this);
    riquadro->setGeometry(8, 8, 344, 72);
    auto* Label1 = new QLabel("Importo per singola colonna", riquadro);
    Label1->setObjectName("Label1");
    Label1->setGeometry(16, 24, 180, 24);
    Text1 = new QLineEdit(riquadro);
    Text1->setObjectName("Text1");
    Text1->setAccessibleName("Importo per singola colonna");
    Text1->setAlignment(Qt::AlignRight);
    Text1->setGeometry(200, 24, 80, 24);
    Text1->installEventFilter(this);
    auto* Label2 = new QLabel("Euro", riquadro);
    Label2->setObjectName("Label2");
    Label2->setGeometry(288, 24, 48, 24);
    const auto pulsante = [this](const char* nome, const QString& testo, QRect dove) {
        auto* b = new QPushButton(testo, this);
        b->setObjectName(nome);
        b->setGeometry(dove);
        b->setAutoDefault(false);
        return b;
    };
    Command2 = pulsante("Command2", "Salva Modifica", {8, 90, 112, 28});
    Command3 = pulsante("Command3", "Annulla", {124, 90, 74, 28});
    Command4 = pulsante("Command4", "Default", {202, 90, 74, 28});
    Command1 = pulsante("Command1", "Esci", {280, 90, 72, 28});
    Command2->setDefault(true);
    connect(Command1, &QPushButton::clicked, this, &QDialog::close);
    connect(Command2, &QPushButton::clicked, this, &formeuro::Command2_Click);
    connect(Command3, &QPushButton::clicked, this,
            [this] { mostra(platform::q(leggi_cst(App().Path, Lettore::annulla).prezzo)); });
    connect(Command4, &QPushButton::clicked, this, [this] { Text1->setText("0,50"); });
    mostra(platform::q(leggi_cst(App().Path, Lettore::formeuro).prezzo));
    Text1->setFocus();
    platform::rendi_scalabile(this);
}

void formeuro::mostra(const QString& prezzo) {
    delete Text1->validator();
    Text1->setValidator(new FiltroPrezzo(Text1, estranei(prezzo)));
    Text1->setText(prezzo);
}

bool formeuro::eventFilter(QObject* oggetto, QEvent* evento) {
    if (oggetto == Text1 && evento->type() == QEvent::KeyPress) {
        const QString testo = static_cast<QKeyEvent*>(evento)->text();
        // The keys that are dropped belong to nobody else either.
        if (estranei(testo) > 0 && testo.front().isPrint()) return true;
    }
    return QDialog::eventFilter(oggetto, evento);
}

void formeuro::Command2_Click() {
    const QString prezzo = Text1->text();
    QString rifiuto;
    if (prezzo.isEmpty()) {
        rifiuto = "Inserire l'importo per la giocata della singola Colonna";
    } else if (!prezzo.contains(',')) {
        rifiuto = "Per inserire il valore in Euro il formato corretto è: x,xx\r\nEsempio: 0,50";
    }
    if (!rifiuto.isEmpty()) {
        MsgBox(this, {rifiuto, Pulsanti::ok, "Pronostar 2004"});
        Text1->setFocus();
        return;
    }
    scrivi_cst(App().Path, {platform::s(prezzo), "Euro"});
    Text1->setText(prezzo);
    finestra_.sessione.totale_combinazioni();
    finestra_.sessione.importo();
    MsgBox(this, {"Modifica Registrata!", Pulsanti::ok, "Tabellino"});
}

void formeuro::showEvent(QShowEvent* evento) {
    QDialog::showEvent(evento);
    if (!evento->spontaneous()) platform::centra(this, &finestra_);
}

}  // namespace viewer
