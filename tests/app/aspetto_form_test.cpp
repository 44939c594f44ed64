// The skin changed while the program runs.
#include <QCheckBox>
#include <QImage>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "app/aspetto.h"
#include "support/finestre_aperte.h"

using support::Programma;

namespace {

class AspettoForm : public ::testing::Test {
protected:
    AspettoForm()
        : p(false, [](const support::Cartella& c) {
              std::filesystem::copy(SUITE_DIR "/skin", c.radice() + "/skin",
                                    std::filesystem::copy_options::overwrite_existing |
                                        std::filesystem::copy_options::recursive);
          }) {}
    QAction* voce(const char* nome) { return p.form1.findChild<QAction*>(nome); }
    void scegli(const char* nome) {
        Programma::voce(voce(nome));
        QApplication::processEvents();
    }
    [[nodiscard]] static QImage vista(QWidget& w) { return w.grab().toImage(); }
    Programma p;
};

TEST_F(AspettoForm, EveryChoiceShowsAtOnceAndGoesBackWhole) {
    // The offscreen platform gives a menu the focus for good.
    scegli("mnuclassico");
    const QImage classico = vista(p.form1);
    scegli("mnuscuro");
    const QImage scuro = vista(p.form1);
    EXPECT_LT(scuro.pixelColor(2, scuro.height() - 2).lightness(), 60);
    scegli("mnuchiaro");
    EXPECT_NE(vista(p.form1), classico);
    EXPECT_NE(vista(p.form1), scuro);
    scegli("mnuclassico");
    EXPECT_EQ(vista(p.form1), classico);
    scegli("mnuscuro");
    EXPECT_EQ(vista(p.form1), scuro);
    EXPECT_EQ(app::aspetto_scelto(p.cartella.radice() + "/"), 3);
    EXPECT_TRUE(p.mostrati().empty());
}

TEST_F(AspettoForm, OpenWindowsChangeWithIt) {
    p.form1.mnugest_sist_Click();
    QApplication::processEvents();
    systems::Form2* f = Programma::gestore();
    ASSERT_NE(f, nullptr);
    scegli("mnuclassico");
    const QImage prima = vista(*f);
    scegli("mnuscuro");
    EXPECT_LT(vista(*f).pixelColor(2, f->height() - 2).lightness(), 60);
    scegli("mnuclassico");
    EXPECT_EQ(vista(*f), prima);
}

TEST_F(AspettoForm, WhatCannotBeUsedLooksSo) {
    for (const char* aspetto : {"mnuclassico", "mnuchiaro", "mnuscuro"}) {
        scegli(aspetto);
        QDialog f(&p.form1);
        auto* riga = new QVBoxLayout(&f);
        auto* numero = new QSpinBox(&f);
        auto* campo = new QLineEdit("12", &f);
        auto* scelta = new QCheckBox("Con", &f);
        auto* una = new QRadioButton("Una", &f);
        auto* elenco = new QComboBox(&f);
        elenco->addItem("12");
        const QList<QWidget*> tutti{numero, campo, scelta, una, elenco};
        for (QWidget* w : tutti) riga->addWidget(w);
        f.show();
        QApplication::processEvents();
        for (QWidget* w : tutti) {
            SCOPED_TRACE(std::string(aspetto) + ' ' + w->metaObject()->className());
            const QImage prima = vista(*w);
            w->setEnabled(false);
            const QImage spento = vista(*w);
            const QPoint testo(w->width() - 30, w->height() / 2);
            if (w != scelta && w != una) {
                EXPECT_NE(spento.pixelColor(testo), prima.pixelColor(testo));
            }
            EXPECT_NE(spento, prima);
        }
    }
}

TEST_F(AspettoForm, TheMenuTicksWhatIsInForce) {
    const auto segnata = [this](const char* nome) {
        QMenu* menu = p.form1.findChild<QMenu*>("mnuaspetto");
        menu->popup(QPoint(10, 10));
        const bool si = voce(nome)->isChecked();
        menu->close();
        return si;
    };
    scegli("mnuchiaro");
    EXPECT_TRUE(segnata("mnuchiaro"));
    scegli("mnusistema");
    EXPECT_TRUE(segnata("mnusistema"));
    EXPECT_FALSE(segnata("mnuchiaro"));
    std::ofstream(p.cartella.radice() + "/skin/skn.dat") << "4";
    for (const char* nome : {"mnuclassico", "mnuchiaro", "mnuscuro", "mnusistema"}) {
        EXPECT_FALSE(segnata(nome)) << nome;
    }
}

TEST_F(AspettoForm, ARefusedChoiceIsTold) {
    scegli("mnuclassico");
    std::filesystem::remove_all(p.cartella.radice() + "/skin");
    const QImage prima = vista(p.form1);
    scegli("mnuscuro");
    const auto mostrati = p.mostrati();
    ASSERT_EQ(mostrati.size(), 1U);
    EXPECT_TRUE(mostrati[0].testo.startsWith("L'aspetto non si può cambiare"));
    EXPECT_EQ(vista(p.form1), prima);
}

}  // namespace
