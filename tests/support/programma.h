// The main form over a fresh folder, with message boxes answered by a script.
#pragma once

#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <ostream>
#include <vector>

#include <QAbstractItemView>
#include <QApplication>
#include <QMenu>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include "app/dialoghi_qt.h"
#include "app/form1.h"
#include "platform/disk.h"
#include "platform/qt/desktop.h"
#include "platform/qt/scrivania.h"
#include "support/archivio_prova.h"
#include "support/cartella.h"
#include "systems/form2.h"

namespace support {

using platform::Icona;
using platform::Pulsanti;
using platform::vbCancel;
using platform::vbNo;
using platform::vbYes;

/// Box that was shown.
struct Mostrato {
    QString testo;
    QString titolo;
    Pulsanti pulsanti = Pulsanti::ok;
    Icona icona = Icona::nessuna;
    bool operator==(const Mostrato&) const = default;
};

inline void PrintTo(const Mostrato& m, std::ostream* uscita) {
    *uscita << '[' << m.titolo.toStdString() << "] " << m.testo.toStdString() << " (buttons "
            << static_cast<int>(m.pulsanti) << ", icon " << static_cast<int>(m.icona) << ')';
}

/// Counts the openings of the windows behind the commands; `finti` counts without opening.
class DialoghiSpia : public app::DialoghiQt {
public:
    void visualizza_sviluppo(app::Finestra& form1) override {
        ++sviluppi;
        if (!finti) DialoghiQt::visualizza_sviluppo(form1);
    }
    void spoglio(app::Finestra& form1) override {
        ++spogli;
        if (!finti) DialoghiQt::spoglio(form1);
    }
    void stampa(app::Finestra& form1) override {
        ++stampe;
        if (!finti) DialoghiQt::stampa(form1);
    }
    void informazioni(app::Finestra& form1) override {
        ++info;
        if (!finti) DialoghiQt::informazioni(form1);
    }
    void guida(app::Finestra& form1) override {
        ++guide;
        if (!finti) DialoghiQt::guida(form1);
    }
    void sito(app::Finestra& form1) override {
        ++siti;
        if (!finti) DialoghiQt::sito(form1);
    }
    bool finti = false;
    int sviluppi = 0;
    int spogli = 0;
    int stampe = 0;
    int info = 0;
    int guide = 0;
    int siti = 0;
};

class Programma {
public:
    /// `prima` prepares the folder before the form loads.
    explicit Programma(bool tabelle = false,
                       const std::function<void(const Cartella&)>& prima = {}) {
        if (tabelle) cartella.con_tabelle();
        metti_archivio(cartella.radice(), archivio_di_prova());
        if (prima) prima(cartella);
        platform::scrivania().risponde = [this](const platform::Messaggio& m) {
            messaggi.push_back({m.testo, m.titolo, m.pulsanti, m.icona});
            if (al_messaggio) al_messaggio();
            // The own buttons of a box may be left alone.
            if (m.pulsanti == Pulsanti::ok && (m.altri.isEmpty() || risposte.empty())) {
                return platform::vbOK;
            }
            if (risposte.empty()) {
                ADD_FAILURE() << "unanswered: " << m.testo.toStdString();
                return vbCancel;
            }
            const int risposta = risposte.front();
            risposte.pop_front();
            return risposta;
        };
        form1.Form_Load();
        form1.show();
        form1.activateWindow();
        QApplication::processEvents();
    }
    ~Programma() {
        EXPECT_TRUE(risposte.empty()) << "answers that no box asked for";
        EXPECT_EQ(attesi_, 0) << "a dialog was expected that never came";
        form1.close();
        platform::MousePointer(0);
    }
    Programma(const Programma&) = delete;
    Programma& operator=(const Programma&) = delete;

