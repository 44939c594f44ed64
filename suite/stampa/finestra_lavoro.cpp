// The jobs of the window, and what the player is told of their ends.
#include <QDir>
#include <QStandardPaths>

#include "platform/disk.h"
#include "platform/qt/desktop.h"
#include "platform/qt/folder.h"
#include "platform/runtime.h"
#include "stampa/finestra.h"

namespace schedine {

using platform::q;
using platform::s;

namespace {

/// Above so many slips a job is asked for once more.
constexpr std::int64_t senza_domanda = 100;
/// Pages of one document on paper: a job that is stopped leaves those that went before.
constexpr std::int64_t pagine_documento = 100;
constexpr double decimi_al_millimetro = 10;

QString intero(std::int64_t quanti) {
    return q(platform::Format(static_cast<double>(quanti), platform::Modello::interi));
}

/// Where files are proposed: the player's documents, for the library is not this program's.
QString cartella_proposta() {
    const QString documenti = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(documenti).exists() ? documenti : QDir::homePath();
}

}  // namespace

/// The window, seen by a job.
class Finestra::Schermo : public platform::Screen {
public:
    explicit Schermo(Finestra& finestra) : f_(finestra) {}
    void MousePointer(int valore) override { platform::MousePointer(valore); }
    void DoEvents() override { platform::DoEvents(); }
    bool avanza(int /*pagina*/, double parte) override {
        f_.mostra_avanzamento(parte);
        platform::DoEvents();
        return !f_.fermato_;
    }

private:
    Finestra& f_;
};

void Finestra::mostra_avanzamento(double parte) {
    if (lavoro->isHidden()) {
        metti_lavoro();
        lavoro->show();
        lavoro->raise();
        cmdferma->setFocus();
    }
    barra->setValue(qRound(parte * barra->maximum()));
    lbllavoro->setText("Fatto il " + QString::number(static_cast<int>(parte * 100)) + " %");
}

template <typename Cosa>
auto Finestra::esegui(Cosa fare) {
    QWidget* fuoco = focusWidget();
    al_lavoro_ = true;
    fermato_ = false;
    platform::MousePointer(11);
    Schermo schermo(*this);
    const platform::LavoroLungo ascolto(cmdferma);
    auto esito = fare(schermo);
    platform::MousePointer(0);
    lavoro->hide();
    if (fuoco != nullptr) fuoco->setFocus();
    al_lavoro_ = false;
    return esito;
}

int Finestra::messaggio(const QString& testo, const QStringList& altri) {
    return platform::MsgBox(
        this, {testo, platform::Pulsanti::ok, "Stampa", platform::Icona::informazione, altri});
}

/// The development is read anew: it may have been elaborated again since it was chosen.
bool Finestra::sviluppo_fresco() {
    const std::int64_t colonne = sviluppo_.colonne();
    const std::uint64_t impronta = sviluppo_.impronta();
    Scelta scelta = *scelta_;
    const auto difetto = apri(scelta, sviluppo_);
    const bool uguale = sviluppo_.colonne() == colonne && sviluppo_.impronta() == impronta;
    if (!difetto && uguale && scelta == *scelta_) return true;
    scegli_sistema(cmbsistema->ListIndex());
    messaggio(difetto ? difetto_
                      : "Il sistema è stato elaborato di nuovo: controllate le schedine e "
                        "riprovate.");
    return false;
}

bool Finestra::pronto() {
    if (al_lavoro_ || lavoro_ == nullptr) return false;
    convalida_intervallo();
    if (genere() == Genere::modulo) {
        const std::string manca = manca_al_modulo(modulo_, scelta_->gioco.e_lotto(), giocata());
        if (!manca.empty()) {
            messaggio(q(manca));
            return false;
        }
    }
    if (!sviluppo_fresco()) return false;
    const Conto c = lavoro_->conto();
    if (c.schedine * copie() <= senza_domanda) return true;
    QString testo = "Le schedine sono " + intero(c.schedine * copie()) + ", su " +
                    intero(c.fogli * copie()) + (c.fogli * copie() == 1 ? " foglio" : " fogli");
    if (c.importo > 0) {
        testo += ", per " + q(lavoro_->opzioni().valuta) + " " +
                 q(platform::Format(c.importo, platform::Modello::decimali_zero));
    }
    return platform::MsgBox(this, {testo + ".\nSi procede?", platform::Pulsanti::si_no,
                                   "Stampa"}) == platform::vbYes;
}

Fine Finestra::stampa_documenti(platform::PrinterQt& printer, platform::Screen& schermo,
                                std::int64_t documento, std::int64_t& uscite) {
    const std::int64_t pagine = lavoro_->pagine();
    const std::int64_t tutte = pagine * copie();
    uscite = 0;
    for (int copia = 0; copia < copie(); ++copia) {
        for (std::int64_t prima = 1; prima <= pagine; prima += documento) {
            const std::int64_t ultima = std::min(pagine, prima + documento - 1);
            const Fine fine = concludi(printer, disegna(printer, schermo, *lavoro_, prima, ultima,
                                                        copia * pagine + prima - 1, tutte));
            if (fine != Fine::stampato) return fine;
            uscite += ultima - prima + 1;
        }
    }
    return Fine::stampato;
}

void Finestra::stampa_carta() {
    if (!platform::esiste_stampante()) {
        if (lavoro_ == nullptr || al_lavoro_) return;
        messaggio(
            "Questo computer non ha una stampante predefinita: le schedine si possono "
            "scrivere in un PDF.");
        scrivi_pdf();
        return;
    }
    if (!pronto()) return;
    const Punto foglio = lavoro_->foglio();
    platform::PrinterQt printer("Schedine " + q(scelta_->nome), {}, platform::Uscita::carta_o_file,
                                {foglio.x / decimi_al_millimetro, foglio.y / decimi_al_millimetro,
                                 genere() == Genere::modulo});
    std::int64_t uscite = 0;
    const Fine fine = esegui([&](platform::Screen& schermo) {
        return stampa_documenti(printer, schermo, pagine_documento, uscite);
    });
    di_stampato(fine, printer.esito(), uscite);
}

void Finestra::di_stampato(Fine fine, const platform::EsitoStampa& esito, std::int64_t uscite) {
    if (fine == Fine::stampato) {
        messaggio("Le schedine sono state mandate alla stampante «" + esito.stampante + "».");
        return;
    }
    QString testo;
    if (fine == Fine::fermato) testo = "La stampa è stata fermata.";
    if (fine == Fine::cambiato) testo = "Lo sviluppo nel frattempo è cambiato.";
    if (fine == Fine::perso) {
        testo = "Stampante «" + esito.stampante + "»\n" +
                (esito.motivo.isEmpty() ? "la stampante non risponde" : esito.motivo) + ".";
    }
    const std::int64_t pagine = lavoro_->pagine();
    const std::int64_t intere = uscite % pagine;
    if (uscite == 0) {
        messaggio(testo + "\n\nNessuna schedina è stata stampata.");
        return;
    }
    // What went out stays; the range is set to what is left of this copy.
    const std::int64_t ultima = intere == 0 ? 0 : lavoro_->tratto(intere + 1).prima - 1;
    if (ultima >= lavoro_->opzioni().dalla) {
        txtdalla[0]->setText(QString::number(ultima + 1));
        aggiorna();
        testo += "\n\nAlla stampante sono andate le schedine fino alla " + intero(ultima) +
                 ": si può riprendere dalla schedina " + intero(ultima + 1) + ".";
    }
    if (uscite >= pagine) {
        testo += "\n\nCopie intere già stampate: " + intero(uscite / pagine) + ".";
        txtcopie->setText(QString::number(copie() - uscite / pagine));
    }
    messaggio(testo);
}

void Finestra::di_file(const QString& file, bool pdf) {
    platform::offri_documento(
        "Le schedine sono nel file\n" + platform::da_mostrare(file), file,
        pdf ? "application/pdf" : "text/plain",
        [this](const QString& testo, const QStringList& altri) { return messaggio(testo, altri); });
}

void Finestra::scrivi_pdf() {
    if (!pronto()) return;
    const QString file = platform::scegli_nuovo_file(
        this, "Schedine in PDF", cartella_proposta() + "/" + q(scelta_->nome) + "-schedine.pdf",
        "PDF (*.pdf)");
    if (file.isEmpty()) return;
    const Punto foglio = lavoro_->foglio();
    platform::PrinterQt printer("Schedine " + q(scelta_->nome), file, platform::Uscita::file,
                                {foglio.x / decimi_al_millimetro, foglio.y / decimi_al_millimetro});
    const Fine fine = esegui([&](platform::Screen& schermo) {
        Fine esito = Fine::stampato;
        const std::int64_t pagine = lavoro_->pagine();
        for (int copia = 0; copia < copie() && esito == Fine::stampato; ++copia) {
            if (copia > 0) printer.NewPage();
            esito =
                disegna(printer, schermo, *lavoro_, 1, pagine, copia * pagine, pagine * copie());
        }
        return concludi(printer, esito);
    });
    if (fine == Fine::stampato) {
        di_file(printer.esito().file, true);
        return;
    }
    QString testo = "Le schedine non sono state scritte.\n\n" + platform::da_mostrare(file) + "\n";
    if (fine == Fine::fermato) testo = "La stampa è stata fermata: il PDF non è stato scritto.";
    if (fine == Fine::cambiato) testo += "Lo sviluppo nel frattempo è cambiato.";
    if (fine == Fine::perso) testo += printer.esito().motivo + ".";
    if (printer.esito().altro_prima) testo += "\n\nIl PDF di prima è rimasto com'era.";
    messaggio(testo);
}

void Finestra::scrivi_testo() {
    if (!pronto()) return;
    const QString file = platform::scegli_nuovo_file(
        this, "Schedine in un file di testo",
        cartella_proposta() + "/" + q(scelta_->nome) + "-schedine.txt", "Testo (*.txt)");
    if (file.isEmpty()) return;
    std::string motivo;
    const bool scritto = esegui(
        [&](platform::Screen& schermo) { return esporta(s(file), schermo, *lavoro_, motivo); });
    if (scritto) {
        di_file(file, false);
    } else if (motivo.empty()) {
        messaggio("La scrittura è stata fermata: il file non è stato scritto.");
    } else {
        messaggio("Le schedine non sono state scritte.\n\n" + platform::da_mostrare(file) + "\n" +
                  q(motivo) + ".");
    }
}

}  // namespace schedine
