#include "printing/intervallo.h"

#include <algorithm>

#include "platform/runtime.h"

namespace printing {

using platform::Val;

std::string totale_senza_punti(const std::string& testo) {
    std::string cifre = testo;
    cifre.erase(std::remove(cifre.begin(), cifre.end(), '.'), cifre.end());
    return cifre;
}

Intervallo convalida(Intervallo i, int campo) {
    if (Val(i.dalla) <= 0) i.dalla = "1";
    if (Val(i.alla) <= 0) i.alla = i.totale;
    if (Val(i.totale) < Val(campo == 0 ? i.dalla : i.alla)) {
        if (campo == 0) {
            i.dalla = "1";
        } else {
            i.alla = i.totale;
        }
    }
    if (campo == 0 && Val(i.alla) < Val(i.dalla)) i.dalla = "1";
    if (campo == 1 && Val(i.dalla) > Val(i.alla)) i.alla = i.dalla;
    return i;
}

}  // namespace printing
