// The boxes of an elaboration, and a system that asks for one.
#pragma once

#include "support/programma.h"

namespace elaborare {

using support::Icona;
using support::Mostrato;
using support::Pulsanti;

inline const Mostrato incompleto{
    "Per procedere all'elaborazione del sistema occorre completare lo schema del Cruciverba",
    "Cruciverba", Pulsanti::ok, Icona::informazione};
inline const Mostrato prima_salvare{
    "Per elaborare il sistema occore prima salvarlo.Vuoi salvare ora?", "Cruciverba",
    Pulsanti::si_no, Icona::nessuna};
inline const Mostrato completata{"Elaborazione completata.", "Tabellino", Pulsanti::ok,
                                 Icona::informazione};

/// Makes the system in line unsaved without touching its crossword.
inline void tocca(support::Programma& p) {
    p.cella(0, 0);
    p.numero(p.form1.MSFlexGrid1->testo(0, 0).toInt());
    ASSERT_FALSE(p.form1.sessione.salvato());
}

}  // namespace elaborare
