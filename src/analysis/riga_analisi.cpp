#include "analysis/riga_analisi.h"

#include <QEvent>

#include "platform/application.h"
#include "platform/qt/desktop.h"

namespace analysis {

RigaAnalisi::RigaAnalisi(app::Finestra& finestra, QProgressBar* barra,
                         const std::array<platform::ComboBox*, 3>& tipi)
    : EtichettaValore(barra->parentWidget()), sessione_(finestra.sessione) {
    constexpr int altezza = 20;
    const QRect dove = barra->geometry();
    setGeometry(dove.x() + 4, dove.center().y() - altezza / 2, dove.width() - 8, altezza);
    setTextFormat(Qt::PlainText);
    setProperty("invito", true);
    barra->installEventFilter(this);
    for (std::size_t i = 0; i < tipi.size(); ++i) {
        const auto quale = static_cast<crossword::Elenco>(i + 1);
        tipi[i]->spiega([this, quale](int tipo) { return spiegazione(quale, tipo); });
        connect(tipi[i], &platform::ComboBox::Spiegato, this, [this](const QString& testo) {
            spiegazione_ = testo;
            mostra(riassunto_);
        });
    }
}

void RigaAnalisi::mostra(const QString& riassunto) {
    riassunto_ = riassunto;
    setText(spiegazione_.isEmpty() ? riassunto_ : spiegazione_);
}

bool RigaAnalisi::eventFilter(QObject* oggetto, QEvent* evento) {
    if (evento->type() == QEvent::Show) hide();
    if (evento->type() == QEvent::Hide) show();
    return EtichettaValore::eventFilter(oggetto, evento);
}

QString RigaAnalisi::spiegazione(crossword::Elenco quale, int tipo) {
    const crossword::Gioco g = sessione_.gioco();
    const int n = quale == crossword::Elenco::orizzontali ? sessione_.colonne() : sessione_.righe();
    const std::string ridotti = platform::radice(sessione_.cartella()) + "ridotti";
    QString testo = platform::q(spiegazioni_.di(ridotti, g, n, tipo));
    if (quale == crossword::Elenco::diagonali && g.adiacenti(n)) {
        testo += tr(". Le adiacenti: ") + platform::q(spiegazioni_.di(ridotti, g, n - 1, tipo));
    }
    return testo;
}

}  // namespace analysis
