// Who speaks to assistive programs for a control of our own.
#pragma once

#include <QAccessible>

namespace platform {

/// From the first call on, an `Interfaccia` of its own speaks for each `Controllo`, or for those
/// alone that `quali` tells.
template <class Controllo, class Interfaccia>
void parla_per(bool (*quali)(const Controllo&) = nullptr) {
    static bool (*const suoi)(const Controllo&) = quali;
    static const bool una_volta = [] {
        QAccessible::installFactory(
            [](const QString& /*classe*/, QObject* oggetto) -> QAccessibleInterface* {
                auto* controllo = qobject_cast<Controllo*>(oggetto);
                const bool suo = controllo != nullptr && (suoi == nullptr || suoi(*controllo));
                return suo ? new Interfaccia(controllo) : nullptr;
            });
        return true;
    }();
    static_cast<void>(una_volta);
}

}  // namespace platform
