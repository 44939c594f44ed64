// The main form: controls over the session, and a line or two each that hand over.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <vector>

#include <QAction>
#include <QProgressBar>

#include "app/archivio_in_vista.h"
#include "app/dialoghi.h"
#include "app/lavori.h"
#include "app/piede.h"
#include "app/riepilogo.h"
#include "crossword/scelta.h"
#include "crossword/vista.h"
#include "development/elaboratore.h"
#include "statistics/riempimento.h"
#include "systems/archiviatore.h"
#include "viewer/quote.h"

class QMenu;

namespace app {

/// Each room lays out, wires and shows its own frames; their controls are told as this form's.
class Form1 : public Finestra,
              public crossword::RiquadriCruciverba,
              public crossword::RiquadriGioco,
              public statistics::RiquadriGeneratori,
              public RiquadroRiepilogo,
              public viewer::RiquadroImporto {
    Q_OBJECT
public:
    /// `dialoghi` opens the other windows, of which the form knows none; not owned, it outlives it.
    explicit Form1(Dialoghi& dialoghi);

    void Form_Load();
    /// Asks whether to go on with what a crash left unsaved, and keeps it aside from now on.
    void offri_ripresa() { parti_->archiviatore.offri_ripresa(); }
    void apri_archivio();
    /// Fills the crossword from the frequencies; no control calls it.
    void completa() { parti_->riempimento.completa(); }

    [[nodiscard]] bool in_elaborazione() const override {
        return parti_->lavori.in_corso() || sessione.occupata();
    }
    [[nodiscard]] bool offre(crossword::Gioco gioco) const override {
        return (gioco.e_lotto() ? Image10 : Image8)->isEnabled();
    }
    void Image8_Click() override { passa(&systems::Sessione::passa_al_superenalotto); }
    void Image10_Click() override { passa(&systems::Sessione::passa_al_lotto); }
    void Imageb_Click(int Index) override;
    void CMDnum_Click(int Index) { parti_->vista.CMDnum_Click(Index); }
    void resetta();

    void mnunuovo_Click();
    void mnuapri_Click() override { parti_->archiviatore.mnuapri_Click(); }
    void mnusalvanome_Click() { parti_->archiviatore.mnusalvanome_Click(); }
    void mnugest_sist_Click() override { dialoghi_.gestore_utility(*this); }
    void mnuRipetizioniCon_Click() { ripetizioni(true); }
    void salva_sistema(bool& esito) { parti_->archiviatore.salva_sistema(esito); }

    void cmd_elabora() { parti_->elaboratore.cmd_elabora(); }
    void sviluppo() { parti_->elaboratore.sviluppo(); }
    void rivedi_sviluppo() override;
    bool sviluppo_valido() override { return parti_->elaboratore.sviluppo_valido(); }
    void mostra_analisi(const QString& testo) override { parti_->piede->mostra_analisi(testo); }
    void mostra_esito(const QString& testo) override { parti_->piede->mostra_esito(testo); }
    void annuncia(const QString& testo) override { platform::di(parti_->piede->lblpasso, testo); }
    void cella_riepilogo(int riga, int colonna) override { MSFlexGrid2->cella(riga, colonna); }

    platform::Frame* Picture2 = nullptr;
    std::array<platform::Image*, 9> Image3{};
    QLabel* lblpasso = nullptr;
    QLabel* lblanalisi = nullptr;
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
    QAction* mnuaiuto = nullptr;
    QAction* mnuweb = nullptr;
    QAction* mnuinfo = nullptr;

protected:
    void closeEvent(QCloseEvent* evento) override;

private:
    /// What the form hands over to, made when its frames stand.
    struct Parti {
        Parti(Form1& f, Dialoghi& dialoghi);
        Lavori lavori;
        crossword::Vista vista;
        crossword::Scelta scelta;
        statistics::Riempimento riempimento;
        Riepilogo riepilogo;
        viewer::Quote quote;
        Piede* piede;  ///< owned by the form, as its other controls
        development::Elaboratore elaboratore;
        systems::Archiviatore archiviatore;
        ArchivioInVista archivio;
    };

    struct Voce;
    void crea_menu();
    void riempi(QMenu* menu, const std::vector<Voce>& voci);
    void crea_riquadri();
    void crea_comandi();
    void collega();
    void ordine_tastiera();

    void mostra(const systems::Cambiamento& cambiato);
    void mostra_opzioni();

    void inizializza();
    void Image3_Click(int Index);
    void passa(void (systems::Sessione::*al_gioco)());
    void nuovo_cruciverba();
    void controllo_salvataggio();
    void ripetizioni(bool con);
    void mnuEconomiche_Click();
    void mnumigliora_Click();
    void mnuanalisi_Click() { parti_->elaboratore.analisi(); }
    void mnusalva_Click() { parti_->archiviatore.mnusalva_Click(); }
    void mnuRipetizioniSenza_Click() { ripetizioni(false); }

    Dialoghi& dialoghi_;
    std::unique_ptr<Parti> parti_;
};

}  // namespace app
