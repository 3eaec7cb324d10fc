#include "warehouse/stock/PannelloEsistenza.h"

#include <algorithm>

#include "core/reports/Sagoma.h"
#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"
#include "warehouse/stock/Costi.h"
#include "warehouse/stock/Decimali.h"
#include "warehouse/stock/Esistenza.h"

namespace fenalto::warehouse {
namespace {

constexpr int kMesi = 12;

std::string Riga(const char* sagoma, const std::vector<Valore>& valori) {
  return reports::Sagoma(sagoma).Riempi(valori);
}

/// A figure to the right of the template's field.
std::string InCampo(const char* testo, const std::string& cifra) {
  constexpr std::size_t kCifra = 18;
  std::string destra(kCifra - std::min(kCifra, cifra.size()), ' ');
  return testo + Riga(" $$$$$$$$$$$$$$$$$$$$$$$$$", {destra + cifra});
}

std::vector<std::string> PerMagazzino(Ambiente& ambiente, const std::string& prodotto,
                                      const Esistenza& totale) {
  constexpr const char* kRiga = "$$$$$$$$ $$$$$$$$$$$$$$$$$$$$$$$$$ ##################,";
  std::vector<std::string> righe;
  Rs magazzini = ambiente.ArchivioDi("tessarc").Recordset(
      "SELECT Cod, Descrizione FROM Magazzini ORDER BY Cod");
  if (!magazzini.Eof()) righe.emplace_back("esistenza suddivisa per magazzini:");
  for (; !magazzini.Eof(); magazzini.MoveNext()) {
    const std::string mag = NzStr(magazzini.Fields(0));
    const Importo esistenza = CalcoloEsistenza(ambiente, prodotto, {.mag = mag}).esistenza;
    righe.push_back(Riga(kRiga, {mag, magazzini.Fields(1), ScriviQuantita(ambiente, esistenza)}));
  }
  righe.push_back(Riga("$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ ##################,",
                       {"esistenza totale", ScriviQuantita(ambiente, totale.esistenza)}));
  return righe;
}

}  // namespace

PannelloEsistenza LeggiPannelloEsistenza(Ambiente& ambiente, const std::string& prodotto) {
  const Esistenza totale = CalcoloEsistenza(ambiente, prodotto);
  const Costi costi = CalcoloCosti(ambiente, prodotto);
  PannelloEsistenza pannello;
  pannello.list2 = PerMagazzino(ambiente, prodotto, totale);
  if (const std::string avviso = AvvisoTrasporto(ambiente); !avviso.empty()) {
    pannello.list2.push_back(avviso);
  }
  const auto quantita = [&](const char* testo, Importo valore) {
    pannello.list3.push_back(InCampo(testo, ScriviQuantita(ambiente, valore)));
  };
  quantita(" ordinato forn.           ", totale.ordinato);
  quantita(" impegn.cli/com.          ", totale.impegnato);
  quantita(" disponibile              ", totale.disponibile);
  quantita(" disponibile reale        ", totale.disponibileReale);
  pannello.list3.push_back(InCampo("Costo Ultimo   ", ScriviPrezzo(ambiente, costi.ultimo)));
  pannello.list3.push_back(
      InCampo("Costo Medio    ", ScriviImportoFisso(costi.medio, DecimaliPrezzo(ambiente))));
  pannello.list3.push_back(Riga("data ultimo carico $$$$$$$$ ", {costi.ultimoCarico}));
  if (!costi.tipoDoc.empty()) {
    pannello.list3.push_back("ultimo movimento " + costi.tipoDoc + "-" +
                             std::to_string(costi.numDoc) + "-" + std::to_string(costi.anno) +
                             "           (tipo-Ndoc-anno)");
  }
  return pannello;
}

std::string AvvisoTrasporto(Ambiente& ambiente) {
  const int anno = ambiente.Anno();
  if (std::ranges::find(ambiente.Anni(), anno - 1) == ambiente.Anni().end()) return "";
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const bool riportate = !tessarc
                              .Recordset(
                                  "SELECT TOP 1 NumDoc FROM FattureCli WHERE TipoDoc='EI' "
                                  "AND " +
                                  sql::Criterio("Anno", "=", anno))
                              .Eof();
  if (riportate) return "";
  const bool mosse = !tessarc
                          .Recordset("SELECT TOP 1 Num FROM FattureCli_r WHERE " +
                                     sql::Criterio("Anno", "=", anno - 1) +
                                     " AND CodiceRiga>'' AND (CS='C' OR CS='S')")
                          .Eof();
  if (!mosse) return "";
  return "le esistenze del " + std::to_string(anno - 1) +
         " non sono ancora state riportate (funzione 'trasporto esistenze')";
}

std::vector<PuntoEsistenza> AndamentoEsistenza(Ambiente& ambiente, const std::string& prodotto,
                                               const std::string& mag) {
  const int anno = ambiente.Anno();
  const Data oggi = ambiente.Ora().Oggi();
  const Data ultimo = oggi.Anno() == anno ? oggi.FineMese() : Data::DaGma(31, kMesi, anno).value();
  std::vector<PuntoEsistenza> punti;
  for (int i = kMesi - 1; i >= 0; --i) punti.push_back({ultimo.PiuMesi(-i).FineMese(), {}});

  std::string testo = "SELECT Anno, Dt, CS, Quantita FROM FattureCli_r WHERE " +
                      sql::Criterio("CodiceRiga", "=", prodotto) + " AND " +
                      sql::Criterio("Anno", ">=", anno - 1) + " AND " +
                      sql::Criterio("Anno", "<=", anno);
  if (!mag.empty()) testo += " AND " + sql::Criterio("Mag", "=", mag);
  for (Rs rs = ambiente.ArchivioDi("tessarc").Recordset(testo); !rs.Eof(); rs.MoveNext()) {
    const bool carico = UgualeTesto(rs.Fields(2).RifTesto(), "C");
    if (!carico && !UgualeTesto(rs.Fields(2).RifTesto(), "S")) continue;
    const Importo quantita = carico ? rs.Fields(3).Importo() : -rs.Fields(3).Importo();
    for (PuntoEsistenza& punto : punti) {
      if (punto.fineMese.Anno() == rs.Fields(0).Intero() && rs.Fields(1).Data() <= punto.fineMese) {
        punto.esistenza += quantita;
      }
    }
  }
  return punti;
}

}  // namespace fenalto::warehouse
