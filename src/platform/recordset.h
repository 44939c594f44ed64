// Records of the archive, walked and read as DAO does it; no step throws.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/table.h"

namespace platform {

/// Outcome of a database step: DAO's number of the error, 0 for none.
struct Err {
    int Number = 0;
    [[nodiscard]] bool ok() const { return Number == 0; }
    /// Short Italian description, empty for none.
    [[nodiscard]] std::string_view Description() const;
};

// The numbers in use, as DAO has them.
inline constexpr int errore_oggetto_assente = 91;
inline constexpr int errore_argomento = 3001;
inline constexpr int errore_indice_sconosciuto = 3015;
inline constexpr int errore_senza_indice = 3019;
inline constexpr int errore_nessun_record = 3021;
inline constexpr int errore_file_assente = 3024;
inline constexpr int errore_disco = 3043;
inline constexpr int errore_danneggiato = 3049;
inline constexpr int errore_permesso = 3051;
inline constexpr int errore_campo_sconosciuto = 3061;
inline constexpr int errore_tabella_assente = 3078;
inline constexpr int errore_lettore_assente = 3170;
inline constexpr int errore_scaduto = 3234;
inline constexpr int errore_operazione = 3251;
inline constexpr int errore_elemento_assente = 3265;
inline constexpr int errore_formato = 3343;
inline constexpr int errore_esclusivo = 3356;
inline constexpr int errore_chiuso = 3420;
inline constexpr int errore_tipi = 3464;

namespace interno {
struct Stato;
}

/// A field bound to its recordset: it reads whatever record is current there.
class Field {
public:
    Field() = default;

    /// Fails without a current record, and for a field that is bound to nothing.
    Err Value(Valore& destinazione) const;
    /// Null also where the read fails.
    [[nodiscard]] Valore Value() const;

private:
    friend class Recordset;
    std::shared_ptr<const interno::Stato> stato_;
    std::size_t colonna_ = 0;
};

/// A handle: copies share one current record, as references to one object do.
class Recordset {
public:
    Recordset() = default;

    Err MoveFirst();
    Err MoveLast();
    /// From the last record it goes to the end, from the end it fails; from before the first record
    /// it goes to the first.
    Err MoveNext();
    /// The same the other way round.
    Err MovePrevious();
    /// Goes `n` records on, or back when negative. A move beyond either end stops there without an
    /// error; one that starts beyond an end and does not come back fails, and so does any move over
    /// no records.
    Err Move(std::int32_t n);

    /// Past the last record; true as well with no records and for a closed recordset.
    [[nodiscard]] bool eof() const;
    /// Before the first record; true as well with no records and for a closed recordset.
    [[nodiscard]] bool bof() const;
    /// All records of a table; of a query those reached so far, so all after a `MoveLast`.
    [[nodiscard]] std::int32_t RecordCount() const;

    /// Binds a field by its position or by its name, case ignored; on failure the target stays.
    Err Fields(int posizione, Field& destinazione) const;
    Err Fields(std::string_view nome, Field& destinazione) const;
    /// A field bound to nothing where there is none such.
    [[nodiscard]] Field Fields(int posizione) const;
    [[nodiscard]] Field Fields(std::string_view nome) const;

    /// Puts a table in the order of the index, which bears its field's name, at its first record.
    Err Index(std::string_view nome);
    /// Finds the first record with that key in the index; only "=" is known. When there is none,
    /// no record is current.
    Err Seek(std::string_view confronto, std::int32_t chiave);

    Err Close();

private:
    friend class Database;
    explicit Recordset(std::shared_ptr<interno::Stato> stato) : stato_(std::move(stato)) {}
    [[nodiscard]] int controlla() const;
    std::shared_ptr<interno::Stato> stato_;
};

namespace interno {

/// What the handles of one recordset share.
struct Stato {
    std::shared_ptr<const Table> tabella;
    std::shared_ptr<const bool> database_aperto;
    std::vector<std::uint32_t> ordine;  ///< rows of the table in the order of the records
    bool query = false;
    bool aperto = true;
    bool indefinito = false;     ///< no current record, and no end either
    std::int64_t posizione = 0;  ///< -1 before the first record
    std::int64_t visti = 0;
    std::optional<std::size_t> indice;  ///< its column

    /// Error number of any use at all.
    [[nodiscard]] int uso() const { return aperto && *database_aperto ? 0 : errore_chiuso; }
    [[nodiscard]] std::int64_t quanti() const { return static_cast<std::int64_t>(ordine.size()); }
    [[nodiscard]] bool su_un_record() const {
        return !indefinito && posizione >= 0 && posizione < quanti();
    }
    void vai(std::int64_t dove);
};

}  // namespace interno

}  // namespace platform
