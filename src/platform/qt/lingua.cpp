#include "platform/qt/lingua.h"

#include <QApplication>
#include <QHash>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

/// A static library's resources are linked in only when somebody asks for them; the macro works
/// in the global namespace alone.
static void carica_lingua() {
    Q_INIT_RESOURCE(lingua);
}

namespace platform {

namespace {

/// What Qt's Italian leaves in English in the dialogs for printing.
class Mancanti : public QTranslator {
public:
    using QTranslator::QTranslator;
    [[nodiscard]] bool isEmpty() const override { return false; }
    QString translate(const char* contesto, const char* testo, const char* /*quale*/,
                      int /*quanti*/) const override {
        static const QHash<QByteArray, QString> parole{
            {"Advanced", "Avanzate"},
            {"Double Sided Printing", "Stampa su due lati"},
            {"Off", "No"},
            {"Long side binding", "Rilegatura sul lato lungo"},
            {"Short side binding", "Rilegatura sul lato corto"},
            {"Pages", "Pagine"},
            {"Specify pages or ranges separated by commas. Ranges are specified by two numbers "
             "separated by a hyphen. E.g: 3,5-7,9 prints pages 3, 5, 6, 7 and 9.",
             "Pagine o intervalli separati da virgole. Un intervallo è fatto di due numeri "
             "separati "
             "da un trattino: 3,5-7,9 stampa le pagine 3, 5, 6, 7 e 9."},
            {"There are conflicts in some options. Please fix them.",
             "Alcune opzioni sono in conflitto: correggetele."},
        };
        return QByteArray(contesto).startsWith("QPrint") ? parole.value(testo) : QString();
    }
};

}  // namespace

bool parla_italiano() {
    carica_lingua();
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    QApplication::installTranslator(new Mancanti(qApp));
    auto* italiano = new QTranslator(qApp);
    // The installed one fits the Qt that runs, which may be newer than the program.
    const bool riuscito =
        italiano->load("qtbase_it", QLibraryInfo::path(QLibraryInfo::TranslationsPath)) ||
        italiano->load(":/lingua/qtbase_it.qm");
    return riuscito && QApplication::installTranslator(italiano);
}

}  // namespace platform
