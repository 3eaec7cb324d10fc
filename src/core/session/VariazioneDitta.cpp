#include "core/session/VariazioneDitta.h"

#include <array>

#include "core/sql/Criterio.h"
#include "core/values/ControlloCodiceFiscale.h"
#include "core/values/ControlloPartitaIva.h"
#include "core/values/Testo.h"

namespace fenalto {

namespace {

using GenereVariazione = CampoImpostazione::Genere;

constexpr auto kCampi = std::to_array<CampoImpostazione>({
    {"ragsoc1", "ragsoc1 "},
    {"ragsoc2", "ragsoc2"},
    {"indirizzo", "indirizzo"},
    {"localita", "localita"},
    {"NAZIONE", "NAZIONE"},
    {"piva", "piva"},
    {"codfisc", "codfisc"},
    {"tel", "tel"},
    {"DecP", "DecP", GenereVariazione::Decimali, "2"},
    {"DecQ", "DecQ", GenereVariazione::Decimali, "2"},
    {"ArrotImporto", "ArrotImporto", GenereVariazione::Uno},
    {"PrezziDaOrdine", "PrezziDaOrdine", GenereVariazione::Uno},
    {"PrezziIvatiOrdCli", "PrezziIvatiOrdCli", GenereVariazione::Uno},
    {"ListinoDdtSenzaPrezzi", "ListinoDdtSenzaPrezzi", GenereVariazione::Uno},
    {"PropongoCostoDigitato", "PropongoCostoDigitato", GenereVariazione::Uno},
    {"DbCostoMedio", "DbCostoMedio", GenereVariazione::Uno},
    {"MagObbligatorio", "MagObbligatorio", GenereVariazione::Uno},
    {"LottoDtScad", "LottoDtScad", GenereVariazione::Uno},
    {"FornNonPrevisto", "FornNonPrevisto", GenereVariazione::Uno},
    {"BarcodeUnivoco", "BarcodeUnivoco", GenereVariazione::Uno},
    {"CodficaCliFor", "CodficaCliFor", GenereVariazione::Uno},
    {"DirectoryImm", "DirectoryImm", GenereVariazione::Percorso},
    {"DirectoryDoc", "DirectoryDoc", GenereVariazione::Percorso},
    {"LogoOrdini", "LogoOrdini", GenereVariazione::Percorso},
    {"InvertoDAinNoteCredito", "InvertoDAinNoteCredito", GenereVariazione::Uno},
    {"RegAutoIntraCee", "RegAutoIntraCee", GenereVariazione::SiNo},
    {"NoIntraCosto_a_Forn", "NoIntraCosto_a_Forn", GenereVariazione::Uno},
    {"CausaleIntraCosto_a_Forn", "CausaleIntraCosto_a_Forn", GenereVariazione::Causale},
    {"RegAutoBolleDoganali", "RegAutoBolleDoganali", GenereVariazione::SiNo},
    {"RITENUTAACCONTO", "RITENUTAACCONTO", GenereVariazione::SiNoMaiuscolo},
});

std::string DelAnno(int anno) {
  return " where " + sql::Criterio("Anno", "=", Valore(anno));
}

}  // namespace

VariazioneDitta::VariazioneDitta(Ambiente& ambiente)
    : ambiente_(ambiente), campi_(ambiente, {kCampi.begin(), kCampi.end()}) {
  Dati().Aggiungi(std::string(kIvaTrimestrale), Tipo::Booleano);
  Rileggi();
}

std::span<const CampoImpostazione> VariazioneDitta::Campi() {
  return kCampi;
}

void VariazioneDitta::Rileggi() {
  campi_.Rileggi();
  const Rs anno = ambiente_.ArchivioDi("tessarc").Recordset("select IvaTrimestrale from Anni" +
                                                            DelAnno(ambiente_.Anno()));
  Dati().Scrivi(kIvaTrimestrale, !anno.Eof() && anno.Fields("IvaTrimestrale").Booleano());
  Dati().Consolida();
}

bool VariazioneDitta::CampoLasciato(std::string_view campo) {
  return campi_.CampoLasciato(campo);
}

std::string VariazioneDitta::Avviso(std::string_view campo) const {
  const std::string nazione(Rifila(campi_.Dati().Testo("NAZIONE")));
  if (!nazione.empty() && !UgualeTesto(nazione, "IT")) return {};
  if (campo == "piva") return std::string(ControlloPartitaIva(campi_.Dati().Testo("piva")));
  if (campo == "codfisc")
    return std::string(ControlloCodiceFiscale(campi_.Dati().Testo("codfisc")));
  return {};
}

std::string VariazioneDitta::PercorsoBreve(const std::filesystem::path& percorso) const {
  const auto relativo = percorso.lexically_relative(ambiente_.CartellaDitta());
  const bool dentro = !relativo.empty() && *relativo.begin() != "..";
  return dentro ? relativo.string() : percorso.string();
}

bool VariazioneDitta::Conferma() {
  if (!campi_.Ammessi()) return false;
  Dialoghi& dialogo = ambiente_.Dialogo();
  if (!dialogo.Conferma("CONFERMA VARIAZIONE DATI DITTA " + ambiente_.Ditta())) return false;
  {
    Transazione transazione(ambiente_.Basi(), Transazione::Ambito::Tessarc);
    ambiente_.ArchivioDi("tessarc").Esegui(
        "update Anni set " + sql::Criterio("IvaTrimestrale", "=", Dati().Leggi(kIvaTrimestrale)) +
        DelAnno(ambiente_.Anno()));
    transazione.Conferma();
  }
  if (!campi_.Scrivi()) return false;
  dialogo.Annuncia("VARIAZIONE EFFETTUATA");
  Rileggi();
  return true;
}

}  // namespace fenalto
