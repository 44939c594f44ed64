#include "platform/text_file.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "platform/codepage.h"
#include "platform/disk.h"
#include "platform/runtime.h"

namespace platform {

using macchina::Guasto;
using macchina::Voce;

namespace {

constexpr std::size_t grandezza = std::size_t{1} << 16;
// A damaged file can be one endless line; what exceeds this is read and dropped.
constexpr std::size_t limite_testo = std::size_t{1} << 24;
// As many bytes again in which no field ends are the end of the file.
constexpr int pezzi_senza_segni = 2 * limite_testo / grandezza;

bool bianco(int c) {
    return c == ' ' || c == '\t';
}
bool fine(int c) {
    return c == '\r' || c == '\n';
}

void accoda(std::string& testo, int c) {
    if (testo.size() < limite_testo) testo.push_back(static_cast<char>(c));
}

template <typename T>
std::optional<T> converti(double valore);
template <>
std::optional<std::uint8_t> converti(double valore) {
    return CByte(valore);
}
template <>
std::optional<std::int16_t> converti(double valore) {
    return CInt(valore);
}
template <>
std::optional<std::int32_t> converti(double valore) {
    return CLng(valore);
}

}  // namespace

bool TextReader::apri(const std::string& nome, std::int64_t limite) {
    chiudi();
    limite_ = limite;
    // A pipe or device of that name must neither block the program nor be opened at all.
    const std::string reale = nome_su_disco(nome);
    Voce voce;
    if (macchina::guarda(reale, voce) != Guasto::nessuno || !voce.file()) return false;
    if (!file_.apri(reale, File::Modo::leggi)) return false;
    if (!file_.guarda(voce) || !voce.file()) {
        file_.chiudi();
        return false;
    }
    dati_.resize(grandezza);
    return true;
}

void TextReader::chiudi() {
    file_.chiudi();
    posizione_ = 0;
    pieno_ = 0;
    base_ = 0;
    senza_segni_ = 0;
}

bool TextReader::riempi() {
    if (!aperto()) return false;
    base_ += static_cast<std::int64_t>(pieno_);
    posizione_ = 0;
    pieno_ = 0;
    if (base_ >= limite_ || senza_segni_ > pezzi_senza_segni) return false;
    const std::int64_t quanti = std::min(limite_ - base_, std::int64_t{grandezza});
    const std::ptrdiff_t n = file_.leggi(dati_.data(), static_cast<std::size_t>(quanti));
    if (n <= 0) return false;
    pieno_ = static_cast<std::size_t>(n);
    const std::string_view letti(dati_.data(), pieno_);
    senza_segni_ = letti.find_first_of(",\r\n") != std::string_view::npos ? 0 : senza_segni_ + 1;
    return true;
}

bool TextReader::seek(std::int64_t posizione) {
    if (!aperto() || posizione < 1 || !file_.vai(posizione - 1)) return false;
    base_ = posizione - 1;
    posizione_ = 0;
    pieno_ = 0;
    senza_segni_ = 0;
    return true;
}

void TextReader::fine_riga(char primo) {
    if (primo == '\r' && byte() == '\n') ++posizione_;
}

bool TextReader::campo(std::string& destinazione) {
    if (eof()) return false;
    std::string testo;
    int c = byte();
    while (bianco(c)) {
        ++posizione_;
        c = byte();
    }
    const bool virgolette = c == '"';
    if (virgolette) {
        ++posizione_;
        while ((c = byte()) >= 0 && c != '"') {
            accoda(testo, c);
            ++posizione_;
        }
    }
    while ((c = byte()) >= 0) {
        ++posizione_;
        if (c == ',') break;
        if (fine(c)) {
            fine_riga(static_cast<char>(c));
            break;
        }
        if (!virgolette) accoda(testo, c);
    }
    if (!virgolette) {
        while (!testo.empty() && bianco(testo.back())) testo.pop_back();
    }
    destinazione = da_cp1252(testo);
    return true;
}

bool TextReader::cifre(std::int32_t& valore) {
    // The shape of every file the program writes: up to six digits, then a separator, all of it
    // in the buffer. Anything else takes the general road.
    std::size_t i = posizione_;
    std::int32_t n = 0;
    while (i < pieno_ && i - posizione_ < 6 && dati_[i] >= '0' && dati_[i] <= '9') {
        n = n * 10 + (dati_[i++] - '0');
    }
    if (i == posizione_ || i + 1 >= pieno_) return false;
    const char c = dati_[i];
    if (c == ',' || c == '\n') {
        posizione_ = i + 1;
    } else if (c == '\r') {
        posizione_ = i + (dati_[i + 1] == '\n' ? 2 : 1);
    } else {
        return false;
    }
    valore = n;
    return true;
}

bool TextReader::numero(double& destinazione) {
    std::int32_t valore = 0;
    if (cifre(valore)) {
        destinazione = valore;
        return true;
    }
    std::string testo;
    if (!campo(testo)) return false;
    destinazione = Val(testo);
    return true;
}

template <typename T>
bool TextReader::intero_in(T& destinazione) {
    std::int32_t letto = 0;
    if (cifre(letto)) {
        if (!std::in_range<T>(letto)) return false;
        destinazione = static_cast<T>(letto);
        return true;
    }
    double valore = 0;
    return numero(valore) && assegna(destinazione, converti<T>(valore));
}

bool TextReader::intero(std::uint8_t& destinazione) {
    return intero_in(destinazione);
}
bool TextReader::intero(std::int16_t& destinazione) {
    return intero_in(destinazione);
}
bool TextReader::intero(std::int32_t& destinazione) {
    return intero_in(destinazione);
}

bool TextReader::interi(std::span<std::int16_t> destinazione) {
    if (eof()) return false;
    std::size_t fatti = 0;
    std::size_t i = posizione_;
    // One or two digits and a separator, well inside the buffer, are read here at one go; whatever
    // looks otherwise takes the general road.
    while (fatti < destinazione.size() && i + 4 <= pieno_) {
        const char* p = dati_.data() + i;
        const int prima = p[0] - '0';
        const int seconda = p[1] - '0';
        if (prima < 0 || prima > 9) break;
        const bool due = seconda >= 0 && seconda <= 9;
        const std::size_t lungo = due ? 2 : 1;
        const bool fine_riga = p[lungo] == '\r' && p[lungo + 1] == '\n';
        if (p[lungo] != ',' && !fine_riga) break;
        destinazione[fatti++] = static_cast<std::int16_t>(due ? prima * 10 + seconda : prima);
        i += lungo + (fine_riga ? 2 : 1);
    }
    posizione_ = i;
    while (fatti < destinazione.size()) intero(destinazione[fatti++]);
    return true;
}

bool TextReader::riga(std::string& destinazione) {
    if (eof()) return false;
    std::string testo;
    int c = 0;
    while ((c = byte()) >= 0) {
        ++posizione_;
        if (fine(c)) {
            fine_riga(static_cast<char>(c));
            break;
        }
        accoda(testo, c);
    }
    destinazione = da_cp1252(testo);
    return true;
}

bool TextReader::salta_riga() {
    if (eof()) return false;
    int c = 0;
    while ((c = byte()) >= 0) {
        ++posizione_;
        if (fine(c)) {
            fine_riga(static_cast<char>(c));
            break;
        }
    }
    return true;
}

void Record::separa() {
    if (!primo_) testo_.push_back(',');
    primo_ = false;
}

Record& Record::scrivi(std::string_view testo) {
    separa();
    testo_ += '"' + a_cp1252(testo) + '"';
    return *this;
}

Record& Record::scrivi(std::int64_t numero) {
    separa();
    testo_ += std::to_string(numero);
    return *this;
}

Record& Record::data(int anno, int mese, int giorno) {
    separa();
    std::array<char, 40> testo{};
    std::snprintf(testo.data(), testo.size(), "#%04d-%02d-%02d#", anno, mese, giorno);
    testo_ += testo.data();
    return *this;
}

}  // namespace platform
