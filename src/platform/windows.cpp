#include "platform/windows.h"

#include "platform/runtime.h"

namespace platform {

const FinestraAperta* finestra_titolata(const std::vector<FinestraAperta>& finestre,
                                        std::string_view titolo) {
    const std::string cercato = LCase(titolo);
    const FinestraAperta* prima = nullptr;
    for (const FinestraAperta& f : finestre) {
        const std::string suo = LCase(f.titolo);
        if (suo == cercato) return &f;
        if (prima == nullptr && suo.starts_with(cercato)) prima = &f;
    }
    return prima;
}

}  // namespace platform
