// The main form: the hub of controls and shared state that every other form reads.
#pragma once

#include <array>

#include <QAction>
#include <QLabel>
#include <QMainWindow>
#include <QProgressBar>
#include <QPushButton>

#include "crossword/cronologia.h"
#include "crossword/matrice.h"
#include "crossword/tipi.h"
#include "development/elaborazione.h"
#include "development/spiegazioni.h"
#include "platform/controls.h"
#include "platform/flexgrid.h"
#include "statistics/archivio.h"
#include "statistics/generatore.h"
#include "systems/file_sistema.h"
#include "systems/operazioni.h"

namespace app {

/// Opens the dialogs for the main form, which knows none of them.
class Dialoghi;

class Form1 : public QMainWindow {
    Q_OBJECT
public:
    /// `dialoghi` is not owned and outlives the form.
    explicit Form1(Dialoghi& dialoghi);
    ~Form1() override;

    // Shared state.
    crossword::Matrice matrice;
    bool salvato = false;
    bool lotto = false;
    crossword::Matsis matsis;
    statistics::Archivio archivio;
    statistics::Statistico statistico;

    /// Name of the system in line; written together with the caption of `lblsistema`.
    [[nodiscard]] QString Tag() const { return lblsistema->text(); }
    void sistema_in_linea(const QString& nome);
    /// The same for a system that only takes a name: what was done to it can still be undone.
    void salvato_come(const QString& nome);
    /// Numbers of a Lotto combination from `Frame9.Tag`, 0 when it is no number.
    [[nodiscard]] int forma() const;
    [[nodiscard]] crossword::Gioco gioco() const;
    [[nodiscard]] int righe() const;
    [[nodiscard]] int colonne() const;
    /// True while an elaboration or a generation runs.
    [[nodiscard]] bool in_elaborazione() const { return in_elaborazione_; }

    // Start and end.
    void Form_Load();
    void inizializza();
    void pulisci();

    // Archive of draws.
    void apri_archivio();
    /// Tells of an opening that failed; `titolo` is that of the box for a file that another holds.
    static void errore_archivio(QWidget* padre, const platform::Err& errore, const QString& titolo);

    // Generation.
    void cmdstat_Click();
    void cmdstat2_Click();
    void genera_statistico();
    /// Fills the crossword from the frequencies; no control calls it.
    void completa();

    // Game modes.
    void Image8_Click();
    void Image10_Click();
    void Imageb_Click(int Index);
    void nuovo_cruciverba();
    void resetta();
    void inizializza_lotto();
    void inizializza_superenalotto();

    // File menu.
    void mnunuovo_Click();
    void mnuapri_Click();
    void mnusalva_Click();
    void mnusalvanome_Click();
    void salva_sistema(bool& esito);
    void controllo_salvataggio();
    void mnugest_sist_Click();
    /// The system as it stands on the screen, in the form both writers save.
    [[nodiscard]] systems::Sistema sistema_a_schermo();

    // Crossword.
    void modifica_griglia(std::uint8_t non_usato);
    void svuota();
    void colore_griglia();
    void CMDnum_Click(int Index);
    void rimuovi();
    void abilita_disabilita(std::int16_t riga, std::int16_t colonna);
    void cruciverba_completo(bool& esito) const;
    std::int16_t aggiorna_lista();
    void List1_Click();
    void completa_con_scelti();
    /// Typing in the crossword: two digits, or one and Return; a barred number is refused.
    void MSFlexGrid1_KeyPress(int tasto);
    /// Takes back, or does again, the last edit of this crossword.
    void annulla_modifica();
    void ripeti_modifica();

    // Types and counts.
    void carica_combo(crossword::Gioco game, std::uint8_t& quale, std::int16_t N);
    void INIZIZLAIZZA_MATSIS();
    void Inizializza1();
    void totale_combinazioni();
    void controlo_colonne(const QString& nome, bool& esiste) const;
    void Combo3_Click();
    void Combo4_Click();
    void Combo5_Click();

    // Development.
    void cmd_elabora();
    void controllo_ripetizioni(std::uint8_t lunghezza, const QString& estensione);
    void sviluppo();
    /// Called after each step that may replace, rename or delete a development.
    void rivedi_sviluppo();
    /// Tells of a development that is not of the system in line and offers to elaborate; true when
    /// what stands on the disk may be used.
    bool sviluppo_valido();
    void verifica_spoglio(bool& pronto);
    void mnuanalisi_Click();
    /// One line on the analysis of the system as it stands; the next change takes it away.
    void mostra_analisi(const QString& testo);
    void mnuRipetizioniCon_Click();
    void mnuRipetizioniSenza_Click();

    // Price.
    void importo();
    QString calcolo_importo(std::int32_t columns);

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

    void Image3_Click(int Index);
    void Form_KeyDown_Canc();
    void digita(int numero);
    bool posa(int numero);
    /// Notes for undo what the current cell held, or all that an action changed as one step.
    void annota(std::int16_t prima);
    void annota(const crossword::Matrice& prima, const std::array<int, 3>& tipi_prima);
    void aggiorna_annulla();
    /// Indexes chosen in the lists of types: rows, columns, diagonals.
    [[nodiscard]] std::array<int, 3> tipi() const;
    void rifai(const std::vector<crossword::Modifica>* voluta, bool indietro);
    void aggiorna_lblngioco();
    void UpDown2_Change();
    void carica_dimensioni(int da);
    void tipo_riga(int riga, int n, int indice);
    /// What a type of the rows (0), of the columns (1) or of the diagonals (2) gives.
    [[nodiscard]] QString spiegazione_tipo(int quale, int tipo);
    [[nodiscard]] bool completa_cella(const std::vector<int>& scelti);
    /// False when some cell admits none of the numbers in play.
    [[nodiscard]] bool completa_caselle();

    // Steps of the generation.
    void genera();
    /// Puts the draws of the wheel chosen in the place of `draws`; false when they do not do.
    [[nodiscard]] bool estrazioni_della_ruota();
    /// Shows the numbers laid, and with `avanza` the progress too.
    [[nodiscard]] statistics::Seguito seguito(bool avanza);
    void chiudi_se_chiesto();

    // Steps of the elaboration.
    [[nodiscard]] bool nome_per_elaborare(const QString& domanda, const QString& titolo);
    [[nodiscard]] development::Richiesta richiesta() const;
    bool avanza(std::int32_t righe, bool muovi);
    /// The files of the system in line.
    [[nodiscard]] systems::Coppia coppia() const;
    void concludi_sviluppo(const development::Elaborazione& lavoro, development::Conclusione esito);
    void esegui_elaborazione();

    Dialoghi& dialoghi_;
    development::Spiegazioni spiegazioni_;
    QString riassunto_;    ///< of the last analysis; empty after a change
    QString spiegazione_;  ///< of the type that a list shows; empty without one
    crossword::Cronologia cronologia_;
    platform::Rnd rnd_;
    bool sviluppo_superato_ = false;  ///< the system was changed and saved since it was opened
    std::int32_t combinazioni_sviluppate_ = 0;  ///< by the last elaboration; 0 when it failed
    bool in_elaborazione_ = false;
    bool in_completamento_ = false;
    bool chiusura_chiesta_ = false;
};

}  // namespace app
