// A picture of numbers as bars, whose values can be heard as well.
#pragma once

#include <QColor>
#include <QList>
#include <QWidget>

namespace analysis {

/// Bars that a style sheet colours.
class Grafico : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QColor fondo MEMBER fondo_)
    Q_PROPERTY(QColor linea MEMBER linea_)
    Q_PROPERTY(QColor barra MEMBER barra_)
    Q_PROPERTY(QColor scritta MEMBER scritta_)
public:
    struct Voce {
        QString nome;
        double valore = 0;  ///< not negative
        QString testo;      ///< the value as it is read
    };
    /// Lying bars have each its name and its value; standing ones share a scale.
    Grafico(Qt::Orientation verso, QWidget* padre);

    void mostra(const QString& titolo, const QList<Voce>& voci);
    [[nodiscard]] const QList<Voce>& voci() const { return voci_; }
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* evento) override;
    bool event(QEvent* evento) override;

private:
    void dipingi_distese(QPainter& pittore, double massimo) const;
    void dipingi_ritte(QPainter& pittore, double massimo) const;
    /// The ground that standing bars grow on.
    [[nodiscard]] QRect campo() const;
    [[nodiscard]] int voce_a(QPoint punto) const;

    Qt::Orientation verso_;
    QList<Voce> voci_;
    QColor fondo_ = Qt::white;
    QColor linea_ = QColor("#B9CBE0");
    QColor barra_ = QColor("#000080");
    QColor scritta_ = QColor("#10203A");
};

}  // namespace analysis
