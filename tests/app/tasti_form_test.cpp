// The page of the guide that lists the keys lists them all, and Shift+F10 is the menu key.
#include <fstream>
#include <set>

#include <QAction>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QRegularExpression>
#include <QShortcut>
#include <QSpinBox>

#include "guida/finestra.h"
#include "support/finestre_aperte.h"

namespace {

using support::FinestreAperte;
using support::Programma;

/// A key as the page writes it.
QString in_italiano(const QKeySequence& tasti) {
    QString testo = tasti.toString(QKeySequence::PortableText);
    const std::vector<std::pair<QString, QString>> parole{
        {"Shift", "Maiusc"}, {"PgUp", "Pag su"},   {"PgDown", "Pag giù"}, {"Home", "Inizio"},
        {"End", "Fine"},     {"Left", "Sinistra"}, {"Right", "Destra"},   {"Del", "Canc"},
        {"Space", "Spazio"}, {"Ctrl+=", "Ctrl++"}, {"+-", "+−"}};
    for (const auto& [inglese, italiano] : parole) testo.replace(inglese, italiano);
    return testo;
}

std::set<QString> della_pagina() {
    std::ifstream f(SOURCE_DIR "/suite/guida/pagine/tastiera.html");
    const QString pagina = QString::fromStdString({std::istreambuf_iterator<char>(f), {}});
    std::set<QString> tasti;
    static const QRegularExpression cella("<tr><td>([^<]*)</td>");
    for (auto i = cella.globalMatch(pagina); i.hasNext();) {
        for (QString tasto : i.next().captured(1).split(QRegularExpression(",| o "))) {
            tasti.insert(tasto.simplified());
        }
    }
    return tasti;
}

QList<QKeySequence> della_finestra(const QWidget& finestra) {
    QList<QKeySequence> tasti;
    for (const QAction* a : finestra.findChildren<QAction*>()) tasti << a->shortcuts();
    for (const QShortcut* s : finestra.findChildren<QShortcut*>()) tasti << s->key();
    for (const QAbstractButton* b : finestra.findChildren<QAbstractButton*>()) {
        // A letter with Alt is underlined on its button.
        if (!b->text().contains('&')) tasti << b->shortcut();
    }
    return tasti;
}

TEST(Tasti, ThePageOfTheGuideListsEveryKeyOfEveryWindow) {
    const std::set<QString> elencati = della_pagina();
    int quanti = 0;
    const auto guarda = [&](QWidget& finestra, const std::string& nome) {
        for (const QKeySequence& tasti : della_finestra(finestra)) {
            if (tasti.isEmpty()) continue;
            ++quanti;
            EXPECT_EQ(elencati.count(in_italiano(tasti)), 1U)
                << nome << ": " << in_italiano(tasti).toStdString();
        }
    };
    {
        Programma p{true};
        FinestreAperte(p, guarda).tutte();
    }
    guida::Finestra guida("");
    guarda(guida, "Guida");
    EXPECT_GT(quanti, 50);
}

class MaiuscF10 : public testing::Test {
protected:
    void premi(QWidget* su) {
        su->setFocus();
        QTest::keyClick(su, Qt::Key_F10, Qt::ShiftModifier);
    }
    Programma p;
};

TEST_F(MaiuscF10, OpensTheMenuOfTheCrossword) {
    QStringList voci;
    QTimer::singleShot(0, &p.form1, [&voci] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr) return;
        for (const QAction* a : menu->actions()) voci << a->objectName();
        menu->close();
    });
    premi(p.form1.MSFlexGrid1);
    EXPECT_EQ(voci, (QStringList{"annulla", "ripeti"}));
}

TEST_F(MaiuscF10, OpensTheMenuOfTheManager) {
    Programma::voce(p.form1.mnugest_sist);
    systems::Form2* f = Programma::gestore();
    ASSERT_NE(f, nullptr);
    premi(f->ListView1);
    EXPECT_TRUE(f->mnuutlituy->isVisible());
    f->mnuutlituy->close();
    QTest::keyClick(f->ListView1, Qt::Key_F10);
    EXPECT_FALSE(f->mnuutlituy->isVisible());
}

TEST_F(MaiuscF10, OpensItAtWhatIsChosen) {
    for (const char* nome : {"uno.sen", "due.sen"}) p.cartella.scrivi(nome, "");
    Programma::voce(p.form1.mnugest_sist);
    systems::Form2* f = Programma::gestore();
    ASSERT_NE(f, nullptr);
    platform::ListView& elenco = *f->ListView1;
    ASSERT_EQ(elenco.selezionata(), nullptr);
    elenco.setCurrentItem(elenco.topLevelItem(1), 0, QItemSelectionModel::NoUpdate);
    const auto accanto = [&] {
        // The row that the keys are on is what the menu is for.
        EXPECT_EQ(elenco.selezionata(), elenco.topLevelItem(1));
        const QRect riga = elenco.visualItemRect(elenco.topLevelItem(1));
        const QPoint menu = elenco.viewport()->mapFromGlobal(f->mnuutlituy->pos());
        EXPECT_TRUE(riga.contains(menu)) << menu.x() << "," << menu.y();
        f->mnuutlituy->close();
    };
    premi(&elenco);
    accanto();
    // The menu key asks in the middle of the control.
    elenco.clearSelection();
    const QPoint mezzo = elenco.rect().center();
    QContextMenuEvent tasto(QContextMenuEvent::Keyboard, mezzo, elenco.mapToGlobal(mezzo));
    QApplication::sendEvent(&elenco, &tasto);
    accanto();
}

TEST(TastoAlt, ALetterThatNothingAnswersToIsNotTyped) {
    Programma p;
    QLineEdit riga;
    QSpinBox numero;
    for (QWidget* w : std::initializer_list<QWidget*>{&riga, &numero}) {
        w->show();
        w->setFocus();
    }
    riga.setText("26");
    riga.selectAll();
    const int prima = numero.value();
    QTest::keyClick(&riga, Qt::Key_S, Qt::AltModifier);
    QTest::keyClick(&numero, Qt::Key_7, Qt::AltModifier);
    EXPECT_EQ(riga.text(), "26");
    EXPECT_EQ(numero.value(), prima);
    // AltGr writes, and so does a letter alone.
    QTest::sendKeyEvent(QTest::Click, &riga, Qt::Key_At, "@",
                        Qt::AltModifier | Qt::ControlModifier);
    EXPECT_EQ(riga.text(), "@");
    QTest::keyClick(&riga, Qt::Key_S);
    EXPECT_EQ(riga.text(), "@s");
}

}  // namespace
