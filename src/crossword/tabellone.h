// The board of the 90 numbers at every size of its frame.
#pragma once

#include <array>

#include <QObject>
#include <QPushButton>

namespace crossword {

/// Keeps the numbers in square cells, as large as their frame has room for and all alike; at
/// 100 %, in the frame as it is told, they stand where they stood. It belongs to that frame.
class Tabellone : public QObject {
    Q_OBJECT
public:
    /// Made before the window is scalable; place 0 is no number.
    explicit Tabellone(const std::array<QPushButton*, 91>& numeri);

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    void disponi();

    std::array<QPushButton*, 91> numeri_;
    QWidget* riquadro_;
    QRect primo_;  ///< place of number 1 at 100 %
    int lato_;     ///< of the cells as they are
    bool come_detto_ = true;
};

}  // namespace crossword
