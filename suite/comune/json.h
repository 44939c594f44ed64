// JSON as it is written, piece by piece.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace suite {

/// Text of one value; the commas come by themselves.
class Json {
public:
    /// '{' or '['.
    Json& apri(char parentesi);
    /// '}' or ']'.
    Json& chiudi(char parentesi);
    /// Name of what follows, in an object.
    Json& voce(std::string_view chiave);
    Json& testo(std::string_view valore);
    Json& intero(std::int64_t valore);
    Json& naturale(std::uint64_t valore);
    /// As many digits as tell the value apart; null for what is no number.
    Json& decimale(double valore);
    Json& vero(bool valore);
    /// Text that is JSON already; "null" among others.
    Json& fatto(std::string_view valore);

    [[nodiscard]] const std::string& uscita() const { return uscita_; }

private:
    void separa();
    std::string uscita_;
};

}  // namespace suite
