#include "app/riepilogo.h"

#include "app/finestra.h"
#include "platform/qt/desktop.h"
#include "platform/qt/disposizione.h"
#include "platform/runtime.h"

namespace app {

using crossword::Elenco;

namespace {

constexpr int numero = 1;
constexpr int tipo = 2;
constexpr int combinazioni = 3;
constexpr int totale = 4;
constexpr int senza_ripetizioni = 5;

/// Widths of the columns and height of a row, in twips.
constexpr std::array<int, 4> larghezze = {2085, 850, 5000, 3285};
constexpr int altezza = 325;

constexpr QRect dove_griglia(9, 32, 750, 134);

QString conteggio(std::int32_t n) {
    return platform::q(platform::Format(n, platform::Modello::interi));
}

}  // namespace

Riepilogo::Riepilogo(systems::Sessione& sessione, RiquadroRiepilogo& riquadro)
    : sessione_(sessione), r_(riquadro) {
    arreda();
    intesta();
    const auto liste = r_.tipi();
    for (std::size_t i = 0; i < liste.size(); ++i) {
        QObject::connect(liste[i], &platform::ComboBox::Click, liste[i],
                         [this, i, lista = liste[i]] {
                             sessione_.scegli_tipo(static_cast<Elenco>(i + 1), lista->ListIndex());
                         });
    }
}

void Riepilogo::arreda() {
    platform::etichetta(Finestra::tr(" Sistema in linea"), {8, 6, 110, 22}, r_.Frame2)
        ->setProperty("titolo", true);
    r_.lblsistema = platform::valore("lblsistema", {120, 6, 640, 22}, r_.Frame2, Qt::AlignLeft);
    r_.lblsistema->setAccessibleName(Finestra::tr("Sistema in linea"));
    r_.MSFlexGrid2 =
        platform::posto(new platform::MSFlexGrid(r_.Frame2), "MSFlexGrid2", dove_griglia);
    r_.MSFlexGrid2->setAccessibleName(Finestra::tr("Riepilogo delle combinazioni"));
    r_.MSFlexGrid2->setFocusPolicy(Qt::NoFocus);
    r_.MSFlexGrid2->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    r_.MSFlexGrid2->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The lists lie over the cells of column 2, rows 1 to 3.
    const auto sopra = [this](int riga, const QString& nome, const QString& scopo) {
        const QRect dove(
            dove_griglia.x() + 1 + platform::px(larghezze[0]) + platform::px(larghezze[1]),
            dove_griglia.y() + 1 + riga * platform::px(altezza), platform::px(larghezze[2]) - 1,
            platform::px(altezza) - 1);
        platform::ComboBox* lista = platform::elenco(nome, scopo, dove, r_.Frame2);
        lista->setProperty("in_griglia", true);
        return lista;
    };
    r_.Combo3 = sopra(1, "Combo3", Finestra::tr("Tipo delle righe"));
    r_.Combo4 = sopra(2, "Combo4", Finestra::tr("Tipo delle colonne"));
    r_.Combo5 = sopra(3, "Combo5", Finestra::tr("Tipo delle diagonali"));
}

void Riepilogo::intesta() {
    platform::MSFlexGrid* griglia = r_.MSFlexGrid2;
    griglia->leggi_celle([this](int riga, int colonna) { return voce(riga, colonna); });
    griglia->set_Rows(6);
    griglia->set_Cols(4);
    for (int c = 0; c < 4; ++c) griglia->ColWidth(c, larghezze[static_cast<std::size_t>(c)]);
    for (int r = 0; r < 6; ++r) griglia->RowHeight(r, altezza);
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
        griglia->set_testo(0, c, intestazioni[static_cast<std::size_t>(c)]);
    }
    for (int r = 0; r < 6; ++r) {
        griglia->set_testo(r, 0, righe_titolo[static_cast<std::size_t>(r)]);
        for (int c = 0; c < 4; ++c) {
            if (r > 0 && c > 0) continue;
            griglia->cella(r, c);
            griglia->CellBackColor(platform::colore(8388608));
            griglia->CellForeColor(platform::colore(16777215));
        }
    }
    for (const int r : {totale, senza_ripetizioni}) griglia->setSpan(r, 0, 1, 3);
    griglia->cella(0, 0);
}

platform::MSFlexGrid::Voce Riepilogo::voce(int riga, int colonna) const {
    const platform::MSFlexGrid* griglia = r_.MSFlexGrid2;
    const auto liste = r_.tipi();
    const bool sotto_lista = colonna == tipo && riga >= 1 && riga <= static_cast<int>(liste.size());
    const QString testo = sotto_lista ? liste[static_cast<std::size_t>(riga - 1)]->Text()
                                      : griglia->testo(riga, colonna);
    QStringList teste;
    if (riga > 0 && colonna > 0) teste << griglia->testo(riga, 0) << griglia->testo(0, colonna);
    return {testo.isEmpty() ? Finestra::tr("vuota") : testo, teste.join(", ")};
}

void Riepilogo::mostra(const systems::Cambiamento& cambiato) {
    if (cambiato.nome) r_.lblsistema->setText(platform::q(sessione_.nome()));
    if (cambiato.dimensioni) r_.Combo5->setEnabled(sessione_.colonne() == sessione_.righe());
    if (cambiato.tipi) mostra_tipi();
    if (cambiato.conteggi || cambiato.dimensioni) scrivi();
}

void Riepilogo::mostra_tipi() {
    const auto liste = r_.tipi();
    for (std::size_t i = 0; i < liste.size(); ++i) {
        const auto quale = static_cast<Elenco>(i + 1);
        QStringList voci;
        for (const std::string& uno : sessione_.tipi(quale)) voci << platform::q(uno);
        liste[i]->elenca(voci, sessione_.tipo(quale));
    }
}

void Riepilogo::scrivi() {
    platform::MSFlexGrid* griglia = r_.MSFlexGrid2;
    for (const Elenco quale : {Elenco::orizzontali, Elenco::verticali, Elenco::diagonali}) {
        const int riga = static_cast<int>(quale);
        const auto linee = sessione_.linee(quale);
        griglia->set_testo(riga, numero, linee ? QString::number(*linee) : QString());
        griglia->set_testo(riga, combinazioni, platform::q(sessione_.combinazioni(quale)));
    }
    griglia->set_testo(totale, combinazioni, conteggio(sessione_.totale()));
    griglia->set_testo(senza_ripetizioni, combinazioni, conteggio(sessione_.senza_ripetizioni()));
}

}  // namespace app
