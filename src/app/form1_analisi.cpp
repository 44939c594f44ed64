// On the main form: the way to the analysis, and the line that tells of it and of the types.
#include <QEvent>

#include "app/form1.h"
#include "platform/application.h"
#include "platform/desktop.h"

namespace app {

namespace {

/// Line at the foot of the form, in the place of the progress bar while that is hidden.
class RigaAlPiede : public platform::EtichettaValore {
public:
    explicit RigaAlPiede(QWidget* barra) : EtichettaValore(barra->parentWidget()) {
        constexpr int altezza = 20;
        const QRect dove = barra->geometry();
        setGeometry(dove.x() + 4, dove.center().y() - altezza / 2, dove.width() - 8, altezza);
        setTextFormat(Qt::PlainText);
        setProperty("invito", true);
        barra->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override {
        if (evento->type() == QEvent::Show) hide();
        if (evento->type() == QEvent::Hide) show();
        return EtichettaValore::eventFilter(oggetto, evento);
    }
};

}  // namespace

void Form1::crea_analisi() {
    lblanalisi = new RigaAlPiede(ProgressBar1);
    lblanalisi->setObjectName("lblanalisi");
    int quale = 0;
    for (platform::ComboBox* c : {Combo3, Combo4, Combo5}) {
        c->spiega([this, quale](int tipo) { return spiegazione_tipo(quale, tipo); });
        connect(c, &platform::ComboBox::Spiegato, this, [this](const QString& testo) {
            spiegazione_ = testo;
            mostra_analisi(riassunto_);
        });
        ++quale;
    }
}

void Form1::mostra_analisi(const QString& testo) {
    riassunto_ = testo;
    lblanalisi->setText(spiegazione_.isEmpty() ? riassunto_ : spiegazione_);
}

QString Form1::spiegazione_tipo(int quale, int tipo) {
    const crossword::Gioco g = sessione.gioco();
    const int n = quale == 0 ? sessione.colonne() : sessione.righe();
    const std::string ridotti = platform::radice(sessione.cartella()) + "ridotti";
    QString testo = platform::q(spiegazioni_.di(ridotti, g, n, tipo));
    if (quale == 2 && g.adiacenti(n)) {
        testo += tr(". Le adiacenti: ") + platform::q(spiegazioni_.di(ridotti, g, n - 1, tipo));
    }
    return testo;
}

}  // namespace app
