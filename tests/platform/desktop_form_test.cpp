// The desktop under the controls: message boxes, the trash, guards, pending events.
#include <gtest/gtest.h>

#include <QDir>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "platform/controlli_prova.h"
#include "platform/qt/controls.h"
#include "platform/qt/desktop.h"
#include "platform/qt/folder.h"
#include "platform/qt/pittura.h"
#include "support/cartella.h"

using platform::ComboBox;
using platform::UpDown;

namespace {

/// Runs pending events for sure, though they are paced.
void eventi() {
    bool arrivato = false;
    QTimer::singleShot(0, qApp, [&arrivato] { arrivato = true; });
    while (!arrivato) platform::DoEvents();
}

struct Pittore : QWidget {
    int pitture = 0;
    void paintEvent(QPaintEvent* /*evento*/) override { ++pitture; }
};

/// Answers the box on the screen by pressing a button of it, or closes it when `testo` is null.
struct Osservata {
    QString titolo;
    QString testo;
    QMessageBox::Icon icona = QMessageBox::NoIcon;
    QStringList pulsanti;
};

Osservata rispondi(const platform::Messaggio& messaggio, const QString& pulsante, int& risposta) {
    Osservata vista;
    QTimer::singleShot(0, qApp, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        vista = {box->windowTitle(), box->text(), box->icon(), {}};
        QAbstractButton* premere = nullptr;
        for (QAbstractButton* b : box->buttons()) {
            const QString testo = QString(b->text()).remove('&');
            vista.pulsanti << testo;
            if (testo == pulsante) premere = b;
        }
        vista.pulsanti.sort();
        if (premere != nullptr) {
            QTest::mouseClick(premere, Qt::LeftButton);
        } else {
            QTest::keyClick(box, Qt::Key_Escape);
            if (box->isVisible()) box->done(QDialog::Rejected);
        }
    });
    risposta = platform::MsgBox(nullptr, messaggio);
    return vista;
}

}  // namespace

TEST(Scatola, PulsantiTitoloIconaERisposte) {
    int risposta = 0;
    Osservata vista = rispondi({"Testo\nsu due righe", platform::Pulsanti::si_no_annulla,
                                "Tabellino", platform::Icona::nessuna},
                               "Sì", risposta);
    EXPECT_EQ(vista.titolo, "Tabellino");
    EXPECT_EQ(vista.testo, "Testo\nsu due righe");
    EXPECT_EQ(vista.icona, QMessageBox::NoIcon);
    EXPECT_EQ(vista.pulsanti, QStringList({"Annulla", "No", "Sì"}));
    EXPECT_EQ(risposta, 6);
    rispondi({"x", platform::Pulsanti::si_no_annulla, "t"}, "No", risposta);
    EXPECT_EQ(risposta, 7);
    rispondi({"x", platform::Pulsanti::si_no_annulla, "t"}, "Annulla", risposta);
    EXPECT_EQ(risposta, 2);
    rispondi({"x", platform::Pulsanti::si_no_annulla, "t"}, {}, risposta);
    EXPECT_EQ(risposta, 2);
    vista = rispondi({"x", platform::Pulsanti::si_no, "t"}, "Sì", risposta);
    EXPECT_EQ(vista.pulsanti, QStringList({"No", "Sì"}));
    EXPECT_EQ(risposta, 6);
    rispondi({"x", platform::Pulsanti::si_no, "t"}, {}, risposta);
    EXPECT_EQ(risposta, 7);
    vista =
        rispondi({"x", platform::Pulsanti::ok, "t", platform::Icona::informazione}, "OK", risposta);
    EXPECT_EQ(vista.icona, QMessageBox::Information);
    EXPECT_EQ(vista.pulsanti, QStringList{"OK"});
    EXPECT_EQ(risposta, 1);
}

TEST(Scatola, SottoNonRestanoFinestreBloccateNePuntatoreDAttesa) {
    QWidget finestra;
    mostra(finestra);
    const platform::FinestraFerma ferma(&finestra);
    eventi();
    EXPECT_FALSE(finestra.updatesEnabled());
    platform::MousePointer(11);
    int durante = -1;
    QTimer::singleShot(0, qApp, [&durante] {
        durante = platform::MousePointer();
        QApplication::activeModalWidget()->close();
    });
    platform::MsgBox(&finestra, {"x", platform::Pulsanti::ok, "t"});
    EXPECT_EQ(durante, 0);
    EXPECT_TRUE(finestra.updatesEnabled());
    EXPECT_EQ(platform::MousePointer(), 11);
    platform::MousePointer(0);
}

/// A variable of the environment with another value for a while.
class Variabile {
public:
    Variabile(const char* nome, const QByteArray& valore) : nome_(nome), prima_(qgetenv(nome)) {
        qputenv(nome, valore);
    }
    ~Variabile() {
        if (prima_.isNull()) {
            qunsetenv(nome_);
        } else {
            qputenv(nome_, prima_);
        }
    }
    Variabile(const Variabile&) = delete;
    Variabile& operator=(const Variabile&) = delete;

private:
    const char* nome_;
    QByteArray prima_;
};

TEST(DaMostrare, LeBarreSonoQuelleDelSistema) {
    EXPECT_EQ(platform::da_mostrare(QString("C:/a/b.pdf")),
              (QStringList{"C:", "a", "b.pdf"}).join(QDir::separator()));
}

