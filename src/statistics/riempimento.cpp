#include "statistics/riempimento.h"

#include "platform/qt/desktop.h"
#include "platform/qt/disposizione.h"
#include "statistics/avviso_archivio.h"
#include "systems/passo.h"

namespace statistics {

using platform::DoEvents;
using systems::Cella;

Riempimento::Riempimento(app::Finestra& finestra, app::Lavori& lavori, crossword::Vista& vista,
                         const crossword::RiquadriCruciverba& cruciverba,
                         RiquadriGeneratori& generatori)
    : finestra_(finestra), lavori_(lavori), vista_(vista), c_(cruciverba), g_(generatori) {
    using app::Finestra;
    g_.cmdstat =
        platform::pulsante("cmdstat", Finestra::tr("Genera"), {12, 24, 194, 28}, g_.Frame7);
    g_.Frame10 = platform::riquadro("Frame10", QString(), {4, 56, 210, 52}, g_.Frame7);
    g_.Frame10->set_bordo(false);
    platform::etichetta(Finestra::tr("Ruota"), {8, 0, 100, 18}, g_.Frame10);
    g_.Combo6 = platform::elenco("Combo6", Finestra::tr("Ruota"), {8, 19, 100, 24}, g_.Frame10);
    for (const Ruota& ruota : ruote) g_.Combo6->AddItem(platform::q(std::string(ruota.nome)));
    g_.Combo6->set_ListIndex(0);
    g_.cmdstat2 =
        platform::pulsante("cmdstat2", Finestra::tr("Genera"), {116, 18, 86, 26}, g_.Frame10);
    g_.Frame10->hide();
    for (const QPushButton* generatore : {g_.cmdstat, g_.cmdstat2}) {
        QObject::connect(generatore, &QPushButton::clicked, generatore, [this] { genera(); });
    }
}

void Riempimento::mostra_gioco() {
    g_.Frame10->setVisible(finestra_.sessione.gioco().e_lotto());
}

Seguito Riempimento::seguito(bool avanza) {
    Seguito seguito;
    seguito.barra = [this](std::int32_t massimo) { lavori_.barra(massimo); };
    seguito.posata = [this, avanza](int riga, int colonna, int numero) {
        // The hidden board bars nothing meanwhile: the rules see the lines for themselves.
        c_.MSFlexGrid1->cella(riga, colonna);
        c_.MSFlexGrid1->set_Text(QString::number(numero));
        if (avanza) lavori_.un_passo();
        DoEvents();
        return !lavori_.fermati();
    };
    return seguito;
}

void Riempimento::completa_con_scelti() {
    if (finestra_.in_elaborazione()) return;
    systems::Sessione& sessione = finestra_.sessione;
    systems::Completato esito;
    {
        const app::Lavoro lavoro(lavori_);
        vista_.in_cella({});
        c_.Frame3->hide();
        DoEvents();
        Cella ultima{-1, -1};
        Cella ferma{sessione.colonne() - 1, sessione.righe() - 1};
        const Cella fine = ferma;
        const auto mostra_posata = seguito(false).posata;
        esito = sessione.completa_con_scelti(
            [&](int riga, int colonna, int numero) {
                ultima = {colonna, riga};
                return mostra_posata(riga, colonna, numero);
            },
            &ferma);
        // Behind the last cell comes the first one.
        vista_.in_cella(esito == systems::Completato::completo && ultima == fine ? Cella{} : ferma);
        if (ultima.riga >= 0) vista_.colore_griglia();
        vista_.abilita_corrente();
        c_.Frame3->show();
        DoEvents();
    }
    if (lavori_.chiudi_se_chiesto()) return;
    if (esito == systems::Completato::impossibile) {
        platform::MsgBox(&finestra_,
                         {"Impossibile completare il Cruciverba con i nuemeri scelti.\r\n"
                          "Inserire un altro numero nel tabellone.",
                          platform::Pulsanti::ok, "Tabellino"});
    }
}

void Riempimento::completa() {
    if (finestra_.in_elaborazione()) return;
    {
        const app::Lavoro lavoro(lavori_);
        finestra_.sessione.completa(seguito(false));
    }
    lavori_.chiudi_se_chiesto();
}

void Riempimento::genera() {
    genera_in_vista();
    lavori_.chiudi_se_chiesto();
}

void Riempimento::genera_in_vista() {
    if (finestra_.in_elaborazione()) return;
    if (finestra_.sessione.matrice()(0, 0) != 0) {
        finestra_.mostra_esito(platform::q(esito_detto(systems::Generato::gia_iniziato)));
        return;
    }
    const platform::Clessidra attesa;
    {
        const platform::FinestraFerma ferma(&finestra_);
        vista_.svuota();
        c_.MSFlexGrid1->setFocus();
        c_.Frame3->hide();
        DoEvents();
    }
    platform::Err apertura;
    systems::Generato esito;
    {
        const app::Lavoro lavoro(lavori_);
        esito = finestra_.sessione.genera(g_.Combo6->ListIndex(), seguito(true), &apertura);
    }
    if (apertura.ok()) finestra_.mostra_esito(platform::q(systems::esito_detto(esito)));
    if (!apertura.ok()) errore_archivio(&finestra_, apertura, "Sortivario");
    if (esito == systems::Generato::poche_estrazioni) {
        platform::MsgBox(
            &finestra_,
            {"Per poter Realizzare un sistema statistico devono essere state effettuate "
             "almeno 100 estrazioni per la ruota esaminata",
             platform::Pulsanti::ok, QString(), platform::Icona::informazione});
    }
    {
        const platform::FinestraFerma ferma(&finestra_);
        c_.Frame3->show();
        DoEvents();
    }
}

}  // namespace statistics
