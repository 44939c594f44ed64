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
    if (scelta_in_forza()) return scelta_in_forza()(titolo, inizio);
    const int prima = MousePointer();
    MousePointer(0);
    QFileDialog dialogo(proprietario, titolo, inizio);
    dialogo.setFileMode(QFileDialog::Directory);
    dialogo.setOption(QFileDialog::ShowDirsOnly);
    // The titles of the program speak of this button by its name.
    dialogo.setLabelText(QFileDialog::Accept, "OK");
    dialogo.setLabelText(QFileDialog::Reject, "Annulla");
    dialogo.setLabelText(QFileDialog::LookIn, "Cerca in:");
    dialogo.setLabelText(QFileDialog::FileName, "Cartella:");
    dialogo.setLabelText(QFileDialog::FileType, "Tipo:");
    const QString cartella =
        dialogo.exec() == QDialog::Accepted ? dialogo.selectedFiles().value(0) : QString();
    MousePointer(prima);
    return cartella;
}

void scegli_con(SceltaCartella scelta) {
    scelta_in_forza() = std::move(scelta);
}

}  // namespace platform
