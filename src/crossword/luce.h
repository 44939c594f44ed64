// The rule of the lines as the player sees it: the lines of a cell glow, and what bars a number is
// pointed out.
#pragma once

#include <array>
#include <optional>
#include <string>

#include <QObject>
#include <QPushButton>

#include "platform/qt/flexgrid.h"

namespace systems {
class Sessione;
}

namespace crossword {

/// Lights the cells of the grid that share a line with the one under the pointer, or else with the
/// current one once a key or the pointer made use of the grid, as long as it has the keyboard; at
/// rest it is as it always was. Nothing of it is printed or kept but
/// whether the player wants it.
class Luce : public QObject {
    Q_OBJECT
public:
    /// All of them outlive this; `file` marks by being there that the light is off.
    Luce(const systems::Sessione& sessione, platform::MSFlexGrid* griglia,
         const std::array<QPushButton*, 91>& tabellone, std::string file);

    [[nodiscard]] bool accesa() const { return accesa_; }
    /// False when the wish could not be kept; it holds all the same until the end.
    bool accendi(bool accesa);
    /// Points out what bars a number from the current cell, until something changes; 0 ends it.
    void indica(int numero);
    /// Lights anew after the cells or the current one changed.
    void aggiorna();

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    const systems::Sessione& sessione_;
    platform::MSFlexGrid* griglia_;
    std::array<QPushButton*, 91> tabellone_;
    std::string file_;
    QPoint sopra_{-1, -1};
    bool in_uso_ = false;
    int numero_ = 0;     ///< of the board, under the pointer
    int rifiutato_ = 0;  ///< typed, and barred
    bool accesa_ = true;
};

}  // namespace crossword
