#include "app/dialoghi_qt.h"

#include "analysis/frmanalisi.h"
#include "analysis/frmmigliora.h"
#include "analysis/frmtabelle.h"
#include "app/finestra.h"
#include "check/frmspoglio.h"
#include "help/frmAbout.h"
#include "help/guida.h"
#include "platform/qt/desktop.h"
#include "printing/frmstsvl.h"
#include "systems/form2.h"
#include "viewer/form3.h"
#include "viewer/formeuro.h"

namespace app {

namespace {

/// Each dialog is loaded anew for each use; one that is open already makes room.
void chiudi(QPointer<QWidget>& finestra) {
    if (finestra) finestra->close();
    delete finestra;
}

}  // namespace

void DialoghiQt::gestore_salva(Finestra& finestra) {
    chiudi(gestore_);
    auto* form2 = new systems::Form2(finestra);
    gestore_ = form2;
    form2->modo_salva();
    QPointer<QWidget> questo = form2;
    form2->exec();
    // An import or a send from its menu has put another manager in its place, which stays.
    chiudi(questo);
}

void DialoghiQt::gestore_apri(Finestra& finestra) {
    chiudi(gestore_);
    auto* form2 = new systems::Form2(finestra);
    gestore_ = form2;
    form2->modo_apri();
    form2->show();
}

void DialoghiQt::gestore_utility(Finestra& finestra) {
    chiudi(gestore_);
    auto* form2 = new systems::Form2(finestra);
    gestore_ = form2;
    form2->modo_utility();
    form2->show();
}

void DialoghiQt::importo_colonna(Finestra& finestra) {
    chiudi(importo_);
    auto* form = new viewer::formeuro(finestra);
    importo_ = form;
    form->show();
}

void DialoghiQt::visualizza_sviluppo(Finestra& finestra) {
    chiudi(sviluppo_);
    auto* form3 = new viewer::Form3(finestra);
    sviluppo_ = form3;
    platform::set_Tag(form3, finestra.Tag());
    {
        const platform::FinestraFerma ferma(&finestra);
        form3->show();
        platform::DoEvents();
    }
    form3->iniz();
}

void DialoghiQt::rivedi_sviluppo() {
    if (auto* form3 = qobject_cast<viewer::Form3*>(sviluppo_.data())) form3->rivedi();
}

void DialoghiQt::stampa(Finestra& finestra) {
    chiudi(stampa_);
    auto* form = new printing::frmstsvl(finestra);
    stampa_ = form;
    form->show();
}

void DialoghiQt::spoglio(Finestra& finestra) {
    delete spoglio_;
    // The check relies on nobody touching the game, the form and the library while it stands.
    chiudi_sopra();
    auto* form = new check::frmspoglio(finestra);
    spoglio_ = form;
    finestra.hide();
    platform::DoEvents();
    platform::set_Tag(form, finestra.Tag());
    form->iniz();
    form->show();
}

void DialoghiQt::analisi(Finestra& finestra) {
    chiudi(analisi_);
    auto* form = new analysis::frmanalisi(finestra);
    analisi_ = form;
    platform::set_Tag(form, finestra.Tag());
    form->show();
    form->iniz();
}

void DialoghiQt::migliora(Finestra& finestra) {
    if (!finestra.sessione.completo()) {
        finestra.mostra_esito("Si dispone meglio un cruciverba completo: mancano dei numeri");
        return;
    }
    chiudi(migliora_);
    // An analysis that stood there would be one of the old layout.
    chiudi(analisi_);
    auto* form = new analysis::frmmigliora(finestra, &finestra);
    migliora_ = form;
    form->show();
}

void DialoghiQt::tabelle(Finestra& finestra) {
    chiudi(tabelle_);
    auto* form = new analysis::frmtabelle(finestra);
    tabelle_ = form;
    form->show();
}

void DialoghiQt::informazioni(Finestra& finestra) {
    help::frmAbout(finestra).exec();
}

void DialoghiQt::guida(Finestra& /*finestra*/) {
    help::apri_guida();
}

void DialoghiQt::sito(Finestra& /*finestra*/) {
    help::apri_sito();
}

/// The windows that stand over the main form.
void DialoghiQt::chiudi_sopra() {
    for (QPointer<QWidget>* finestra :
         {&gestore_, &importo_, &sviluppo_, &stampa_, &migliora_, &tabelle_, &analisi_}) {
        chiudi(*finestra);
    }
}

void DialoghiQt::chiudi_tutti() {
    chiudi_sopra();
    // Unloaded rather than closed, which would bring back the main form.
    delete spoglio_;
}

}  // namespace app
