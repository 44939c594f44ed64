// The system that is open and all that can be done with it, without a window.
#pragma once

#include <array>
#include <bitset>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "crossword/classi.h"
#include "crossword/cronologia.h"
#include "crossword/gioco.h"
#include "crossword/matrice.h"
#include "crossword/tipi.h"
#include "development/elaborazione.h"
#include "platform/runtime.h"
#include "statistics/archivio.h"
#include "statistics/generatore.h"
#include "statistics/statistica.h"
#include "systems/file_sistema.h"
#include "systems/lista_tipi.h"
#include "systems/operazioni.h"

namespace systems {

/// A cell of the crossword, column first, both from 0.
struct Cella {
    int colonna = 0;
    int riga = 0;
    friend bool operator==(const Cella&, const Cella&) = default;
};

/// What an action changed. A view that reads these anew shows the session as it is.
struct Cambiamento {
    bool gioco = false;       ///< game or form, and so the sizes to choose from
    bool dimensioni = false;  ///< the grid is another one, or was emptied whole
    bool celle = false;
    bool tipi = false;  ///< lists of types, or what is chosen in them
    bool conteggi = false;
    bool importo = false;  ///< total, share, number of shares or currency
    bool nome = false;
    bool salvato = false;
    bool cronologia = false;
    friend bool operator==(const Cambiamento&, const Cambiamento&) = default;
};

/// Called once after each action that changed something, when the session is whole again; it may
/// act on the session in its turn.
using Osservatore = std::function<void(const Cambiamento&)>;

/// What became of a number that was to be laid.
enum class Posata {
    posata,
    sbarrata,  ///< a line through the cell holds the number
    fuori,     ///< no such cell, or no number from 1 to 90
    occupata,  ///< a long job is at work on the session
};

/// What became of a save.
enum class Salvataggio {
    salvato,
    incompleto,    ///< some cell is empty
    senza_nome,    ///< the system has none yet
    nome_vietato,  ///< no file of the program folder can be named so
    non_scritto,   ///< the disk refused; the system counts as saved all the same
    occupata,
};

/// What became of an elaboration.
enum class Elaborato {
    completo,       ///< the development stands beside the system
    senza_file,     ///< no table could be read: there is no development
    guasto,         ///< the disk refused some lines: there is no development
    rimasto,        ///< so it is, but the disk did not give up an older development either
    interrotto,     ///< asked to stop: an older development stays
    incompleto,     ///< some cell is empty; nothing was done
    senza_nome,     ///< the system has none yet; nothing was done
    senza_tabella,  ///< an economical table is not there; nothing was done
    occupata,
};

/// What became of a completion with the numbers in play.
enum class Completato { completo, impossibile, interrotto, occupata };

/// What became of a generation.
enum class Generato {
    completo,
    abbandonato,       ///< no archive, or draws that do not do; what was laid stays
    interrotto,        ///< asked to stop; what was laid stays
    poche_estrazioni,  ///< fewer than 100 draws of the national wheel
    gia_iniziato,      ///< the first cell is full: nothing was done
    occupata,
};

/// Total, share and currency as they are shown.
struct Prezzo {
    std::string totale;
    std::string quota;
    std::string quote = "1";  ///< number of shares
    std::string valuta;
};

/// How the outside follows an elaboration. Each part may be empty.
struct SeguitoSviluppo {
    development::AvanzamentoSviluppo avanzamento;
    /// Called when the lines are written and repetitions were to go, with what is left.
    std::function<void(std::int32_t combinazioni)> ripetizioni;
    /// Takes a file named as the working files are, which may be a player's own.
    std::function<bool(const std::string& file)> cestina;
};

/// Owned by one view at a time; not for several threads. Every rule holds here, whoever asks: a
/// barred number stays out, an incomplete crossword is not saved nor developed, and while a long
/// job runs every change is refused. No outcome is an exception.
class Sessione {
public:
    /// `cartella` is the program folder, without a final separator; the suite's root is cut off
    /// it. Touches no file before `avvia`.
    explicit Sessione(std::string cartella);
    /// With the tables of the folder `ridotti`, without a final separator, instead of the suite's.
    Sessione(std::string cartella, std::string ridotti);
    Sessione(const Sessione&) = delete;
    Sessione& operator=(const Sessione&) = delete;

    void osserva(Osservatore osservatore) { osservatore_ = std::move(osservatore); }

    /// Empty crossword of the smallest size, in SuperEnalotto; reads option and price, and takes
    /// away what a save under an empty name may have left.
    void avvia();
    /// Opens the archive of draws as `draws`; reads fail from then on when it fails.
    platform::Err apri_archivio();
    /// Opens it again where another file stands in its place since; what cannot be opened leaves
    /// the draws as they were.
    void rinfresca_archivio();
    /// The archive as it stands on the disk; nothing when there is none.
    [[nodiscard]] std::optional<platform::Impronta> impronta_archivio() const;

