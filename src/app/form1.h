// The main form: controls over the session, and a line or two each that hand over.
#pragma once

#include <array>
#include <memory>

#include <QAction>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include "app/finestra.h"
#include "platform/qt/controls.h"
#include "platform/qt/flexgrid.h"

namespace app {

/// Opens the dialogs for the main form, which knows none of them.
class Dialoghi;

class Form1 : public Finestra {
    Q_OBJECT
public:
    /// `dialoghi` is not owned and outlives the form.
    explicit Form1(Dialoghi& dialoghi);
    ~Form1() override;

    void Form_Load();
    /// Asks whether to go on with what a crash left unsaved, and keeps it aside from now on.
    void offri_ripresa();
    void apri_archivio();
    /// Fills the crossword from the frequencies; no control calls it.
    void completa();

    [[nodiscard]] bool in_elaborazione() const override;
    [[nodiscard]] bool offre(crossword::Gioco gioco) const override;
    void Image8_Click() override;
    void Image10_Click() override;
    void Imageb_Click(int Index);
    void CMDnum_Click(int Index);
    void resetta();

    void mnunuovo_Click();
    void mnuapri_Click() override;
    void mnusalvanome_Click();
    void mnugest_sist_Click() override;
    void mnuRipetizioniCon_Click();
    void salva_sistema(bool& esito);

    void cmd_elabora();
    void sviluppo();
    void rivedi_sviluppo() override;
    bool sviluppo_valido() override;
    void mostra_analisi(const QString& testo) override;
    void mostra_esito(const QString& testo) override;
    void cella_riepilogo(int riga, int colonna) override;

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
    QLabel* lblpasso = nullptr;
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
    QAction* mnuEconomiche = nullptr;
    QAction* mnuEsci = nullptr;
    QAction* mnugest_sist = nullptr;
    QAction* mnuImportocolonna = nullptr;
    QAction* mnuanalisi = nullptr;
    QAction* mnumigliora = nullptr;
    QAction* mnutabelle = nullptr;
    QAction* mnuarchivio = nullptr;
    QAction* mostra_linee = nullptr;
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
    void collega();
    void ordine_tastiera();

    // What the session tells is shown by these alone.
    void mostra(const systems::Cambiamento& cambiato);
    void mostra_gioco();
    void mostra_dimensioni();
    void mostra_tipi();
    void mostra_prezzo();
    void mostra_opzioni();

    void inizializza();
    void Image3_Click(int Index);
    void verifica_spoglio(bool& pronto);
    void spoglio();
    void stampa();
    void passa(void (systems::Sessione::*al_gioco)());
    void nuovo_cruciverba();
    void controllo_salvataggio();
    void mnuanalisi_Click();
    void mnuRipetizioniSenza_Click();
    void modifica_griglia(std::uint8_t non_usato);

    Dialoghi& dialoghi_;
    /// What the form hands over to, made when the controls stand.
    struct Parti;
    std::unique_ptr<Parti> parti_;
};

}  // namespace app
