// The pop-up menu of the manager: rename, duplicate, delete, import, send.
#include <QShortcut>

#include "app/finestra.h"
#include "platform/application.h"
#include "platform/qt/desktop.h"
#include "platform/qt/folder.h"
#include "platform/qt/listview.h"
#include "systems/form2.h"

namespace systems {

using platform::App;
using platform::DoEvents;
using platform::Icona;
using platform::ListView;
using platform::MsgBox;
using platform::Pulsanti;
using platform::q;
using platform::s;

namespace {

QString cartella_programma() {
    return q(App().Path) + "/";
}

QString con_barra(const QString& cartella) {
    return cartella.endsWith('/') ? cartella : cartella + "/";
}

/// Keeps the text of a label edit until its editor is gone: a box that takes the focus from a
/// living editor would end the same edit twice.
class ModificaNome : public platform::CelleDiLista {
public:
    using CelleDiLista::CelleDiLista;
    void setModelData(QWidget* editor, QAbstractItemModel* /*modello*/,
                      const QModelIndex& indice) const override {
        posto_ = indice;
        testo_ = editor->property("text").toString();
    }
    /// Where the edit that just ended was, invalid when it was given up.
    QModelIndex prendi(QString& testo) {
        const QModelIndex posto = posto_;
        posto_ = QPersistentModelIndex();
        testo = testo_;
        return posto;
    }

private:
    mutable QPersistentModelIndex posto_;
    mutable QString testo_;
};

}  // namespace

void Form2::collega_operazioni() {
    ListView1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    auto* modifica = new ModificaNome(ListView1);
    ListView1->setItemDelegateForColumn(0, modifica);
    // Connected after the view, which must have put the editor away first.
    connect(modifica, &QAbstractItemDelegate::closeEditor, this, [this, modifica] {
        QString nuovo;
        const QModelIndex posto = modifica->prendi(nuovo);
        if (posto.isValid()) {
            ListView1_AfterLabelEdit(ListView1->topLevelItem(posto.row()), nuovo);
        }
    });
    // An editor opened while the menu closes would lose the focus, and so end, at once.
    connect(mnurinomina, &QAction::triggered, this, &Form2::mnurinomina_Click,
            Qt::QueuedConnection);
    // Only where systems are managed: elsewhere the list is for choosing.
    const auto tasto = [this](Qt::Key quale, QAction* azione) {
        auto* scorciatoia = new QShortcut(quale, ListView1);
        scorciatoia->setContext(Qt::WidgetShortcut);
        connect(scorciatoia, &QShortcut::activated, this, [this, azione] {
            if (!PicUtility->isVisible()) return;
            ListView1->scegli_incorniciata();
            if (ListView1->selezionata() != nullptr) azione->trigger();
        });
    };
    tasto(Qt::Key_F2, mnurinomina);
    tasto(Qt::Key_Delete, mnuelimina);
    connect(mnuduplica, &QAction::triggered, this, &Form2::mnuduplica_Click);
    connect(mnuelimina, &QAction::triggered, this, &Form2::mnuelimina_Click);
    connect(mnueliminatutti, &QAction::triggered, this, &Form2::mnueliminatutti_Click);
    connect(mnuimporta, &QAction::triggered, this, &Form2::mnuimporta_Click);
    // Ends by replacing this form, which must not happen while its own menu is still at work.
    connect(mnuinvia, &QAction::triggered, this, &Form2::mnuinvia_Click, Qt::QueuedConnection);
    connect(cmddup_conferma, &QPushButton::clicked, this, &Form2::cmddup_conferma_Click);
    connect(cmddup_annulla, &QPushButton::clicked, this, &Form2::cmddup_annulla_Click);
    connect(cmdimporta, &QPushButton::clicked, this, &Form2::cmdimporta_Click);
}

int Form2::chiedi(const QString& domanda) {
    return MsgBox(this, {domanda, Pulsanti::si_no, "Tabellino"});
}

void Form2::avverti(const QString& testo, Icona icona) {
    MsgBox(this, {testo, Pulsanti::ok, "Tabellino", icona});
}

void Form2::racconta(Operazione operazione, const QString& nome, const Passi& passi,
                     const QString& dove) {
    finestra_.mostra_esito(
        q(esito_detto(operazione, s(nome), passi, s(platform::da_mostrare(dove)))));
}

Coppia Form2::coppia(const QString& cartella, const QString& nome) const {
    return {s(cartella), s(nome), finestra_.sessione.gioco()};
}

QString Form2::nome_scelto() const {
    return ListView::tag_voce(ListView1->selezionata());
}

void Form2::mostra_avanti(platform::Frame* gruppo, QPushButton* predefinito) {
    for (QPushButton* b : findChildren<QPushButton*>()) {
        if (b->isDefault()) predefinito_ = b;
    }
    gruppo->show();
    gruppo->raise();
    predefinito->setDefault(true);
}

void Form2::mostra_avviso() {
    picduplica->show();
    picduplica->raise();
    frmduplica->show();
    frmduplica->raise();
    DoEvents();
    repaint();
}

void Form2::nascondi_duplica() {
    picduplica->hide();
    frmduplica->hide();
    ListView1->setEnabled(true);
    cmddup_conferma->setDefault(false);
    if (predefinito_ != nullptr) predefinito_->setDefault(true);
}

// Rename.

void Form2::mnurinomina_Click() {
    QTreeWidgetItem* voce = ListView1->selezionata();
    if (voce == nullptr) return;
    voce->setText(0, ListView::tag_voce(voce));
    voce->setFlags(voce->flags() | Qt::ItemIsEditable);
    ListView1->setFocus();
    ListView1->editItem(voce, 0);
}

void Form2::ListView1_AfterLabelEdit(QTreeWidgetItem* voce, const QString& nuovo) {
    const QString vecchio = ListView::tag_voce(voce);
    voce->setText(0, vecchio);
    if (nuovo.isEmpty()) return;
    if (!nome_valido(s(nuovo))) {
        avverti(
            "Impossibile rinominare. Sono stati utilizzati dei caratteri non validi.\n"
            "Utilizzare solo lettere e cifre. Gli spazi non sono ammessi.");
        return;
    }
    const QString cartella = platform::Tag(this);
    if (platform::esiste_file(coppia(cartella, nuovo).sviluppo())) {
        avverti("Impossibile rinominare. Esiste già un sistema con questo nome.");
        trova_sistemi(cartella_programma());
        return;
    }
    voce->setText(0, nuovo);
    voce->setToolTip(0, nuovo);
    ListView::set_tag_voce(voce, nuovo);
    const Passi passi = rinomina(coppia(cartella, vecchio), s(nuovo));
    finestra_.rivedi_sviluppo();
    racconta(Operazione::rinominato, vecchio, passi, nuovo);
}

// Duplicate.

void Form2::mnuduplica_Click() {
    mostra_avanti(picduplica, cmddup_conferma);
    ListView1->setEnabled(false);
    txtduplica->setFocus();
}

void Form2::cmddup_annulla_Click() {
    nascondi_duplica();
    txtduplica->clear();
}

void Form2::cmddup_conferma_Click() {
    const QString nuovo = txtduplica->text();
    if (nuovo.isEmpty()) {
        avverti("Inserire il nome da dare al sistema!");
        txtduplica->setFocus();
        return;
    }
    const QTreeWidgetItem* scelta = ListView1->selezionata();
    if (scelta != nullptr && nuovo == scelta->text(0)) {
        avverti("Impossibile copiare un sistema con il proprio nome!");
        txtduplica->setFocus();
        return;
    }
    const QString cartella = platform::Tag(this);
    const Coppia origine = coppia(cartella, nome_scelto());
    const Coppia arrivo = coppia(cartella, nuovo);
    auto vecchia = Vecchia::ceduta;
    // The question comes for a file without extension only: another system gives way unasked.
    if (!controllo_sistemi_esistenti(App().Path, s(nuovo))) {
        if (chiedi("Esiste già un sistema con questo nome. Sovrascrivere?") != platform::vbYes) {
            txtduplica->clear();
            return;
        }
        vecchia = Vecchia::tolta;
    }
    mostra_avviso();
    const Passi passi = duplica(
        origine, arrivo, [] { DoEvents(); }, vecchia);
    finestra_.rivedi_sviluppo();
    racconta(Operazione::copiato, q(origine.nome), passi, nuovo);
    const platform::FinestraFerma ferma(this);
    trova_sistemi(cartella_programma());
    nascondi_duplica();
    DoEvents();
}

// Delete.

void Form2::mnuelimina_Click() {
    if (chiedi("Il sistema scelto sarà eliminato. Confermi?") != platform::vbYes) return;
    const Passi passi = elimina(coppia(cartella_programma(), nome_scelto()));
    finestra_.rivedi_sviluppo();
    racconta(Operazione::eliminato, nome_scelto(), passi);
    trova_sistemi(cartella_programma());
}

void Form2::mnueliminatutti_Click() {
    if (chiedi("Questa operazione eliminerà tutti i sistemi in archivio. Confermi?") !=
        platform::vbYes) {
        return;
    }
    const platform::Clessidra attesa;
    QStringList rimasti;
    for (const std::string& nome : elimina_tutti(App().Path, finestra_.sessione.gioco())) {
        rimasti << q(nome);
    }
    finestra_.rivedi_sviluppo();
    finestra_.mostra_esito(rimasti.isEmpty()
                               ? "I sistemi della lista sono stati eliminati"
                               : "Non si sono potuti eliminare: " + rimasti.join(", "));
    trova_sistemi(cartella_programma());
}

// Import.

void Form2::mnuimporta_Click() {
    const QString scelta =
        platform::scegli_cartella(this,
                                  "Selezionare la cartella in cui si trova il sistema "
                                  "che si vuole importare e cliccare su OK",
                                  cartella_programma());
    if (scelta.isEmpty()) return;
    const platform::FinestraFerma ferma(this);
    ListView1->svuota();
    // A second choice of a folder must not take the first one for the library.
    if (platform::Tag(cmdimporta).isEmpty()) platform::set_Tag(cmdimporta, platform::Tag(this));
    platform::set_Tag(this, con_barra(scelta));
    trova_sistemi(platform::Tag(this));
    mostra_avanti(picimporta, cmdimporta);
    DoEvents();
}

void Form2::cmdimporta_Click() {
    const QString nome = nome_scelto();
    const Coppia arrivo = coppia(platform::Tag(cmdimporta), nome);
    const Coppia origine = coppia(platform::Tag(this), nome);
    if (nome.isEmpty()) return;
    auto vecchia = Vecchia::ceduta;
    if (platform::esiste_file(arrivo.sistema())) {
        if (chiedi(domanda_importa) != platform::vbYes) {
            txtduplica->clear();
            return;
        }
        vecchia = Vecchia::tolta;
    }
    mostra_avviso();
    const platform::FinestraFerma ferma(this);
    const Passi passi = importa(origine, arrivo, vecchia);
    finestra_.rivedi_sviluppo();
    racconta(Operazione::importato, nome, passi);
    // From here on this form may be gone: the new manager takes its place.
    app::Finestra& finestra = finestra_;
    close();
    finestra.mnuapri_Click();
    DoEvents();
}

// Send.

void Form2::mnuinvia_Click() {
    const QString scelta = platform::scegli_cartella(
        this, "Selezionare il percorso di destinazione e cliccare su OK", cartella_programma());
    if (scelta.isEmpty()) return;
    const QString destinazione = con_barra(scelta);
    platform::Clessidra attesa;
    DoEvents();
    const QString nome = nome_scelto();
    // Left on by both early ends.
    if (nome.isEmpty()) return attesa.resta();
    const Coppia origine = coppia(platform::Tag(this), nome);
    const Coppia arrivo = coppia(destinazione, nome);
    auto vecchia = Vecchia::ceduta;
    if (platform::esiste_file(arrivo.sistema())) {
        if (chiedi("Esiste già un sistema con questo nome. Sovrascrivere?") != platform::vbYes) {
            return attesa.resta();
        }
        vecchia = Vecchia::tolta;
    }
    mostra_avviso();
    const Passi passi = invia(origine, arrivo, vecchia);
    finestra_.rivedi_sviluppo();
    racconta(Operazione::inviato, nome, passi, destinazione);
    if (passi.disco_pieno()) {
        avverti("Spazio insufficente. Impossibile portare a termine l'operazione.",
                Icona::informazione);
    }
    // From here on this form may be gone: the new manager takes its place.
    app::Finestra& finestra = finestra_;
    close();
    finestra.mnugest_sist_Click();
    DoEvents();
}

}  // namespace systems
