#include "app/piede.h"

#include <QEvent>
#include <QHBoxLayout>

#include "platform/qt/desktop.h"
#include "platform/qt/disposizione.h"
#include "systems/passo.h"

namespace app {

using platform::q;

namespace {

constexpr int altezza = 20;
constexpr int spazio = 16;

/// Gives a new line its name and look.
template <class Riga>
Riga* arreda(Riga* e, const QString& nome) {
    e->setObjectName(nome);
    e->setTextFormat(Qt::PlainText);
    e->setProperty("invito", true);
    // Narrower than its text, it narrows its letters.
    e->setMinimumWidth(1);
    return e;
}

}  // namespace

Piede::Piede(Finestra& finestra, QProgressBar* barra,
             const std::array<platform::ComboBox*, 3>& tipi)
    : QWidget(barra->parentWidget()), sessione_(finestra.sessione) {
    setObjectName("piede");
    const QRect dove = barra->geometry();
    setGeometry(dove.x() + 4, dove.center().y() - altezza / 2, dove.width() - 8, altezza);
    lblpasso = arreda(new platform::Annuncio(this), "lblpasso");
    lblanalisi = arreda(new platform::EtichettaValore(this), "lblanalisi");
    auto* riga = new QHBoxLayout(this);
    riga->setContentsMargins(0, 0, 0, 0);
    riga->setSpacing(spazio);
    riga->addWidget(lblpasso);
    riga->addWidget(lblanalisi, 1);
    barra->installEventFilter(this);
    for (std::size_t i = 0; i < tipi.size(); ++i) {
        const auto quale = static_cast<crossword::Elenco>(i + 1);
        tipi[i]->spiega([this, quale](int posto) { return spiegazione(quale, posto); });
        connect(tipi[i], &platform::ComboBox::Spiegato, this, [this](const QString& testo) {
            spiegazione_ = testo;
            disponi();
        });
    }
}

void Piede::aggiorna() {
    const systems::Passo passo = systems::prossimo_passo(sessione_);
    stato_ = q(passo.stato);
    invito_ = q(passo.invito);
    disponi();
}

void Piede::mostra_esito(const QString& esito) {
    if (esito.isEmpty()) return;
    stato_ = esito.simplified();
    invito_.clear();
    disponi();
}

void Piede::mostra_analisi(const QString& riassunto) {
    riassunto_ = riassunto;
    disponi();
}

QString Piede::passo_che_sta(const QString& accanto) const {
    if (accanto.isEmpty()) return stato_ + invito_;
    const QFontMetrics misura = lblpasso->fontMetrics();
    const int largo = misura.horizontalAdvance(stato_ + invito_) + spazio +
                      lblanalisi->fontMetrics().horizontalAdvance(accanto);
    return largo <= width() ? stato_ + invito_ : stato_;
}

void Piede::disponi() {
    const bool spiega = !spiegazione_.isEmpty();
    const QString destra = spiega ? spiegazione_ : riassunto_;
    const QString passo = passo_che_sta(destra);
    lblanalisi->setText(destra);
    lblanalisi->setVisible(!destra.isEmpty());
    lblpasso->setVisible(!spiega && !passo.isEmpty());
    lblpasso->annuncia(passo);
}

void Piede::resizeEvent(QResizeEvent* evento) {
    QWidget::resizeEvent(evento);
    disponi();
}

bool Piede::eventFilter(QObject* oggetto, QEvent* evento) {
    if (evento->type() == QEvent::Show) hide();
    if (evento->type() == QEvent::Hide) {
        aggiorna();
        show();
    }
    return QWidget::eventFilter(oggetto, evento);
}

QString Piede::spiegazione(crossword::Elenco quale, int posto) {
    const int tipo = sessione_.indice_in(quale, posto);
    const crossword::Gioco g = sessione_.gioco();
    const int n = quale == crossword::Elenco::orizzontali ? sessione_.colonne() : sessione_.righe();
    const std::string& ridotti = sessione_.ridotti();
    QString testo = q(spiegazioni_.di(ridotti, g, n, tipo));
    if (quale == crossword::Elenco::diagonali && g.adiacenti(n)) {
        testo += tr(". Le adiacenti: ") + q(spiegazioni_.di(ridotti, g, n - 1, tipo));
    }
    return testo;
}

}  // namespace app
