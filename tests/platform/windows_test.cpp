// The windows on a screen, asked of a real window manager on a display of the test's own.
#include "platform/windows.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>
#include <xcb/xcb.h>

using platform::finestra_titolata;
using platform::FinestraAperta;
using platform::finestre_aperte;

namespace {

constexpr int pazienza_ms = 10000;
constexpr std::uint32_t normale = 1;
constexpr std::uint32_t icona = 3;

/// A program that ends with the test.
class Processo {
public:
    /// `canale` is open in the child as descriptor 3 when not negative.
    Processo(const std::vector<std::string>& comando, int canale = -1) {
        std::vector<char*> argomenti;
        for (const std::string& a : comando) argomenti.push_back(const_cast<char*>(a.c_str()));
        argomenti.push_back(nullptr);
        numero_ = ::fork();
        if (numero_ != 0) return;
        if (canale >= 0) ::dup2(canale, 3);
        ::freopen("/dev/null", "w", stderr);
        ::execvp(argomenti[0], argomenti.data());
        ::_exit(127);
    }
    ~Processo() {
        if (numero_ <= 0) return;
        ::kill(numero_, SIGTERM);
        ::waitpid(numero_, nullptr, 0);
    }
    Processo(const Processo&) = delete;
    Processo& operator=(const Processo&) = delete;

private:
    pid_t numero_ = -1;
};

bool installato(const char* programma) {
    return std::filesystem::exists(std::string("/usr/bin/") + programma);
}

/// A display with a window manager on it, and a client that opens windows there.
class Schermo : public testing::Test {
protected:
    void SetUp() override {
        if (!installato("Xvfb") || !installato("openbox")) GTEST_SKIP() << "no X server to ask";
        std::array<int, 2> canale{};
        ASSERT_EQ(::pipe(canale.data()), 0);
        server_ = std::make_unique<Processo>(
            std::vector<std::string>{"Xvfb", "-displayfd", "3", "-nolisten", "tcp"}, canale[1]);
        ::close(canale[1]);
        // The number comes in pieces, and the server ends if nobody hears the last of them.
        std::string numero;
        while (!numero.ends_with('\n')) {
            pollfd attesa{canale[0], POLLIN, 0};
            char cifra = 0;
            ASSERT_EQ(::poll(&attesa, 1, pazienza_ms), 1);
            ASSERT_EQ(::read(canale[0], &cifra, 1), 1);
            numero += cifra;
        }
        ::close(canale[0]);
        numero.pop_back();
        display_ = ":" + numero;
        x_ = xcb_connect(display_.c_str(), nullptr);
        ASSERT_EQ(xcb_connection_has_error(x_), 0);
        fondo_ = xcb_setup_roots_iterator(xcb_get_setup(x_)).data->root;
        const std::uint32_t eventi = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(x_, fondo_, XCB_CW_EVENT_MASK, &eventi);
        xcb_flush(x_);
    }
    void TearDown() override {
        if (x_ != nullptr) xcb_disconnect(x_);
        gestore_.reset();
        server_.reset();
    }
    void gestisci() {
        gestore_ = std::make_unique<Processo>(
            std::vector<std::string>{"env", "DISPLAY=" + display_, "openbox", "--sm-disable"});
    }
    [[nodiscard]] xcb_atom_t atomo(const char* nome) const {
        auto* r = xcb_intern_atom_reply(
            x_, xcb_intern_atom(x_, 0, static_cast<std::uint16_t>(std::strlen(nome)), nome),
            nullptr);
        const xcb_atom_t a = r->atom;
        std::free(r);
        return a;
    }
    /// Waits until the root window tells of a change and `vero` holds.
    template <typename F>
    bool aspetta(F vero, int millisecondi = pazienza_ms) {
        for (int giri = 0; giri < 1000; ++giri) {
            if (vero()) return true;
            bool letti = false;
            while (auto* evento = xcb_poll_for_event(x_)) {
                std::free(evento);
                letti = true;
            }
            if (letti) continue;
            pollfd attesa{xcb_get_file_descriptor(x_), POLLIN, 0};
            if (::poll(&attesa, 1, millisecondi) <= 0) return vero();
        }
        return false;
    }
    [[nodiscard]] bool ha(xcb_window_t w, const char* proprieta) const {
        auto* r = xcb_get_property_reply(
            x_, xcb_get_property(x_, 0, w, atomo(proprieta), XCB_GET_PROPERTY_TYPE_ANY, 0, 1),
            nullptr);
        const bool sua = r != nullptr && r->value_len > 0;
        std::free(r);
        return sua;
    }
    void manda(xcb_window_t w, const char* cosa, const std::vector<std::uint32_t>& dati) const {
        xcb_client_message_event_t m{};
        m.response_type = XCB_CLIENT_MESSAGE;
        m.format = 32;
        m.window = w;
        m.type = atomo(cosa);
        std::copy(dati.begin(), dati.end(), m.data.data32);
        xcb_send_event(x_, 0, fondo_,
                       XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&m));
        xcb_flush(x_);
    }
    [[nodiscard]] xcb_window_t crea() const {
        const xcb_window_t w = xcb_generate_id(x_);
        const std::uint32_t eventi = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(x_, XCB_COPY_FROM_PARENT, w, fondo_, 10, 10, 200, 100, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                          &eventi);
        return w;
    }
    /// Waits until the manager answers; a window mapped while it starts may be overlooked.
    bool gestore_pronto() {
        if (!aspetta([this] { return ha(fondo_, "_NET_SUPPORTING_WM_CHECK"); })) return false;
        const xcb_window_t prova = crea();
        constexpr int poco_ms = 100;
        for (int giri = 0; giri < pazienza_ms / poco_ms; ++giri) {
            manda(prova, "_NET_REQUEST_FRAME_EXTENTS", {0});
            if (aspetta([this, prova] { return ha(prova, "_NET_FRAME_EXTENTS"); }, poco_ms)) {
                return true;
            }
        }
        return false;
    }
    xcb_window_t apri(const std::string& titolo, xcb_window_t sopra = XCB_NONE,
                      bool antico = false) {
        const xcb_window_t w = crea();
        const auto lungo = static_cast<std::uint32_t>(titolo.size());
        if (antico) {
            xcb_change_property(x_, XCB_PROP_MODE_REPLACE, w, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8,
                                lungo, titolo.data());
        } else {
            xcb_change_property(x_, XCB_PROP_MODE_REPLACE, w, atomo("_NET_WM_NAME"),
                                atomo("UTF8_STRING"), 8, lungo, titolo.data());
        }
        if (sopra != XCB_NONE) {
            xcb_change_property(x_, XCB_PROP_MODE_REPLACE, w, XCB_ATOM_WM_TRANSIENT_FOR,
                                XCB_ATOM_WINDOW, 32, 1, &sopra);
        }
        xcb_map_window(x_, w);
        xcb_flush(x_);
        EXPECT_TRUE(aspetta([&] {
            const auto aperte = finestre_aperte(display_);
            return std::any_of(aperte.begin(), aperte.end(),
                               [w](const FinestraAperta& f) { return f.id == w; });
        })) << titolo;
        return w;
    }
    /// The state that the manager keeps a window in.
    [[nodiscard]] std::uint32_t stato(xcb_window_t w) const {
        auto* r = xcb_get_property_reply(
            x_, xcb_get_property(x_, 0, w, atomo("WM_STATE"), XCB_GET_PROPERTY_TYPE_ANY, 0, 1),
            nullptr);
        std::uint32_t s = 0;
        if (r != nullptr && r->value_len == 1) {
            s = *static_cast<std::uint32_t*>(xcb_get_property_value(r));
        }
        std::free(r);
        return s;
    }
    [[nodiscard]] int largo(xcb_window_t w) const {
        auto* r = xcb_get_geometry_reply(x_, xcb_get_geometry(x_, w), nullptr);
        const int pixel = r != nullptr ? r->width : 0;
        std::free(r);
        return pixel;
    }
    [[nodiscard]] xcb_window_t attiva() const {
        auto* r = xcb_get_property_reply(
            x_, xcb_get_property(x_, 0, fondo_, atomo("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW, 0, 1),
            nullptr);
        xcb_window_t w = XCB_NONE;
        if (r != nullptr && r->value_len == 1) {
            w = *static_cast<xcb_window_t*>(xcb_get_property_value(r));
        }
        std::free(r);
        return w;
    }

    std::unique_ptr<Processo> server_;
    std::unique_ptr<Processo> gestore_;
    std::string display_;
    xcb_connection_t* x_ = nullptr;
    xcb_window_t fondo_ = XCB_NONE;
};

}  // namespace

TEST(Finestre, SenzaSchermoNonCeNeSono) {
    EXPECT_TRUE(finestre_aperte(":9999").empty());
    EXPECT_FALSE(platform::attiva_finestra(1, ":9999"));
    EXPECT_FALSE(platform::mostra_finestra(1, ":9999"));
    EXPECT_TRUE(finestre_aperte("nemmeno un nome").empty());
}

TEST(Finestre, IlTitoloInteroPrimaDiQuelloCheComincia) {
    const std::vector<FinestraAperta> aperte = {
        {1, "Altro", false}, {2, "Stampa schedine", false}, {3, "stampa", false}};
    ASSERT_NE(finestra_titolata(aperte, "STAMPA"), nullptr);
    EXPECT_EQ(finestra_titolata(aperte, "STAMPA")->id, 3U);
    EXPECT_EQ(finestra_titolata(aperte, "stampa s")->id, 2U);
    EXPECT_EQ(finestra_titolata(aperte, "schedine"), nullptr);
    EXPECT_EQ(finestra_titolata({}, "stampa"), nullptr);
}

TEST_F(Schermo, SenzaGestoreNonCeElenco) {
    EXPECT_TRUE(finestre_aperte(display_).empty());
    platform::attiva_finestra(1, display_);
}

TEST_F(Schermo, ElencaDallaPiuAltaEAttiva) {
    gestisci();
    ASSERT_TRUE(gestore_pronto());
    const xcb_window_t guida = apri("Guida in linea è qui");
    const xcb_window_t stampa = apri("Stampa \xE8 pronta", XCB_NONE, true);
    const xcb_window_t dialogo = apri("Dialogo", stampa);

    auto aperte = finestre_aperte(display_);
    ASSERT_EQ(aperte.size(), 3U);
    const auto di = [&aperte](xcb_window_t w) {
        return *std::find_if(aperte.begin(), aperte.end(),
                             [w](const FinestraAperta& f) { return f.id == w; });
    };
    EXPECT_EQ(di(guida).titolo, "Guida in linea è qui");
    EXPECT_EQ(di(stampa).titolo, "Stampa è pronta");
    EXPECT_TRUE(di(dialogo).posseduta);
    EXPECT_FALSE(di(guida).posseduta);

    const FinestraAperta* trovata = finestra_titolata(aperte, "guida");
    ASSERT_NE(trovata, nullptr);
    EXPECT_EQ(trovata->id, guida);
    ASSERT_TRUE(platform::attiva_finestra(guida, display_));
    EXPECT_TRUE(aspetta([&] { return attiva() == guida; }));
    EXPECT_TRUE(aspetta([&] { return finestre_aperte(display_).front().id == guida; }));

    // A minimized window stays in the list and comes back.
    manda(guida, "WM_CHANGE_STATE", {3});
    ASSERT_TRUE(aspetta([&] { return attiva() != guida; }));
    aperte = finestre_aperte(display_);
    ASSERT_NE(finestra_titolata(aperte, "guida"), nullptr);
    ASSERT_TRUE(platform::attiva_finestra(guida, display_));
    EXPECT_TRUE(aspetta([&] { return attiva() == guida; }));
}

TEST_F(Schermo, RipristinaLaFinestraRidottaAIconaEQuellaIngrandita) {
    gestisci();
    ASSERT_TRUE(gestore_pronto());
    const xcb_window_t guida = apri("Guida");
    const xcb_window_t altra = apri("Altra");
    manda(guida, "WM_CHANGE_STATE", {3});
    ASSERT_TRUE(aspetta([&] { return stato(guida) == icona; }));
    ASSERT_TRUE(platform::mostra_finestra(guida, display_));
    EXPECT_TRUE(aspetta([&] { return stato(guida) == normale; }));

    const auto intero = [this](xcb_window_t w) { return largo(w) > 500; };
    manda(altra, "_NET_WM_STATE",
          {1, atomo("_NET_WM_STATE_MAXIMIZED_VERT"), atomo("_NET_WM_STATE_MAXIMIZED_HORZ")});
    ASSERT_TRUE(aspetta([&] { return intero(altra); }));
    ASSERT_TRUE(platform::mostra_finestra(altra, display_));
    EXPECT_TRUE(aspetta([&] { return !intero(altra); }));
    EXPECT_EQ(largo(altra), 200);
}
