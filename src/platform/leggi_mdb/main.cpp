// Reads one table of a Jet file and writes it to standard output: leggi_mdb FILE [TABLE].
// Without a table it only tells whether the catalogue can be read.
//
// The library is not proof against damaged files. It runs here, under limits, so that the worst
// that can happen is the death of this process; the one that started it takes that for an error.
#include <algorithm>
#include <cmath>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <mdbtools.h>
#include <optional>
#include <string>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <vector>

#include "platform/leggi_mdb/uscita.h"

namespace {

using protocollo::Motivo;
using protocollo::Tipo;
using protocollo::Uscita;

constexpr int cancellato = 0x8000;
constexpr int altrove = 0x4000;
constexpr int scostamento = 0x1fff;

void limita(__rlimit_resource risorsa, rlim_t quanto) {
    const rlimit limite{quanto, quanto};
    ::setrlimit(risorsa, &limite);
}

Tipo tipo_di(const MdbColumn& colonna) {
    switch (colonna.col_type) {
        case MDB_TEXT:
            return Tipo::testo;
        case MDB_DATETIME:
            return Tipo::data;
        default:
            return Tipo::intero;
    }
}

/// Reads the rows of one table from the pages themselves.
class Lettura {
public:
    Lettura(MdbHandle* mdb, MdbTableDef* tabella, Uscita& uscita)
        : mdb_(mdb), tabella_(tabella), uscita_(uscita), campi_(tabella->num_cols) {}
    void testa();
    void righe();

private:
    void pagina();
    void riga(int inizio, std::size_t lunghezza);
    void seguita(int inizio, std::size_t lunghezza);
    void valore(const MdbColumn& colonna, const MdbField& campo);
    void testo(const unsigned char* byte, std::size_t quanti);
    std::optional<double> numero(const MdbColumn& colonna, const unsigned char* byte,
                                 std::size_t quanti) const;
    [[nodiscard]] const MdbColumn& colonna(std::size_t i) const {
        return *static_cast<MdbColumn*>(tabella_->columns->pdata[i]);
    }

