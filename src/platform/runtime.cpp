#include "platform/runtime.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace platform {

namespace {

bool cifra(char c) {
    return c >= '0' && c <= '9';
}

/// Position after the longest run of digits from `i`.
std::size_t salta_cifre(const std::string& s, std::size_t i) {
    while (i < s.size() && cifra(s[i])) ++i;
    return i;
}

/// Length of the numeric prefix of `s`, which holds no blanks; 0 when there is none.
std::size_t prefisso_numerico(const std::string& s) {
    std::size_t i = (!s.empty() && (s[0] == '+' || s[0] == '-')) ? 1 : 0;
    const std::size_t inizio = i;
    i = salta_cifre(s, i);
    std::size_t cifre = i - inizio;
    if (i < s.size() && s[i] == '.') {
        const std::size_t fine = salta_cifre(s, i + 1);
        cifre += fine - i - 1;
        i = fine;
    }
    if (cifre == 0) return 0;
    if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
        std::size_t j = i + 1;
        if (j < s.size() && (s[j] == '+' || s[j] == '-')) ++j;
        const std::size_t fine = salta_cifre(s, j);
        if (fine > j) i = fine;
    }
    return i;
}

/// What a numeric prefix beyond the range of a real number stands for: nothing or infinity.
double fuori_misura(std::string_view prefisso) {
    const std::size_t e = prefisso.find_first_of("eE");
    const std::string_view intera = prefisso.substr(0, prefisso.find_first_of(".eE"));
    const bool grande = e != std::string_view::npos
                            ? prefisso.substr(e + 1, 1) != "-"
                            : intera.find_first_of("123456789") != std::string_view::npos;
    if (!grande) return 0;
    const double infinito = std::numeric_limits<double>::infinity();
    return prefisso.front() == '-' ? -infinito : infinito;
}

template <typename T>
std::optional<T> converti(double valore) {
    if (!std::isfinite(valore)) return std::nullopt;
    const double arrotondato = std::nearbyint(valore);
    if (arrotondato < static_cast<double>(std::numeric_limits<T>::min()) ||
        arrotondato > static_cast<double>(std::numeric_limits<T>::max())) {
        return std::nullopt;
    }
    return static_cast<T>(arrotondato);
}

/// Decimal digits of |valore| to 15 significant places and the place of the point among them.
struct Decimale {
    std::string cifre;
    int punto = 0;
};

Decimale decimale(double valore) {
    char testo[40];
    const auto fine = std::to_chars(testo, testo + sizeof testo, std::fabs(valore),
                                    std::chars_format::scientific, 14);
    const std::string_view s(testo, static_cast<std::size_t>(fine.ptr - testo));
    const std::size_t e = s.find('e');
    Decimale d;
    d.cifre = std::string(1, s[0]) + std::string(s.substr(2, e - 2));
    int esponente = 0;
    const char* da = s.data() + e + 1;
    if (*da == '+') ++da;
    std::from_chars(da, s.data() + s.size(), esponente);
    d.punto = esponente + 1;
    return d;
}

/// Digits of |valore| scaled by 10^decimali, rounded half away from zero; no leading zeros.
std::string cifre_arrotondate(double valore, int decimali) {
    Decimale d = decimale(valore);
    const int tenute = d.punto + decimali;
    if (tenute < 0) return "";
    std::string cifre = d.cifre;
    if (static_cast<std::size_t>(tenute) >= cifre.size()) {
        cifre.append(static_cast<std::size_t>(tenute) - cifre.size(), '0');
    } else {
        const bool su = cifre[static_cast<std::size_t>(tenute)] >= '5';
        cifre.resize(static_cast<std::size_t>(tenute));
        if (su) {
            std::size_t i = cifre.size();
            while (i > 0 && cifre[i - 1] == '9') cifre[--i] = '0';
            if (i > 0) {
                ++cifre[i - 1];
            } else {
                cifre.insert(cifre.begin(), '1');
            }
        }
    }
    const std::size_t primo = cifre.find_first_not_of('0');
    return primo == std::string::npos ? "" : cifre.substr(primo);
}

}  // namespace

double Val(std::string_view testo) {
    std::string s;
    s.reserve(testo.size());
    for (const char c : testo) {
        if (c != ' ' && c != '\t' && c != '\r' && c != '\n') s.push_back(c);
    }
    const std::size_t lunghezza = prefisso_numerico(s);
    if (lunghezza == 0) return 0;
    const char* da = s.data() + (s[0] == '+' ? 1 : 0);
    double valore = 0;
    const auto esito = std::from_chars(da, s.data() + lunghezza, valore);
    if (esito.ec == std::errc::result_out_of_range) {
        return fuori_misura(std::string_view(s).substr(0, lunghezza));
    }
    return valore;
}

std::optional<std::int32_t> numero_intero(std::string_view testo) {
    std::int32_t n = 0;
    const auto [fine, errore] = std::from_chars(testo.data(), testo.data() + testo.size(), n);
    if (errore != std::errc() || fine != testo.data() + testo.size()) return std::nullopt;
    return n;
}

