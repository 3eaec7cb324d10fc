// Why a command of a copione failed. Thrown by the runner's own code alone, never through an event
// handler of the toolkit, and caught once per command.
#pragma once

#include <QString>
#include <stdexcept>
#include <string>

namespace fenalto::copione {

class Fallimento : public std::runtime_error {
 public:
  explicit Fallimento(const std::string& motivo) : std::runtime_error(motivo) {}
  explicit Fallimento(const QString& motivo) : std::runtime_error(motivo.toStdString()) {}
};

inline QString Qs(const std::string& testo) {
  return QString::fromStdString(testo);
}

}  // namespace fenalto::copione
