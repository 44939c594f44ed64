// The skin that the suite picks. What follows a null byte is the skin's own file.
#include <algorithm>

#include "app/aspetto.h"
#include "fuzz/ingresso.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    static const fuzz::Suite suite;
    static fuzz::Ingresso scelta(suite.radice() + "skin/skn.dat");
    static fuzz::Ingresso aspetto(suite.radice() + "skin/skin1_2.skn");
    const std::string_view testo(reinterpret_cast<const char*>(dati), quanti);
    const std::size_t taglio = std::min(testo.find('\0'), testo.size());
    scelta.riempi(testo.substr(0, taglio));
    aspetto.riempi(testo.substr(taglio));
    const std::string foglio = app::foglio_aspetto(suite.radice(), false);
    fuzz::esigi(foglio.empty() || foglio == testo.substr(taglio));
    return 0;
}
