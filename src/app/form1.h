// The main form: controls over the session, and the hub from which the dialogs open.
#pragma once

#include <array>

#include <QAction>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include "app/finestra.h"
#include "app/riepilogo.h"
#include "development/spiegazioni.h"
#include "platform/controls.h"
#include "platform/flexgrid.h"
#include "systems/ripresa.h"

namespace app {

/// Opens the dialogs for the main form, which knows none of them.
class Dialoghi;

class Form1 : public Finestra {
    Q_OBJECT
public:
    /// `dialoghi` is not owned and outlives the form.
    explicit Form1(Dialoghi& dialoghi);

    void Form_Load();
    /// Asks whether to go on with what a crash left unsaved, and keeps it aside from now on.
    void offri_ripresa();
    void apri_archivio();
    /// Fills the crossword from the frequencies; no control calls it.
    void completa();

    [[nodiscard]] bool in_elaborazione() const override {
        return lavori_ > 0 || sessione.occupata();
    }
    [[nodiscard]] bool offre(crossword::Gioco gioco) const override {
        return (gioco.e_lotto() ? Image10 : Image8)->isEnabled();
    }
    void Image8_Click() override;
    void Image10_Click() override;
    void Imageb_Click(int Index);
    void CMDnum_Click(int Index);
    /// Sets which numbers the board allows in a cell.
    void abilita_disabilita(std::int16_t riga, std::int16_t colonna);
    void resetta();

    void mnunuovo_Click();
    void mnuapri_Click() override;
    void mnusalvanome_Click();
    void mnugest_sist_Click() override;
    void mnuRipetizioniCon_Click();
    void salva_sistema(bool& esito);

    void cmd_elabora();
    void sviluppo();
    void verifica_spoglio(bool& pronto);
    void rivedi_sviluppo() override;
    bool sviluppo_valido() override;
    void mostra_analisi(const QString& testo) override;
    void cella_riepilogo(int riga, int colonna) override { MSFlexGrid2->cella(riga, colonna); }

    // Controls.
    platform::Frame* Picture2 = nullptr;
    std::array<platform::Image*, 9> Image3{};
    platform::Frame* Frame1 = nullptr;
    platform::Frame* Frame2 = nullptr;
    platform::Frame* Frame3 = nullptr;
    platform::Frame* Frame4 = nullptr;
    platform::Frame* Frame5 = nullptr;
    platform::Frame* Frame6 = nullptr;
    platform::Frame* Frame7 = nullptr;
    platform::Frame* Frame8 = nullptr;
    platform::Frame* Frame9 = nullptr;
    platform::Frame* Frame10 = nullptr;
    std::array<QPushButton*, 91> CMDnum{};
    platform::MSFlexGrid* MSFlexGrid1 = nullptr;
    platform::MSFlexGrid* MSFlexGrid2 = nullptr;
    platform::ComboBox* Combo1 = nullptr;
    platform::ComboBox* Combo2 = nullptr;
    platform::ComboBox* Combo3 = nullptr;
    platform::ComboBox* Combo4 = nullptr;
    platform::ComboBox* Combo5 = nullptr;
    platform::ComboBox* Combo6 = nullptr;
    platform::ListBox* List1 = nullptr;
    platform::Image* Image7 = nullptr;
    platform::Image* Image8 = nullptr;
    platform::Image* Image9 = nullptr;
    platform::Image* Image10 = nullptr;
    std::array<platform::Image*, 3> Imageb{};
    std::array<platform::Image*, 3> Imagey{};
    QPushButton* cmdstat = nullptr;
    QPushButton* cmdstat2 = nullptr;
    QLabel* lblsistema = nullptr;
    QLabel* lblanalisi = nullptr;
    QLabel* lblngioco = nullptr;
    QLabel* lblimportotot = nullptr;
    QLabel* lblnumquote = nullptr;
    QLabel* lblquote = nullptr;
    std::array<QLabel*, 2> lblvaluta{};
    platform::UpDown* UpDown2 = nullptr;
    QProgressBar* ProgressBar1 = nullptr;

