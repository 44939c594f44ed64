// The ranking that the statistics leave for the generators.
#include "fuzz/ingresso.h"
#include "statistics/statistica.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    static const fuzz::Suite suite;
    static fuzz::Ingresso ingresso(suite.file("mstat.dat"));
    const std::string& file = ingresso.riempi(dati, quanti);
    statistics::Graduatoria tabella;
    const bool letta = statistics::leggi_mstat(tabella, file);
    const auto data = statistics::leggi_data(file);
    if (data) fuzz::esigi(data->mese >= 1 && data->mese <= 12 && data->giorno >= 1);
    if (!letta) return 0;
    statistics::ordina_statistica(tabella, 1, 90);
    for (std::size_t i = 2; i <= 90; ++i) fuzz::esigi(tabella[i - 1].valore >= tabella[i].valore);
    statistics::gradua(tabella);
    return 0;
}
