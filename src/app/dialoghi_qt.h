// The one place that knows all dialogs and opens them.
#pragma once

#include <QPointer>
#include <QWidget>

#include "app/dialoghi.h"

namespace app {

class DialoghiQt : public Dialoghi {
public:
    void gestore_salva(Form1& form1) override;
    void gestore_apri(Form1& form1) override;
    void gestore_utility(Form1& form1) override;
    void importo_colonna(Form1& form1) override;
    void visualizza_sviluppo(Form1& form1) override;
    void rivedi_sviluppo() override;
    void spoglio(Form1& form1) override;
    void analisi(Form1& form1) override;
    void stampa(Form1& form1) override;
    void informazioni(Form1& form1) override;
    void guida(Form1& form1) override;
    void sito(Form1& form1) override;
    void chiudi_tutti() override;

private:
    void chiudi_sopra();
    QPointer<QWidget> gestore_;
    QPointer<QWidget> importo_;
    QPointer<QWidget> sviluppo_;
    QPointer<QWidget> stampa_;
    QPointer<QWidget> spoglio_;
    QPointer<QWidget> analisi_;
};

}  // namespace app
