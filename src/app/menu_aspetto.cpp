#include "app/menu_aspetto.h"

#include <QActionGroup>
#include <QMenu>

#include "app/aspetto.h"
#include "app/stile.h"
#include "platform/qt/desktop.h"
#include "platform/qt/folder.h"

namespace app {

namespace {

void cambia(QWidget* finestra, const std::string& radice, Aspetto aspetto) {
    const bool tenuto = scegli_aspetto(radice, aspetto);
    if (tenuto) {
        finestra->setStyleSheet(platform::q(foglio_aspetto(radice, desktop_scuro())));
        return;
    }
    platform::MsgBox(
        finestra,
        {"L'aspetto non si può cambiare: nella cartella \"" +
             platform::da_mostrare(platform::q(radice + "skin")) + "\" non si può scrivere.",
         platform::Pulsanti::ok, "Tabellino", platform::Icona::informazione});
}

}  // namespace

void aggiungi_menu_aspetto(QMenu* menu, QWidget* finestra, const std::string& radice) {
    QMenu* aspetti = menu->addMenu(QObject::tr("As&petto"));
    aspetti->setObjectName("mnuaspetto");
    aspetti->menuAction()->setObjectName("mnuaspetto");
    auto* gruppo = new QActionGroup(aspetti);
    // None is ticked while a skin of the player's own is in force.
    gruppo->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    struct Voce {
        Aspetto aspetto;
        const char* nome;
        QString testo;
    };
    for (const Voce& voce :
         {Voce{Aspetto::classico, "mnuclassico", QObject::tr("&Classico")},
          Voce{Aspetto::chiaro, "mnuchiaro", QObject::tr("C&hiaro")},
          Voce{Aspetto::scuro, "mnuscuro", QObject::tr("&Scuro")},
          Voce{Aspetto::come_il_sistema, "mnusistema", QObject::tr("Come il s&istema")}}) {
        if (voce.aspetto == Aspetto::come_il_sistema) aspetti->addSeparator();
        QAction* a = aspetti->addAction(voce.testo);
        a->setObjectName(voce.nome);
        a->setCheckable(true);
        gruppo->addAction(a);
        QObject::connect(a, &QAction::triggered, finestra,
                         [=, aspetto = voce.aspetto] { cambia(finestra, radice, aspetto); });
        QObject::connect(aspetti, &QMenu::aboutToShow, a, [=, aspetto = voce.aspetto] {
            a->setChecked(aspetto_scelto(radice) == static_cast<std::uint8_t>(aspetto));
        });
    }
}

}  // namespace app
