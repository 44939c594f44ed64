#include "platform/qt/scala.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QFontInfo>
#include <QHeaderView>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QProcessEnvironment>
#include <QScopedValueRollback>
#include <QScreen>
#include <QShortcut>
#include <QTabBar>
#include <QTableView>
#include <QWheelEvent>
#include <QWindow>

#include "platform/application.h"
#include "platform/qt/desktop.h"

namespace platform {

namespace {

constexpr qreal minimo = 0.6;
constexpr qreal massimo = 4;
/// What a window manager's frame takes on either side and above, where it does not say yet.
constexpr QSize cornice(8, 36);
/// Less than this the window manager itself moves a window that it frames.
constexpr int spostamento = 60;

QHash<const QWidget*, Scala*>& tutte() {
    static QHash<const QWidget*, Scala*> scale;
    return scale;
}

std::string file_ricordi() {
    return App().file("finestre.dat");
}

/// Parts of a control that it places itself.
bool e_intero(const QWidget* w) {
    return qobject_cast<const QAbstractScrollArea*>(w) != nullptr ||
           qobject_cast<const QComboBox*>(w) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(w) != nullptr ||
           qobject_cast<const QAbstractButton*>(w) != nullptr ||
           qobject_cast<const QTabBar*>(w) != nullptr ||
           qobject_cast<const QLineEdit*>(w) != nullptr ||
           qobject_cast<const QMenuBar*>(w) != nullptr;
}

/// Ctrl with the wheel, which the control under the pointer would take for itself.
class Rotella : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* oggetto, QEvent* evento) override {
        if (evento->type() != QEvent::Wheel) return false;
        const auto* giro = static_cast<QWheelEvent*>(evento);
        if ((giro->modifiers() & Qt::ControlModifier) == 0) return false;
        auto* controllo = qobject_cast<QWidget*>(oggetto);
        Scala* sua = controllo != nullptr ? Scala::di(controllo) : nullptr;
        if (sua == nullptr) return false;
        for (const QWidget* w = controllo; w != nullptr; w = w->parentWidget()) {
            if (w->property(Scala::rotella_sua).toBool()) return false;
        }
        constexpr int scatto = 120;
        resto_ += giro->angleDelta().y();
        for (; std::abs(resto_) >= scatto; resto_ -= resto_ > 0 ? scatto : -scatto) {
            sua->ingrandisci(resto_ > 0);
        }
        evento->accept();
        return true;
    }

private:
    int resto_ = 0;
};

constexpr const char* variabile = "TABELLINO_SCALA";

/// What the program that opened this one told; 1 when nobody did.
qreal ereditato() {
    bool numero = false;
    const qreal f = qEnvironmentVariable(variabile).toDouble(&numero);
    return numero && f >= minimo && f <= massimo ? f : 1;
}

}  // namespace

qreal scala(const QWidget* controllo) {
    const Scala* sua = Scala::di(controllo);
    return sua != nullptr ? sua->fattore() : 1;
}

int scalato(int lunghezza, qreal fattore) {
    return qRound(lunghezza * fattore);
}

QFont scalato(const QFont& carattere, qreal fattore, const QWidget* dove) {
    if (fattore == 1) return carattere;
    // In quarters of a pixel, down, lest letters outgrow their place; fonts have whole pixels only
    // where they have no points.
    constexpr int parti = 4;
    constexpr qreal punti_al_pollice = 72;
    const int lato = QFontInfo(carattere).pixelSize();
    const qreal pixel = std::floor(lato * fattore * parti) / parti;
    QFont esito = carattere;
    esito.setPointSizeF(pixel * punti_al_pollice / dove->logicalDpiY());
    return esito;
}

QRect posto_a_100(const QWidget* controllo) {
    if (const Scala* sua = Scala::di(controllo)) {
        if (const Scala::Posto* suo = sua->posto(controllo)) return suo->base;
        if (controllo == sua->finestra_) return {QPoint(0, 0), sua->base_};
    }
    return controllo->geometry();
}

QSize dentro_a_100(const QWidget* controllo) {
    const Scala* sua = Scala::di(controllo);
    const Scala::Posto* suo = sua != nullptr ? sua->posto(controllo) : nullptr;
    return suo != nullptr && suo->dentro.isValid() ? suo->dentro : posto_a_100(controllo).size();
}

void misura_a_100(QWidget* finestra, QSize misura) {
    if (Scala* sua = Scala::di(finestra)) {
        sua->misura(misura);
    } else {
        finestra->setFixedSize(misura);
    }
}

QProcessEnvironment ambiente_scalato(const QWidget* da) {
    QProcessEnvironment suo = QProcessEnvironment::systemEnvironment();
    suo.insert(variabile, QString::number(da != nullptr ? scala(da) : 1));
    return suo;
}

