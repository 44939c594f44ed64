// Names for those who do not see the window, and the tab key for those who have no mouse.
#include <map>
#include <set>

#include <QAbstractScrollArea>
#include <QAccessible>
#include <QRadioButton>

#include "support/finestre_aperte.h"

namespace {

using support::FinestreAperte;
using support::Programma;

std::string chi(const QWidget* w) {
    return w->metaObject()->className() + std::string(" ") + w->objectName().toStdString();
}

bool tocca_al_giocatore(const QWidget* w) {
    return w->isVisible() && w->isEnabled() && w->focusPolicy() != Qt::NoFocus;
}

/// Every control of the window that takes the focus, by whatever way.
QList<QWidget*> comandi(const QWidget& finestra) {
    QList<QWidget*> trovati;
    for (QWidget* w : finestra.findChildren<QWidget*>()) {
        if (tocca_al_giocatore(w) && w->window() == &finestra) trovati << w;
    }
    return trovati;
}

QString testo_accessibile(QWidget* w, QAccessible::Text quale) {
    const QAccessibleInterface* interfaccia = QAccessible::queryAccessibleInterface(w);
    return interfaccia != nullptr ? interfaccia->text(quale) : QString();
}

class Accessibilita : public testing::Test {
protected:
    void guarda_tutte(support::Sguardo sguardo) {
        FinestreAperte(p, [&](QWidget& finestra, const std::string& nome) {
            SCOPED_TRACE(nome);
            viste.insert(finestra.objectName().toStdString());
            sguardo(finestra, nome);
        }).tutte();
        const std::set<std::string> attese{"Archivio",   "Form1",      "Form2",       "Form3",
                                           "Modulo",     "Stampa",     "formeuro",    "frmAbout",
                                           "frmspoglio", "frmanalisi", "frmmigliora", "frmstsvl",
                                           "frmcerca",   "frmtabelle"};
        EXPECT_EQ(viste, attese);
    }

    Programma p{true};
    std::set<std::string> viste;
};

TEST_F(Accessibilita, OgniComandoHaUnNomePerChiNonVede) {
    guarda_tutte([](QWidget& finestra, const std::string&) {
        EXPECT_FALSE(finestra.windowTitle().isEmpty());
        const QList<QWidget*> tutti = comandi(finestra);
        EXPECT_FALSE(tutti.isEmpty());
        for (QWidget* w : tutti) {
            const QString nome = testo_accessibile(w, QAccessible::Name);
            EXPECT_FALSE(nome.trimmed().isEmpty()) << chi(w);
            // The name in the program says nothing to a player.
            EXPECT_NE(nome, w->objectName()) << chi(w);
            // What is chosen in a list does not tell what the list is for.
            const auto* elenco = qobject_cast<platform::ComboBox*>(w);
            if (elenco == nullptr) continue;
            EXPECT_FALSE(elenco->accessibleName().isEmpty()) << chi(w);
            EXPECT_EQ(nome, elenco->accessibleName() + ": " + elenco->currentText()) << chi(w);
            EXPECT_EQ(testo_accessibile(w, QAccessible::Value), elenco->currentText());
        }
    });
}

TEST_F(Accessibilita, OgniImmagineDiceACheServe) {
    guarda_tutte([](QWidget& finestra, const std::string&) {
        for (const auto* i : finestra.findChildren<platform::Image*>()) {
            if (!tocca_al_giocatore(i)) continue;
            EXPECT_FALSE(i->toolTip().isEmpty()) << chi(i);
            EXPECT_EQ(i->accessibleName(), i->toolTip()) << chi(i);
        }
    });
}

TEST_F(Accessibilita, NellaStessaFinestraNessunNomeNeCopreUnAltro) {
    guarda_tutte([](QWidget& finestra, const std::string&) {
        std::map<QString, std::string> visti;
        for (QWidget* w : comandi(finestra)) {
            // The two buttons of the generators, and the twin lists of a page, have one caption.
            const QString nome = testo_accessibile(w, QAccessible::Name);
            if (nome == "Genera" || nome.startsWith("Combinazioni") || nome == "Numero") continue;
            EXPECT_EQ(visti.count(nome), 0U)
                << nome.toStdString() << ": " << chi(w) << " e " << visti[nome];
            visti[nome] = chi(w);
        }
    });
}

/// The controls that the tab key visits from where the focus is, until it is back there.
QList<QWidget*> giro(QWidget& finestra, Qt::Key tasto) {
    QList<QWidget*> visitati;
    QWidget* primo = finestra.focusWidget();
    if (primo == nullptr) {
        QTest::keyClick(&finestra, tasto);
        primo = finestra.focusWidget();
    }
    constexpr int al_massimo = 200;
    for (int i = 0; i < al_massimo && finestra.focusWidget() != nullptr; ++i) {
        visitati << finestra.focusWidget();
        QTest::keyClick(finestra.focusWidget(), tasto);
        if (finestra.focusWidget() == primo) return visitati;
    }
    ADD_FAILURE() << "the tab key never comes back";
    return visitati;
}

/// The options that the arrow keys reach from the one that the tab key visited.
QList<QWidget*> opzioni_oltre_la_prima(const QList<QWidget*>& visitati) {
    QList<QWidget*> altre;
    for (QWidget* w : visitati) {
        auto* prima = qobject_cast<QRadioButton*>(w);
        if (prima == nullptr) continue;
        const bool scelta = prima->isChecked();
        prima->setFocus();
        for (QWidget* qui = prima;;) {
            QTest::keyClick(qui, Qt::Key_Down);
            qui = prima->window()->focusWidget();
            if (qui == prima || altre.contains(qui)) break;
            altre << qui;
        }
        if (scelta) prima->setChecked(true);
    }
    return altre;
}

TEST_F(Accessibilita, IlTabulatoreVisitaOgniComandoUnaVoltaETorna) {
    guarda_tutte([](QWidget& finestra, const std::string&) {
        std::set<QWidget*> attesi;
        for (QWidget* w : comandi(finestra)) {
            if ((w->focusPolicy() & Qt::TabFocus) != 0) attesi.insert(w);
        }
        const QList<QWidget*> visitati = giro(finestra, Qt::Key_Tab);
        // Options are one stop; the arrows go from one to the next.
        for (QWidget* w : opzioni_oltre_la_prima(visitati)) attesi.erase(w);
        std::set<QWidget*> diversi(visitati.begin(), visitati.end());
        EXPECT_EQ(static_cast<std::size_t>(visitati.size()), diversi.size());
        for (const QWidget* w : attesi) {
            EXPECT_TRUE(diversi.count(const_cast<QWidget*>(w)) == 1) << "mai: " << chi(w);
        }
        for (const QWidget* w : diversi) {
            EXPECT_TRUE(attesi.count(const_cast<QWidget*>(w)) == 1) << "di troppo: " << chi(w);
        }
    });
}

TEST_F(Accessibilita, AllIndietroIlTabulatoreFaLoStessoGiro) {
    guarda_tutte([](QWidget& finestra, const std::string&) {
        QList<QWidget*> avanti = giro(finestra, Qt::Key_Tab);
        QList<QWidget*> indietro = giro(finestra, Qt::Key_Backtab);
        ASSERT_FALSE(avanti.isEmpty());
        std::reverse(indietro.begin() + 1, indietro.end());
        EXPECT_EQ(avanti, indietro);
    });
}

}  // namespace
