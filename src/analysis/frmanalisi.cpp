#include "analysis/frmanalisi.h"

#include <thread>

#include <QClipboard>
#include <QDate>
#include <QGuiApplication>
#include <QPointer>

#include "analysis/frmmigliora.h"
#include "analysis/passato.h"
#include "analysis/stampa_analisi.h"
#include "app/finestra.h"
#include "platform/application.h"
#include "platform/qt/annuncio.h"
#include "platform/qt/desktop.h"
#include "platform/qt/folder.h"
#include "platform/qt/printer_qt.h"
#include "platform/runtime.h"
#include "systems/elenco.h"

namespace analysis {

using platform::App;
using platform::q;
using platform::s;

namespace {

/// A job shorter than this needs no bar.
constexpr int attesa_ms = 300;
constexpr int passi_barra = 1000;
/// Characters in a line of the text that is copied.
constexpr std::size_t larghezza_testo = 100;

int esecutori() {
    return static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
}

}  // namespace

/// Everything that was counted. It outlives the form while a job still needs it.
struct frmanalisi::Conto {
    Lettura lettura = Lettura::interrotta;
    Giocate giocate;
    Analisi analisi;
    std::unique_ptr<Mappe> mappe;
    platform::Database database;
    std::string ruota;
    platform::Err archivio;
    std::vector<Estrazione> estrazioni;
    Storico storico;
};

frmanalisi::~frmanalisi() = default;

void frmanalisi::occupato(bool si) {
    al_lavoro_ = si;
    for (QWidget* w : {static_cast<QWidget*>(schede), static_cast<QWidget*>(pagine),
                       static_cast<QWidget*>(cmdpdf), static_cast<QWidget*>(cmdcopia),
                       static_cast<QWidget*>(cmdmigliora)}) {
        w->setEnabled(!si && conto_ != nullptr);
    }
    CmdEsci->setEnabled(!si);
    ProgressBar1->hide();
    cmdannulla->hide();
    lblstato->show();
    cmdanalizza->setVisible(!si && conto_ == nullptr);
    attesa_.reset();
    if (si) attesa_.emplace();
}

void frmanalisi::avanza(double parte) {
    if (!ProgressBar1->isVisible() && da_quando_.elapsed() >= attesa_ms) {
        // From here on there is something to stop, and a pointer to do it with.
        attesa_.reset();
        lblstato->hide();
        ProgressBar1->setRange(0, passi_barra);
        ProgressBar1->show();
        cmdannulla->show();
        cmdannulla->setFocus();
    }
    ProgressBar1->setValue(static_cast<int>(parte * passi_barra));
    platform::DoEvents();
}

bool frmanalisi::superata() {
    const systems::Sessione& sessione = finestra_.sessione;
    const bool stesso = sessione.nome() == s(platform::Tag(this)) && sessione.gioco() == gioco_;
    if (stesso && sessione.salvato() && sessione.sviluppo_proprio()) return false;
    platform::annuncia(lblstato,
                       "Il sistema è cambiato: F9 nella finestra principale lo analizza.");
    return true;
}

void frmanalisi::iniz() {
    if (al_lavoro_) return;
    if (superata()) {
        // Before the first count there is nothing to print or to copy.
        occupato(false);
        return;
    }
    const QString nome = platform::Tag(this);
    lblnomesistema->setText(nome);
    platform::annuncia(lblstato, "Analisi in corso…");
    conto_.reset();
    fermata_ = false;
    da_quando_.start();
    occupato(true);
    const auto conto = std::make_shared<Conto>();
    const QPointer<frmanalisi> ancora(this);
    bool contato = false;
    {
        const platform::LavoroLungo lavoro(cmdannulla);
        // Events run inside may close the main form, and this one with it.
        const auto avanzamento = [&ancora](double parte) {
            if (ancora) ancora->avanza(parte);
            return ancora && !ancora->fermata_;
        };
        if (systems::nome_ammesso(s(nome))) {
            conto->lettura =
                leggi_giocate(App().file(s(nome) + gioco_.estensione_sviluppo()), gioco_.numeri(),
                              conto->giocate, [&] { return avanzamento(0); });
        } else {
            conto->lettura = Lettura::assente;
        }
        if (conto->lettura == Lettura::letta) {
            contato = analizza(conto->giocate, gioco_.e_lotto() ? 5 : 6, esecutori(),
                               conto->analisi, avanzamento);
        }
        if (!ancora) return;
        if (contato) {
            conto->mappe = std::make_unique<Mappe>(conto->giocate);
            finestra_.sessione.rinfresca_archivio();
            conto->database = finestra_.sessione.archivio.database;
            conta_passato(*conto);
        }
    }
    if (contato) conto_ = conto;
    occupato(false);
    if (chiusura_chiesta_) {
        close();
        return;
    }
    if (contato) {
        mostra();
        return;
    }
    const Lettura lettura = conto->lettura == Lettura::letta ? Lettura::interrotta : conto->lettura;
    platform::annuncia(lblstato, q(std::string(parola(lettura))));
    cmdanalizza->setFocus();
}

void frmanalisi::conta_passato(Conto& conto) {
    conto.archivio = leggi_passato(conto.database, gioco_, conto.ruota, conto.estrazioni);
    calcola_storico(*conto.mappe, conto.estrazioni, vincita_minima(gioco_), esecutori(),
                    conto.storico);
}

void frmanalisi::mostra() {
    const Analisi& a = conto_->analisi;
    lblnumconb->setText(
        q(platform::Format(static_cast<double>(a.righe), platform::Modello::interi)));
    QStringList frasi{q(riassunto(a, gioco_)) + "."};
    for (const std::string& nota : tavola_sistema(a, gioco_).note) frasi << q(nota);
    lblstato->setText(frasi.join(" "));
    platform::di_a_cose_fatte(lblstato, lblstato->text());
    finestra_.mostra_analisi(q(riassunto(a, gioco_)));
    garanzie->mostra(tavola_garanzie(a, gioco_));
    insiemi->mostra(tavola_insiemi(a, gioco_));
    estrazioni->mostra(tavola_estrazioni(a, gioco_));
    buchi->mostra(tavola_buchi(a, gioco_));
    esempi->mostra(tavola_esempi(a, gioco_));
    esempi->setVisible(esempi->griglia->rowCount() > 0);
    const Distribuzione& d = a.distribuzione;
    const auto tutte = static_cast<double>(d.estrazioni_possibili());
    QList<Grafico::Voce> barre;
    for (int t = d.massimo(); t >= 0; --t) {
        const auto quante = static_cast<double>(d.estrazioni(t));
        barre << Grafico::Voce{q(nome_risultato(gioco_, t)), quante, q(percento(quante, tutte))};
    }
    grafico_estrazioni->mostra("Risultato migliore, su cento estrazioni possibili", barre);
    const Premi tenuti = leggi_premi(App().Path, gioco_);
    for (int i = 0; i < txtpremio.size(); ++i) {
        const Categoria& c = categorie_[static_cast<std::size_t>(i)];
        txtpremio[i]->setText(q(testo_premio(c.premio(tenuti))));
    }
    mostra_medie();
    mostra_passato();
    schede->setFocus();
}

double frmanalisi::spesa() const {
    return static_cast<double>(conto_->analisi.righe) * prezzo_in_euro(App().Path);
}

Premi frmanalisi::premi() const {
    Premi premi;
    for (int i = 0; i < txtpremio.size(); ++i) {
        const auto letto = leggi_premio(s(txtpremio[i]->text()));
        categorie_[static_cast<std::size_t>(i)].premio(premi) = letto.value_or(0);
    }
    return premi;
}

void frmanalisi::mostra_medie() {
    const Tavola t = tavola_medie(conto_->analisi, gioco_, premi(), spesa());
    for (int i = 0; i < lblmedia.size(); ++i) {
        const auto& riga = t.righe[static_cast<std::size_t>(i)];
        lblmedia[i]->setText(q(riga[1]));
        lblincasso[i]->setText(q(riga[3]));
    }
    lblspesa->setText(q(t.note[0]));
    lblritorno->setText(q(t.note[1]));
}

void frmanalisi::cambia_premio() {
    // What the disk refuses to keep still counts here and now.
    static_cast<void>(scrivi_premi(App().Path, gioco_, premi()));
    mostra_medie();
}

void frmanalisi::cambia_ruota() {
    if (conto_ == nullptr) return;
    conto_->ruota = statistics::codice_ruota(Combo1->ListIndex() - 1);
    {
        const platform::Clessidra attesa;
        conta_passato(*conto_);
    }
    mostra_passato();
}

void frmanalisi::ripassa() {
    finestra_.sessione.rinfresca_archivio();
    if (conto_ == nullptr || al_lavoro_) return;
    conto_->database = finestra_.sessione.archivio.database;
    {
        const platform::Clessidra attesa;
        conta_passato(*conto_);
    }
    mostra_passato();
}

void frmanalisi::mostra_passato() {
    riga_archivio->aggiorna();
    const Conto& c = *conto_;
    Tavola prima = tavola_categorie(c.storico, c.estrazioni, gioco_);
    if (!c.archivio.ok()) {
        prima = {prima.titolo, {}, {}, {"L'archivio delle estrazioni non si può leggere."}};
    }
    categorie_passate->mostra(prima);
    migliori->mostra(tavola_migliori(c.storico, c.estrazioni, gioco_));
    anni->mostra(tavola_anni(c.storico, c.estrazioni, gioco_));
    QList<Grafico::Voce> barre;
    for (const Anno& anno : per_anni(c.storico, c.estrazioni, vincita_minima(gioco_))) {
        barre << Grafico::Voce{
            q(anno.nome), static_cast<double>(anno.vincenti),
            q(std::to_string(anno.vincenti) + " su " + std::to_string(anno.estrazioni))};
    }
    grafico_anni->mostra("Estrazioni con una vincita, anno per anno", barre);
    for (QWidget* w : {static_cast<QWidget*>(migliori), static_cast<QWidget*>(grafico_anni),
                       static_cast<QWidget*>(anni)}) {
        w->setVisible(!c.estrazioni.empty());
    }
}

std::vector<Tavola> frmanalisi::tavole() const {
    std::vector<Tavola> tutte = tavole_analisi(conto_->analisi, gioco_, premi(), spesa());
    if (conto_->estrazioni.empty()) return tutte;
    const std::string ruota = Combo1 != nullptr ? s(Combo1->Text()) : std::string();
    for (Tavola& t : tavole_passato(conto_->storico, conto_->estrazioni, gioco_, ruota))
        tutte.push_back(std::move(t));
    return tutte;
}

void frmanalisi::salva_pdf() {
    const QString nome = platform::Tag(this);
    const QString file = q(App().file(s(nome) + "-analisi.pdf"));
    platform::PrinterQt printer(nome, file, platform::Uscita::file);
    const printing::Testata testata{App().versione(), s(nome),
                                    s(QDate::currentDate().toString("dd/MM/yyyy"))};
    const bool riuscito = stampa_analisi(printer, testata, tavole());
    const platform::EsitoStampa& esito = printer.esito();
    const auto dice = [this](const QString& testo, const QStringList& altri) {
        return platform::MsgBox(this, {testo, platform::Pulsanti::ok, "Tabellino",
                                       platform::Icona::informazione, altri});
    };
    const QString dove = platform::da_mostrare(esito.file);
    if (!riuscito) {
        QString testo = "L'analisi non è stata scritta.\n\n" + dove;
        if (!esito.motivo.isEmpty()) testo += "\n" + esito.motivo + ".";
        if (esito.altro_prima) testo += "\n\nIl PDF di prima è rimasto com'era.";
        dice(testo, {});
        return;
    }
    QString testo = "L'analisi è nel file\n" + dove;
    if (esito.altro_prima) testo += "\n\nHa preso il posto del PDF con lo stesso nome.";
    platform::offri_documento(testo, esito.file, "application/pdf", dice);
}

void frmanalisi::copia() {
    QString testo = "Analisi del sistema " + platform::Tag(this) + "\n\n";
    for (const std::string& riga : righe_di_testo(tavole(), larghezza_testo)) {
        testo += q(riga) + "\n";
    }
    QGuiApplication::clipboard()->setText(testo);
}

void frmanalisi::migliora() {
    if (superata()) return;
    auto* form = new frmmigliora(finestra_, this);
    form->show();
}

void frmanalisi::keyPressEvent(QKeyEvent* evento) {
    // Return in a prize box must press no button.
    if (evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter) return;
    DialogoLungo::keyPressEvent(evento);
}

}  // namespace analysis