qreal fattore_iniziale(QSize a_100, QSize libero, qreal fattore) {
    const qreal entra =
        qMin(qreal(libero.width()) / a_100.width(), qreal(libero.height()) / a_100.height());
    return qMax(minimo, qMin(fattore, entra));
}

void ancora(std::initializer_list<QWidget*> controlli, int come) {
    for (QWidget* w : controlli) w->setProperty(Scala::ancora, come);
}

Scala* rendi_scalabile(QWidget* finestra) {
    auto* s = new Scala(finestra);
    s->misura(finestra->size());
    return s;
}

void caratteri_come(QWidget* riquadro, const QWidget* come) {
    const qreal f = scala(come);
    if (f == 1) return;
    for (QWidget* w : riquadro->findChildren<QWidget*>()) w->setFont(scalato(w->font(), f, w));
}

Scala::Scala(QWidget* finestra)
    : QObject(finestra),
      finestra_(finestra),
      con_disposizione_(finestra->layout() != nullptr &&
                        qobject_cast<QMainWindow*>(finestra) == nullptr) {
    static const bool una_volta = [] {
        qApp->installEventFilter(new Rotella(qApp));
        return true;
    }();
    static_cast<void>(una_volta);
    base_ = finestra->size();
    base_area_ = area()->size();
    foglio_ = finestra->styleSheet();
    // Later, on a window that is shown, it would hide it.
    finestra->setWindowFlag(Qt::WindowMaximizeButtonHint);
    base_minima_ = finestra->minimumSize();
    if (con_disposizione_) {
        ingombro_ = base_minima_.isEmpty() ? finestra->layout()->minimumSize() : base_minima_;
    }
    raccogli(finestra);
    raccogli_spazi();
    finestra->installEventFilter(this);
    constexpr int fermo_ms = 120;
    riposo_.setSingleShot(true);
    riposo_.setInterval(fermo_ms);
    connect(&riposo_, &QTimer::timeout, this, &Scala::rivesti);
    ascolta_tasti();
    if (area() != finestra) area()->installEventFilter(this);
    tutte().insert(finestra, this);
}

void Scala::ascolta_tasti() {
    const auto tasti = [this](const QList<QKeySequence>& quali, auto fare) {
        for (const QKeySequence& quale : quali) {
            connect(new QShortcut(quale, finestra_), &QShortcut::activated, this, fare);
        }
    };
    tasti({Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal}, [this] { ingrandisci(true); });
    tasti({Qt::CTRL | Qt::Key_Minus}, [this] { ingrandisci(false); });
    tasti({Qt::CTRL | Qt::Key_0}, [this] { porta_a(1); });
}

Scala::~Scala() {
    tutte().remove(finestra_);
}

Scala* Scala::di(const QWidget* controllo) {
    for (const QWidget* w = controllo; w != nullptr; w = w->window()->parentWidget()) {
        const auto sua = tutte().constFind(w->window());
        if (sua != tutte().cend()) return *sua;
        if (w->window()->windowType() != Qt::Popup) return nullptr;
    }
    return nullptr;
}

QEvent::Type Scala::cambiata() {
    static const auto tipo = static_cast<QEvent::Type>(QEvent::registerEventType());
    return tipo;
}

QWidget* Scala::area() const {
    const auto* principale = qobject_cast<QMainWindow*>(finestra_);
    return principale != nullptr ? principale->centralWidget() : finestra_;
}

std::string Scala::nome() const {
    return s(finestra_->objectName());
}

// The least room that the window needs at 100 %.
QSize Scala::ingombro() const {
    if (!con_disposizione_) return base_;
    return ingombro_;
}

QSize Scala::libero() const {
    const QSize vera = finestra_->frameGeometry().size() - finestra_->size();
    const QSize bordi = finestra_->isVisible() && !vera.isNull() ? vera : cornice;
    return finestra_->screen()->availableGeometry().size() - bordi;
}

void Scala::raccogli(QWidget* contenitore) {
    for (QWidget* w : contenitore->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) registra(w);
}

void Scala::registra(QWidget* controllo) {
    const bool menu = qobject_cast<QMenu*>(controllo) != nullptr;
    if ((controllo->isWindow() && !menu) || controllo->property(da_se).toBool()) return;
    const auto noto = indici_.constFind(controllo);
    if (noto != indici_.cend() && posti_[*noto].controllo == controllo) return;
    const QWidget* padre = controllo->parentWidget();
    Posto p;
    p.controllo = controllo;
    p.base = p.scritto = controllo->geometry();
    p.come = controllo->property(ancora).toInt();
    p.carattere = controllo->font();
    p.proprio = controllo->testAttribute(Qt::WA_SetFont);
    p.assoluto = !con_disposizione_ && !menu && padre != nullptr && padre->layout() == nullptr &&
                 !e_intero(padre) && qobject_cast<const QMainWindow*>(padre) == nullptr;
    p.minima = p.minima_scritta = controllo->minimumSize();
    p.massima = p.massima_scritta = controllo->maximumSize();
    if (const auto* tabella = qobject_cast<const QTableView*>(controllo)) {
        p.cella = {tabella->horizontalHeader()->defaultSectionSize(),
                   tabella->verticalHeader()->defaultSectionSize()};
    }
    indici_.insert(controllo, posti_.size());
    posti_.append(p);
    if (p.assoluto || !e_intero(controllo)) controllo->installEventFilter(this);
    raccogli(controllo);
}