    static void clic(QWidget* w) { QTest::mouseClick(w, Qt::LeftButton); }
    void numero(int n) { clic(form1.CMDnum[static_cast<std::size_t>(n)]); }
    void comando(int i) { clic(form1.Image3[static_cast<std::size_t>(i)]); }
    /// Clicks a cell of the crossword.
    void cella(int riga, int colonna) {
        platform::MSFlexGrid* g = form1.MSFlexGrid1;
        const QModelIndex i = g->model()->index(riga, colonna);
        g->scrollTo(i);
        QTest::mouseClick(g->viewport(), Qt::LeftButton, {}, g->visualRect(i).center());
    }
    /// Clicks an item of a menu that is opened for it.
    static void voce(QAction* azione) {
        for (QObject* oggetto : azione->associatedObjects()) {
            auto* menu = qobject_cast<QMenu*>(oggetto);
            if (menu == nullptr) continue;
            menu->popup(QPoint(10, 10));
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(azione).center());
            menu->close();
            return;
        }
        ADD_FAILURE() << "not in a menu: " << azione->text().toStdString();
    }
    /// Chooses an item as a user does, from the open list.
    static void scegli(platform::ComboBox* combo, int indice) {
        combo->showPopup();
        combo->view()->setCurrentIndex(combo->model()->index(indice, 0));
        QTest::keyClick(combo->view(), Qt::Key_Return);
        QApplication::processEvents();
    }
    void dimensioni(int colonne, int righe) {
        const int primo = form1.sessione.gioco().e_lotto() ? 5 : 6;
        scegli(form1.Combo1, colonne - primo);
        scegli(form1.Combo2, righe - primo);
    }
    /// Lays a full crossword by the board, taking for each cell the next number that is allowed.
    void riempi(int da_mettere = 225) {
        cella(0, 0);
        for (int i = 0; i < qMin(form1.sessione.colonne() * form1.sessione.righe(), da_mettere);
             ++i) {
            std::size_t n = 1 + static_cast<std::size_t>(i * 7 % 90);
            while (!form1.CMDnum[n]->isEnabled()) n = n % 90 + 1;
            numero(static_cast<int>(n));
        }
    }
    /// Opens a system that differs from the one in line in what `cambia` does, under no name.
    void apri_cosi(const std::function<void(systems::Sistema&)>& cambia) {
        systems::Sistema s = form1.sessione.sistema();
        cambia(s);
        ASSERT_TRUE(systems::scrivi_sistema(cartella.programma(), "cosi", s));
        ASSERT_TRUE(form1.sessione.apri("cosi"));
        form1.sessione.in_linea("");
        platform::Kill(cartella.file(std::string("cosi") + s.gioco.estensione_sistema()));
    }
    void riempi_e_salva(const QString& nome) {
        riempi();
        scrivi_nel_gestore(nome);
        voce(form1.mnusalva);
        ASSERT_EQ(form1.Tag(), nome);
    }

    /// Acts on the modal manager when it opens; `fare` must leave it closed.
    void nel_gestore(std::function<void(systems::Form2&)> fare) {
        ++attesi_;
        aspetta_gestore(std::move(fare));
    }
    /// Types a name in the modal manager and saves.
    void scrivi_nel_gestore(const QString& nome) {
        nel_gestore([nome](systems::Form2& form2) {
            QTest::keyClicks(form2.Text1, nome);
            clic(form2.cmdsalva);
        });
    }
    /// Dismisses the modal manager.
    void annulla_nel_gestore() {
        nel_gestore([](systems::Form2& form2) { clic(form2.cmdeffacer1); });
    }
    /// The manager on the screen, null when there is none.
    static systems::Form2* gestore() {
        for (QWidget* w : QApplication::topLevelWidgets()) {
            auto* form2 = qobject_cast<systems::Form2*>(w);
            if (form2 != nullptr && form2->isVisible()) return form2;
        }
        return nullptr;
    }
    /// The boxes shown since the last call.
    std::vector<Mostrato> mostrati() {
        std::vector<Mostrato> fatti(messaggi.begin(), messaggi.end());
        messaggi.clear();
        return fatti;
    }
    [[nodiscard]] QString riepilogo(int riga, int colonna) const {
        return form1.MSFlexGrid2->testo(riga, colonna);
    }
    /// Numbers on the screen, column first.
    [[nodiscard]] std::vector<std::vector<int>> griglia() const {
        const platform::MSFlexGrid* g = form1.MSFlexGrid1;
        std::vector<std::vector<int>> m(static_cast<std::size_t>(g->Cols()));
        for (int x = 0; x < g->Cols(); ++x) {
            for (int y = 0; y < g->Rows(); ++y) {
                m[static_cast<std::size_t>(x)].push_back(g->testo(y, x).toInt());
            }
        }
        return m;
    }

    Cartella cartella;
    DialoghiSpia dialoghi;
    std::deque<int> risposte;
    std::deque<Mostrato> messaggi;
    /// Runs while a box is on the screen.
    std::function<void()> al_messaggio;
    app::Form1 form1{dialoghi};

private:
    void aspetta_gestore(std::function<void(systems::Form2&)> fare) {
        QTimer::singleShot(0, &form1, [this, fare = std::move(fare)] {
            auto* form2 = qobject_cast<systems::Form2*>(QApplication::activeModalWidget());
            if (form2 == nullptr) {
                aspetta_gestore(fare);
                return;
            }
            --attesi_;
            const QPointer<systems::Form2> ancora(form2);
            fare(*form2);
            if (ancora && ancora->isVisible()) {
                ADD_FAILURE() << "the manager was left open";
                ancora->close();
            }
        });
    }
    int attesi_ = 0;
    platform::Ripristina<platform::Scrivania> desktop_{platform::scrivania()};
};

}  // namespace support
