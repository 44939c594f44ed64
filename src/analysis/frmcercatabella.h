// The search for a small table of a wanted guarantee, and its adoption among the economical ones.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <QLabel>
#include <QProgressBar>
#include <QSpinBox>

#include "analysis/dialogo_lungo.h"
#include "crossword/gioco.h"
#include "development/coperture.h"
#include "platform/qt/controls.h"

class QVBoxLayout;

namespace analysis {

/// What the search begins with.
struct Partenza {
    std::string ridotti;  ///< folder of the tables, without a final separator
    crossword::Gioco gioco;
    int n = 0;
    /// The table that is held against what is found; no name for none.
    std::string nome;
    development::Garanzia garanzia{2, 2};
    int righe = 0;
};

/// Holds all other windows while it is open.
class frmcercatabella : public DialogoRicerca {
    Q_OBJECT
public:
    frmcercatabella(const Partenza& partenza, QWidget* padre);

    /// Rows of the best table so far; none before the first search.
    [[nodiscard]] const std::vector<development::Maschera>& trovata() const { return trovata_; }

    platform::ComboBox* estratti = nullptr;
    platform::ComboBox* indovinati = nullptr;
    QSpinBox* colonne = nullptr;  ///< 0 for the fewest that miss nothing
    platform::ComboBox* tempo = nullptr;
    QLabel* lblstato = nullptr;
    QProgressBar* ProgressBar1 = nullptr;
    QPushButton* cmdadotta = nullptr;

signals:
    /// A table stands among the economical ones under this file name.
    void adottata(const QString& nome);

protected:
    void ferma() override { fermata_ = true; }
    void cerca() override;

private:
    void crea_scelte(QVBoxLayout* sotto);

    [[nodiscard]] development::Desiderio desiderio() const;
    void elenca_indovinati(int t);
    void dimentica();
    void occupato(bool si);
    void mostra_andamento(double secondi);
    void concludi();
    void adotta();

    Partenza da_;
    std::vector<development::Maschera> trovata_;
    std::uint64_t scoperti_ = 0;
    std::uint64_t seme_ = 0;
    bool fermata_ = false;
};

}  // namespace analysis
