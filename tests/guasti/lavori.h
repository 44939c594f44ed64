// The works that change the library, on a small library of known content.
#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "guasti/registro.h"
#include "support/cartella.h"
#include "systems/file_sistema.h"
#include "systems/operazioni.h"

namespace guasti {

/// Full names and bytes of the library's files, of those of the other folder and of the suite's.
using Stato = std::map<std::string, std::string>;

/// A root with tables, a library of systems and a foreign folder.
class Libreria {
public:
    /// Everything as at the beginning.
    void prepara() const;
    [[nodiscard]] Stato stato() const;
    /// What the next elaboration does first.
    void riavvia() const;

    [[nodiscard]] std::string programma() const { return cartella_.programma(); }
    [[nodiscard]] std::string altra() const { return cartella_.radice() + "/altra"; }
    [[nodiscard]] std::string ridotti() const { return cartella_.radice() + "/ridotti"; }
    [[nodiscard]] systems::Coppia qui(const std::string& nome) const {
        return {programma(), nome, {}};
    }
    [[nodiscard]] systems::Coppia la(const std::string& nome) const { return {altra(), nome, {}}; }
    [[nodiscard]] std::vector<std::string> cartelle() const { return {programma(), altra()}; }

private:
    support::Cartella cartella_;
};

/// A system whose numbers start at `primo`, not elaborated: 6 columns, 8 rows.
systems::Sistema sistema(int primo);
/// The same with the count of its combinations.
systems::Sistema sistema_elaborato(int primo);
/// Bytes of the files of both.
std::string testo(int primo);
std::string testo_elaborato(int primo);

/// Saves and elaborates as the main form does; false when the disk refused a step.
bool salva(const Libreria& libreria, const std::string& nome, int primo);
bool elabora(const Libreria& libreria, const std::string& nome, int primo);
/// What `elabora` leaves when nothing is in its way.
std::string sviluppo_atteso(int primo);

struct Lavoro {
    std::string nome;  ///< as the table has it
    std::function<void(const Libreria&)> fa;
    /// A full disk leaves a part of these new files.
    bool resta_la_meta = false;
    /// The old development goes when no new one can be had.
    bool via_lo_sviluppo = false;
    /// Replaces a pair: cut short between its two files it leaves the development out, so that the
    /// old one and the new one never stand together.
    bool sostituisce_coppia = false;
    /// The system changes: its old development goes before it does.
    bool cambia_il_sistema = false;
    /// What a file may hold on the way besides the old and the new.
    std::map<std::string, std::string> di_passaggio{};
};

const std::vector<Lavoro>& lavori();

/// States before a work and after it, when nothing disturbs it.
struct Attesa {
    Stato prima;
    Stato dopo;
};
Attesa attesa(const Libreria& libreria, const Lavoro& lavoro);

/// What a fault may do besides leaving each file old or new.
struct Licenza {
    bool mezze_copie = false;       ///< a new file may be a part of what it was to be
    bool senza_sviluppo = false;    ///< the development may be gone
    std::set<std::string> sparite;  ///< the fault itself took these
};

/// True when no development of the library would pass for that of a system that it is not of.
testing::AssertionResult coppie_a_posto(const Libreria& libreria);

/// True when `stato` holds every file as it was or as it was to be; says where it does not.
testing::AssertionResult intero(const Libreria& libreria, const Lavoro& lavoro,
                                const Attesa& attesa, const Licenza& licenza = {});

}  // namespace guasti
