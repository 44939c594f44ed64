// Sequential text files: field-wise and line-wise reading, delimited writing.
#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file.h"

namespace platform {

/// A text file open for reading, in one fixed buffer whatever the file's size.
/// CR LF, LF alone and CR alone end a line. A read past the end fails and leaves its target.
/// Of a field or line longer than 16 MiB the rest is passed over; with one that goes on for ever,
/// as the holes of a damaged file do, the file ends.
class TextReader {
public:
    /// More than the head of any file takes, and more than the whole of a small one.
    static constexpr std::int64_t testa = std::int64_t{1} << 16;

    TextReader() = default;
    explicit TextReader(const std::string& nome, std::int64_t limite = senza_limite) {
        apri(nome, limite);
    }
    TextReader(const TextReader&) = delete;
    TextReader& operator=(const TextReader&) = delete;
    ~TextReader() = default;

    /// Opens a regular file, closing the one before; false when it cannot be read. Of a longer
    /// one only the first `limite` bytes are there.
    bool apri(const std::string& nome, std::int64_t limite = senza_limite);
    void chiudi();
    [[nodiscard]] bool aperto() const { return file_.aperto(); }

    /// True when nothing is left to read, and for a file that is not open.
    bool eof() { return posizione_ >= pieno_ && !riempi(); }
    /// 1-based position of the next byte.
    [[nodiscard]] std::int64_t seek() const {
        return base_ + static_cast<std::int64_t>(posizione_) + 1;
    }
    /// Goes to a 1-based position; false when it is below 1 or the file is not open.
    bool seek(std::int64_t posizione);

    /// Next field: up to a comma or the line's end, blanks trimmed, quotes stripped, UTF-8.
    bool campo(std::string& destinazione);
    /// Next field as a number; one that is no number reads as 0. False past the end only.
    bool numero(double& destinazione);
    /// Next field as a whole number; out of range leaves the target. False when it was left.
    bool intero(std::uint8_t& destinazione);
    bool intero(std::int16_t& destinazione);
    bool intero(std::int32_t& destinazione);
    /// As many whole numbers, each as `intero` reads it. False when nothing was left to read.
    bool interi(std::span<std::int16_t> destinazione);
    /// Next line without its end, UTF-8.
    bool riga(std::string& destinazione);
    /// Passes over the next line; false past the end.
    bool salta_riga();

private:
    static constexpr std::int64_t senza_limite = std::numeric_limits<std::int64_t>::max();

    bool riempi();
    int byte() { return eof() ? -1 : static_cast<unsigned char>(dati_[posizione_]); }
    void fine_riga(char primo);
    bool cifre(std::int32_t& valore);
    template <typename T>
    bool intero_in(T& destinazione);

    File file_;
    std::vector<char> dati_;
    std::size_t posizione_ = 0;
    std::size_t pieno_ = 0;
    std::int64_t base_ = 0;
    std::int64_t limite_ = senza_limite;
    int senza_segni_ = 0;  ///< buffers since one that held the end of a field or line
};

/// One record of delimited output: strings quoted, numbers bare, dates between number signs, CR LF
/// at the end.
class Record {
public:
    Record& scrivi(std::string_view testo);
    Record& scrivi(std::int64_t numero);
    /// A date between number signs, year first.
    Record& data(int anno, int mese, int giorno);
    /// The record as CP1252 bytes with its line end.
    [[nodiscard]] std::string testo() const { return testo_ + "\r\n"; }

private:
    void separa();
    std::string testo_;
    bool primo_ = true;
};

}  // namespace platform
