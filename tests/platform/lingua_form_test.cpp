// What Qt says by itself is Italian in every program of the suite.
#include <set>

#include <QContextMenuEvent>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QScrollBar>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTimer>
#include <QTranslator>

namespace {

class Lingua : public testing::Test {
protected:
    void menu(QMenu* m) {
        for (const QAction* a : m->actions()) aggiungi(a->text());
        delete m;
    }
    void finestra(QWidget& f) {
        f.show();
        QApplication::processEvents();
        aggiungi(f.windowTitle());
        for (const QWidget* w : f.findChildren<QWidget*>()) {
            for (const char* che : {"text", "title", "toolTip"})
                aggiungi(w->property(che).toString());
            if (const auto* t = qobject_cast<const QTabWidget*>(w)) {
                for (int i = 0; i < t->count(); ++i) aggiungi(t->tabText(i));
            }
            if (const auto* h = qobject_cast<const QHeaderView*>(w)) {
                for (int i = 0; i < h->count(); ++i)
                    aggiungi(h->model()->headerData(i, Qt::Horizontal).toString());
            }
        }
    }
    void aggiungi(QString testo) { detti.insert(testo.remove('&').section('\t', 0, 0)); }
    void dice(std::initializer_list<const char*> parole) const {
        for (const char* p : parole) EXPECT_TRUE(detti.contains(p)) << p;
    }
    void tace(std::initializer_list<const char*> parole) const {
        for (const char* p : parole) EXPECT_FALSE(detti.contains(p)) << p;
    }
    std::set<QString> detti;
};

TEST_F(Lingua, IMenuDeiCampiSonoInItaliano) {
    menu(QLineEdit().createStandardContextMenu());
    menu(QPlainTextEdit().createStandardContextMenu());
    QTextBrowser pagina;
    pagina.setHtml("<a href='x'>x</a>");
    menu(pagina.createStandardContextMenu());
    dice({"Annulla", "Rifai", "Taglia", "Copia", "Incolla", "Elimina", "Seleziona tutto",
          "Copia il collegamento"});
    tace({"Undo", "Redo", "Cut", "Copy", "Paste", "Delete", "Select All"});
}

TEST_F(Lingua, IlMenuDelleBarreEInItaliano) {
    QScrollBar barra(Qt::Horizontal);
    barra.show();
    QTimer::singleShot(0, &barra, [this] {
        auto* m = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(m, nullptr);
        for (const QAction* a : m->actions()) aggiungi(a->text());
        m->close();
    });
    QContextMenuEvent chiesto(QContextMenuEvent::Mouse, {2, 2}, {2, 2});
    QApplication::sendEvent(&barra, &chiesto);
    dice({"Scorri qui", "Pagina a sinistra"});
    tace({"Scroll here", "Page left"});
}

TEST_F(Lingua, LaSceltaDeiFileEInItaliano) {
    QFileDialog file(nullptr, QString(), QDir::tempPath());
    file.setOption(QFileDialog::DontUseNativeDialog);
    finestra(file);
    dice({"Cerca in:", "Nome del file:", "File di tipo:", "Annulla", "Nome", "Dimensione",
          "Data di modifica"});
    tace({"Look in:", "File name:", "Files of type:", "Cancel", "Name", "Size", "Date Modified"});
}

TEST_F(Lingua, LaStampaEInItaliano) {
    QPrinter stampante;
    QPrintDialog stampa(&stampante);
    finestra(stampa);
    dice({"Stampante", "Stampa", "Annulla", "Copie", "Pagine", "Stampa su due lati",
          "Rilegatura sul lato lungo", "No"});
    tace({"Printer", "Print", "Cancel", "Copies", "Pages", "Double Sided Printing",
          "Long side binding", "Short side binding", "Off"});
}

TEST_F(Lingua, LaTraduzioneViaggiaConIlProgramma) {
    QTranslator portata;
    ASSERT_TRUE(portata.load(":/lingua/qtbase_it.qm"));
    EXPECT_EQ(portata.translate("QLineEdit", "&Copy"), "&Copia");
}

}  // namespace
