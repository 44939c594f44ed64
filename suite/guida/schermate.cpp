// Takes the guide's pictures from the running forms, so that they never go stale.
#include <array>
#include <cstdio>
#include <filesystem>
#include <stdlib.h>  // NOLINT(modernize-deprecated-headers): mkdtemp is not in <cstdlib>
#include <string>

#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QPixmap>

#include "app/dialoghi_qt.h"
#include "app/form1.h"
#include "app/stile.h"
#include "archivio/comando.h"
#include "archivio/finestra.h"
#include "check/frmspoglio.h"
#include "platform/application.h"
#include "platform/disk.h"
#include "platform/qt/desktop.h"
#include "platform/qt/scrivania.h"
#include "stampa/editor.h"
#include "stampa/finestra.h"
#include "systems/form2.h"

namespace {

namespace fs = std::filesystem;

/// A suite folder of its own with the tables and the sample systems, gone at the end.
class Suite {
public:
    Suite(const std::string& suite, const std::string& esempi) {
        std::string modello = (fs::temp_directory_path() / "schermateXXXXXX").string();
        if (::mkdtemp(modello.data()) == nullptr) return;
        radice_ = modello;
        std::error_code errore;
        for (const char* parte : {"/ridotti", "/archivio"})
            fs::copy(suite + parte, radice_ + parte, fs::copy_options::recursive, errore);
        fs::copy(esempi, radice_ + "/cruciverba", fs::copy_options::recursive, errore);
        platform::App().Path = radice_ + "/cruciverba";
    }
    Suite(const Suite&) = delete;
    Suite& operator=(const Suite&) = delete;
    ~Suite() {
        std::error_code errore;
        if (!radice_.empty()) fs::remove_all(radice_, errore);
    }

private:
    std::string radice_;
};

class Fotografo {
public:
    explicit Fotografo(QString cartella) : cartella_(std::move(cartella)) {}
    void scatta(const QString& nome, QWidget& finestra, const QRect& dove = QRect(0, 0, -1, -1)) {
        QApplication::processEvents();
        const QImage figura = finestra.grab(dove).toImage().convertToFormat(QImage::Format_RGB32);
        if (figura.save(cartella_ + "/" + nome + ".png", "PNG", 0)) return;
        std::fprintf(stderr, "schermate: %s non si scrive\n", qPrintable(nome));
        riuscito = false;
    }
    bool riuscito = true;

private:
    QString cartella_;
};

QWidget* finestra(const char* nome) {
    QApplication::processEvents();
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (w->isVisible() && w->objectName() == nome) return w;
    }
    std::fprintf(stderr, "schermate: manca %s\n", nome);
    ::exit(1);
}

systems::Form2& gestore() {
    return *qobject_cast<systems::Form2*>(finestra("Form2"));
}

void apri(app::Form1& form1, const QString& nome) {
    form1.mnuapri_Click();
    systems::Form2& form2 = gestore();
    const auto voci = form2.ListView1->findItems(nome, Qt::MatchExactly);
    if (!voci.isEmpty()) form2.ListView1->setCurrentItem(voci.first());
    form2.Command5->click();
    QApplication::processEvents();
}

/// Part of the main form that holds these controls, with a little air around.
QRect intorno(const app::Form1& form1, std::initializer_list<const QWidget*> controlli) {
    QRect dove;
    for (const QWidget* c : controlli)
        dove = dove.united(QRect(c->mapTo(&form1, QPoint(0, 0)), c->size()));
    return dove.adjusted(-6, -6, 6, 6).intersected(form1.rect());
}

