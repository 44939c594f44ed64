// The page to be printed, on the screen at true scale.
#pragma once

#include <functional>

#include <QLabel>
#include <QScrollArea>

#include "stampa/lavoro.h"

namespace schedine {

/// Font of the buttons that bear but a sign, which would be too thin to read.
[[nodiscard]] QFont carattere_segni();

class Anteprima : public QScrollArea {
    Q_OBJECT
public:
    explicit Anteprima(QWidget* padre);

    /// Shows a page of a job, which it does not own; null shows an empty desk.
    void mostra(Lavoro* lavoro, qint64 pagina);
    /// What is read on the empty desk.
    void invita(const QString& testo);
    /// In percent; 100 is the size of the paper.
    [[nodiscard]] int ingrandimento() const { return ingrandimento_; }
    [[nodiscard]] bool foglio_intero() const { return intero_; }
    void ingrandisci(int passi);
    void a_grandezza_vera();
    /// As large as the whole sheet has room.
    void intero(bool intero);

Q_SIGNALS:
    /// The size changed.
    void Ingrandito();
    void Pagina(int passi);

protected:
    void resizeEvent(QResizeEvent* evento) override;
    void wheelEvent(QWheelEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;

private:
    class Foglio;
    void misura();
    void centra_invito();
    /// Pixels of a millimetre of paper at 100 %.
    [[nodiscard]] double al_millimetro() const;

    Foglio* foglio_ = nullptr;
    QLabel* invito_ = nullptr;
    Lavoro* lavoro_ = nullptr;
    qint64 pagina_ = 1;
    int ingrandimento_ = 100;
    bool intero_ = true;
};

}  // namespace schedine
