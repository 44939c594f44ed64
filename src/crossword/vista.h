// The crossword as the player works on it: the grid, the board and the list of numbers in play.
#pragma once

#include <array>

#include <QAction>
#include <QLabel>
#include <QPushButton>

#include "app/finestra.h"
#include "crossword/luce.h"
#include "platform/qt/controls.h"
#include "platform/qt/flexgrid.h"

namespace crossword {

/// Grid, board and list on the main form, which owns them and makes the frames.
struct RiquadriCruciverba {
    platform::Frame* Frame1 = nullptr;
    platform::Frame* Frame3 = nullptr;
    platform::Frame* Frame5 = nullptr;
    platform::MSFlexGrid* MSFlexGrid1 = nullptr;
    std::array<QPushButton*, 91> CMDnum{};  ///< place 0 stands for an empty cell
    platform::ListBox* List1 = nullptr;
    QLabel* lblngioco = nullptr;
    QAction* annulla = nullptr;
    QAction* ripeti = nullptr;
};

/// Shows the session's crossword and hands over what is done to it. The told routines of the grid
/// and of the board live here.
class Vista : public QObject {
public:
    /// Lays out what the frames of `riquadri` hold. Both outlive this.
    Vista(app::Finestra& finestra, RiquadriCruciverba& riquadri);

    void mostra(const systems::Cambiamento& cambiato);

    [[nodiscard]] systems::Cella cella_corrente() const;
    void in_cella(systems::Cella cella);

    void svuota();
    void colore_griglia();
    void CMDnum_Click(int Index);
    void rimuovi();
    void abilita_disabilita(std::int16_t riga, std::int16_t colonna);
    void abilita_corrente();
    std::int16_t aggiorna_lista();
    /// Takes back (`indietro`) or does again the last edit of this crossword.
    void rifai(bool indietro);
    [[nodiscard]] Luce& luce() { return luce_; }

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    void mostra_dimensioni();
    void mostra_celle();
    void centra_griglia();
    void List1_Click();
    /// Typing in the crossword: two digits, or one and Return; a barred number is refused.
    void MSFlexGrid1_KeyPress(int tasto);
    void digita(int numero);

    app::Finestra& finestra_;
    systems::Sessione& sessione_;
    RiquadriCruciverba& c_;
    Luce luce_;
};

}  // namespace crossword
