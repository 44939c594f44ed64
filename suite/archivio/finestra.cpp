#include "finestra.h"

#include <QCloseEvent>
#include <QDir>
#include <QDragEnterEvent>
#include <QFontDatabase>
#include <QMimeData>
#include <QStyle>
#include <QUrl>
#include <QVBoxLayout>

#include "importa.h"
#include "platform/qt/annuncio.h"
#include "platform/qt/desktop.h"
#include "platform/qt/folder.h"
#include "platform/qt/scala.h"
#include "statistics/stato_archivio.h"

namespace importazione {

using platform::q;
using platform::s;

namespace {

constexpr int larghezza = 632;
constexpr int altezza = 420;
constexpr int margine = 12;

QStringList locali(const QMimeData* dati) {
    QStringList file;
    for (const QUrl& url : dati->urls()) {
        if (url.isLocalFile()) file << url.toLocalFile();
    }
    return file;
}

QString quali(const std::string& gioco) {
    if (gioco == statistics::chiave_lotto) return "del Lotto";
    if (gioco == statistics::chiave_superenalotto) return "del SuperEnalotto";
    return "del Lotto o del SuperEnalotto";
}

void accoda(QStringList& righe, const char* titolo, const std::vector<Nota>& note,
            std::int64_t quante) {
    if (note.empty()) return;
    righe << QString() << QString::fromUtf8(titolo);
    for (const Nota& nota : note) righe << q(nota.in_riga());
    const std::int64_t altre = quante - static_cast<std::int64_t>(note.size());
    if (altre > 0) righe << QStringLiteral("… e altre %1").arg(altre);
}

}  // namespace

Finestra::Finestra(std::string archivio, const std::string& gioco)
    : archivio_(std::move(archivio)) {
    setObjectName("Archivio");
    setWindowTitle("Tabellino - Archivio delle estrazioni");
    setAcceptDrops(true);
    setFixedSize(larghezza, altezza);
    const int largo = larghezza - 2 * margine;
    auto* titolo = new QLabel("Nell'archivio", this);
    titolo->setProperty("titolo", true);
    titolo->setGeometry(margine, 8, largo, 20);
    lblstato = new QLabel(this);
    lblstato->setObjectName("lblstato");
    platform::rendi_annuncio(lblstato);
    lblstato->setGeometry(margine, 30, largo, 84);
    lblstato->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblstato->setWordWrap(true);
    lbltrascina = new QLabel(
        "Trascinate qui i file delle estrazioni\n"
        "lo storico " +
            quali(gioco) + ", anche in ZIP",
        this);
    lbltrascina->setObjectName("lbltrascina");
    lbltrascina->setProperty("trascina", true);
    lbltrascina->setAlignment(Qt::AlignCenter);
    lbltrascina->setGeometry(margine, 120, largo, 62);
    cmdscegli = new QPushButton("&Scegli i file...", this);
    cmdscegli->setObjectName("cmdscegli");
    cmdscegli->setGeometry(margine, 190, 130, 28);
    chksostituisci = new QCheckBox("Sos&tituisci le estrazioni diverse da quelle presenti", this);
    chksostituisci->setObjectName("chksostituisci");
    chksostituisci->setGeometry(margine + 144, 190, largo - 144, 28);
    ProgressBar1 = new QProgressBar(this);
    ProgressBar1->setObjectName("ProgressBar1");
    ProgressBar1->setAccessibleName("Avanzamento");
    ProgressBar1->setTextVisible(false);
    ProgressBar1->setGeometry(margine, 224, largo, 10);
    ProgressBar1->hide();
    txtrapporto = new QPlainTextEdit(this);
    txtrapporto->setObjectName("txtrapporto");
    txtrapporto->setAccessibleName("Rapporto dell'importazione");
    txtrapporto->setReadOnly(true);
    txtrapporto->setGeometry(margine, 240, largo, 136);
    // A label, since the box's own hint is too pale to read.
    auto* invito = new QLabel(
        "Il rapporto dell'importazione apparirà qui.\nQuali file si leggono lo dice "
        "la guida, alla pagina «L'archivio delle estrazioni».",
        txtrapporto->viewport());
    invito->setObjectName("lblinvito");
    invito->setProperty("invito", true);
    invito->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* in_alto = new QVBoxLayout(txtrapporto->viewport());
    in_alto->setContentsMargins(5, 3, 5, 3);
    in_alto->addWidget(invito, 0, Qt::AlignTop);
    connect(txtrapporto, &QPlainTextEdit::textChanged, invito,
            [this, invito] { invito->setVisible(txtrapporto->document()->isEmpty()); });
    cmdchiudi = new QPushButton("&Chiudi", this);
    cmdchiudi->setObjectName("cmdchiudi");
    cmdchiudi->setGeometry(larghezza - margine - 100, 384, 100, 28);
    for (QPushButton* b : {cmdscegli, cmdchiudi}) b->setAutoDefault(false);
    connect(cmdscegli, &QPushButton::clicked, this, [this] {
        importa_file(platform::scegli_file(this, "File delle estrazioni", QDir::homePath(),
                                           "Estrazioni (*.csv *.tsv *.txt *.zip)"));
    });
    connect(cmdchiudi, &QPushButton::clicked, this, &QWidget::close);
    using platform::Scala;
    platform::ancora({titolo, lblstato, lbltrascina, chksostituisci, ProgressBar1},
                     Scala::allarga | Scala::sta_in_alto);
    platform::ancora({cmdscegli}, Scala::sta_a_sinistra | Scala::sta_in_alto);
    platform::ancora({txtrapporto}, Scala::allarga | Scala::alza);
    platform::ancora({cmdchiudi}, Scala::segue_destra | Scala::segue_fondo);
    platform::rendi_scalabile(this);
    mostra_stato();
}

void Finestra::mostra_stato() {
    Contenuto c;
    const int errore = carica(archivio_, c);
    if (errore == platform::errore_file_assente) {
        lblstato->setText("L'archivio non c'è ancora: la prima importazione lo crea.");
        return;
    }
    if (errore != 0) {
        lblstato->setText("L'archivio non si legge: " +
                          q(std::string(platform::Err{errore}.Description())));
        return;
    }
    QStringList righe;
    for (const std::string& riga : stato(c)) righe << q(riga);
    lblstato->setText(righe.join('\n'));
}

void Finestra::importa_file(const QStringList& file) {
    if (platform::LavoroLungo::in_corso() || file.isEmpty()) return;
    const platform::LavoroLungo lavoro;
    const platform::Clessidra attesa;
    ProgressBar1->setRange(0, static_cast<int>(file.size()));
    ProgressBar1->setValue(0);
    ProgressBar1->show();
    std::vector<std::string> nomi;
    for (const QString& nome : file) nomi.push_back(s(nome));
    const Rapporto r = importa(archivio_, nomi, chksostituisci->isChecked(),
                               [this](std::size_t fatti, std::size_t /*tutti*/) {
                                   ProgressBar1->setValue(static_cast<int>(fatti));
                                   platform::DoEvents();
                               });
    QStringList righe;
    for (const std::string& riga : in_righe(r)) righe << q(riga);
    // Of many files the last words alone, which say whether anything was written.
    constexpr qsizetype da_dire = 3;
    const QString detto = righe.mid(qMax<qsizetype>(0, righe.size() - da_dire)).join(" ");
    accoda(righe, "Errori", r.errori, 0);
    accoda(righe, "Estrazioni diverse da quelle presenti", r.differenze, r.diverse());
    accoda(righe, "Righe rifiutate", r.rifiuti, r.rifiutate());
    txtrapporto->setPlainText(righe.join('\n'));
    mostra_stato();
    platform::di(lblstato, detto);
    ProgressBar1->hide();
}

void Finestra::evidenzia(bool sopra) {
    lbltrascina->setProperty("sopra", sopra);
    lbltrascina->style()->unpolish(lbltrascina);
    lbltrascina->style()->polish(lbltrascina);
}

void Finestra::dragEnterEvent(QDragEnterEvent* evento) {
    if (platform::LavoroLungo::in_corso() || locali(evento->mimeData()).isEmpty()) return;
    evidenzia(true);
    evento->acceptProposedAction();
}

void Finestra::dragLeaveEvent(QDragLeaveEvent* /*evento*/) {
    evidenzia(false);
}

void Finestra::dropEvent(QDropEvent* evento) {
    evidenzia(false);
    evento->acceptProposedAction();
    importa_file(locali(evento->mimeData()));
}

void Finestra::closeEvent(QCloseEvent* evento) {
    // An import lasts moments and ends whole.
    if (platform::LavoroLungo::in_corso()) {
        evento->ignore();
        return;
    }
    QDialog::closeEvent(evento);
}

void Finestra::reject() {
    if (!platform::LavoroLungo::in_corso()) QDialog::reject();
}

}  // namespace importazione
