#include "crossword/griglia.h"

#include "platform/qt/desktop.h"

namespace crossword {

namespace {

constexpr int casella = 300;  // twips

int altezza_griglia(int righe, int colonne) {
    if (righe < 11 && colonne >= 11) return righe * casella + 45;
    return righe < 10 ? righe * casella + 105 : 3045;
}

int larghezza_griglia(int righe, int colonne) {
    return colonne * casella + (righe >= 11 ? 45 : 105);
}

}  // namespace

void forma_griglia(platform::MSFlexGrid* griglia, int colonne, int righe) {
    griglia->set_Rows(righe);
    griglia->set_Cols(colonne);
    for (int i = 0; i < colonne; ++i) griglia->ColWidth(i, casella);
    for (int i = 0; i < righe; ++i) griglia->RowHeight(i, casella);
    griglia->misura({platform::px(larghezza_griglia(righe, colonne)),
                     platform::px(altezza_griglia(righe, colonne))});
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
