// The places of a slip that the player owns, as a text file tells them. Lengths are in tenths of a
// millimetre, from the slip's top left corner as it is read.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "stampa/difetto.h"

namespace schedine {

/// Side of the slip that goes into the printer first.
enum class Ingresso { testa, sinistra };
/// How the numbers run over the cells of a panel.
enum class Ordine { righe, colonne, righe_dal_basso, colonne_dal_basso };
enum class Forma { rettangolo, ovale, croce };

struct Posto {
    int x = 0;
    int y = 0;
    friend bool operator==(const Posto&, const Posto&) = default;
};
struct PostoRuota {
    std::size_t ruota = 0;  ///< index in `statistics::ruote`
    Posto dove;
    friend bool operator==(const PostoRuota&, const PostoRuota&) = default;
};
struct PostoPosta {
    int centesimi = 0;
    Posto dove;
    friend bool operator==(const PostoPosta&, const PostoPosta&) = default;
};

/// A fresh one is in order and like no slip there is.
struct Modulo {
    bool lotto = false;
    Posto foglio{1000, 2000};  ///< width and height
    Ingresso ingresso = Ingresso::testa;
    Posto origine{100, 200};  ///< centre of the panel's first cell, where its offset is nothing
    Posto passo{60, 30};      ///< from cell to cell, across and down
    Posto griglia{10, 9};     ///< cells across and down
    Ordine ordine = Ordine::righe;
    std::vector<Posto> pannelli{{0, 0}, {0, 350}, {0, 700}, {0, 1050}, {0, 1400}};
    Forma forma = Forma::rettangolo;
    Posto segno{35, 15};  ///< size of a mark
    std::vector<PostoRuota> ruote;
    std::vector<PostoPosta> poste;
    Posto correzione{0, 0};  ///< what a printer's own shift needs
    Posto scala{intera, intera};

    static constexpr int intera = 10000;  ///< a scale of one
    friend bool operator==(const Modulo&, const Modulo&) = default;
};

inline constexpr std::size_t pannelli_massimi = 60;
inline constexpr std::string_view cartella_moduli = "schedine";
inline constexpr std::string_view estensione_modulo = ".mod";

/// Reads a file; the first fault, or nothing. A module with a fault is not to be used.
std::optional<Difetto> leggi_modulo(const std::string& file, Modulo& modulo);
/// The same from the text of a file, UTF-8, lines ended by LF.
std::optional<Difetto> interpreta(std::string_view testo, Modulo& modulo);
/// The first fault of a module, by the name of its field; its lines are not known.
std::optional<Difetto> verifica(const Modulo& modulo);
/// The file of a module, which reads back as it is.
std::string testo_modulo(const Modulo& modulo);
/// Names of the modules below the root, without extension.
std::vector<std::string> moduli(const std::string& radice);
/// File of the module of a name.
std::string file_modulo(const std::string& radice, const std::string& nome);

}  // namespace schedine
