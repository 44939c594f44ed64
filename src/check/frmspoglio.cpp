#include "check/frmspoglio.h"

#include <optional>

#include <QCloseEvent>

#include "app/finestra.h"
#include "check/estrazioni.h"
#include "platform/application.h"
#include "platform/qt/annuncio.h"
#include "platform/qt/desktop.h"
#include "platform/qt/scala.h"
#include "platform/runtime.h"
#include "systems/elenco.h"
#include "systems/file_sistema.h"

namespace check {

using platform::App;
using platform::s;

namespace {

constexpr int larghezza_lista = 4980;
constexpr int larghezza_con_barra = 5225;
// More rows than these bring up the scroll bar.
constexpr std::size_t righe_senza_barra = 12;

std::int32_t numero(const QLabel* etichetta) {
    return platform::CLng(platform::Val(s(etichetta->text()))).value_or(0);
}

}  // namespace

/// While one lives the form is disabled, and asked to close it waits.
class frmspoglio::Occupato {
public:
    explicit Occupato(frmspoglio& form) : form_(form), fuoco_(form.focusWidget()) {
        form_.occupato_ = true;
        form_.setEnabled(false);
    }
    ~Occupato() {
        form_.setEnabled(true);
        form_.occupato_ = false;
        attesa_.reset();
        form_.ridai_fuoco(fuoco_);
        if (form_.chiusura_chiesta_) form_.close();
    }
    Occupato(const Occupato&) = delete;
    Occupato& operator=(const Occupato&) = delete;

