// The wheel scrolls and the pointer passes by: neither changes what the player did not aim at.
#include <set>

#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QTabBar>
#include <QTextBrowser>
#include <QWheelEvent>

#include "guida/finestra.h"
#include "platform/qt/scala.h"
#include "support/finestre_aperte.h"

namespace {

using support::FinestreAperte;
using support::Programma;

std::string chi(const QWidget* w) {
    return w->metaObject()->className() + std::string(" ") + w->objectName().toStdString();
}

/// What a bar shows that nobody can see; a visible one tells where it stands by itself.
QString spostamento(const QAbstractScrollArea* area) {
    QString testo;
    if (area->horizontalScrollBarPolicy() == Qt::ScrollBarAlwaysOff)
        testo += QStringLiteral(" x%1").arg(area->horizontalScrollBar()->value());
    // The crossword has its vertical bar outside.
    if (area->verticalScrollBarPolicy() == Qt::ScrollBarAlwaysOff &&
        area->objectName() != "MSFlexGrid1")
        testo += QStringLiteral(" y%1").arg(area->verticalScrollBar()->value());
    return testo;
}

QString scelte(const QAbstractItemView* vista) {
    const auto posto = [](const QModelIndex& i) {
        return QStringLiteral(" %1,%2").arg(i.row()).arg(i.column());
    };
    QString testo = posto(vista->currentIndex());
    for (const QModelIndex& i : vista->selectionModel()->selectedIndexes()) testo += posto(i);
    return testo;
}

/// All of a control that tells what was chosen, written or shown.
QString stato(const QWidget* w) {
    QString testo = QStringLiteral("%1%2").arg(w->isVisible()).arg(w->isEnabled());
    testo += w->font().toString();
    if (const auto* c = qobject_cast<const QComboBox*>(w))
        testo += QString::number(c->currentIndex());
    if (const auto* n = qobject_cast<const QSpinBox*>(w)) testo += QString::number(n->value());
    if (const auto* n = qobject_cast<const QSlider*>(w)) testo += QString::number(n->value());
    if (const auto* s = qobject_cast<const QTabBar*>(w))
        testo += QString::number(s->currentIndex());
    if (const auto* t = qobject_cast<const QLineEdit*>(w)) testo += t->text() + t->selectedText();
    if (const auto* b = qobject_cast<const QAbstractButton*>(w))
        // How large a preview shows its page is for looking too, and Ctrl with the wheel changes
        // it.
        testo += (b->objectName() == "cmdvero" ? QString() : b->text()) +
                 QString::number(b->isChecked());
    if (const auto* b = qobject_cast<const QTextBrowser*>(w)) testo += b->source().toString();
    if (const auto* a = qobject_cast<const QAbstractScrollArea*>(w)) testo += spostamento(a);
    if (const auto* v = qobject_cast<const QAbstractItemView*>(w)) testo += scelte(v);
    // The page of the viewer is a place to look at, which the wheel turns as it scrolls.
    const auto* e = qobject_cast<const QLabel*>(w);
    if (e != nullptr && !e->objectName().startsWith("lblpag")) testo += e->text();
    return testo;
}

/// The window and its controls, each with its state.
std::vector<std::pair<std::string, QString>> stato_di(const QWidget& finestra) {
    int aperte = 0;
    for (const QWidget* w : QApplication::topLevelWidgets()) aperte += w->isVisible() ? 1 : 0;
    const QWidget* fuoco = finestra.focusWidget();
    std::vector<std::pair<std::string, QString>> tutti{
        {"title", finestra.windowTitle()},
        {"windows", QString::number(aperte)},
        {"focus", fuoco != nullptr ? QString::fromStdString(chi(fuoco)) : QString()}};
    for (const QWidget* w : finestra.findChildren<QWidget*>()) {
        // A preview that grows or shrinks needs bars or none.
        const bool barra = qobject_cast<const QScrollBar*>(w) != nullptr ||
                           w->objectName().startsWith("qt_scrollarea_");
        tutti.emplace_back(chi(w), barra ? QString() : stato(w));
    }
    return tutti;
}

void gira(QWidget* dove, QPoint quanto, Qt::KeyboardModifiers con) {
    const QPoint centro = dove->rect().center();
    QWheelEvent giro(centro, dove->mapToGlobal(centro), QPoint(), quanto, Qt::NoButton, con,
                     Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&giro);
    qApp->notify(dove, &giro);
}

void passa_sopra(QWidget* w) {
    const QPointF centro = w->rect().center();
    QEnterEvent entra(centro, centro, w->mapToGlobal(centro));
    qApp->notify(w, &entra);
    QTest::mouseMove(w, centro.toPoint());
    QEvent esce(QEvent::Leave);
    qApp->notify(w, &esce);
}

/// Turns the wheel every way over each control, and passes over it.
void tocca(QWidget& finestra, std::set<std::string>& toccati) {
    const auto prima = stato_di(finestra);
    for (QWidget* w : finestra.findChildren<QWidget*>()) {
        if (!w->isVisible() || w->window() != &finestra) continue;
        toccati.insert(chi(w));
        for (const auto con :
             {Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier, Qt::AltModifier}) {
            // With Ctrl the wheel changes the size at which a window shows all that it holds.
            if (con == Qt::ControlModifier && platform::Scala::di(&finestra) != nullptr) continue;
            for (const QPoint& quanto :
                 {QPoint(0, -240), QPoint(0, 120), QPoint(-120, 0), QPoint(240, 0)})
                gira(w, quanto, con);
        }
        passa_sopra(w);
        const auto dopo = stato_di(finestra);
        ASSERT_EQ(dopo.size(), prima.size()) << chi(w);
        for (std::size_t i = 0; i < dopo.size(); ++i) {
            EXPECT_EQ(dopo[i].second, prima[i].second) << prima[i].first << " over " << chi(w);
        }
    }
}

TEST(Rotella, SuNessunComandoDiNessunaFinestraCambiaCioCheESceltoOScritto) {
    Programma p{true};
    std::set<std::string> viste;
    std::set<std::string> toccati;
    FinestreAperte(p, [&](QWidget& finestra, const std::string& nome) {
        SCOPED_TRACE(nome);
        viste.insert(finestra.objectName().toStdString());
        const bool lotto = p.form1.sessione.gioco().e_lotto();
        const bool salvato = p.form1.sessione.salvato();
        const auto griglia = p.griglia();
        tocca(finestra, toccati);
        EXPECT_EQ(p.form1.sessione.gioco().e_lotto(), lotto);
        EXPECT_EQ(p.form1.sessione.salvato(), salvato);
        EXPECT_EQ(p.griglia(), griglia);
    }).tutte();
    guida::Finestra guida("");
    guida.show();
    guida.activateWindow();
    QApplication::processEvents();
    tocca(guida, toccati);
    EXPECT_EQ(viste,
              (std::set<std::string>{"Archivio", "Form1", "Form2", "Form3", "Modulo", "Stampa",
                                     "formeuro", "frmAbout", "frmanalisi", "frmcerca",
                                     "frmmigliora", "frmspoglio", "frmstsvl", "frmtabelle"}));
    for (const char* comando :
         {"platform::TabStrip TabStrip1", "platform::UpDown UpDown2", "platform::ComboBox Combo3",
          "platform::ListBox List1", "platform::MSFlexGrid MSFlexGrid2", "QTreeWidget indice"})
        EXPECT_TRUE(toccati.contains(comando)) << comando;
}

TEST(Rotella, SullaStrisciaDelGestoreIlGiocoENumeriRestano) {
    Programma p;
    p.numero(7);
    Programma::voce(p.form1.mnugest_sist);
    gira(Programma::gestore()->TabStrip1, QPoint(0, -120), Qt::NoModifier);
    EXPECT_FALSE(p.form1.sessione.gioco().e_lotto());
    EXPECT_EQ(p.griglia()[0][0], 7);
    EXPECT_FALSE(p.form1.sessione.salvato());
    QTest::keyClick(Programma::gestore()->TabStrip1, Qt::Key_Right);
    EXPECT_TRUE(p.form1.sessione.gioco().e_lotto()) << "a key on the strip is aimed at it";
}

TEST(Rotella, CioCheStaDietroScorreAncora) {
    QScrollArea area;
    auto* dentro = new QWidget;
    dentro->setFixedSize(80, 2000);
    auto* elenco = new QComboBox(dentro);
    elenco->addItems({"uno", "due"});
    area.setWidget(dentro);
    area.resize(100, 100);
    area.show();
    gira(elenco, QPoint(0, -120), Qt::NoModifier);
    EXPECT_EQ(elenco->currentIndex(), 0);
    EXPECT_GT(area.verticalScrollBar()->value(), 0);
}

}  // namespace
