// The tables of positions side by side: guarantee, columns, what each could spare, what it wins.
#pragma once

#include <optional>

#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "analysis/catalogo.h"
#include "analysis/frmanalisi.h"
#include "platform/qt/controls.h"

class QVBoxLayout;

namespace analysis {

/// Opens on the game and the longer side of the session. `finestra` outlives it.
class frmtabelle : public QDialog {
    Q_OBJECT
public:
    explicit frmtabelle(app::Finestra& finestra);

    /// The same way out as the button.
    void reject() override { close(); }

    platform::ComboBox* gioco = nullptr;
    platform::ComboBox* numeri = nullptr;
    VistaTavola* catalogo = nullptr;
    VistaTavola* vincite = nullptr;
    QLabel* lblstato = nullptr;
    QPushButton* cmdvincite = nullptr;
    QPushButton* cmdprova = nullptr;
    QPushButton* cmdcerca = nullptr;
    QPushButton* cmdadotta = nullptr;
    QPushButton* CmdEsci = nullptr;

protected:
    void closeEvent(QCloseEvent* evento) override;

private:
    // Layout, each routine one area of the window.
    void crea_scelte(QVBoxLayout* sotto);
    void crea_comandi(QVBoxLayout* sotto);

    [[nodiscard]] crossword::Gioco gioco_scelto() const;
    /// Lengths of the game chosen; `quanti` is taken where it is one.
    void elenca_numeri(int quanti);
    void mostra();
    void cerca();
    void adotta_file();
    /// Reads the tables anew, those of the main form too, with that one in hand.
    void accogli(const QString& nome);
    /// The table of the row in hand; nothing when there is none.
    [[nodiscard]] std::optional<std::size_t> scelta() const;
    void cambia_scelta();

    app::Finestra& finestra_;
    std::optional<Catalogo> catalogo_;
};

}  // namespace analysis
