#include "systems/form2.h"

#include <QShowEvent>

#include "app/finestra.h"
#include "platform/application.h"
#include "platform/disk.h"
#include "platform/qt/desktop.h"
#include "platform/runtime.h"
#include "systems/elenco.h"
#include "systems/file_sistema.h"

namespace systems {

using platform::App;
using platform::DoEvents;
using platform::MsgBox;
using platform::Pulsanti;
using platform::q;

namespace {

constexpr int colonna_dimensione = 1;
constexpr int colonna_data = 2;

QString cartella_programma() {
    return q(App().Path) + "/";
}

}  // namespace

void Form2::Form_Load() {
    platform::set_Tag(this, cartella_programma());
    ListView1->add_colonna(tr("Nome del sistema"), 1600, Qt::AlignLeft);
    ListView1->add_colonna(
        finestra_.sessione.gioco().e_lotto() ? tr("Sviluppo in") : tr("Dimensione"), 1500,
        Qt::AlignHCenter);
    TabStrip1->seleziona(finestra_.sessione.gioco().e_lotto() ? 2 : 1);
    ListView1->add_colonna(tr("Data"), 1500, Qt::AlignHCenter);
    trova_sistemi(cartella_programma());
}

void Form2::trova_sistemi(const QString& cartella) {
    ListView1->svuota();
    numero_sistemi_ = 0;
    for (const Voce& voce :
         systems::trova_sistemi(platform::s(cartella), App().Path, finestra_.sessione.gioco())) {
        QTreeWidgetItem* nuova =
            ListView1->add_voce({q(voce.nome), q(voce.dimensione), q(voce.data)});
        nuova->setToolTip(0, q(voce.nome));
        ++numero_sistemi_;
    }
    ListView1->riordina();
    // From nine systems on the scroll bar needs the room.
    ListView1->set_larghezza(colonna_data, numero_sistemi_ < 9 ? 1500 : 1250);
    platform::set_Tag(ListView1, QString::number(numero_sistemi_));
}

void Form2::ListView1_ColumnClick(int colonna) {
    const bool discendente = ordine_[colonna] == "ASC";
    ListView1->ordina(colonna, discendente ? Qt::DescendingOrder : Qt::AscendingOrder);
    ordine_[colonna] = discendente ? "DESC" : "ASC";
}

void Form2::TabStrip1_Click(int Index) {
    const auto gioco = Index == 1 ? crossword::Gioco::superenalotto() : crossword::Gioco::lotto();
    if (!finestra_.offre(gioco) || finestra_.in_elaborazione()) return;
    ListView1->set_titolo(colonna_dimensione, Index == 1 ? tr("Dimensione") : tr("Sistemi in"));
    ListView1->svuota();
    if (Index == 1) {
        finestra_.Image8_Click();
    } else {
        finestra_.Image10_Click();
    }
    trova_sistemi(cartella_programma());
}

void Form2::ListView1_Click() {
    QTreeWidgetItem* scelta = ListView1->selezionata();
    if (Frame2->isVisible() && scelta != nullptr) {
        platform::ListView::set_tag_voce(scelta, scelta->text(0));
    }
}

bool Form2::sovrascrittura_negata(const QString& nome) {
    const std::string cercato = platform::LCase(platform::s(nome));
    for (int i = 0; i < ListView1->topLevelItemCount(); ++i) {
        const QString testo = ListView1->topLevelItem(i)->text(0);
        if (testo.isEmpty()) return false;
        if (platform::LCase(platform::s(testo)) != cercato) continue;
        if (MsgBox(this, {"Esiste già un sistema con questo nome. Sovrascrivere?", Pulsanti::si_no,
                          "Tabellino"}) != platform::vbYes) {
            return true;
        }
        // The old development goes first: it must never stand beside another crossword.
        finestra_.sessione.libera(platform::s(nome));
        finestra_.rivedi_sviluppo();
        return false;
    }
    return false;
}

void Form2::cmdsalva_Click() {
    const QString nome = Text1->text();
    if (nome.isEmpty()) {
        MsgBox(this, {"Inserire il nome del sistema.", Pulsanti::ok, "Tabellino",
                      platform::Icona::informazione});
        Text1->setFocus();
        return;
    }
    if (!nome_ammesso(platform::s(nome)) || sovrascrittura_negata(nome)) return;
    const Salvataggio esito = finestra_.sessione.salva_come(platform::s(nome));
    finestra_.cella_riepilogo(3, 1);
    finestra_.mostra_esito(q(esito_detto(esito)));
    close();
}

void Form2::Command5_Click() {
    if (platform::Val(platform::s(platform::Tag(ListView1))) == 0) return;
    const QString nome = platform::ListView::tag_voce(ListView1->selezionata());
    if (nome.isEmpty() || !nome_ammesso(platform::s(nome)) || finestra_.in_elaborazione()) return;
    finestra_.sessione.apri(platform::s(nome));
    // From here on this form is gone.
    app::Finestra& finestra = finestra_;
    close();
    finestra.sviluppo_valido();
}

void Form2::esci_congelando() {
    hide();
    DoEvents();
    const platform::FinestraFerma ferma(&finestra_);
    close();
    DoEvents();
}

void Form2::modo_salva() {
    mostra(pic_salva);
    TabStrip1->rimuovi_scheda(finestra_.sessione.gioco().e_lotto() ? 1 : 2);
    cmdsalva->setDefault(true);
    setTabOrder(cmdeffacer1, TabStrip1);
    setTabOrder(TabStrip1, ListView1);
    Text1->setFocus();
}

void Form2::modo_apri() {
    setWindowTitle("Tabellino");
    mostra(Frame2);
    Command5->setDefault(true);
    ListView1->setFocus();
}

void Form2::modo_utility() {
    setWindowTitle("Utility");
    mostra(PicUtility);
    ListView1->setFocus();
}

void Form2::mostra(platform::Frame* gruppo) {
    for (platform::Frame* f : {Frame2, PicUtility, pic_salva, picimporta, picduplica}) {
        f->setVisible(f == gruppo);
    }
    gruppo->raise();
}

void Form2::showEvent(QShowEvent* evento) {
    QDialog::showEvent(evento);
    if (!evento->spontaneous()) platform::centra(this, &finestra_);
}

}  // namespace systems