    // What it is.
    [[nodiscard]] const std::string& cartella() const { return cartella_; }
    /// The folder of the tables, without a final separator.
    [[nodiscard]] const std::string& ridotti() const { return ridotti_; }
    [[nodiscard]] crossword::Gioco gioco() const { return gioco_; }
    /// The crossword; of other sizes than `colonne` by `righe` when a damaged file had such.
    [[nodiscard]] const crossword::Matrice& matrice() const { return matrice_; }
    /// Sizes chosen.
    [[nodiscard]] int colonne() const { return colonne_; }
    [[nodiscard]] int righe() const { return righe_; }
    [[nodiscard]] bool completo() const { return crossword::cruciverba_completo(matrice_); }
    /// Different numbers in the grid.
    [[nodiscard]] int numeri_in_gioco() const;
    /// Numbers that a cell may not take; index 0 means nothing.
    [[nodiscard]] std::bitset<91> sbarrati(Cella cella) const;
    /// Empty when there is none.
    [[nodiscard]] const std::string& nome() const { return nome_; }
    /// True when nothing changed since the last save, opening or emptying.
    [[nodiscard]] bool salvato() const { return salvato_; }
    /// True while a long job runs.
    [[nodiscard]] bool occupata() const { return occupata_; }
    [[nodiscard]] bool con_ripetizioni() const { return con_ripetizioni_; }
    /// True when the lists of types go on with the economical tables.
    [[nodiscard]] bool con_economiche() const { return con_economiche_; }
    [[nodiscard]] bool annullabile() const { return cronologia_.annullabile(); }
    [[nodiscard]] bool ripetibile() const { return cronologia_.ripetibile(); }
    /// True when the development of the system in line stands on the disk, current or not.
    [[nodiscard]] bool sviluppo_presente() const;
    /// False when that development is another crossword's: by its mark, or because the disk kept an
    /// older one when this crossword was developed.
    [[nodiscard]] bool sviluppo_proprio() const;
    /// True when the player changed and saved the system since it was opened, and so knows that its
    /// development is an older one.
    [[nodiscard]] bool sviluppo_superato() const { return sviluppo_superato_; }
    /// The system as its file tells it.
    [[nodiscard]] Sistema sistema() const;

    // Types and counts.
    [[nodiscard]] const std::vector<std::string>& tipi(crossword::Elenco quale) const;
    /// Place of the type chosen in its list, -1 for none.
    [[nodiscard]] int tipo(crossword::Elenco quale) const;
    /// Number of the type chosen, which names its table and which the file keeps; -1 for none.
    [[nodiscard]] int indice(crossword::Elenco quale) const;
    /// Number of the type at a place of a list; -1 for none.
    [[nodiscard]] int indice_in(crossword::Elenco quale, int posto) const;
    /// Files of the economical tables that the system plays and that are missing or damaged now.
    [[nodiscard]] std::vector<std::string> tabelle_mancanti() const;
    /// Lines of a kind as they are shown; nothing for the diagonals of a rectangle.
    [[nodiscard]] std::optional<int> linee(crossword::Elenco quale) const;
    /// Combinations of a line as they are shown; empty for the diagonals of a rectangle.
    [[nodiscard]] std::string combinazioni(crossword::Elenco quale) const;
    [[nodiscard]] std::int32_t totale() const { return totale_; }
    /// Combinations without repetitions; 0 until they were counted.
    [[nodiscard]] std::int32_t senza_ripetizioni() const { return senza_ripetizioni_; }
    [[nodiscard]] const Prezzo& prezzo() const { return prezzo_; }

    // Another crossword. Each empties without a question and forgets what could be undone.
    void passa_al_superenalotto();
    /// Always in cinquine.
    void passa_al_lotto();
    /// Empties, and forgets name, ranking and shares.
    void azzera();
    /// Empties and forgets the name alone.
    void nuovo();
    /// Other sizes; both within the game's own, else they stay. The name stays.
    void dimensioni(int colonne, int righe);
    /// Gives the crossword the name of a system, as an opening does: nothing can be undone.
    void in_linea(const std::string& nome);
    /// Opens a system of this game; false when its name is none or a long job runs. A file that is
    /// missing or short reads as zeros.
    bool apri(const std::string& nome);

    // The crossword.
    /// In Lotto: another form. The development of the system in line goes, even when the form does
    /// not change. A form that does not exist is kept and plays nothing.
    void cambia_forma(int forma);
    Posata posa(Cella cella, int numero);
    /// Empties a cell; marks the system as changed in any case.
    void rimuovi(Cella cella);
    /// Empties the crossword and puts the types back to the first; can be undone.
    void svuota();
    /// Lays another full crossword of the same sizes in the place of this one, as one action;
    /// false, and nothing changes, when the rule refuses one of its numbers or a long job runs.
    bool disponi(const crossword::Matrice& nuova);
    /// Fills the empty cells with the numbers in play, as one action. `ferma`, where given, takes
    /// the cell that admits none of them.
    Completato completa_con_scelti(const statistics::Posata& posata, Cella* ferma = nullptr);
    /// Lays a whole crossword from the draws, as one action; `ruota` is the wheel's place in the
    /// list and counts in Lotto. `archivio`, where given, takes what the opening came to.
    Generato genera(int ruota, const statistics::Seguito& seguito,
                    platform::Err* archivio = nullptr);
    /// The classes of delay of the last generation, as long as the crossword holds as many numbers
    /// of each on each row and column as were laid then.
    [[nodiscard]] std::optional<crossword::Classi> classi_generate() const;
    /// Fills the crossword from the frequencies.
    void completa(const statistics::Seguito& seguito);
    /// Takes back, or does again, an action; the cell it began at, nothing when there is none.
    std::optional<Cella> annulla();
    std::optional<Cella> ripeti();
    /// Chooses a type; false when the list has no such place.
    bool scegli_tipo(crossword::Elenco quale, int posto);
    /// Chooses a type by its number. An economical table that the list has not is put into it, and
    /// one that is missing too: false for any other number that is not there.
    bool scegli_indice(crossword::Elenco quale, int indice);

