#include "platform/windows.h"

#include "platform/runtime.h"

namespace platform {

const Finestra* finestra_titolata(const std::vector<Finestra>& finestre, std::string_view titolo) {
    const std::string cercato = LCase(titolo);
    const Finestra* prima = nullptr;
    for (const Finestra& f : finestre) {
        const std::string suo = LCase(f.titolo);
        if (suo == cercato) return &f;
        if (prima == nullptr && suo.starts_with(cercato)) prima = &f;
    }
    return prima;
}

}  // namespace platform
