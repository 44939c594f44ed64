#include "platform/folder.h"

#include <QFileDialog>

#include "platform/desktop.h"

namespace platform {

namespace {

SceltaCartella& scelta_in_forza() {
    static SceltaCartella scelta;
    return scelta;
}

}  // namespace

QString scegli_cartella(QWidget* proprietario, const QString& titolo, const QString& inizio) {
    if (scelta_in_forza())
        return scelta_in_forza()(titolo, inizio);
    const int prima = MousePointer();
    MousePointer(0);
    const QString cartella = QFileDialog::getExistingDirectory(proprietario, titolo, inizio);
    MousePointer(prima);
    return cartella;
}

void scegli_con(SceltaCartella scelta) {
    scelta_in_forza() = std::move(scelta);
}

}  // namespace platform