void Scala::misura(QSize a_100) {
    const QSize prima = base_;
    base_ = a_100;
    if (area() == finestra_) base_area_ = a_100;
    QSize nuova;
    if (!misurata_) {
        misurata_ = true;
        // From now on the edge belongs to the player.
        finestra_->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        if (area() != finestra_) {
            area()->setMinimumSize(0, 0);
            area()->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        }
        const QWidget* sotto = finestra_->parentWidget();
        offerto_ =
            fattore_iniziale(ingombro(), libero(), sotto != nullptr ? scala(sotto) : ereditato());
        const qreal f = offerto_;
        nuova = f == 1 ? base_ : base_ * f;
        if (con_disposizione_) {
            nuova = nuova.boundedTo(finestra_->screen()->availableGeometry().size());
        }
        offerta_ = nuova;
        ricordo_ = ricordo(file_ricordi(), nome());
        const qreal tenuto = ricordo_ ? ricordo_->fattore / 100.0 : 0;
        voluto_ = tenuto > 0 ? fattore_iniziale(ingombro(), libero(), tenuto) : offerto_;
        if (ricordo_) nuova = QSize(ricordo_->larghezza, ricordo_->altezza).boundedTo(libero());
    } else {
        const QSizeF piu = QSizeF(base_ - prima) * fattore_;
        nuova = finestra_->size() + piu.toSize();
        offerta_ += piu.toSize();
    }
    if (!con_disposizione_) finestra_->setMinimumSize((QSizeF(base_) * minimo).toSize());
    finestra_->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    // Before the window, or its least size at 100 % would hold it.
    if (con_disposizione_) adegua();
    finestra_->resize(nuova.expandedTo(finestra_->minimumSize()));
    if (area() != finestra_) {
        const QSizeF intorno = QSizeF(base_ - base_area_) * finestra_->width() / base_.width();
        area()->resize(finestra_->size() - intorno.toSize());
    }
    vesti();
    adegua();
}

QSize Scala::resto() const {
    const QSizeF tutto = QSizeF(area()->size()) / fattore_;
    return (tutto - QSizeF(base_area_)).toSize().expandedTo({0, 0});
}

const Scala::Posto* Scala::posto(const QWidget* controllo) const {
    const auto suo = indici_.constFind(controllo);
    return suo != indici_.cend() ? &posti_[*suo] : nullptr;
}

void Scala::colloca(QWidget* controllo, QRect a_100, int come) {
    const auto suo = indici_.constFind(controllo);
    if (suo == indici_.cend()) return;
    Posto& p = posti_[*suo];
    if (!p.dentro.isValid()) p.dentro = p.base.size();
    p.base = a_100;
    p.come = come;
    if (in_corso_) return;
    const QScopedValueRollback guardia(in_corso_, true);
    disponi_uno(p);
}

void Scala::porta_a(qreal fattore) {
    if (finestra_->windowState() & Qt::WindowMaximized) finestra_->showNormal();
    const qreal f = fattore_iniziale(ingombro(), libero(), qMin(massimo, fattore));
    voluto_ = f;
    // Before the window, or the old least size would hold it.
    if (con_disposizione_) adegua();
    QSize nuova = f == 1 ? base_ : (QSizeF(base_) * f).toSize();
    // At 100 % it is as large as it opened.
    if (con_disposizione_) {
        nuova =
            nuova.boundedTo(f == 1 ? finestra_->screen()->availableGeometry().size() : libero());
    }
    finestra_->resize(nuova);
    tieni_sullo_schermo(finestra_);
    adegua();
}

void Scala::ingrandisci(bool piu) {
    constexpr std::array<qreal, 14> gradi = {0.6, 0.7,  0.8, 0.9,  1,   1.1, 1.25,
                                             1.5, 1.75, 2,   2.25, 2.5, 3,   4};
    constexpr qreal quasi = 0.01;
    qreal nuovo = fattore_;
    if (piu) {
        const auto* g = std::find_if(gradi.begin(), gradi.end(),
                                     [this](qreal x) { return x > fattore_ + quasi; });
        if (g != gradi.end()) nuovo = *g;
    } else {
        for (const qreal g : gradi) {
            if (g < fattore_ - quasi) nuovo = g;
        }
    }
    if (nuovo != fattore_) porta_a(nuovo);
}

