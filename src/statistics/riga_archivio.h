// One line on the draws at hand, wherever they are used, with the way to import others.
#pragma once

#include <optional>

#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include "crossword/gioco.h"
#include "platform/links.h"

namespace app {
class Finestra;
}

namespace statistics {

/// Looks at the archive each time that its window gets the keyboard.
class RigaArchivio : public QWidget {
    Q_OBJECT
public:
    enum class Forma {
        riga,
        in_superenalotto,  ///< seen while that is the game
        breve_in_lotto,    ///< the button alone, seen while Lotto is the game and it is needed
    };
    /// `finestra` outlives it; `padre` is in its window already.
    RigaArchivio(app::Finestra& finestra, QWidget* padre, Forma forma = Forma::riga);

    /// Tells of the draws that the session has open.
    void aggiorna();
    /// What is told.
    [[nodiscard]] QString frase() const { return frase_; }

    QLabel* lblarchivio = nullptr;
    QPushButton* cmdarchivio = nullptr;

Q_SIGNALS:
    /// Another archive stands in the place of the one that was told of; whoever uses its draws
    /// opens them anew before this goes on to tell of them.
    void cambiato();

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    void guarda();

    app::Finestra& finestra_;
    const Forma forma_;
    QString frase_;
    std::optional<platform::Impronta> vista_;
};

}  // namespace statistics
