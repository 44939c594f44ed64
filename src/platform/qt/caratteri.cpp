#include "platform/qt/caratteri.h"

#include <QDir>
#include <QFontDatabase>

/// A static library's resources are linked in only when somebody asks for them; the macro works
/// in the global namespace alone.
static void carica_caratteri() {
    Q_INIT_RESOURCE(lingua);
}

namespace platform {

void porta_caratteri() {
    static const bool portati = [] {
        carica_caratteri();
        const QDir cartella(":/caratteri");
        for (const QString& nome : cartella.entryList()) {
            QFontDatabase::addApplicationFont(cartella.filePath(nome));
        }
        return true;
    }();
    Q_UNUSED(portati)
}

}  // namespace platform
