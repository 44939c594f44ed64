// Jet files, read by a child process whose death harms nobody.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

#include "platform/table.h"

namespace platform {

/// The child and how long it is waited for; a part of `ambiente.h`.
struct LettoreJet {
    std::string programma;  ///< empty: what `trova_lettore` finds for the running program
    /// What the child may spend is bounded there; these only end the waiting for a disk that gives
    /// nothing.
    std::chrono::milliseconds attesa_muta{30000};
    std::chrono::milliseconds attesa_totale{120000};
    std::size_t uscita_massima = std::size_t{64} << 20;
};

/// The child of a program in the folder `eseguibile`: beside it in a suite folder, among the
/// programs that are no commands where it is installed.
std::string trova_lettore(const std::string& eseguibile);

/// Tells whether the file is a Jet database with a catalogue; 0 or DAO's number of the error.
int verifica_jet(const std::string& file);
/// Reads a whole table in stored order; 0 or DAO's number of the error.
int leggi_jet(const std::string& file, std::string_view nome, Table& tabella);

}  // namespace platform