TEST(Cestino, SiFaAncheDoveMancaLaCartellaSopra) {
    const support::Cartella cartella;
    cartella.scrivi("tempo2.sen", "x");
    const QString dati = platform::q(cartella.file("casa/dati"));
    {
        // Another disk than the home's would have a trash of its own.
        const Variabile casa("HOME", cartella.programma().c_str());
        const Variabile dei_dati("XDG_DATA_HOME", dati.toUtf8());
        EXPECT_TRUE(platform::cestina(platform::q(cartella.file("tempo2.sen"))));
    }
    EXPECT_FALSE(cartella.esiste("tempo2.sen"));
    EXPECT_TRUE(QFile::exists(dati + "/Trash/files/tempo2.sen"));
    EXPECT_FALSE(QFile::exists("files/tempo2.sen"));
}

TEST(Blocco, QuelloDiDentroNonScioglieQuelloDiFuori) {
    QWidget a;
    QWidget b;
    {
        const platform::FinestraFerma fuori(&a);
        eventi();
        EXPECT_FALSE(a.updatesEnabled());
        {
            const platform::FinestraFerma dentro(&a);
            const platform::FinestraFerma altra(&b);
            eventi();
            EXPECT_FALSE(b.updatesEnabled());
        }
        EXPECT_TRUE(b.updatesEnabled());
        EXPECT_FALSE(a.updatesEnabled());
    }
    EXPECT_TRUE(a.updatesEnabled());
}

TEST(Blocco, LaFinestraPuoAndarsenePrima) {
    QWidget a;
    auto b = std::make_unique<QWidget>();
    const platform::FinestraFerma di_a(&a);
    {
        const platform::FinestraFerma di_b(b.get());
        b.reset();
        eventi();
    }
    EXPECT_FALSE(a.updatesEnabled());
}

TEST(Blocco, SenzaPitturaQuelloDiDentroLasciaFermoQuelloDiFuori) {
    QWidget finestra;
    auto* figlio = new QWidget(&finestra);
    {
        const platform::SenzaPittura fuori(figlio);
        { const platform::SenzaPittura dentro(figlio); }
        EXPECT_FALSE(figlio->updatesEnabled());
        {
            const platform::SenzaPittura di_tutta(&finestra);
            EXPECT_FALSE(finestra.updatesEnabled());
        }
        EXPECT_TRUE(finestra.updatesEnabled());
        EXPECT_FALSE(figlio->updatesEnabled());
    }
    EXPECT_TRUE(figlio->updatesEnabled());
}

TEST(Clessidra, QuellaDiDentroNonFinisceQuellaDiFuori) {
    {
        const platform::Clessidra fuori;
        { const platform::Clessidra dentro; }
        EXPECT_EQ(platform::MousePointer(), 11);
    }
    EXPECT_EQ(platform::MousePointer(), 0);
    {
        platform::Clessidra una;
        una.resta();
    }
    EXPECT_EQ(platform::MousePointer(), 11);
    { const platform::Clessidra altra; }
    EXPECT_EQ(platform::MousePointer(), 0);
}

TEST(Blocco, SenzaEventiNelMezzoNonRidipingeLaFinestra) {
    Pittore finestra;
    mostra(finestra);
    QApplication::processEvents();
    const int prima = finestra.pitture;
    { const platform::FinestraFerma ferma(&finestra); }
    QApplication::processEvents();
    EXPECT_EQ(finestra.pitture, prima);
}

TEST(Blocco, QuelChePrimaDiGelareChiedevaPitturaLaRiceveDopo) {
    QWidget finestra;
    auto* figlio = new Pittore;
    figlio->setParent(&finestra);
    figlio->resize(20, 20);
    mostra(finestra);
    QApplication::processEvents();
    int prima = 0;
    {
        const platform::FinestraFerma ferma(&finestra);
        figlio->update();
        eventi();
        prima = figlio->pitture;
    }
    QApplication::processEvents();
    EXPECT_GT(figlio->pitture, prima);
}

TEST(LavoroLungo, TastiEMouseNonArrivano) {
    ComboBox combo(nullptr);
    riempi(combo);
    combo.set_ListIndex(0);
    mostra(combo);
    {
        const platform::LavoroLungo lavoro;
        EXPECT_TRUE(platform::LavoroLungo::in_corso());
        QTest::keyClick(&combo, Qt::Key_Down);
        EXPECT_EQ(combo.ListIndex(), 0);
    }
    EXPECT_FALSE(platform::LavoroLungo::in_corso());
    QTest::keyClick(&combo, Qt::Key_Down);
    EXPECT_EQ(combo.ListIndex(), 1);
}

TEST(LavoroLungo, QuelloDiDentroRidaLAscoltoAQuelloDiFuori) {
    QPushButton a;
    QPushButton b;
    mostra(a);
    mostra(b);
    int premuti = 0;
    for (const QPushButton* p : {&a, &b})
        QObject::connect(p, &QPushButton::clicked, &a, [&premuti] { ++premuti; });
    const platform::LavoroLungo fuori(&a);
    {
        const platform::LavoroLungo dentro(&b);
        QTest::mouseClick(&a, Qt::LeftButton);
        EXPECT_EQ(premuti, 0);
        QTest::mouseClick(&b, Qt::LeftButton);
        EXPECT_EQ(premuti, 1);
    }
    QTest::mouseClick(&b, Qt::LeftButton);
    EXPECT_EQ(premuti, 1);
    QTest::mouseClick(&a, Qt::LeftButton);
    EXPECT_EQ(premuti, 2);
}

TEST(LavoroLungo, UnaDomandaNelMezzoSiPuoRispondere) {
    const platform::LavoroLungo lavoro;
    int risposta = 0;
    rispondi({"Continuare?", platform::Pulsanti::si_no, "Tabellino"}, "Sì", risposta);
    EXPECT_EQ(risposta, platform::vbYes);
    // What comes after it is swallowed again.
    UpDown frecce(nullptr);
    mostra(frecce);
    QTest::keyClick(&frecce, Qt::Key_Up);
    EXPECT_EQ(frecce.value(), 1);
}
