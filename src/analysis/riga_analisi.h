// The line at the foot of the main form: what the analysis found, and what a type gives.
#pragma once

#include <array>

#include <QProgressBar>

#include "app/finestra.h"
#include "development/spiegazioni.h"
#include "platform/qt/controls.h"

namespace analysis {

/// Stands in the place of the bar while that is hidden.
class RigaAnalisi : public platform::EtichettaValore {
public:
    /// `tipi` are the lists of the types of rows, columns and diagonals, still empty: their
    /// entries get explanations. All outlive this.
    RigaAnalisi(app::Finestra& finestra, QProgressBar* barra,
                const std::array<platform::ComboBox*, 3>& tipi);

    /// What the last analysis found; empty after a change.
    void mostra(const QString& riassunto);

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    [[nodiscard]] QString spiegazione(crossword::Elenco quale, int tipo);

    const systems::Sessione& sessione_;
    development::Spiegazioni spiegazioni_;
    QString riassunto_;
    QString spiegazione_;  ///< of the type that a list shows; empty without one
};

}  // namespace analysis
