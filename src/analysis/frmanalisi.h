// What the system in line wins: over every possible draw, on average, and in the past.
#pragma once

#include <memory>
#include <optional>

#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QTableWidget>

#include "analysis/dialogo_lungo.h"
#include "analysis/grafico.h"
#include "analysis/relazione.h"
#include "platform/qt/controls.h"
#include "platform/qt/desktop.h"
#include "statistics/riga_archivio.h"

class QVBoxLayout;

namespace app {
class Finestra;
}

namespace analysis {

/// A table with its title and the sentences under it; nothing in it can be changed.
class VistaTavola : public QWidget {
    Q_OBJECT
public:
    /// At most `righe_visibili` rows are shown without scrolling.
    VistaTavola(const QString& nome, int righe_visibili, QWidget* padre);
    void mostra(const Tavola& tavola);

    QTableWidget* griglia = nullptr;
    QLabel* titolo = nullptr;
    QLabel* note = nullptr;

private:
    int righe_visibili_;
};

/// Analyses the development of the system named by its `Tag`, in the game that `finestra` plays
/// when the form is made. `finestra` outlives it.
class frmanalisi : public DialogoLungo {
    Q_OBJECT
public:
    explicit frmanalisi(app::Finestra& finestra);
    ~frmanalisi() override;

    /// Reads and counts; returns when that is done or was stopped, and the form may be gone then.
    void iniz();

    QLabel* lblnomesistema = nullptr;
    QLabel* lblnumconb = nullptr;
    QLabel* lblstato = nullptr;
    QProgressBar* ProgressBar1 = nullptr;
    QPushButton* cmdannulla = nullptr;
    QPushButton* cmdanalizza = nullptr;
    QTabBar* schede = nullptr;
    QStackedWidget* pagine = nullptr;
    VistaTavola* garanzie = nullptr;
    VistaTavola* insiemi = nullptr;
    VistaTavola* estrazioni = nullptr;
    VistaTavola* buchi = nullptr;
    VistaTavola* esempi = nullptr;
    statistics::RigaArchivio* riga_archivio = nullptr;
    VistaTavola* categorie_passate = nullptr;
    VistaTavola* migliori = nullptr;
    VistaTavola* anni = nullptr;
    Grafico* grafico_estrazioni = nullptr;
    Grafico* grafico_anni = nullptr;
    /// One for each category, the highest first.
    QList<QLabel*> lblmedia;
    QList<QLineEdit*> txtpremio;
    QList<QLabel*> lblincasso;
    QLabel* lblspesa = nullptr;
    QLabel* lblritorno = nullptr;
    platform::ComboBox* Combo1 = nullptr;  ///< wheels; Lotto only
    QPushButton* cmdpdf = nullptr;
    QPushButton* cmdcopia = nullptr;
    QPushButton* cmdmigliora = nullptr;
    QPushButton* CmdEsci = nullptr;

protected:
    void abbandona() override { fermata_ = true; }
    void keyPressEvent(QKeyEvent* evento) override;

private:
    struct Conto;

    // Layout, each routine one area of the window.
    void crea_sistema(QVBoxLayout* sotto);
    void crea_pagine(QVBoxLayout* sotto);
    QWidget* crea_pagina(const QString& titolo, const QList<QWidget*>& parti);
    QWidget* crea_medie();
    QWidget* crea_ruote();
    void crea_comandi(QVBoxLayout* sotto);

    /// Says how the job goes; events run, which may take this form away.
    void avanza(double parte);
    /// True, and said, when what is open is no longer the system that this window was opened for.
    bool superata();
    void occupato(bool si);
    void conta_passato(Conto& conto);
    void mostra();
    void mostra_medie();
    void mostra_passato();
    /// Counts the past again over the draws of the session.
    void ripassa();
    void cambia_ruota();
    void cambia_premio();
    void salva_pdf();
    void copia();
    void migliora();
    [[nodiscard]] std::vector<Tavola> tavole() const;
    [[nodiscard]] Premi premi() const;
    [[nodiscard]] double spesa() const;

    app::Finestra& finestra_;
    crossword::Gioco gioco_;
    std::vector<Categoria> categorie_;
    std::shared_ptr<Conto> conto_;  ///< null until one is whole
    QElapsedTimer da_quando_;
    std::optional<platform::Clessidra> attesa_;
    bool fermata_ = false;
};

}  // namespace analysis
