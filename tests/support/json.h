// A strict reader of JSON, for what the commands print.
#pragma once

#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace support {

/// A value of JSON; numbers and words stand as their text.
struct Valore {
    enum class Tipo { parola, testo, lista, oggetto };
    Tipo tipo = Tipo::parola;
    std::string testo;
    std::vector<Valore> lista;
    std::map<std::string, Valore> oggetto;

    /// A member, or a word that is none.
    const Valore& operator[](const std::string& chiave) const {
        static const Valore nessuno;
        const auto quale = oggetto.find(chiave);
        return quale == oggetto.end() ? nessuno : quale->second;
    }
    const Valore& operator[](std::size_t posto) const {
        static const Valore nessuno;
        return posto < lista.size() ? lista[posto] : nessuno;
    }
    [[nodiscard]] std::int64_t intero() const { return std::atoll(testo.c_str()); }
};

class LettoreJson {
public:
    explicit LettoreJson(std::string_view testo) : testo_(testo) {}
    /// Nothing for a text that is no JSON from its first byte to its last.
    std::optional<Valore> leggi() {
        Valore v;
        if (!valore(v, 0)) return std::nullopt;
        spazi();
        return posto_ == testo_.size() ? std::optional(v) : std::nullopt;
    }

private:
    [[nodiscard]] char qui() const { return posto_ < testo_.size() ? testo_[posto_] : '\0'; }
    void spazi() {
        while (qui() == ' ' || qui() == '\n' || qui() == '\r' || qui() == '\t') ++posto_;
    }
    bool segno(char c) {
        spazi();
        if (qui() != c) return false;
        ++posto_;
        return true;
    }
    bool valore(Valore& v, int livello) {
        spazi();
        if (livello > 20) return false;
        if (qui() == '"') {
            v.tipo = Valore::Tipo::testo;
            return stringa(v.testo);
        }
        if (qui() == '[') return lista(v, livello);
        if (qui() == '{') return oggetto(v, livello);
        return parola(v.testo);
    }
    bool stringa(std::string& s) {
        ++posto_;
        while (posto_ < testo_.size() && qui() != '"') {
            if (static_cast<unsigned char>(qui()) < ' ') return false;
            if (qui() != '\\') {
                s += testo_[posto_++];
                continue;
            }
            const char c = posto_ + 1 < testo_.size() ? testo_[posto_ + 1] : '\0';
            posto_ += 2;
            if (c == '"' || c == '\\') {
                s += c;
            } else if (c == 'u' && posto_ + 4 <= testo_.size()) {
                s += static_cast<char>(
                    std::strtol(std::string(testo_.substr(posto_, 4)).c_str(), nullptr, 16));
                posto_ += 4;
            } else {
                return false;
            }
        }
        return segno('"');
    }
    bool lista(Valore& v, int livello) {
        v.tipo = Valore::Tipo::lista;
        ++posto_;
        if (segno(']')) return true;
        do {
            if (!valore(v.lista.emplace_back(), livello + 1)) return false;
        } while (segno(','));
        return segno(']');
    }
    bool oggetto(Valore& v, int livello) {
        v.tipo = Valore::Tipo::oggetto;
        ++posto_;
        if (segno('}')) return true;
        do {
            std::string chiave;
            spazi();
            // A name that stands twice is of no use to anybody.
            if (qui() != '"' || !stringa(chiave) || v.oggetto.contains(chiave) || !segno(':'))
                return false;
            if (!valore(v.oggetto[chiave], livello + 1)) return false;
        } while (segno(','));
        return segno('}');
    }
    bool parola(std::string& s) {
        const std::size_t da = posto_;
        while (std::isalnum(static_cast<unsigned char>(qui())) != 0 || qui() == '-' ||
               qui() == '+' || qui() == '.')
            ++posto_;
        s = std::string(testo_.substr(da, posto_ - da));
        if (s == "true" || s == "false" || s == "null") return true;
        char* fine = nullptr;
        std::strtod(s.c_str(), &fine);
        const bool cifra = !s.empty() && std::isdigit(static_cast<unsigned char>(s.back())) != 0 &&
                           (s[0] == '-' || std::isdigit(static_cast<unsigned char>(s[0])) != 0);
        const bool zero = s.size() > 1 && s[0] == '0' && s[1] != '.' && s[1] != 'e';
        return cifra && !zero && *fine == '\0';
    }

    std::string_view testo_;
    std::size_t posto_ = 0;
};

inline std::optional<Valore> leggi_json(std::string_view testo) {
    return LettoreJson(testo).leggi();
}

}  // namespace support