void spoglio_e_stampa(app::Form1& form1, Fotografo& foto) {
    apri(form1, "ridotto");
    form1.cmd_elabora();
    form1.Image3[6]->click();
    auto* spoglio = qobject_cast<check::frmspoglio*>(finestra("frmspoglio"));
    // An invented draw with something won; the Jolly comes first.
    const std::array<const char*, 7> usciti = {"58", "02", "05", "09", "14", "37", "71"};
    for (std::size_t i = 0; i < usciti.size(); ++i) spoglio->txtnum[i]->setText(usciti[i]);
    spoglio->Cmdspoglio->click();
    foto.scatta("spoglio", *spoglio);
    spoglio->CmdEsci->click();
    form1.Image3[7]->click();
    QWidget* stampa = finestra("frmstsvl");
    foto.scatta("stampa", *stampa);
    stampa->close();
}

void form_principale(app::Form1& form1, Fotografo& foto) {
    apri(form1, "primipassi");
    foto.scatta("form1", form1);
    for (int i = 1; i < 4; ++i) form1.UpDown2->setValue(form1.UpDown2->value() + 1);
    foto.scatta("importo", form1, intorno(form1, {form1.Frame6}));
    apri(form1, "ridotto");
    foto.scatta("tipi", form1, intorno(form1, {form1.Frame2}));
    form1.cmd_elabora();
    form1.sviluppo();
    QWidget* form3 = finestra("Form3");
    foto.scatta("sviluppo", *form3);
    form3->close();
    form1.mnuapri_Click();
    gestore().ListView1->setCurrentItem(gestore().ListView1->topLevelItem(0));
    foto.scatta("apri", gestore());
    gestore().close();
    form1.mnugest_sist_Click();
    gestore().ListView1->setCurrentItem(gestore().ListView1->topLevelItem(0));
    foto.scatta("gestione", gestore());
    gestore().close();
    form1.mnuImportocolonna->trigger();
    QWidget* euro = finestra("formeuro");
    foto.scatta("formeuro", *euro);
    euro->close();
    spoglio_e_stampa(form1, foto);
    form1.mnunuovo_Click();
    for (const int n : {7, 12, 25, 33, 48, 61, 90, 18, 27, 40, 52, 66, 71, 83, 5, 36, 44})
        form1.CMDnum[static_cast<std::size_t>(n)]->click();
    foto.scatta("disporre", form1, intorno(form1, {form1.Frame3, form1.Frame1, form1.Frame5}));
}

void le_schedine(Fotografo& foto) {
    constexpr int larghezza_pagina = 860;
    const std::string radice = platform::radice(platform::App().Path);
    platform::scrivi(radice + "trans", "\"cruciverba\",\"primipassi\"\r\n");
    schedine::Finestra stampa(radice);
    stampa.resize(larghezza_pagina, 600);
    stampa.show();
    foto.scatta("schedine", stampa);
    schedine::Editor modulo(radice, {}, &stampa);
    modulo.resize(larghezza_pagina, 600);
    modulo.show();
    foto.scatta("modulo", modulo);
}

}  // namespace

/// schermate CARTELLA SUITE ESEMPI: writes the pictures into the folder.
int main(int argc, char** argv) {
    if (argc != 4) {
        std::fputs("Uso: schermate CARTELLA SUITE ESEMPI\n", stderr);
        return 2;
    }
    QApplication qt(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    app::applica_stile(qt);
    // Coloured edges of letters suit one screen only.
    QFont carattere = QApplication::font();
    carattere.setStyleStrategy(QFont::NoSubpixelAntialias);
    QApplication::setFont(carattere);
    const Suite suite(argv[2], argv[3]);
    platform::scrivania().risponde = [](const platform::Messaggio&) { return platform::vbYes; };
    Fotografo foto(QString::fromLocal8Bit(argv[1]));
    app::DialoghiQt dialoghi;
    app::Form1 form1(dialoghi);
    form1.Form_Load();
    form1.show();
    form_principale(form1, foto);
    importazione::Finestra archivio(importazione::archivio_della_suite(platform::App().Path));
    archivio.show();
    foto.scatta("archivio", archivio);
    le_schedine(foto);
    form1.close();
    return foto.riuscito ? 0 : 1;
}
