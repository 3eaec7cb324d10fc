// What the parts of Cespiti share: the state of the open card and of its open row.
#pragma once

#include <optional>
#include <vector>

#include "assets/Cespiti.h"
#include "core/records/Righe.h"
#include "core/session/Rifiuto.h"

namespace fenalto::assets {

struct Cespiti::Interno {
  explicit Interno(Ambiente& ambienteUsato);

  [[nodiscard]] Archivio& Tessarc() const { return ambiente.ArchivioDi("tessarc"); }
  void Avviso(const std::string& testo) const { documento.Avviso(testo); }
  void Chiudi() noexcept;
  bool Ferma();
  void Inizia();

  // --- State
  // --------------------------------------------------------------------------------------

  /// Works the card out of the rows, tells what there is to tell, sets the two flags.
  SchedaCespite AggiornaStato();
  /// The rows other than the open one, and what they come to.
  [[nodiscard]] std::vector<MovimentoCespite> Altre() const { return righe.Senza(); }
  [[nodiscard]] int AnnoDal() const;
  void DalLasciata();

  // --- Rows
  // ---------------------------------------------------------------------------------------

  void RateLasciata();
  void ProponiQuota(const MovimentoCespite& digitata);
  std::optional<Rifiuto> RifiutoRiga(const MovimentoCespite& riga);
  std::optional<Rifiuto> RifiutoMancante(const MovimentoCespite& riga) const;
  std::optional<Rifiuto> RifiutoStato(const MovimentoCespite& riga,
                                      const SchedaCespite& altre) const;
  std::optional<Rifiuto> RifiutoAnno(const MovimentoCespite& riga) const;
  /// No row may stand in a later year.
  [[nodiscard]] int UltimoAnnoAmmesso() const;

  // --- Confirmation
  // -------------------------------------------------------------------------------

  std::optional<Rifiuto> Controlla();
  std::optional<Rifiuto> RifiutoRiferimento() const;
  std::optional<Rifiuto> RifiutoCodici() const;
  /// Why what stands there isn't what was read.
  [[nodiscard]] std::string Cambiato() const;
  [[nodiscard]] Cespite DaTesta() const;
  std::string Scrivi();

  Ambiente& ambiente;
  records::DocumentoAperto documento;
  Scheda& testa = documento.Testa();
  records::Righe<MovimentoCespite> righe{CampiMovimento(), &PrimaNellaScheda};
  Cespite letto;                             ///< as stored
  std::vector<MovimentoCespite> righeLette;  ///< as stored
  std::int64_t numeroConfermato = 0;
  Data dalConCosto;        ///< the date that can't change, since the cost stands in its year
  bool daFattura = false;  ///< a new card whose only row came from an invoice
  Importo pVista;          ///< rate of the open row whose quota was worked out
  bool chiesta = false;    ///< the question about a small cost was put for the open row
};

/// Its lock while it is in edit.
Esito<Blocco, Detentore> BloccaCespite(Ambiente& ambiente, std::int64_t nCesp);

}  // namespace fenalto::assets