std::string Str(std::int64_t valore) {
    return (valore < 0 ? "" : " ") + std::to_string(valore);
}

std::optional<std::uint8_t> CByte(double valore) {
    return converti<std::uint8_t>(valore);
}
std::optional<std::int16_t> CInt(double valore) {
    return converti<std::int16_t>(valore);
}
std::optional<std::int32_t> CLng(double valore) {
    return converti<std::int32_t>(valore);
}

std::string Format(double valore, Modello modello) {
    if (!std::isfinite(valore)) return "";
    const int decimali = modello == Modello::interi ? 0 : 2;
    std::string cifre = cifre_arrotondate(valore, decimali);
    std::string frazione;
    if (decimali > 0) {
        const std::size_t minimo = modello == Modello::decimali_zero ? 3 : 2;
        if (cifre.size() < minimo) cifre.insert(0, minimo - cifre.size(), '0');
        frazione = "," + cifre.substr(cifre.size() - 2);
        cifre.resize(cifre.size() - 2);
    }
    const bool nullo = (cifre + frazione).find_first_of("123456789") == std::string::npos;
    for (std::size_t i = cifre.size(); i > 3; i -= 3) cifre.insert(i - 3, ".");
    return (valore < 0 && !nullo ? "-" : "") + cifre + frazione;
}

std::string Significative(double valore, int cifre) {
    if (!std::isfinite(valore)) return "";
    if (valore == 0) return "0";
    const int decimali = std::max(0, cifre - decimale(valore).punto);
    std::string testo = cifre_arrotondate(valore, decimali);
    const auto dopo = static_cast<std::size_t>(decimali);
    if (testo.size() <= dopo) testo.insert(0, dopo + 1 - testo.size(), '0');
    std::string frazione = testo.substr(testo.size() - dopo);
    testo.resize(testo.size() - dopo);
    while (!frazione.empty() && frazione.back() == '0') frazione.pop_back();
    for (std::size_t i = testo.size(); i > 3; i -= 3) testo.insert(i - 3, ".");
    if (!frazione.empty()) testo += "," + frazione;
    return (valore < 0 ? "-" : "") + testo;
}

bool comincia_per_vocale(std::string_view numero) {
    const std::string_view primo = numero.substr(0, numero.find_first_not_of("0123456789"));
    const bool migliaia = numero.substr(primo.size()).starts_with('.');
    return primo.starts_with('8') || primo == "11" || (primo == "1" && !migliaia);
}

std::string nel(std::string_view numero) {
    const char* const prima = comincia_per_vocale(numero) ? "nell'"
                              : numero.starts_with('0')   ? "nello "
                                                          : "nel ";
    return prima + std::string(numero);
}

std::string CStr(double valore) {
    if (!std::isfinite(valore)) return "";
    if (valore == 0) return "0";
    char testo[40];
    const auto fine =
        std::to_chars(testo, testo + sizeof testo, valore, std::chars_format::general, 15);
    const std::string_view cifre(testo, static_cast<std::size_t>(fine.ptr - testo));
    return Replace(Replace(cifre, '.', ','), 'e', 'E');
}

std::int32_t leggi_numero(std::string_view testo) {
    const std::size_t punto = testo.find('.');
    if (punto == std::string_view::npos) return CLng(std::trunc(Val(testo))).value_or(0);
    std::string unito(testo.substr(0, punto));
    unito += testo.substr(punto + 1);
    return CLng(Val(unito)).value_or(0);
}

std::string Replace(std::string_view testo, char vecchio, char nuovo) {
    std::string risultato(testo);
    for (char& c : risultato) {
        if (c == vecchio) c = nuovo;
    }
    return risultato;
}

std::string_view Trim(std::string_view testo) {
    while (!testo.empty() && testo.front() == ' ') testo.remove_prefix(1);
    while (!testo.empty() && testo.back() == ' ') testo.remove_suffix(1);
    return testo;
}

std::string LCase(std::string_view testo) {
    std::string risultato(testo);
    for (std::size_t i = 0; i < risultato.size(); ++i) {
        const auto c = static_cast<unsigned char>(risultato[i]);
        if (c >= 'A' && c <= 'Z') {
            risultato[i] = static_cast<char>(c + 32);
        } else if (i + 1 < risultato.size()) {
            const auto d = static_cast<unsigned char>(risultato[i + 1]);
            if (c == 0xC3 && d >= 0x80 && d <= 0x9E && d != 0x97) {
                risultato[i + 1] = static_cast<char>(d + 32);
            } else if (c == 0xC5 && (d == 0x92 || d == 0xA0 || d == 0xBD)) {  // OE, S and Z caron
                risultato[i + 1] = static_cast<char>(d + 1);
            } else if (c == 0xC5 && d == 0xB8) {  // Y diaeresis, whose small form is Latin-1
                risultato.replace(i, 2, "\xC3\xBF");
            }
        }
    }
    return risultato;
}

}  // namespace platform
