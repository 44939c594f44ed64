#include "platform/windows.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

#include "platform/codepage.h"

namespace platform {

namespace {

template <typename T>
using Risposta = std::unique_ptr<T, decltype(&std::free)>;

template <typename T>
Risposta<T> possiedi(T* risposta) {
    return {risposta, &std::free};
}

/// A connection to a display, and the few questions that the window managers' convention
/// answers. Any answer may be missing: windows come and go while they are asked about.
class Schermo {
public:
    explicit Schermo(const std::string& display)
        : x_(xcb_connect(display.empty() ? nullptr : display.c_str(), &numero_)) {}
    ~Schermo() { xcb_disconnect(x_); }
    Schermo(const Schermo&) = delete;
    Schermo& operator=(const Schermo&) = delete;

    [[nodiscard]] xcb_window_t fondo() const {
        if (xcb_connection_has_error(x_) != 0) return XCB_NONE;
        auto schermi = xcb_setup_roots_iterator(xcb_get_setup(x_));
        for (int i = 0; i < numero_ && schermi.rem > 0; ++i) xcb_screen_next(&schermi);
        return schermi.rem > 0 ? schermi.data->root : XCB_NONE;
    }

    [[nodiscard]] xcb_atom_t atomo(std::string_view nome) const {
        const auto r = possiedi(xcb_intern_atom_reply(
            x_, xcb_intern_atom(x_, 0, static_cast<std::uint16_t>(nome.size()), nome.data()),
            nullptr));
        return r ? r->atom : XCB_NONE;
    }

    [[nodiscard]] std::vector<std::uint32_t> interi(xcb_window_t di, xcb_atom_t proprieta,
                                                    xcb_atom_t tipo) const {
        const auto r = leggi(di, proprieta, tipo);
        if (!r || r->format != 32) return {};
        const auto* dati = static_cast<const std::uint32_t*>(xcb_get_property_value(r.get()));
        return {dati, dati + r->value_len};
    }

    [[nodiscard]] std::string testo(xcb_window_t di, xcb_atom_t proprieta, xcb_atom_t tipo) const {
        const auto r = leggi(di, proprieta, tipo);
        if (!r || r->format != 8) return {};
        const auto* dati = static_cast<const char*>(xcb_get_property_value(r.get()));
        return {dati, dati + r->value_len};
    }

    bool attiva(xcb_window_t finestra) const {
        // 2 tells that the user asked for it; a mere program would be refused the keyboard.
        return chiedi(finestra, "_NET_ACTIVE_WINDOW", {2});
    }

    bool ripristina(xcb_window_t finestra) const {
        constexpr std::uint32_t togli = 0;
        if (!chiedi(finestra, "_NET_WM_STATE",
                    {togli, atomo("_NET_WM_STATE_MAXIMIZED_VERT"),
                     atomo("_NET_WM_STATE_MAXIMIZED_HORZ")})) {
            return false;
        }
        // The manager takes the mapping of a minimized window for the wish to see it again.
        xcb_map_window(x_, finestra);
        return arrivato();
    }

private:
    /// An answer to a later question proves that the request has arrived.
    [[nodiscard]] bool arrivato() const { return atomo("_NET_ACTIVE_WINDOW") != XCB_NONE; }

    bool chiedi(xcb_window_t finestra, const char* cosa,
                const std::array<std::uint32_t, 3>& dati) const {
        const xcb_window_t radice = fondo();
        if (radice == XCB_NONE) return false;
        xcb_client_message_event_t evento{};
        evento.response_type = XCB_CLIENT_MESSAGE;
        evento.format = 32;
        evento.window = finestra;
        evento.type = atomo(cosa);
        std::copy(dati.begin(), dati.end(), evento.data.data32);
        xcb_send_event(x_, 0, radice,
                       XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&evento));
        return arrivato();
    }

    [[nodiscard]] Risposta<xcb_get_property_reply_t> leggi(xcb_window_t di, xcb_atom_t proprieta,
                                                           xcb_atom_t tipo) const {
        constexpr std::uint32_t parole = 16384;
        return possiedi(xcb_get_property_reply(
            x_, xcb_get_property(x_, 0, di, proprieta, tipo, 0, parole), nullptr));
    }

    int numero_ = 0;
    xcb_connection_t* x_;
};

}  // namespace

std::vector<FinestraAperta> finestre_aperte(const std::string& display) {
    const Schermo schermo(display);
    const xcb_window_t fondo = schermo.fondo();
    if (fondo == XCB_NONE) return {};
    auto lista = schermo.interi(fondo, schermo.atomo("_NET_CLIENT_LIST_STACKING"), XCB_ATOM_WINDOW);
    if (lista.empty()) {
        lista = schermo.interi(fondo, schermo.atomo("_NET_CLIENT_LIST"), XCB_ATOM_WINDOW);
    }
    std::reverse(lista.begin(), lista.end());
    const xcb_atom_t nome = schermo.atomo("_NET_WM_NAME");
    const xcb_atom_t utf8 = schermo.atomo("UTF8_STRING");
    std::vector<FinestraAperta> finestre;
    for (const std::uint32_t id : lista) {
        FinestraAperta f;
        f.id = id;
        f.titolo = schermo.testo(id, nome, utf8);
        if (f.titolo.empty()) {
            f.titolo = da_cp1252(schermo.testo(id, XCB_ATOM_WM_NAME, XCB_ATOM_STRING));
        }
        f.titolo = f.titolo.substr(0, f.titolo.find('\0'));
        const auto sopra = schermo.interi(id, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW);
        // A window over its program's hidden leader belongs to nobody.
        f.posseduta =
            !sopra.empty() && std::find(lista.begin(), lista.end(), sopra[0]) != lista.end();
        finestre.push_back(std::move(f));
    }
    return finestre;
}

bool mostra_finestra(std::uint32_t id, const std::string& display) {
    return Schermo(display).ripristina(id);
}

bool attiva_finestra(std::uint32_t id, const std::string& display) {
    return Schermo(display).attiva(id);
}

}  // namespace platform
