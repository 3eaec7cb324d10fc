#include "core/session/VariazioneDitta.h"

#include <algorithm>
#include <array>

#include "core/sql/Criterio.h"
#include "core/values/ControlloCodiceFiscale.h"
#include "core/values/ControlloPartitaIva.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"

namespace fenalto {

namespace {

using G = CampoVariazione::Genere;

constexpr std::size_t kMassimoPercorso = 250;
constexpr int kMassimoDecimali = 4;
constexpr int kMinimoDecimaliPrezzi = 2;

constexpr auto kCampi = std::to_array<CampoVariazione>({
    {"ragsoc1", "ragsoc1 "},
    {"ragsoc2", "ragsoc2"},
    {"indirizzo", "indirizzo"},
    {"localita", "localita"},
    {"NAZIONE", "NAZIONE"},
    {"piva", "piva"},
    {"codfisc", "codfisc"},
    {"tel", "tel"},
    {"DecP", "DecP", G::Decimali, "2"},
    {"DecQ", "DecQ", G::Decimali, "2"},
    {"ArrotImporto", "ArrotImporto", G::Uno},
    {"PrezziDaOrdine", "PrezziDaOrdine", G::Uno},
    {"PrezziIvatiOrdCli", "PrezziIvatiOrdCli", G::Uno},
    {"ListinoDdtSenzaPrezzi", "ListinoDdtSenzaPrezzi", G::Uno},
    {"PropongoCostoDigitato", "PropongoCostoDigitato", G::Uno},
    {"DbCostoMedio", "DbCostoMedio", G::Uno},
    {"MagObbligatorio", "MagObbligatorio", G::Uno},
    {"LottoDtScad", "LottoDtScad", G::Uno},
    {"FornNonPrevisto", "FornNonPrevisto", G::Uno},
    {"BarcodeUnivoco", "BarcodeUnivoco", G::Uno},
    {"CodficaCliFor", "CodficaCliFor", G::Uno},
    {"DirectoryImm", "DirectoryImm", G::Percorso},
    {"DirectoryDoc", "DirectoryDoc", G::Percorso},
    {"LogoOrdini", "LogoOrdini", G::Percorso},
    {"InvertoDAinNoteCredito", "InvertoDAinNoteCredito", G::Uno},
    {"RegAutoIntraCee", "RegAutoIntraCee", G::SiNo},
    {"NoIntraCosto_a_Forn", "NoIntraCosto_a_Forn", G::Uno},
    {"CausaleIntraCosto_a_Forn", "CausaleIntraCosto_a_Forn", G::Causale},
    {"RegAutoBolleDoganali", "RegAutoBolleDoganali", G::SiNo},
    {"RITENUTAACCONTO", "RITENUTAACCONTO", G::SiNoMaiuscolo},
});

bool Casella(const CampoVariazione& campo) {
  return campo.genere == G::Uno || campo.genere == G::SiNo || campo.genere == G::SiNoMaiuscolo;
}

/// A flag as whoever reads it understands it.
bool Acceso(const std::string& testo) {
  const std::string_view rifilato = Rifila(testo);
  if (UgualeTesto(rifilato, "si") || UgualeTesto(rifilato, "true")) return true;
  const auto numero = LeggiImporto(std::string(rifilato));
  return numero && numero.Valore() != Importo();
}

std::string DelAnno(int anno) {
  return " where " + sql::Criterio("Anno", "=", Valore(anno));
}

const CampoVariazione* CampoDi(std::string_view nome) {
  const auto trovato = std::find_if(kCampi.begin(), kCampi.end(),
                                    [&](const auto& uno) { return UgualeTesto(uno.campo, nome); });
  return trovato == kCampi.end() ? nullptr : &*trovato;
}

}  // namespace

VariazioneDitta::VariazioneDitta(Ambiente& ambiente) : ambiente_(ambiente) {
  for (const auto& campo : kCampi) {
    dati_.Aggiungi(campo.campo, Casella(campo) ? Tipo::Booleano : Tipo::Testo);
  }
  dati_.Aggiungi(std::string(kIvaTrimestrale), Tipo::Booleano);
  Rileggi();
}

std::span<const CampoVariazione> VariazioneDitta::Campi() {
  return kCampi;
}

void VariazioneDitta::Rileggi() {
  ambiente_.RiguardaImpostazioni();
  for (const auto& campo : kCampi) {
    const std::string testo = ambiente_.Config(campo.chiave);
    letti_[campo.campo] = testo;
    const Valore valore =
        Casella(campo) ? Valore(Acceso(testo)) : Valore(testo.empty() ? campo.vuoto : testo);
    dati_.Scrivi(campo.campo, valore);
    accettati_[campo.campo] = valore;
  }
  const Rs anno = ambiente_.ArchivioDi("tessarc").Recordset("select IvaTrimestrale from Anni" +
                                                            DelAnno(ambiente_.Anno()));
  dati_.Scrivi(kIvaTrimestrale, !anno.Eof() && anno.Fields("IvaTrimestrale").Booleano());
  dati_.Consolida();
}

std::string VariazioneDitta::DaScrivere(const CampoVariazione& campo) const {
  const Valore& valore = dati_.Leggi(campo.campo);
  switch (campo.genere) {
    case G::Uno:
      return valore.Booleano() ? "1" : "0";
    case G::SiNo:
      return valore.Booleano() ? "Si" : "No";
    case G::SiNoMaiuscolo:
      return valore.Booleano() ? "SI" : "NO";
    case G::Causale:
    case G::Decimali:
    case G::Percorso:
      return std::string(Rifila(valore.Testo()));
    case G::Testo:
      break;
  }
  return valore.Testo();
}

std::string VariazioneDitta::Rifiuto(const CampoVariazione& campo) const {
  const std::string testo = DaScrivere(campo);
  if (campo.genere == G::Percorso && LunghezzaTesto(testo) > kMassimoPercorso) {
    return "il percorso è più lungo di 250 caratteri";
  }
  if (campo.genere == G::Causale) return RifiutoCausale(campo);
  if (campo.genere != G::Decimali) return {};
  const bool prezzi = std::string_view(campo.campo) == "DecP";
  const int minimo = prezzi ? kMinimoDecimaliPrezzi : 0;
  const bool buono =
      testo.size() == 1 && testo[0] >= '0' + minimo && testo[0] <= '0' + kMassimoDecimali;
  if (buono) return {};
  return prezzi ? "decimali prezzi: inserire valore da 2 a 4"
                : "decimali quantità: inserire valore da 0 a 4";
}

/// Only one that was typed: the file may name a code that was erased since.
std::string VariazioneDitta::RifiutoCausale(const CampoVariazione& campo) const {
  const std::string codice = DaScrivere(campo);
  const auto letta = letti_.find(campo.campo);
  const bool stessa = letta != letti_.end() && UgualeTesto(Rifila(letta->second), codice);
  if (codice.empty() || stessa || ambiente_.Esiste("tessarc", "Causali", {{"Cod", codice}})) {
    return {};
  }
  return "causale del giro «costo a fornitore»: il codice " + codice +
         " non esiste, sceglierne uno dall'elenco (F2)";
}

bool VariazioneDitta::CampoLasciato(std::string_view nome) {
  const CampoVariazione* campo = CampoDi(nome);
  if (campo == nullptr) return true;
  const std::string rifiuto = Rifiuto(*campo);
  if (rifiuto.empty()) {
    accettati_[campo->campo] = dati_.Leggi(campo->campo);
    return true;
  }
  dati_.Scrivi(campo->campo, accettati_[campo->campo]);
  campoRifiutato_ = campo->campo;
  ambiente_.Dialogo().Messaggio(rifiuto, Icona::Avviso);
  return false;
}

std::string VariazioneDitta::Avviso(std::string_view campo) const {
  const std::string nazione(Rifila(dati_.Testo("NAZIONE")));
  if (!nazione.empty() && !UgualeTesto(nazione, "IT")) return {};
  if (campo == "piva") return std::string(ControlloPartitaIva(dati_.Testo("piva")));
  if (campo == "codfisc") return std::string(ControlloCodiceFiscale(dati_.Testo("codfisc")));
  return {};
}

std::string VariazioneDitta::PercorsoBreve(const std::filesystem::path& percorso) const {
  const auto relativo = percorso.lexically_relative(ambiente_.CartellaDitta());
  const bool dentro = !relativo.empty() && *relativo.begin() != "..";
  return dentro ? relativo.string() : percorso.string();
}

bool VariazioneDitta::Conferma() {
  campoRifiutato_.clear();
  for (const auto& campo : kCampi) {
    // A value that stood in the file may be out of bounds too.
    if (!CampoLasciato(campo.campo)) return false;
  }
  Dialoghi& dialogo = ambiente_.Dialogo();
  if (!dialogo.Conferma("CONFERMA VARIAZIONE DATI DITTA " + ambiente_.Ditta())) return false;
  {
    Transazione transazione(ambiente_.Basi(), Transazione::Ambito::Tessarc);
    ambiente_.ArchivioDi("tessarc").Esegui(
        "update Anni set " + sql::Criterio("IvaTrimestrale", "=", dati_.Leggi(kIvaTrimestrale)) +
        DelAnno(ambiente_.Anno()));
    transazione.Conferma();
  }
  for (const auto& campo : kCampi) {
    // What the user left alone isn't written again: another station may have changed it meanwhile.
    const std::string testo = DaScrivere(campo);
    if (testo == letti_[campo.campo]) continue;
    if (!ambiente_.ScriviImpostazione({}, "config", campo.chiave, testo)) return false;
  }
  dialogo.Annuncia("VARIAZIONE EFFETTUATA");
  Rileggi();
  return true;
}

}  // namespace fenalto
