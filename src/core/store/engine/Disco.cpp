#include "core/store/engine/Disco.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>

namespace fenalto::engine {

void Sincronizza(const std::filesystem::path& percorso) {
  const int descrittore = open(percorso.c_str(), O_RDONLY | O_CLOEXEC);
  const bool riuscita = descrittore >= 0 && fsync(descrittore) == 0;
  const int motivo = errno;
  if (descrittore >= 0) close(descrittore);
  // Shares that can't synchronise a folder say so with EINVAL.
  if (!riuscita && motivo != EINVAL) {
    throw std::runtime_error(percorso.string() + " non arriva al disco: " + std::strerror(motivo));
  }
}

}  // namespace fenalto::engine
