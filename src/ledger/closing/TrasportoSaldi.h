// The transport of a year's balances as openings of another year, of this company or of another
// one: provisional (APEX) as often as one likes, definitive (APE) in the end.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "core/session/Scheda.h"
#include "ledger/closing/OperazioniAnno.h"
#include "ledger/closing/VociDaMuovere.h"

namespace fenalto::ledger {

class TrasportoSaldi {
 public:
  explicit TrasportoSaldi(Ambiente& ambiente);

  /// DtSaldi, Contropartita, NuovoAnnoSaldi, TrasportoDefinitivo, NuovoNomeDbCont2Saldi.
  [[nodiscard]] Scheda& Dati() { return dati_; }
  /// A field was left: the counter-account is kept in the settings, another year moves the date.
  void CampoLasciato(const std::string& campo);
  [[nodiscard]] const std::string& CampoRifiutato() const { return campoRifiutato_; }

  /// Fills the list from the books of the selected year.
  void LetturaSaldi();
  [[nodiscard]] const std::vector<VoceSaldo>& Lista() const { return lista_; }
  /// A line that isn't to be transported.
  void TogliSaldo(std::size_t riga);
  /// Databases of the companies found, which may receive the balances.
  [[nodiscard]] std::vector<std::filesystem::path> ArchiviTrovati() const;
  /// Writes the openings; true when it went through, what stops it was told.
  bool ConfermaSaldi();

 private:
  /// The database that receives the balances.
  struct Destinazione {
    BasiDati* basi = nullptr;
    std::unique_ptr<BasiDati> aperta;  ///< another company's, for this run
    [[nodiscard]] Archivio& Tessarc() const { return basi->Tessarc(); }
  };
  bool Rifiuta(const std::string& testo, const std::string& campo);
  [[nodiscard]] bool Definitivo() const { return dati_.Leggi("TrasportoDefinitivo").Booleano(); }
  [[nodiscard]] int AnnoNuovo() const;
  [[nodiscard]] std::string Causale() const;
  /// Checks and questions, in their order.
  bool Controlla(Destinazione& destinazione);
  [[nodiscard]] bool ChiediConferma();
  bool ApriDestinazione(Destinazione& destinazione);
  [[nodiscard]] bool AnnoAdatto(const Destinazione& destinazione);
  /// Checks of this program's own, after the others.
  [[nodiscard]] bool DatiAdatti(const Destinazione& destinazione);
  std::string Scrivi(const Destinazione& destinazione);
  /// Entries that can be written on the destination; the codes it lacks are told at the end.
  std::vector<VoceSaldo> DaScrivere(Archivio& tessarc);
  std::int64_t TogliProvvisorie(Archivio& tessarc);
  bool EseguiSu(const Destinazione& destinazione);
  void Racconta();

  Ambiente& ambiente_;
  Scheda dati_;
  std::string campoRifiutato_;
  std::vector<VoceSaldo> lista_;
  std::vector<std::string> mancanti_;
  std::optional<OperazioneAnno> fatta_;
};

}  // namespace fenalto::ledger
