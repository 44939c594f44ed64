// What can be read on a window, in every state that its controls take: a contrast of 4.5 to 1.
#pragma once

#include <array>
#include <filesystem>
#include <functional>

#include <QCheckBox>
#include <QHeaderView>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QStyleOption>

#include "support/contrasto.h"
#include "support/programma.h"

namespace support {

constexpr double contrasto_minimo = 4.5;

inline QString testo_di(const QWidget* w) {
    if (const auto* e = qobject_cast<const QLabel*>(w)) return e->text();
    if (const auto* b = qobject_cast<const QAbstractButton*>(w)) return b->text();
    if (const auto* c = qobject_cast<const QComboBox*>(w)) return c->currentText();
    if (const auto* t = qobject_cast<const QPlainTextEdit*>(w)) return t->toPlainText();
    const auto* t = qobject_cast<const QLineEdit*>(w);
    if (t == nullptr) return {};
    return t->text().isEmpty() ? t->placeholderText() : t->text();
}

/// What the text stands on, less the borders and what is no text.
inline QRect dove(const QWidget* w) {
    QRect interno = w->rect().adjusted(3, 3, -3, -3);
    if (qobject_cast<const QComboBox*>(w) != nullptr) interno.setRight(interno.right() - 20);
    if (qobject_cast<const QRadioButton*>(w) != nullptr ||
        qobject_cast<const QCheckBox*>(w) != nullptr)
        interno.setLeft(24);
    return interno;
}

/// A state that a player brings controls to, put on all of a window at once and taken off again.
struct Stato {
    const char* nome;
    void (*metti)(QWidget& finestra, bool si);
};

inline void spegni(QWidget& finestra, bool si) {
    for (QWidget* w : finestra.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (!w->isWindow()) w->setEnabled(!si);
    }
}

inline void passa_sopra(QWidget& finestra, bool si) {
    for (QWidget* w : finestra.findChildren<QWidget*>()) w->setAttribute(Qt::WA_UnderMouse, si);
}

inline void premi(QWidget& finestra, bool si) {
    for (auto* b : finestra.findChildren<QAbstractButton*>()) b->setDown(si);
}

inline const std::array<Stato, 4> stati{{{"at rest", [](QWidget&, bool) {}},
                                         {"disabled", spegni},
                                         {"under the pointer", passa_sopra},
                                         {"pressed", premi}}};

/// Looks at windows in one skin; the failures name control, state and text.
class Lettore {
public:
    /// The folder with the skin `numero`.
    static void aspetto(const Cartella& cartella, int numero) {
        const std::string n = std::to_string(numero);
        const std::string nome = "/skin1_" + n + ".skn";
        std::filesystem::copy(SOURCE_DIR "/suite/skin" + nome, cartella.radice() + "/skin" + nome);
        std::ofstream(cartella.radice() + "/skin/skn.dat") << n << "\r\n";
    }

    void misura(QWidget& finestra) {
        const QPointer<QWidget> fuoco = finestra.focusWidget();
        for (const Stato& stato : stati) {
            SCOPED_TRACE(stato.nome);
            stato.metti(finestra, true);
            const QImage tutta = finestra.grab().toImage();
            misura_i_testi(finestra, tutta);
            misura_le_intestazioni(finestra, tutta);
            if (stato.metti != passa_sopra) misura_le_liste(finestra);
            stato.metti(finestra, false);
        }
        if (fuoco) fuoco->setFocus();
        const QImage tutta = finestra.grab().toImage();
        misura_le_scelte(finestra, tutta);
        misura_le_selezioni(finestra);
    }

    /// A part of a picture, in pixels at 100 %, that holds `testo`.
    void misura_pezzo(const QImage& tutta, const QRect& qui, const std::string& testo) {
        EXPECT_GE(contrasto_del_testo(tutta.copy(qui)), contrasto_minimo) << testo;
        ++misurati;
    }

    /// The rows that a list shows, chosen and not.
    void misura_righe(QAbstractItemView* lista) {
        QWidget* vista = lista->viewport();
        QItemSelectionModel* scelta = lista->selectionModel();
        const QSignalBlocker muto(scelta);
        const QItemSelection prima = scelta->selection();
        for (int r = 0; r < qMin(lista->model()->rowCount(lista->rootIndex()), 3); ++r) {
            const QModelIndex prossima = lista->model()->index(r, 0, lista->rootIndex());
            for (const bool scelta_qui : {false, true}) {
                if (scelta_qui && lista->selectionMode() == QAbstractItemView::NoSelection)
                    continue;
                scelta->select(prossima, scelta_qui ? QItemSelectionModel::ClearAndSelect |
                                                          QItemSelectionModel::Rows
                                                    : QItemSelectionModel::Clear);
                const QImage tutta = vista->grab().toImage();
                for (int c = 0; c < lista->model()->columnCount(lista->rootIndex()); ++c) {
                    const QModelIndex i = prossima.siblingAtColumn(c);
                    const QRect qui = lista->visualRect(i) & vista->rect();
                    const QString testo = i.data().toString().trimmed();
                    if (testo.isEmpty() || qui.width() < 12 || qui.height() < 10) continue;
                    misura_pezzo(
                        tutta, qui.adjusted(2, 2, -2, -2),
                        nome(lista) + (scelta_qui ? " chosen " : " ") + testo.toStdString());
                }
            }
        }
        scelta->select(prima, QItemSelectionModel::ClearAndSelect);
    }

