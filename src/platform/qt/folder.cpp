#include "platform/qt/folder.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>

#include "platform/qt/desktop.h"

namespace platform {

namespace {

SceltaCartella& scelta_in_forza() {
    static SceltaCartella scelta;
    return scelta;
}

std::function<QStringList()>& scelta_file_in_forza() {
    static std::function<QStringList()> scelta;
    return scelta;
}

std::function<QString(const QString&)>& scelta_nuovo_in_forza() {
    static std::function<QString(const QString&)> scelta;
    return scelta;
}

QStringList esegui(QFileDialog& dialogo) {
    // The titles of the program speak of this button by its name.
    dialogo.setLabelText(QFileDialog::Accept, "OK");
    const int prima = MousePointer();
    MousePointer(0);
    const QStringList scelti =
        dialogo.exec() == QDialog::Accepted ? dialogo.selectedFiles() : QStringList();
    MousePointer(prima);
    return scelti;
}

}  // namespace

QString scegli_cartella(QWidget* proprietario, const QString& titolo, const QString& inizio) {
    if (scelta_in_forza()) return scelta_in_forza()(titolo, inizio);
    QFileDialog dialogo(proprietario, titolo, inizio);
    dialogo.setFileMode(QFileDialog::Directory);
    dialogo.setOption(QFileDialog::ShowDirsOnly);
    return esegui(dialogo).value(0);
}

QStringList scegli_file(QWidget* proprietario, const QString& titolo, const QString& inizio,
                        const QString& tipi) {
    if (scelta_file_in_forza()) return scelta_file_in_forza()();
    QFileDialog dialogo(proprietario, titolo, inizio);
    dialogo.setFileMode(QFileDialog::ExistingFiles);
    dialogo.setNameFilters({tipi, "Tutti i file (*)"});
    return esegui(dialogo);
}

QString scegli_nuovo_file(QWidget* proprietario, const QString& titolo, const QString& proposta,
                          const QString& tipi) {
    if (scelta_nuovo_in_forza()) return scelta_nuovo_in_forza()(proposta);
    QFileDialog dialogo(proprietario, titolo);
    dialogo.setAcceptMode(QFileDialog::AcceptSave);
    dialogo.setNameFilters(tipi.split(";;"));
    dialogo.setDirectory(QFileInfo(proposta).path());
    dialogo.selectFile(QFileInfo(proposta).fileName());
    dialogo.setDefaultSuffix(QFileInfo(proposta).suffix());
    // Each kind has an ending of its own.
    QObject::connect(&dialogo, &QFileDialog::filterSelected, &dialogo, [&](const QString& tipo) {
        static const QRegularExpression fine("\\*\\.(\\w+)\\)");
        const QString estensione = fine.match(tipo).captured(1);
        if (!estensione.isEmpty()) dialogo.setDefaultSuffix(estensione);
    });
    return esegui(dialogo).value(0);
}

void scegli_nuovo_file_con(std::function<QString(const QString&)> scelta) {
    scelta_nuovo_in_forza() = std::move(scelta);
}

void scegli_file_con(std::function<QStringList()> scelta) {
    scelta_file_in_forza() = std::move(scelta);
}

void scegli_con(SceltaCartella scelta) {
    scelta_in_forza() = std::move(scelta);
}

}  // namespace platform
