// The window of the slips: which system, what is printed, how it looks, where it goes.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

#include "platform/qt/controls.h"
#include "platform/qt/printer_qt.h"
#include "stampa/anteprima.h"
#include "stampa/consegna.h"
#include "statistics/archivio.h"

class QVBoxLayout;

namespace schedine {

class Finestra : public QDialog {
    Q_OBJECT
public:
    /// Works on the suite of this root, which ends in a separator.
    explicit Finestra(std::string radice);
    ~Finestra() override;

    platform::ComboBox* cmbsistema = nullptr;
    QLabel* lblsistema = nullptr;
    std::array<QRadioButton*, 3> optgenere{};
    QCheckBox* chkgrande = nullptr;
    platform::ComboBox* cmbmodulo = nullptr;
    QPushButton* cmdmodifica = nullptr;
    QPushButton* cmdnuovo = nullptr;
    platform::Frame* riqgiocata = nullptr;
    std::array<QCheckBox*, statistics::ruote.size()> chkruota{};
    QLineEdit* txtposta = nullptr;
    std::array<QLineEdit*, 2> txtdalla{};
    QLineEdit* txtcopie = nullptr;
    QLabel* lblconto = nullptr;
    QPushButton* cmdstampa = nullptr;
    QPushButton* cmdpdf = nullptr;
    QPushButton* cmdtesto = nullptr;
    QPushButton* cmdchiudi = nullptr;
    Anteprima* anteprima = nullptr;
    QPushButton* cmdindietro = nullptr;
    QPushButton* cmdavanti = nullptr;
    QLineEdit* txtpagina = nullptr;
    QLabel* lblpagine = nullptr;
    QPushButton* cmdmeno = nullptr;
    QPushButton* cmdpiu = nullptr;
    QPushButton* cmdvero = nullptr;
    QPushButton* cmdintero = nullptr;
    /// Over the window's foot while a job runs.
    QFrame* lavoro = nullptr;
    QLabel* lbllavoro = nullptr;
    QProgressBar* barra = nullptr;
    QPushButton* cmdferma = nullptr;

    [[nodiscard]] qint64 pagina() const { return pagina_; }

protected:
    void closeEvent(QCloseEvent* evento) override;
    void reject() override;
    void resizeEvent(QResizeEvent* evento) override;

private:
    class Schermo;

    QWidget* crea_sinistra();
    QWidget* crea_destra();
    void crea_sistema(QVBoxLayout* colonna);
    void crea_generi(QVBoxLayout* colonna);
    void crea_giocata(QVBoxLayout* colonna);
    void crea_intervallo(QVBoxLayout* colonna);
    void crea_uscite(QVBoxLayout* colonna);
    void crea_lavoro();
    void crea_scorciatoie();

    void carica_sistemi();
    void carica_moduli(const QString& scelto);
    void scegli_sistema(int indice);
    void modifica_modulo(bool nuovo);
    void cambia_genere();
    void aggiorna();
    void vai(qint64 pagina);
    void mostra_conto();
    [[nodiscard]] QString conto_in_parole() const;
    void assesta();
    void mostra_sistema();
    void convalida_intervallo();

    [[nodiscard]] Genere genere() const;
    [[nodiscard]] Opzioni opzioni() const;
    [[nodiscard]] Giocata giocata() const;
    [[nodiscard]] int copie() const;

    /// False when the job must not begin: said why, or the player did not want it.
    [[nodiscard]] bool pronto();
    [[nodiscard]] bool sviluppo_fresco();
    void stampa_carta();
    void scrivi_pdf();
    void scrivi_testo();
    /// Runs a job behind the progress; gives its outcome.
    template <typename Lavoro>
    auto esegui(Lavoro fare);
    Fine stampa_documenti(platform::PrinterQt& printer, platform::Screen& schermo,
                          std::int64_t pagine_documento, std::int64_t& uscite);
    void di_stampato(Fine fine, const platform::EsitoStampa& esito, std::int64_t uscite);
    void di_file(const QString& file, bool pdf);
    int messaggio(const QString& testo, const QStringList& altri = {});
    void mostra_avanzamento(double parte);
    void metti_lavoro();

    std::string radice_;
    std::vector<Scelta> scelte_;
    std::optional<Scelta> scelta_;
    Sviluppo sviluppo_;
    PerSchedina per_schedina_;
    double prezzo_ = 0;
    std::string valuta_;
    QString difetto_;  ///< why there is nothing to print
    Modulo modulo_;
    QString difetto_modulo_;
    std::unique_ptr<Lavoro> lavoro_;
    qint64 pagina_ = 1;
    bool al_lavoro_ = false;
    bool fermato_ = false;
    bool caricando_ = false;
};

}  // namespace schedine
