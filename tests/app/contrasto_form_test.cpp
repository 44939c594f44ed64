// What is written can be read, in every skin: a contrast of 4.5 to 1 at least.
#include <cmath>
#include <filesystem>
#include <map>
#include <set>

#include <QCheckBox>
#include <QImage>
#include <QPainter>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QStyleOption>

#include "support/finestre_aperte.h"

namespace {

using support::FinestreAperte;
using support::Programma;

/// Relative luminance of a colour, by the rule of the guidelines for accessible contents.
double luminanza(QRgb colore) {
    const auto lineare = [](int canale) {
        const double c = canale / 255.0;
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * lineare(qRed(colore)) + 0.7152 * lineare(qGreen(colore)) +
           0.0722 * lineare(qBlue(colore));
}

double contrasto(QRgb a, QRgb b) {
    const double la = luminanza(a);
    const double lb = luminanza(b);
    return (qMax(la, lb) + 0.05) / (qMin(la, lb) + 0.05);
}

/// Contrast between the commonest colour and the one that stands out most.
double contrasto_del_testo(const QImage& immagine) {
    std::map<QRgb, int> quanti;
    for (int y = 0; y < immagine.height(); ++y) {
        for (int x = 0; x < immagine.width(); ++x) ++quanti[immagine.pixel(x, y)];
    }
    QRgb fondo = 0;
    int massimo = 0;
    for (const auto& [colore, n] : quanti) {
        if (n > massimo) {
            massimo = n;
            fondo = colore;
        }
    }
    double migliore = 1;
    for (const auto& voce : quanti) migliore = qMax(migliore, contrasto(voce.first, fondo));
    return migliore;
}

QString testo_di(const QWidget* w) {
    if (const auto* e = qobject_cast<const QLabel*>(w)) return e->text();
    if (const auto* b = qobject_cast<const QAbstractButton*>(w)) return b->text();
    if (const auto* c = qobject_cast<const QComboBox*>(w)) return c->currentText();
    if (const auto* t = qobject_cast<const QLineEdit*>(w)) return t->text();
    if (const auto* t = qobject_cast<const QPlainTextEdit*>(w)) return t->toPlainText();
    return {};
}

/// What the text stands on, less the borders and what is no text.
QRect dove(const QWidget* w) {
    QRect interno = w->rect().adjusted(3, 3, -3, -3);
    if (qobject_cast<const QComboBox*>(w) != nullptr) interno.setRight(interno.right() - 20);
    if (qobject_cast<const QRadioButton*>(w) != nullptr ||
        qobject_cast<const QCheckBox*>(w) != nullptr)
        interno.setLeft(24);
    return interno;
}

class Contrasto : public testing::TestWithParam<int> {
protected:
    /// The folder with the skin of the parameter.
    static void aspetto(const support::Cartella& cartella) {
        const std::string numero = std::to_string(GetParam());
        const std::string nome = "/skin1_" + numero + ".skn";
        std::filesystem::copy(SOURCE_DIR "/suite/skin" + nome, cartella.radice() + "/skin" + nome);
        std::ofstream(cartella.radice() + "/skin/skn.dat") << numero << "\r\n";
    }
    void misura(QWidget& finestra) {
        QWidget* fuoco = finestra.focusWidget();
        const QImage tutta = finestra.grab().toImage();
        for (QWidget* w : finestra.findChildren<QWidget*>()) {
            const QString testo = testo_di(w).trimmed();
            if (!w->isVisible() || !w->isEnabled() || testo.isEmpty() || w->window() != &finestra)
                continue;
            // What lies under another control is not read.
            const QPoint centro = w->mapTo(&finestra, w->rect().center());
            const QWidget* sopra = finestra.childAt(centro);
            if (sopra != w && !w->isAncestorOf(sopra)) continue;
            // A focused box shows its text chosen, in other colours.
            if (w == fuoco && qobject_cast<QLineEdit*>(w) != nullptr) continue;
            const QRect qui = dove(w).translated(w->mapTo(&finestra, QPoint(0, 0)));
            EXPECT_GE(contrasto_del_testo(tutta.copy(qui)), 4.5)
                << w->metaObject()->className() << ' ' << w->objectName().toStdString() << " \""
                << testo.toStdString() << '"';
            ++misurati;
        }
        misura_le_scelte(finestra, tutta);
        for (const auto* f : finestra.findChildren<platform::Frame*>()) {
            const QString titolo = f->caption().trimmed();
            if (!f->isVisible() || titolo.isEmpty()) continue;
            const int largo = f->fontMetrics().horizontalAdvance(titolo);
            const QRect qui =
                QRect(f->mapTo(&finestra, QPoint(9, 4)), QSize(qMin(largo, f->width() - 18), 14));
            EXPECT_GE(contrasto_del_testo(tutta.copy(qui)), 4.5) << titolo.toStdString();
            ++misurati;
        }
    }
    int misurati = 0;
    int scelte = 0;

private:
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

TEST_P(Contrasto, OgniTestoSiLegge) {
    Programma p(true, aspetto);
    ASSERT_FALSE(p.form1.styleSheet().isEmpty());
    FinestreAperte(p, [this](QWidget& finestra, const std::string& nome) {
        SCOPED_TRACE(nome);
        misura(finestra);
    }).tutte();
    EXPECT_GT(misurati, 500);
    EXPECT_GE(scelte, 4);
}

INSTANTIATE_TEST_SUITE_P(Aspetti, Contrasto, testing::Values(1, 2, 3));

TEST(Fuoco, IncorniciaSenzaTingere) {
    const auto dipinto = [](const QWidget* widget) {
        QImage immagine(20, 10, QImage::Format_RGB32);
        immagine.fill(Qt::white);
        QPainter pittore(&immagine);
        QStyleOptionFocusRect opzione;
        opzione.rect = immagine.rect();
        opzione.palette = QApplication::palette();
        QApplication::style()->drawPrimitive(QStyle::PE_FrameFocusRect, &opzione, &pittore, widget);
        return immagine;
    };
    const QImage riga = dipinto(nullptr);
    EXPECT_EQ(riga.pixel(10, 5), qRgb(255, 255, 255));
    for (const QPoint& bordo : {QPoint(0, 0), QPoint(19, 5), QPoint(10, 9)}) {
        EXPECT_EQ(riga.pixel(bordo), qRgb(0xE0, 0x7B, 0));
    }
    const QPushButton pulsante;
    EXPECT_EQ(dipinto(&pulsante).pixel(0, 0), qRgb(255, 255, 255));
}

TEST(MisuraDelContrasto, NeroSuBiancoEIlMassimo) {
    EXPECT_NEAR(contrasto(qRgb(0, 0, 0), qRgb(255, 255, 255)), 21, 0.01);
    EXPECT_NEAR(contrasto(qRgb(118, 118, 118), qRgb(255, 255, 255)), 4.54, 0.01);
    EXPECT_EQ(contrasto(qRgb(9, 9, 9), qRgb(9, 9, 9)), 1);
}

}  // namespace
