// The one place that knows all dialogs and opens them.
#pragma once

#include <QPointer>
#include <QWidget>

#include "app/dialoghi.h"

namespace app {

class DialoghiQt : public Dialoghi {
public:
    void gestore_salva(Finestra& finestra) override;
    void gestore_apri(Finestra& finestra) override;
    void gestore_utility(Finestra& finestra) override;
    void importo_colonna(Finestra& finestra) override;
    void visualizza_sviluppo(Finestra& finestra) override;
    void rivedi_sviluppo() override;
    void spoglio(Finestra& finestra) override;
    void analisi(Finestra& finestra) override;
    void migliora(Finestra& finestra) override;
    void tabelle(Finestra& finestra) override;
    void stampa(Finestra& finestra) override;
    void informazioni(Finestra& finestra) override;
    void guida(Finestra& finestra) override;
    void sito(Finestra& finestra) override;
    void chiudi_tutti() override;

private:
    void chiudi_sopra();
    QPointer<QWidget> gestore_;
    QPointer<QWidget> importo_;
    QPointer<QWidget> sviluppo_;
    QPointer<QWidget> stampa_;
    QPointer<QWidget> spoglio_;
    QPointer<QWidget> analisi_;
    QPointer<QWidget> migliora_;
    QPointer<QWidget> tabelle_;
};

}  // namespace app
