// What the main form asks of the dialogs, without knowing any of them.
#pragma once

#include <QString>

namespace app {

class Finestra;

class Dialoghi {
public:
    virtual ~Dialoghi() = default;
    /// Manager in its save state, modal; returns when it is closed.
    virtual void gestore_salva(Finestra& finestra) = 0;
    /// Manager in its open state, not modal.
    virtual void gestore_apri(Finestra& finestra) = 0;
    /// Manager in its management state, not modal.
    virtual void gestore_utility(Finestra& finestra) = 0;
    /// Price of a column, not modal.
    virtual void importo_colonna(Finestra& finestra) = 0;
    /// Viewer of the development of the system in line.
    virtual void visualizza_sviluppo(Finestra& finestra) = 0;
    /// Closes the viewer when what it shows is no more.
    virtual void rivedi_sviluppo() = 0;
    /// Check against a draw; hides the main form.
    virtual void spoglio(Finestra& finestra) = 0;
    /// Analysis of the development of the system in line, not modal; returns when it is counted.
    virtual void analisi(Finestra& finestra) = 0;
    /// Search for a layout of the system in line that wins more often, modal to the others.
    virtual void migliora(Finestra& finestra) = 0;
    /// The tables of positions, not modal.
    virtual void tabelle(Finestra& finestra) = 0;
    /// Print options.
    virtual void stampa(Finestra& finestra) = 0;
    /// About box, modal.
    virtual void informazioni(Finestra& finestra) = 0;
    virtual void guida(Finestra& finestra) = 0;
    virtual void sito(Finestra& finestra) = 0;
    /// Closes every dialog that is open.
    virtual void chiudi_tutti() = 0;
};

}  // namespace app
