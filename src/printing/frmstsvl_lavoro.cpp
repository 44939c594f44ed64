// A print job as it runs, and what the player is told of its end.
#include <QCloseEvent>
#include <QPointer>

#include "app/finestra.h"
#include "platform/application.h"
#include "platform/disk.h"
#include "platform/qt/desktop.h"
#include "platform/qt/folder.h"
#include "printing/frmstsvl.h"
#include "printing/listati.h"

namespace printing {

using platform::App;
using platform::q;
using platform::s;

/// The dialog, seen by a job; a closing heard while events ran may have taken it away.
class frmstsvl::Schermo : public platform::Screen {
public:
    explicit Schermo(frmstsvl* form) : form_(form) {}
    void MousePointer(int valore) override { platform::MousePointer(valore); }
    void DoEvents() override { platform::DoEvents(); }
    bool avanza(int pagina, double parte) override {
        if (form_) form_->mostra_avanzamento(pagina, parte);
        platform::DoEvents();
        return form_ && !form_->fermato_;
    }

private:
    QPointer<frmstsvl> form_;
};

void frmstsvl::mostra_avanzamento(int pagina, double parte) {
    if (lavoro->isHidden()) {
        lavoro->show();
        lavoro->raise();
        cmdferma->setFocus();
    }
    lblpagina->setText("Pagina " + QString::number(pagina));
    barra->setValue(qRound(parte * barra->maximum()));
}

void frmstsvl::ferma() {
    fermato_ = true;
}

void frmstsvl::closeEvent(QCloseEvent* evento) {
    ferma();
    QDialog::closeEvent(evento);
}

bool frmstsvl::esegui(const Lavoro& cosa,
                      const std::function<bool(platform::Printer&, platform::Screen&)>& disegna) {
    const QPointer<frmstsvl> ancora(this);
    const QPointer<QWidget> fuoco(focusWidget());
    platform::PrinterQt printer(nome(), q(App().file(s(nome() + cosa.fine_del_pdf))));
    fermato_ = false;
    bool riuscito = false;
    {
        const platform::LavoroLungo ascolto(cmdferma);
        Schermo schermo(this);
        riuscito = disegna(printer, schermo);
    }
    if (!ancora) return false;
    if (riuscito) {
        di_fatto(cosa, printer.esito());
    } else if (!fermato_) {
        di_perso(cosa, printer.esito());
    }
    if (!ancora) return false;
    lavoro->hide();
    if (fuoco) fuoco->setFocus();
    return riuscito;
}

void frmstsvl::di_fatto(const Lavoro& cosa, const platform::EsitoStampa& esito) {
    const QString file = platform::da_mostrare(esito.file);
    finestra_.mostra_esito(cosa.nome + (esito.file.isEmpty() ? " è stato mandato alla stampante «" +
                                                                   esito.stampante + "»"
                                                             : " è nel file " + file));
    if (esito.file.isEmpty()) {
        messaggio(cosa.nome + " è stato mandato alla stampante «" + esito.stampante + "».",
                  "Tabellino", true);
        return;
    }
    QString testo = cosa.nome + " è nel file\n" + file;
    if (esito.altro_prima) testo += "\n\nHa preso il posto del PDF con lo stesso nome.";
    platform::offri_documento(testo, esito.file, "application/pdf",
                              [this](const QString& che, const QStringList& altri) {
                                  return messaggio(che, "Tabellino", true, altri);
                              });
}

void frmstsvl::di_perso(const Lavoro& cosa, const platform::EsitoStampa& esito) {
    QString dove = esito.stampante.isEmpty() ? esito.file : "Stampante «" + esito.stampante + "»";
    QString motivo = esito.motivo;
    if (motivo.isEmpty()) {
        // Without a development there is nothing to print, and nothing to say.
        dove = q(platform::nome_su_disco(s(cosa.sorgente)));
        if (!platform::esiste_file(s(dove))) return;
        motivo = "il file non si può leggere";
    }
    QString testo = cosa.nome + " non è stato stampato.\n\n" + platform::da_mostrare(dove) + "\n" +
                    motivo + ".";
    if (esito.altro_prima) testo += "\n\nIl PDF di prima è rimasto com'era.";
    messaggio(testo, "Tabellino", true);
}

bool frmstsvl::prospetto() {
    const Lavoro cosa{"Il prospetto", "-prospetto.pdf", {}};
    return esegui(cosa, [this](platform::Printer& printer, platform::Screen& schermo) {
        return stampa_prospetto(printer, schermo, prospetto_a_schermo());
    });
}

bool frmstsvl::stampa_sviluppo(crossword::Gioco gioco) {
    const Sviluppo sviluppo{testata(), App().Path, s(nome()), gioco.forma()};
    const Lavoro cosa{"Lo sviluppo", "-sviluppo.pdf",
                      q(App().file(sviluppo.nome + gioco.estensione_sviluppo()))};
    const auto stampa = gioco.e_lotto() ? &stampa_sviluppo_lotto : &stampa_sviluppo_superenalotto;
    return esegui(cosa, [&](platform::Printer& printer, platform::Screen& schermo) {
        return stampa(printer, schermo, sviluppo);
    });
}

}  // namespace printing
