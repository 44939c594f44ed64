// Everything about the process that a test may replace, in one object; no Qt.
#pragma once

#include <any>
#include <functional>
#include <optional>
#include <type_traits>
#include <utility>

#include "platform/application.h"
#include "platform/data.h"
#include "platform/jet.h"
#include "platform/syscalls.h"

namespace platform {

struct Ambiente {
    Application applicazione;            ///< the folder and the version of the program
    Syscalls* chiamate = &di_sistema();  ///< never null; not owned
    LettoreJet lettore_jet;
    /// Seconds on a clock that never goes back; an empty one is the machine's.
    std::function<double()> orologio;
    /// The day on the calendar; without one it is the machine's.
    std::optional<Data> oggi;
    /// The half with windows keeps its own part here: `qt/scrivania.h`.
    std::any scrivania;
};

/// That of the process, in force from its start to its end.
Ambiente& ambiente();

/// Puts one part of it back as it was, at its own end.
template <typename T>
class Ripristina {
public:
    explicit Ripristina(T& parte) : parte_(parte), prima_(parte) {}
    /// With `nuova` in its place until then.
    Ripristina(T& parte, std::type_identity_t<T> nuova)
        : parte_(parte), prima_(std::exchange(parte, std::move(nuova))) {}
    Ripristina(const Ripristina&) = delete;
    Ripristina& operator=(const Ripristina&) = delete;
    ~Ripristina() { parte_ = std::move(prima_); }

private:
    T& parte_;
    T prima_;
};

}  // namespace platform
