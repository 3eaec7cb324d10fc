// The checks of a confirmation, in the order in which they stop it.
#include <limits>

#include "core/archives/CodiciNoti.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "ledger/registrations/ControlliData.h"
#include "vat/entry/RegistrazioneIvaInterno.h"
#include "vat/postings/StornoSospesa.h"

namespace fenalto::vat {

std::optional<Rifiuto> RegistrazioneIva::Interno::Controlla() {
  using Controllo = std::optional<Rifiuto> (Interno::*)();
  constexpr Controllo kControlli[] = {&Interno::ControllaData,
                                      &Interno::ControllaRegistro,
                                      &Interno::ControllaParte,
                                      &Interno::ControllaRighe,
                                      &Interno::ControllaIncasso,
                                      &Interno::ControllaContoParte,
                                      &Interno::ControllaIntra,
                                      &Interno::ControllaBollaDoganale,
                                      &Interno::ControllaRitenute,
                                      &Interno::ControllaContiFornitori,
                                      &Interno::ControllaProtocolloForzato,
                                      &Interno::ControllaDoppioFornitore,
                                      &Interno::ControllaTotale,
                                      &Interno::ControllaVariazione,
                                      &Interno::ControllaMancaData,
                                      &Interno::ControllaCodici,
                                      &Interno::ControllaEstremi,
                                      &Interno::ControllaStessaFattura};
  for (const auto controllo : kControlli) {
    if (auto rifiuto = (this->*controllo)()) return rifiuto;
  }
  return std::nullopt;
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaData() {
  if (D("Dt").Nulla()) return std::nullopt;
  if (ledger::ControlloAnno(ambiente, D("Dt"), true)) return Rifiuto{"", "Dt"};
  // Up to the last printed date, that day included: a page of the journal is closed.
  const Data stampata = ambiente.Max("dt", "UltimaDataLibro", {}, tessarc).Data();
  if (!stampata.Nulla() && D("Dt") <= stampata) {
    return Rifiuto{
        "data registrazione contabile antecedente all'ultima data già stampata su libro giornale",
        "Dt"};
  }
  AvvisaDataInferiore();
  if (AvvisaPeriodoChiuso()) return Rifiuto{"", "Dt"};
  return std::nullopt;
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaRegistro() {
  if (registro.cod.empty() || tipo == nullptr) return Rifiuto{"manca registro iva", "Riva"};
  return std::nullopt;
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaParte() {
  const std::string codice = T("Contox");
  if (codice.empty()) return Rifiuto{"manca codice cliente/fornitore iva", "Contox"};
  const char* archivio = T("CFPx") == "C" ? "Clienti" : T("CFPx") == "F" ? "Fornitori" : "Conti";
  if (ambiente.Esiste("tessarc", archivio, {{"Cod", codice}})) return std::nullopt;
  const char* genere = T("CFPx") == "C" ? "il cliente " : "il fornitore ";
  return Rifiuto{(T("CFPx") == "P" ? "il conto " : genere) + codice + " non esiste", "Contox"};
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaRighe() {
  if (!RigheCompilate().empty()) return std::nullopt;
  return Rifiuto{"non è stata impostata la riga con imponibile ed iva", "PNuovaRiga"};
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaPeriodoIncasso() {
  const Data prima = documento.Nuovo() ? Data() : dtIncassoRecord;
  std::string chiuso = IncassoInPeriodoChiuso(ambiente, prima, D("DtIncasso"));
  if (chiuso.empty()) return std::nullopt;
  testa.Scrivi("DtIncasso", prima);
  return Rifiuto{std::move(chiuso), "DtIncasso"};
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaIncasso() {
  // A stored date was put there by the collection itself.
  const bool digitata =
      !D("DtIncasso").Nulla() && (documento.Nuovo() || D("DtIncasso") != dtIncassoRecord);
  const bool sospesa = Tipo({"06"});
  if (!digitata || (!sospesa && B("Ep"))) return ControllaPeriodoIncasso();
  testa.Scrivi("DtIncasso", dtIncassoRecord);
  return Rifiuto{sospesa ? "Fatture in sospensione IVA: la data di incasso si dovrà impostare "
                           "successivamente"
                         : "la data incasso si imposta solo per le fatture in sospensione IVA",
                 "DtIncasso"};
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaContoParte() {
  if (tipo->corrispettivi || !NzStr(DellaParte("Conto")).empty()) return std::nullopt;
  const char* parte = T("CFPx") == "C" ? "cliente " : "fornitore ";
  return Rifiuto{std::string("sull'anagrafica del ") + parte + T("Contox") +
                     " non è inserito il conto riepilogativo",
                 "Contox"};
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaIntra() {
  if (!documento.Nuovo() || !Tipo({"04"}) || !AutomaticoIntra()) return std::nullopt;
  if (T("RivaIntra").empty()) return Rifiuto{"inserire registro iva acquisti intra", "RivaIntra"};
  if (B("NoIntraCosto_a_Forn")) return std::nullopt;
  for (const char* campo : {"CausaleIntra", "FornitoreIntra", "ContoCostiIntra"}) {
    if (!T(campo).empty()) continue;
    return Rifiuto{"mancano dati per registrazione automatica giro 'costo a fornitore'", campo};
  }
  return std::nullopt;
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaBollaDoganale() {
  if (!B("BollaDog")) return std::nullopt;
  for (const char* campo : {"FornitoreBollaDog", "CausaleBollaDog"}) {
    if (T(campo).empty()) {
      return Rifiuto{"mancano dati per registrazione giro bolla doganale", campo};
    }
  }
  return std::nullopt;
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaRitenute() {
  if (!B("RitAcc")) return std::nullopt;
  for (const char* campo : {"CausaleRitAcc1", "ContoRitAcc1", "ImportoRitAcc1"}) {
    const bool manca = UgualeTesto(campo, "ImportoRitAcc1") ? I(campo).Zero() : T(campo).empty();
    if (manca) return Rifiuto{"mancano dati per registrazione giro ritenuta 1", campo};
  }
  const bool causale = !T("CausaleRitAcc2").empty();
  const bool conto = !T("ContoRitAcc2").empty();
  const bool importo = !I("ImportoRitAcc2").Zero();
  if (causale == conto && conto == importo) return std::nullopt;
  const char* manca = !causale ? "CausaleRitAcc2" : !conto ? "ContoRitAcc2" : "ImportoRitAcc2";
  return Rifiuto{"mancano dati per registrazione giro ritenuta 2", manca};
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaContiFornitori() {
  if (!documento.Nuovo()) return std::nullopt;
  std::vector<const char*> campi;
  if (Tipo({"04"}) && AutomaticoIntra() && !B("NoIntraCosto_a_Forn")) {
    campi.push_back("FornitoreIntra");
  }
  if (B("BollaDog")) campi.push_back("FornitoreBollaDog");
  for (const char* campo : campi) {
    const auto conto = ambiente.Cerca("tessarc", "Fornitori", {{"Cod", T(campo)}}, "Conto");
    if (!NzStr(conto).empty()) continue;
    return Rifiuto{
        "sull'anagrafica del fornitore  " + T(campo) + " non è inserito il conto riepilogativo",
        campo};
  }
  return std::nullopt;
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaProtocolloForzato() {
  const std::string digitato(Rifila(T("NProt")));
  if (digitato.empty()) return std::nullopt;
  constexpr std::size_t kCifre = 10;
  const bool numero =
      digitato.size() <= kCifre && digitato.find_first_not_of("0123456789") == std::string::npos;
  if (!numero) {
    return Rifiuto{"il protocollo «" + digitato +
                       "» non è un numero: scrivere solo cifre, o "
                       "lasciarlo vuoto perché lo assegni il programma",
                   "NProt"};
  }
  if (NProtForzato() > std::numeric_limits<std::int32_t>::max()) {
    return Rifiuto{"il protocollo " + digitato + " è troppo grande: il massimo è 2147483647",
                   "NProt"};
  }
  if (documento.Nuovo() && NProtForzato() == 0) {
    return Rifiuto{" non si può forzare n.protocollo=0", "NProt"};
  }
  return std::nullopt;
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaDoppioFornitore() {
  if (!documento.Nuovo() || !Tipo({"03"}) || T("NFat").empty()) return std::nullopt;
  if (!OpzioneStazione(kVerificaFornitore)) return std::nullopt;
  Rs doppia = tessarc.Recordset(
      "SELECT NumDoc FROM ZarticoliFatture WHERE " + sql::Criterio("ANNO", "=", anno) + " and " +
      sql::Criterio("RIVA", "=", registro.cod) + " and " + sql::Criterio("NFAT", "=", T("NFat")) +
      " and " + sql::Criterio("CONTO", "=", T("Contox")) + " and CFP='F'");
  if (doppia.Eof()) return std::nullopt;
  const bool prosegue = ambiente.Dialogo().Conferma(
      "esiste già una registrazione di fattura con il medesimo fornitore e numero fattura\n"
      "(articolo n. " +
      std::to_string(doppia.Fields(0).Intero()) + ")\nProseguo ugualmente ?");
  doppioAmmesso = prosegue;
  if (prosegue) return std::nullopt;
  return Rifiuto{"", "NFat"};
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaTotale() {
  const bool torna = I("TotaleXVerifica") == totali.Totale();
  if (torna || !OpzioneStazione(kVerificaTotale)) return std::nullopt;
  return Rifiuto{"Totale fattura diverso dal Totale fattura di controllo", "TotaleXVerifica"};
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaVariazione() {
  if (!B("NVarAnPrec") || totali.Totale().Negativo()) return std::nullopt;
  return Rifiuto{
      "E'stata spuntata la casella 'nota di variazione anni precedenti'\r\nse si tratta "
      "effettivamente di nota di variazione bisogna inserire il segno meno sugli importi",
      "NVarAnPrec"};
}

std::optional<Rifiuto> RegistrazioneIva::Interno::CodiceIgnotoDellaRiga(const RigaIva& una) {
  const std::pair<archives::CampoDiCodice, const std::string&> codici[] = {
      {{"CodIva", "Codice iva", "codiciIva"}, una.codIva},
      {{"Conto", "Conto", "contiTutti"}, una.conto},
      {{"Categoria", "Categoria", "categorie"}, una.categoria}};
  for (const auto& [campo, codice] : codici) {
    if (auto ignoto = archives::CodiceIgnoto(ambiente, campo, codice)) return ignoto;
  }
  return std::nullopt;
}

}  // namespace fenalto::vat
