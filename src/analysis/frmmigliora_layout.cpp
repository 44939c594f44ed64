// Where everything stands on the dialog that lays numbers anew.
#include <QHBoxLayout>
#include <QHeaderView>
#include <QShortcut>
#include <QVBoxLayout>

#include "analysis/frmmigliora.h"
#include "app/finestra.h"
#include "platform/qt/annuncio.h"
#include "platform/qt/desktop.h"
#include "platform/qt/disposizione.h"
#include "platform/qt/scala.h"

namespace analysis {

using platform::q;

namespace {

constexpr int margine = 8;
constexpr QSize cella(34, 22);
constexpr int larghezza_scelte = 320;
/// Of the crossword and the choices together, so that the table has room below.
constexpr int larghezza_insieme = 680;

}  // namespace

frmmigliora::frmmigliora(app::Finestra& finestra, QWidget* padre)
    : DialogoRicerca(padre),
      finestra_(finestra),
      sistema_(finestra.sessione.sistema()),
      classi_(finestra.sessione.classi_generate()) {
    setObjectName("frmmigliora");
    setWindowTitle("Migliora la disposizione");
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    const crossword::Matrice& m = sistema_.matrice;
    ferme_.resize(static_cast<std::size_t>(m.colonne()) * static_cast<std::size_t>(m.righe()));
    auto* sotto = new QVBoxLayout(this);
    sotto->setContentsMargins(margine, margine, margine, margine);
    sotto->setSpacing(margine);
    auto* sopra = new QHBoxLayout;
    sopra->setSpacing(margine);
    sopra->addWidget(crea_griglia());
    sopra->addWidget(crea_scelte(), 1);
    sotto->addLayout(sopra);
    confronto = new VistaTavola("confronto", 7, this);
    confronto->hide();
    sotto->addWidget(confronto);
    sotto->addStretch(1);
    cmdusa = crea_piede(sotto, margine, "cmdusa", tr("Usa"), tr("Annulla"));
    cmdusa->setToolTip(tr("Mette la nuova disposizione nel cruciverba; si può annullare"));
    connect(cmdusa, &QPushButton::clicked, this, &frmmigliora::usa);
    mostra_griglia();
    resize(sizeHint());
    platform::rendi_scalabile(this);
    platform::centra(this, padre);
    platform::tieni_sullo_schermo(this);
}

QWidget* frmmigliora::crea_griglia() {
    const crossword::Matrice& m = sistema_.matrice;
    auto* f = new platform::Frame(QString(), this);
    f->setObjectName("Frame1");
    auto* righe = new QVBoxLayout(f);
    righe->setContentsMargins(12, 10, 12, 10);
    righe->addWidget(platform::scritta(tr("Il cruciverba"), "titolo", f));
    griglia = new QTableWidget(m.righe(), m.colonne(), f);
    griglia->setObjectName("griglia");
    griglia->setAccessibleName(tr("Cruciverba: la barra spaziatrice ferma un numero"));
    griglia->setEditTriggers(QAbstractItemView::NoEditTriggers);
    griglia->setSelectionMode(QAbstractItemView::SingleSelection);
    griglia->setTabKeyNavigation(false);
    // Numbers of hidden headers would be read out before each cell.
    griglia->setHorizontalHeaderLabels(QStringList(m.colonne(), QStringLiteral("")));
    griglia->setVerticalHeaderLabels(QStringList(m.righe(), QStringLiteral("")));
    griglia->horizontalHeader()->hide();
    griglia->verticalHeader()->hide();
    griglia->horizontalHeader()->setMinimumSectionSize(cella.width());
    griglia->horizontalHeader()->setDefaultSectionSize(cella.width());
    griglia->verticalHeader()->setDefaultSectionSize(cella.height());
    for (int y = 0; y < m.righe(); ++y) {
        for (int x = 0; x < m.colonne(); ++x) {
            auto* una = new QTableWidgetItem;
            una->setTextAlignment(Qt::AlignCenter);
            una->setData(Qt::AccessibleDescriptionRole,
                         tr("riga %1, colonna %2").arg(y + 1).arg(x + 1));
            griglia->setItem(y, x, una);
        }
    }
    constexpr int lato = crossword::Gioco::lato_massimo;
    griglia->setFixedSize(qMin(m.colonne(), lato) * cella.width() + 3,
                          qMin(m.righe(), lato) * cella.height() + 3);
    if (m.colonne() > 0 && m.righe() > 0) griglia->setCurrentCell(0, 0);
    righe->addWidget(griglia, 0, Qt::AlignHCenter);
    QLabel* invito = platform::scritta(
        tr("Un clic su una casella ne ferma il numero: [12] resta dov'è."), "invito", f);
    invito->setWordWrap(true);
    righe->addWidget(invito);
    righe->addStretch(1);
    connect(griglia, &QTableWidget::cellClicked, this, &frmmigliora::cambia_ferma);
    auto* spazio = new QShortcut(Qt::Key_Space, griglia);
    spazio->setContext(Qt::WidgetShortcut);
    connect(spazio, &QShortcut::activated, this,
            [this] { cambia_ferma(griglia->currentRow(), griglia->currentColumn()); });
    return f;
}

QWidget* frmmigliora::crea_scelte() {
    auto* f = new platform::Frame(QString(), this);
    f->setObjectName("Frame2");
    f->setMinimumWidth(qMax(larghezza_scelte, larghezza_insieme - griglia->width()));
    auto* righe = new QVBoxLayout(f);
    righe->setContentsMargins(12, 10, 12, 10);
    righe->setSpacing(6);
    righe->addWidget(platform::scritta(tr("Che cosa deve venire più spesso"), "titolo", f));
    scopo = platform::elenco("scopo", tr("Che cosa deve venire più spesso"), {}, f);
    scopo->setFixedHeight(24);
    for (int t = 2; t <= qMin(sistema_.gioco.numeri(), 5); ++t) {
        scopo->AddItem(q(nome_risultato(sistema_.gioco, t)) + tr(" o meglio"));
    }
    scopo->setCurrentIndex(qMin(1, scopo->count() - 1));
    righe->addWidget(scopo);
    righe->addWidget(platform::scritta(tr("Quanto cercare"), "titolo", f));
    tempo = platform::elenco("tempo", tr("Quanto cercare"), {}, f);
    tempo->setFixedHeight(24);
    for (const QString& voce : {tr("5 secondi"), tr("30 secondi"), tr("finché non fermate")}) {
        tempo->AddItem(voce);
    }
    tempo->setCurrentIndex(0);
    righe->addWidget(tempo);
    chkpareggia = new QCheckBox(tr("Si può cambiare quante volte sta un numero"), f);
    chkpareggia->setObjectName("chkpareggia");
    chkpareggia->setToolTip(
        tr("Un numero che sta più volte può cedere una casella a uno che sta meno volte"));
    righe->addWidget(chkpareggia);
    chkclassi = new QCheckBox(tr("Linee con gli stessi ritardi che nella generazione"), f);
    chkclassi->setObjectName("chkclassi");
    chkclassi->setToolTip(
        tr("Ogni riga e ogni colonna tiene tanti numeri di ciascuna classe di "
           "ritardo quanti ne ha dati Genera"));
    chkclassi->setChecked(classi_.has_value());
    chkclassi->setVisible(classi_.has_value());
    righe->addWidget(chkclassi);
    grafico = new Grafico(Qt::Horizontal, f);
    grafico->setObjectName("grafico");
    grafico->hide();
    righe->addWidget(grafico);
    lblstato =
        platform::scritta(tr("I numeri restano gli stessi: cambia solo dove stanno, perché linee "
                             "con gli stessi numeri vincano meno volte insieme."),
                          nullptr, f);
    lblstato->setObjectName("lblstato");
    lblstato->setWordWrap(true);
    platform::rendi_annuncio(lblstato);
    righe->addWidget(lblstato);
    ProgressBar1 = new QProgressBar(f);
    ProgressBar1->setObjectName("ProgressBar1");
    ProgressBar1->setAccessibleName(tr("Avanzamento"));
    ProgressBar1->setTextVisible(false);
    ProgressBar1->setFixedHeight(10);
    ProgressBar1->hide();
    righe->addWidget(ProgressBar1);
    righe->addStretch(1);
    connect(scopo, &platform::ComboBox::Click, this, &frmmigliora::dimentica);
    for (QCheckBox* scelta : {chkpareggia, chkclassi}) {
        connect(scelta, &QCheckBox::clicked, this, &frmmigliora::dimentica);
    }
    return f;
}

}  // namespace analysis
