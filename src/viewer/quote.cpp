#include "viewer/quote.h"

#include <QSignalBlocker>

#include "app/finestra.h"
#include "platform/qt/desktop.h"
#include "platform/qt/disposizione.h"

namespace viewer {

using platform::q;

Quote::Quote(systems::Sessione& sessione, RiquadroImporto& riquadro)
    : sessione_(sessione), r_(riquadro) {
    arreda();
    QObject::connect(r_.UpDown2, &QSpinBox::valueChanged, r_.UpDown2,
                     [this](int quante) { sessione_.quote(quante); });
}

void Quote::arreda() {
    const auto titolo = [this](const QString& testo, QRect dove) {
        platform::etichetta(testo, dove, r_.Frame6)->setProperty("titolo", true);
        return testo;
    };
    const auto cifra = [this](const QString& di_che_cosa, const char* nome, QRect dove) {
        QLabel* e = platform::valore(nome, dove, r_.Frame6, Qt::AlignRight);
        e->setAccessibleName(di_che_cosa);
        return e;
    };
    const auto valuta = [this](int i, QRect dove) {
        QLabel* e = platform::etichetta(QString(), dove, r_.Frame6);
        e->setObjectName(platform::membro("lblvaluta", i));
        return e;
    };
    const QString totale = titolo(app::Finestra::tr("Importo totale"), {12, 10, 88, 24});
    r_.lblimportotot = cifra(totale, "lblimportotot", {104, 10, 108, 24});
    r_.lblvaluta[0] = valuta(0, {218, 10, 40, 24});
    const QString quante = titolo(app::Finestra::tr("Quote"), {300, 10, 44, 24});
    r_.lblnumquote = cifra(quante, "lblnumquote", {346, 10, 44, 24});
    r_.lblnumquote->setText("1");
    r_.UpDown2 = platform::posto(new platform::UpDown(r_.Frame6), "UpDown2", {392, 10, 20, 24});
    r_.UpDown2->setAccessibleName(app::Finestra::tr("Numero di quote"));
    r_.UpDown2->setToolTip(r_.UpDown2->accessibleName());
    r_.UpDown2->setAccessibleDescription(app::Finestra::tr("Da 1 a 999"));
    const QString una = titolo(app::Finestra::tr("Importo di una quota"), {456, 10, 130, 24});
    r_.lblquote = cifra(una, "lblquote", {590, 10, 108, 24});
    r_.lblvaluta[1] = valuta(1, {704, 10, 40, 24});
}

void Quote::mostra() {
    const systems::Prezzo& prezzo = sessione_.prezzo();
    r_.lblimportotot->setText(q(prezzo.totale));
    r_.lblquote->setText(q(prezzo.quota));
    r_.lblnumquote->setText(q(prezzo.quote));
    for (QLabel* valuta : r_.lblvaluta) valuta->setText(q(prezzo.valuta));
    const QSignalBlocker fermo(r_.UpDown2);
    r_.UpDown2->setValue(r_.lblnumquote->text().toInt());
}

}  // namespace viewer
