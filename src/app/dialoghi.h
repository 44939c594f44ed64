// What the main form asks of the dialogs, without knowing any of them.
#pragma once

#include <QString>

namespace app {

class Form1;

class Dialoghi {
public:
    virtual ~Dialoghi() = default;
    /// Manager in its save state, modal; returns when it is closed.
    virtual void gestore_salva(Form1& form1) = 0;
    /// Manager in its open state, not modal.
    virtual void gestore_apri(Form1& form1) = 0;
    /// Manager in its management state, not modal.
    virtual void gestore_utility(Form1& form1) = 0;
    /// Price of a column, not modal.
    virtual void importo_colonna(Form1& form1) = 0;
    /// Viewer of the development of the system in line.
    virtual void visualizza_sviluppo(Form1& form1) = 0;
    /// Closes the viewer when what it shows is no more.
    virtual void rivedi_sviluppo() = 0;
    /// Check against a draw; hides the main form.
    virtual void spoglio(Form1& form1) = 0;
    /// Analysis of the development of the system in line, not modal; returns when it is counted.
    virtual void analisi(Form1& form1) = 0;
    /// Print options.
    virtual void stampa(Form1& form1) = 0;
    /// About box, modal.
    virtual void informazioni(Form1& form1) = 0;
    virtual void guida(Form1& form1) = 0;
    virtual void sito(Form1& form1) = 0;
    /// Closes every dialog that is open.
    virtual void chiudi_tutti() = 0;
};

}  // namespace app
