// Printed form of the grouping: the receipts as they are, and those that take their place.
#include <algorithm>
#include <cstdint>
#include <memory>

#include "core/reports/Cornice.h"
#include "duedates/riba/RaggruppamentoRiba.h"

namespace fenalto::duedates {
namespace {

constexpr const char* kTitoloRaggruppamento =
    "RAGGRUPPAMENTO RIBA DA DATA SCAD $$$$$$$$ A $$$$$$$$ $$$$$$$$$$$$$$$$$$$$$$$$$";
constexpr const char* kColonneRaggruppamento =
    "cliente                                n.fatt. data ft. data sc.        importo  riferimenti "
    "fatture                      ";
/// References are longer than their heading.
constexpr const char* kRiga =
    "$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$######## $$$$$$$$ $$$$$$$$ççççççççççççççç  "
    "$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$";
constexpr const char* kTotaleRaggruppamento =
    "$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$                  $$$$$$$$ççççççççççççççç  "
    "$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$";
constexpr std::size_t kLarghezzaRaggruppamento = 145;
/// Groups between two signs of life.
constexpr std::int64_t kOgniStampate = 50;

/// Fields of kRiga; kTotaleRaggruppamento has 1, 2 (the day), 3 (the amount), 4.
enum Campo : std::size_t {
  kCampoCliente = 1,
  kCampoNFat,
  kCampoDtFat,
  kCampoDtScad,
  kCampoImporto,
  kCampoRiferimenti
};
enum CampoTotale : std::size_t { kTesto = 1, kGiorno, kSomma, kNota };

class TabulatoRaggruppamento {
 public:
  TabulatoRaggruppamento(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                         const SceltaRaggruppamento& scelta, bool definitivo)
      : ambiente_(ambiente),
        scelta_(scelta),
        definitivo_(definitivo),
        stampa_(ambiente, uscite),
        ditta_(reports::LeggiDatiDitta(ambiente)),
        // Due dates are kept in euro, whatever the year.
        riga_(reports::PictureImporto(kRiga, true)),
        totale_(reports::PictureImporto(kTotaleRaggruppamento, true)) {}

  bool Esegui(const std::vector<GruppoRiba>& gruppi) {
    reports::Cornice cornice;
    cornice.rapporto = "raggruppamento Ri.Ba.";
    cornice.titolo = "Raggruppamento Ri.Ba.";
    cornice.larghezza = kLarghezzaRaggruppamento;
    if (reports::ApriStampa(stampa_, ambiente_, cornice) == reports::ModoStampa::Fermata)
      return false;
    stampa_.Intestazione([this] { Testata(); });
    const auto avanzamento = ambiente_.Dialogo().Avvia("Stampa raggruppamento Ri.Ba.",
                                                       static_cast<std::int64_t>(gruppi.size()));
    std::int64_t stampati = 0;
    for (const GruppoRiba& gruppo : gruppi) {
      Gruppo(gruppo);
      if (++stampati % kOgniStampate == 0 && !avanzamento->Avanza(stampati)) return false;
    }
    Chiusura(gruppi);
    return stampa_.Fine();
  }

 private:
  void Testata() {
    reports::TestataTesto(stampa_, ambiente_, ditta_, stampa_.NumeroPagina(),
                          kLarghezzaRaggruppamento);
    stampa_.Riga("");
    stampa_.Campo(1, scelta_.da);
    stampa_.Campo(2, scelta_.a);
    stampa_.Campo(3, definitivo_ ? "DEFINITIVO" : "");
    stampa_.Riga(kTitoloRaggruppamento, {}, true);
    stampa_.Riga("");
    stampa_.Riga(kColonneRaggruppamento);
    stampa_.Riga(reports::Ripeti("-", kLarghezzaRaggruppamento));
  }

  void Gruppo(const GruppoRiba& gruppo) {
    const bool daRaggruppare = gruppo.DaRaggruppare();
    stampa_.Riserva(daRaggruppare ? 3 : 1);
    const std::string cliente = gruppo.conto + " " + gruppo.ragsoc;
    for (const Scadenza& scadenza : gruppo.scadenze) {
      stampa_.Campo(kCampoCliente, cliente);
      stampa_.Campo(kCampoNFat, scadenza.nFat);
      stampa_.Campo(kCampoDtFat, scadenza.dtFat);
      stampa_.Campo(kCampoDtScad, scadenza.dt);
      stampa_.Campo(kCampoImporto, scadenza.Residuo());
      if (!scadenza.importoPagatoE.Zero())
        stampa_.Campo(kCampoRiferimenti, "residuo di scad. parziale");
      stampa_.Riga(riga_, AllaRegistrazione(scadenza.anno, scadenza.articolo));
    }
    if (!daRaggruppare) return;
    stampa_.Campo(kTesto, "raggruppate " + std::to_string(gruppo.scadenze.size()));
    stampa_.Campo(kGiorno, gruppo.dt);
    stampa_.Campo(kSomma, gruppo.Totale());
    stampa_.Campo(kNota, RiferimentiFatture(gruppo.scadenze));
    stampa_.Riga(totale_, {}, true);
    stampa_.Riga("");
  }

  void Chiusura(const std::vector<GruppoRiba>& gruppi) {
    Importo totale;
    std::size_t prima = 0;
    std::size_t dopo = 0;
    for (const GruppoRiba& gruppo : gruppi) {
      totale += gruppo.Totale();
      prima += gruppo.scadenze.size();
      dopo += gruppo.DaRaggruppare() ? 1 : gruppo.scadenze.size();
    }
    stampa_.Riserva(2);
    stampa_.Riga(reports::Ripeti("-", kLarghezzaRaggruppamento));
    stampa_.Campo(kTesto, "TOTALE");
    stampa_.Campo(kSomma, totale);
    stampa_.Campo(kNota, "scadenze " + std::to_string(prima) +
                             ", ricevute dopo il raggruppamento " + std::to_string(dopo));
    stampa_.Riga(totale_, {}, true);
  }

  Ambiente& ambiente_;
  const SceltaRaggruppamento& scelta_;
  bool definitivo_;
  reports::Stampa stampa_;
  reports::DatiDitta ditta_;
  std::string riga_;
  std::string totale_;
};

}  // namespace

bool RaggruppamentoRiba::StampaGruppi(const SceltaRaggruppamento& scelta,
                                      const std::vector<GruppoRiba>& gruppi, bool definitivo) {
  return TabulatoRaggruppamento(ambiente_, uscite_, scelta, definitivo).Esegui(gruppi);
}

}  // namespace fenalto::duedates
