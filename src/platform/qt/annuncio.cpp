#include "platform/qt/annuncio.h"

#include <QAccessible>
#include <QTimer>

#include "platform/qt/interfaccia.h"
#include "platform/qt/scritta_parlata.h"
#include "platform/qt/scrivania.h"

namespace platform {

namespace {

constexpr const char* si_annuncia = "annuncio";
constexpr const char* cosa = "annuncio_detto";
constexpr const char* accanto_a = "annuncio_mostrato";

void leggi(QLabel* riga, const QString& testo) {
    if (scrivania().legge) {
        scrivania().legge(testo);
        return;
    }
    // Screen readers speak a notification when it comes into sight; to an alert Windows would add
    // its sound, at each number that is laid.
    QAccessibleEvent comparsa(riga, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&comparsa);
}

}  // namespace

ScrittaParlata::ScrittaParlata(QLabel* scritta)
    : QAccessibleWidget(scritta, QAccessible::StaticText), scritta_(scritta) {}

QAccessible::Role ScrittaParlata::role() const {
    return scritta_->property(si_annuncia).toBool() ? QAccessible::Notification
                                                    : QAccessible::StaticText;
}

QString ScrittaParlata::text(QAccessible::Text quale) const {
    if (quale == QAccessible::Name) {
        const QString detto = scritta_->property(cosa).toString();
        if (!detto.isEmpty() && scritta_->property(accanto_a) == scritta_->text()) return detto;
        // A notification without a text would be read out by its name as its window opens.
        if (role() == QAccessible::Notification && scritta_->text().isEmpty()) return {};
        QStringList parti{scritta_->accessibleName(), scritta_->text()};
        parti.removeAll(QString());
        return parti.join(": ");
    }
    const QString testo = QAccessibleWidget::text(quale);
    // A tooltip that is the text is not to be read twice.
    return testo == scritta_->text() ? QString() : testo;
}

void parla_per_scritte() {
    parla_per<QLabel, ScrittaParlata>([](const QLabel& scritta) {
        return qobject_cast<const EtichettaValore*>(&scritta) != nullptr ||
               scritta.property(si_annuncia).toBool();
    });
}

void rendi_annuncio(QLabel* riga) {
    riga->setProperty(si_annuncia, true);
    parla_per_scritte();
}

bool annuncia(QLabel* riga, const QString& testo) {
    if (riga->text() == testo) return false;
    riga->setText(testo);
    if (!riga->isVisible() || testo.isEmpty()) return false;
    leggi(riga, testo);
    return true;
}

void di(QLabel* riga, const QString& detto) {
    riga->setProperty(cosa, detto);
    riga->setProperty(accanto_a, riga->text());
    if (riga->isVisible()) leggi(riga, detto);
}

void di_a_cose_fatte(QLabel* riga, const QString& detto) {
    constexpr int attesa = 600;
    QTimer::singleShot(attesa, riga, [riga, detto, mostrato = riga->text()] {
        if (riga->text() == mostrato) di(riga, detto);
    });
}

Annuncio::Annuncio(QWidget* padre) : EtichettaValore(padre) {
    rendi_annuncio(this);
}

void Annuncio::annuncia(const QString& testo) {
    const bool sentito = platform::annuncia(this, testo);
    setToolTip(testo);
    if (sentito) Q_EMIT detto(testo);
}

}  // namespace platform