    QAction* mnunuovo = nullptr;
    QAction* mnuapri = nullptr;
    QAction* mnusalva = nullptr;
    QAction* mnusalvanome = nullptr;
    QAction* mnuRipetizioniSenza = nullptr;
    QAction* mnuRipetizioniCon = nullptr;
    QAction* mnuEsci = nullptr;
    QAction* mnugest_sist = nullptr;
    QAction* mnuImportocolonna = nullptr;
    QAction* mnuanalisi = nullptr;
    QAction* annulla = nullptr;
    QAction* ripeti = nullptr;
    QAction* mnuaiuto = nullptr;
    QAction* mnuweb = nullptr;
    QAction* mnuinfo = nullptr;

protected:
    void closeEvent(QCloseEvent* evento) override;

private:
    // Layout, each routine one area of the window.
    void crea_menu();
    void crea_comandi();
    void crea_tabellone();
    void crea_cruciverba();
    void crea_lista();
    void crea_giochi();
    void crea_generatori();
    void crea_riepilogo();
    void crea_importo();
    void crea_analisi();
    void collega();
    void ordine_tastiera();

    // What the session tells is shown by these alone.
    void mostra(const systems::Cambiamento& cambiato);
    void mostra_gioco();
    void mostra_dimensioni();
    void mostra_tipi();
    void mostra_celle();
    void mostra_prezzo();
    void mostra_ripetizioni();

    // Told routines; each asks the session and shows what it cannot know.
    void inizializza();
    void Image3_Click(int Index);
    void Form_KeyDown_Canc();
    void nuovo_cruciverba();
    void controllo_salvataggio();
    void mnusalva_Click();
    void mnuRipetizioniSenza_Click();
    void modifica_griglia(std::uint8_t non_usato);
    void svuota();
    void colore_griglia();
    void rimuovi();
    std::int16_t aggiorna_lista();
    void List1_Click();
    void completa_con_scelti();
    /// Typing in the crossword: two digits, or one and Return; a barred number is refused.
    void MSFlexGrid1_KeyPress(int tasto);
    void digita(int numero);
    /// What a type of the rows (0), of the columns (1) or of the diagonals (2) gives.
    [[nodiscard]] QString spiegazione_tipo(int quale, int tipo);
    void mnuanalisi_Click();
    void cmdstat_Click();
    void cmdstat2_Click();
    void genera();

    [[nodiscard]] systems::Cella cella_corrente() const {
        return {MSFlexGrid1->Col(), MSFlexGrid1->Row()};
    }
    void in_cella(systems::Cella cella) { MSFlexGrid1->cella(cella.riga, cella.colonna); }
    /// Bars for the current cell.
    void abilita_corrente();
    /// Takes back (`indietro`) or does again the last edit of this crossword.
    void rifai(bool indietro);

    /// While one lives the form is at work: it waits to be closed, and input waits too.
    class Lavoro;
    /// Shows a bar at 0; below 1 its end counts as 1, or it would show the busy pattern.
    void barra(int massimo);
    /// Shows the numbers laid, and with `avanza` the progress too.
    [[nodiscard]] statistics::Seguito seguito(bool avanza);
    void chiudi_se_chiesto();
    [[nodiscard]] bool nome_per_elaborare(const QString& domanda, const QString& titolo);
    /// False when the form was asked to close meanwhile.
    [[nodiscard]] bool esegui_elaborazione();

    Dialoghi& dialoghi_;
    systems::Ripresa ripresa_{sessione};
    Riepilogo riepilogo_;
    development::Spiegazioni spiegazioni_;
    QString riassunto_;    ///< of the last analysis; empty after a change
    QString spiegazione_;  ///< of the type that a list shows; empty without one
    int lavori_ = 0;
    bool chiusura_chiesta_ = false;
};

}  // namespace app
