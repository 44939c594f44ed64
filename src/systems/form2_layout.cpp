// Where everything stands on the manager. The list shows eight rows.
#include <QToolTip>
#include <QValidator>

#include "app/finestra.h"
#include "development/elaborazione.h"
#include "platform/qt/desktop.h"
#include "platform/qt/disposizione.h"
#include "platform/qt/scala.h"
#include "systems/elenco.h"
#include "systems/form2.h"
#include "systems/trascinati.h"

namespace systems {

using platform::Frame;

namespace {

constexpr int larghezza = 330;
constexpr int y_gruppo = 256;
constexpr int h_gruppo = 108;
constexpr int h_avviso = 36;
constexpr QRect dove_gruppo(8, y_gruppo, larghezza - 16, h_gruppo);

/// Refuses, also in pasted text, what is no digit or letter, and turns capitals to lower case.
class FiltroNome : public QValidator {
public:
    using QValidator::QValidator;
    State validate(QString& testo, int& /*posizione*/) const override {
        for (QChar& c : testo) {
            const int tasto = tasto_nome(c.unicode());
            if (tasto == 0) return Invalid;
            c = QChar(tasto);
        }
        return Acceptable;
    }
};

/// Button that Return presses only while it has the focus.
QPushButton* comando(const QString& nome, const QString& testo, QRect dove, QWidget* padre) {
    QPushButton* b = platform::pulsante(nome, testo, dove, padre);
    b->setAutoDefault(false);
    return b;
}

QLabel* spiega(const QString& testo, QRect dove, QWidget* padre) {
    auto* e = new QLabel(testo, padre);
    e->setGeometry(dove);
    e->setWordWrap(true);
    e->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return e;
}

QLineEdit* casella(const QString& nome, const QString& scopo, QRect dove, QWidget* padre) {
    QLineEdit* t = platform::posto(new QLineEdit(padre), nome, dove);
    t->setAccessibleName(scopo);
    t->setValidator(new FiltroNome(t));
    QObject::connect(t, &QLineEdit::inputRejected, t, [t] {
        QToolTip::showText(t->mapToGlobal(t->rect().bottomLeft()),
                           Form2::tr("Il nome prende solo lettere senza accenti e cifre."), t);
    });
    return t;
}

}  // namespace

Form2::Form2(app::Finestra& finestra) : QDialog(&finestra), finestra_(finestra) {
    setObjectName("Form2");
    setWindowTitle("Tabellino");
    setAttribute(Qt::WA_DeleteOnClose);
    setFixedSize(larghezza, y_gruppo + h_gruppo + 8);
    crea_lista();
    crea_apri();
    crea_utility();
    crea_salva();
    crea_importa();
    crea_duplica();
    crea_menu();
    collega();
    // More room shows more systems.
    using platform::Scala;
    platform::ancora({TabStrip1}, Scala::sta_in_alto | Scala::allarga);
    platform::ancora({ListView1}, Scala::alza | Scala::allarga);
    platform::ancora({Frame2, PicUtility, pic_salva, picimporta, picduplica}, Scala::segue_fondo);
    platform::rendi_scalabile(this);
    Form_Load();
}

void Form2::crea_lista() {
    TabStrip1 = new platform::TabStrip(this);
    TabStrip1->setObjectName("TabStrip1");
    TabStrip1->setAccessibleName(tr("Gioco"));
    TabStrip1->setGeometry(8, 8, larghezza - 16, 28);
    TabStrip1->add_scheda(1, "SuperEnalotto");
    TabStrip1->add_scheda(2, "Lotto");
    ListView1 = new platform::ListView(this);
    ListView1->setObjectName("ListView1");
    ListView1->setAccessibleName(tr("Sistemi"));
    ListView1->setGeometry(8, 40, larghezza - 16, 206);
    ListView1->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    ListView1->invita(
        tr("Nessun sistema: salvatene uno dalla finestra principale,\n"
           "o trascinate qui i suoi file."));
}

void Form2::crea_apri() {
    Frame2 = platform::riquadro("Frame2", QString(), dove_gruppo, this);
    spiega(tr("Selezionare un sistema dalla lista e cliccare su Apri"), {12, 14, 290, 36}, Frame2);
    Command5 = comando("Command5", tr("Apri"), {106, 66, 96, 28}, Frame2);
    Command2 = comando("Command2", tr("Esci"), {210, 66, 96, 28}, Frame2);
}

void Form2::crea_utility() {
    PicUtility = platform::riquadro("PicUtility", QString(), dove_gruppo, this);
    spiega(tr("Per accedere alle utility relative ai sistemi, cliccare con il tasto destro sulla "
              "lista dei sistemi"),
           {12, 14, 290, 48}, PicUtility);
    Command1 = comando("Command1", tr("Esci"), {210, 66, 96, 28}, PicUtility);
}

void Form2::crea_salva() {
    pic_salva = platform::riquadro("pic_salva", QString(), dove_gruppo, this);
    spiega(tr("Inserire il nome del sistema"), {12, 10, 290, 18}, pic_salva);
    spiega(tr("Nome del sistema"), {12, 37, 105, 20}, pic_salva);
    Text1 = casella("Text1", tr("Nome del sistema"), {118, 34, 188, 24}, pic_salva);
    cmdsalva = comando("cmdsalva", tr("Salva"), {106, 68, 96, 28}, pic_salva);
    cmdeffacer1 = comando("cmdeffacer1", tr("Annulla"), {210, 68, 96, 28}, pic_salva);
    lblavviso = spiega(tr("Ogni elaborazione manda nel cestino i sistemi con un nome che comincia "
                          "per «temp»: sceglietene un altro."),
                       {12, 64, 294, h_avviso}, pic_salva);
    lblavviso->setObjectName("lblavviso");
    lblavviso->hide();
    setTabOrder(Text1, cmdsalva);
}

void Form2::Text1_Change() {
    const bool serve = development::e_temporaneo(platform::s(Text1->text()));
    if (serve == lblavviso->isVisibleTo(pic_salva)) return;
    const int piu = serve ? h_avviso : -h_avviso;
    lblavviso->setVisible(serve);
    for (QPushButton* b : {cmdsalva, cmdeffacer1}) {
        const QPoint posto = platform::posto_a_100(b).topLeft();
        b->move(posto.x(), posto.y() + piu);
    }
    const QSize gruppo = platform::posto_a_100(pic_salva).size();
    pic_salva->resize(gruppo.width(), gruppo.height() + piu);
    const QSize tutta = platform::posto_a_100(this).size();
    platform::misura_a_100(this, {tutta.width(), tutta.height() + piu});
}

void Form2::crea_importa() {
    picimporta = platform::riquadro("picimporta", QString(), dove_gruppo, this);
    spiega(tr("Selezionare il sistema che si vuole importare e cliccare su Importa"),
           {12, 14, 290, 36}, picimporta);
    cmdimporta = comando("cmdimporta", tr("Importa"), {106, 66, 96, 28}, picimporta);
    cmdannul = comando("cmdannul", tr("annulla"), {210, 66, 96, 28}, picimporta);
    picimporta->hide();
}

void Form2::crea_duplica() {
    picduplica = platform::riquadro("picduplica", QString(), dove_gruppo, this);
    spiega(QStringLiteral("Insérer le nom du système"), {12, 12, 290, 20}, picduplica);
    txtduplica = casella("txtduplica", tr("Nome della copia"), {12, 34, 294, 24}, picduplica);
    cmddup_conferma = comando("cmddup_conferma", tr("Conferma"), {106, 68, 96, 28}, picduplica);
    cmddup_annulla = comando("cmddup_annulla", tr("Annulla"), {210, 68, 96, 28}, picduplica);
    picduplica->hide();
    frmduplica = platform::riquadro("frmduplica", QString(), {24, 96, larghezza - 48, 72}, this);
    auto* avviso = new QLabel(tr("Copia dei file in corso. Attendere Prego"), frmduplica);
    avviso->setGeometry(8, 8, frmduplica->width() - 16, 56);
    avviso->setAlignment(Qt::AlignCenter);
    avviso->setProperty("titolo", true);
    frmduplica->setProperty("evidenza", true);
    frmduplica->hide();
}

void Form2::crea_menu() {
    mnuutlituy = new QMenu(this);
    mnuutlituy->setObjectName("mnuutlituy");
    const auto voce = [this](const QString& nome, const QString& testo) {
        QAction* a = mnuutlituy->addAction(testo);
        a->setObjectName(nome);
        return a;
    };
    mnuduplica = voce("mnuduplica", "Duplica");
    mnurinomina = voce("mnurinomina", "Rinomina");
    mnuinvia = voce("mnuinvia", "Invia a . . . ");
    mnuimporta = voce("mnuimporta", "Importa");
    mnuutlituy->addSeparator();
    mnuelimina = voce("mnuelimina", "Elimina Sistema Selezionato");
    mnueliminatutti = voce("mnueliminatutti", "Elimna Tutti i Sistemi della Lista");
}

void Form2::collega() {
    connect(ListView1, &platform::ListView::ColumnClick, this, &Form2::ListView1_ColumnClick);
    connect(ListView1, &platform::ListView::Click, this, &Form2::ListView1_Click);
    connect(ListView1, &platform::ListView::TastoDestro, this,
            [this](const QPoint& dove) { mnuutlituy->popup(dove); });
    connect(TabStrip1, &platform::TabStrip::Click, this, &Form2::TabStrip1_Click);
    connect(cmdsalva, &QPushButton::clicked, this, &Form2::cmdsalva_Click);
    connect(Text1, &QLineEdit::textChanged, this, &Form2::Text1_Change);
    connect(Command5, &QPushButton::clicked, this, &Form2::Command5_Click);
    connect(ListView1, &QTreeWidget::itemDoubleClicked, this, [this] {
        if (Frame2->isVisible()) Command5_Click();
    });
    connect(Command2, &QPushButton::clicked, this, &QDialog::close);
    connect(cmdannul, &QPushButton::clicked, this, &QDialog::close);
    connect(Command1, &QPushButton::clicked, this, &Form2::esci_congelando);
    connect(cmdeffacer1, &QPushButton::clicked, this, &Form2::esci_congelando);
    collega_operazioni();
    // A name that is being typed for a save must not lose its window to an import.
    new Trascinati(finestra_, this, [this] { return pic_salva->isVisible(); });
}

}  // namespace systems
