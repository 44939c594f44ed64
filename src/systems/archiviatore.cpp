#include "systems/archiviatore.h"

#include <QTimer>

#include "platform/qt/desktop.h"
#include "systems/passo.h"

namespace systems {

using platform::MsgBox;
using platform::Pulsanti;

void Archiviatore::offri_ripresa() {
    if (const auto interrotto = ripresa_.interrotto()) {
        const QString quale =
            interrotto->nome.empty()
                ? QStringLiteral("Il cruciverba non aveva ancora un nome")
                : "Il cruciverba era del sistema " + platform::q(interrotto->nome);
        const QString testo =
            QString(
                "L'ultima volta il programma si è interrotto prima di un "
                "salvataggio.\n%1 e conteneva %2.\n\nRiprenderlo?")
                .arg(quale, interrotto->numeri == 1 ? QStringLiteral("un numero")
                                                    : QString("%1 numeri").arg(interrotto->numeri));
        platform::Messaggio domanda{testo, Pulsanti::si_no, "Tabellino"};
        // Closed in a hurry, the numbers would be gone for good.
        domanda.lasciata_vale_si = true;
        if (MsgBox(&finestra_, domanda) == platform::vbYes) {
            ripresa_.riprendi();
        } else {
            ripresa_.dimentica();
        }
    }
    constexpr int ogni_tre_secondi = 3000;
    auto* orologio = new QTimer(&finestra_);
    orologio->setObjectName("ripresa");
    QObject::connect(orologio, &QTimer::timeout, &finestra_, [this] { ripresa_.tieni(); });
    orologio->start(ogni_tre_secondi);
}

void Archiviatore::salva_sistema(bool& esito) {
    esito = sessione_.completo();
    if (!esito) {
        MsgBox(&finestra_,
               {"Per procedere al salvataggio del sistema occorre completare lo schema del "
                "Cruciverba",
                Pulsanti::ok, "Tabellino", platform::Icona::informazione});
        return;
    }
    // A dialog that was dismissed can't be told from a save.
    if (sessione_.nome().empty()) mnusalvanome_Click();
    if (!sessione_.nome().empty()) {
        finestra_.mostra_esito(platform::q(esito_detto(sessione_.salva())));
    }
    finestra_.cella_riepilogo(3, 1);
}

void Archiviatore::mnusalva_Click() {
    bool esito = false;
    salva_sistema(esito);
}

void Archiviatore::mnusalvanome_Click() {
    if (!sessione_.completo()) {
        MsgBox(&finestra_,
               {"Per procedere al salvataggio del sistema si deve completare il Cruciverba",
                Pulsanti::ok, "Tabellino"});
        return;
    }
    dialoghi_.gestore_salva(finestra_);
}

void Archiviatore::mnuapri_Click() {
    if (!sessione_.salvato()) {
        const int risposta =
            MsgBox(&finestra_, {"Sono state apportate delle modifiche al sistema in linea.\n"
                                "Salvare il Sistema?",
                                Pulsanti::si_no_annulla, "Tabellino"});
        if (risposta == platform::vbCancel) return;
        if (risposta == platform::vbYes) {
            bool esito = false;
            salva_sistema(esito);
            if (!esito) return;
        }
    }
    dialoghi_.gestore_apri(finestra_);
}

bool Archiviatore::nuovo_cruciverba() {
    if (sessione_.salvato()) return true;
    const int risposta = MsgBox(
        &finestra_, {"Sono state apportate delle modifiche al sistema attualmente in linea.\n"
                     "Si desidera salvare ora il sistema?",
                     Pulsanti::si_no_annulla, "Tabellino"});
    if (risposta == platform::vbNo) return true;
    if (risposta != platform::vbYes) return false;
    if (!sessione_.completo()) {
        MsgBox(&finestra_,
               {"Per procedere al salvataggio del sistema occorre completare lo schema del "
                "Cruciverba",
                Pulsanti::ok, "Cruciverba"});
        return false;
    }
    dialoghi_.gestore_salva(finestra_);
    return true;
}

bool Archiviatore::controllo_salvataggio() {
    if (sessione_.salvato()) return true;
    const int risposta = MsgBox(&finestra_, {"Il sistema in linea è stato modificato.\n"
                                             "Si desidera salvarlo?",
                                             Pulsanti::si_no_annulla, "Tabellino"});
    if (risposta == platform::vbYes) mnusalva_Click();
    return risposta != platform::vbCancel;
}

}  // namespace systems
