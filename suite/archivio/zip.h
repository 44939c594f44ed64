// Files packed in a ZIP archive, read from memory within fixed bounds.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace importazione {

struct FileZip {
    std::string nome;
    std::string dati;
};

inline constexpr std::uint32_t voce_zip_massima = std::uint32_t{64} << 20;
inline constexpr std::size_t voci_zip_massime = 256;
/// Longer names are cut.
inline constexpr std::size_t nome_zip_massimo = 255;

/// True when the data begin as a ZIP archive does.
bool e_uno_zip(std::string_view dati);

/// Every file of the archive, folders left out. Nothing when it is damaged, encrypted, packed by
/// another method than "deflate", or larger than the bounds.
std::optional<std::vector<FileZip>> apri_zip(std::string_view dati);

}  // namespace importazione
