// Where the panels of the main form stand when its window has more room than their proportion asks
// for: the crossword takes it.
#pragma once

#include <vector>

#include <QObject>
#include <QRect>

class QWidget;

namespace platform {
class Scala;
}

namespace app {

class Form1;

/// Makes the form scalable. A little room beside or below widens the crossword where it is told
/// to stand; with more, it leaves its place to the other panels and has all of that room for
/// itself. They keep their size either way. It belongs to the form.
class Spazio : public QObject {
    Q_OBJECT
public:
    /// `piede` is the line at the foot. All controls stand as they are told.
    Spazio(Form1& form, QWidget& piede);

private:
    enum class Vista { detta, a_lato, sotto };
    struct Posto {
        QWidget* chi;
        QRect detto;
        int come_detto;
        QRect altrove;
        int come;
    };

    void raccogli(Form1& form, QWidget& piede);
    void aggiorna();
    void disponi(Vista vista);

    platform::Scala* scala_;
    QWidget* cruciverba_;
    std::vector<Posto> posti_;
    // Of the crossword; beside and below, its room is what there is beyond all others.
    QRect detto_;
    QRect a_lato_;
    QRect sotto_;
    Vista vista_ = Vista::detta;
};

}  // namespace app
