// Controls with the classic semantics.
#include <gtest/gtest.h>

#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QStyleOptionSpinBox>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

#include "platform/controlli_prova.h"
#include "platform/qt/controls.h"
#include "platform/qt/desktop.h"
#include "platform/qt/flexgrid.h"
#include "platform/qt/listview.h"
#include "platform/qt/pittura.h"
#include "support/cartella.h"

using platform::ComboBox;
using platform::EtichettaValore;
using platform::ListBox;
using platform::ListView;
using platform::MSFlexGrid;
using platform::TabStrip;
using platform::UpDown;

TEST(Combo, NullaEScelto) {
    ComboBox combo(nullptr);
    riempi(combo);
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.Text(), "");
}

TEST(Combo, AssegnareAlzaSempreClick) {
    ComboBox combo(nullptr);
    riempi(combo);
    const QSignalSpy click(&combo, &ComboBox::Click);
    EXPECT_TRUE(combo.set_ListIndex(1));
    EXPECT_TRUE(combo.set_ListIndex(1));
    EXPECT_TRUE(combo.set_Text("tre"));
    EXPECT_EQ(combo.ListIndex(), 2);
    EXPECT_EQ(click.count(), 3);
}

TEST(Combo, AssegnareCioCheNonCESiSalta) {
    ComboBox combo(nullptr);
    riempi(combo);
    combo.set_ListIndex(1);
    const QSignalSpy click(&combo, &ComboBox::Click);
    EXPECT_FALSE(combo.set_ListIndex(3));
    EXPECT_FALSE(combo.set_ListIndex(-1));
    EXPECT_FALSE(combo.set_Text("quattro"));
    EXPECT_EQ(combo.ListIndex(), 1);
    EXPECT_EQ(click.count(), 0);
}

