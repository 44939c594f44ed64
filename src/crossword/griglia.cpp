#include "crossword/griglia.h"

#include <cmath>

#include "platform/qt/desktop.h"
#include "platform/qt/scala.h"

namespace crossword {

namespace {

constexpr int casella = 300;  // twips
/// How much larger than told the frame is when the grid takes all of it.
constexpr qreal crescita_piena = 0.2;

int altezza_griglia(int righe, int colonne) {
    if (righe < 11 && colonne >= 11) return righe * casella + 45;
    return righe < 10 ? righe * casella + 105 : 3045;
}

int larghezza_griglia(int righe, int colonne) {
    return colonne * casella + (righe >= 11 ? 45 : 105);
}

platform::MSFlexGrid::Voce voce(const platform::MSFlexGrid& griglia, int riga, int colonna) {
    QString nome = griglia.testo(riga, colonna);
    QString dove = QStringLiteral("riga %1, colonna %2").arg(riga + 1).arg(colonna + 1);
    // Not by its name: of a whole row its numbers alone are read.
    if (nome.isEmpty()) dove.prepend(QStringLiteral("vuota, "));
    // The colours that point out a number tell it to eyes alone.
    if (griglia.sfondo(riga, colonna) != Qt::white) nome += QStringLiteral(", in evidenza");
    return {nome, dove};
}

}  // namespace

void forma_griglia(platform::MSFlexGrid* griglia, int colonne, int righe) {
    griglia->leggi_celle([griglia](int r, int c) { return voce(*griglia, r, c); });
    griglia->set_Rows(righe);
    griglia->set_Cols(colonne);
    for (int i = 0; i < colonne; ++i) griglia->ColWidth(i, casella);
    for (int i = 0; i < righe; ++i) griglia->RowHeight(i, casella);
    adatta_griglia(griglia);
}

void adatta_griglia(platform::MSFlexGrid* griglia) {
    const int righe = griglia->Rows();
    const int colonne = griglia->Cols();
    const QSize detta(platform::px(larghezza_griglia(righe, colonne)),
                      platform::px(altezza_griglia(righe, colonne)));
    const QWidget* cornice = griglia->parentWidget();
    const QSize posto = cornice->size();
    const QSize a_100 = platform::dentro_a_100(cornice);
    const qreal f = platform::scala(griglia);
    if (f == 1 && posto == a_100) {
        griglia->misura(detta);
        return;
    }
    const QSize libero = posto - QSize(platform::scalato(40, f), platform::scalato(46, f));
    const auto entra = [&libero](QSize quanto) {
        return qMin(qreal(libero.width()) / quanto.width(),
                    qreal(libero.height()) / quanto.height());
    };
    const qreal cresce =
        qMax(qreal(posto.width()) / a_100.width(), qreal(posto.height()) / a_100.height());
    // Little by little, lest the cells jump at the first pixel.
    const qreal quanto = qBound(0.0, (cresce - 1) / crescita_piena, 1.0);
    // With all of the frame, nothing stands between the cells and their border.
    const QSize tutta(platform::px(colonne * casella + 45), platform::px(righe * casella + 45));
    const bool piena = quanto == 1 && righe <= 10;
    QSize misura = piena ? tutta : detta;
    qreal fattore = f + (qMax(f, entra(misura)) - f) * quanto;
    if (righe > 10 && entra(tutta) >= 1) {
        misura = tutta;
        fattore = entra(tutta);
    }
    // Cells of whole pixels, all alike.
    constexpr int lato = platform::px(casella);
    griglia->misura(misura, std::floor(fattore * lato + 1e-6) / lato);
}

void scrivi_griglia(platform::MSFlexGrid* griglia, const Matrice& matrice) {
    for (int r = 0; r < griglia->Rows(); ++r) {
        for (int c = 0; c < griglia->Cols(); ++c) {
            const QString testo = matrice(c, r) == 0 ? QString() : QString::number(matrice(c, r));
            if (griglia->testo(r, c) != testo) griglia->set_testo(r, c, testo);
        }
    }
}

}  // namespace crossword
