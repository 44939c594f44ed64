// The slip on the editor's desk: the picture of it, and the cells over it.
#pragma once

#include <functional>
#include <vector>

#include <QImage>
#include <QWidget>

#include "stampa/geometria.h"

namespace schedine {

class Tavolo : public QWidget {
    Q_OBJECT
public:
    explicit Tavolo(QWidget* padre);

    /// Reads a picture of the whole slip; false for a file that is none, and the one before stays.
    bool immagine(const QString& file);
    void mostra(const Modulo& modulo);
    /// Points that were clicked so far.
    void punti(const std::vector<Punto>& punti);
    /// Where a point of the slip, in tenths of a millimetre, is on this widget.
    [[nodiscard]] QPointF sul_tavolo(Punto punto) const;
    void ingrandisci(int passi);

    std::function<void(Punto)> al_clic;

protected:
    void paintEvent(QPaintEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void wheelEvent(QWheelEvent* evento) override;

private:
    void misura();

    QImage immagine_;
    Modulo modulo_;
    std::vector<Punto> punti_;
    double al_decimo_ = 0.35;  ///< pixels
};

}  // namespace schedine
