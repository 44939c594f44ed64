#include "platform/jet.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <vector>

#include "platform/ambiente.h"
#include "platform/disk.h"
#include "platform/figlio.h"
#include "platform/file.h"
#include "platform/leggi_mdb/protocollo.h"
#include "platform/recordset.h"

namespace platform {

namespace {

/// Takes the child's output apart; nothing in it is trusted.
class Messaggio {
public:
    explicit Messaggio(std::string_view dati) : resto_(dati) {}

    template <typename T>
    T prendi() {
        T valore{};
        if (const auto byte = prendi(sizeof(T)); byte.size() == sizeof(T))
            std::memcpy(&valore, byte.data(), sizeof(T));
        return valore;
    }
    std::string_view prendi(std::size_t n) {
        if (resto_.size() < n) {
            intero_ = false;
            resto_ = {};
            return {};
        }
        const std::string_view preso = resto_.substr(0, n);
        resto_.remove_prefix(n);
        return preso;
    }
    [[nodiscard]] bool intero() const { return intero_; }
    [[nodiscard]] bool finito() const { return resto_.empty(); }
    [[nodiscard]] std::size_t resta() const { return resto_.size(); }

private:
    std::string_view resto_;
    bool intero_ = true;
};

int da_motivo(protocollo::Motivo motivo) {
    switch (motivo) {
        case protocollo::Motivo::formato:
            return errore_formato;
        case protocollo::Motivo::tabella_assente:
            return errore_tabella_assente;
        case protocollo::Motivo::lettore_assente:
            return errore_lettore_assente;
        default:
            return errore_danneggiato;
    }
}

Table::Tipo da_tipo(protocollo::Tipo tipo) {
    switch (tipo) {
        case protocollo::Tipo::testo:
            return Table::Tipo::testo;
        case protocollo::Tipo::data:
            return Table::Tipo::data;
        default:
            return Table::Tipo::intero;
    }
}

std::uint32_t leggi_testa(Messaggio& messaggio, Table& tabella) {
    const auto righe = messaggio.prendi<std::uint32_t>();
    const auto colonne = messaggio.prendi<std::uint16_t>();
    for (std::uint16_t i = 0; i < colonne && messaggio.intero(); ++i) {
        const auto tipo = static_cast<protocollo::Tipo>(messaggio.prendi<std::uint8_t>());
        const auto nome = messaggio.prendi(messaggio.prendi<std::uint16_t>());
        tabella.aggiungi_colonna(std::string(nome), da_tipo(tipo));
    }
    // A row takes a byte and one more a column at least.
    const std::size_t minimo = tabella.colonne() + 1;
    tabella.riserva(std::min<std::size_t>(righe, messaggio.resta() / minimo));
    return righe;
}

void leggi_riga(Messaggio& messaggio, Table& tabella) {
    for (std::size_t i = 0; i < tabella.colonne(); ++i) {
        if (messaggio.prendi<std::uint8_t>() == 0) {
            tabella.accoda_nullo(i);
        } else if (tabella.tipo(i) == Table::Tipo::testo) {
            tabella.accoda(i, messaggio.prendi(messaggio.prendi<std::uint16_t>()));
        } else {
            tabella.accoda(i, messaggio.prendi<std::int32_t>());
        }
    }
}

/// The table of a finished output; 0 or the error's number.
int leggi_messaggio(std::string_view dati, Table& tabella) {
    Messaggio messaggio(dati);
    std::uint32_t attese = 0;
    std::uint32_t lette = 0;
    while (messaggio.intero() && !messaggio.finito()) {
        switch (messaggio.prendi<char>()) {
            case protocollo::testa:
                attese = leggi_testa(messaggio, tabella);
                break;
            case protocollo::riga:
                leggi_riga(messaggio, tabella);
                ++lette;
                if (tabella.piena()) return errore_danneggiato;
                break;
            case protocollo::errore:
                return da_motivo(static_cast<protocollo::Motivo>(messaggio.prendi<std::uint8_t>()));
            case protocollo::fine:
                return messaggio.prendi<std::uint32_t>() == lette && lette == attese &&
                               messaggio.intero() && messaggio.finito()
                           ? 0
                           : errore_danneggiato;
            default:
                return errore_danneggiato;
        }
    }
    // The child died before its last word.
    return errore_danneggiato;
}

int chiedi(const std::vector<std::string>& argomenti, Table& tabella) {
    const LettoreJet& lettore = ambiente().lettore_jet;
    Figlio figlio;
    const std::string programma =
        lettore.programma.empty() ? trova_lettore(cartella_eseguibile()) : lettore.programma;
    if (!figlio.avvia(programma, argomenti)) return errore_lettore_assente;
    std::string dati;
    switch (
        figlio.uscita({lettore.attesa_muta, lettore.attesa_totale, lettore.uscita_massima}, dati)) {
        case Figlio::Fine::finito:
            return leggi_messaggio(dati, tabella);
        case Figlio::Fine::scaduto:
            return errore_scaduto;
        case Figlio::Fine::troppo:
            return errore_danneggiato;
        default:
            return errore_disco;
    }
}

/// Signature and size, which the library does not look at.
bool intestazione(const std::string& file) {
    constexpr std::array<std::string_view, 2> firme{"Standard Jet DB", "Standard ACE DB"};
    File aperto(file, File::Modo::leggi);
    std::array<char, 24> testa{};
    if (!aperto.aperto() || aperto.leggi(testa.data(), testa.size()) != std::ssize(testa))
        return false;
    const std::string_view inizio(testa.data(), 4);
    const std::string_view firma(testa.data() + 4, firme[0].size());
    const std::int64_t pagina = testa[0x14] == 0 ? 2048 : 4096;
    return inizio == std::string_view("\0\1\0\0", 4) && (firma == firme[0] || firma == firme[1]) &&
           dimensione_file(file).value_or(1) % pagina == 0;
}

}  // namespace

std::string trova_lettore(const std::string& eseguibile) {
    const std::string accanto = eseguibile + "/leggi_mdb";
    const std::string installato = eseguibile + "/" LIBEXEC "/leggi_mdb";
    return !esiste_file(accanto) && esiste_file(installato) ? installato : accanto;
}

int verifica_jet(const std::string& file) {
    Table tabella;
    return intestazione(file) ? chiedi({file}, tabella) : errore_formato;
}

int leggi_jet(const std::string& file, std::string_view nome, Table& tabella) {
    return intestazione(file) ? chiedi({file, std::string(nome)}, tabella) : errore_formato;
}

}  // namespace platform
