// One reading of an archive's list, in order of code: what pages, neighbours and print share.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "core/archives/ElencoArchivio.h"

namespace fenalto::archives {

class LetturaElenco {
 public:
  enum class Verso { Avanti, Indietro };

  LetturaElenco(Ambiente& ambiente, const DescrizioneArchivio& descrizione,
                const FiltroElenco& filtro);

  [[nodiscard]] const std::vector<records::CampoForma>& Colonne() const { return colonne_; }
  /// Hands over the rows beyond the code `confine` (all when empty), at most `massimo` (0 for all),
  /// until `riga` returns false.
  void Leggi(const std::string& confine, Verso verso, int massimo,
             const std::function<bool(std::vector<Valore>)>& riga);

 private:
  void Aggiungi(const std::string& condizione);

  Archivio& archivio_;
  std::vector<records::CampoForma> colonne_;
  std::string voci_;
  std::string tabella_;
  std::string dove_;
  /// Columns that aren't texts are compared with what they show.
  std::vector<std::pair<std::size_t, std::string>> mostrate_;
};

}  // namespace fenalto::archives
