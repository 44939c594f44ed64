#include "systems/trascinati.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

#include "app/finestra.h"
#include "platform/application.h"
#include "platform/links.h"
#include "platform/qt/desktop.h"
#include "systems/passo.h"

namespace systems {

using platform::q;

namespace {

QStringList locali(const QMimeData* dati) {
    QStringList percorsi;
    for (const QUrl& url : dati->urls()) {
        if (url.isLocalFile()) percorsi << url.toLocalFile();
    }
    return percorsi;
}

std::vector<Coppia> coppie(const QStringList& percorsi) {
    std::vector<std::string> nomi;
    for (const QString& percorso : percorsi) nomi.push_back(platform::s(percorso));
    return sistemi_ricevuti(nomi);
}

}  // namespace

Trascinati::Trascinati(app::Finestra& finestra, QWidget* su, std::function<bool()> rifiuta)
    : QObject(su), finestra_(finestra), su_(su), rifiuta_(std::move(rifiuta)) {
    su_->setAcceptDrops(true);
    su_->installEventFilter(this);
}

bool Trascinati::occupata() const {
    const QWidget* modale = QApplication::activeModalWidget();
    return finestra_.in_elaborazione() || platform::LavoroLungo::in_corso() ||
           (modale != nullptr && modale != su_) || (rifiuta_ && rifiuta_());
}

bool Trascinati::eventFilter(QObject* oggetto, QEvent* evento) {
    if (oggetto != su_) return false;
    if (evento->type() == QEvent::DragEnter) {
        auto* entra = static_cast<QDragEnterEvent*>(evento);
        const bool presi = !occupata() && !coppie(locali(entra->mimeData())).empty();
        // Copied, whatever the desktop proposes: the files stay where they are.
        if (presi) {
            entra->setDropAction(Qt::CopyAction);
            entra->accept();
        } else {
            entra->ignore();
        }
        return true;
    }
    if (evento->type() != QEvent::Drop) return false;
    auto* lascia = static_cast<QDropEvent*>(evento);
    lascia->setDropAction(Qt::CopyAction);
    lascia->accept();
    // The boxes wait until the drag is over, or the program that it came from would hang.
    QTimer::singleShot(0, this,
                       [this, percorsi = locali(lascia->mimeData())] { importa(percorsi); });
    return true;
}

void Trascinati::importa(const QStringList& percorsi) {
    if (occupata()) return;
    const std::vector<Coppia> tutte = coppie(percorsi);
    if (tutte.empty()) return;
    Ricevuti r;
    bool in_elenco = false;
    std::string detto;
    for (const Coppia& origine : tutte) {
        const Coppia arrivo{platform::App().Path, origine.nome, origine.gioco};
        auto vecchia = Vecchia::ceduta;
        if (platform::esiste_file(arrivo.sistema())) {
            if (platform::stesso_file(origine.sistema(), arrivo.sistema())) {
                ++r.lasciati;
                continue;
            }
            const QString quale = tutte.size() > 1 ? q(origine.nome) + ": " : QString();
            if (platform::MsgBox(su_, {quale + domanda_importa, platform::Pulsanti::si_no,
                                       "Tabellino"}) != platform::vbYes) {
                ++r.lasciati;
                continue;
            }
            vecchia = Vecchia::tolta;
        }
        const platform::Clessidra attesa;
        const Passi passi = systems::importa(origine, arrivo, vecchia);
        const bool riuscito = passi.sistema == platform::Esito::ok;
        ++(riuscito ? r.importati : r.falliti);
        in_elenco = in_elenco ||
                    (riuscito && origine.gioco.e_lotto() == finestra_.sessione.gioco().e_lotto());
        detto = esito_detto(Operazione::importato, origine.nome, passi);
    }
    finestra_.rivedi_sviluppo();
    // From here on the window under the drop may be gone: the new manager takes its place.
    app::Finestra& finestra = finestra_;
    const QString riga = q(tutte.size() == 1 && !detto.empty() ? detto : esito_detto(r));
    if (in_elenco) {
        if (su_ != &finestra_) su_->close();
        finestra.mnuapri_Click();
    }
    finestra.mostra_esito(riga);
}

}  // namespace systems
