#include "core/reports/Cornice.h"

#include <system_error>

#include "core/values/Testo.h"

namespace fenalto::reports {

namespace {

/// Pitch of every report's text, in characters an inch.
constexpr int kPasso = 17;
/// Left edge of the graphic form, in millimetres.
constexpr double kX = 10;

/// `prima` and `dopo` with a blank between; no blank beside nothing.
std::string Unisci(const std::string& prima, const std::string& dopo) {
  return std::string(Rifila(prima + " " + dopo));
}

}  // namespace

DatiDitta LeggiDatiDitta(Ambiente& ambiente) {
  // The blank after ragsoc1 belongs to the key.
  return {Unisci(ambiente.Config("ragsoc1 "), ambiente.Config("ragsoc2")),
          Unisci(ambiente.Config("indirizzo"), ambiente.Config("localita")),
          ambiente.Config("piva"), ambiente.Config("codfisc")};
}

std::filesystem::path PercorsoModello(const Ambiente& ambiente, std::string_view nome) {
  const std::string file = std::string(nome) + ".mod";
  std::filesystem::path proprio = ambiente.CartellaProgramma() / "Ini" / file;
  std::error_code errore;
  if (std::filesystem::exists(proprio, errore)) return proprio;
  return ambiente.CartellaDati() / "ini" / file;
}

ModoStampa ApriStampa(Stampa& stampa, const Ambiente& ambiente, const Cornice& cornice) {
  if (!stampa.Inizio(cornice.rapporto)) return ModoStampa::Fermata;
  const bool grafico = cornice.grafico && !stampa.SoloTesto();
  if (grafico) {
    if (!stampa.Modello(PercorsoModello(ambiente, cornice.modello))) return ModoStampa::Fermata;
    stampa.ModoTesto(false);
    stampa.Dimensioni(kX + cornice.xTar);
  } else {
    stampa.ModoTesto(true);
    stampa.CarattereTesto(kPasso);
    stampa.Larghezza(cornice.larghezza);
  }
  stampa.Titolo(cornice.titolo);
  return grafico ? ModoStampa::Grafico : ModoStampa::Testo;
}

void CampiTestata(Stampa& stampa, Ambiente& ambiente, const DatiDitta& ditta, int pagina) {
  stampa.CampoModello("DITTA", ditta.ragSoc1_2);
  stampa.CampoModello("RagSoc1_2", ditta.ragSoc1_2);
  stampa.CampoModello("Indirizzo_localita", ditta.indirizzoLocalita);
  if (!ditta.piva.empty()) stampa.CampoModello("PIVA", "Partita IVA " + ditta.piva);
  if (!ditta.codFisc.empty()) stampa.CampoModello("CODFISC", "Codice fiscale " + ditta.codFisc);
  stampa.CampoModello("ANNO", ambiente.Anno());
  stampa.CampoModello("DATASTAMPA", ambiente.Ora().Oggi());
  stampa.CampoModello("Pag", pagina);
}

void TestataTesto(Stampa& stampa, Ambiente& ambiente, const DatiDitta& ditta, int pagina,
                  std::size_t larghezza) {
  constexpr std::size_t kDestra = 24;
  const std::string nome = Ripeti("$", larghezza - kDestra);
  stampa.Campo(1, ditta.ragSoc1_2);
  stampa.Campo(2, pagina);
  stampa.Riga(nome + "             pag. #####,", {}, true);
  stampa.Campo(1, ditta.indirizzoLocalita);
  stampa.Campo(2, ambiente.Ora().Oggi());
  stampa.Riga(nome + " data stampa  $$$$$$$$$$");
}

std::string Ripeti(std::string_view carattere, std::size_t n) {
  std::string testo;
  testo.reserve(carattere.size() * n);
  for (std::size_t i = 0; i < n; ++i) testo += carattere;
  return testo;
}

}  // namespace fenalto::reports
