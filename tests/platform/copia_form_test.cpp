// The copy key over every kind of grid and list.
#include <QClipboard>
#include <QHeaderView>

#include "platform/qt/copia.h"
#include "support/finestre_aperte.h"

using support::Programma;

namespace {

QString copiato(QWidget* w) {
    QGuiApplication::clipboard()->setText("prima");
    QTest::keyClick(w, Qt::Key_C, Qt::ControlModifier);
    return QGuiApplication::clipboard()->text();
}

TEST(Copia, TheCrosswordIsTakenWhole) {
    Programma p;
    p.cella(0, 1);
    p.numero(5);
    p.cella(1, 0);
    p.numero(90);
    const QString vuote = "\t\t\t\t\t\n";
    EXPECT_EQ(copiato(p.form1.MSFlexGrid1), "\t5\t\t\t\t\n90\t\t\t\t\t\n" + vuote.repeated(4));
}

TEST(Copia, AListGivesItsSelectedRow) {
    Programma p;
    EXPECT_EQ(copiato(p.form1.List1), "prima");
    p.cella(0, 0);
    p.numero(5);
    p.numero(7);
    p.form1.List1->setCurrentRow(1);
    EXPECT_EQ(copiato(p.form1.List1), "7\n");
}

TEST(Copia, ASystemOfTheManagerComesWithItsColumns) {
    Programma p;
    p.riempi();
    p.scrivi_nel_gestore("prova");
    Programma::voce(p.form1.mnusalva);
    p.form1.mnugest_sist_Click();
    QApplication::processEvents();
    systems::Form2* f = Programma::gestore();
    f->ListView1->setCurrentItem(f->ListView1->topLevelItem(0));
    const QStringList celle = copiato(f->ListView1).trimmed().split('\t');
    ASSERT_EQ(celle.size(), f->ListView1->columnCount());
    EXPECT_EQ(celle[0], "prova");
}

TEST(Copia, HiddenAndMovedColumnsAreTakenAsTheyStand) {
    platform::ListView lista(nullptr);
    for (const char* titolo : {"a", "b", "c"}) lista.add_colonna(titolo, 600, Qt::AlignLeft);
    lista.setCurrentItem(lista.add_voce({"uno", "due\ndue", "tre"}));
    lista.header()->moveSection(2, 0);
    lista.setColumnHidden(0, true);
    EXPECT_EQ(platform::testo_da_copiare(lista), "tre\tdue due\n");
}

TEST(Copia, WhatIsBeingWrittenKeepsItsOwnCopy) {
    Programma p;
    p.riempi();
    p.nel_gestore([](systems::Form2& f) {
        QTest::keyClicks(f.Text1, "abc");
        f.Text1->selectAll();
        EXPECT_EQ(copiato(f.Text1), "abc");
        f.Text1->clear();
        Programma::clic(f.Command2);
    });
    Programma::voce(p.form1.mnusalvanome);
}

}  // namespace