bool Scala::rimetti() {
    if (!ricordo_ || !ricordo_->spostata) return false;
    finestra_->move(ricordo_->x, ricordo_->y);
    tieni_sullo_schermo(finestra_);
    messa_ = finestra_->pos();
    return true;
}

void Scala::ricorda() {
    const bool massima = finestra_->isMaximized();
    const QRect dove = massima ? finestra_->normalGeometry() : finestra_->geometry();
    const bool era_spostata = ricordo_ && ricordo_->spostata;
    const bool spostata =
        era_spostata || (finestra_->pos() - messa_).manhattanLength() > spostamento;
    std::optional<Ricordo> ora;
    const int scelto = con_disposizione_ && voluto_ != offerto_ ? qRound(voluto_ * 100) : 0;
    if (spostata || massima || dove.size() != offerta_ || scelto > 0) {
        const QPoint posto = massima ? dove.topLeft() : finestra_->pos();
        ora = Ricordo{posto.x(), posto.y(), dove.width(), dove.height(), spostata, massima, scelto};
    }
    if (ora == ricordo_) return;
    ricordo_ = ora;
    platform::ricorda(file_ricordi(), nome(), ora);
}

void Scala::prendi_fattore(QSize ora) {
    if (in_corso_ || !misurata_) return;
    qreal f = qMin(qreal(ora.width()) / base_.width(), qreal(ora.height()) / base_.height());
    f = con_disposizione_ ? voluto_ : qBound(minimo, f, massimo);
    if (f == fattore_) return;
    const QScopedValueRollback guardia(in_corso_, true);
    fattore_ = f;
    // To dress the window takes longer than a step of the edge may: it waits for its rest.
    if (dal_bordo_) {
        riposo_.start();
        scrivi_caratteri();
    } else {
        rivesti();
    }
}

// The desktop tells the size that it gives: before the window makes room for its menu, or all that
// stands below would be placed twice.
void Scala::trascina() {
    const QSize misura = finestra_->windowHandle()->size();
    if (misura == finestra_->size()) return;
    dal_bordo_ = true;
    prendi_fattore(misura);
}

bool Scala::eventFilter(QObject* oggetto, QEvent* evento) {
    auto* w = qobject_cast<QWidget*>(oggetto);
    if (w == nullptr) {
        if (evento->type() == QEvent::Resize) trascina();
        return false;
    }
    switch (evento->type()) {
        case QEvent::Resize:
            if (w == finestra_) dal_bordo_ = false;
            [[fallthrough]];
        case QEvent::Move: {
            const auto suo = indici_.constFind(w);
            if (w == area()) {
                adegua();
            } else if (!in_corso_ && suo != indici_.cend()) {
                Posto& p = posti_[*suo];
                if (!p.assoluto || p.controllo != w || w->geometry() == p.scritto) break;
                const QScopedValueRollback guardia(in_corso_, true);
                disponi_uno(p);
            }
            break;
        }
        case QEvent::StyleChange:
            if (w == finestra_ && !in_corso_ && !foglio_scritto_.isNull() &&
                w->styleSheet() != foglio_scritto_) {
                foglio_ = w->styleSheet();
                vesti();
                scrivi_caratteri();
            } else if (w == finestra_ && foglio_scritto_.isNull()) {
                foglio_ = w->styleSheet();
            }
            break;
        case QEvent::ChildPolished: {
            auto* nuovo = qobject_cast<QWidget*>(static_cast<QChildEvent*>(evento)->child());
            if (nuovo == nullptr || in_corso_) break;
            const QScopedValueRollback guardia(in_corso_, true);
            const qsizetype da = posti_.size();
            registra(nuovo);
            raccogli_spazi();
            if (con_disposizione_ && fattore_ != 1) {
                for (qsizetype i = da; i < posti_.size(); ++i) scrivi_limiti(posti_[i], 1);
                scrivi_spazi();
            }
            for (qsizetype i = da; i < posti_.size(); ++i) {
                if (posti_[i].assoluto) disponi_uno(posti_[i]);
                if (fattore_ != 1) scrivi_carattere(posti_[i], fattore_);
            }
            break;
        }
        case QEvent::Show:
            if (w == finestra_ && !evento->spontaneous()) {
                w->windowHandle()->installEventFilter(this);
                if (con_disposizione_) rifai_disposizione();
                if (ricordo_ && ricordo_->massima) w->setWindowState(Qt::WindowMaximized);
            }
            break;
        case QEvent::Hide:
            if (w == finestra_ && !evento->spontaneous()) ricorda();
            break;
        default:
            break;
    }
    return false;
}

}  // namespace platform
