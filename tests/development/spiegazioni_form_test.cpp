// What a type gives, at the point of choice: tooltip, description, and a line at the foot.
#include <QAccessible>
#include <QHelpEvent>
#include <QToolTip>

#include "support/programma.h"

using support::Programma;

namespace {

const QString integrale_8 =
    "28 sestine, tutte quelle possibili: con 6 estratti su 8 almeno una da 6";

class SpiegazioniForm : public testing::Test {
protected:
    SpiegazioniForm() {
        p.dimensioni(7, 8);
        p.form1.activateWindow();
        QApplication::processEvents();
    }
    QString riga() { return p.form1.lblanalisi->text(); }
    Programma p{true};
};

TEST_F(SpiegazioniForm, EveryEntryCarriesItsGuarantee) {
    const platform::ComboBox* c = p.form1.Combo4;
    ASSERT_EQ(c->count(), 3);
    EXPECT_EQ(c->itemData(0, Qt::ToolTipRole).toString(), integrale_8);
    EXPECT_EQ(c->itemData(0, Qt::AccessibleDescriptionRole).toString(), "");
    p.form1.Combo4->showPopup();
    EXPECT_EQ(c->itemData(0, Qt::AccessibleDescriptionRole).toString(), integrale_8);
    p.form1.Combo4->hidePopup();
    EXPECT_TRUE(c->itemData(1, Qt::ToolTipRole).toString().startsWith("4 sestine, 14,3 %"));
    EXPECT_TRUE(p.form1.Combo3->itemData(1, Qt::ToolTipRole).toString().startsWith("1 sestina"));
    const auto* a = QAccessible::queryAccessibleInterface(p.form1.Combo4);
    EXPECT_EQ(a->text(QAccessible::Description), integrale_8);
}

TEST_F(SpiegazioniForm, ToBeLaidOutAListExplainsNothing) {
    platform::ComboBox c(&p.form1);
    int chieste = 0;
    c.spiega([&chieste](int /*posto*/) { return QString::number(++chieste); });
    c.elenca({"uno", "due", "tre"}, -1);
    QFont carattere = c.font();
    carattere.setPixelSize(40);
    c.setFont(carattere);
    c.setStyleSheet("QComboBox { color: red; }");
    c.view()->sizeHintForRow(1);
    EXPECT_EQ(chieste, 0);
}

TEST_F(SpiegazioniForm, TheDiagonalsTellOfTheirNeighboursToo) {
    p.dimensioni(8, 8);
    EXPECT_EQ(p.form1.Combo5->itemData(0, Qt::ToolTipRole).toString(),
              integrale_8 +
                  ". Le adiacenti: 7 sestine, tutte quelle possibili: con 6 estratti su 7 almeno "
                  "una da 6");
}

TEST_F(SpiegazioniForm, TheLineStandsWhileTheListHasTheFocus) {
    EXPECT_EQ(riga(), "");
    p.form1.Combo4->setFocus();
    EXPECT_EQ(riga(), integrale_8);
    QTest::keyClick(p.form1.Combo4, Qt::Key_Down);
    EXPECT_TRUE(riga().startsWith("4 sestine, 14,3 %")) << riga().toStdString();
    p.form1.Combo3->setFocus();
    EXPECT_TRUE(riga().startsWith("7 sestine, tutte")) << riga().toStdString();
    p.form1.MSFlexGrid1->setFocus();
    EXPECT_EQ(riga(), "");
}

TEST_F(SpiegazioniForm, DopoUnMessaggioLaRigaDiceComEAndata) {
    p.form1.Combo4->setFocus();
    QFocusEvent via(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(p.form1.Combo4, &via);
    p.form1.mostra_esito("Nessuno sviluppo: il disco non lo ha accettato");
    QFocusEvent torna(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(p.form1.Combo4, &torna);
    EXPECT_EQ(riga(), "");
    EXPECT_TRUE(p.form1.lblpasso->isVisible());
    EXPECT_EQ(p.form1.lblpasso->text(), "Nessuno sviluppo: il disco non lo ha accettato");
    QTest::keyClick(p.form1.Combo4, Qt::Key_Down);
    EXPECT_TRUE(riga().startsWith("4 sestine, 14,3 %")) << riga().toStdString();
}

TEST_F(SpiegazioniForm, TheLineFollowsTheOpenList) {
    p.form1.Combo4->showPopup();
    QApplication::processEvents();
    EXPECT_EQ(riga(), integrale_8);
    QTest::keyClick(p.form1.Combo4->view(), Qt::Key_Down);
    EXPECT_TRUE(riga().startsWith("4 sestine, 14,3 %")) << riga().toStdString();
    QTest::keyClick(p.form1.Combo4->view(), Qt::Key_Escape);
    QApplication::processEvents();
    p.form1.MSFlexGrid1->setFocus();
    EXPECT_EQ(riga(), "");
}

TEST_F(SpiegazioniForm, TheClosedListHasTheTooltipOfItsChoice) {
    QHelpEvent aiuto(QEvent::ToolTip, {5, 5}, p.form1.Combo4->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(p.form1.Combo4, &aiuto);
    EXPECT_EQ(QToolTip::text(), integrale_8);
    QToolTip::hideText();
}

TEST_F(SpiegazioniForm, TheAnalysisComesBackBehindTheTypes) {
    p.form1.mostra_analisi("Analisi: prova");
    p.form1.Combo4->setFocus();
    EXPECT_EQ(riga(), integrale_8);
    p.form1.MSFlexGrid1->setFocus();
    EXPECT_EQ(riga(), "Analisi: prova");
}

}  // namespace
