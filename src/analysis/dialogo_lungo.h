// Dialogs whose work is so long that it can be stopped.
#pragma once

#include <QBoxLayout>
#include <QCloseEvent>
#include <QDialog>
#include <QPushButton>

#include "platform/qt/disposizione.h"

namespace analysis {

/// Closed while it works, it stops the work first; who works closes the form then.
class DialogoLungo : public QDialog {
public:
    using QDialog::QDialog;
    /// The same way out as the button.
    void reject() override { close(); }

protected:
    /// Has the work end at its next pending-events point, for nothing.
    virtual void abbandona() = 0;
    void closeEvent(QCloseEvent* evento) override {
        if (!al_lavoro_) {
            evento->accept();
            return;
        }
        abbandona();
        chiusura_chiesta_ = true;
        evento->ignore();
    }

    bool al_lavoro_ = false;
    bool chiusura_chiesta_ = false;
};

/// One that searches, with what begins, stops and leaves it at its foot.
class DialogoRicerca : public DialogoLungo {
public:
    using DialogoLungo::DialogoLungo;

    QPushButton* cmdcerca = nullptr;
    QPushButton* cmdferma = nullptr;
    QPushButton* CmdEsci = nullptr;

protected:
    virtual void cerca() = 0;
    /// Has the search end at its next pending-events point, with what it has.
    virtual void ferma() = 0;
    void abbandona() override { ferma(); }
    /// Fills the foot; the button `usa`, for what was found, is returned. `esci` is what the way
    /// out says.
    QPushButton* crea_piede(QBoxLayout* sotto, int spazio, const QString& usa, const QString& testo,
                            const QString& esci) {
        constexpr int larghezza = 100;
        auto* riga = new QHBoxLayout;
        riga->setSpacing(spazio);
        cmdcerca = platform::pulsante_in_fila("cmdcerca", tr("Cerca"), this, larghezza);
        cmdferma = platform::pulsante_in_fila("cmdferma", tr("Ferma"), this, larghezza);
        cmdferma->setEnabled(false);
        cmdferma->setShortcut(Qt::Key_Escape);
        QPushButton* trovato = platform::pulsante_in_fila(usa, testo, this, larghezza);
        trovato->setEnabled(false);
        CmdEsci = platform::pulsante_in_fila("CmdEsci", esci, this, larghezza);
        riga->addWidget(cmdcerca);
        riga->addWidget(cmdferma);
        riga->addStretch(1);
        riga->addWidget(trovato);
        riga->addWidget(CmdEsci);
        sotto->addLayout(riga);
        connect(cmdcerca, &QPushButton::clicked, this, [this] { cerca(); });
        connect(cmdferma, &QPushButton::clicked, this, [this] { ferma(); });
        connect(CmdEsci, &QPushButton::clicked, this, &QDialog::close);
        return trovato;
    }
};

}  // namespace analysis
