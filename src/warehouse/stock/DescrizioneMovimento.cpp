#include "warehouse/stock/DescrizioneMovimento.h"

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto::warehouse {

const char* const kColonneMovimento =
    "FattureCli_r.CausaleMag AS CausaleMag, CausaliMag.Descrizione AS DescrCausale, "
    "FattureCli_r.CliFor AS CliFor, FattureCli_r.CFP AS CFP, "
    "ContiClientiFornitori.Descrizione AS DescrParte, "
    "FattureCli_r.NumDocCarico AS NumDocCarico, FattureCli_r.DtDocCarico AS DtDocCarico, "
    "FattureCli_r.Ordine AS Ordine, FattureCli_r.OrdineSaldato AS OrdineSaldato, "
    "FattureCli_r.Commessa AS Commessa, FattureCli_r.NL2 AS NL2, FattureCli_r.Lotto AS Lotto, "
    "FattureCli_r.DtScad AS DtScad";

const char* const kDaMovimento =
    "(FattureCli_r LEFT JOIN CausaliMag ON FattureCli_r.CausaleMag=CausaliMag.Cod) "
    "LEFT JOIN ContiClientiFornitori ON (FattureCli_r.CliFor=ContiClientiFornitori.Cod AND "
    "FattureCli_r.CFP=ContiClientiFornitori.CFP)";

namespace {

std::string ConCodice(const Rs& riga, const char* codice, const char* descrizione) {
  const std::string testo = NzStr(riga.Fields(codice));
  return testo.empty() ? testo : testo + " " + NzStr(riga.Fields(descrizione));
}

std::string DocumentoCarico(const Rs& riga) {
  const std::string numero = NzStr(riga.Fields("NumDocCarico"));
  const Data data = riga.Fields("DtDocCarico").Data();
  if (numero.empty() && data.Nulla()) return "";
  return "estremi doc. " + numero + (numero.empty() || data.Nulla() ? "" : " ") + data.Testo();
}

std::string Ordine(Archivio& tessarc, const Rs& riga) {
  const std::int64_t numero = riga.Fields("Ordine").Intero();
  if (numero == 0) return "";
  std::string testo = riga.Fields("OrdineSaldato").Booleano() ? "a saldo " : "in conto ";
  testo += "ordine " + std::to_string(numero);
  const bool fornitore = UgualeTesto(NzStr(riga.Fields("CFP")), "F");
  const Rs ordine = tessarc.Recordset(
      std::string("SELECT Dt, Riferim FROM ") + (fornitore ? "OrdiniFor" : "OrdiniCli") +
      " WHERE TipoDoc='O' AND " + sql::Criterio("NumDoc", "=", numero));
  if (ordine.Eof()) return testo;
  testo += "-" + ordine.Fields(0).Data().Testo();
  const std::string riferimento = NzStr(ordine.Fields(1));
  return riferimento.empty() ? testo : testo + " " + riferimento;
}

std::string Commessa(Archivio& tessarc, const Rs& riga) {
  const std::int64_t numero = riga.Fields("Commessa").Intero();
  if (numero == 0) return "";
  std::string testo = "commessa " + std::to_string(numero);
  const std::string riferimento = NzStr(
      tessarc.Singolo("SELECT RifInt FROM Commesse WHERE " + sql::Criterio("NumDoc", "=", numero)));
  return riferimento.empty() ? testo : testo + " " + riferimento;
}

/// Of an unload the lot that it takes from.
std::string Lotto(Archivio& tessarc, const Rs& riga) {
  std::string lotto = NzStr(riga.Fields("Lotto"));
  Data scadenza = riga.Fields("DtScad").Data();
  if (const std::int64_t nl2 = riga.Fields("NL2").Intero(); nl2 != 0) {
    const Rs carico = tessarc.Recordset("SELECT Lotto, DtScad FROM ZRigheLotto WHERE " +
                                        sql::Criterio("NL1", "=", nl2));
    lotto = carico.Eof() ? "" : NzStr(carico.Fields(0));
    scadenza = carico.Eof() ? Data() : carico.Fields(1).Data();
  }
  if (lotto.empty() && scadenza.Nulla()) return "";
  return "LOTTO " + lotto + (scadenza.Nulla() ? "" : " scad." + scadenza.Testo());
}

}  // namespace

std::string DescriviMovimento(Ambiente& ambiente, const Rs& riga) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  std::string testo;
  for (const std::string& parte :
       {ConCodice(riga, "CausaleMag", "DescrCausale"), ConCodice(riga, "CliFor", "DescrParte"),
        DocumentoCarico(riga), Ordine(tessarc, riga), Commessa(tessarc, riga),
        Lotto(tessarc, riga)}) {
    if (parte.empty()) continue;
    if (!testo.empty()) testo += "\n";
    testo += parte;
  }
  return testo;
}

}  // namespace fenalto::warehouse
