// The numbers of the system in line laid anew: what is hoped for, how long, before and after.
#pragma once

#include <cstdint>
#include <optional>

#include <QCheckBox>
#include <QLabel>
#include <QProgressBar>
#include <QTableWidget>

#include "analysis/dialogo_lungo.h"
#include "analysis/disposizione.h"
#include "analysis/frmanalisi.h"
#include "platform/qt/controls.h"

namespace analysis {

/// Works on the crossword of the session as it stands when the form is made, and holds all other
/// windows while it is open. `finestra` outlives it.
class frmmigliora : public DialogoRicerca {
    Q_OBJECT
public:
    frmmigliora(app::Finestra& finestra, QWidget* padre);

    /// True once a better layout was found that "Usa" would lay.
    [[nodiscard]] bool trovata() const { return trovata_.has_value(); }

    platform::ComboBox* scopo = nullptr;
    platform::ComboBox* tempo = nullptr;
    QCheckBox* chkpareggia = nullptr;
    QCheckBox* chkclassi = nullptr;  ///< shown for a crossword that was generated
    /// The crossword; a click or the space bar holds a number where it is, or lets it go.
    QTableWidget* griglia = nullptr;
    Grafico* grafico = nullptr;
    QLabel* lblstato = nullptr;
    QProgressBar* ProgressBar1 = nullptr;
    VistaTavola* confronto = nullptr;
    QPushButton* cmdusa = nullptr;

protected:
    void ferma() override { ordine_ = Ordine::basta; }
    void cerca() override;
    void abbandona() override { ordine_ = Ordine::annulla; }

private:
    // Layout, each routine one area of the window.
    QWidget* crea_griglia();
    QWidget* crea_scelte();

    void mostra_griglia();
    void cambia_ferma(int riga, int colonna);
    void dimentica();
    [[nodiscard]] RichiestaDisposizione richiesta() const;
    [[nodiscard]] int punti() const;
    void occupato(bool si);
    void mostra_andamento(const Andamento& andamento);
    void mostra_chance(double prima, double migliore);
    void accogli(Disposizione&& disposizione);
    void usa();

    app::Finestra& finestra_;
    systems::Sistema sistema_;
    std::vector<bool> ferme_;
    std::optional<crossword::Classi> classi_;
    std::uint64_t seme_ = 0;
    std::optional<Misura> prima_;  ///< of the crossword of the session
    std::optional<Disposizione> trovata_;
    Ordine ordine_ = Ordine::continua;
    double mostrata_ = 0;
};

}  // namespace analysis
