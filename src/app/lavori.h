// The long jobs of the main form: whether one runs, how far it is, and whether it is to end.
#pragma once

#include <QMainWindow>
#include <QProgressBar>

#include "platform/qt/desktop.h"

namespace app {

class Lavori {
public:
    /// Neither is owned; both outlive this. The bar is hidden while nothing runs.
    Lavori(QMainWindow& finestra, QProgressBar* barra) : finestra_(finestra), barra_(barra) {}

    [[nodiscard]] bool in_corso() const { return quanti_ > 0; }
    /// Whether the window was asked to close meanwhile: the job ends at its next step.
    [[nodiscard]] bool fermati() const { return chiusura_chiesta_; }
    /// Keeps in mind that the window is to close when the job is over.
    void ferma() { chiusura_chiesta_ = true; }
    /// Closes the window if that was asked; true when it was.
    bool chiudi_se_chiesto();

    /// Shows the bar at 0; below 1 its end counts as 1, or it would show the busy pattern.
    void barra(int massimo);
    void avanza(int valore);
    /// One step, painted when pending events run and not at once.
    void un_passo();
    void alla_fine() { barra_->setValue(barra_->maximum()); }

private:
    friend class Lavoro;
    QMainWindow& finestra_;
    QProgressBar* barra_;
    int quanti_ = 0;
    bool chiusura_chiesta_ = false;
};

/// While one lives the form is at work: it waits to be closed, and input waits too. They nest.
class Lavoro {
public:
    explicit Lavoro(Lavori& lavori) : lavori_(lavori) { ++lavori_.quanti_; }
    ~Lavoro() {
        if (--lavori_.quanti_ == 0) lavori_.barra_->hide();
    }
    Lavoro(const Lavoro&) = delete;
    Lavoro& operator=(const Lavoro&) = delete;

private:
    Lavori& lavori_;
    platform::LavoroLungo lungo_;
};

}  // namespace app
