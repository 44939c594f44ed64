// The draws on the check form: opening the archive, lists, number boxes.
#include <algorithm>

#include <QMouseEvent>

#include "app/finestra.h"
#include "check/estrazioni.h"
#include "check/frmspoglio.h"
#include "crossword/griglia.h"
#include "platform/application.h"
#include "platform/qt/desktop.h"
#include "statistics/avviso_archivio.h"

namespace check {

using platform::q;
using platform::s;

platform::Err frmspoglio::apri_tabelle() {
    statistics::Archivio& archivio = finestra_.sessione.archivio;
    const std::string file = archivio_di(platform::App().Path);
    const auto trovata = statistics::impronta_archivio(file);
    platform::Err esito = platform::OpenDatabase(file, false, false, archivio.database);
    if (esito.ok()) {
        esito = archivio.database.OpenRecordset(gioco_.e_lotto() ? "archivio" : "archivios",
                                                archivio.draws);
    }
    if (esito.ok()) esito = archivio.draws.Index("concorso");
    if (esito.ok()) {
        esito = archivio.database.OpenRecordset(statistics::query_ruota(statistics::nazionale),
                                                archivio.national);
    }
    const platform::Field campo_1 = archivio.campo_1;
    if (esito.ok()) esito = archivio.lega(gioco_.e_lotto() ? 7 : 9);
    // The wheel stands in one of the two tables only.
    if (!gioco_.e_lotto()) archivio.campo_1 = campo_1;
    if (esito.ok()) archivio.aperta = trovata;
    return esito;
}

void frmspoglio::apridatabase() {
    if (const platform::Err esito = apri_tabelle(); !esito.ok()) {
        statistics::errore_archivio(&finestra_, esito, "Tabellino");
        return;
    }
    elenca_estrazioni();
    (gioco_.e_lotto() ? Combo3 : Combo1)->set_ListIndex(0);
}

void frmspoglio::elenca_estrazioni() {
    statistics::Archivio& archivio = finestra_.sessione.archivio;
    platform::ComboBox* elenco = gioco_.e_lotto() ? Combo3 : Combo1;
    voci_ = gioco_.e_lotto() ? elenco_lotto(archivio.draws, archivio.national)
                             : elenco_superenalotto(archivio.draws);
    QStringList testi;
    for (const std::string& voce : voci_) testi.append(q(voce));
    elenco->Clear();
    elenco->addItems(testi);
}

bool frmspoglio::appena_aperta() const {
    const auto digitata = [](const QLineEdit* casella) { return casella->isModified(); };
    const platform::ComboBox* elenco = gioco_.e_lotto() ? Combo3 : Combo1;
    return elenco->ListIndex() <= 0 && Cmdspoglio->isEnabled() &&
           std::none_of(txtnum.begin(), txtnum.end(), digitata) &&
           std::none_of(txtnumlotto.begin(), txtnumlotto.end(), digitata);
}

void frmspoglio::rivedi_estrazioni() {
    if (occupato_) return;
    platform::ComboBox* elenco = gioco_.e_lotto() ? Combo3 : Combo1;
    const bool intatta = appena_aperta();
    const QString scelta = elenco->Text();
    if (!apri_tabelle().ok()) return;
    elenca_estrazioni();
    const int posto = elenco->findText(scelta);
    if (intatta || posto < 0) {
        elenco->set_ListIndex(0);
    } else {
        elenco->mostra(posto);
    }
}

void frmspoglio::Combo1_Click() {
    Command1_Click();
    platform::Recordset& draws = finestra_.sessione.archivio.draws;
    draws.Index("concorso");
    draws.Seek("=", concorso_di(s(Combo1->Text())));
    comb_se8();
    if (txtnum[1]->isVisible()) txtnum[1]->setFocus();
}

void frmspoglio::comb_se8() {
    finestra_.sessione.archivio.campi_estratti = {};
    std::array<std::string, 7> testi;
    for (std::size_t i = 0; i < testi.size(); ++i) testi[i] = s(txtnum[i]->text());
    leggi_combinazione(finestra_.sessione.archivio.draws, testi);
    for (std::size_t i = 0; i < testi.size(); ++i) txtnum[i]->setText(q(testi[i]));
}

void frmspoglio::Combo3_Click() {
    const std::string voce = s(Combo3->Text());
    statistics::Archivio& archivio = finestra_.sessione.archivio;
    platform::Recordset estrazione = archivio.draws;
    if (nazionale(voce)) {
        // A draw that is missing leaves nothing in the boxes, not the numbers of another one.
        for (QLineEdit* casella : txtnumlotto) casella->clear();
        estrazione = {};
        const platform::Err esito = archivio.database.OpenRecordset(
            statistics::query_nazionale(concorso_di(voce)), archivio.national);
        if (esito.ok()) estrazione = archivio.national;
    } else {
        trova_ruota(archivio.draws, concorso_di(voce), ruota_di(voce));
    }
    for (std::size_t i = 0; i < txtnumlotto.size(); ++i) {
        const auto testo = estrazione.Fields(static_cast<int>(i) + 2).Value().testo();
        if (testo) txtnumlotto[i]->setText(q(*testo));
    }
    if (txtnumlotto[0]->isVisible()) txtnumlotto[0]->setFocus();
}

void frmspoglio::casella_piena(QLineEdit* casella, QWidget* prossima) {
    if (isVisible() && casella->text().size() == 2) prossima->setFocus();
}

bool frmspoglio::eventFilter(QObject* oggetto, QEvent* evento) {
    if (oggetto == Frame4 && evento->type() == QEvent::Resize && MSFlexGrid1->Rows() > 0) {
        crossword::adatta_griglia(MSFlexGrid1);
        centra_cruciverba();
    }
    auto* casella = qobject_cast<QLineEdit*>(oggetto);
    if (casella == nullptr) return QDialog::eventFilter(oggetto, evento);
    if (evento->type() == QEvent::FocusIn) {
        casella->selectAll();
        const bool dal_mouse = static_cast<QFocusEvent*>(evento)->reason() == Qt::MouseFocusReason;
        entrata_ = dal_mouse ? casella : nullptr;
    }
    if (evento->type() == QEvent::MouseButtonRelease && entrata_ == casella) {
        // The press that brought the focus has put the cursor and undone the selection.
        if (!casella->hasSelectedText()) casella->selectAll();
        entrata_ = nullptr;
    }
    return QDialog::eventFilter(oggetto, evento);
}

}  // namespace check
