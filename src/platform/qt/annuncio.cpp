#include "platform/qt/annuncio.h"

#include <QAccessibleWidget>

#include "platform/qt/interfaccia.h"

namespace platform {

namespace {

class Notifica : public QAccessibleWidget {
public:
    explicit Notifica(Annuncio* riga)
        : QAccessibleWidget(riga, QAccessible::Notification), riga_(riga) {}
    /// Its tooltip is its text, which is not to be read twice.
    [[nodiscard]] QString text(QAccessible::Text quale) const override {
        return quale == QAccessible::Name ? riga_->text() : QString();
    }

private:
    Annuncio* riga_;
};

}  // namespace

Annuncio::Annuncio(QWidget* padre) : EtichettaValore(padre) {
    parla_per<Annuncio, Notifica>();
}

void Annuncio::annuncia(const QString& testo) {
    if (text() == testo) return;
    setText(testo);
    setToolTip(testo);
    if (!isVisible() || testo.isEmpty()) return;
    // Screen readers speak a notification when it comes into sight; to an alert Windows would add
    // its sound, at each number that is laid.
    QAccessibleEvent comparsa(this, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&comparsa);
    Q_EMIT detto(testo);
}

}  // namespace platform
