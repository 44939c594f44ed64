// The whole road of a system without a mouse: lay, type, save, elaborate, view, check, print.
#include <filesystem>

#include <QMessageBox>
#include <QPointer>

#include "platform/qt/scrivania.h"
#include "support/finestre_aperte.h"

namespace {

using support::aperta;
using support::Programma;

/// Counts what a mouse would do, and answers the modal windows with keys from inside their loop.
class Tastiera : public QObject {
public:
    Tastiera() { qApp->installEventFilter(this); }
    ~Tastiera() override { qApp->removeEventFilter(this); }

    /// The next modal window to come gets these keys.
    void alla_prossima(std::function<void(QWidget*)> fare) { attese_.push_back(std::move(fare)); }
    [[nodiscard]] bool finite() const { return attese_.empty(); }

    int topo = 0;
    QStringList boxes;

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override {
        const QEvent::Type tipo = evento->type();
        if (tipo == QEvent::MouseButtonPress || tipo == QEvent::MouseMove ||
            tipo == QEvent::MouseButtonRelease || tipo == QEvent::Wheel) {
            ++topo;
        }
        auto* finestra = qobject_cast<QDialog*>(oggetto);
        if (tipo == QEvent::Show && finestra != nullptr && finestra->isModal()) {
            QTimer::singleShot(0, finestra, [this, finestra] { rispondi(finestra); });
        }
        return false;
    }

private:
    void rispondi(QDialog* finestra) {
        if (const auto* box = qobject_cast<QMessageBox*>(finestra)) boxes << box->text();
        const QPointer<QDialog> ancora(finestra);
        finestra->activateWindow();
        QApplication::processEvents();
        if (attese_.empty()) {
            ADD_FAILURE() << "nobody awaits " << finestra->windowTitle().toStdString();
        } else {
            const auto fare = attese_.front();
            attese_.pop_front();
            fare(finestra);
        }
        // A button pressed by its letter is seen to go down before it acts.
        if (!QTest::qWaitFor([&ancora] { return !ancora || !ancora->isVisible(); })) {
            ADD_FAILURE() << "the keys left it open";
            ancora->close();
        }
    }
    std::deque<std::function<void(QWidget*)>> attese_;
};

/// A key for whatever has the focus, as it comes from a keyboard.
void tasto(QWidget* finestra, Qt::Key quale, Qt::KeyboardModifiers con = {}) {
    if (!finestra->isActiveWindow()) {
        // As a window manager does when another window goes.
        finestra->activateWindow();
        QApplication::processEvents();
    }
    QWidget* fuoco = finestra->focusWidget();
    QTest::keyClick(fuoco != nullptr ? fuoco : finestra, quale, con);
    QApplication::processEvents();
}
void scrivi(QWidget* finestra, const QString& testo) {
    for (const QChar c : testo) {
        QTest::keyClick(finestra->focusWidget(), c.toLatin1());
        QApplication::processEvents();
    }
}
/// Tabs on until the control has the focus.
void vai(QWidget* finestra, const QWidget* dove) {
    for (int i = 0; i < 100 && finestra->focusWidget() != dove; ++i) tasto(finestra, Qt::Key_Tab);
    ASSERT_EQ(finestra->focusWidget(), dove) << dove->objectName().toStdString();
}
/// The window that came up has the keyboard, as a window manager gives it.
template <typename Finestra>
Finestra* davanti() {
    auto* f = aperta<Finestra>();
    if (f == nullptr) throw std::runtime_error("the window did not open");
    f->activateWindow();
    QApplication::processEvents();
    return f;
}

class SenzaMouse : public testing::Test {
protected:
    // The boxes of this test are real ones.
    SenzaMouse() { platform::scrivania().risponde = nullptr; }

