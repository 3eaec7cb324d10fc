// Pages kept in a temporary file, packed: a report of any length takes a few bytes of memory a
// page.
#pragma once

#include <QTemporaryFile>
#include <vector>

#include "core/reports/Pagina.h"
#include "core/values/Esito.h"

namespace fenalto::print {

class DepositoPagine {
 public:
  /// `cartella` empty for the system's folder of temporary files. The file has no name there: it
  /// goes with the process whatever ends it.
  explicit DepositoPagine(const QString& cartella = {});

  /// Adds a page at the end; the error says that the temporary folder is full or can't be written.
  Esito<bool> Aggiungi(const reports::Pagina& pagina);
  [[nodiscard]] int Pagine() const { return static_cast<int>(posti_.size()); }
  /// The page of that index, from 0; an empty one when it can't be read back.
  [[nodiscard]] reports::Pagina Leggi(int indice);

 private:
  struct Posto {
    qint64 inizio = 0;
    qint32 lunghezza = 0;
  };
  QTemporaryFile file_;
  std::vector<Posto> posti_;
  qint64 fine_ = 0;
};

}  // namespace fenalto::print
