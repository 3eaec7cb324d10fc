// What a document type is refused for, in the order in which it is looked at.
#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "core/values/Testo.h"
#include "documents/types/TipiDocumentoInterno.h"
#include "documents/types/TipoDocumento.h"

namespace fenalto::documents {
namespace {

using Contesto = archives::ContestoArchivio;
using Esito = std::optional<Rifiuto>;

constexpr const char* kDb = "tessarc";
constexpr const char* kTabella = "TipiFattureCli";

std::string Testo(const Contesto& c, const char* campo) {
  return std::string(Rifila(c.scheda.Testo(campo)));
}

bool Vero(const Contesto& c, const char* campo) {
  return c.scheda.Leggi(campo).Booleano();
}

Importo Cifra(const Contesto& c, const char* campo) {
  return c.scheda.Leggi(campo).Importo();
}

bool Stampa(const Contesto& c, std::initializer_list<const char*> generi) {
  const std::string suo = Testo(c, "TipoStampa");
  return std::ranges::any_of(generi, [&](const char* uno) { return UgualeTesto(uno, suo); });
}

bool Clienti(const Contesto& c) {
  return UgualeTesto(Testo(c, "CFP"), "C");
}

void Avvisa(Contesto& c, const char* testo) {
  c.ambiente.Dialogo().Messaggio(testo, Icona::Avviso);
}

// --- One type by itself
// ---------------------------------------------------------------------------

Esito Allineamento(Contesto& c) {
  if (Vero(c, "TracciatoPersonal")) return std::nullopt;
  const Importo massimo = Importo::DaUnita(9);
  for (const char* campo : {"xTar", "yTar"}) {
    if (Cifra(c, campo) > massimo) {
      return Rifiuto{"allineamento x e y : valore max ammesso 9 mm", campo};
    }
  }
  if (Cifra(c, "xTar") > Importo() || Cifra(c, "yTar") > Importo()) {
    Avvisa(c,
           "allineamento x e y : se diverso da 0 verificare la stampa di un documento (se supera "
           "l'area stampabile non verrà eseguita correttamente)");
  }
  return std::nullopt;
}

Esito GenereNoto(Contesto& c) {
  if (Stampa(c, {kBolla, kFattura, kFattAcc, kMovimento, kScontrino})) return std::nullopt;
  return Rifiuto{"inserire 'Tipo Stampa' (BOLLA,FATTURA,FATTACC,MOVIMENTO,SCONTRINOSCARICO)",
                 "TipoStampa"};
}

Esito Parte(Contesto& c) {
  if (Testo(c, "CFP").empty()) return Rifiuto{"è necessario inserire clienti/fornitori", "CFP"};
  if (Clienti(c)) return std::nullopt;
  if (Stampa(c, {kBolla}) && Vero(c, "Fatturo")) {
    return Rifiuto{"con tipostampa='BOLLA' e la spunta su 'FATTURO' inserire cliente/fornitore='C'",
                   "CFP"};
  }
  if (Stampa(c, {kFattura, kFattAcc, kScontrino})) {
    return Rifiuto{"con tipostampa='fattura','fattacc','scontrino' inserire cliente/fornitore='C'",
                   "CFP"};
  }
  return std::nullopt;
}

Esito Misuratore(Contesto& c) {
  if (Testo(c, "mfTipo").empty() || Stampa(c, {kScontrino})) return std::nullopt;
  return Rifiuto{
      "il tipo misuratore fiscale si può impostare solo sui tipi documento 'scontrino scarico",
      "mfTipo"};
}

Esito Causale(Contesto& c) {
  const std::string causale = Testo(c, "CausaleMag");
  if (causale.empty()) {
    if (Testo(c, "Mag").empty()) return std::nullopt;
    return Rifiuto{
        "Se si imposta il magazzino da movimentare bosogna anche impostare la causale "
        "movimentazione",
        "CausaleMag"};
  }
  if (Stampa(c, {kFattura})) {
    Avvisa(c,
           "si tratta di fattura con scarico magazzino: se si utilizza questo tipo documento per "
           "la fatturazione differita sul tipo ddt non deve essere impostata la causale "
           "movimentazione");
  }
  if (Stampa(c, {kFattura, kFattAcc, kScontrino}) && SensoCausale(c.ambiente, causale) != "S") {
    return Rifiuto{"la causale di movimentazione magazzino deve essere di SCARICO", "CausaleMag"};
  }
  return std::nullopt;
}

Esito Registro(Contesto& c) {
  const bool contabile = Stampa(c, {kFattura, kFattAcc});
  const bool registro = !Testo(c, "Riva").empty();
  if (registro && !contabile) {
    return Rifiuto{
        "è stato impostato 'registro iva' con un tipo stampa che non è 'fattura' o 'fattacc'",
        "Riva"};
  }
  if (!registro && contabile) {
    Avvisa(c,
           "Non è stato impostato 'registro iva': significa che non si desidera contabilizzare le "
           "fatture");
  }
  return std::nullopt;
}

Esito PrezziIvati(Contesto& c) {
  if (!Vero(c, "PrezziIvati")) return std::nullopt;
  if (!Clienti(c)) {
    return Rifiuto{"impostando 'fattura con prezzi ivati' bisogna inserire C=clienti", "CFP"};
  }
  if (Stampa(c, {kFattura, kFattAcc, kBolla})) return std::nullopt;
  return Rifiuto{
      "è stato impostato 'fattura con prezzi ivati' con un tipo stampa che non è 'fattura', "
      "'fattacc' o 'bolla'",
      "PrezziIvati"};
}

/// Its stored causal, whatever is typed here: it is another type, or this one before its change.
std::string SensoDelTipo(Contesto& c, const std::string& codice) {
  const auto tipo = LeggiTipo(c.ambiente, codice);
  return tipo ? tipo->cs : std::string();
}

Esito ScaricoComponenti(Contesto& c) {
  const std::string nominato = Testo(c, "TipoDocScaricoDB");
  if (nominato.empty()) return std::nullopt;
  if (SensoCausale(c.ambiente, Testo(c, "CausaleMag")) == "S") {
    return Rifiuto{
        "La casella 'Scarico distinta base automatico: tipo documento'\n"
        "dovrebbe essere in bianco essendo uno scarico di magazzino",
        "TipoDocScaricoDB"};
  }
  if (SensoDelTipo(c, nominato) != "S") {
    return Rifiuto{
        "Nella casella 'Scarico distinta base automatico: tipo documento'\n"
        "si deve impostare un tipo documento di scarico'",
        "TipoDocScaricoDB"};
  }
  return std::nullopt;
}

Esito Copie(Contesto& c) {
  if (c.scheda.Leggi("Copie").Intero() != 0 ||
      c.ambiente.Dialogo().Conferma(
          "non è stato inserito il n.copie dastampare\nproseguo ugualmente")) {
    return std::nullopt;
  }
  return Rifiuto{"", "Copie"};
}

// --- The type among the others, and with its documents
// ---------------------------------------------

Esito CodiceEsistente(Contesto& c) {
  if (!c.CodiceCambiato()) return std::nullopt;
  if (c.ambiente.Esiste(kDb, kTabella, {{"Cod", c.Codice()}})) {
    return Rifiuto{"è stato inserito un codice nel 'tipo documento' già esistente", "Cod"};
  }
  if (c.nuovo || !c.ambiente.Esiste(kDb, kTabella, {{"TipoDocScaricoDB", c.codicePrima}})) {
    return std::nullopt;
  }
  return Rifiuto{
      "Non si può variare il codice del tipo documento perchè esiste un altro tipo che lo "
      "utilizza nella casella 'tipo per scarico db'",
      "Cod"};
}

/// What documents of the type have copied of it: it stays once there are any.
Esito FermoPerDocumenti(Contesto& c) {
  constexpr auto kFermi = std::to_array<std::pair<const char*, const char*>>(
      {{"TipoStampa",
        "non si può variare 'tipostampa' in quanto ci sono già dei documenti di questo tipo"},
       {"Riva",
        "non si può variare 'registro iva' in quanto ci sono già dei documenti di questo tipo"},
       {"PrezziIvati",
        "non si può variare la casella 'fattura con prezzi ivati e scorporo' in quanto ci sono già "
        "dei documenti di questo tipo"},
       {"CFP",
        "cliente/fornitore magazzino non si può variare perchè esistono già documenti di questo "
        "tipo"},
       {"CausaleMag",
        "la causale movimentazione magazzino non si può variare perchè esistono già movimenti "
        "magazzino di questo tipo"}});
  if (c.nuovo) return std::nullopt;
  std::optional<bool> conDocumenti;
  for (const auto& [campo, messaggio] : kFermi) {
    const Valore& prima = c.prima.Leggi(campo);
    if (c.scheda.Leggi(campo) == prima) continue;
    if (!conDocumenti) {
      conDocumenti = c.ambiente.Esiste(kDb, "FattureCli", {{"TipoDoc", c.codicePrima}});
    }
    if (!*conDocumenti) return std::nullopt;
    c.scheda.Scrivi(campo, prima);
    return Rifiuto{messaggio, campo};
  }
  return std::nullopt;
}

// --- What only this system asks
// ----------------------------------------------------------------------

Esito ParteNota(Contesto& c) {
  if (Clienti(c) || UgualeTesto(Testo(c, "CFP"), "F")) return std::nullopt;
  return Rifiuto{"cliente/fornitore: scrivere C (clienti) o F (fornitori)", "CFP"};
}

Esito InizialeCarica(Contesto& c) {
  if (!UgualeTesto(c.Codice(), kEsistenzaIniziale) ||
      SensoCausale(c.ambiente, Testo(c, "CausaleMag")) == "C") {
    return std::nullopt;
  }
  return Rifiuto{
      "EI è un tipo documento predefinito (per inserire l'esistenza iniziale di magazzino): la "
      "causale movimentazione deve essere di CARICO",
      "CausaleMag"};
}

Esito Trasferimento(Contesto& c) {
  const std::string nominato = Testo(c, "TipoDocTrasferimento");
  if (nominato.empty()) return std::nullopt;
  const auto no = [](std::string perche) {
    return Rifiuto{
        "Trasferimento: tipo documento di carico nell'altro magazzino\n" + std::move(perche),
        "TipoDocTrasferimento"};
  };
  if (SensoCausale(c.ambiente, Testo(c, "CausaleMag")) != "S") {
    return no("si imposta solo su un tipo documento di scarico");
  }
  const auto altro = LeggiTipo(c.ambiente, nominato);
  if (!altro) return std::nullopt;  // an unknown code is told as such
  if (altro->cs != "C") return no("il tipo " + altro->cod + " non carica il magazzino");
  if (!UgualeTesto(altro->cfp, Testo(c, "CFP"))) {
    return no("il tipo " + altro->cod + " ha un'altra lettera in cliente/fornitore");
  }
  return std::nullopt;
}

Esito Percorsi(Contesto& c) {
  for (const char* campo : {"Logo", "mfProg", "mfCart"}) {
    if (LunghezzaTesto(Testo(c, campo)) > kMassimoPercorsoTipo) {
      return Rifiuto{kPercorsoLungo, campo};
    }
  }
  return std::nullopt;
}

}  // namespace

std::string SensoCausale(Ambiente& ambiente, const std::string& causale) {
  if (causale.empty()) return {};
  return Maiuscolo(NzStr(ambiente.Cerca(kDb, "CausaliMag", {{"Cod", causale}}, "CS")));
}

void CompletaTipo(Contesto& c) {
  constexpr auto kTitoli =
      std::to_array<std::pair<const char*, const char*>>({{kFattAcc, "Fattura"},
                                                          {kFattura, "Fattura"},
                                                          {kBolla, "Documento di trasporto D.D.T."},
                                                          {kScontrino, "Scontr.scarico"}});
  if (Testo(c, "Tipo").empty()) {
    for (const auto& [genere, titolo] : kTitoli) {
      if (Stampa(c, {genere})) c.scheda.Scrivi("Tipo", titolo);
    }
  }
  if (c.copia && !c.memoria.contains(kPredefinitoScelto)) c.scheda.Scrivi("TipoDefault", false);
  if (!Vero(c, "TracciatoPersonal")) c.scheda.Scrivi("Modulo", "");
}

std::vector<archives::DescrizioneArchivio::Controllo> ControlliTipo() {
  const auto completa = [](Contesto& c) {
    CompletaTipo(c);
    return Esito();
  };
  return {completa, Allineamento, GenereNoto,        Parte, Misuratore,      Causale,
          Registro, PrezziIvati,  ScaricoComponenti, Copie, CodiceEsistente, FermoPerDocumenti};
}

std::vector<archives::DescrizioneArchivio::Controllo> ControlliTipoInFondo() {
  return {ParteNota, InizialeCarica, Trasferimento, Percorsi};
}

std::optional<Rifiuto> TipoPredefinito(Contesto& c) {
  if (!UgualeTesto(c.codicePrima, kEsistenzaIniziale)) return std::nullopt;
  return Rifiuto{
      "EI è un tipo documento predefinito (per inserire l'esistenza iniziale di magazzino) e non "
      "si può eliminare",
      "Cod"};
}

}  // namespace fenalto::documents
