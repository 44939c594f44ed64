#include "platform/comando.h"

#include "platform/macchina.h"

namespace platform {

std::string cartella_del_comando(const std::string& comando) {
    const std::size_t barra = comando.rfind('/');
    return barra == std::string::npos ? "" : macchina::percorso_reale(comando.substr(0, barra + 1));
}

}  // namespace platform
