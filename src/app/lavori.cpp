#include "app/lavori.h"

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
    barra_->setUpdatesEnabled(false);
    barra_->setValue(barra_->value() + 1);
    barra_->setUpdatesEnabled(true);
}

}  // namespace app
