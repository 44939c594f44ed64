#include "comune/json.h"

#include <array>
#include <charconv>
#include <cmath>

#include "comune/testo.h"

namespace suite {

void Json::separa() {
    if (uscita_.empty()) return;
    const char ultimo = uscita_.back();
    if (ultimo != '{' && ultimo != '[' && ultimo != ':') uscita_ += ',';
}

Json& Json::apri(char parentesi) {
    separa();
    uscita_ += parentesi;
    return *this;
}

Json& Json::chiudi(char parentesi) {
    uscita_ += parentesi;
    return *this;
}

Json& Json::voce(std::string_view chiave) {
    separa();
    uscita_ += json(chiave) + ":";
    return *this;
}

Json& Json::testo(std::string_view valore) {
    return fatto(json(valore));
}

Json& Json::intero(std::int64_t valore) {
    return fatto(std::to_string(valore));
}

Json& Json::naturale(std::uint64_t valore) {
    return fatto(std::to_string(valore));
}

Json& Json::decimale(double valore) {
    if (!std::isfinite(valore)) return fatto("null");
    std::array<char, 32> cifre{};
    const auto fine = std::to_chars(cifre.data(), cifre.data() + cifre.size(), valore);
    return fatto({cifre.data(), fine.ptr});
}

Json& Json::vero(bool valore) {
    return fatto(valore ? "true" : "false");
}

Json& Json::fatto(std::string_view valore) {
    separa();
    uscita_ += valore;
    return *this;
}

}  // namespace suite
