// The line at the foot of the main form: where the player is and what comes next, what an action
// came to, what the analysis found, and what a type gives.
#pragma once

#include <array>

#include <QProgressBar>

#include "app/finestra.h"
#include "development/spiegazioni.h"
#include "platform/qt/annuncio.h"

namespace app {

/// Stands in the place of the bar while that is hidden. The next step has the left, what the
/// analysis found the rest; an explanation takes it all while a list of types shows it.
class Piede : public QWidget {
    Q_OBJECT
public:
    /// Stands where `barra` does. `tipi` are the lists of the types of rows, columns and diagonals,
    /// still empty: their entries get explanations. All outlive this.
    Piede(Finestra& finestra, QProgressBar* barra, const std::array<platform::ComboBox*, 3>& tipi);

    /// The session, or its files, changed.
    void aggiorna();
    /// What an action came to; stands in the stead of the next step until the next change.
    void mostra_esito(const QString& esito);
    /// What the last analysis found; empty after a change.
    void mostra_analisi(const QString& riassunto);

    platform::Annuncio* lblpasso = nullptr;  ///< read out at each new step
    QLabel* lblanalisi = nullptr;

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;

private:
    [[nodiscard]] QString spiegazione(crossword::Elenco quale, int posto);
    /// Puts the texts into the labels.
    void disponi();
    /// The next step, without its invitation where both do not fit.
    [[nodiscard]] QString passo_che_sta(const QString& accanto) const;

    const systems::Sessione& sessione_;
    development::Spiegazioni spiegazioni_;
    QString stato_;
    QString invito_;
    QString riassunto_;
    QString spiegazione_;  ///< of the type that a list shows; empty without one
};

}  // namespace app
