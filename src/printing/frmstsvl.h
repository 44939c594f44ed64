// Print options: every print job starts here.
#pragma once

#include <array>
#include <functional>

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

#include "platform/qt/controls.h"
#include "platform/qt/printer_qt.h"
#include "printing/mod_stampa.h"
#include "printing/prospetto.h"

namespace app {
class Finestra;
}

namespace printing {

class frmstsvl : public QDialog {
    Q_OBJECT
public:
    explicit frmstsvl(app::Finestra& finestra);

    platform::Frame* Frame1 = nullptr;
    platform::Frame* Frame2 = nullptr;
    std::array<QRadioButton*, 3> Option1{};
    std::array<QFrame*, 3> Shape1{};
    QFrame* Shape2 = nullptr;
    QPushButton* Command1 = nullptr;
    QPushButton* Command2 = nullptr;
    QPushButton* Command3 = nullptr;
    QPushButton* cmdstampa = nullptr;
    std::array<QLineEdit*, 2> txtdalla{};
    QFrame* Picture1 = nullptr;
    QFrame* Picture2 = nullptr;
    std::array<QLabel*, 2> Label1{};
    /// Over all the rest while a long job runs.
    QFrame* lavoro = nullptr;
    QLabel* lblpagina = nullptr;
    QProgressBar* barra = nullptr;
    QPushButton* cmdferma = nullptr;

protected:
    void closeEvent(QCloseEvent* evento) override;
    bool event(QEvent* evento) override;
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    class Schermo;
    /// A job in the words of its boxes.
    struct Lavoro {
        QString nome;          ///< "Il prospetto"
        QString fine_del_pdf;  ///< added to the system's name
        QString sorgente;      ///< file that it reads
    };

    void crea_opzioni();
    void crea_intervallo();
    void crea_pulsanti();
    void crea_invio();
    void crea_lavoro();
    void ordine_tastiera();
    void centra();

    void Form_Load();
    void Command2_Click();
    void cmdstampa_Click();
    void txtdalla_Validate(int Index);

    /// Jobs; false leaves the form open.
    [[nodiscard]] bool prospetto();
    [[nodiscard]] bool sviluppo();
    [[nodiscard]] bool schedine();
    void non_stampabile();

    [[nodiscard]] QString nome() const;
    [[nodiscard]] bool manca_lo_sviluppo() const;
    /// False when the development is not to be printed, or this form is gone.
    [[nodiscard]] bool sviluppo_valido();
    [[nodiscard]] Testata testata() const;
    [[nodiscard]] Prospetto prospetto_a_schermo() const;
    [[nodiscard]] bool stampa_sviluppo(crossword::Gioco gioco);
    /// Runs a job to its end and tells the player what came of it; false when nothing came out.
    [[nodiscard]] bool esegui(
        const Lavoro& cosa,
        const std::function<bool(platform::Printer&, platform::Screen&)>& disegna);
    void mostra_avanzamento(int pagina, double parte);
    void ferma();
    void di_fatto(const Lavoro& cosa, const platform::EsitoStampa& esito);
    void di_perso(const Lavoro& cosa, const platform::EsitoStampa& esito);
    int messaggio(const QString& testo, const QString& titolo, bool informazione,
                  const QStringList& altri = {});

    app::Finestra& finestra_;
    bool in_messaggio_ = false;
    bool dal_messaggio_ = false;
    /// The running job was given up.
    bool fermato_ = false;
};

}  // namespace printing
