// A scripted player: real events on whatever window stands, chosen by chance from a seed.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <QMessageBox>
#include <QPointer>
#include <QStringList>

#include "analysis/frmanalisi.h"
#include "analysis/frmcercatabella.h"
#include "analysis/frmmigliora.h"
#include "analysis/frmtabelle.h"
#include "app/dialoghi_qt.h"
#include "app/form1.h"
#include "check/frmspoglio.h"
#include "platform/qt/scrivania.h"
#include "printing/frmstsvl.h"
#include "support/cartella.h"
#include "systems/form2.h"
#include "viewer/form3.h"
#include "viewer/formeuro.h"

namespace soak {

/// Chance that is the same on every run and on every machine.
class Sorte {
public:
    explicit Sorte(std::uint32_t seme) : caso_(seme) {}
    /// From 0 to `n` - 1.
    int sotto(int n) { return static_cast<int>(caso_() % static_cast<std::uint32_t>(n)); }
    bool una_su(int n) { return sotto(n) == 0; }
    template <typename Lista>
    auto uno(const Lista& lista) {
        return lista[static_cast<decltype(lista.size())>(sotto(static_cast<int>(lista.size())))];
    }

private:
    std::mt19937 caso_;
};

/// Plays on one folder; each action leaves the program idle, or the test has found a fault.
class Giocatore : public QObject {
public:
    explicit Giocatore(std::uint32_t seme);
    ~Giocatore() override;

    /// One action of chance, on one of the windows that stand.
    void agisci();
    /// One action that only its seed decides, half of the time by another device than clicks and
    /// keys on what is offered: a walk of such actions can leave some out and be walked again.
    void agisci(std::uint32_t seme);
    /// What is wrong with the idle program, empty when nothing is.
    [[nodiscard]] QStringList difetti();
    /// The last actions and boxes, for the report of a fault.
    [[nodiscard]] QString diario() const { return diario_.join('\n'); }

protected:
    /// Modal windows are played from inside their own event loop.
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    using Azione = std::function<void()>;
    struct Scelta {
        int peso;
        const char* nome;
        Azione fare;
    };

    void avvia();
    void ferma();
    int rispondi(const platform::Messaggio& messaggio);
    /// The answer of a box that stands, with all that knocks at the windows below it.
    int rispondi_alla_vera(const platform::Messaggio& messaggio);
    void annota(const QString& riga);
    void esegui(const std::vector<Scelta>& scelte);
    /// The window of a kind that stands, null when there is none.
    template <typename Finestra>
    [[nodiscard]] Finestra* aperta() const {
        for (QWidget* w : QApplication::topLevelWidgets()) {
            auto* f = qobject_cast<Finestra*>(w);
            if (f != nullptr && f->isVisible()) return f;
        }
        return nullptr;
    }

    // Players of the windows.
    void gioca_form1();
    void gioca_gestore(systems::Form2& f);
    void gioca_visualizzatore(viewer::Form3& f);
    void gioca_spoglio(check::frmspoglio& f);
    void gioca_stampa(printing::frmstsvl& f);
    void gioca_importo(viewer::formeuro& f);
    void gioca_analisi(analysis::frmanalisi& f);
    void gioca_tabelle(analysis::frmtabelle& f);
    void gioca_box(QMessageBox& box);
    void gioca_migliora(analysis::frmmigliora& f);
    void gioca_cerca(analysis::frmcercatabella& f);
    void gioca_modale(QWidget* finestra);

    // Actions on the main form.
    [[nodiscard]] std::vector<Scelta> scelte_numeri();
    [[nodiscard]] std::vector<Scelta> scelte_scelte();
    [[nodiscard]] std::vector<Scelta> scelte_comandi();
    void numero();
    void va_e_viene(Qt::Key va, Qt::Key viene);
    void cella();
    void digita();
    void riempi();
    void scegli(platform::ComboBox* combo, int voci);
    void comando(int quale);
    void menu();
    void scorciatoia();
    void lista();
    void quote();
    void gioco();
    void guasta_un_file();
    void chiudi();
    void dopo_la_chiusura();

    // Actions on the manager.
    void voce_gestore(systems::Form2& f);
    void rinomina(systems::Form2& f);

    // Other devices, on any window.
    [[nodiscard]] QWidget* una_finestra();
    void dispositivo();
    void destro(QWidget* w, QPoint dove);
    void rotella(QWidget* w, QPoint dove);
    void trascina(QWidget* w, QPoint dove);
    void fuoco(QWidget* finestra);
    void lettera(QWidget* finestra);
    void incolla(QWidget* finestra);
    void lascia(QWidget* w, QPoint dove);
    void tocca(QWidget* w, QPoint dove);
    /// The open system, to see that it stays.
    [[nodiscard]] QString in_linea() const;
    /// Every device on the main form, while a modal window stands over it.
    void sotto();

    void clic(QWidget* w);
    void voce(QAction* azione);
    void premi_un_pulsante(QWidget& finestra);
    [[nodiscard]] QString nome();
    [[nodiscard]] bool troppo_grande() const;

    // Invariants.
    void controlla_cruciverba(QStringList& difetti);
    void controlla_conteggi(QStringList& difetti);
    void controlla_importo(QStringList& difetti);
    void controlla_finestre(QStringList& difetti);

    Sorte sorte_;
    support::Cartella cartella_;
    std::string altra_;
    std::unique_ptr<app::DialoghiQt> dialoghi_;
    std::unique_ptr<app::Form1> form1_;
    QStringList diario_;
    QStringList boxes_inattesi_;
    int modali_ = 0;
    /// Two early ends of a sending leave the hourglass on.
    bool clessidra_ammessa_ = false;
    /// A file from outside may hold numbers that no player could lay.
    bool estraneo_ = false;
    platform::Ripristina<platform::Scrivania> desktop_{platform::scrivania()};
};

}  // namespace soak