    /// Who has the keyboard afterwards.
    void poi(QWidget* chi) { fuoco_ = chi; }

private:
    std::optional<platform::Clessidra> attesa_{std::in_place};
    frmspoglio& form_;
    QWidget* fuoco_;
};

void frmspoglio::iniz() {
    const std::string nome = s(platform::Tag(this));
    std::int32_t conteggio = 0;
    if (systems::nome_ammesso(nome)) {
        platform::assegna(conteggio, systems::leggi_conteggio(App().Path, nome, gioco_));
    }
    lblnumconb->setText(QString::number(conteggio));
    lblnomesistema->setText(platform::Tag(this));
    ListView1->add_colonna("x1", "punti", 0, Qt::AlignLeft);
    ListView1->add_colonna("x2", "N. Bulletin", 1500, Qt::AlignHCenter);
    ListView1->add_colonna("x3", "Points", 1000, Qt::AlignHCenter);
    for (int i = 1; i <= 6; ++i) {
        ListView1->add_colonna("x" + QString::number(3 + i), QString::number(i) + "°", 400,
                               Qt::AlignHCenter);
    }
}

void frmspoglio::Cmdspoglio_Click() {
    const Occupato occupato(*this);
    picprog2->resize(0, picprog2->height());
    picprog1->show();
    if (gioco_.e_lotto()) {
        controllo_nvincenti_lotto();
    } else {
        controllo_nvincenti();
    }
    if (platform::Tag(Cmdspoglio) == "no") {
        platform::set_Tag(Cmdspoglio, QString());
    } else {
        Cmdspoglio->setEnabled(false);
    }
}

RichiestaSpoglio frmspoglio::richiesta() const {
    RichiestaSpoglio r;
    const std::string nome = s(platform::Tag(this));
    if (systems::nome_ammesso(nome)) {
        r.file = App().file(nome + gioco_.estensione_sviluppo());
    }
    r.combinazioni = numero(lblnumconb);
    r.gioco = gioco_;
    return r;
}

bool frmspoglio::conta(std::span<QLineEdit* const> caselle) {
    spoglio_ = Spoglio();
    std::vector<std::string> testi;
    for (const QLineEdit* casella : caselle) testi.push_back(s(casella->text()));
    const auto vincente = leggi_vincenti(testi);
    if (!vincente) {
        platform::MsgBox(this, {"Inserire tutti i numeri della combinazione vincente.",
                                platform::Pulsanti::ok, "Tabellino"});
        platform::set_Tag(Cmdspoglio, "no");
        return false;
    }
    colora(caselle);
    RichiestaSpoglio r = richiesta();
    r.vincente = *vincente;
    const platform::LavoroLungo lavoro;
    spoglio_.conta(r, [&](std::int32_t fatte) {
        if (r.gioco.e_lotto()) {
            mostra_totali_lotto();
        } else {
            mostra_totali();
        }
        return avanza(fatte, r.combinazioni);
    });
    lblvinc[0]->setText(QString::number(spoglio_.vincenti()));
    picprog1->hide();
    platform::set_Tag(Cmdspoglio, QString());
    di_esito();
    return true;
}

/// Told to those who do not see the counts change.
void frmspoglio::di_esito() {
    QStringList esito;
    const auto aggiungi = [&esito](const QLabel* categoria) {
        if (categoria->isVisible() && !categoria->text().isEmpty()) {
            esito << categoria->accessibleName() + ": " + categoria->text();
        }
    };
    aggiungi(lblvinc[0]);
    aggiungi(lblvinc[6]);
    aggiungi(lblvinc_j[5]);
    for (std::size_t p = 5; p > 0; --p) aggiungi(lblvinc[p]);
    aggiungi(lblvinc[7]);
    for (std::size_t p = lblvinclotto.size(); p > 0; --p) aggiungi(lblvinclotto[p - 1]);
    platform::di_a_cose_fatte(lblvinc[0], esito.join(". "));
}

void frmspoglio::controllo_nvincenti() {
    if (conta(txtnum) && spoglio_.vincenti() > 0) Cmdvincenti->setEnabled(true);
}

void frmspoglio::controllo_nvincenti_lotto() {
    if (conta(txtnumlotto) && spoglio_.vincenti() > 0) Cmdvincentilotto->setEnabled(true);
}

void frmspoglio::mostra_totali() {
    for (int p = 0; p <= 6; ++p) {
        // The category of no points has its label in the last place; place 0 is the total.
        QLabel* etichetta = lblvinc[static_cast<std::size_t>(p == 0 ? 7 : p)];
        if (const int quante = spoglio_.totale(p); quante > 0) {
            etichetta->setText(QString::number(quante));
        }
    }
    if (const int quante = spoglio_.totale_jolly(5); quante > 0) {
        lblvinc_j[5]->setText(QString::number(quante));
    }
}

void frmspoglio::mostra_totali_lotto() {
    for (int p = 2; p <= 5; ++p) {
        if (const int quante = spoglio_.totale(p); quante > 0) {
            lblvinclotto[static_cast<std::size_t>(p - 2)]->setText(QString::number(quante));
        }
    }
}

bool frmspoglio::avanza(std::int32_t fatte, std::int32_t tutte) {
    const qint64 intera = platform::posto_a_100(picprog1).width();
    const qint64 largo = tutte > 0 ? intera * fatte / tutte : 0;
    picprog2->resize(static_cast<int>(largo), picprog2->height());
    platform::DoEvents();
    return !chiusura_chiesta_;
}

void frmspoglio::colora(std::span<QLineEdit* const> caselle) {
    const platform::FinestraFerma ferma(this);
    MSFlexGrid1->hide();
    for (int x = 0; x < MSFlexGrid1->Cols(); ++x) {
        for (int y = 0; y < MSFlexGrid1->Rows(); ++y) {
            const double cella = platform::Val(s(MSFlexGrid1->testo(y, x)));
            for (std::size_t k = 0; k < caselle.size(); ++k) {
                if (cella != platform::Val(s(caselle[k]->text()))) continue;
                const bool jolly = k == 0 && !gioco_.e_lotto();
                MSFlexGrid1->set_sfondo(y, x, platform::colore(jolly ? 255 : 65535));
            }
        }
    }
    MSFlexGrid1->show();
    platform::DoEvents();
}

void frmspoglio::colore_griglia() {
    const platform::FinestraFerma ferma(this);
    MSFlexGrid1->hide();
    for (int x = 0; x < MSFlexGrid1->Cols(); ++x) {
        for (int y = 0; y < MSFlexGrid1->Rows(); ++y) {
            MSFlexGrid1->set_sfondo(y, x, platform::colore(0xFFFFFF));
        }
    }
    MSFlexGrid1->show();
}

void frmspoglio::Cmdvincenti_Click() {
    costruisci_elenco(&frmspoglio::dettaglio_nvincenti);
}

void frmspoglio::Cmdvincentilotto_Click() {
    costruisci_elenco(&frmspoglio::dettaglio_nvincenti_lotto);
}

void frmspoglio::costruisci_elenco(void (frmspoglio::*dettaglio)()) {
    Occupato occupato(*this);
    {
        const platform::FinestraFerma ferma(this);
        piclist->show();
        ListView1->hide();
        if (spoglio_.quante() > righe_senza_barra) ListView1->set_Width(larghezza_con_barra);
        picprog2->resize(0, picprog2->height());
        picprog1->show();
        platform::DoEvents();
    }
    (this->*dettaglio)();
    Frame4->hide();
    // In Lotto too: its own button stays, and adds the rows once more.
    Cmdvincenti->setEnabled(false);
    ListView1->setFocusPolicy(Qt::StrongFocus);
    ListView1->show();
    piclist->hide();
    picprog1->hide();
    // The arrows run through what was asked for, and a second Return does nothing.
    occupato.poi(ListView1);
}

void frmspoglio::dettaglio_nvincenti() {
    elenca();
}

void frmspoglio::dettaglio_nvincenti_lotto() {
    elenca();
}

void frmspoglio::elenca() {
    const platform::LavoroLungo lavoro;
    const auto tutte = static_cast<std::int32_t>(spoglio_.quante());
    dettaglio_.aggiungi(richiesta(), spoglio_, Combo2->ListIndex() + 1,
                        [&](std::int32_t fatte) { return avanza(fatte, tutte); });
    ListView1->aggiorna();
}

void frmspoglio::ordina(QPushButton* pulsante, int colonna) {
    const bool crescente = platform::Tag(pulsante) != "ASC";
    dettaglio_.ordina(colonna, crescente ? Verso::crescente : Verso::decrescente);
    platform::set_Tag(pulsante, crescente ? "ASC" : "DESC");
    ListView1->aggiorna();
}

void frmspoglio::Command1_Click() {
    const platform::Clessidra attesa;
    platform::DoEvents();
    const platform::FinestraFerma ferma(this);
    for (QLabel* etichetta : lblvinc) etichetta->clear();
    lblvinc_j[5]->clear();
    for (QLineEdit* casella : txtnum) casella->clear();
    for (QLabel* etichetta : lblvinclotto) etichetta->clear();
    for (QLineEdit* casella : txtnumlotto) casella->clear();
    Frame4->show();
    Cmdvincenti->setEnabled(false);
    Cmdvincentilotto->setEnabled(false);
    dettaglio_.svuota();
    ListView1->aggiorna();
    ListView1->set_Width(larghezza_lista);
    // The crossword covers it, so no key may lead there.
    ListView1->setFocusPolicy(Qt::NoFocus);
    spoglio_.cancella();
    Cmdspoglio->setEnabled(true);
    colore_griglia();
    platform::DoEvents();
}

void frmspoglio::ridai_fuoco(QWidget* prima) {
    if (!isVisible() || prima == nullptr) return;
    QWidget* dopo = prima;
    // A button that its own click disabled hands the focus on to the next control.
    while (!dopo->isEnabled() || !dopo->isVisible() || (dopo->focusPolicy() & Qt::TabFocus) == 0) {
        dopo = dopo->nextInFocusChain();
        if (dopo == prima) return;
    }
    dopo->setFocus();
}

void frmspoglio::closeEvent(QCloseEvent* evento) {
    if (occupato_) {
        // The job ends at its next pending-events point and closes the form itself.
        chiusura_chiesta_ = true;
        evento->ignore();
        return;
    }
    evento->accept();
    // Before this form goes, so that there is never a moment without any window.
    platform::mostra_di_nuovo(&finestra_);
}

}  // namespace check