    MdbHandle* mdb_;
    MdbTableDef* tabella_;
    Uscita& uscita_;
    std::vector<MdbField> campi_;
    std::uint32_t lette_ = 0;
};

void Lettura::testa() {
    uscita_.metti(protocollo::testa);
    uscita_.metti(static_cast<std::uint32_t>(tabella_->num_rows));
    uscita_.metti(static_cast<std::uint16_t>(tabella_->num_cols));
    for (std::size_t i = 0; i < campi_.size(); ++i) {
        uscita_.metti(tipo_di(colonna(i)));
        uscita_.metti_testo({colonna(i).name, ::strnlen(colonna(i).name, MDB_MAX_OBJ_NAME)});
    }
    uscita_.scrivi();
}

void Lettura::righe() {
    mdb_rewind_table(tabella_);
    guint32 prima = 0;
    while (mdb_read_next_dpg(tabella_) != 0) {
        // Pages come in ascending order; anything else is a map that leads round in circles.
        if (tabella_->cur_phys_pg <= prima) uscita_.rinuncia(Motivo::danneggiato);
        prima = tabella_->cur_phys_pg;
        pagina();
    }
    // A file cut short reads short, without a word of the library.
    if (lette_ != tabella_->num_rows) uscita_.rinuncia(Motivo::danneggiato);
    uscita_.concludi(lette_);
}

void Lettura::pagina() {
    const int quante = mdb_get_int16(mdb_->pg_buf, mdb_->fmt->row_count_offset);
    for (int i = 0; i < quante; ++i) {
        int inizio = 0;
        std::size_t lunghezza = 0;
        if (mdb_find_row(mdb_, i, &inizio, &lunghezza) != 0 || lunghezza == 0) continue;
        // A record that outgrew its page keeps its place by a pointer; where it went, it is
        // marked as deleted.
        if ((inizio & cancellato) != 0) continue;
        if ((inizio & altrove) != 0) {
            seguita(inizio & scostamento, lunghezza);
        } else {
            riga(inizio & scostamento, lunghezza);
        }
    }
}

void Lettura::seguita(int inizio, std::size_t lunghezza) {
    void* buffer = nullptr;
    if (lunghezza < 4) return;
    const auto dove = static_cast<int>(mdb_get_int32(mdb_->pg_buf, inizio));
    if (mdb_find_pg_row(mdb_, dove, &buffer, &inizio, &lunghezza) != 0 || lunghezza == 0) return;
    mdb_swap_pgbuf(mdb_);
    riga(inizio & scostamento, lunghezza);
    mdb_swap_pgbuf(mdb_);
}

void Lettura::riga(int inizio, std::size_t lunghezza) {
    if (mdb_crack_row(tabella_, inizio, lunghezza, campi_.data()) < 0) return;
    // Deleted records do not count, so that more rows than the table's own count are damage.
    if (++lette_ > tabella_->num_rows) uscita_.rinuncia(Motivo::danneggiato);
    uscita_.metti(protocollo::riga);
    for (const MdbField& campo : campi_) {
        valore(colonna(static_cast<std::size_t>(campo.colnum)), campo);
    }
    uscita_.forse_scrivi();
}

void Lettura::valore(const MdbColumn& colonna, const MdbField& campo) {
    // The bit that marks a null is the value itself of a yes or no.
    if (colonna.col_type == MDB_BOOL) {
        uscita_.metti(std::uint8_t{1});
        uscita_.metti(campo.is_null != 0 ? std::int32_t{0} : std::int32_t{-1});
        return;
    }
    const bool dentro = campo.value != nullptr && campo.start >= 0 && campo.siz >= 0 &&
                        campo.start + campo.siz <= mdb_->fmt->pg_size;
    const auto* byte = static_cast<const unsigned char*>(campo.value);
    const auto quanti = static_cast<std::size_t>(std::max(campo.siz, 0));
    if (campo.is_null != 0 || !dentro) {
        uscita_.metti(std::uint8_t{0});
    } else if (tipo_di(colonna) == Tipo::testo) {
        uscita_.metti(std::uint8_t{1});
        testo(byte, quanti);
    } else {
        const std::optional<double> letto = numero(colonna, byte, quanti);
        uscita_.metti(static_cast<std::uint8_t>(letto ? 1 : 0));
        if (letto) uscita_.metti(static_cast<std::int32_t>(*letto));
    }
}

template <typename T>
std::optional<double> come(const unsigned char* byte, std::size_t quanti) {
    T valore{};
    if (quanti < sizeof(T)) return std::nullopt;
    std::memcpy(&valore, byte, sizeof(T));
    return static_cast<double>(valore);
}

/// A whole number of 32 bits, or the days of a date; nothing for a type that has none.
std::optional<double> Lettura::numero(const MdbColumn& colonna, const unsigned char* byte,
                                      std::size_t quanti) const {
    // Days from the year 100 to 9999 around 1899-12-30.
    constexpr double primo_giorno = -657434;
    constexpr double ultimo_giorno = 2958465;
    std::optional<double> letto;
    switch (colonna.col_type) {
        case MDB_BYTE:
            letto = come<std::uint8_t>(byte, quanti);
            break;
        case MDB_INT:
            letto = come<std::int16_t>(byte, quanti);
            break;
        case MDB_LONGINT:
            letto = come<std::int32_t>(byte, quanti);
            break;
        case MDB_FLOAT:
            letto = come<float>(byte, quanti);
            break;
        case MDB_DOUBLE:
            letto = come<double>(byte, quanti);
            break;
        case MDB_MONEY:
            if ((letto = come<std::int64_t>(byte, quanti))) letto = *letto / 10000;
            break;
        case MDB_DATETIME:
            // The time of day counts away from zero on both sides of the first day.
            if ((letto = come<double>(byte, quanti))) letto = std::trunc(*letto);
            return letto && *letto >= primo_giorno && *letto <= ultimo_giorno ? letto
                                                                              : std::nullopt;
        default:
            return std::nullopt;
    }
    if (!letto) return std::nullopt;
    const double intero = std::nearbyint(*letto);
    const bool sta = intero >= std::numeric_limits<std::int32_t>::min() &&
                     intero <= std::numeric_limits<std::int32_t>::max();
    return sta ? std::optional<double>(intero) : std::nullopt;
}

void Lettura::testo(const unsigned char* byte, std::size_t quanti) {
    // Plain letters two bytes each, the shape of nearly all short texts, need no conversion.
    std::string semplice;
    for (std::size_t i = 0; i + 1 < quanti && byte[i] < 0x80 && byte[i + 1] == 0; i += 2)
        semplice.push_back(static_cast<char>(byte[i]));
    if (!IS_JET3(mdb_) && semplice.size() * 2 == quanti) {
        uscita_.metti_testo(semplice);
        return;
    }
    std::vector<char> convertito(MDB_BIND_SIZE);
    const int n = mdb_unicode2ascii(mdb_, reinterpret_cast<const char*>(byte), quanti,
                                    convertito.data(), convertito.size());
    const auto lunghi = static_cast<std::size_t>(std::clamp(n, 0, MDB_BIND_SIZE - 1));
    uscita_.metti_testo({convertito.data(), lunghi});
}

MdbTableDef* apri_tabella(MdbHandle* mdb, const char* nome, Uscita& uscita) {
    for (unsigned int i = 0; i < mdb->num_catalog; ++i) {
        auto* voce = static_cast<MdbCatalogEntry*>(mdb->catalog->pdata[i]);
        if (mdb_is_user_table(voce) == 0 || g_ascii_strcasecmp(voce->object_name, nome) != 0)
            continue;
        MdbTableDef* tabella = mdb_read_table(voce);
        if (tabella == nullptr || tabella->num_cols > MDB_MAX_COLS ||
            mdb_read_columns(tabella) == nullptr || tabella->columns->len != tabella->num_cols) {
            uscita.rinuncia(Motivo::danneggiato);
        }
        return tabella;
    }
    uscita.rinuncia(Motivo::tabella_assente);
}

}  // namespace

int main(int argc, char** argv) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    limita(RLIMIT_CORE, 0);
    limita(RLIMIT_CPU, 3);
    limita(RLIMIT_AS, rlim_t{256} << 20);
    limita(RLIMIT_FSIZE, 0);
    if (argc < 2) return 2;
    Uscita uscita;
    MdbHandle* mdb = mdb_open(argv[1], MDB_NOFLAGS);
    if (mdb == nullptr || mdb_read_catalog(mdb, MDB_TABLE) == nullptr || mdb->num_catalog == 0)
        uscita.rinuncia(Motivo::formato);
    if (argc < 3) {
        uscita.concludi(0);
        std::_Exit(0);
    }
    Lettura lettura(mdb, apri_tabella(mdb, argv[2], uscita), uscita);
    lettura.testa();
    lettura.righe();
    // Nothing is freed: the process ends here, and freeing is one more thing that could fail.
    std::_Exit(0);
}
