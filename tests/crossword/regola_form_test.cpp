// The rule of the lines, whatever moves the current cell and whatever lays a number.
#include <map>
#include <random>

#include <QAccessible>
#include <QInputMethodEvent>
#include <QSignalSpy>

#include "support/programma.h"

namespace {

using support::Programma;

QPoint centro(const Programma& p, int riga, int colonna) {
    const QModelIndex casella = p.form1.MSFlexGrid1->model()->index(riga, colonna);
    p.form1.MSFlexGrid1->scrollTo(casella);
    return p.form1.MSFlexGrid1->visualRect(casella).center();
}

void premi(const Programma& p, Qt::MouseButton pulsante, int riga, int colonna) {
    QTest::mouseClick(p.form1.MSFlexGrid1->viewport(), pulsante, {}, centro(p, riga, colonna));
    // What the right button opens goes without a choice.
    if (QWidget* menu = QApplication::activePopupWidget()) menu->close();
}

/// True when both cells lie on one line of a grid of so many columns and rows.
bool in_linea(int colonne, int righe, QPoint a, QPoint b) {
    if (a.x() == b.x() || a.y() == b.y()) return true;
    if (colonne != righe) return false;
    const int scarto = a.x() - a.y();
    const int somma = a.x() + a.y();
    const int larga = colonne >= 7 ? 1 : 0;
    return (scarto == b.x() - b.y() && qAbs(scarto) <= larga) ||
           (somma == b.x() + b.y() && qAbs(somma - (colonne - 1)) <= larga);
}

/// What is wrong with the crossword on the screen; empty when nothing is.
std::string guasto(const Programma& p) {
    const app::Form1& f = p.form1;
    const int colonne = f.sessione.matrice().colonne();
    const int righe = f.sessione.matrice().righe();
    if (colonne != f.sessione.colonne() || righe != f.sessione.righe()) return "sizes";
    const QPoint corrente(f.MSFlexGrid1->Col(), f.MSFlexGrid1->Row());
    if (f.MSFlexGrid1->currentColumn() != corrente.x() ||
        f.MSFlexGrid1->currentRow() != corrente.y()) {
        return "the current cell is not where its border is";
    }
    std::multimap<int, QPoint> posati;
    std::array<bool, 91> vietati{};
    for (int y = 0; y < righe; ++y) {
        for (int x = 0; x < colonne; ++x) {
            const int n = f.sessione.matrice()(x, y);
            if (f.MSFlexGrid1->testo(y, x) != (n == 0 ? QString() : QString::number(n))) {
                return "the text of a cell is not its number";
            }
            if (n == 0) continue;
            const QPoint qui(x, y);
            const auto [da, a] = posati.equal_range(n);
            for (auto altro = da; altro != a; ++altro) {
                if (in_linea(colonne, righe, altro->second, qui)) return "twice on a line";
            }
            posati.emplace(n, qui);
            if (qui != corrente && in_linea(colonne, righe, qui, corrente)) {
                vietati[static_cast<std::size_t>(n)] = true;
            }
        }
    }
    for (std::size_t n = 1; n <= 90; ++n) {
        if (f.CMDnum[n]->isEnabled() == vietati[n]) {
            return "the board bars for another cell: " + std::to_string(n) + " at row " +
                   std::to_string(corrente.y()) + ", column " + std::to_string(corrente.x());
        }
    }
    return {};
}

/// A player with every device on the desk and no plan.
class Giocatore {
public:
    Giocatore(Programma& p, unsigned seme) : p_(p), sorte_(seme) {}

    /// Does something and tells what.
    std::string fai() {
        app::Form1& f = p_.form1;
        const int riga = sotto(f.sessione.righe());
        const int colonna = sotto(f.sessione.colonne());
        switch (sotto(16)) {
            case 0:
            case 1:
                return mouse(riga, colonna);
            case 2:
            case 3:
                return tastiera();
            case 4:
            case 5:
                // Few numbers, so that they stand in each other's way; also barred ones.
                p_.numero(1 + sotto(12));
                return "board";
            case 6:
                f.CMDnum_Click(sotto(92));
                return "a number laid by code";
            case 7:
                for (const char cifra : {'0', '1'}) {
                    QTest::keyClick(f.MSFlexGrid1, static_cast<char>(cifra + sotto(3)));
                }
                return "digits";
            case 8:
                return tocco(riga, colonna);
            case 9:
                f.MSFlexGrid1->setCurrentCell(riga, colonna);
                return "a cell chosen by code";
            case 10:
                return ausilio(riga, colonna);
            case 11:
                return metodo();
            case 12:
                QTest::keyClick(&f, sotto(3) < 2 ? Qt::Key_Z : Qt::Key_Y, Qt::ControlModifier);
                return "undo or redo";
            case 13:
                Programma::clic(f.List1->viewport());
                return "list";
            default:
                return comandi();
        }
    }

private:
    int sotto(int n) { return std::uniform_int_distribution<int>(0, n - 1)(sorte_); }

