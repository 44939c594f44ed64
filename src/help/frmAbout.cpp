#include "help/frmAbout.h"

#include "app/finestra.h"
#include "platform/application.h"
#include "platform/qt/desktop.h"
#include "platform/qt/disposizione.h"
#include "platform/qt/scala.h"

namespace help {

namespace {

constexpr QSize misura(440, 300);
constexpr int sinistra = 112;

QLabel* testo(const QString& nome, const QString& contenuto, QRect dove, QWidget* padre) {
    QLabel* e = platform::posto(new QLabel(contenuto, padre), nome, dove);
    e->setWordWrap(true);
    e->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return e;
}

}  // namespace

frmAbout::frmAbout(app::Finestra& finestra) : QDialog(&finestra) {
    setObjectName("frmAbout");
    setWindowTitle("Informazioni su Tabellino");
    setFixedSize(misura);
    const int largo = misura.width() - sinistra - 20;
    auto* fondo = new platform::Frame(QString(), this);
    fondo->setGeometry(8, 8, misura.width() - 16, misura.height() - 60);
    picIcon = new platform::Image(":/tabellino.svg", {72, 72}, this);
    picIcon->setObjectName("picIcon");
    picIcon->setAccessibleName("Tabellino");
    picIcon->setFocusPolicy(Qt::NoFocus);
    picIcon->setGeometry(24, 24, 72, 72);
    lblTitle = testo("lblTitle", "Tabellino", {sinistra, 22, largo, 34}, this);
    lblTitle->setProperty("titolo_grande", true);
    lblVersion = testo("lblVersion", "Versione " + platform::q(platform::App().versione()),
                       {sinistra, 58, largo, 18}, this);
    lblDescription = testo("lblDescription",
                           "Software per la creazione e la gestione di Sitemi a Cruciverba per il "
                           "SuperEnalotto. Tabellino è parte integrante di \"Sortivario 2004\"",
                           {sinistra, 86, largo, 54}, this);
    Label1 = testo("Label1", "Tabellino è parte integrante di Sortivario Plus",
                   {sinistra, 146, largo, 20}, this);
    Label1->setProperty("titolo", true);
    lblDisclaimer = testo("lblDisclaimer",
                          tr("Software libero con licenza MIT, senza alcuna garanzia. Il gioco è "
                             "vietato ai minori di 18 anni e può causare dipendenza patologica."),
                          {sinistra, 174, largo, 54}, this);
    cmdOK = new QPushButton("OK", this);
    cmdOK->setObjectName("cmdOK");
    cmdOK->setDefault(true);
    cmdOK->setGeometry(misura.width() - 112, misura.height() - 42, 104, 32);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    platform::rendi_scalabile(this);
    platform::centra(this, &finestra);
}

}  // namespace help
