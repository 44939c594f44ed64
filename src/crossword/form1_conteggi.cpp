// Lists of types and counts of combinations on the screen.
#include "app/form1.h"
#include "platform/application.h"
#include "platform/desktop.h"
#include "platform/runtime.h"

namespace app {

using platform::Format;
using platform::leggi_numero;
using platform::Modello;

namespace {

QString conteggio(double n) {
    return platform::q(Format(n, Modello::interi));
}

}  // namespace

void Form1::carica_combo(crossword::Gioco game, std::uint8_t& quale, std::int16_t N) {
    platform::ComboBox* combo = quale == 1 ? Combo3 : quale == 2 ? Combo4 : Combo5;
    combo->Clear();
    for (const std::string& tipo :
         crossword::tipi_sistema(game, static_cast<crossword::Elenco>(quale), N)) {
        combo->AddItem(platform::q(tipo));
    }
    combo->set_Text(combo->itemText(0));
}

void Form1::INIZIZLAIZZA_MATSIS() {
    matsis.INIZIZLAIZZA_MATSIS(gioco());
}

void Form1::Inizializza1() {
    MSFlexGrid2->set_Rows(6);
    MSFlexGrid2->set_Cols(4);
    const std::array<int, 4> larghezze = {2085, 850, 5000, 3285};
    for (int c = 0; c < 4; ++c) MSFlexGrid2->ColWidth(c, larghezze[static_cast<std::size_t>(c)]);
    for (int r = 0; r < 6; ++r) MSFlexGrid2->RowHeight(r, 325);
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
        MSFlexGrid2->set_testo(0, c, intestazioni[static_cast<std::size_t>(c)]);
    }
    for (int r = 0; r < 6; ++r) {
        MSFlexGrid2->set_testo(r, 0, righe_titolo[static_cast<std::size_t>(r)]);
        for (int c = 0; c < 4; ++c) {
            if (r > 0 && c > 0) continue;
            MSFlexGrid2->cella(r, c);
            MSFlexGrid2->CellBackColor(platform::colore(8388608));
            MSFlexGrid2->CellForeColor(platform::colore(16777215));
        }
    }
    for (int r = 4; r <= 5; ++r) MSFlexGrid2->setSpan(r, 0, 1, 3);
    MSFlexGrid2->cella(0, 0);
    pulisci();
}

void Form1::tipo_riga(int riga, int n, int indice) {
    if (const auto valore = matsis(n - gioco().lato_minimo(), indice)) {
        MSFlexGrid2->set_testo(riga, 3, conteggio(*valore));
    }
    totale_combinazioni();
}

void Form1::Combo3_Click() {
    tipo_riga(1, colonne(), Combo3->ListIndex());
}

void Form1::Combo4_Click() {
    tipo_riga(2, righe(), Combo4->ListIndex());
}

void Form1::Combo5_Click() {
    if (lotto) {
        tipo_riga(3, righe(), Combo5->ListIndex());
        return;
    }
    if (const auto testo = crossword::testo_diagonali(matsis, righe(), Combo5->ListIndex())) {
        MSFlexGrid2->set_testo(3, 3, platform::q(*testo));
    }
    totale_combinazioni();
}

void Form1::totale_combinazioni() {
    salvato = false;
    const auto per_linea = [this](int riga) {
        return leggi_numero(platform::s(MSFlexGrid2->testo(riga, 3)));
    };
    const std::int32_t a = righe() * per_linea(1);
    const std::int32_t b = colonne() * per_linea(2);
    std::int32_t c = 0;
    if (Combo1->Text() == Combo2->Text()) {
        c = lotto ? per_linea(3) * 2
                  : crossword::combinazioni_diagonali(matsis, righe(), Combo5->ListIndex())
                        .value_or(0);
    }
    MSFlexGrid2->set_testo(4, 3, conteggio(a + b + c));
    MSFlexGrid2->set_testo(5, 3, QString());
    lblimportotot->setText(calcolo_importo(a + b + c));
}

void Form1::controlo_colonne(const QString& nome, bool& esiste) const {
    esiste = systems::esiste_sviluppo(platform::App().Path, platform::s(nome), gioco());
}

}  // namespace app
