#include "platform/qt/shell.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include "platform/disk.h"
#include "platform/macchina.h"
#include "platform/qt/desktop.h"
#include "platform/qt/scala.h"
#include "platform/qt/scrivania.h"
#include "platform/runtime.h"

namespace platform {

namespace {

/// A command that shows a window of its own needs no console beside it.
void senza_console([[maybe_unused]] QProcess& processo) {
#ifdef Q_OS_WIN
    constexpr unsigned long senza_finestra = 0x08000000;
    processo.setCreateProcessArgumentsModifier([](QProcess::CreateProcessArguments* parole) {
        parole->flags = (parole->flags & ~0x10UL) | senza_finestra;
    });
#endif
}

std::int64_t avvia(const QString& programma, const QString& cartella, const QStringList& parole) {
    QProcess processo;
    processo.setProgram(programma);
    processo.setArguments(parole);
    processo.setWorkingDirectory(cartella);
    processo.setProcessEnvironment(ambiente_scalato(QApplication::activeWindow()));
    senza_console(processo);
    qint64 numero = 0;
    return processo.startDetached(&numero) ? numero : 0;
}

std::int64_t avvia(const std::string& programma, const QStringList& parole) {
    const std::string nome = nome_su_disco(programma);
    if (!esiste_file(nome)) return 0;
    const QString testo = q(nome);
    if (QFile::encodeName(testo).toStdString() == nome) {
        return avvia(testo, QFileInfo(testo).absolutePath(), parole);
    }
    // Named by a handle: the process class would spoil a folder's bytes that are no text.
    const macchina::Soprannome cartella(cartella_di(nome));
    const QString dove = QString::fromStdString(cartella.nome());
    if (dove.isEmpty()) return 0;
    return avvia(dove + "/" + q(nome.substr(nome.rfind('/') + 1)), dove, parole);
}

}  // namespace

std::int64_t Shell(const std::string& programma, const std::vector<std::string>& parole) {
    QStringList argomenti;
    for (const std::string& parola : parole) argomenti << q(parola);
    const std::int64_t numero = avvia(programma, argomenti);
    constexpr std::string_view fine = ".exe";
    if (numero != 0) return numero;
    if (!LCase(programma).ends_with(fine)) {
        const std::string coda = macchina::coda_dei_programmi();
        return coda.empty() ? 0 : avvia(programma + coda, argomenti);
    }
    return avvia(programma.substr(0, programma.size() - fine.size()), argomenti);
}

std::vector<FinestraAperta> EnumWindows() {
    if (scrivania().finestre) return scrivania().finestre();
    // A program that shows nothing must not reach for the windows of somebody's desktop.
    if (QGuiApplication::platformName() == "offscreen") return {};
    return finestre_aperte();
}

void ShowWindow(std::uint32_t finestra) {
    if (finestra == 0) return;
    if (scrivania().mostra_finestra) {
        scrivania().mostra_finestra(finestra);
    } else {
        mostra_finestra(finestra);
    }
}

bool AppActivate(std::string_view titolo) {
    const auto finestre = EnumWindows();
    const FinestraAperta* trovata = finestra_titolata(finestre, titolo);
    if (trovata == nullptr) return false;
    return scrivania().attiva_finestra ? scrivania().attiva_finestra(trovata->id)
                                       : attiva_finestra(trovata->id);
}

}  // namespace platform
