// The window of the slips over a folder of its own, used as a player does.
#pragma once

#include <algorithm>
#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <tuple>

#include <QAbstractItemView>
#include <QApplication>
#include <QFileInfo>
#include <QTest>

#include "platform/qt/desktop.h"
#include "platform/qt/scrivania.h"
#include "stampa/finestra.h"
#include "support/cartella.h"
#include "support/pdf.h"

namespace prova {

using platform::q;
using schedine::Finestra;

class FinestraSchedine : public testing::Test {
protected:
    FinestraSchedine() {
        platform::scrivania().stampa_solo_su_file = true;
        platform::scrivania().risponde = [this](const platform::Messaggio& m) {
            messaggi << m.testo;
            if (m.pulsanti == platform::Pulsanti::si_no) return risposta;
            return platform::vbOK;
        };
        platform::scrivania().sceglie_nuovo_file = [this](const QString& proposta) {
            proposte << QFileInfo(proposta).fileName();
            return q(uscita);
        };
    }

    /// A development of so many lines; a Lotto one has its system file too.
    void sviluppa(const std::string& nome, int righe, int numeri = 6) {
        std::string dati;
        attese.clear();
        for (int i = 0; i < righe; ++i) {
            std::string chiaro;
            for (int k = 0; k < numeri; ++k) {
                const int n = 1 + k * 15 + (k == 0 ? i % 15 : k == 1 ? i / 15 % 15 : 0);
                dati += std::to_string(n) + (k < numeri - 1 ? "," : "\r\n");
                chiaro += (n < 10 ? "0" : "") + std::to_string(n) + " ";
            }
            attese.push_back(chiaro);
        }
        const bool lotto = numeri < 6;
        cartella.scrivi(nome + (lotto ? ".lot" : ".col"), dati);
        cartella.scrivi(nome + (lotto ? ".sel" : ".sen"),
                        lotto ? "0,0,0,\"\",0,0,0," + std::to_string(numeri) + ",1\r\n1,\r\n"
                              : "0,0,0,\"\",0,0,0,1\r\n1,\r\n");
    }
    void trans(const std::string& dati) {
        std::ofstream(radice() + "trans", std::ios::binary) << dati;
    }
    void consegna(const std::string& nome) { trans("\"cruciverba\",\"" + nome + "\"\r\n"); }
    [[nodiscard]] std::string radice() const { return cartella.radice() + "/"; }
    Finestra& apri() {
        f = std::make_unique<Finestra>(radice());
        f->show();
        f->activateWindow();
        QApplication::processEvents();
        return *f;
    }
    static void clic(QWidget* w) {
        auto* b = qobject_cast<QAbstractButton*>(w);
        const bool scelta = qobject_cast<QPushButton*>(w) == nullptr && b != nullptr;
        QTest::mouseClick(w, Qt::LeftButton, {}, scelta ? QPoint(8, w->height() / 2) : QPoint());
        QApplication::processEvents();
    }
    static void scrivi(QLineEdit* t, const QString& testo) {
        t->setFocus();
        t->selectAll();
        QTest::keyClicks(t, testo);
        QTest::keyClick(t, Qt::Key_Tab);
    }
    static void scegli(platform::ComboBox* combo, int indice) {
        combo->showPopup();
        combo->view()->setCurrentIndex(combo->model()->index(indice, 0));
        QTest::keyClick(combo->view(), Qt::Key_Return);
        QApplication::processEvents();
    }
    /// Columns in clear as the PDF has them.
    [[nodiscard]] std::vector<std::string> lette(std::size_t numeri) const {
        std::vector<std::string> righe;
        std::string riga;
        std::size_t quanti = 0;
        for (const support::Parola& p : support::parole(uscita)) {
            const bool numero =
                p.testo.size() == 2 && p.testo.find_first_not_of("0123456789") == std::string::npos;
            if (!numero) {
                riga.clear();
                quanti = 0;
                continue;
            }
            riga += p.testo + " ";
            if (++quanti < numeri) continue;
            righe.push_back(riga);
            riga.clear();
            quanti = 0;
        }
        return righe;
    }
    /// Those below the panels, which are set larger than the panels' own
    /// numbers, and smaller than the slips'.
    [[nodiscard]] std::vector<std::string> lette_sotto_i_pannelli() const {
        constexpr double corpo = 9;
        constexpr double titolo = 11;
        std::vector<support::Parola> grandi;
        for (const support::Parola& p : support::parole(uscita)) {
            const bool numero =
                p.testo.size() == 2 && p.testo.find_first_not_of("0123456789") == std::string::npos;
            const double alto = (p.y2 - p.y1) * 12;
            if (numero && alto > corpo && alto < titolo) grandi.push_back(p);
        }
        std::stable_sort(grandi.begin(), grandi.end(), [](const auto& a, const auto& b) {
            const auto dove = [](const support::Parola& p) {
                return std::tuple(p.pagina, std::lround(p.y1 * 10), p.x1);
            };
            return dove(a) < dove(b);
        });
        std::vector<std::string> righe;
        for (std::size_t i = 0; i < grandi.size(); ++i) {
            if (i % 6 == 0) righe.emplace_back();
            righe.back() += grandi[i].testo + " ";
        }
        return righe;
    }
    schedine::Modulo salva_modulo(const std::string& nome, schedine::Modulo m = {}) const {
        std::filesystem::create_directories(radice() + "schedine");
        std::ofstream(schedine::file_modulo(radice(), nome), std::ios::binary)
            << schedine::testo_modulo(m);
        return m;
    }
    /// The library as it stands: names and contents.
    [[nodiscard]] std::string libreria() const {
        std::string tutto;
        for (const auto& voce : std::filesystem::directory_iterator(cartella.programma()))
            tutto += voce.path().filename().string() + "|" +
                     cartella.leggi(voce.path().filename().string()) + "\n";
        return tutto;
    }

    support::Cartella cartella;
    std::string uscita = cartella.radice() + "/uscita.pdf";
    int risposta = platform::vbYes;
    QStringList messaggi;
    QStringList proposte;
    std::vector<std::string> attese;
    std::unique_ptr<Finestra> f;
    platform::Ripristina<platform::Scrivania> desktop_{platform::scrivania()};
};

}  // namespace prova
