#include "crossword/scelta.h"

#include "platform/qt/desktop.h"
#include "platform/qt/disposizione.h"

namespace crossword {

using platform::ComboBox;
using platform::etichetta;
using platform::Image;
using platform::immagine;

namespace {

constexpr int terzine = 3;

QString tr(const char* testo) {
    return app::Finestra::tr(testo);
}

}  // namespace

Scelta::Scelta(app::Finestra& finestra, RiquadriGioco& riquadri)
    : sessione_(finestra.sessione), r_(riquadri) {
    arreda_giochi();
    arreda_forme();
    arreda_misure();
    collega(finestra);
}

void Scelta::arreda_giochi() {
    platform::set_Tag(r_.Frame9, "5");
    const QSize placca(120, 36);
    const QRect sinistra(8, 30, 122, 40);
    const QRect destra(136, 30, 122, 40);
    r_.Image8 = immagine("Image8", ":/gioco_superenalotto.svg", placca, sinistra,
                         tr("Passa al SuperEnalotto"), r_.Frame9);
    r_.Image7 = immagine("Image7", ":/gioco_superenalotto_attivo.svg", placca, sinistra,
                         tr("SuperEnalotto"), r_.Frame9);
    r_.Image9 =
        immagine("Image9", ":/gioco_lotto_attivo.svg", placca, destra, tr("Lotto"), r_.Frame9);
    r_.Image10 =
        immagine("Image10", ":/gioco_lotto.svg", placca, destra, tr("Passa al Lotto"), r_.Frame9);
    // The pictures of the game in force do nothing: Tab passes them by.
    for (Image* in_forza : {r_.Image7, r_.Image9}) in_forza->setFocusPolicy(Qt::NoFocus);
    etichetta(tr("SuperEnalotto"), {8, 76, 122, 18}, r_.Frame9, Qt::AlignHCenter);
    etichetta(tr("Lotto"), {136, 76, 122, 18}, r_.Frame9, Qt::AlignHCenter);
}

void Scelta::arreda_forme() {
    const std::array<QString, 3> forme = {tr("Terzine"), tr("Quartine"), tr("Cinquine")};
    for (int i = 0; i < 3; ++i) {
        const auto k = static_cast<std::size_t>(i);
        const QRect dove(platform::px(105), 22 + i * 29, 62, 24);
        etichetta(forme[k], {70, dove.y(), 51, dove.height()}, r_.Frame8);
        const QString base = QStringLiteral(":/forma_%1").arg(i);
        r_.Imageb[k] = immagine(platform::membro("Imageb", i), base + ".svg", {60, 20}, dove,
                                forme[k], r_.Frame8);
        r_.Imagey[k] = immagine(platform::membro("Imagey", i), base + "_attiva.svg", {60, 20}, dove,
                                tr("%1 (scelta)").arg(forme[k]), r_.Frame8);
        // The form chosen acts no more: Tab passes it by, as it does the game in force.
        r_.Imagey[k]->setFocusPolicy(Qt::NoFocus);
        r_.Imagey[k]->setVisible(i == 2);
        r_.Imageb[k]->setVisible(i != 2);
    }
    r_.Frame8->hide();
}

void Scelta::arreda_misure() {
    etichetta(tr("Colonne"), {12, 34, 54, 24}, r_.Frame4);
    etichetta(tr("Righe"), {12, 68, 54, 24}, r_.Frame4);
    r_.Combo1 = platform::elenco("Combo1", tr("Colonne"), {68, 34, 66, 24}, r_.Frame4);
    r_.Combo2 = platform::elenco("Combo2", tr("Righe"), {68, 68, 66, 24}, r_.Frame4);
}

void Scelta::collega(app::Finestra& finestra) {
    const auto al_clic = [](const QAbstractButton* b, auto fa) {
        QObject::connect(b, &QAbstractButton::clicked, b, fa);
    };
    al_clic(r_.Image8, [&finestra] { finestra.Image8_Click(); });
    al_clic(r_.Image10, [&finestra] { finestra.Image10_Click(); });
    for (int i = 0; i < 3; ++i) {
        const auto k = static_cast<std::size_t>(i);
        for (const Image* forma : {r_.Imageb[k], r_.Imagey[k]}) {
            al_clic(forma, [&finestra, i] { finestra.Imageb_Click(i); });
        }
    }
    for (const ComboBox* misura : {r_.Combo1, r_.Combo2}) {
        QObject::connect(misura, &ComboBox::Click, misura, [this] { modifica_griglia(0); });
    }
}

void Scelta::modifica_griglia(std::uint8_t /*non_usato*/) {
    sessione_.dimensioni(r_.Combo1->Text().toInt(), r_.Combo2->Text().toInt());
}

void Scelta::mostra_gioco() {
    const Gioco gioco = sessione_.gioco();
    const bool lotto = gioco.e_lotto();
    for (Image* i : {lotto ? r_.Image9 : r_.Image7, lotto ? r_.Image8 : r_.Image10}) {
        i->show();
        i->raise();
    }
    for (Image* i : {lotto ? r_.Image7 : r_.Image9, lotto ? r_.Image10 : r_.Image8}) i->hide();
    r_.Frame8->setVisible(lotto);
    if (!lotto) return;
    r_.Frame8->raise();
    platform::set_Tag(r_.Frame9, QString::number(gioco.forma()));
    // A damaged system file can name a form that does not exist: then none is chosen.
    for (std::size_t i = 0; i < r_.Imageb.size(); ++i) {
        const bool scelta = gioco.forma() == static_cast<int>(i) + terzine;
        r_.Imagey[i]->setVisible(scelta);
        r_.Imageb[i]->setVisible(!scelta);
    }
}

void Scelta::mostra_dimensioni() {
    const int minimo = sessione_.gioco().lato_minimo();
    QStringList lati;
    for (int i = minimo; i <= Gioco::lato_massimo; ++i) lati << QString::number(i);
    r_.Combo1->elenca(lati, sessione_.colonne() - minimo);
    r_.Combo2->elenca(lati, sessione_.righe() - minimo);
}

}  // namespace crossword
