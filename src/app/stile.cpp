#include "app/stile.h"

#include <QApplication>
#include <QFont>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOption>
#include <QTabBar>

#include "platform/macchina.h"
#include "platform/qt/caratteri.h"
#include "platform/qt/copia.h"
#include "platform/qt/lingua.h"
#include "platform/qt/rotella.h"
#include "platform/qt/scala.h"
#include "platform/qt/tasti.h"
#include "platform/qt/tasto_menu.h"

/// A static library's resources are linked in only when somebody asks for them; the macro works
/// in the global namespace alone.
static void carica_risorse() {
    Q_INIT_RESOURCE(tabellino);
}

namespace app {

namespace {

/// The desktop's palette, before ours takes its place.
bool scuro = false;

// Navy, pale blue, yellow and white come with the controls; amber is the one accent. Every
// property that a skin sets has its first value here, or it would outlive the skin.
const char* const foglio = R"(
QWidget { color: #10203A; }
QMainWindow, QDialog { background: #E9F1F8; }
QToolTip { background: #FFFFE1; color: #10203A; border: 1px solid #6C84B6; padding: 3px;
    font-size: 12px; }
QMenuBar { background: #E9F1F8; border-bottom: 1px solid #B9CBE0; }
QMenuBar::item { padding: 4px 10px; background: transparent; }
QMenuBar::item:selected { background: #000080; color: white; }
QMenu { background: white; border: 1px solid #8FA6C8; }
QMenu::item { padding: 5px 28px 5px 26px; }
QMenu::item:selected { background: #000080; color: white; }
QMenu::item:disabled { color: #667384; }
QMenu::separator { height: 1px; background: #D4DFEC; margin: 3px 8px; }

QPushButton { background: qlineargradient(x1:0,y1:0,x2:0,y2:1, stop:0 #FFFFFF, stop:1 #E3ECF6);
    border: 1px solid #7E97BE; border-radius: 4px; padding: 2px 10px; }
QPushButton:hover { border-color: #E07B00; background: #FFF8EC; }
QPushButton:pressed { background: #D8EEFE; }
QPushButton:focus { border: 1px solid #E07B00; }
QPushButton:default { border: 1px solid #000080; font-weight: bold; }
QPushButton:disabled { color: #5A6779; background: #EEF2F7; border-color: #C9D4E2; }
QPushButton[numero="true"] { border-radius: 2px; padding: 0; border: 1px solid #A9BCD6;
    background: white; color: #000080; }
QPushButton[numero="true"]:hover { background: #FFFF00; border-color: #000080; }
QPushButton[numero="true"]:focus { border: 2px solid #E07B00; }
QPushButton[numero="true"]:disabled { background: #DDE4ED; color: #4B576A; border-color: #CBD5E1; }

QTabBar { qproperty-drawBase: 1; }
platform--Frame { qproperty-fondo: #FFFFFF; qproperty-linea: #A9BCD6; qproperty-titolo: #000080; }
analysis--Grafico { qproperty-fondo: #FFFFFF; qproperty-linea: #B9CBE0; qproperty-barra: #000080;
    qproperty-scritta: #10203A; }
platform--Frame[evidenza="true"] { qproperty-fondo: #FFF8EC; qproperty-linea: #E07B00; }
QFrame[forma="fondo"] { background: white; border: 1px solid #A9BCD6; border-radius: 4px; }
QFrame[forma="prospetto"] { background: #D8EEFE; border: 1px solid #A9C9E6; border-radius: 4px; }
QFrame[forma="sviluppo"] { background: #FFFBD6; border: 1px solid #E3D58A; border-radius: 4px; }
QFrame[forma="schedine"] { background: #FFF0DC; border: 1px solid #EBC48F; border-radius: 4px; }
QFrame[forma="invio"] { background: #F4F9FE; border: 1px solid #000080; border-radius: 4px; }
QFrame[forma="riga"] { background: #D4DFEC; border: 0; }
QFrame[forma="binario"] { background: #D5E2F0; border: 1px solid #A9BCD6; border-radius: 4px; }
QLabel[titolo="true"] { color: #000080; font-weight: bold; }
QLabel[titolo_grande="true"] { color: #000080; font-size: 24px; font-weight: bold; }
QLabel[valore="true"] { background: #F4F9FE; border: 1px solid #B9CBE0; border-radius: 3px;
    padding: 0 6px; font-weight: bold; color: #000080; }
QLabel[trascina="true"] { background: #F4F9FE; border: 2px dashed #8FA6C8; border-radius: 6px;
    color: #000080; }
QLabel[trascina="true"][sopra="true"] { background: #FFF8EC; border-color: #E07B00; }
QLabel[invito="true"] { color: #4A5A73; }
QLabel[su_scuro="true"] { color: #D8EEFE; }
QLabel[titolo_splash="true"] { color: white; font-size: 32px; font-weight: bold; }

QComboBox { background: white; border: 1px solid #7E97BE; border-radius: 3px; padding: 0 4px 0 6px; }
QComboBox::drop-down { border: 0; width: 18px; }
QComboBox::down-arrow { image: url(:/freccia_giu.svg); width: 12px; height: 12px; }
QSpinBox { background: white; border: 1px solid #7E97BE; border-radius: 3px; padding-left: 4px; }
platform--UpDown { padding-left: 0; }
QSpinBox::up-button { subcontrol-origin: border; subcontrol-position: top right; width: 18px;
    height: 11px; border: 0; }
QSpinBox::down-button { subcontrol-origin: border; subcontrol-position: bottom right; width: 18px;
    height: 11px; border: 0; }
platform--UpDown::up-button, platform--UpDown::down-button { width: 20px; }
QSpinBox::up-button:hover, QSpinBox::down-button:hover { background: #FFFF00; }
QSpinBox::up-arrow { image: url(:/freccia_su.svg); width: 10px; height: 10px; }
QSpinBox::down-arrow { image: url(:/freccia_giu.svg); width: 10px; height: 10px; }
QSpinBox:focus { border-color: #E07B00; }
QScrollBar:vertical { background: #E9F1F8; width: 12px; border: 0; }
QScrollBar::handle:vertical { background: #A9BCD6; min-height: 24px; border-radius: 4px; margin: 1px 2px; }
QScrollBar::handle:vertical:hover { background: #000080; }
QScrollBar:horizontal { background: #E9F1F8; height: 14px; border: 0; }
QScrollBar::handle:horizontal { background: #A9BCD6; min-width: 24px; border-radius: 4px; margin: 2px 1px; }
QScrollBar::handle:horizontal:hover { background: #000080; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; border: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: none; }
QMessageBox { messagebox-information-icon: url(:/informazione.svg); }
QMessageBox, QDialogButtonBox { button-layout: 0; dialogbuttonbox-buttons-have-icons: 0; }
QComboBox:focus { border-color: #E07B00; }
QComboBox::down-arrow:disabled, QSpinBox::down-arrow:disabled { image: url(:/freccia_giu_spenta.svg); }
QSpinBox::up-arrow:disabled { image: url(:/freccia_su_spenta.svg); }
QComboBox[lunga="true"] { combobox-popup: 0; }
QComboBox[in_griglia="true"] { border-radius: 0; border: 1px solid #B9CBE0; }
QComboBox[in_griglia="true"]:focus { border-color: #E07B00; }
QComboBox QAbstractItemView { background: white; border: 1px solid #7E97BE;
    selection-background-color: #000080; selection-color: white; }

QTableView { background: white; color: black; gridline-color: #B9CBE0; border: 1px solid #7E97BE; }
QTableView:focus { border: 1px solid #E07B00; }
QListView, QTreeView { background: white; border: 1px solid #B9CBE0; border-radius: 3px; }
QListView:focus, QTreeView:focus { border-color: #E07B00; }
QListView::item { padding: 1px 8px 1px 2px; border: 0; }
QListView, QTreeView { outline: 0; }
QListView::item:selected, QTreeView::item:selected { background: #BFDDF8; color: #000080; }
QTreeView::item:hover:!selected { background: #EEF6FD; }
QTreeView::item { height: 22px; }
QHeaderView { background: #000080; }
QFileDialog QHeaderView::down-arrow { image: url(:/freccia_giu_chiara.svg); width: 10px; height: 10px; }
QFileDialog QHeaderView::up-arrow { image: url(:/freccia_su_chiara.svg); width: 10px; height: 10px; }
QHeaderView::section { background: #000080; color: white; border: 0; padding: 4px;
    border-right: 1px solid #5C6FA8; }
QLineEdit { background: white; border: 1px solid #7E97BE; border-radius: 3px; padding: 1px 5px;
    selection-background-color: #000080; }
QLineEdit:focus { border-color: #E07B00; }
QCheckBox::indicator { width: 13px; height: 13px; background: white; border: 1px solid #7E97BE;
    border-radius: 3px; }
QCheckBox::indicator:hover, QCheckBox::indicator:focus { border-color: #E07B00; }
QCheckBox::indicator:checked { image: url(:/spunta.svg); }
QPlainTextEdit { background: white; border: 1px solid #7E97BE; border-radius: 3px; }
QPlainTextEdit:focus { border-color: #E07B00; }

QTabBar::tab { background: #D5E2F0; border: 1px solid #A9BCD6; border-bottom: 0; padding: 5px 16px;
    border-top-left-radius: 4px; border-top-right-radius: 4px; margin-right: 2px; }
QTabBar::tab:selected { background: white; color: #000080; font-weight: bold;
    border-top: 2px solid #E07B00; }
QTreeView[sviluppo="true"] { border: 0; border-radius: 0; alternate-background-color: #EFF5FB; }
QTreeView[sviluppo="true"]::item { height: 17px; }
QTableView[tavola="true"]::item { padding: 0 5px; border: 0; }
QTableView[tavola="true"] QHeaderView::section { padding: 4px 8px; }
QTableView[elenco="true"] { border-color: #B9CBE0; border-radius: 3px; outline: 0;
    alternate-background-color: #EFF5FB; selection-background-color: #BFDDF8;
    selection-color: #000080; }
QLineEdit[casella="true"] { font-weight: bold; color: #000080; padding: 1px; }
QLineEdit[jolly="true"] { background: #FFF1F0; border-color: #D9534F; }
QFrame[binario="true"] { background: #D5E2F0; border-radius: 4px; }
QFrame[barra="true"] { background: #000080; border-radius: 4px; }
QFrame[fondo="true"] { background: #000080; border-radius: 4px; }
QLabel[su_fondo="true"] { color: white; font-weight: bold; }
QProgressBar { background: #D5E2F0; border: 0; border-radius: 4px; }
QProgressBar::chunk { background: #000080; border-radius: 4px; }
QComboBox:disabled, QSpinBox:disabled, QLineEdit:disabled { background: #EEF2F7; color: #414C5E;
    border-color: #C9D4E2; }
QCheckBox:disabled, QRadioButton:disabled { color: #5A6779; }
QCheckBox::indicator:disabled { background: #EEF2F7; border-color: #C9D4E2; }
)";

/// Fusion, but what has the focus gets a thin amber frame, for its own tint makes dark rows
/// unreadable; buttons have one in the style sheet.
class Stile : public QProxyStyle {
public:
    Stile() : QProxyStyle("Fusion") {}

    /// What no sheet sizes grows with its window here.
    int pixelMetric(PixelMetric quale, const QStyleOption* opzione,
                    const QWidget* widget) const override {
        const int a_100 = QProxyStyle::pixelMetric(quale, opzione, widget);
        switch (quale) {
            case PM_ExclusiveIndicatorWidth:
            case PM_ExclusiveIndicatorHeight:
            case PM_RadioButtonLabelSpacing:
            case PM_CheckBoxLabelSpacing:
                return platform::scalato(a_100, platform::scala(widget));
            default:
                return a_100;
        }
    }

    void drawPrimitive(PrimitiveElement elemento, const QStyleOption* opzione, QPainter* pittore,
                       const QWidget* widget) const override {
        if (elemento != PE_FrameFocusRect) {
            QProxyStyle::drawPrimitive(elemento, opzione, pittore, widget);
            return;
        }
        if (qobject_cast<const QPushButton*>(widget) != nullptr) return;
        pittore->save();
        pittore->setPen(QColor("#E07B00"));
        pittore->setBrush(Qt::NoBrush);
        pittore->drawRect(intorno_al_testo(opzione->rect, widget).adjusted(0, 0, -1, -1));
        pittore->restore();
    }

private:
    /// What a style sheet draws itself it frames whole, mark and all, or on the very letters.
    static QRect intorno_al_testo(const QRect& dove, const QWidget* widget) {
        if (qobject_cast<const QTabBar*>(widget) != nullptr) return dove.adjusted(-6, -2, 6, 2);
        const auto* scelta = qobject_cast<const QRadioButton*>(widget);
        if (scelta == nullptr) return dove;
        QStyleOptionButton opzione;
        opzione.initFrom(scelta);
        const QRect posto =
            scelta->style()->subElementRect(SE_RadioButtonContents, &opzione, scelta);
        const QRect testo = scelta->fontMetrics().boundingRect(
            posto, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, scelta->text());
        return testo.adjusted(-3, -2, 3, 2).intersected(scelta->rect());
    }
};

}  // namespace

bool desktop_scuro() {
    return scuro;
}

void applica_stile(QApplication& applicazione) {
    carica_risorse();
    scuro = platform::macchina::finestre_scure().value_or(
        QGuiApplication::palette().color(QPalette::Window).lightness() < 128);
    platform::parla_italiano();
    platform::porta_caratteri();
    QApplication::setStyle(new Stile);
    QFont carattere("Liberation Sans");
    carattere.setStyleHint(QFont::SansSerif);
    carattere.setPixelSize(12);
    QApplication::setFont(carattere);
    QPalette tavolozza;
    tavolozza.setColor(QPalette::Window, QColor("#E9F1F8"));
    tavolozza.setColor(QPalette::WindowText, QColor("#10203A"));
    tavolozza.setColor(QPalette::Base, Qt::white);
    tavolozza.setColor(QPalette::Text, QColor("#10203A"));
    tavolozza.setColor(QPalette::Button, QColor("#E3ECF6"));
    tavolozza.setColor(QPalette::ButtonText, QColor("#10203A"));
    tavolozza.setColor(QPalette::Mid, QColor("#A9BCD6"));
    tavolozza.setColor(QPalette::Link, QColor("#000080"));
    tavolozza.setColor(QPalette::Highlight, QColor("#000080"));
    tavolozza.setColor(QPalette::HighlightedText, Qt::white);
    QApplication::setPalette(tavolozza);
    applicazione.setStyleSheet(foglio);
    // The sheet is a style of its own, and each new style takes the desktop's faces for menus and
    // lists.
    QApplication::setFont(carattere);
    platform::rotella_per_scorrere(applicazione);
    platform::copia_da_griglie(applicazione);
    platform::menu_da_tastiera(applicazione);
    platform::alt_non_scrive(applicazione);
}

}  // namespace app
