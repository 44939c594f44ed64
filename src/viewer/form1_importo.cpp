// Price labels of the main form.
#include "app/form1.h"
#include "platform/application.h"
#include "platform/desktop.h"
#include "viewer/importo.h"

namespace app {

using platform::App;

void Form1::importo() {
    const viewer::Importo letto = viewer::leggi_cst(App().Path, viewer::Lettore::importo);
    for (QLabel* valuta : lblvaluta) valuta->setText(letto.valuta == "Lire" ? "Lire" : "Euro");
}

QString Form1::calcolo_importo(std::int32_t columns) {
    const viewer::Importo letto = viewer::leggi_cst(App().Path, viewer::Lettore::calcolo_importo);
    const viewer::Totale totale =
        viewer::calcola_totale(columns, letto.prezzo, platform::s(lblnumquote->text()));
    if (totale.quota) lblquote->setText(platform::q(*totale.quota));
    lblimportotot->setText(platform::q(totale.semplice));
    return platform::q(totale.formattato);
}

void Form1::UpDown2_Change() {
    lblnumquote->setText(QString::number(UpDown2->value()));
    const auto quota = viewer::quota_da_testo(platform::s(lblimportotot->text()),
                                              platform::s(lblnumquote->text()));
    if (quota) lblquote->setText(platform::q(*quota));
}

}  // namespace app
