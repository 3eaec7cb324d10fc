// What a confirmation looks at after its own checks: the day, the codes that the registration
// names, number and day of the document, the same document registered before.
#include <array>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "vat/entry/RegistrazioneIvaInterno.h"

namespace fenalto::vat {
namespace {

constexpr const char* kProsegue = "\nProseguo ugualmente ?";

constexpr const char* kRiconfermare =
    ": riconfermare il registro in Archivi, Contabilità, Registri Iva";

/// A field of the head that holds a code, where it is looked up, and what it is called.
struct CampoCodice {
  const char* campo;
  const char* tabella;
  const char* nome;
};
constexpr CampoCodice kPagamento[] = {{"Pagamento", "Pagamento", "il codice pagamento "}};
constexpr CampoCodice kIntra[] = {{"RivaIntra", "RegistriIva", "il registro iva "}};
constexpr CampoCodice kGiroIntra[] = {{"CausaleIntra", "Causali", "la causale "},
                                      {"FornitoreIntra", "Fornitori", "il fornitore "},
                                      {"ContoCostiIntra", "Conti", "il conto "},
                                      {"PagamentoIntra", "Pagamento", "il codice pagamento "}};
constexpr CampoCodice kDogana[] = {{"FornitoreBollaDog", "Fornitori", "il fornitore "},
                                   {"CausaleBollaDog", "Causali", "la causale "},
                                   {"PagamentoBollaDog", "Pagamento", "il codice pagamento "}};
constexpr CampoCodice kRitenute[] = {{"CausaleRitAcc1", "Causali", "la causale "},
                                     {"ContoRitAcc1", "Conti", "il conto "},
                                     {"CausaleRitAcc2", "Causali", "la causale "},
                                     {"ContoRitAcc2", "Conti", "il conto "}};

/// The digits of a register's causals.
constexpr std::array kCifre = {'1', '2', '3'};

bool EsisteCausale(Ambiente& ambiente, const std::string& causale) {
  return ambiente.Esiste("tessarc", "Causali", {{"Cod", causale}});
}

}  // namespace

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaMancaData() {
  if (D("Dt").Nulla()) return Rifiuto{"manca la data", "Dt"};
  return std::nullopt;
}

// --- Codes ---------------------------------------------------------------------------------------

bool RegistrazioneIva::Interno::EsisteConto(const std::string& conto) const {
  return ambiente.Esiste("tessarc", "Conti", {{"Cod", conto}}) ||
         ambiente.Esiste("tessarc", "ContiClientiFornitori", {{"Cod", conto}, {"CFP", "P"}});
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaCodiciTesta() {
  std::optional<Rifiuto> rifiuto;
  const auto controlla = [&](const auto& campi) {
    for (const CampoCodice& codice : campi) {
      const std::string scritto = T(codice.campo);
      if (rifiuto || scritto.empty()) continue;
      if (ambiente.Esiste("tessarc", codice.tabella, {{"Cod", scritto}})) continue;
      rifiuto = Rifiuto{codice.nome + scritto + " non esiste", codice.campo};
    }
  };
  controlla(kPagamento);
  if (!documento.Nuovo()) return rifiuto;
  if (Tipo({"04"}) && AutomaticoIntra()) {
    controlla(kIntra);
    if (!B("NoIntraCosto_a_Forn")) controlla(kGiroIntra);
  }
  if (B("BollaDog")) controlla(kDogana);
  if (B("RitAcc")) controlla(kRitenute);
  return rifiuto;
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaCodiciSeguito() {
  const bool cambiato = documento.Nuovo() || !UgualeTesto(T("Pagamento"), pagamentoRecord);
  std::optional<Rifiuto> rifiuto;
  if (cambiato && !Tipo({"02", "07", "04", "05", "09"})) {
    rifiuto = ControllaPagamentoSubito("Pagamento");
  }
  if (!documento.Nuovo()) return rifiuto;
  if (!rifiuto && Tipo({"04"}) && AutomaticoIntra()) {
    rifiuto = ControllaRegistroIntra();
    if (!rifiuto && !B("NoIntraCosto_a_Forn")) rifiuto = ControllaPagamentoSubito("PagamentoIntra");
  }
  if (!rifiuto && B("BollaDog")) rifiuto = ControllaPagamentoSubito("PagamentoBollaDog");
  return rifiuto;
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaPagamentoSubito(const char* campo) {
  Rs codice = tessarc.Recordset("SELECT Conto, Causale FROM Pagamento WHERE " +
                                sql::Criterio("Cod", "=", T(campo)));
  if (codice.Eof()) return std::nullopt;
  const std::string conto = codice.Fields("Conto").Testo();
  const std::string causale = codice.Fields("Causale").Testo();
  if (conto.empty() || causale.empty()) return std::nullopt;
  const std::string delCodice = " del codice pagamento " + T(campo) + " non esiste";
  if (!EsisteConto(conto)) return Rifiuto{"il conto " + conto + delCodice, campo};
  if (EsisteCausale(ambiente, causale)) return std::nullopt;
  return Rifiuto{"la causale " + causale + delCodice, campo};
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaRegistroIntra() {
  const std::string riva = T("RivaIntra");
  const std::string conto =
      NzStr(ambiente.Cerca("tessarc", "RegistriIva", {{"Cod", riva}}, "Conto"));
  if (conto.empty())
    return Rifiuto{"sul registro iva " + riva + " manca il conto iva", "RivaIntra"};
  const std::string delRegistro = " del registro iva " + riva + " non esiste";
  if (!EsisteConto(conto)) return Rifiuto{"il conto iva " + conto + delRegistro, "RivaIntra"};
  for (const char cifra : kCifre) {
    if (EsisteCausale(ambiente, riva + cifra)) continue;
    std::string testo = "la causale " + riva;
    testo += cifra + delRegistro;
    testo += kRiconfermare;
    return Rifiuto{std::move(testo), "RivaIntra"};
  }
  return std::nullopt;
}

void RegistrazioneIva::Interno::LeggiCausali() {
  causaliRegistro.clear();
  for (const char cifra : kCifre) {
    if (EsisteCausale(ambiente, registro.cod + cifra)) {
      causaliRegistro.push_back(registro.cod + cifra);
    }
  }
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaCodiciRegistro() {
  const std::string delRegistro = " del registro iva " + registro.cod + " non esiste";
  if (!EsisteConto(registro.conto)) {
    return Rifiuto{"il conto iva " + registro.conto + delRegistro, "Riva"};
  }
  for (const std::string& causale : causaliRegistro) {
    if (EsisteCausale(ambiente, causale)) continue;
    std::string testo = "la causale " + causale;
    testo += delRegistro;
    testo += kRiconfermare;
    return Rifiuto{std::move(testo), "Riva"};
  }
  return std::nullopt;
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaCodiciRighe() {
  for (const RigaIva& fatta : RigheCompilate()) {
    const std::string inizio = "riga " + std::to_string(fatta.posi) + ": ";
    if (!EsisteConto(fatta.conto)) {
      return Rifiuto{inizio + "il conto " + fatta.conto + " non esiste nel piano dei conti",
                     "GrigliaRighe"};
    }
    if (!ambiente.Esiste("tessarc", "CodiciIva", {{"Cod", fatta.codIva}})) {
      return Rifiuto{inizio + "il codice iva " + fatta.codIva + " non esiste", "GrigliaRighe"};
    }
  }
  return std::nullopt;
}

/// The party's summary account: its balance would stand under no account of the chart.
std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaRiepilogativo() {
  if (tipo->corrispettivi) return std::nullopt;
  const std::string conto = NzStr(DellaParte("Conto"));
  if (conto.empty() || EsisteConto(conto)) return std::nullopt;
  return Rifiuto{"il conto riepilogativo " + conto +
                     (T("CFPx") == "C" ? " del cliente " : " del fornitore ") + T("Contox") +
                     " non esiste nel piano dei conti: correggere l'anagrafica",
                 "Contox"};
}

std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaCodici() {
  for (const auto controllo :
       {&Interno::ControllaParte, &Interno::ControllaCodiciTesta, &Interno::ControllaCodiciRighe,
        &Interno::ControllaCodiciRegistro, &Interno::ControllaCodiciSeguito,
        &Interno::ControllaRiepilogativo}) {
    if (auto rifiuto = (this->*controllo)()) return rifiuto;
  }
  return std::nullopt;
}

// --- The document --------------------------------------------------------------------------------

std::string RegistrazioneIva::Interno::EstremiFattura() const {
  return T("Contox") + "\x1f" + T("NFat") + "\x1f" + D("DtFat").Testo();
}

std::string RegistrazioneIva::Interno::BaseScadenze() const {
  return EstremiFattura() + "\x1f" + T("CFPx") + "\x1f" + T("Pagamento") + "\x1f" +
         D("Dt").Testo() + "\x1f" + totali.Totale().Testo() + "\x1f" + totali.imponibile.Testo();
}

/// Number and day of a purchase and the day of a sale are needed for its due dates, its registers
/// and to find it again.
std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaEstremi() {
  if (tipo->corrispettivi) return std::nullopt;
  const bool senzaNumero = UgualeTesto(T("CFPx"), "F") && T("NFat").empty();
  const bool senzaData = D("DtFat").Nulla();
  if (!senzaNumero && !senzaData) return std::nullopt;
  const char* manca = !senzaData     ? "manca il numero del documento"
                      : !senzaNumero ? "manca la data del documento"
                                     : "mancano il numero e la data del documento";
  if (ambiente.Dialogo().Conferma(std::string(manca) + kProsegue)) return std::nullopt;
  return Rifiuto{"", senzaNumero ? "NFat" : "DtFat"};
}

std::optional<std::int64_t> RegistrazioneIva::Interno::StessaFattura(int annoCercato,
                                                                     const std::string& riva) {
  Rs rs = tessarc.Recordset(
      "SELECT NumDoc FROM ZarticoliFatture WHERE " + sql::Criterio("ANNO", "=", annoCercato) +
      " and " + sql::Criterio("RIVA", "=", riva) + " and CFP='F' and " +
      sql::Criterio("CONTO", "=", T("Contox")) + " and " + sql::Criterio("NFAT", "=", T("NFat")) +
      " and " + sql::Criterio("DTFAT", "=", D("DtFat")) + " order by NumDoc");
  for (; !rs.Eof(); rs.MoveNext()) {
    const std::int64_t numero = rs.Fields(0).Intero();
    const bool questa = !documento.Nuovo() && annoCercato == anno && numero == numeroRecord;
    if (!questa) return numero;
  }
  return std::nullopt;
}

/// One supplier doesn't issue two documents of the same number and day. The second half of a
/// reverse-charge pair bears those of the first.
std::optional<Rifiuto> RegistrazioneIva::Interno::ControllaStessaFattura() {
  if (!UgualeTesto(T("CFPx"), "F") || Tipo({"05"}) || T("NFat").empty()) return std::nullopt;
  if (doppioAmmesso || (!documento.Nuovo() && EstremiFattura() == fatturaRecord)) {
    return std::nullopt;
  }
  // Register by register, as their index has them; a document may be registered a year later.
  std::vector<std::string> registri;
  for (Rs rs = tessarc.Recordset("SELECT Cod FROM RegistriIva WHERE Tipo='03' OR Tipo='04' OR "
                                 "Tipo='11' ORDER BY Cod");
       !rs.Eof(); rs.MoveNext()) {
    registri.push_back(rs.Fields(0).Testo());
  }
  for (const int cercato : ambiente.Anni()) {
    if (cercato < D("DtFat").Anno()) continue;
    for (const std::string& riva : registri) {
      const auto numero = StessaFattura(cercato, riva);
      if (!numero) continue;
      doppioAmmesso = ambiente.Dialogo().Conferma(
          "il documento n. " + T("NFat") + " del " + D("DtFat").Testo() +
          " di questo fornitore è già registrato\n(anno " + std::to_string(cercato) +
          ", registro iva " + riva + ", articolo n. " + std::to_string(*numero) + ")" + kProsegue);
      if (doppioAmmesso) return std::nullopt;
      return Rifiuto{"", "NFat"};
    }
  }
  return std::nullopt;
}

}  // namespace fenalto::vat
