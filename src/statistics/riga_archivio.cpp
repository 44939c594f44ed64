#include "statistics/riga_archivio.h"

#include <QEvent>
#include <QHBoxLayout>

#include "app/finestra.h"
#include "platform/calendario.h"
#include "platform/qt/desktop.h"
#include "platform/qt/scala.h"
#include "statistics/importatore.h"
#include "statistics/stato_archivio.h"

namespace statistics {

namespace {

constexpr int altezza = 28;

}  // namespace

RigaArchivio::RigaArchivio(app::Finestra& finestra, QWidget* padre, Forma forma)
    : QWidget(padre), finestra_(finestra), forma_(forma) {
    setObjectName(forma == Forma::breve_in_lotto ? "archivio_breve" : "archivio");
    lblarchivio = new QLabel(this);
    lblarchivio->setObjectName("lblarchivio");
    lblarchivio->setTextFormat(Qt::PlainText);
    lblarchivio->setWordWrap(true);
    lblarchivio->setProperty("invito", true);
    const bool breve = forma == Forma::breve_in_lotto;
    cmdarchivio = new QPushButton(breve ? tr("Inventate…") : tr("Importa…"), this);
    cmdarchivio->setObjectName("cmdarchivio");
    cmdarchivio->setAutoDefault(false);
    if (!breve) {
        cmdarchivio->setMinimumHeight(altezza);
        cmdarchivio->installEventFilter(this);
    }
    auto* riga = new QHBoxLayout(this);
    riga->setContentsMargins(0, 0, 0, 0);
    riga->setSpacing(4);
    riga->addWidget(lblarchivio, 1);
    riga->addWidget(cmdarchivio);
    lblarchivio->setVisible(!breve);
    padre->window()->installEventFilter(this);
    connect(cmdarchivio, &QPushButton::clicked, this,
            [this] { apri_importatore(window(), finestra_.sessione.gioco()); });
}

void RigaArchivio::aggiorna() {
    systems::Sessione& sessione = finestra_.sessione;
    vista_ = sessione.archivio.aperta;
    const bool lotto = sessione.gioco().e_lotto();
    const StatoArchivio stato = stato_archivio(sessione.archivio.database, sessione.gioco());
    const bool serve = !stato.leggibile || stato.dimostrativo || !stato.ultima;
    frase_ = platform::q(statistics::frase(stato, platform::oggi()));
    lblarchivio->setText(frase_);
    lblarchivio->setToolTip(frase_);
    const QString dice = frase_ + tr(": importate quelle vere");
    cmdarchivio->setToolTip(dice);
    cmdarchivio->setAccessibleName(tr("Importa le estrazioni"));
    cmdarchivio->setAccessibleDescription(dice);
    cmdarchivio->setVisible(serve);
    setVisible(forma_ == Forma::riga ||
               (forma_ == Forma::in_superenalotto ? !lotto : lotto && serve));
}

void RigaArchivio::guarda() {
    if (platform::LavoroLungo::in_corso()) return;
    if (finestra_.sessione.impronta_archivio() == vista_) return;
    Q_EMIT cambiato();
    aggiorna();
}

bool RigaArchivio::eventFilter(QObject* oggetto, QEvent* evento) {
    if (evento->type() == QEvent::WindowActivate && oggetto == window()) guarda();
    if (evento->type() == platform::Scala::cambiata() && oggetto == cmdarchivio) {
        cmdarchivio->setMinimumHeight(platform::scalato(altezza, platform::scala(this)));
    }
    return QWidget::eventFilter(oggetto, evento);
}

}  // namespace statistics
