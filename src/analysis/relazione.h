// The analysis in words: titled tables of text, for the window, the clipboard and paper.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "analysis/analisi.h"
#include "analysis/premi.h"
#include "analysis/storico.h"
#include "crossword/gioco.h"

namespace analysis {

/// A table as it is read: every row has a text for each column.
struct Tavola {
    std::string titolo;
    std::vector<std::string> colonne;
    std::vector<std::vector<std::string>> righe;
    std::vector<std::string> note;  ///< sentences that stand below it
};

/// What a player calls a combination with so many hits: "3 punti", "ambo".
std::string nome_risultato(crossword::Gioco gioco, int punti);
/// Hits from which the check counts a combination as winning.
int vincita_minima(crossword::Gioco gioco);
/// The share of `parte` in `tutte` on a hundred, never rounded to all or to nothing.
std::string percento(double parte, double tutte);

// What is played, what so many of its numbers give, and what they miss.
Tavola tavola_sistema(const Analisi& analisi, crossword::Gioco gioco);
Tavola tavola_garanzie(const Analisi& analisi, crossword::Gioco gioco);
Tavola tavola_insiemi(const Analisi& analisi, crossword::Gioco gioco);
Tavola tavola_buchi(const Analisi& analisi, crossword::Gioco gioco);
Tavola tavola_esempi(const Analisi& analisi, crossword::Gioco gioco);
/// Every possible draw by its best result.
Tavola tavola_estrazioni(const Analisi& analisi, crossword::Gioco gioco);
/// Combinations won on average, and what they bring with these prizes for a `spesa` in Euro.
Tavola tavola_medie(const Analisi& analisi, crossword::Gioco gioco, const Premi& premi,
                    double spesa);
/// The sentence on the Euro that come back, which does not hide that they are fewer than spent.
std::string frase_ritorno(const Analisi& analisi, const Premi& premi, double spesa);

/// The draws of one year.
struct Anno {
    std::string nome;
    std::size_t estrazioni = 0;
    std::size_t vincenti = 0;
    int migliore = 0;  ///< most hits of a combination
};
std::vector<Anno> per_anni(const Storico& storico, std::span<const Estrazione> estrazioni,
                           int minimo);

// The past, with the draws that it was counted on.
Tavola tavola_categorie(const Storico& storico, std::span<const Estrazione> estrazioni,
                        crossword::Gioco gioco);
Tavola tavola_migliori(const Storico& storico, std::span<const Estrazione> estrazioni,
                       crossword::Gioco gioco);
Tavola tavola_anni(const Storico& storico, std::span<const Estrazione> estrazioni,
                   crossword::Gioco gioco);

/// The whole analysis, and the whole past of a `ruota`, which is empty in SuperEnalotto.
std::vector<Tavola> tavole_analisi(const Analisi& analisi, crossword::Gioco gioco,
                                   const Premi& premi, double spesa);
std::vector<Tavola> tavole_passato(const Storico& storico, std::span<const Estrazione> estrazioni,
                                   crossword::Gioco gioco, const std::string& ruota);

/// The whole in one line.
std::string riassunto(const Analisi& analisi, crossword::Gioco gioco);

/// Tables as lines of a fixed-pitch font, sentences broken at `larghezza` characters.
std::vector<std::string> righe_di_testo(std::span<const Tavola> tavole, std::size_t larghezza);

}  // namespace analysis
