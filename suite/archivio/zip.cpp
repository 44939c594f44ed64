#include "zip.h"

#include <zlib.h>

namespace importazione {

namespace {

constexpr std::uint32_t firma_fine = 0x06054b50;
constexpr std::uint32_t firma_indice = 0x02014b50;
constexpr std::uint32_t firma_voce = 0x04034b50;
constexpr std::size_t lunghezza_fine = 22;
constexpr std::size_t lunghezza_indice = 46;
constexpr std::size_t lunghezza_voce = 30;
constexpr std::size_t commento_massimo = 65535;

std::uint32_t numero(std::string_view dati, std::size_t dove, std::size_t byte) {
    std::uint32_t n = 0;
    for (std::size_t i = byte; i > 0; --i) {
        n = n << 8 | static_cast<unsigned char>(dati[dove + i - 1]);
    }
    return n;
}

bool dentro(std::string_view dati, std::size_t dove, std::size_t quanti) {
    return dove <= dati.size() && quanti <= dati.size() - dove;
}

/// Place of the record that ends the archive; a comment may follow it.
std::optional<std::size_t> trova_fine(std::string_view dati) {
    if (dati.size() < lunghezza_fine) return std::nullopt;
    const std::size_t ultimo = dati.size() - lunghezza_fine;
    const std::size_t primo = ultimo > commento_massimo ? ultimo - commento_massimo : 0;
    for (std::size_t i = ultimo + 1; i > primo; --i) {
        if (numero(dati, i - 1, 4) == firma_fine) return i - 1;
    }
    return std::nullopt;
}

/// A raw deflate stream that must come out at exactly `lunghezza` bytes.
bool gonfia(std::string_view dati, std::uint32_t lunghezza, std::string& uscita) {
    uscita.resize(lunghezza);
    z_stream flusso{};
    if (::inflateInit2(&flusso, -MAX_WBITS) != Z_OK) return false;
    // The library takes no constant input, though it never writes there.
    flusso.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(dati.data()));
    flusso.avail_in = static_cast<uInt>(dati.size());
    flusso.next_out = reinterpret_cast<Bytef*>(uscita.data());
    flusso.avail_out = lunghezza;
    const int esito = ::inflate(&flusso, Z_FINISH);
    const bool tutto = esito == Z_STREAM_END && flusso.total_out == lunghezza;
    ::inflateEnd(&flusso);
    return tutto;
}

/// One file by its entry of the index; the entry is whole within the data.
bool estrai(std::string_view dati, std::size_t voce, FileZip& file) {
    const std::uint32_t opzioni = numero(dati, voce + 8, 2);
    const std::uint32_t metodo = numero(dati, voce + 10, 2);
    const std::uint32_t crc = numero(dati, voce + 16, 4);
    const std::uint32_t compressi = numero(dati, voce + 20, 4);
    const std::uint32_t lunghezza = numero(dati, voce + 24, 4);
    const std::size_t testa = numero(dati, voce + 42, 4);
    if ((opzioni & 1U) != 0 || lunghezza > voce_zip_massima) return false;
    if (!dentro(dati, testa, lunghezza_voce) || numero(dati, testa, 4) != firma_voce) return false;
    const std::size_t inizio =
        testa + lunghezza_voce + numero(dati, testa + 26, 2) + numero(dati, testa + 28, 2);
    if (!dentro(dati, inizio, compressi)) return false;
    const std::string_view corpo = dati.substr(inizio, compressi);
    if (metodo == 0 && compressi == lunghezza) {
        file.dati = corpo;
    } else if (metodo != 8 || !gonfia(corpo, lunghezza, file.dati)) {
        return false;
    }
    return ::crc32(0, reinterpret_cast<const Bytef*>(file.dati.data()),
                   static_cast<uInt>(file.dati.size())) == crc;
}

}  // namespace

bool e_uno_zip(std::string_view dati) {
    return dati.size() >= 4 &&
           (numero(dati, 0, 4) == firma_voce || numero(dati, 0, 4) == firma_fine);
}

std::optional<std::vector<FileZip>> apri_zip(std::string_view dati) {
    const auto fine = trova_fine(dati);
    if (!fine) return std::nullopt;
    const std::size_t quante = numero(dati, *fine + 10, 2);
    std::size_t voce = numero(dati, *fine + 16, 4);
    if (quante > voci_zip_massime) return std::nullopt;
    std::vector<FileZip> esito;
    std::uint64_t totale = 0;
    for (std::size_t i = 0; i < quante; ++i) {
        if (!dentro(dati, voce, lunghezza_indice) || numero(dati, voce, 4) != firma_indice)
            return std::nullopt;
        const std::size_t nome = numero(dati, voce + 28, 2);
        if (!dentro(dati, voce + lunghezza_indice, nome)) return std::nullopt;
        const std::string_view intero = dati.substr(voce + lunghezza_indice, nome);
        if (!intero.ends_with('/')) {
            FileZip file{std::string(intero.substr(0, nome_zip_massimo)), {}};
            totale += numero(dati, voce + 24, 4);
            if (totale > voce_zip_massima || !estrai(dati, voce, file)) return std::nullopt;
            esito.push_back(std::move(file));
        }
        voce += lunghezza_indice + nome + numero(dati, voce + 30, 2) + numero(dati, voce + 32, 2);
    }
    return esito;
}

}  // namespace importazione
