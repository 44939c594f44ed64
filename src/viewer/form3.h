// Paged view of a development of any size.
#pragma once

#include <array>

#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>

#include "crossword/gioco.h"
#include "platform/links.h"
#include "platform/qt/controls.h"
#include "platform/qt/listview.h"
#include "viewer/indice.h"
#include "viewer/ricerca.h"

namespace app {
class Finestra;
}

namespace viewer {

class Strumenti;

/// Shows the development of the system named by its `Tag`, of the game and form in force when it is
/// made; `finestra` outlives the viewer.
class Form3 : public QDialog {
    Q_OBJECT
public:
    explicit Form3(app::Finestra& finestra);

    /// Builds the index and shows page 1; called once, when the form is shown.
    void iniz();
    /// Clears the lists and shows a page; `avanti` also keeps the position of the next one.
    void popola_griglia(std::int32_t page, bool avanti);

    /// Closes when the development is not the one that was indexed: its pages begin elsewhere now.
    void rivedi();

    /// Shows the page of combination `n`, counted from 1, with that line chosen.
    void mostra_combinazione(std::int32_t n);
    /// Its numbers as they are listed; empty for one that cannot be read.
    [[nodiscard]] QString combinazione(std::int32_t n) const;
    /// Places of the combinations that hold all of some numbers.
    [[nodiscard]] std::vector<std::int32_t> cerca(const Cercati& cercati);
    [[nodiscard]] std::string file_sviluppo() const;
    [[nodiscard]] crossword::Gioco gioco() const { return gioco_; }
    [[nodiscard]] app::Finestra& finestra() const { return finestra_; }
    /// True once the form was to close while a job ran.
    [[nodiscard]] bool chiusura_chiesta() const { return chiusura_chiesta_; }

    [[nodiscard]] std::int32_t pagine() const { return pagine_; }
    [[nodiscard]] bool pronto() const { return pronto_; }
    [[nodiscard]] const Indice& posizioni() const { return posizioni_; }

    platform::Frame* Frame1 = nullptr;
    platform::Frame* Frame2 = nullptr;
    QFrame* Shape1 = nullptr;
    QProgressBar* ProgressBar1 = nullptr;
    QLabel* Label4 = nullptr;
    std::array<QLabel*, 4> Label1{};
    std::array<QLabel*, 2> Label2{};
    std::array<QLabel*, 2> Label3{};
    std::array<QLabel*, 2> lblpag{};
    QLabel* lblsistema = nullptr;
    QLabel* lbltot = nullptr;
    platform::ListView* ListView1 = nullptr;
    platform::ListView* ListView2 = nullptr;
    platform::ListView* ListView3 = nullptr;
    platform::ListView* ListView4 = nullptr;
    QScrollBar* HScroll1 = nullptr;
    QPushButton* Command1 = nullptr;
    Strumenti* strumenti = nullptr;

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void wheelEvent(QWheelEvent* evento) override;
    void showEvent(QShowEvent* evento) override;
    void hideEvent(QHideEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;

private:
    void crea_lettura();
    void crea_dati();
    void crea_liste();
    void crea_pagina();
    platform::ListView* lista(const QString& nome, QRect dove, const QString& scopo);

    void generagriglie();
    void popola_griglia2();
    void HScroll1_Change();
    void mostra_riga(const Riga& riga, int numeri, int linea, std::int32_t page);
    [[nodiscard]] bool tasto_di_pagina(const QKeyEvent* evento);
    void rotella(const QWheelEvent* evento);

    [[nodiscard]] bool superato() const;

    app::Finestra& finestra_;
    const crossword::Gioco gioco_;
    std::optional<platform::Impronta> indicizzato_;
    Indice posizioni_;
    std::int32_t pagine_ = 0;
    bool pronto_ = false;
    int resto_rotella_ = 0;
    bool chiusura_chiesta_ = false;
    /// The page that `combinazione` read last.
    mutable std::int32_t letta_ = 0;
    mutable Pagina pagina_letta_;
};

}  // namespace viewer
