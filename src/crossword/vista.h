// The crossword as the player works on it: the grid, the board and the list of numbers in play.
#pragma once

#include <array>

#include <QLabel>
#include <QPushButton>

#include "app/finestra.h"
#include "crossword/luce.h"
#include "platform/qt/controls.h"
#include "platform/qt/flexgrid.h"

namespace crossword {

/// Shows the session's crossword and hands over what is done to it. The told routines of the grid
/// and of the board live here.
class Vista : public QObject {
public:
    struct Controlli {
        platform::MSFlexGrid* griglia;
        std::array<QPushButton*, 91> tabellone;  ///< place 0 stands for an empty cell
        platform::ListBox* lista;
        QLabel* quanti;
    };
    /// Window and controls outlive this.
    Vista(app::Finestra& finestra, const Controlli& controlli);

    void mostra_dimensioni();
    void mostra_celle();

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
    void centra_griglia();
    void List1_Click();
    /// Typing in the crossword: two digits, or one and Return; a barred number is refused.
    void MSFlexGrid1_KeyPress(int tasto);
    void digita(int numero);

    app::Finestra& finestra_;
    systems::Sessione& sessione_;
    Controlli c_;
    Luce luce_;
};

}  // namespace crossword