    std::string mouse(int riga, int colonna) {
        const std::array<Qt::MouseButton, 5> pulsanti = {
            Qt::LeftButton, Qt::RightButton, Qt::MiddleButton, Qt::BackButton, Qt::ForwardButton};
        const Qt::MouseButton pulsante = pulsanti[static_cast<std::size_t>(sotto(5))];
        QWidget* vista = p_.form1.MSFlexGrid1->viewport();
        if (sotto(4) == 0) {
            // Pressed on one cell, dragged and released on another.
            QTest::mousePress(vista, Qt::LeftButton, {}, centro(p_, riga, colonna));
            const QPointF altrove =
                centro(p_, sotto(p_.form1.sessione.righe()), sotto(p_.form1.sessione.colonne()));
            QMouseEvent mosso(QEvent::MouseMove, altrove, vista->mapToGlobal(altrove), Qt::NoButton,
                              Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(vista, &mosso);
            QTest::mouseRelease(vista, Qt::LeftButton, {}, altrove.toPoint());
            return "drag";
        }
        premi(p_, pulsante, riga, colonna);
        return "mouse button " + std::to_string(pulsante);
    }

    std::string tastiera() {
        const std::array<Qt::Key, 12> tasti = {Qt::Key_Left,   Qt::Key_Right,    Qt::Key_Up,
                                               Qt::Key_Down,   Qt::Key_Home,     Qt::Key_End,
                                               Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Return,
                                               Qt::Key_Escape, Qt::Key_Tab,      Qt::Key_Delete};
        const Qt::Key tasto = tasti[static_cast<std::size_t>(sotto(12))];
        const Qt::KeyboardModifiers con = sotto(3) == 0 ? Qt::ControlModifier : Qt::NoModifier;
        QTest::keyClick(p_.form1.MSFlexGrid1, tasto, con);
        return "key " + std::to_string(tasto);
    }

    std::string tocco(int riga, int colonna) {
        const QPoint dove = centro(p_, riga, colonna);
        QWidget* vista = p_.form1.MSFlexGrid1->viewport();
        QTest::touchEvent(vista, schermo_).press(0, dove, vista);
        QTest::touchEvent(vista, schermo_).release(0, dove, vista);
        return "touch";
    }

    /// What a screen reader or a voice does.
    std::string ausilio(int riga, int colonna) {
        if (sotto(2) == 0) {
            QAccessibleInterface* numero =
                QAccessible::queryAccessibleInterface(p_.form1.CMDnum[1U + sotto(12)]);
            numero->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
            return "assistive press";
        }
        QAccessibleInterface* griglia = QAccessible::queryAccessibleInterface(p_.form1.MSFlexGrid1);
        QAccessibleInterface* casella = griglia->tableInterface()->cellAt(riga, colonna);
        if (QAccessibleActionInterface* azioni = casella->actionInterface()) {
            for (const QString& nome : azioni->actionNames()) azioni->doAction(nome);
        }
        griglia->tableInterface()->selectRow(riga);
        return "assistive choice of a cell";
    }

    std::string metodo() {
        QInputMethodEvent scritto;
        scritto.setCommitString(QString::number(sotto(130)));
        QApplication::sendEvent(p_.form1.MSFlexGrid1, &scritto);
        return "input method";
    }

    std::string comandi() {
        app::Form1& f = p_.form1;
        switch (sotto(24)) {
            case 0:
                p_.comando(3);
                return "empty";
            case 1:
            case 2:
                p_.comando(5);
                p_.messaggi.clear();
                return "complete";
            case 3:
                Programma::clic(f.cmdstat);
                return "generate";
            case 4:
                p_.dimensioni(6 + sotto(3), 6 + sotto(3));
                return "sizes";
            default:
                p_.comando(4);
                return "delete";
        }
    }

    /// One for all: Qt keeps no hold of a device that a test makes.
    static QPointingDevice* schermo() {
        static QPointingDevice* const uno = QTest::createTouchDevice();
        return uno;
    }

    Programma& p_;
    std::mt19937 sorte_;
    QPointingDevice* schermo_ = schermo();
};

TEST(RegolaDelleLinee, UnPulsanteQualsiasiDelMouseSceglieLaCasella) {
    for (const Qt::MouseButton pulsante : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        Programma p;
        for (int n = 1; n <= 36; ++n) p.numero(n);
        p.cella(3, 2);
        premi(p, pulsante, 0, 5);
        EXPECT_EQ(p.form1.MSFlexGrid1->Row(), 0);
        EXPECT_EQ(p.form1.MSFlexGrid1->Col(), 5);
        EXPECT_FALSE(p.form1.CMDnum[1]->isEnabled());
        p.numero(1);
        EXPECT_EQ(p.form1.sessione.matrice()(5, 0), 6);
        EXPECT_EQ(guasto(p), "");
    }
}

TEST(RegolaDelleLinee, UnNumeroSbarratoNonEntraNemmenoDalCodice) {
    Programma p;
    p.cella(0, 0);
    p.numero(7);
    p.form1.sessione.segna_salvato(true);
    p.form1.CMDnum_Click(7);
    EXPECT_EQ(p.form1.sessione.matrice()(1, 0), 0);
    EXPECT_EQ(p.form1.MSFlexGrid1->testo(0, 1), "");
    EXPECT_EQ(p.form1.MSFlexGrid1->Col(), 1);
    EXPECT_TRUE(p.form1.sessione.salvato());
    for (const int fuori : {-1, 0, 91, 300}) p.form1.CMDnum_Click(fuori);
    EXPECT_EQ(p.form1.sessione.matrice()(1, 0), 0);
    EXPECT_EQ(p.form1.lblngioco->text(), "1");
}

TEST(RegolaDelleLinee, ValeDopoDiecimilaAzioniDiOgniDispositivo) {
    Programma p;
    Giocatore giocatore(p, 20261);
    std::map<std::string, int> fatte;
    for (int i = 0; i < 10000; ++i) {
        const std::string azione = giocatore.fai();
        ++fatte[azione];
        const std::string difetto = guasto(p);
        ASSERT_EQ(difetto, "") << "after action " << i << ", " << azione;
    }
    EXPECT_GT(fatte.size(), 30U);
}

}  // namespace
