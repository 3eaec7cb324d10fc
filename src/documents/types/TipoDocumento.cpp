#include "documents/types/TipoDocumento.h"

#include <string_view>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto::documents {
namespace {

/// With the sense of each causal: what moves stock is asked of a type again and again.
constexpr std::string_view kTipi =
    "SELECT TipiFattureCli.*, CausaliMag.CS FROM TipiFattureCli LEFT JOIN CausaliMag ON "
    "TipiFattureCli.CausaleMag = CausaliMag.Cod";

std::string Domanda(std::string_view resto) {
  std::string testo;
  testo.append(kTipi).append(resto);
  return testo;
}

TipoDocumento DaRiga(const Rs& riga) {
  const auto testo = [&](const char* campo) { return NzStr(riga.Fields(campo)); };
  const auto vero = [&](const char* campo) { return Nz(riga.Fields(campo)).Booleano(); };
  TipoDocumento tipo;
  tipo.cod = testo("Cod");
  tipo.descrizione = testo("Descrizione");
  tipo.tipoStampa = Maiuscolo(testo("TipoStampa"));
  tipo.tipo = testo("Tipo");
  tipo.tipoDefault = vero("TipoDefault");
  tipo.cfp = Maiuscolo(testo("CFP"));
  tipo.cliFor = testo("CliFor");
  tipo.riva = testo("Riva");
  tipo.codIva = testo("CodIva");
  tipo.conto = testo("Conto");
  tipo.prezziIvati = vero("PrezziIvati");
  tipo.fatturo = vero("Fatturo");
  tipo.nDdt = testo("NDdt");
  tipo.trasporto = testo("Trasporto");
  tipo.porto = testo("Porto");
  tipo.codAspetto = testo("CodAspetto");
  tipo.aspetto = testo("Aspetto");
  tipo.codiceCausaleTrasporto = testo("CodiceCausaleTrasporto");
  tipo.causaleMag = testo("CausaleMag");
  tipo.cs = Maiuscolo(testo("CS"));
  tipo.mag = testo("Mag");
  tipo.tipoDocScaricoDB = testo("TipoDocScaricoDB");
  tipo.tipoDocTrasferimento = testo("TipoDocTrasferimento");
  tipo.noCosti = vero("NoCosti");
  tipo.copie = static_cast<int>(Nz(riga.Fields("Copie")).Intero());
  tipo.campo1 = testo("Campo1");
  tipo.campo2 = testo("Campo2");
  tipo.mfTipo = testo("mfTipo");
  return tipo;
}

}  // namespace

std::optional<TipoDocumento> LeggiTipo(Ambiente& ambiente, const std::string& codice) {
  if (codice.empty()) return std::nullopt;
  const Rs trovato = ambiente.ArchivioDi("tessarc").Recordset(
      Domanda(" WHERE " + sql::Criterio("TipiFattureCli.Cod", "=", codice)));
  if (trovato.Eof()) return std::nullopt;
  return DaRiga(trovato);
}

std::vector<TipoDocumento> LeggiTipi(Ambiente& ambiente) {
  std::vector<TipoDocumento> tipi;
  Rs righe = ambiente.ArchivioDi("tessarc").Recordset(Domanda(" ORDER BY TipiFattureCli.Cod"));
  for (; !righe.Eof(); righe.MoveNext()) tipi.push_back(DaRiga(righe));
  return tipi;
}

}  // namespace fenalto::documents
