#include "platform/query.h"

#include <charconv>

#include "platform/runtime.h"

namespace platform {

namespace {

bool bianco(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool cifra(char c) {
    return c >= '0' && c <= '9';
}

bool di_parola(char c) {
    // Bytes above ASCII are parts of letters; the names have some.
    return cifra(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

/// Reads the text from left to right; a step that does not fit leaves it unread.
class Lettore {
public:
    explicit Lettore(std::string_view testo) : resto_(testo) { salta(); }

    bool parola(std::string_view attesa) {
        const std::string_view letta = resto_.substr(0, lunghezza());
        return LCase(letta) == attesa && avanza(letta.size());
    }
    bool segno(char c) { return !resto_.empty() && resto_.front() == c && avanza(1); }
    bool nome(std::string& destinazione) {
        if (!resto_.empty() && resto_.front() == '[') {
            const std::size_t fine = resto_.find(']');
            if (fine == std::string_view::npos || fine == 1) return false;
            destinazione = resto_.substr(1, fine - 1);
            return avanza(fine + 1);
        }
        const std::size_t n = lunghezza();
        destinazione = resto_.substr(0, n);
        return n > 0 && avanza(n);
    }
    bool testo(std::string& destinazione) {
        if (resto_.empty() || resto_.front() != '"') return false;
        const std::size_t fine = resto_.find('"', 1);
        if (fine == std::string_view::npos) return false;
        destinazione = resto_.substr(1, fine - 1);
        return avanza(fine + 1);
    }
    bool numero(std::int32_t& destinazione) {
        const std::size_t n = lunghezza();
        const char* fine = resto_.data() + n;
        const auto [letto, errore] = std::from_chars(resto_.data(), fine, destinazione);
        return n > 0 && errore == std::errc() && letto == fine && avanza(n);
    }
    [[nodiscard]] bool finito() const { return resto_.empty(); }

private:
    [[nodiscard]] std::size_t lunghezza() const {
        std::size_t n = 0;
        while (n < resto_.size() && di_parola(resto_[n])) ++n;
        return n;
    }
    void salta() {
        while (!resto_.empty() && bianco(resto_.front())) resto_.remove_prefix(1);
    }
    bool avanza(std::size_t n) {
        resto_.remove_prefix(n);
        salta();
        return true;
    }
    std::string_view resto_;
};

bool condizione(Lettore& lettore, Query& query) {
    std::string testo;
    std::int32_t numero = 0;
    if (!lettore.nome(query.campo) || !lettore.segno('=')) return false;
    if (lettore.testo(testo)) {
        query.valore = testo;
        return true;
    }
    if (!lettore.numero(numero)) return false;
    query.valore = numero;
    return true;
}

}  // namespace

bool e_una_query(std::string_view sorgente) {
    return Lettore(sorgente).parola("select");
}

std::optional<Query> analizza_query(std::string_view testo) {
    Lettore lettore(testo);
    Query query;
    if (!lettore.parola("select")) return std::nullopt;
    lettore.parola("all");
    if (!lettore.segno('*') || !lettore.parola("from") || !lettore.nome(query.tabella))
        return std::nullopt;
    if (lettore.parola("where") && !condizione(lettore, query)) return std::nullopt;
    if (!lettore.parola("order") || !lettore.parola("by") || !lettore.nome(query.ordine) ||
        !lettore.finito()) {
        return std::nullopt;
    }
    return query;
}

}  // namespace platform