    int misurati = 0;
    int scelte = 0;

private:
    static std::string nome(const QWidget* w) {
        return w->metaObject()->className() + std::string(" ") + w->objectName().toStdString();
    }

    /// What lies under another control is not read.
    static bool coperto(const QWidget& finestra, const QWidget* w, const QPoint& punto) {
        const QWidget* sopra = finestra.childAt(w->mapTo(&finestra, punto));
        return sopra != w && !w->isAncestorOf(sopra) &&
               !w->testAttribute(Qt::WA_TransparentForMouseEvents);
    }

    void misura_i_testi(QWidget& finestra, const QImage& tutta) {
        for (QWidget* w : finestra.findChildren<QWidget*>()) {
            const QString testo = testo_di(w).trimmed();
            if (!w->isVisible() || testo.isEmpty() || w->window() != &finestra) continue;
            if (coperto(finestra, w, w->rect().center())) continue;
            // A focused box shows its text chosen, in other colours.
            if (w == finestra.focusWidget() && qobject_cast<QLineEdit*>(w) != nullptr) continue;
            const QRect qui = dove(w).translated(w->mapTo(&finestra, QPoint(0, 0)));
            misura_pezzo(tutta, qui, nome(w) + " \"" + testo.toStdString() + '"');
        }
        for (const auto* f : finestra.findChildren<platform::Frame*>()) {
            const QString titolo = f->caption().trimmed();
            if (!f->isVisible() || titolo.isEmpty()) continue;
            const int largo = f->fontMetrics().horizontalAdvance(titolo);
            misura_pezzo(
                tutta,
                QRect(f->mapTo(&finestra, QPoint(9, 4)), QSize(qMin(largo, f->width() - 18), 14)),
                titolo.toStdString());
        }
    }

    void misura_le_intestazioni(QWidget& finestra, const QImage& tutta) {
        const auto misura_se_c_e = [&](const QWidget* w, const QRect& qui, const QString& testo) {
            if (testo.trimmed().isEmpty() || qui.width() < 12 || coperto(finestra, w, qui.center()))
                return;
            misura_pezzo(tutta,
                         qui.adjusted(3, 3, -3, -3).translated(w->mapTo(&finestra, QPoint())),
                         nome(w) + ' ' + testo.toStdString());
        };
        for (const auto* h : finestra.findChildren<QHeaderView*>()) {
            for (int c = 0; h->isVisible() && c < h->count(); ++c) {
                const QRect qui(h->sectionViewportPosition(c), 0, h->sectionSize(c), h->height());
                misura_se_c_e(h->viewport(), qui & h->viewport()->rect(),
                              h->model()->headerData(c, h->orientation()).toString());
            }
        }
        for (const auto* t : finestra.findChildren<QTabBar*>()) {
            for (int i = 0; t->isVisible() && i < t->count(); ++i)
                misura_se_c_e(t, t->tabRect(i), t->tabText(i));
        }
        for (const auto* m : finestra.findChildren<QMenuBar*>()) {
            for (const QAction* a : m->actions())
                misura_se_c_e(m, m->actionGeometry(const_cast<QAction*>(a)), a->text());
        }
    }

    void misura_le_liste(QWidget& finestra) {
        for (auto* lista : finestra.findChildren<QAbstractItemView*>()) {
            if (!lista->isVisible() || lista->window() != &finestra ||
                qobject_cast<QHeaderView*>(lista) != nullptr ||
                coperto(finestra, lista->viewport(), lista->viewport()->rect().center()))
                continue;
            misura_righe(lista);
        }
    }

    /// What is chosen in a field has colours of its own, with the keyboard there and away.
    void misura_le_selezioni(QWidget& finestra) {
        for (const QWidget* w : finestra.findChildren<QWidget*>()) {
            if (qobject_cast<const QLineEdit*>(w) == nullptr &&
                qobject_cast<const QPlainTextEdit*>(w) == nullptr)
                continue;
            for (const auto gruppo : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
                const QPalette p = w->palette();
                EXPECT_GE(contrasto(p.color(gruppo, QPalette::HighlightedText).rgb(),
                                    p.color(gruppo, QPalette::Highlight).rgb()),
                          contrasto_minimo)
                    << nome(w) << " chosen, group " << gruppo;
                ++misurati;
            }
        }
    }

    /// The mark of a chosen box or option is no text: 3 to 1 will do.
    void misura_le_scelte(const QWidget& finestra, const QImage& tutta) {
        for (const auto* b : finestra.findChildren<QAbstractButton*>()) {
            const bool casella = qobject_cast<const QCheckBox*>(b) != nullptr;
            if (!casella && qobject_cast<const QRadioButton*>(b) == nullptr) continue;
            if (!b->isVisible() || !b->isChecked()) continue;
            QStyleOptionButton opzione;
            opzione.initFrom(b);
            const QRect segno = b->style()->subElementRect(
                casella ? QStyle::SE_CheckBoxIndicator : QStyle::SE_RadioButtonIndicator, &opzione,
                b);
            const QRect dentro = segno.adjusted(3, 3, -3, -3);
            const QPoint angolo = b->mapTo(&finestra, QPoint(0, 0));
            EXPECT_GE(contrasto_del_testo(tutta.copy(dentro.translated(angolo))), 3)
                << b->objectName().toStdString();
            ++scelte;
        }
    }
};

}  // namespace support
