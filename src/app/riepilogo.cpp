#include "app/riepilogo.h"

#include <array>

#include "platform/qt/controls.h"
#include "platform/qt/desktop.h"
#include "platform/runtime.h"

namespace app {

using crossword::Elenco;

namespace {

constexpr int numero = 1;
constexpr int combinazioni = 3;
constexpr int totale = 4;
constexpr int senza_ripetizioni = 5;

QString conteggio(std::int32_t n) {
    return platform::q(platform::Format(n, platform::Modello::interi));
}

}  // namespace

Riepilogo::Riepilogo(platform::MSFlexGrid* griglia) : griglia_(griglia) {
    griglia_->set_Rows(6);
    griglia_->set_Cols(4);
    const std::array<int, 4> larghezze = {2085, 850, 5000, 3285};
    for (int c = 0; c < 4; ++c) griglia_->ColWidth(c, larghezze[static_cast<std::size_t>(c)]);
    for (int r = 0; r < 6; ++r) griglia_->RowHeight(r, 325);
    const std::array<const char*, 4> intestazioni = {"Sistemi", "Numero", "Tipo",
                                                     "Combinazioni x Sistema"};
    const std::array<const char*, 6> righe_titolo = {
        "Sistemi",
        "Orizzontali",
        "Verticali",
        "Diagonali",
        "Numero Combinazioni Totali del Sistema",
        "Numero Combinazioni Totali del Sistema (Senza Ripetizioni)"};
    for (int c = 0; c < 4; ++c) {
        griglia_->set_testo(0, c, intestazioni[static_cast<std::size_t>(c)]);
    }
    for (int r = 0; r < 6; ++r) {
        griglia_->set_testo(r, 0, righe_titolo[static_cast<std::size_t>(r)]);
        for (int c = 0; c < 4; ++c) {
            if (r > 0 && c > 0) continue;
            griglia_->cella(r, c);
            griglia_->CellBackColor(platform::colore(8388608));
            griglia_->CellForeColor(platform::colore(16777215));
        }
    }
    for (const int r : {totale, senza_ripetizioni}) griglia_->setSpan(r, 0, 1, 3);
    griglia_->cella(0, 0);
}

void Riepilogo::scrivi(const systems::Sessione& sessione) {
    for (const Elenco quale : {Elenco::orizzontali, Elenco::verticali, Elenco::diagonali}) {
        const int riga = static_cast<int>(quale);
        const auto linee = sessione.linee(quale);
        griglia_->set_testo(riga, numero, linee ? QString::number(*linee) : QString());
        griglia_->set_testo(riga, combinazioni, platform::q(sessione.combinazioni(quale)));
    }
    griglia_->set_testo(totale, combinazioni, conteggio(sessione.totale()));
    griglia_->set_testo(senza_ripetizioni, combinazioni, conteggio(sessione.senza_ripetizioni()));
}

}  // namespace app