TEST(Combo, RiscegliereLaStessaVoceAlzaClick) {
    ComboBox combo(nullptr);
    riempi(combo);
    combo.set_ListIndex(1);
    mostra(combo);
    const QSignalSpy click(&combo, &ComboBox::Click);
    combo.showPopup();
    QTest::keyClick(combo.view(), Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(combo.ListIndex(), 1);
    EXPECT_EQ(click.count(), 1);
    QTest::keyClick(&combo, Qt::Key_Down);
    EXPECT_EQ(combo.ListIndex(), 2);
    EXPECT_EQ(click.count(), 2);
}

TEST(Combo, LaRotellaNonCambiaNulla) {
    ComboBox combo(nullptr);
    riempi(combo);
    combo.set_ListIndex(0);
    mostra(combo);
    QWheelEvent giro({5, 5}, combo.mapToGlobal(QPointF(5, 5)), {0, 0}, {0, -120}, Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&combo, &giro);
    EXPECT_EQ(combo.ListIndex(), 0);
}

void digita(QWidget* dove, int tasto, const QString& testo, quint64 quando) {
    QKeyEvent evento(QEvent::KeyPress, tasto, Qt::NoModifier, testo);
    evento.setTimestamp(quando);
    QApplication::sendEvent(dove, &evento);
}

TEST(Combo, LaRicercaHaCioCheEScrittoFinoARicominciare) {
    ComboBox combo(nullptr);
    riempi(combo);
    combo.set_ListIndex(0);
    QStringList cercati;
    combo.cerca_con("12", [&](const QString& digitato) {
        cercati << digitato;
        return digitato == "12" ? 2 : -1;
    });
    mostra(combo);
    const QSignalSpy click(&combo, &ComboBox::Click);
    digita(&combo, Qt::Key_1, "1", 1000);
    digita(combo.view(), Qt::Key_2, "2", 2000);
    EXPECT_EQ(combo.view()->currentIndex().row(), 2);
    digita(combo.view(), Qt::Key_Backspace, "\b", 3000);
    digita(combo.view(), Qt::Key_1, "1", 4000);
    digita(combo.view(), Qt::Key_2, "2", 7000);
    EXPECT_EQ(cercati, (QStringList{"1", "12", "1", "11", "2"}));
    combo.hidePopup();
    digita(&combo, Qt::Key_1, "1", 7100);
    EXPECT_EQ(cercati.last(), "1") << "an opening begins anew";
    combo.hidePopup();
    EXPECT_EQ(combo.ListIndex(), 0);
    EXPECT_EQ(click.count(), 0);
}

TEST(Combo, SvuotareNonAlzaClick) {
    ComboBox combo(nullptr);
    riempi(combo);
    combo.set_ListIndex(0);
    const QSignalSpy click(&combo, &ComboBox::Click);
    combo.Clear();
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(click.count(), 0);
}

TEST(Lista, ClickDalMouseEDallaTastiera) {
    ListBox lista(nullptr);
    lista.AddItem("uno");
    lista.AddItem("due");
    mostra(lista);
    const QSignalSpy click(&lista, &ListBox::Click);
    QTest::mouseClick(lista.viewport(), Qt::LeftButton, {},
                      lista.visualItemRect(lista.item(0)).center());
    EXPECT_EQ(click.count(), 1);
    QTest::keyClick(&lista, Qt::Key_Down);
    EXPECT_EQ(lista.currentRow(), 1);
    EXPECT_EQ(click.count(), 2);
    QTest::keyClick(&lista, Qt::Key_Down);
    EXPECT_EQ(click.count(), 2);
    QTest::keyClick(&lista, Qt::Key_Space);
    EXPECT_EQ(click.count(), 3);
}

TEST(Frecce, PassoUnoDaUnoANovecentonovantanove) {
    UpDown frecce(nullptr);
    mostra(frecce);
    EXPECT_EQ(frecce.value(), 1);
    QTest::keyClick(&frecce, Qt::Key_Up);
    EXPECT_EQ(frecce.value(), 2);
    QTest::keyClick(&frecce, Qt::Key_Down);
    QTest::keyClick(&frecce, Qt::Key_Down);
    EXPECT_EQ(frecce.value(), 1);
    EXPECT_EQ(frecce.maximum(), 999);
    QTest::keyClick(&frecce, Qt::Key_PageUp);
    EXPECT_EQ(frecce.value(), 2);
    QTest::keyClick(&frecce, Qt::Key_PageDown);
    QTest::keyClick(&frecce, Qt::Key_PageDown);
    EXPECT_EQ(frecce.value(), 1);
}

/// The place of a part of a field for numbers.
QRect parte(const QSpinBox& casella, QStyle::SubControl quale) {
    QStyleOptionSpinBox come;
    come.initFrom(&casella);
    return casella.style()->subControlRect(QStyle::CC_SpinBox, &come, quale, &casella);
}

TEST(Frecce, StannoDopoIlNumero) {
    QSpinBox casella;
    casella.setFixedSize(140, 24);
    mostra(casella);
    for (const auto quale : {QStyle::SC_SpinBoxUp, QStyle::SC_SpinBoxDown}) {
        const QRect freccia = parte(casella, quale);
        EXPECT_EQ(freccia.right(), casella.rect().right());
        EXPECT_GT(freccia.left(), parte(casella, QStyle::SC_SpinBoxEditField).right());
    }
    // Where the number has a label of its own they have all the place.
    UpDown sole(nullptr);
    sole.setFixedSize(20, 24);
    mostra(sole);
    EXPECT_EQ(parte(sole, QStyle::SC_SpinBoxUp).left(), 0);
    EXPECT_EQ(parte(sole, QStyle::SC_SpinBoxUp).width(), sole.width());
}

TEST(Frecce, IlNumeroSiPuoScrivere) {
    UpDown frecce(nullptr);
    mostra(frecce);
    const auto scritto = [&frecce](const char* tasti) {
        QTest::keyClicks(&frecce, tasti);
        return frecce.value();
    };
    EXPECT_EQ(scritto("0"), 1);
    EXPECT_EQ(scritto("77"), 77);
    EXPECT_EQ(scritto("5"), 775);
    EXPECT_EQ(scritto("3"), 3);
    EXPECT_EQ(scritto("6"), 36);
    QTest::keyClick(&frecce, Qt::Key_Backspace);
    EXPECT_EQ(frecce.value(), 3);
    QTest::keyClick(&frecce, Qt::Key_Up);
    EXPECT_EQ(scritto("8"), 8);
    frecce.clearFocus();
    frecce.setFocus();
    EXPECT_EQ(scritto("9"), 9);
    EXPECT_EQ(scritto("a1"), 1);
    EXPECT_EQ(frecce.contextMenuPolicy(), Qt::NoContextMenu);
}

TEST(Immagine, InvioTenutoGiuComandaUnaVolta) {
    platform::Image immagine(":/comando_0.svg", {32, 32}, nullptr);
    mostra(immagine);
    const QSignalSpy click(&immagine, &QAbstractButton::clicked);
    for (const bool ripetuto : {false, true, true}) {
        QKeyEvent premuto(QEvent::KeyPress, Qt::Key_Return, {}, "\r", ripetuto);
        QApplication::sendEvent(&immagine, &premuto);
    }
    EXPECT_EQ(click.count(), 1);
}

TEST(Griglia, LeLineeHannoUnaLarghezzaSolaAOgniScala) {
    QWidget finestra;
    finestra.setStyleSheet("QTableView { background: white; gridline-color: #0000FF; border: 0; }");
    MSFlexGrid griglia(&finestra);
    griglia.set_Rows(6);
    griglia.set_Cols(6);
    for (int i = 0; i < 6; ++i) {
        griglia.ColWidth(i, 300);
        griglia.RowHeight(i, 300);
    }
    griglia.setGeometry(7, 3, 140, 140);
    mostra(finestra);
    for (const double scala : {1.0, 1.25, 1.5, 1.75, 2.0}) {
        QImage vista(finestra.size() * scala, QImage::Format_RGB32);
        vista.setDevicePixelRatio(scala);
        vista.fill(Qt::white);
        finestra.render(&vista);
        std::vector<int> larghezze;
        int larga = 0;
        const int y = qRound((3 + 10) * scala);
        for (int x = 0; x < vista.width(); ++x) {
            if (vista.pixelColor(x, y) == QColor(Qt::blue)) {
                ++larga;
            } else if (larga > 0) {
                larghezze.push_back(std::exchange(larga, 0));
            }
        }
        EXPECT_EQ(larghezze.size(), 6U) << scala;
        for (const int l : larghezze) EXPECT_EQ(l, static_cast<int>(scala)) << scala;
    }
}

TEST(Griglia, IlCodiceNonAlzaSelChangeIlMouseSi) {
    MSFlexGrid griglia(nullptr);
    griglia.set_Rows(4);
    griglia.set_Cols(4);
    mostra(griglia);
    const QSignalSpy scelta(&griglia, &MSFlexGrid::SelChange);
    EXPECT_TRUE(griglia.cella(2, 1));
    EXPECT_EQ(scelta.count(), 0);
    const QPoint dove = griglia.visualRect(griglia.model()->index(2, 1)).center();
    QTest::mouseClick(griglia.viewport(), Qt::LeftButton, {}, dove);
    EXPECT_EQ(scelta.count(), 1);
    QTest::keyClick(&griglia, Qt::Key_Up);
    EXPECT_EQ(griglia.Row(), 1);
    EXPECT_EQ(scelta.count(), 2);
}

TEST(Griglia, UnaCasellaFuoriNonSposta) {
    MSFlexGrid griglia(nullptr);
    griglia.set_Rows(3);
    griglia.set_Cols(2);
    griglia.cella(1, 1);
    EXPECT_FALSE(griglia.set_Row(3));
    EXPECT_FALSE(griglia.set_Col(-1));
    EXPECT_FALSE(griglia.set_Col(2));
    EXPECT_EQ(griglia.Row(), 1);
    EXPECT_EQ(griglia.Col(), 1);
    griglia.set_testo(9, 9, "x");
    EXPECT_EQ(griglia.testo(9, 9), "");
    EXPECT_EQ(griglia.testo(-1, 0), "");
    griglia.set_sfondo(-1, 7, Qt::red);
    EXPECT_FALSE(griglia.sfondo(-1, 7).isValid());
}

TEST(Griglia, TestoEColoriDellaCasellaCorrente) {
    MSFlexGrid griglia(nullptr);
    griglia.set_Rows(3);
    griglia.set_Cols(3);
    griglia.cella(2, 0);
    griglia.set_Text("42");
    griglia.CellBackColor(platform::colore(255));
    griglia.CellAlignment(Qt::AlignRight);
    EXPECT_EQ(griglia.Text(), "42");
    EXPECT_EQ(griglia.testo(2, 0), "42");
    EXPECT_EQ(griglia.sfondo(2, 0), QColor(255, 0, 0));
    EXPECT_EQ(griglia.sfondo(0, 2), QColor(Qt::white));
    EXPECT_EQ(griglia.item(2, 0)->textAlignment(), int(Qt::AlignRight));
}

TEST(Elenco, IlPrimoTastoSceglieLaRigaIncorniciata) {
    for (const Qt::Key tasto : {Qt::Key_Down, Qt::Key_Home, Qt::Key_Up, Qt::Key_End}) {
        ListView elenco(nullptr);
        elenco.add_colonna("Nome", 1600, Qt::AlignLeft);
        elenco.add_voce({"uno"});
        elenco.add_voce({"due"});
        mostra(elenco);
        elenco.setFocus();
        elenco.setCurrentItem(elenco.topLevelItem(0), 0, QItemSelectionModel::NoUpdate);
        int clic = 0;
        QObject::connect(&elenco, &ListView::Click, [&clic] { ++clic; });
        ASSERT_EQ(elenco.selezionata(), nullptr);
        QTest::keyClick(&elenco, tasto);
        EXPECT_EQ(elenco.selezionata(), elenco.topLevelItem(0));
        EXPECT_EQ(clic, 1);
        QTest::keyClick(&elenco, Qt::Key_Down);
        EXPECT_EQ(elenco.selezionata(), elenco.topLevelItem(1));
        EXPECT_EQ(clic, 2);
    }
}

/// Columns of pixels of a label on which something is written.
std::vector<bool> scritte(QLabel& e) {
    const QImage immagine = e.grab().toImage();
    std::vector<bool> colonne;
    for (int x = 2; x < immagine.width() - 2; ++x) {
        bool scritta = false;
        for (int y = 2; y < immagine.height() - 2; ++y) {
            scritta = scritta || immagine.pixel(x, y) != immagine.pixel(1, 1);
        }
        colonne.push_back(scritta);
    }
    return colonne;
}

TEST(EtichettaValore, UnTestoLungoSiStringePrimaDiPerdereLettere) {
    EtichettaValore e;
    e.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    e.setMargin(4);
    e.resize(80, 20);
    for (const char* lungo : {"172.171.998.278", "123456789.123456789.123456789.123456789"}) {
        e.setText(lungo);
        ASSERT_GT(e.fontMetrics().horizontalAdvance(lungo), 72);
        const std::vector<bool> colonne = scritte(e);
        EXPECT_FALSE(colonne.front()) << lungo;
        EXPECT_FALSE(colonne.back()) << lungo;
    }
    // What ends in dots begins with its first letters.
    const QImage puntini = e.grab().toImage();
    e.setText("123456789.123456789.123456789.000000000");
    EXPECT_EQ(e.grab().toImage(), puntini);
    e.setText("923456789.123456789.123456789.123456789");
    EXPECT_NE(e.grab().toImage(), puntini);
}

TEST(EtichettaValore, UnTestoCheCiStaRestaComEra) {
    EtichettaValore e;
    QLabel semplice;
    for (QLabel* l : {static_cast<QLabel*>(&e), &semplice}) {
        l->resize(120, 20);
        l->setText("86.086,00");
        l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    EXPECT_EQ(e.grab().toImage(), semplice.grab().toImage());
}

TEST(Elenco, SelezioneTagEOrdineSenzaMaiuscole) {
    ListView elenco(nullptr);
    elenco.add_colonna("Nome", 1600, Qt::AlignLeft);
    elenco.add_colonna("Altro", 1500, Qt::AlignHCenter);
    EXPECT_EQ(ListView::tag_voce(nullptr), "");
    EXPECT_EQ(elenco.selezionata(), nullptr);
    elenco.add_voce({"b", "1"});
    elenco.add_voce({"A", "1"});
    elenco.add_voce({"c", "0"});
    EXPECT_EQ(ListView::tag_voce(elenco.topLevelItem(1)), "A");
    elenco.setCurrentItem(elenco.topLevelItem(0));
    elenco.ordina(0, Qt::AscendingOrder);
    EXPECT_EQ(elenco.topLevelItem(0)->text(0), "A");
    EXPECT_EQ(elenco.selezionata()->text(0), "b");
    elenco.ordina(1, Qt::AscendingOrder);
    EXPECT_EQ(elenco.topLevelItem(0)->text(0), "c");
    EXPECT_EQ(elenco.topLevelItem(1)->text(0), "A");
    elenco.ordina(1, Qt::DescendingOrder);
    EXPECT_EQ(elenco.topLevelItem(2)->text(0), "c");
    EXPECT_EQ(elenco.columnWidth(0), 107);
    EXPECT_EQ(elenco.larghezza(1), 1500);
}

TEST(Schede, IlNumeroRestaQuandoUnAltraSparisce) {
    TabStrip schede(nullptr);
    schede.add_scheda(1, "uno");
    schede.add_scheda(2, "due");
    const QSignalSpy click(&schede, &TabStrip::Click);
    schede.seleziona(2);
    EXPECT_EQ(schede.selezionata(), 2);
    EXPECT_EQ(click.count(), 0);
    mostra(schede);
    QTest::mouseClick(&schede, Qt::LeftButton, {}, schede.tabRect(0).center());
    ASSERT_EQ(click.count(), 1);
    EXPECT_EQ(click.at(0).at(0).toInt(), 1);
    schede.rimuovi_scheda(1);
    EXPECT_EQ(schede.count(), 1);
    EXPECT_EQ(schede.selezionata(), 2);
    EXPECT_EQ(click.count(), 1);
}

TEST(Misure, TwipsEColori) {
    EXPECT_EQ(platform::px(15), 1);
    EXPECT_EQ(platform::px(360), 24);
    EXPECT_EQ(platform::px(3045), 203);
    EXPECT_EQ(platform::colore(8388608), QColor(0, 0, 128));
    EXPECT_EQ(platform::colore(65535), QColor(255, 255, 0));
    EXPECT_EQ(platform::colore(16707288), QColor(216, 238, 254));
    EXPECT_EQ(platform::membro("CMDnum", 7), "CMDnum(7)");
}
