#include "viewer/frmcerca.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QVBoxLayout>

#include "platform/qt/annuncio.h"
#include "platform/qt/desktop.h"
#include "platform/qt/disposizione.h"
#include "platform/qt/scala.h"
#include "viewer/form3.h"
#include "viewer/ricerca.h"

namespace viewer {

/// Four bytes a combination; its numbers are read when they are shown.
class frmcerca::Trovate : public platform::Righe {
public:
    explicit Trovate(const Form3& visore) : visore_(visore) {}
    [[nodiscard]] int quante() const override { return static_cast<int>(posti.size()); }
    [[nodiscard]] QString testo(int riga, int colonna) const override {
        const std::int32_t n = posti[static_cast<std::size_t>(riga)];
        return colonna == 0 ? QString::number(n) : visore_.combinazione(n);
    }
    std::vector<std::int32_t> posti;

private:
    const Form3& visore_;
};

frmcerca::frmcerca(Form3& visore)
    : QDialog(&visore), visore_(visore), trovate_(std::make_unique<Trovate>(visore)) {
    constexpr int margine = 8;
    setObjectName("frmcerca");
    setWindowTitle("Cerca nello sviluppo");
    setAttribute(Qt::WA_DeleteOnClose);
    auto* sotto = new QVBoxLayout(this);
    sotto->setContentsMargins(margine, margine, margine, margine);
    sotto->setSpacing(margine);
    auto* prima = new QHBoxLayout;
    prima->addWidget(platform::scritta(tr("Numeri"), "titolo", this));
    txtnumeri = new QLineEdit(this);
    txtnumeri->setObjectName("txtnumeri");
    txtnumeri->setAccessibleName(tr("Numeri da cercare"));
    txtnumeri->setMinimumSize(200, 26);
    txtnumeri->installEventFilter(this);
    prima->addWidget(txtnumeri, 1);
    sotto->addLayout(prima);
    lbltrovate = platform::scritta(invito_, "invito", this);
    lbltrovate->setObjectName("lbltrovate");
    lbltrovate->setWordWrap(true);
    platform::rendi_annuncio(lbltrovate);
    sotto->addWidget(lbltrovate);
    elenco = new platform::ListaVirtuale(*trovate_, this);
    elenco->setObjectName("elenco");
    elenco->setAccessibleName(tr("Combinazioni trovate"));
    elenco->setProperty("elenco", true);
    elenco->setAlternatingRowColors(true);
    elenco->add_colonna("x1", tr("Numero"), 1300, Qt::AlignHCenter);
    elenco->add_colonna("x2", tr("Combinazione"), 3200, Qt::AlignHCenter);
    elenco->horizontalHeader()->setStretchLastSection(true);
    elenco->setMinimumSize(320, 260);
    sotto->addWidget(elenco, 1);
    auto* fila = new QHBoxLayout;
    fila->addStretch(1);
    CmdEsci = platform::pulsante_in_fila("CmdEsci", tr("Esci"), this, 96);
    fila->addWidget(CmdEsci);
    sotto->addLayout(fila);
    connect(txtnumeri, &QLineEdit::textChanged, this, &frmcerca::cerca);
    connect(CmdEsci, &QPushButton::clicked, this, &QDialog::close);
    connect(elenco->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &frmcerca::mostra_scelta);
    resize(sizeHint());
    setMinimumSize(size());
    platform::rendi_scalabile(this);
    txtnumeri->setFocus();
}

frmcerca::~frmcerca() {
    // The list reads the rows, so it goes before them.
    delete elenco;
}

void frmcerca::cerca() {
    const auto cercati = leggi_cercati(platform::s(txtnumeri->text()));
    trovate_->posti = cercati ? visore_.cerca(*cercati) : std::vector<std::int32_t>();
    if (!cercati) {
        platform::annuncia(lbltrovate, tr("I numeri vanno da 1 a 90"));
    } else if (cercati->none()) {
        platform::annuncia(lbltrovate, invito_);
    } else {
        platform::annuncia(lbltrovate, platform::q(trovate(trovate_->posti.size(), *cercati)));
    }
    elenco->aggiorna();
}

void frmcerca::mostra_scelta() {
    const int riga = elenco->currentIndex().row();
    if (riga < 0 || riga >= trovate_->quante()) return;
    visore_.mostra_combinazione(trovate_->posti[static_cast<std::size_t>(riga)]);
}

bool frmcerca::eventFilter(QObject* oggetto, QEvent* evento) {
    if (oggetto != txtnumeri || evento->type() != QEvent::KeyPress) {
        return QDialog::eventFilter(oggetto, evento);
    }
    const int tasto = static_cast<QKeyEvent*>(evento)->key();
    const bool invio = tasto == Qt::Key_Return || tasto == Qt::Key_Enter;
    if (!invio && tasto != Qt::Key_Down) return QDialog::eventFilter(oggetto, evento);
    // From the numbers straight into what was found.
    if (trovate_->quante() > 0) {
        elenco->setFocus();
        elenco->selectRow(0);
    }
    return true;
}

}  // namespace viewer
