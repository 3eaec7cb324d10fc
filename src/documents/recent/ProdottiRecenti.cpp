#include "documents/recent/ProdottiRecenti.h"

#include <algorithm>

#include "core/sql/Criterio.h"
#include "core/values/PrimaLinea.h"
#include "core/values/Testo.h"

namespace fenalto::documents {
namespace {

constexpr int kTratto = 1'000;  ///< document rows that a reading goes through

constexpr const char* kVoci =
    "Dt as Data,Numdoc as NDoc, CodiceRiga, Descrizione, um, Quantita, Prezzo, Sc1, Sc2, Sc3, Num, "
    "Anno";
constexpr std::size_t kNumDoc = 1;
constexpr std::size_t kCodice = 2;
constexpr std::size_t kDescrizione = 3;
constexpr std::size_t kAnno = kIdentitaRecente + 1;
constexpr const char* kOrdine = " ORDER BY Dt DESC, Numdoc DESC, Anno DESC, Num DESC";

std::string Istruzione(const SceltaRecenti& scelta, const std::string& prodotto,
                       const std::string& oltre, int massimo) {
  std::string testo = "SELECT TOP " + std::to_string(massimo) + " " + kVoci +
                      " From FattureCli_r WHERE " + sql::Criterio("Cfp", "=", scelta.cfp) +
                      " AND " + sql::Criterio("CLIFOR", "=", scelta.cliFor);
  if (!scelta.tipoDoc.empty()) testo += " AND " + sql::Criterio("tipodoc", "=", scelta.tipoDoc);
  testo += prodotto.empty() ? std::string(" AND CodiceRiga<>''")
                            : " AND " + sql::Criterio("CodiceRiga", "=", prodotto);
  return testo + oltre + kOrdine;
}

/// The rows that come after this one, backwards in time.
std::string Dopo(const Rs& riga) {
  const auto minore = [&](const char* campo, std::size_t colonna) {
    return sql::Criterio(campo, "<", riga.Fields(colonna));
  };
  const auto uguale = [&](const char* campo, std::size_t colonna) {
    return sql::Criterio(campo, "=", riga.Fields(colonna)) + " AND ";
  };
  const std::string identita = minore("Num", kIdentitaRecente);
  const std::string anno = minore("Anno", kAnno) + " OR (" + uguale("Anno", kAnno) + identita + ")";
  const std::string numero =
      minore("Numdoc", 1) + " OR (" + uguale("Numdoc", 1) + "(" + anno + "))";
  // The first condition alone bounds the index.
  return " AND " + sql::Criterio("Dt", "<=", riga.Fields(0)) + " AND (" + minore("Dt", 0) + " OR " +
         numero + ")";
}

std::vector<Valore> Mostrata(const Rs& riga) {
  std::vector<Valore> valori;
  for (std::size_t c = 0; c <= kIdentitaRecente; ++c) valori.push_back(riga.Fields(c));
  valori[kDescrizione] = PrimaLinea(NzStr(valori[kDescrizione]));
  return valori;
}

/// Whether code and description hold all words.
bool Risponde(const Rs& riga, const std::string& codice, const std::vector<std::string>& parole) {
  if (parole.empty()) return true;
  const std::string dove = codice + "\n" + NzStr(riga.Fields(kDescrizione));
  return std::ranges::all_of(parole,
                             [&](const std::string& parola) { return InRicerca(dove, parola); });
}

}  // namespace

void ProdottiRecenti::Comincia(const archives::FiltroElenco& filtro) {
  parole_ = sql::ParoleCercate(filtro.testo);
  visti_.clear();
  oltre_.clear();
  numero_ = 0;
  finita_ = scelta_.cliFor.empty();
}

archives::FonteElenco::Righe ProdottiRecenti::Avanti() {
  Righe righe;
  int lette = 0;
  for (Rs riga =
           ambiente_.ArchivioDi("tessarc").Recordset(Istruzione(scelta_, "", oltre_, kTratto));
       !riga.Eof(); riga.MoveNext()) {
    // The last row read says where the next stretch begins.
    if (++lette == kTratto) oltre_ = Dopo(riga);
    numero_ = riga.Fields(kNumDoc).Intero();
    const std::string codice = riga.Fields(kCodice).Testo();
    if (!visti_.insert(SenzaMaiuscole(codice)).second) continue;
    if (Risponde(riga, codice, parole_)) righe.push_back(Mostrata(riga));
  }
  finita_ = lette < kTratto;
  return righe;
}

void RigheProdotto::Di(SceltaRecenti scelta, std::string prodotto) {
  scelta_ = std::move(scelta);
  prodotto_ = std::move(prodotto);
}

void RigheProdotto::Comincia(const archives::FiltroElenco& /*filtro*/) {
  oltre_.clear();
  finita_ = scelta_.cliFor.empty() || prodotto_.empty();
}

archives::FonteElenco::Righe RigheProdotto::Avanti() {
  Righe righe;
  if (finita_) return righe;
  std::string dopo;
  for (Rs riga = ambiente_.ArchivioDi("tessarc").Recordset(
           Istruzione(scelta_, prodotto_, oltre_, kPagina));
       !riga.Eof(); riga.MoveNext()) {
    righe.push_back(Mostrata(riga));
    if (righe.size() == static_cast<std::size_t>(kPagina)) dopo = Dopo(riga);
  }
  oltre_ = dopo;
  finita_ = dopo.empty();
  return righe;
}

std::optional<ValoriRiga> ValoriDaRiga(Ambiente& ambiente, std::int64_t identita) {
  const Rs riga = ambiente.ArchivioDi("tessarc").Recordset(
      "SELECT CodiceRiga, Descrizione, um, Prezzo, Sc1, Sc2, Sc3 FROM FattureCli_r WHERE " +
      sql::Criterio("Num", "=", identita));
  if (riga.Eof()) return std::nullopt;
  ValoriRiga valori;
  valori.codiceRiga = riga.Fields("CodiceRiga").Testo();
  valori.descrizione = riga.Fields("Descrizione").Testo();
  valori.um = riga.Fields("um").Testo();
  valori.prezzo = riga.Fields("Prezzo").Importo();
  valori.sc1 = riga.Fields("Sc1").Importo();
  valori.sc2 = riga.Fields("Sc2").Importo();
  valori.sc3 = riga.Fields("Sc3").Importo();
  valori.provenienza = "prodotti recenti";
  return valori;
}

}  // namespace fenalto::documents
