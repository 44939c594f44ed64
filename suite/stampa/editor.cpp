#include "stampa/editor.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QRegularExpressionValidator>
#include <QScrollArea>
#include <QVBoxLayout>

#include "platform/disk.h"
#include "platform/file_nuovo.h"
#include "platform/qt/annuncio.h"
#include "platform/qt/desktop.h"
#include "platform/qt/disposizione.h"
#include "platform/qt/folder.h"
#include "platform/qt/printer_qt.h"
#include "platform/qt/scala.h"
#include "stampa/anteprima.h"
#include "stampa/lavoro.h"
#include "stampa/tavolo.h"
#include "systems/elenco.h"

namespace schedine {

using platform::q;
using platform::s;

namespace {

constexpr QSize misura(960, 700);
constexpr std::size_t angoli_voluti = 4;
constexpr int larghezza_campi = 380;

/// What each field of two numbers is called on the screen, and its halves.
struct Etichette {
    const char* nome;
    const char* primo;
    const char* secondo;
};
constexpr std::array<Etichette, campi_posto.size()> etichette{{
    {"Foglio", "largo", "alto"},
    {"Casella dell'1", "da sinistra", "dall'alto"},
    {"Passo delle caselle", "a destra", "in giù"},
    {"Caselle", "per riga", "per colonna"},
    {"Segno", "largo", "alto"},
    {"Correzione", "a destra", "in giù"},
    {"Scala (10000 = 1)", "a destra", "in giù"},
}};
constexpr std::array nomi_angoli = {"in alto a sinistra", "in alto a destra", "in basso a destra",
                                    "in basso a sinistra"};

template <typename T, std::size_t n>
platform::ComboBox* scelta(const QString& nome, const QString& scopo,
                           const std::array<Parola<T>, n>& parole, QWidget* padre) {
    platform::ComboBox* c = platform::elenco(nome, scopo, {}, padre);
    c->setFixedHeight(24);
    for (const auto& p : parole) c->AddItem(q(std::string(p.nome)));
    return c;
}

}  // namespace

Editor::Editor(std::string radice, const QString& nome, QWidget* padre)
    : QDialog(padre), radice_(std::move(radice)), nome_(nome) {
    setObjectName("Modulo");
    setWindowTitle(nome.isEmpty() ? "Nuovo modulo" : "Modulo " + nome);
    auto* riga = new QHBoxLayout(this);
    riga->setContentsMargins(12, 12, 12, 12);
    riga->setSpacing(12);
    riga->addWidget(crea_campi());
    riga->addWidget(crea_tavolo(), 1);
    resize(misura.boundedTo(padre != nullptr ? platform::posto_a_100(padre).size() : misura));
    platform::rendi_scalabile(this);
    txtnome->setText(nome);
    Modulo letto;
    std::optional<Difetto> difetto;
    if (!nome.isEmpty()) difetto = leggi_modulo(file_modulo(radice_, s(nome)), letto);
    if (!difetto) modulo_ = letto;
    registrato_ = modulo_;
    // Of a file with a fault the fields show what was read before it.
    mostra(letto);
    leggi();
    if (difetto) {
        lblguida->setText("Il file ha un difetto: " + q(difetto->testo()) +
                          ". Salvandolo si riscrive con le misure che vedete.");
    }
}

QWidget* Editor::crea_campi() {
    auto* lato = new QWidget(this);
    lato->setFixedWidth(larghezza_campi);
    auto* colonna = new QVBoxLayout(lato);
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(6);
    auto* griglia = new QGridLayout;
    griglia->setHorizontalSpacing(6);
    griglia->setVerticalSpacing(4);
    int riga = 0;
    const auto aggiungi = [&](const QString& nome, QWidget* campo) {
        auto* dice = new QLabel(nome, lato);
        dice->setBuddy(campo);
        griglia->addWidget(dice, riga, 0);
        griglia->addWidget(campo, riga++, 1, 1, 2);
    };
    txtnome = new QLineEdit(lato);
    txtnome->setObjectName("txtnome");
    txtnome->setAccessibleName("Nome del modulo");
    txtnome->setMaxLength(60);
    aggiungi("&Nome", txtnome);
    cmbgioco = scelta("cmbgioco", "Gioco", parole_gioco, lato);
    aggiungi("&Gioco", cmbgioco);
    cmbingresso =
        scelta("cmbingresso", "Lato che entra per primo nella stampante", parole_ingresso, lato);
    aggiungi("&Entra per prima", cmbingresso);
    cmbordine = scelta("cmbordine", "Ordine dei numeri", parole_ordine, lato);
    aggiungi("&Ordine dei numeri", cmbordine);
    cmbforma = scelta("cmbforma", "Forma del segno", parole_forma, lato);
    aggiungi("&Forma del segno", cmbforma);
    auto* decimi = new QLabel("Misure in decimi di millimetro", lato);
    decimi->setProperty("titolo", true);
    griglia->addWidget(decimi, riga++, 0, 1, 3);
    for (std::size_t i = 0; i < campi_posto.size(); ++i) {
        griglia->addWidget(new QLabel(QString(etichette[i].nome) + ": " + etichette[i].primo +
                                          ", " + etichette[i].secondo,
                                      lato),
                           riga, 0);
        for (std::size_t k = 0; k < 2; ++k) {
            const QString quale = k == 0 ? etichette[i].primo : etichette[i].secondo;
            auto* t = new QLineEdit(lato);
            t->setObjectName(q(std::string(campi_posto[i].nome)) + (k == 0 ? "_x" : "_y"));
            t->setAccessibleName(QString(etichette[i].nome) + ", " + quale);
            t->setToolTip(quale);
            t->setAlignment(Qt::AlignRight);
            t->setFixedHeight(24);
            t->setValidator(new QRegularExpressionValidator(QRegularExpression("-?[0-9]{0,5}"), t));
            connect(t, &QLineEdit::textChanged, this, &Editor::leggi);
            txtcampo[i][k] = t;
            griglia->addWidget(t, riga, 1 + static_cast<int>(k));
        }
        ++riga;
    }
    colonna->addLayout(griglia);
    auto* posti = new QLabel("&Pannelli, ruote e poste", lato);
    posti->setProperty("titolo", true);
    txtposti = new QPlainTextEdit(lato);
    txtposti->setObjectName("txtposti");
    txtposti->setAccessibleName("Pannelli, ruote e poste, uno per riga");
    txtposti->setToolTip("pannello = destra, giù\nruota = Bari, x, y\nposta = centesimi, x, y");
    txtposti->setTabChangesFocus(true);
    txtposti->setMinimumHeight(70);
    posti->setBuddy(txtposti);
    colonna->addWidget(posti);
    colonna->addWidget(txtposti, 1);
    lbldifetto = new QLabel(lato);
    lbldifetto->setObjectName("lbldifetto");
    platform::rendi_annuncio(lbldifetto);
    lbldifetto->setTextFormat(Qt::PlainText);
    lbldifetto->setWordWrap(true);
    lbldifetto->setMinimumHeight(32);
    colonna->addWidget(lbldifetto);
    colonna->addLayout(crea_comandi());
    connect(txtposti, &QPlainTextEdit::textChanged, this, &Editor::leggi);
    for (platform::ComboBox* c : {cmbgioco, cmbingresso, cmbordine, cmbforma})
        connect(c, &platform::ComboBox::Click, this, &Editor::leggi);
    return lato;
}

QLayout* Editor::crea_comandi() {
    cmdprova = platform::pulsante_in_fila("cmdprova", "Pagina &di prova", this);
    cmdprova->setToolTip(
        "Stampa una croce su ogni casella e un righello, da guardare in "
        "controluce sulla schedina");
    cmdsalva = platform::pulsante_in_fila("cmdsalva", "&Salva", this);
    cmdsalva->setDefault(true);
    cmdchiudi = platform::pulsante_in_fila("cmdchiudi", "&Chiudi", this);
    auto* riga = new QHBoxLayout;
    riga->setSpacing(6);
    riga->addWidget(cmdprova, 1);
    riga->addWidget(cmdsalva);
    riga->addWidget(cmdchiudi);
    connect(cmdprova, &QPushButton::clicked, this, &Editor::stampa_prova);
    connect(cmdsalva, &QPushButton::clicked, this, &Editor::salva);
    connect(cmdchiudi, &QPushButton::clicked, this, &Editor::reject);
    return riga;
}

QWidget* Editor::crea_tavolo() {
    auto* lato = new QWidget(this);
    auto* colonna = new QVBoxLayout(lato);
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(8);
    cmdimmagine = platform::pulsante_in_fila("cmdimmagine", "&Immagine…", lato);
    cmdimmagine->setToolTip("Una scansione o una foto della schedina, rifilata ai suoi bordi");
    cmdangoli = platform::pulsante_in_fila("cmdangoli", "&Quattro angoli", lato);
    cmdpannello = platform::pulsante_in_fila("cmdpannello", "&Aggiungi un pannello", lato);
    auto* meno = platform::pulsante_in_fila("cmdmeno", "−", lato);
    auto* piu = platform::pulsante_in_fila("cmdpiu", "+", lato);
    meno->setAccessibleName("Rimpicciolisci");
    piu->setAccessibleName("Ingrandisci");
    auto* sopra = new QHBoxLayout;
    sopra->setSpacing(6);
    for (QPushButton* b : {cmdimmagine, cmdangoli, cmdpannello}) sopra->addWidget(b);
    sopra->addStretch();
    for (QPushButton* b : {meno, piu}) {
        b->setFixedWidth(40);
        b->setFont(carattere_segni());
        sopra->addWidget(b);
    }
    colonna->addLayout(sopra);
    lblguida = new QLabel(lato);
    lblguida->setObjectName("lblguida");
    lblguida->setWordWrap(true);
    lblguida->setMinimumHeight(32);
    colonna->addWidget(lblguida);
    auto* scorre = new QScrollArea(lato);
    scorre->setObjectName("scorre");
    scorre->setAccessibleName("La schedina, da scorrere");
    scorre->setFrameShape(QFrame::NoFrame);
    scorre->setAlignment(Qt::AlignCenter);
    tavolo = new Tavolo(scorre);
    scorre->setWidget(tavolo);
    scorre->viewport()->setAutoFillBackground(false);
    scorre->setCornerWidget(new QWidget(scorre));
    tavolo->setAutoFillBackground(false);
    tavolo->setProperty(platform::Scala::rotella_sua, true);
    colonna->addWidget(scorre, 1);
    tavolo->al_clic = [this](Punto p) { clic(p); };
    connect(cmdimmagine, &QPushButton::clicked, this, &Editor::scegli_immagine);
    connect(cmdangoli, &QPushButton::clicked, this, &Editor::inizia_angoli);
    connect(cmdpannello, &QPushButton::clicked, this, &Editor::inizia_pannello);
    connect(meno, &QPushButton::clicked, this, [this] { tavolo->ingrandisci(-1); });
    connect(piu, &QPushButton::clicked, this, [this] { tavolo->ingrandisci(1); });
    return lato;
}

void Editor::gioco(bool lotto) {
    cmbgioco->set_ListIndex(lotto ? 1 : 0);
    registrato_ = modulo_;
}

void Editor::mostra(const Modulo& m) {
    mostrando_ = true;
    cmbgioco->set_ListIndex(m.lotto ? 1 : 0);
    cmbingresso->set_ListIndex(static_cast<int>(m.ingresso));
    cmbordine->set_ListIndex(static_cast<int>(m.ordine));
    cmbforma->set_ListIndex(static_cast<int>(m.forma));
    for (std::size_t i = 0; i < campi_posto.size(); ++i) {
        const Posto& p = m.*campi_posto[i].dove;
        txtcampo[i][0]->setText(QString::number(p.x));
        txtcampo[i][1]->setText(QString::number(p.y));
    }
    // The rest in the words of the file itself.
    QStringList righe;
    for (const QString& riga : q(testo_modulo(m)).split("\r\n")) {
        if (riga.startsWith("pannello") || riga.startsWith("ruota") || riga.startsWith("posta"))
            righe << riga;
    }
    txtposti->setPlainText(righe.join('\n'));
    mostrando_ = false;
}

std::string Editor::testo() const {
    QStringList righe;
    righe << "gioco = " + cmbgioco->Text() << "ingresso = " + cmbingresso->Text()
          << "ordine = " + cmbordine->Text();
    for (std::size_t i = 0; i < campi_posto.size(); ++i) {
        const QString nome = q(std::string(campi_posto[i].nome));
        const QString prima = nome == "segno" ? cmbforma->Text() + ", " : QString();
        righe << nome + " = " + prima + txtcampo[i][0]->text() + ", " + txtcampo[i][1]->text();
    }
    righe << txtposti->toPlainText().split('\n');
    return s(righe.join('\n'));
}

void Editor::leggi() {
    if (mostrando_) return;
    Modulo letto;
    const auto difetto = interpreta(testo(), letto);
    in_ordine_ = !difetto;
    if (in_ordine_) {
        modulo_ = letto;
        tavolo->mostra(modulo_);
        platform::annuncia(lbldifetto, "Le misure sono in ordine.");
    } else {
        // Only the lines of the list below are the player's own.
        constexpr std::int64_t righe_prima = 3 + static_cast<std::int64_t>(campi_posto.size());
        Difetto d = *difetto;
        d.riga = std::max(std::int64_t{0}, d.riga - righe_prima);
        platform::annuncia(lbldifetto, q(d.testo()));
    }
    cmdsalva->setEnabled(in_ordine_);
    cmdprova->setEnabled(in_ordine_);
    mostra_guida();
}

void Editor::scegli_immagine() {
    const QStringList file =
        platform::scegli_file(this, "Immagine della schedina", {},
                              "Immagini (*.png *.jpg *.jpeg *.bmp *.gif *.webp *.tif *.tiff)");
    if (file.isEmpty()) return;
    if (!tavolo->immagine(file.first())) {
        messaggio("Questo file non è un'immagine che si possa leggere:\n" +
                  platform::da_mostrare(file.first()));
    }
}

void Editor::inizia_angoli() {
    attesa_ = Attesa::angoli;
    angoli_.clear();
    tavolo->punti({});
    mostra_guida();
}

void Editor::inizia_pannello() {
    attesa_ = Attesa::pannello;
    tavolo->punti({});
    mostra_guida();
}

void Editor::mostra_guida() {
    if (attesa_ == Attesa::angoli) {
        lblguida->setText(QString("Primo pannello: fate clic al centro della casella ") +
                          nomi_angoli[angoli_.size()] + ".");
    } else if (attesa_ == Attesa::pannello) {
        lblguida->setText(
            "Nuovo pannello: fate clic al centro della sua casella in alto a sinistra.");
    } else {
        lblguida->setText(
            "In rosso la casella dell'1. Mettete l'immagine della schedina, poi segnate "
            "i quattro angoli del primo pannello.");
    }
}

void Editor::clic(Punto punto) {
    if (attesa_ == Attesa::angoli) {
        angoli_.push_back(punto);
        tavolo->punti(angoli_);
        if (angoli_.size() == angoli_voluti) {
            attesa_ = Attesa::nulla;
            Modulo m = modulo_;
            griglia_da_angoli(m, angoli_);
            mostra(m);
            leggi();
        }
    } else if (attesa_ == Attesa::pannello) {
        attesa_ = Attesa::nulla;
        const int x = qRound(punto.x) - modulo_.origine.x;
        const int y = qRound(punto.y) - modulo_.origine.y;
        txtposti->appendPlainText("pannello = " + QString::number(x) + ", " + QString::number(y));
    }
    mostra_guida();
}

void Editor::stampa_prova() {
    constexpr double decimi = 10;
    const Punto foglio = foglio_stampato(modulo_);
    const bool carta = platform::esiste_stampante();
    QString file;
    if (!carta) {
        file = platform::scegli_nuovo_file(this, "Pagina di prova in PDF", "prova-schedina.pdf",
                                           "PDF (*.pdf)");
        if (file.isEmpty()) return;
    }
    platform::PrinterQt printer("Pagina di prova", file, platform::Uscita::carta_o_file,
                                {foglio.x / decimi, foglio.y / decimi, true});
    disegna_prova(printer, modulo_);
    const bool riuscita = printer.EndDoc();
    const platform::EsitoStampa& esito = printer.esito();
    const QString dove =
        carta ? "Stampante «" + esito.stampante + "»" : platform::da_mostrare(esito.file);
    messaggio(riuscita ? "La pagina di prova è stata stampata.\n\n" + dove
                       : "La pagina di prova non è stata stampata.\n\n" + dove + "\n" +
                             esito.motivo + ".");
}

void Editor::salva() {
    const std::string nome = s(txtnome->text().trimmed());
    if (!systems::nome_ammesso(nome) || nome.front() == '.') {
        messaggio("Date un nome al modulo.");
        txtnome->setFocus();
        return;
    }
    const std::string file = file_modulo(radice_, nome);
    if (q(nome) != nome_ && platform::esiste_file(file) &&
        platform::MsgBox(this, {"Il modulo «" + q(nome) + "» c'è già. Si sostituisce?",
                                platform::Pulsanti::si_no, "Stampa"}) != platform::vbYes) {
        return;
    }
    platform::crea_cartella(radice_ + std::string(cartella_moduli));
    const auto esito = platform::sostituisci(file, testo_modulo(modulo_));
    if (esito != platform::Esito::ok) {
        messaggio("Il modulo non è stato salvato.\n\n" + platform::da_mostrare(q(file)) + "\n" +
                  q(platform::perche_non_si_scrive(file, esito)) + ".");
        return;
    }
    salvato_ = q(nome);
    registrato_ = modulo_;
    accept();
}

void Editor::reject() {
    const bool cambiato = !in_ordine_ || modulo_ != registrato_;
    if (cambiato &&
        platform::MsgBox(this, {"Il modulo non è salvato. Si chiude lo stesso?",
                                platform::Pulsanti::si_no, "Stampa"}) != platform::vbYes) {
        return;
    }
    QDialog::reject();
}

int Editor::messaggio(const QString& testo) {
    return platform::MsgBox(
        this, {testo, platform::Pulsanti::ok, "Stampa", platform::Icona::informazione});
}

}  // namespace schedine
