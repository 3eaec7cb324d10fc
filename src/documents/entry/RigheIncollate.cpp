#include "documents/entry/RigheIncollate.h"

#include <algorithm>
#include <array>
#include <map>

#include "core/session/Csv.h"
#include "core/values/FormatoImporto.h"
#include "core/values/PrimaLinea.h"
#include "core/values/Testo.h"
#include "warehouse/products/Prodotto.h"

namespace fenalto::documents {
namespace {

enum Colonna : std::size_t { kCodice, kQuantita, kPrezzo, kSconto, kColonne };

/// A cell without the blanks around it; empty where the line is shorter.
std::string Cella(const TabellaCsv::Riga& riga, std::size_t colonna) {
  return colonna < riga.campi.size() ? std::string(Rifila(riga.campi[colonna])) : std::string();
}

/// Spreadsheets show amounts with a currency or a percent sign.
std::string SenzaSegno(std::string cella) {
  for (const std::string_view segno : {"€", "%"}) {
    if (cella.starts_with(segno)) cella.erase(0, segno.size());
    if (cella.ends_with(segno)) cella.erase(cella.size() - segno.size());
    cella = std::string(Rifila(cella));
  }
  return cella;
}

/// What stands in the cell, nothing for an empty one; a text that is no number goes to `errore`.
std::optional<Importo> Numero(const std::string& cella, const char* nome, std::string& errore) {
  const std::string testo = SenzaSegno(cella);
  if (testo.empty()) return std::nullopt;
  const auto letto = LeggiImporto(testo);
  if (letto) return letto.Valore();
  if (errore.empty()) errore = std::string(nome) + ": " + letto.Errore().messaggio;
  return std::nullopt;
}

/// "10", "10%", "10+5+2": discounts on what the one before has left.
void LeggiSconti(const std::string& cella, RigaIncollata& riga) {
  const std::array sconti{&riga.valori.sc1, &riga.valori.sc2, &riga.valori.sc3};
  std::size_t da = 0;
  for (auto* sconto : sconti) {
    const std::size_t segno = cella.find('+', da);
    const std::string uno(Rifila(cella.substr(da, segno - da)));
    *sconto = Numero(uno, "sconto", riga.errore);
    if (segno == std::string::npos) return;
    da = segno + 1;
  }
  if (riga.errore.empty()) riga.errore = "sconto: sono ammessi al più tre sconti";
}

/// The first line names the columns: it has neither a product nor a quantity.
bool Intestazione(const TabellaCsv::Riga& riga, const CercaProdotto& cerca) {
  const std::string quantita = SenzaSegno(Cella(riga, kQuantita));
  return !quantita.empty() && quantita.find_first_of("0123456789") == std::string::npos &&
         !cerca(Cella(riga, kCodice));
}

bool Vuota(const TabellaCsv::Riga& riga) {
  return std::all_of(riga.campi.begin(), riga.campi.end(),
                     [](const std::string& campo) { return Rifila(campo).empty(); });
}

RigaIncollata LeggiRiga(const TabellaCsv::Riga& cruda, const CercaProdotto& cerca) {
  RigaIncollata riga;
  riga.linea = cruda.linea - 1;  // the names of the columns were put before the text
  const std::string codice = Cella(cruda, kCodice);
  riga.valori.codiceRiga = codice;
  if (codice.empty()) {
    riga.errore = "manca il codice";
  } else if (const auto prodotto = cerca(codice)) {
    riga.valori.codiceRiga = prodotto->codice;
    riga.descrizione = prodotto->descrizione;
    riga.fuoriUso = prodotto->fuoriUso;
  } else {
    riga.errore = "non c'è un prodotto con codice o barcode " + Visibile(codice);
  }
  riga.valori.quantita = Numero(Cella(cruda, kQuantita), "quantità", riga.errore);
  if (Cella(cruda, kQuantita).empty()) riga.valori.quantita = Importo::DaUnita(1);
  riga.valori.prezzo = Numero(Cella(cruda, kPrezzo), "prezzo", riga.errore);
  if (const std::string sconto = Cella(cruda, kSconto); !sconto.empty()) LeggiSconti(sconto, riga);
  for (std::size_t i = kColonne; i < cruda.campi.size() && riga.errore.empty(); ++i) {
    if (Rifila(cruda.campi[i]).empty()) continue;
    riga.errore = "colonne in più: si leggono codice, quantità, prezzo, sconto";
  }
  riga.valori.provenienza = "righe incollate";
  return riga;
}

}  // namespace

Esito<std::vector<RigaIncollata>> LeggiIncollate(std::string_view testo,
                                                 const CercaProdotto& cerca) {
  constexpr std::string_view kSegnoUtf8 = "\xEF\xBB\xBF";
  if (testo.starts_with(kSegnoUtf8)) testo.remove_prefix(kSegnoUtf8.size());
  const bool tabulato = testo.find('\t') != std::string_view::npos;
  const OpzioniCsv opzioni{.separatore = tabulato ? '\t' : ';',
                           .tollerante = true,
                           .massimoRighe = kIncollateMassime + 1};
  const auto tabella = LeggiCsv("codice\n" + std::string(testo), opzioni);
  if (!tabella) return tabella.Errore();
  std::vector<RigaIncollata> righe;
  const auto& crude = tabella.Valore().righe;
  for (std::size_t i = 0; i < crude.size(); ++i) {
    if (Vuota(crude[i]) || (i == 0 && Intestazione(crude[i], cerca))) continue;
    righe.push_back(LeggiRiga(crude[i], cerca));
  }
  if (righe.empty()) {
    return Errore{
        "negli appunti non ci sono righe: copiare dal foglio le colonne codice, quantità, prezzo e "
        "sconto"};
  }
  return righe;
}

Esito<std::vector<RigaIncollata>> LeggiIncollate(Ambiente& ambiente, std::string_view testo) {
  std::map<std::string, std::optional<ProdottoIncollato>> trovati;
  return LeggiIncollate(testo, [&](const std::string& letto) -> std::optional<ProdottoIncollato> {
    const auto [posto, nuovo] = trovati.try_emplace(letto);
    if (!nuovo) return posto->second;
    if (const auto codice = warehouse::TrovaProdotto(ambiente, letto)) {
      if (const auto prodotto = warehouse::LeggiProdotto(ambiente, *codice)) {
        posto->second = {prodotto->cod, PrimaLinea(prodotto->descrizione), prodotto->fuoriUso};
      }
    }
    return posto->second;
  });
}

std::vector<ValoriRiga> Accettate(const std::vector<RigaIncollata>& righe) {
  std::vector<ValoriRiga> valori;
  for (const RigaIncollata& riga : righe) {
    if (riga.errore.empty()) valori.push_back(riga.valori);
  }
  return valori;
}

}  // namespace fenalto::documents
