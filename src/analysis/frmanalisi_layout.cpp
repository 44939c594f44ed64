// Where everything stands on the analysis.
#include <QHBoxLayout>
#include <QHeaderView>
#include <QRegularExpressionValidator>
#include <QScrollArea>
#include <QShortcut>
#include <QVBoxLayout>

#include "analysis/frmanalisi.h"
#include "app/finestra.h"
#include "platform/qt/annuncio.h"
#include "platform/qt/desktop.h"
#include "platform/qt/disposizione.h"
#include "platform/qt/fuoco.h"
#include "platform/qt/scala.h"
#include "statistics/archivio.h"

namespace analysis {

using platform::q;

namespace {

constexpr int margine = 8;
constexpr int larghezza_pulsante = 100;
constexpr int altezza_riga = 22;
constexpr int altezza_testata = 26;
constexpr QSize misura(800, 632);
constexpr QSize misura_minima(640, 420);

QLabel* valore(const QString& nome, Qt::Alignment verso, QWidget* padre) {
    QLabel* e = platform::valore(nome, {}, padre, verso);
    e->setFixedHeight(24);
    return e;
}

}  // namespace

VistaTavola::VistaTavola(const QString& nome, int righe_visibili, QWidget* padre)
    : QWidget(padre), righe_visibili_(righe_visibili) {
    setObjectName(nome);
    auto* sotto = new QVBoxLayout(this);
    sotto->setContentsMargins(0, 0, 0, 0);
    sotto->setSpacing(6);
    titolo = platform::scritta({}, "titolo", this);
    griglia = new platform::ConFuocoVero<QTableWidget>(this);
    griglia->setObjectName(nome + "_griglia");
    griglia->setProperty("elenco", true);
    griglia->setProperty("tavola", true);
    griglia->setAlternatingRowColors(true);
    griglia->setShowGrid(false);
    griglia->setEditTriggers(QAbstractItemView::NoEditTriggers);
    griglia->setSelectionBehavior(QAbstractItemView::SelectRows);
    griglia->setSelectionMode(QAbstractItemView::SingleSelection);
    griglia->setTabKeyNavigation(false);
    griglia->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    griglia->verticalHeader()->hide();
    griglia->verticalHeader()->setDefaultSectionSize(altezza_riga);
    griglia->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    griglia->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    griglia->horizontalHeader()->setFixedHeight(altezza_testata);
    griglia->horizontalHeader()->setHighlightSections(false);
    note = platform::scritta({}, nullptr, this);
    note->setWordWrap(true);
    sotto->addWidget(titolo);
    sotto->addWidget(griglia);
    sotto->addWidget(note);
}

void VistaTavola::mostra(const Tavola& t) {
    titolo->setText(q(t.titolo));
    griglia->setAccessibleName(q(t.titolo));
    griglia->clear();
    griglia->setColumnCount(static_cast<int>(t.colonne.size()));
    griglia->setRowCount(static_cast<int>(t.righe.size()));
    const auto verso = [](int c) {
        return Qt::AlignVCenter | (c == 0 ? Qt::AlignLeft : Qt::AlignRight);
    };
    for (int c = 0; c < griglia->columnCount(); ++c) {
        auto* testa = new QTableWidgetItem(q(t.colonne[static_cast<std::size_t>(c)]));
        testa->setTextAlignment(verso(c));
        griglia->setHorizontalHeaderItem(c, testa);
        for (int r = 0; r < griglia->rowCount(); ++r) {
            const auto& riga = t.righe[static_cast<std::size_t>(r)];
            auto* cella = new QTableWidgetItem(q(riga[static_cast<std::size_t>(c)]));
            cella->setTextAlignment(verso(c));
            griglia->setItem(r, c, cella);
        }
    }
    const int righe = qMin(griglia->rowCount(), righe_visibili_);
    griglia->setFixedHeight(
        platform::scalato(altezza_testata + righe * altezza_riga + 2, platform::scala(this)));
    griglia->setVisible(griglia->rowCount() > 0);
    QStringList frasi;
    for (const std::string& nota : t.note) frasi << q(nota);
    note->setText(frasi.join("\n"));
    note->setVisible(!frasi.isEmpty());
    layout()->invalidate();
    updateGeometry();
}

frmanalisi::frmanalisi(app::Finestra& finestra)
    : DialogoLungo(&finestra),
      finestra_(finestra),
      gioco_(finestra.sessione.gioco()),
      categorie_(categorie(gioco_)) {
    setObjectName("frmanalisi");
    setWindowTitle("Analisi Sistema");
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto* sotto = new QVBoxLayout(this);
    sotto->setContentsMargins(margine, margine, margine, margine);
    sotto->setSpacing(margine);
    crea_sistema(sotto);
    crea_pagine(sotto);
    crea_comandi(sotto);
    setMinimumSize(misura_minima);
    resize(misura);
    platform::rendi_scalabile(this);
    platform::centra(this, &finestra);
}

void frmanalisi::crea_sistema(QVBoxLayout* sotto) {
    auto* f = new platform::Frame(QString(), this);
    f->setObjectName("Frame1");
    auto* righe = new QVBoxLayout(f);
    righe->setContentsMargins(12, 10, 12, 10);
    auto* prima = new QHBoxLayout;
    prima->setSpacing(8);
    prima->addWidget(platform::scritta(tr("Nome del Sistema"), "titolo", f));
    lblnomesistema = valore("lblnomesistema", Qt::AlignLeft, f);
    prima->addWidget(lblnomesistema, 1);
    prima->addSpacing(12);
    prima->addWidget(platform::scritta(tr("Combinazioni"), "titolo", f));
    lblnumconb = valore("lblnumconb", Qt::AlignRight, f);
    lblnumconb->setFixedWidth(110);
    lblnomesistema->setAccessibleName(tr("Nome del Sistema"));
    lblnumconb->setAccessibleName(tr("Combinazioni"));
    prima->addWidget(lblnumconb);
    righe->addLayout(prima);
    auto* seconda = new QHBoxLayout;
    seconda->setSpacing(8);
    lblstato = platform::scritta({}, nullptr, f);
    lblstato->setObjectName("lblstato");
    lblstato->setWordWrap(true);
    platform::rendi_annuncio(lblstato);
    lblstato->setMinimumHeight(28);
    ProgressBar1 = new QProgressBar(f);
    ProgressBar1->setObjectName("ProgressBar1");
    ProgressBar1->setAccessibleName(tr("Avanzamento"));
    ProgressBar1->setTextVisible(false);
    ProgressBar1->setFixedHeight(10);
    ProgressBar1->hide();
    cmdannulla = platform::pulsante_in_fila("cmdannulla", tr("Annulla"), f, larghezza_pulsante);
    cmdannulla->setShortcut(Qt::Key_Escape);
    cmdannulla->hide();
    cmdanalizza = platform::pulsante_in_fila("cmdanalizza", tr("Analizza"), f, larghezza_pulsante);
    cmdanalizza->hide();
    seconda->addWidget(lblstato, 1);
    seconda->addWidget(ProgressBar1, 1);
    seconda->addWidget(cmdannulla);
    seconda->addWidget(cmdanalizza);
    righe->addLayout(seconda);
    sotto->addWidget(f);
    connect(cmdannulla, &QPushButton::clicked, this, [this] { fermata_ = true; });
    connect(cmdanalizza, &QPushButton::clicked, this, &frmanalisi::iniz);
}

void frmanalisi::crea_pagine(QVBoxLayout* sotto) {
    schede = new QTabBar(this);
    schede->setObjectName("schede");
    schede->setAccessibleName(tr("Parti dell'analisi"));
    schede->setExpanding(false);
    schede->setDrawBase(false);
    pagine = new QStackedWidget(this);
    pagine->setObjectName("pagine");
    garanzie = new VistaTavola("garanzie", 6, this);
    insiemi = new VistaTavola("insiemi", 6, this);
    estrazioni = new VistaTavola("estrazioni", 7, this);
    grafico_estrazioni = new Grafico(Qt::Horizontal, this);
    grafico_estrazioni->setObjectName("grafico_estrazioni");
    buchi = new VistaTavola("buchi", 6, this);
    esempi = new VistaTavola("esempi", 40, this);
    categorie_passate = new VistaTavola("categorie_passate", 6, this);
    migliori = new VistaTavola("migliori", 10, this);
    grafico_anni = new Grafico(Qt::Vertical, this);
    grafico_anni->setObjectName("grafico_anni");
    anni = new VistaTavola("anni", 12, this);
    crea_pagina(tr("Garanzie"), {garanzie, insiemi});
    crea_pagina(tr("Tutte le estrazioni"), {estrazioni, grafico_estrazioni});
    crea_pagina(tr("Medie e premi"), {crea_medie()});
    crea_pagina(tr("Buchi"), {buchi, esempi});
    riga_archivio = new statistics::RigaArchivio(finestra_, this);
    connect(riga_archivio, &statistics::RigaArchivio::cambiato, this, &frmanalisi::ripassa);
    QList<QWidget*> passato{riga_archivio, categorie_passate, migliori, grafico_anni, anni};
    if (gioco_.e_lotto()) passato.prepend(crea_ruote());
    crea_pagina(tr("Passato"), passato);
    connect(schede, &QTabBar::currentChanged, pagine, &QStackedWidget::setCurrentIndex);
    const auto passa = [this](std::initializer_list<QKeySequence> tasti, int passo) {
        for (const QKeySequence& tasto : tasti) {
            connect(new QShortcut(tasto, this), &QShortcut::activated, this, [this, passo] {
                const int quante = schede->count();
                schede->setCurrentIndex((schede->currentIndex() + quante + passo) % quante);
                schede->setFocus();
            });
        }
    };
    passa({Qt::CTRL | Qt::Key_Tab, Qt::CTRL | Qt::Key_PageDown}, 1);
    passa({Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, Qt::CTRL | Qt::Key_PageUp}, -1);
    auto* insieme = new QVBoxLayout;
    insieme->setSpacing(0);
    insieme->addWidget(schede);
    insieme->addWidget(pagine, 1);
    sotto->addLayout(insieme, 1);
}

QWidget* frmanalisi::crea_pagina(const QString& titolo, const QList<QWidget*>& parti) {
    auto* f = new platform::Frame(QString(), pagine);
    auto* intorno = new QVBoxLayout(f);
    intorno->setContentsMargins(4, 4, 4, 4);
    auto* scorre = new QScrollArea(f);
    scorre->setFrameShape(QFrame::NoFrame);
    scorre->setWidgetResizable(true);
    scorre->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scorre->setFocusPolicy(Qt::NoFocus);
    auto* dentro = new QWidget(scorre);
    auto* sotto = new QVBoxLayout(dentro);
    sotto->setContentsMargins(8, 8, 8, 8);
    sotto->setSpacing(14);
    for (QWidget* parte : parti) sotto->addWidget(parte);
    sotto->addStretch(1);
    scorre->setWidget(dentro);
    // The frame's own ground shows through, whatever the skin.
    scorre->viewport()->setAutoFillBackground(false);
    dentro->setAutoFillBackground(false);
    intorno->addWidget(scorre);
    schede->addTab(titolo);
    pagine->addWidget(f);
    return f;
}

QWidget* frmanalisi::crea_medie() {
    auto* w = new QWidget(this);
    auto* griglia = new QGridLayout(w);
    griglia->setContentsMargins(0, 0, 0, 0);
    griglia->setHorizontalSpacing(10);
    griglia->setVerticalSpacing(6);
    griglia->addWidget(platform::scritta(tr("In media, a ogni estrazione"), "titolo", w), 0, 0, 1,
                       4);
    const QStringList teste{tr("Categoria"), tr("Combinazioni vincenti"),
                            tr("Premio di una, in euro"), tr("Ritorno, in euro")};
    for (int c = 0; c < 4; ++c) {
        QLabel* testa = platform::scritta(teste[c], nullptr, w);
        testa->setAlignment(Qt::AlignVCenter | (c == 0 ? Qt::AlignLeft : Qt::AlignRight));
        griglia->addWidget(testa, 1, c);
    }
    static const QRegularExpression forma("\\d{0,10}(,\\d{0,2})?");
    for (int i = 0; i < static_cast<int>(categorie_.size()); ++i) {
        const QString nome = q(categorie_[static_cast<std::size_t>(i)].nome);
        lblmedia << valore(platform::membro("lblmedia", i), Qt::AlignRight, w);
        auto* premio = new QLineEdit(w);
        premio->setObjectName(platform::membro("txtpremio", i));
        premio->setAccessibleName(tr("Premio per %1, in euro").arg(nome));
        premio->setAlignment(Qt::AlignRight);
        premio->setFixedHeight(24);
        premio->setValidator(new QRegularExpressionValidator(forma, premio));
        txtpremio << premio;
        lblincasso << valore(platform::membro("lblincasso", i), Qt::AlignRight, w);
        lblmedia[i]->setAccessibleName(teste[1] + " " + nome);
        lblincasso[i]->setAccessibleName(teste[3] + " " + nome);
        griglia->addWidget(platform::scritta(nome, nullptr, w), i + 2, 0);
        griglia->addWidget(lblmedia[i], i + 2, 1);
        griglia->addWidget(premio, i + 2, 2);
        griglia->addWidget(lblincasso[i], i + 2, 3);
        connect(premio, &QLineEdit::textEdited, this, [this] { cambia_premio(); });
    }
    const int ultima = static_cast<int>(categorie_.size()) + 2;
    lblspesa = platform::scritta({}, nullptr, w);
    lblspesa->setObjectName("lblspesa");
    lblritorno = platform::scritta({}, "titolo", w);
    lblritorno->setObjectName("lblritorno");
    lblritorno->setWordWrap(true);
    griglia->addWidget(lblspesa, ultima, 0, 1, 4);
    griglia->addWidget(lblritorno, ultima + 1, 0, 1, 4);
    QLabel* invito =
        platform::scritta(tr("I premi li scrivete voi e restano per la prossima volta; il "
                             "programma non ne conosce. Fa fede il concessionario."),
                          "invito", w);
    invito->setWordWrap(true);
    griglia->addWidget(invito, ultima + 2, 0, 1, 4);
    for (int c = 1; c < 4; ++c) griglia->setColumnStretch(c, 1);
    return w;
}

QWidget* frmanalisi::crea_ruote() {
    auto* w = new QWidget(this);
    auto* riga = new QHBoxLayout(w);
    riga->setContentsMargins(0, 0, 0, 0);
    riga->addWidget(platform::scritta(tr("Ruota"), "titolo", w));
    Combo1 = platform::elenco("Combo1", tr("Ruota"), {}, w);
    Combo1->setFixedSize(150, 24);
    Combo1->AddItem(tr("Tutte"));
    for (const statistics::Ruota& ruota : statistics::ruote) {
        Combo1->AddItem(q(std::string(ruota.nome)));
    }
    Combo1->setCurrentIndex(0);
    riga->addWidget(Combo1);
    riga->addStretch(1);
    connect(Combo1, &platform::ComboBox::Click, this, &frmanalisi::cambia_ruota);
    return w;
}

void frmanalisi::crea_comandi(QVBoxLayout* sotto) {
    auto* riga = new QHBoxLayout;
    riga->setSpacing(margine);
    cmdpdf = platform::pulsante_in_fila("cmdpdf", tr("Salva PDF"), this, larghezza_pulsante);
    cmdcopia = platform::pulsante_in_fila("cmdcopia", tr("Copia"), this, larghezza_pulsante);
    cmdcopia->setToolTip(tr("Copia tutta l'analisi come testo"));
    CmdEsci = platform::pulsante_in_fila("CmdEsci", tr("Esci"), this, larghezza_pulsante);
    riga->addWidget(cmdpdf);
    cmdmigliora = platform::pulsante_in_fila("cmdmigliora", tr("Migliora la disposizione…"), this,
                                             larghezza_pulsante);
    cmdmigliora->setToolTip(tr("Gli stessi numeri in altre caselle, perché vincano più spesso"));
    riga->addWidget(cmdcopia);
    riga->addWidget(cmdmigliora);
    riga->addStretch(1);
    riga->addWidget(CmdEsci);
    sotto->addLayout(riga);
    connect(cmdpdf, &QPushButton::clicked, this, &frmanalisi::salva_pdf);
    connect(cmdcopia, &QPushButton::clicked, this, &frmanalisi::copia);
    connect(cmdmigliora, &QPushButton::clicked, this, &frmanalisi::migliora);
    connect(CmdEsci, &QPushButton::clicked, this, &QDialog::close);
}

}  // namespace analysis
