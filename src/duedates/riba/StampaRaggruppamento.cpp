// Printed form of the grouping: the receipts as they are, and those that take their place.
#include <algorithm>
#include <cstdint>

#include "core/reports/Rapporto.h"
#include "core/values/Testo.h"
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
    "$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ §§§§§§§§ $$$$$$$$ $$$$$$$$ççççççççççççççç  "
    "$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$";
constexpr const char* kTotaleRaggruppamento =
    "$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$                  $$$$$$$$ççççççççççççççç  "
    "$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$";
constexpr std::size_t kLarghezzaRaggruppamento = 145;
/// The number to the right, under its caption.
std::string ADestra(const std::string& numero) {
  const std::string testo = FatturaIncolonnata(numero);
  return std::string(kCaratteriFattura - LunghezzaTesto(testo), ' ') + testo;
}

/// A name that is cut says so.
std::string InColonna(const std::string& cliente) {
  constexpr std::size_t kNome = 37;
  return LunghezzaTesto(cliente) <= kNome ? cliente : Mid(cliente, 1, kNome - 1) + "…";
}

/// What the columns don't say of a receipt.
std::string NoteRicevuta(const Scadenza& s, bool conNumero) {
  std::string note;
  if (conNumero && LunghezzaTesto(s.nFat) > kCaratteriFattura) note = "fatt. " + s.nFat;
  if (!s.importoPagatoE.Zero()) {
    note += std::string(note.empty() ? "" : ", ") + "residuo di scad. parziale";
  }
  return note;
}

/// Groups between two signs of life.
constexpr std::int64_t kOgniStampate = 50;

class TabulatoRaggruppamento {
 public:
  TabulatoRaggruppamento(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                         const SceltaRaggruppamento& scelta, bool definitivo)
      : scelta_(scelta),
        definitivo_(definitivo),
        rapporto_(ambiente, uscite),
        // Due dates are kept in euro, whatever the year.
        riga_{reports::PictureImporto(kRiga, true),
              {"R_CLIENTE", "R_NFAT", "R_DTFAT", "R_DTSCAD", "R_IMPORTO", "R_NOTE"}},
        totale_{reports::PictureImporto(kTotaleRaggruppamento, true),
                {"R_SCRITTATOT", "R_TOTDTSCAD", "R_TOTIMPORTO", "R_TOTNOTE"},
                true} {}

  bool Esegui(const std::vector<GruppoRiba>& gruppi) {
    const reports::Cornice cornice{"raggruppamento Ri.Ba.", "Raggruppamento Ri.Ba.", "TiRiBaRag",
                                   kLarghezzaRaggruppamento, true};
    if (!rapporto_.Apri(cornice, [this] { Testata(); })) return false;
    rapporto_.Avvia("Stampa raggruppamento Ri.Ba.", static_cast<std::int64_t>(gruppi.size()),
                    kOgniStampate);
    for (const GruppoRiba& gruppo : gruppi) {
      Gruppo(gruppo);
      if (!rapporto_.Passo() && !rapporto_.Interrotta()) return false;
    }
    Chiusura(gruppi);
    return rapporto_.Fine();
  }

 private:
  void Testata() {
    rapporto_.TestataDitta();
    const std::vector<Valore> titolo{scelta_.da, scelta_.a, definitivo_ ? "DEFINITIVO" : ""};
    if (rapporto_.Grafico()) {
      rapporto_.Carta().Campi(titolo);
      rapporto_.Titolo("TITOLO", rapporto_.Carta().Formato(kTitoloRaggruppamento));
      return rapporto_.Titolo("TITOLO2", definitivo_ ? "" : "stampa di prova");
    }
    rapporto_.Vuota();
    rapporto_.Riga({kTitoloRaggruppamento, {}, true}, titolo);
    rapporto_.Vuota();
    rapporto_.Carta().Riga(kColonneRaggruppamento);
    rapporto_.Rigo("-");
  }

  void Gruppo(const GruppoRiba& gruppo) {
    const bool daRaggruppare = gruppo.DaRaggruppare();
    rapporto_.Riserva(daRaggruppare ? 3 : 1);
    const std::string cliente = gruppo.conto + " " + gruppo.ragsoc;
    for (const Scadenza& s : gruppo.scadenze) {
      const bool grafico = rapporto_.Grafico();
      rapporto_.Riga(riga_,
                     {grafico ? cliente : InColonna(cliente), grafico ? s.nFat : ADestra(s.nFat),
                      s.dtFat, s.dt, s.Residuo(), NoteRicevuta(s, !grafico)},
                     AllaRegistrazione(s.anno, s.articolo));
    }
    if (!daRaggruppare) return;
    rapporto_.Riga(totale_, {"raggruppate " + std::to_string(gruppo.scadenze.size()), gruppo.dt,
                             gruppo.Totale(), RiferimentiFatture(gruppo.scadenze)});
    rapporto_.Vuota();
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
    rapporto_.Riserva(2);
    rapporto_.Filo("-");
    rapporto_.Riga(totale_, {"TOTALE", Valore(), totale,
                             "scadenze " + std::to_string(prima) +
                                 ", ricevute dopo il raggruppamento " + std::to_string(dopo)});
  }

  const SceltaRaggruppamento& scelta_;
  bool definitivo_;
  reports::Rapporto rapporto_;
  reports::Fascia riga_;
  reports::Fascia totale_;
};

}  // namespace

bool RaggruppamentoRiba::StampaGruppi(const SceltaRaggruppamento& scelta,
                                      const std::vector<GruppoRiba>& gruppi, bool definitivo) {
  return TabulatoRaggruppamento(ambiente_, uscite_, scelta, definitivo).Esegui(gruppi);
}

}  // namespace fenalto::duedates
