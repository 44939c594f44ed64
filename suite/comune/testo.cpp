#include "comune/testo.h"

#include <array>
#include <cstdio>

#include "platform/codepage.h"

namespace suite {

void stampa(std::string_view testo) {
    std::fwrite(testo.data(), 1, testo.size(), stdout);
}

void lamenta(std::string_view comando, std::string_view testo) {
    const std::string riga = std::string(comando) + ": " + platform::mostrabile(testo) + "\n";
    std::fputs(riga.c_str(), stderr);
}

std::string json(std::string_view testo) {
    std::string uscita = "\"";
    for (std::size_t i = 0; i < testo.size();) {
        const auto c = static_cast<unsigned char>(testo[i]);
        if (c < ' ' || c == 0x7F) {
            std::array<char, 8> codice{};
            std::snprintf(codice.data(), codice.size(), "\\u%04x", static_cast<unsigned>(c));
            uscita += codice.data();
            ++i;
            continue;
        }
        // Bytes that are no text would make the whole no JSON.
        std::size_t fine = i + 1;
        while (c >= 0x80 && fine < testo.size() && static_cast<unsigned char>(testo[fine]) >= 0x80)
            ++fine;
        for (const char s : platform::mostrabile(testo.substr(i, fine - i))) {
            if (s == '"' || s == '\\') uscita += '\\';
            uscita += s;
        }
        i = fine;
    }
    return uscita + "\"";
}

std::string json(const std::vector<std::uint64_t>& numeri) {
    std::string uscita = "[";
    for (const std::uint64_t numero : numeri) {
        if (uscita.size() > 1) uscita += ",";
        uscita += std::to_string(numero);
    }
    return uscita + "]";
}

}  // namespace suite
