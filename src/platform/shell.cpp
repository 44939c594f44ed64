#include "platform/shell.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QProcess>

#include "platform/desktop.h"
#include "platform/disk.h"
#include "platform/runtime.h"

namespace platform {

namespace {

std::int64_t avvia(const std::string& programma) {
    const std::string nome = nome_su_disco(programma);
    if (!esiste_file(nome)) return 0;
    QProcess processo;
    processo.setProgram(q(nome));
    processo.setWorkingDirectory(QFileInfo(q(nome)).absolutePath());
    qint64 numero = 0;
    return processo.startDetached(&numero) ? numero : 0;
}

}  // namespace

std::int64_t Shell(const std::string& programma) {
    const std::int64_t numero = avvia(programma);
    constexpr std::string_view fine = ".exe";
    if (numero != 0 || !LCase(programma).ends_with(fine)) return numero;
    return avvia(programma.substr(0, programma.size() - fine.size()));
}

std::vector<Finestra> EnumWindows() {
    // A program that shows nothing must not reach for the windows of somebody's desktop.
    if (QGuiApplication::platformName() == "offscreen") return {};
    return finestre_aperte();
}

bool AppActivate(std::string_view titolo) {
    const auto finestre = EnumWindows();
    const Finestra* trovata = finestra_titolata(finestre, titolo);
    return trovata != nullptr && attiva_finestra(trovata->id);
}

}  // namespace platform