    // Price.
    /// Number of shares, 1 to 999.
    void quote(int quante);
    /// Total as text of so many columns, by the price in force; the share follows.
    std::string calcolo_importo(std::int32_t colonne);
    /// Reads the currency anew.
    void importo();
    /// Counts and prices anew; the system counts as changed.
    void totale_combinazioni();
    /// For who knows that the file matches the screen, or no longer does.
    void segna_salvato(bool salvato);

    // Files.
    void ripetizioni(bool con);
    /// Shows or hides the economical tables; what is chosen stays.
    void economiche(bool con);
    /// Reads the lists of types anew, when a table came or went; what is chosen stays.
    void rinnova_tipi();
    /// Writes the system under its name.
    Salvataggio salva();
    /// Writes it under another one. A development that the name has stays: `libera` comes first.
    Salvataggio salva_come(const std::string& nome);
    /// Deletes the development of a name that is about to be overwritten.
    void libera(const std::string& nome) const;
    /// Develops, after a save where one is due, and saves the new count.
    Elaborato sviluppa(const SeguitoSviluppo& seguito);

    /// Open draws, shared with those who check against them.
    statistics::Archivio archivio;
    /// Ranking of the numbers.
    statistics::Statistico statistico;

private:
    /// While one lives the observer waits.
    class Azione;
    /// While one lives every change is refused but its own.
    class Lavoro;

    void griglia(int colonne, int righe);
    void carica_tipi(crossword::Elenco quale);
    [[nodiscard]] FonteTipi fonte() const;
    /// Numbers of the lines that a list is for.
    [[nodiscard]] int numeri_di(crossword::Elenco quale) const;
    void conta(crossword::Elenco quale);
    void conta_economica(crossword::Elenco quale);
    [[nodiscard]] std::int32_t combinazioni_diagonali() const;
    void cambia(const crossword::Matrice& prima, const std::array<int, 3>& tipi_prima);
    void annota(Cella cella, std::int16_t prima);
    std::optional<Cella> rifai(const std::vector<crossword::Modifica>* voluta, bool indietro);
    void nomina(const std::string& nome);
    void senza_cronologia();
    void passa(crossword::Gioco gioco);
    void libera_sviluppo(crossword::Gioco gioco) const;
    [[nodiscard]] Generato genera_in_griglia(int ruota, const statistics::Seguito& seguito);
    [[nodiscard]] std::optional<Generato> estrazioni_della_ruota(int ruota);
    void salva_elaborando();
    [[nodiscard]] Elaborato elabora(const SeguitoSviluppo& seguito);
    [[nodiscard]] Coppia coppia() const { return {cartella_, nome_, gioco_}; }
    [[nodiscard]] std::string file(const std::string& nome) const { return cartella_ + "/" + nome; }
    static std::size_t posto(crossword::Elenco quale) {
        return static_cast<std::size_t>(quale) - 1;
    }

    std::string cartella_;
    std::string ridotti_;
    Osservatore osservatore_;
    Cambiamento cambiamento_;
    int azioni_ = 0;
    bool occupata_ = false;

    crossword::Gioco gioco_;
    crossword::Matrice matrice_;
    int colonne_ = 0;
    int righe_ = 0;
    crossword::Matsis matsis_;
    std::array<ListaTipi, 3> elenchi_;
    std::array<int, 3> tipi_{-1, -1, -1};  ///< numbers, not places
    mutable development::Economiche tabelle_;
    // Kept from the last choice: a list that has no types leaves what was counted before it.
    std::array<std::int32_t, 3> per_linea_{};
    std::string testo_diagonali_;
    std::int32_t totale_ = 0;
    std::int32_t senza_ripetizioni_ = 0;
    Prezzo prezzo_;
    std::string nome_;
    bool salvato_ = false;
    bool con_ripetizioni_ = false;
    bool con_economiche_ = false;
    bool sviluppo_superato_ = false;
    bool sviluppo_rimasto_ = false;  ///< of another crossword, which its file still holds
    crossword::Cronologia cronologia_;
    crossword::Matrice generata_;
    crossword::Classi classi_generate_{};
    platform::Rnd rnd_;
    /// After a change to SuperEnalotto, and until the next to Lotto, the archive opens on the
    /// wheels' table.
    bool tabella_ruote_ = false;
};

}  // namespace systems
