// The main form over a fresh folder, with message boxes answered by a script.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QTest>
#include <deque>

#include "app/dialoghi_qt.h"
#include "app/form1.h"
#include "platform/desktop.h"
#include "support/cartella.h"

namespace support {

/// Box that was shown.
struct Mostrato {
    QString testo;
    QString titolo;
    platform::Pulsanti pulsanti;
    platform::Icona icona;
};

class Programma {
public:
    explicit Programma(bool tabelle = false) {
        if (tabelle) cartella.con_tabelle();
        platform::rispondi_con([this](const platform::Messaggio& m) {
            messaggi.push_back({m.testo, m.titolo, m.pulsanti, m.icona});
            if (risposte.empty()) {
                if (m.pulsanti != platform::Pulsanti::ok) {
                    ADD_FAILURE() << "unanswered: " << m.testo.toStdString();
                }
                return m.pulsanti == platform::Pulsanti::ok ? platform::vbOK : platform::vbCancel;
            }
            const int risposta = risposte.front();
            risposte.pop_front();
            return risposta;
        });
        form1.Form_Load();
        form1.show();
        QApplication::processEvents();
    }
    ~Programma() {
        form1.close();
        platform::rispondi_con({});
        platform::LockWindowUpdate(nullptr);
        platform::MousePointer(0);
    }
    Programma(const Programma&) = delete;
    Programma& operator=(const Programma&) = delete;

    static void clic(QWidget* w) { QTest::mouseClick(w, Qt::LeftButton); }
    void numero(int n) { clic(form1.CMDnum[static_cast<std::size_t>(n)]); }
    void comando(int i) { clic(form1.Image3[static_cast<std::size_t>(i)]); }
    /// Chooses an item as a user does, from the open list.
    static void scegli(platform::ComboBox* combo, int indice) {
        combo->showPopup();
        combo->view()->setCurrentIndex(combo->model()->index(indice, 0));
        QTest::keyClick(combo->view(), Qt::Key_Return);
        QApplication::processEvents();
    }
    /// Lays a full crossword by the board, taking for each cell the next number that is allowed.
    void riempi() {
        const int c = form1.colonne();
        const int r = form1.righe();
        form1.MSFlexGrid1->cella(0, 0);
        form1.abilita_disabilita(0, 0);
        for (int i = 0; i < c * r; ++i) {
            const std::size_t da = 1 + static_cast<std::size_t>(i * 7 % 90);
            std::size_t n = da;
            while (!form1.CMDnum[n]->isEnabled()) n = n % 90 + 1;
            numero(static_cast<int>(n));
        }
    }

    Cartella cartella;
    app::DialoghiQt dialoghi;
    std::deque<int> risposte;
    std::deque<Mostrato> messaggi;
    app::Form1 form1{dialoghi};
};

}  // namespace support
