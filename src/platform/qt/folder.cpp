#include "platform/qt/folder.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QRegularExpression>
#include <QTreeView>

#include "platform/disk.h"
#include "platform/qt/desktop.h"
#include "platform/qt/scrivania.h"

namespace platform {

namespace {

/// Qt's own dialog measures the heads of its list by English words, and cuts ours.
void allarga_teste(const QFileDialog& dialogo) {
    const auto* lista = dialogo.findChild<QTreeView*>("treeView");
    if (lista == nullptr) return;
    QHeaderView* teste = lista->header();
    teste->ensurePolished();
    for (int c = 0; c < teste->count(); ++c) {
        teste->resizeSection(c, qMax(teste->sectionSize(c), teste->sectionSizeHint(c)));
    }
    // The names take the rest.
    teste->setSectionResizeMode(0, QHeaderView::Stretch);
}

QStringList esegui(QFileDialog& dialogo) {
    allarga_teste(dialogo);
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
    if (scrivania().sceglie_cartella) return scrivania().sceglie_cartella(titolo, inizio);
    QFileDialog dialogo(proprietario, titolo, inizio);
    dialogo.setFileMode(QFileDialog::Directory);
    dialogo.setOption(QFileDialog::ShowDirsOnly);
    return esegui(dialogo).value(0);
}

QStringList scegli_file(QWidget* proprietario, const QString& titolo, const QString& inizio,
                        const QString& tipi) {
    if (scrivania().sceglie_file) return scrivania().sceglie_file();
    QFileDialog dialogo(proprietario, titolo, inizio);
    dialogo.setFileMode(QFileDialog::ExistingFiles);
    dialogo.setNameFilters({tipi, "Tutti i file (*)"});
    return esegui(dialogo);
}

QString scegli_nuovo_file(QWidget* proprietario, const QString& titolo, const QString& proposta,
                          const QString& tipi) {
    if (scrivania().sceglie_nuovo_file) return scrivania().sceglie_nuovo_file(proposta);
    QFileDialog dialogo(proprietario, titolo);
    dialogo.setAcceptMode(QFileDialog::AcceptSave);
    dialogo.setNameFilters(tipi.split(";;"));
    dialogo.setDirectory(QFileInfo(proposta).path());
    dialogo.selectFile(QFileInfo(proposta).fileName());
    dialogo.setDefaultSuffix(QFileInfo(proposta).suffix());
    // Each kind has an ending of its own.
    QObject::connect(&dialogo, &QFileDialog::filterSelected, &dialogo, [&](const QString& tipo) {
        static const QRegularExpression fine(R"(\*\.(\w+)\))");
        const QString estensione = fine.match(tipo).captured(1);
        if (!estensione.isEmpty()) dialogo.setDefaultSuffix(estensione);
    });
    return esegui(dialogo).value(0);
}

QString da_mostrare(const QString& nome) {
    return q(da_mostrare(s(nome)));
}

}  // namespace platform