    void posa() {
        vai(&p.form1, p.form1.Combo1);
        tasto(&p.form1, Qt::Key_Down);
        vai(&p.form1, p.form1.Combo2);
        tasto(&p.form1, Qt::Key_Down);
        ASSERT_EQ(p.form1.sessione.colonne(), 7);
        ASSERT_EQ(p.form1.sessione.righe(), 7);
        vai(&p.form1, p.form1.MSFlexGrid1);
        for (int i = 0; i < 49; ++i) {
            std::size_t n = 1 + static_cast<std::size_t>(i * 7 % 90);
            while (!p.form1.CMDnum[n]->isEnabled()) n = n % 90 + 1;
            scrivi(&p.form1, QString::number(n).rightJustified(2, '0'));
            ASSERT_EQ(p.form1.sessione.matrice()(i % 7, i / 7), static_cast<int>(n));
        }
    }
    void scegli_i_tipi() {
        vai(&p.form1, p.form1.Combo3);
        tasto(&p.form1, Qt::Key_Down);
        vai(&p.form1, p.form1.Combo4);
        tasto(&p.form1, Qt::Key_Down);
        tasto(&p.form1, Qt::Key_Up);
        EXPECT_EQ(p.form1.Combo3->Text(), "Autoridotto [N-1]");
        EXPECT_EQ(p.form1.Combo4->Text(), "Integrale");
    }
    void salva() {
        tastiera.alla_prossima([](QWidget* gestore) {
            scrivi(gestore, "strada");
            tasto(gestore, Qt::Key_Return);
        });
        tasto(&p.form1, Qt::Key_S, Qt::ControlModifier);
        ASSERT_EQ(p.form1.Tag(), "strada");
        ASSERT_TRUE(p.cartella.esiste("strada.sen"));
    }
    void elabora() {
        // A change after the save, so that the question comes too.
        vai(&p.form1, p.form1.Combo3);
        tasto(&p.form1, Qt::Key_Up);
        const auto invio = [](QWidget* box) { tasto(box, Qt::Key_Return); };
        tastiera.alla_prossima(invio);
        tastiera.alla_prossima(invio);
        tasto(&p.form1, Qt::Key_F5);
        ASSERT_TRUE(p.cartella.esiste("strada.col"));
        EXPECT_EQ(tastiera.boxes,
                  (QStringList{"Per elaborare il sistema occore prima salvarlo.Vuoi salvare ora?",
                               "Elaborazione completata."}));
        EXPECT_TRUE(p.form1.sessione.salvato());
    }
    void visualizza() {
        tasto(&p.form1, Qt::Key_F6);
        auto* f = davanti<viewer::Form3>();
        EXPECT_EQ(f->lblpag[0]->text(), "1");
        tasto(f, Qt::Key_PageDown);
        EXPECT_EQ(f->lblpag[0]->text(), "2");
        EXPECT_EQ(f->ListView3->topLevelItem(0)->text(1), "41");
        tasto(f, Qt::Key_Escape);
        EXPECT_EQ(aperta<viewer::Form3>(), nullptr);
        p.form1.activateWindow();
    }
    void spoglia() {
        tasto(&p.form1, Qt::Key_F7);
        auto* f = davanti<check::frmspoglio>();
        EXPECT_FALSE(p.form1.isVisible());
        vai(f, f->txtnum[1]);
        // Each pair of digits takes the place of the draw shown, and leads to the next box.
        for (int i = 0; i < 6; ++i) {
            scrivi(f, QString::number(p.form1.sessione.matrice()(i, 0)).rightJustified(2, '0'));
        }
        scrivi(f, "89");
        ASSERT_EQ(f->focusWidget(), f->Cmdspoglio);
        tasto(f, Qt::Key_Return);
        EXPECT_NE(f->lblvinc[0]->text(), "");
        vai(f, f->Cmdvincenti);
        tasto(f, Qt::Key_Space);
        ASSERT_TRUE(f->ListView1->isVisible());
        vai(f, f->cmdpunti);
        tasto(f, Qt::Key_Space);
        EXPECT_EQ(platform::Tag(f->cmdpunti), "ASC");
        vai(f, f->ListView1);
        tasto(f, Qt::Key_Down);
        vai(f, f->Command1);
        tasto(f, Qt::Key_Space);
        EXPECT_EQ(f->lblvinc[0]->text(), "");
        vai(f, f->CmdEsci);
        tasto(f, Qt::Key_Return);
        EXPECT_EQ(aperta<check::frmspoglio>(), nullptr);
        EXPECT_TRUE(p.form1.isVisible());
    }
    void stampa() {
        QStringList mostrati;
        const platform::Ripristina desktop(platform::scrivania());
        platform::scrivania().apre = [&mostrati](const QString& documento) {
            mostrati << documento;
            return true;
        };
        for (int opzione = 0; opzione < 2; ++opzione) {
            tasto(&p.form1, Qt::Key_F8);
            auto* f = davanti<printing::frmstsvl>();
            vai(f, f->Option1[0]);
            tasto(f, Qt::Key_Space);
            if (opzione == 1) tasto(f, Qt::Key_Down);
            EXPECT_TRUE(f->Option1[static_cast<std::size_t>(opzione)]->isChecked());
            // The box that tells where the file is opens it, too.
            tastiera.alla_prossima([](QWidget* box) { tasto(box, Qt::Key_Return); });
            tasto(f, Qt::Key_Return);
            EXPECT_EQ(aperta<printing::frmstsvl>(), nullptr);
            p.form1.activateWindow();
        }
        EXPECT_TRUE(p.cartella.esiste("strada-prospetto.pdf"));
        EXPECT_TRUE(p.cartella.esiste("strada-sviluppo.pdf"));
        EXPECT_EQ(mostrati.size(), 2);
    }

    Programma p{true};
    Tastiera tastiera;
};

TEST_F(SenzaMouse, DalPrimoNumeroAllaStampa) {
    posa();
    scegli_i_tipi();
    salva();
    elabora();
    visualizza();
    spoglia();
    stampa();
    EXPECT_TRUE(tastiera.finite());
    EXPECT_EQ(tastiera.topo, 0);
}

TEST_F(SenzaMouse, AlleDomandeSiRispondeConUnaLettera) {
    posa();
    p.form1.sessione.in_linea("x");
    const auto lettera = [](Qt::Key quale) {
        return [quale](QWidget* box) { tasto(box, quale, Qt::AltModifier); };
    };
    tastiera.alla_prossima(lettera(Qt::Key_N));
    tasto(&p.form1, Qt::Key_F5);
    EXPECT_FALSE(p.cartella.esiste("x.sen"));
    tastiera.alla_prossima([](QWidget* box) { tasto(box, Qt::Key_Escape); });
    vai(&p.form1, p.form1.Image3[0]);
    tasto(&p.form1, Qt::Key_Return);
    EXPECT_EQ(p.form1.Tag(), "x");
    EXPECT_NE(p.form1.sessione.matrice()(6, 6), 0);
    tastiera.alla_prossima(lettera(Qt::Key_N));
    vai(&p.form1, p.form1.Image3[0]);
    tasto(&p.form1, Qt::Key_Space);
    EXPECT_EQ(p.form1.Tag(), "");
    EXPECT_TRUE(tastiera.finite());
    EXPECT_EQ(tastiera.topo, 0);
}

}  // namespace
