#include "app/lavori.h"

#include "platform/qt/pittura.h"

namespace app {

bool Lavori::chiudi_se_chiesto() {
    if (!chiusura_chiesta_) return false;
    chiusura_chiesta_ = false;
    finestra_.close();
    return true;
}

void Lavori::barra(int massimo) {
    barra_->setRange(0, qMax(1, massimo));
    barra_->setValue(0);
    barra_->show();
}

void Lavori::avanza(int valore) {
    barra_->setValue(qMin(valore, barra_->maximum()));
}

void Lavori::un_passo() {
    const platform::SenzaPittura ferma(barra_);
    barra_->setValue(barra_->value() + 1);
}

}  // namespace app
