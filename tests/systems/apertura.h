// A system that is opened as a player does, and the names that tests over boxes are written in.
#pragma once

#include <vector>

#include "support/programma.h"

namespace apertura {

using support::Icona;
using support::Mostrato;
using support::Programma;
using support::Pulsanti;
using support::vbNo;
using support::vbYes;
using systems::Form2;
using Mostrati = std::vector<Mostrato>;

/// Clicks the row of a system in the list.
inline void scegli_voce(Form2& form2, const QString& nome) {
    const QList<QTreeWidgetItem*> voci = form2.ListView1->findItems(nome, Qt::MatchExactly);
    ASSERT_EQ(voci.size(), 1) << nome.toStdString();
    QTest::mouseClick(form2.ListView1->viewport(), Qt::LeftButton, {},
                      form2.ListView1->visualItemRect(voci.first()).center());
}

/// Opens a system by the menu, the list and the button.
inline void apri(Programma& p, const QString& nome) {
    Programma::voce(p.form1.mnuapri);
    Form2* form2 = Programma::gestore();
    ASSERT_NE(form2, nullptr);
    scegli_voce(*form2, nome);
    Programma::clic(form2->Command5);
    EXPECT_EQ(Programma::gestore(), nullptr);
}

}  // namespace apertura
