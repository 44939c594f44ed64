// The program's place on the machine and its only instance; no Qt.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace platform {

/// Settings of the running program, found once at its start.
class Application {
public:
    Application() = default;
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;
    ~Application();

    /// Program folder without a trailing separator; the tests set their own.
    std::string Path;
    int Major = 0;
    int Minor = 0;
    int Revision = 0;
    /// "1.0.0"
    [[nodiscard]] std::string versione() const;
    /// Name of a file in the program folder.
    [[nodiscard]] std::string file(std::string_view nome) const {
        return Path + "/" + std::string(nome);
    }
    /// True when another instance runs on the same folder; else this becomes the instance.
    [[nodiscard]] bool PrevInstance();

private:
    int blocco_ = -1;
};

/// The turn of one program among those at work on a folder, until the object's end or the
/// process's. One that is not given way to in time, or where the disk knows no locks, has no turn
/// and goes on without.
class Turno {
public:
    explicit Turno(const std::string& cartella,
                   std::chrono::milliseconds attesa = std::chrono::seconds(5));
    Turno(const Turno&) = delete;
    Turno& operator=(const Turno&) = delete;
    ~Turno();
    [[nodiscard]] bool preso() const { return preso_; }

private:
    /// True when it may be worth trying again.
    bool prova();

    std::string nome_;
    int fd_ = -1;
    bool preso_ = false;
};

/// That of `ambiente.h`.
Application& App();

/// Parent of the program folder, found by cutting as many characters as "cruciverba" has.
std::string radice(std::string_view percorso);

/// Finds the program folder: that of the executable when it is named "cruciverba" and can be
/// written, else the user's own, whose root is filled from the suite that the program came with:
/// `condivisi` of an installation, or the folder above the executable's.
std::string trova_cartella(const std::string& cartella_eseguibile, const std::string& condivisi);

/// Folder of the running executable, empty when the system does not tell.
std::string cartella_eseguibile();

}  // namespace platform
