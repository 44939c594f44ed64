// What the main form shows of its session.
#include <QSignalBlocker>

#include "app/form1_parti.h"
#include "platform/qt/desktop.h"

namespace app {

using crossword::Elenco;
using platform::q;

namespace {

/// Fills a list with `voci` and chooses one of them, or none, as no player would: without a click.
void elenca(platform::ComboBox* combo, const QStringList& voci, int scelta) {
    bool uguali = combo->count() == voci.size();
    for (int i = 0; uguali && i < combo->count(); ++i) uguali = combo->itemText(i) == voci[i];
    if (!uguali) {
        combo->Clear();
        for (const QString& voce : voci) combo->AddItem(voce);
    }
    combo->mostra(scelta);
}

}  // namespace

void Form1::mostra(const systems::Cambiamento& cambiato) {
    if (cambiato.gioco) {
        mostra_gioco();
        parti_->archivio.aggiorna();
    }
    if (cambiato.nome) {
        platform::set_Tag(this, q(sessione.nome()));
        lblsistema->setText(q(sessione.nome()));
    }
    if (cambiato.cronologia) {
        annulla->setEnabled(sessione.annullabile());
        ripeti->setEnabled(sessione.ripetibile());
    }
    if (cambiato.dimensioni || cambiato.tipi || cambiato.celle) mostra_analisi({});
    if (cambiato.dimensioni) mostra_dimensioni();
    if (cambiato.tipi) mostra_tipi();
    if (cambiato.conteggi || cambiato.dimensioni) parti_->riepilogo.scrivi(sessione);
    if (cambiato.importo) mostra_prezzo();
    if (cambiato.celle) parti_->vista.mostra_celle();
    if (cambiato.dimensioni) parti_->vista.abilita_corrente();
    parti_->piede->aggiorna();
}

void Form1::mostra_gioco() {
    const crossword::Gioco gioco = sessione.gioco();
    const bool lotto = gioco.e_lotto();
    const auto davanti = [](platform::Image* immagine) {
        immagine->show();
        immagine->raise();
    };
    for (platform::Image* i : {lotto ? Image9 : Image7, lotto ? Image8 : Image10}) davanti(i);
    for (platform::Image* i : {lotto ? Image7 : Image9, lotto ? Image10 : Image8}) i->hide();
    Frame8->setVisible(lotto);
    if (lotto) Frame8->raise();
    Frame10->setVisible(lotto);
    // A damaged system file can name a form that does not exist: then none is chosen.
    if (gioco.valido()) setWindowTitle(q(gioco.titolo()));
    if (!lotto) return;
    platform::set_Tag(Frame9, QString::number(gioco.forma()));
    for (std::size_t i = 0; i < Imageb.size(); ++i) {
        const bool scelta = gioco.forma() == static_cast<int>(i) + 3;
        Imagey[i]->setVisible(scelta);
        Imageb[i]->setVisible(!scelta);
    }
}

void Form1::mostra_dimensioni() {
    const int c = sessione.colonne();
    const int r = sessione.righe();
    QStringList lati;
    for (int i = sessione.gioco().lato_minimo(); i <= crossword::Gioco::lato_massimo; ++i) {
        lati << QString::number(i);
    }
    elenca(Combo1, lati, c - sessione.gioco().lato_minimo());
    elenca(Combo2, lati, r - sessione.gioco().lato_minimo());
    parti_->vista.mostra_dimensioni();
    Combo5->setEnabled(c == r);
}

void Form1::mostra_tipi() {
    const std::array<platform::ComboBox*, 3> liste = {Combo3, Combo4, Combo5};
    for (std::size_t i = 0; i < liste.size(); ++i) {
        const auto quale = static_cast<Elenco>(i + 1);
        QStringList voci;
        for (const std::string& tipo : sessione.tipi(quale)) voci << q(tipo);
        elenca(liste[i], voci, sessione.tipo(quale));
    }
}

void Form1::mostra_analisi(const QString& testo) {
    parti_->piede->mostra_analisi(testo);
}

void Form1::mostra_esito(const QString& testo) {
    parti_->piede->mostra_esito(testo);
}

void Form1::cella_riepilogo(int riga, int colonna) {
    MSFlexGrid2->cella(riga, colonna);
}

void Form1::mostra_prezzo() {
    const systems::Prezzo& prezzo = sessione.prezzo();
    lblimportotot->setText(q(prezzo.totale));
    lblquote->setText(q(prezzo.quota));
    lblnumquote->setText(q(prezzo.quote));
    for (QLabel* valuta : lblvaluta) valuta->setText(q(prezzo.valuta));
    const QSignalBlocker fermo(UpDown2);
    UpDown2->setValue(lblnumquote->text().toInt());
}

void Form1::mostra_opzioni() {
    mnuEconomiche->setChecked(sessione.con_economiche());
    mnuRipetizioniCon->setChecked(sessione.con_ripetizioni());
    mnuRipetizioniSenza->setChecked(!sessione.con_ripetizioni());
}

}  // namespace app
