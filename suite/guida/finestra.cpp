#include "finestra.h"

#include <algorithm>

#include <QHBoxLayout>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QTextBlock>
#include <QTextDocument>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "pagine.h"

namespace guida {

namespace {

constexpr int corpo = 14;
constexpr int ingrandimento_massimo = 14;
constexpr int ingrandimento_minimo = -4;
constexpr int larghezza_righe = 780;
/// Pictures are taken at one and a half times their size and shown a little smaller than life.
constexpr double densita_figure = 1.7;
/// On paper they fit between the margins.
constexpr double densita_carta = 2.0;
constexpr double corpo_carta = 10;
constexpr int tinta_invito = 190;
const QColor colore_luogo("#FFFF00");
const QColor colore_luogo_scelto("#FFB84D");

QUrl indirizzo(const QString& pagina) {
    return QUrl("qrc:/guida/" + pagina + ".html");
}

QString pagina_di(const QUrl& url) {
    return url.fileName().section('.', 0, 0);
}

/// Box whose hint is readable: of the ink that a style sheet gives it, the hint gets but half.
class CampoRicerca : public QLineEdit {
protected:
    void changeEvent(QEvent* evento) override {
        QLineEdit::changeEvent(evento);
        QPalette colori = palette();
        QColor inchiostro = colori.color(QPalette::PlaceholderText);
        if (inchiostro.alpha() >= tinta_invito) return;
        inchiostro.setAlpha(tinta_invito);
        colori.setColor(QPalette::PlaceholderText, inchiostro);
        setPalette(colori);
    }
};

}  // namespace

QString stile_pagine() {
    return R"(
h1 { color: #000080; font-size: x-large; margin-top: 6px; margin-bottom: 10px; }
h2 { color: #000080; font-size: large; margin-top: 20px; margin-bottom: 6px; }
h3 { color: #000080; font-size: medium; margin-top: 16px; margin-bottom: 4px; }
p { line-height: 135%; margin-top: 6px; margin-bottom: 6px; }
li { line-height: 135%; margin-top: 3px; margin-bottom: 3px; }
.nota { background-color: #FFF4E0; }
.figura { line-height: 100%; margin-top: 12px; margin-bottom: 4px; }
.didascalia { color: #4A5A73; margin-bottom: 10px; }
a { color: #0B3FB5; }
table { border-collapse: collapse; margin-top: 8px; margin-bottom: 8px; }
th { background-color: #000080; color: #FFFFFF; padding: 4px; text-align: left; }
td { padding: 4px; vertical-align: top; border: 1px solid #B9CBE0; }
code { font-family: "Liberation Mono"; background-color: #EEF3F9; }
)";
}

Foglio::Foglio(QWidget* padre) : QTextBrowser(padre) {
    setObjectName("foglio");
    setAccessibleName("Pagina della guida");
    setFrameShape(QFrame::NoFrame);
    // Paper is white and its ink dark in every skin.
    setStyleSheet("QTextBrowser { background: white; color: #10203A; }");
    document()->setDefaultStyleSheet(stile_pagine());
    document()->setDocumentMargin(18);
    setOpenExternalLinks(false);
    ingrandisci(0);
}

QVariant Foglio::loadResource(int tipo, const QUrl& nome) {
    if (tipo == QTextDocument::HtmlResource) return html(pagina_di(nome));
    if (tipo != QTextDocument::ImageResource) return QTextBrowser::loadResource(tipo, nome);
    QImage figura(":/guida/figure/" + nome.fileName());
    const double punti = devicePixelRatioF();
    const double largo = std::min<double>(figura.width() / densita_figure, posto_figure());
    const int pixel = qRound(largo * punti);
    // Scaled here, since the document's own scaling takes the nearest pixel.
    if (!figura.isNull() && pixel != figura.width()) {
        figura = figura.convertToFormat(QImage::Format_RGB32)
                     .scaledToWidth(pixel, Qt::SmoothTransformation);
    }
    figura.setDevicePixelRatio(punti);
    return figura;
}

void Foglio::ingrandisci(int passi) {
    ingrandimento_ = std::clamp(passi, ingrandimento_minimo, ingrandimento_massimo);
    QFont carattere = font();
    carattere.setPixelSize(corpo + ingrandimento_);
    setFont(carattere);
    document()->setDefaultFont(carattere);
}

void Foglio::resizeEvent(QResizeEvent* evento) {
    const int margine = std::max(0, (width() - larghezza_righe) / 2);
    setViewportMargins(margine, 0, margine, 0);
    QTextBrowser::resizeEvent(evento);
    adatta_figure();
}

int Foglio::posto_figure() const {
    constexpr int minimo = 100;
    return std::max(minimo, viewport()->width() - 2 * qRound(document()->documentMargin()));
}

void Foglio::adatta_figure() {
    const int posto = posto_figure();
    if (posto == posto_figure_) return;
    posto_figure_ = posto;
    for (QTextBlock b = document()->begin(); b.isValid(); b = b.next()) {
        for (auto parte = b.begin(); !parte.atEnd(); ++parte) {
            const QTextImageFormat figura = parte.fragment().charFormat().toImageFormat();
            if (!figura.isValid()) continue;
            const QUrl nome = document()->baseUrl().resolved(QUrl(figura.name()));
            document()->addResource(QTextDocument::ImageResource, nome,
                                    loadResource(QTextDocument::ImageResource, nome));
        }
    }
    document()->markContentsDirty(0, document()->characterCount());
}

Finestra::Finestra(const QString& pagina) {
    setWindowTitle("Guida");
    setObjectName("Guida");
    auto* divisore = new QSplitter(this);
    divisore->addWidget(crea_sinistra());
    divisore->addWidget(crea_destra());
    divisore->setStretchFactor(1, 1);
    divisore->setSizes({290, 790});
    divisore->setChildrenCollapsible(false);
    divisore->setHandleWidth(6);
    setCentralWidget(divisore);
    resize(QSize(1080, 760).boundedTo(screen()->availableGeometry().size() * 0.94));
    crea_indice();
    crea_scorciatoie();
    apri(pagina);
    foglio_->setFocus();
}

QWidget* Finestra::crea_sinistra() {
    auto* lato = new QWidget;
    auto* colonna = new QVBoxLayout(lato);
    colonna->setContentsMargins(10, 10, 0, 10);
    colonna->setSpacing(8);
    ricerca_ = new CampoRicerca;
    ricerca_->setObjectName("ricerca");
    ricerca_->setAccessibleName("Cerca nella guida");
    ricerca_->setPlaceholderText("Cerca nella guida");
    ricerca_->setToolTip("Cerca in tutte le pagine (Ctrl+F)");
    ricerca_->setClearButtonEnabled(true);
    ricerca_->setMinimumHeight(28);
    colonna->addWidget(ricerca_);

    esito_ = new QLabel;
    esito_->setObjectName("esito");
    esito_->setWordWrap(true);
    esito_->hide();
    colonna->addWidget(esito_);

    pila_ = new QStackedWidget;
    indice_ = new QTreeWidget;
    indice_->setObjectName("indice");
    indice_->setAccessibleName("Indice della guida");
    indice_->setHeaderHidden(true);
    indice_->setRootIsDecorated(false);
    indice_->setIndentation(14);
    pila_->addWidget(indice_);
    trovate_ = new QListWidget;
    trovate_->setObjectName("trovate");
    trovate_->setAccessibleName("Pagine trovate");
    trovate_->setWordWrap(true);
    trovate_->setSpacing(2);
    trovate_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    pila_->addWidget(trovate_);
    colonna->addWidget(pila_, 1);
    lato->setMinimumWidth(220);
    return lato;
}

QPushButton* Finestra::pulsante(const QString& nome, const QString& testo, const QString& aiuto) {
    auto* p = new QPushButton(testo);
    p->setObjectName(nome);
    p->setToolTip(aiuto);
    p->setAccessibleName(aiuto.section(" (", 0, 0));
    p->setMinimumHeight(28);
    p->setAutoDefault(false);
    return p;
}

QWidget* Finestra::crea_destra() {
    auto* lato = new QWidget;
    auto* colonna = new QVBoxLayout(lato);
    colonna->setContentsMargins(0, 10, 10, 10);
    colonna->setSpacing(8);
    auto* barra = new QHBoxLayout;
    barra->setSpacing(6);
    indietro_ = pulsante("indietro", "◄ Indietro", "Pagina letta prima (Alt+Sinistra)");
    avanti_ = pulsante("avanti", "Avanti ►", "Pagina letta dopo (Alt+Destra)");
    auto* inizio = pulsante("inizio", "Prima pagina", "Prima pagina della guida (Alt+Inizio)");
    auto* meno = pulsante("meno", "A−", "Caratteri più piccoli (Ctrl+−)");
    auto* piu = pulsante("piu", "A+", "Caratteri più grandi (Ctrl++)");
    auto* carta = pulsante("stampa", "Stampa…", "Stampa questa pagina (Ctrl+P)");
    for (QPushButton* p : {indietro_, avanti_, inizio}) barra->addWidget(p);
    barra->addStretch();
    for (QPushButton* p : {meno, piu, carta}) barra->addWidget(p);
    colonna->addLayout(barra);

    auto* cornice = new QFrame;
    cornice->setObjectName("cornice");
    cornice->setStyleSheet(
        "#cornice { background: white; border: 1px solid #B9CBE0; border-radius: 3px; }");
    auto* dentro = new QVBoxLayout(cornice);
    dentro->setContentsMargins(1, 1, 1, 1);
    foglio_ = new Foglio(cornice);
    dentro->addWidget(foglio_);
    colonna->addWidget(cornice, 1);

    connect(indietro_, &QPushButton::clicked, foglio_, &QTextBrowser::backward);
    connect(avanti_, &QPushButton::clicked, foglio_, &QTextBrowser::forward);
    connect(foglio_, &QTextBrowser::backwardAvailable, indietro_, &QWidget::setEnabled);
    connect(foglio_, &QTextBrowser::forwardAvailable, avanti_, &QWidget::setEnabled);
    connect(inizio, &QPushButton::clicked, this, [this] { apri(prima_pagina()); });
    connect(meno, &QPushButton::clicked, this,
            [this] { foglio_->ingrandisci(foglio_->ingrandimento() - 2); });
    connect(piu, &QPushButton::clicked, this,
            [this] { foglio_->ingrandisci(foglio_->ingrandimento() + 2); });
    connect(carta, &QPushButton::clicked, this, &Finestra::chiedi_stampa);
    connect(foglio_, &QTextBrowser::sourceChanged, this, &Finestra::mostra_pagina);
    indietro_->setEnabled(false);
    avanti_->setEnabled(false);
    return lato;
}

void Finestra::crea_indice() {
    for (const Capitolo& capitolo : capitoli()) {
        auto* ramo = new QTreeWidgetItem(indice_, {capitolo.titolo});
        QFont grassetto = indice_->font();
        grassetto.setBold(true);
        ramo->setFont(0, grassetto);
        for (const QString& pagina : capitolo.pagine) {
            auto* foglia = new QTreeWidgetItem(ramo, {titolo(pagina)});
            foglia->setData(0, Qt::UserRole, pagina);
        }
    }
    indice_->expandAll();
    connect(indice_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* voce) {
        const QString pagina = voce != nullptr ? voce->data(0, Qt::UserRole).toString() : "";
        if (!pagina.isEmpty()) apri(pagina);
    });
    connect(indice_, &QTreeWidget::itemActivated, foglio_, [this] { foglio_->setFocus(); });
    connect(ricerca_, &QLineEdit::textChanged, this, &Finestra::cerca);
    connect(ricerca_, &QLineEdit::returnPressed, this, [this] {
        if (trovate_->count() == 0) return;
        trovate_->setCurrentRow(0);
        trovate_->setFocus();
    });
    connect(trovate_, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* voce) {
        if (voce == nullptr) return;
        apri(voce->data(Qt::UserRole).toString());
        evidenzia(true);
    });
    connect(trovate_, &QListWidget::itemActivated, foglio_, [this] { foglio_->setFocus(); });
}

void Finestra::crea_scorciatoie() {
    const auto tasto = [this](const QKeySequence& tasti, auto fare) {
        connect(new QShortcut(tasti, this), &QShortcut::activated, this, fare);
    };
    tasto(QKeySequence::Find, [this] {
        ricerca_->setFocus();
        ricerca_->selectAll();
    });
    tasto(Qt::Key_Escape, [this] { chiudi_ricerca(); });
    tasto(Qt::Key_F3, [this] { vai_al_luogo(1); });
    tasto(Qt::SHIFT | Qt::Key_F3, [this] { vai_al_luogo(-1); });
    tasto(Qt::ALT | Qt::Key_Left, [this] { foglio_->backward(); });
    tasto(Qt::ALT | Qt::Key_Right, [this] { foglio_->forward(); });
    tasto(Qt::ALT | Qt::Key_Home, [this] { apri(prima_pagina()); });
    tasto(QKeySequence::Print, [this] { chiedi_stampa(); });
    tasto(QKeySequence::ZoomIn, [this] { foglio_->ingrandisci(foglio_->ingrandimento() + 2); });
    tasto(Qt::CTRL | Qt::Key_Equal, [this] { foglio_->ingrandisci(foglio_->ingrandimento() + 2); });
    tasto(QKeySequence::ZoomOut, [this] { foglio_->ingrandisci(foglio_->ingrandimento() - 2); });
    tasto(Qt::CTRL | Qt::Key_0, [this] { foglio_->ingrandisci(0); });
    tasto(Qt::CTRL | Qt::Key_W, [this] { close(); });
    tasto(Qt::Key_F6, [this] {
        QWidget* elenco = pila_->currentWidget();
        (elenco->hasFocus() ? static_cast<QWidget*>(foglio_) : elenco)->setFocus();
    });
}

void Finestra::apri(const QString& pagina) {
    const QString nome = pagina_o_prima(pagina);
    if (nome != pagina_) foglio_->setSource(indirizzo(nome));
}

/// The contents follow the page, by whatever way it was reached.
void Finestra::mostra_pagina(const QUrl& url) {
    pagina_ = pagina_di(url);
    for (QTreeWidgetItemIterator i(indice_); *i != nullptr; ++i) {
        if ((*i)->data(0, Qt::UserRole).toString() == pagina_) indice_->setCurrentItem(*i);
    }
    evidenzia(false);
}

void Finestra::cerca() {
    const QString cercato = ricerca_->text().trimmed();
    trovate_->clear();
    pila_->setCurrentWidget(cercato.isEmpty() ? static_cast<QWidget*>(indice_) : trovate_);
    esito_->setVisible(!cercato.isEmpty());
    const QVector<Trovata> esiti = guida::cerca(cercato);
    for (const Trovata& trovata : esiti) {
        auto* voce = new QListWidgetItem(titolo(trovata.pagina) + "\n" + trovata.brano);
        voce->setData(Qt::UserRole, trovata.pagina);
        trovate_->addItem(voce);
    }
    esito_->setText(esiti.isEmpty()     ? "Nessuna pagina contiene queste parole."
                    : esiti.size() == 1 ? QString("1 pagina trovata")
                                        : QString::number(esiti.size()) + " pagine trovate");
    evidenzia(false);
}

void Finestra::chiudi_ricerca() {
    ricerca_->clear();
    foglio_->setFocus();
}

void Finestra::evidenzia(bool vai_al_primo) {
    luoghi_ = luoghi(foglio_->document()->toPlainText(), parole(ricerca_->text()));
    luogo_ = -1;
    if (vai_al_primo) {
        vai_al_luogo(1);
        return;
    }
    vai_al_luogo(0);
}

/// Marks all hits of the page; a step other than 0 also moves to the next or previous one.
void Finestra::vai_al_luogo(int passo) {
    const int quanti = static_cast<int>(luoghi_.size());
    if (passo != 0 && quanti > 0) {
        luogo_ = luogo_ < 0 && passo < 0 ? quanti - 1 : (luogo_ + passo + quanti) % quanti;
    }
    QList<QTextEdit::ExtraSelection> segni;
    for (int i = 0; i < quanti; ++i) {
        QTextEdit::ExtraSelection segno;
        segno.cursor = QTextCursor(foglio_->document());
        segno.cursor.setPosition(luoghi_[i].first);
        segno.cursor.setPosition(luoghi_[i].first + luoghi_[i].second, QTextCursor::KeepAnchor);
        segno.format.setBackground(i == luogo_ ? colore_luogo_scelto : colore_luogo);
        segno.format.setForeground(QColor("#10203A"));
        segni.append(segno);
    }
    foglio_->setExtraSelections(segni);
    if (passo == 0 || luogo_ < 0) return;
    QTextCursor cursore(foglio_->document());
    cursore.setPosition(luoghi_[luogo_].first);
    foglio_->setTextCursor(cursore);
    foglio_->ensureCursorVisible();
}

void Finestra::stampa(QPagedPaintDevice& carta) const {
    QTextDocument documento;
    documento.setDefaultStyleSheet(stile_pagine());
    // In points, since a pixel of the paper is far smaller than one of the screen.
    QFont carattere = foglio_->font();
    carattere.setPointSizeF(corpo_carta);
    documento.setDefaultFont(carattere);
    const QString testo = html(pagina_);
    for (const QString& pezzo : testo.split("src=\"").mid(1)) {
        const QString nome = pezzo.section('"', 0, 0);
        QImage figura(":/guida/" + nome);
        figura.setDevicePixelRatio(densita_carta);
        documento.addResource(QTextDocument::ImageResource, QUrl(nome), figura);
    }
    documento.setHtml(testo);
    documento.print(&carta);
}

void Finestra::chiedi_stampa() {
    QPrinter stampante(QPrinter::HighResolution);
    stampante.setDocName("Guida - " + titolo(pagina_));
    QPrintDialog dialogo(&stampante, this);
    dialogo.setWindowTitle("Stampa");
    if (dialogo.exec() == QDialog::Accepted) stampa(stampante);
}

}  // namespace guida
