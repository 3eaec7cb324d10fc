// Writes records of an archive as its window does, checks included.
#pragma once

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "core/archives/ArchivioCodici.h"
#include "demo/DialoghiMuti.h"

namespace fenalto::demo {

class ScrittoreArchivio {
 public:
  using Campi = std::vector<std::pair<std::string_view, Valore>>;

  ScrittoreArchivio(Ambiente& ambiente, DialoghiMuti& dialoghi,
                    archives::DescrizioneArchivio descrizione)
      : dialoghi_(dialoghi), archivio_(ambiente, std::move(descrizione)) {}
  ScrittoreArchivio(Ambiente& ambiente, DialoghiMuti& dialoghi,
                    const std::vector<archives::DescrizioneArchivio>& stanza,
                    std::string_view tabella)
      : ScrittoreArchivio(
            ambiente, dialoghi,
            *std::ranges::find(stanza, tabella, &archives::DescrizioneArchivio::tabella)) {}

  void Scrivi(const Campi& campi) {
    archivio_.Inizia();
    Conferma(campi);
  }
  void Cambia(const std::string& codice, const Campi& campi) {
    archivio_.Apri(codice);
    Conferma(campi);
  }

 private:
  void Conferma(const Campi& campi) {
    for (const auto& [campo, valore] : campi) archivio_.Record().Scrivi(campo, valore);
    if (archivio_.Conferma()) return;
    throw ErroreArchivio(ErroreArchivio::Causa::Altro,
                         archivio_.Descrizione().titolo + ", codice " +
                             archivio_.Record().Testo("Cod") + ": " + dialoghi_.ultimo);
  }

  DialoghiMuti& dialoghi_;
  archives::ArchivioCodici archivio_;
};

}  // namespace fenalto::demo
