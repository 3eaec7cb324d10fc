#include "overview/UltimiRecord.h"

#include <algorithm>
#include <optional>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto::overview {
namespace {

constexpr int kContabilita = 99;
constexpr int kClienti = 30;

std::string NomeDi(Ambiente& ambiente, const std::string& cfp, const std::string& conto) {
  return NzStr(ambiente.Cerca("tessarc", "ContiClientiFornitori", {{"Cod", conto}, {"CFP", cfp}},
                              "Descrizione"));
}

/// What the first line of a registration says.
std::string PrimaDescrizione(Ambiente& ambiente, int anno, std::int64_t numero) {
  const Rs riga = ambiente.ArchivioDi("tessarc").Recordset(
      "SELECT TOP 1 Descrizione FROM Movimenti WHERE " + sql::Criterio("Anno", "=", anno) +
      " AND " + sql::Criterio("NumDoc", "=", numero) + " ORDER BY Posi");
  return riga.Eof() ? std::string() : riga.Fields(0).Testo();
}

/// From a row of `Articoli`; nothing where the user has no right to the function that shows it.
std::optional<RecordToccato> DaArticolo(Ambiente& ambiente, const Rs& articolo) {
  const int anno = static_cast<int>(articolo.Fields("Anno").Intero());
  const std::int64_t numero = articolo.Fields("NumDoc").Intero();
  const std::string riva = articolo.Fields("Riva").Testo();
  // All are of one year.
  constexpr std::size_t kGiornoEMese = 5;
  const std::string del = " del " + articolo.Fields("Dt").Data().Testo().substr(0, kGiornoEMese);
  RecordToccato record;
  if (riva.empty()) {
    if (!ambiente.HaDiritto(kContabilita)) return std::nullopt;
    record.rinvio = AlNumero("Movimenti", numero, anno);
    record.genere = "registrazione";
    record.titolo = PrimaDescrizione(ambiente, anno, numero);
    record.dettaglio = "art. " + std::to_string(numero) + del;
  } else {
    record.rinvio = AlNumero("Fatture", numero, anno);
    record.genere = "fattura";
    const std::string cfp = articolo.Fields("CFP").Testo();
    // Receipts have no party but the cash.
    record.titolo = cfp == "P" ? PrimaDescrizione(ambiente, anno, numero)
                               : NomeDi(ambiente, cfp, articolo.Fields("Conto").Testo());
    record.dettaglio = "reg. " + riva + " prot. " + articolo.Fields("NProt").Testo() + del;
  }
  if (record.titolo.empty()) record.titolo = "articolo " + std::to_string(numero);
  return record;
}

std::optional<RecordToccato> Registrazione(Ambiente& ambiente, const Rinvio& rinvio) {
  if (rinvio.anno != ambiente.Anno()) return std::nullopt;
  const Rs articolo = ambiente.ArchivioDi("tessarc").Recordset(
      "SELECT Anno, NumDoc, Dt, CFP, Conto, Riva, NProt FROM Articoli WHERE " +
      sql::Criterio("Anno", "=", rinvio.anno) + " AND " +
      sql::Criterio("NumDoc", "=", rinvio.Numero()));
  if (articolo.Eof()) return std::nullopt;
  return DaArticolo(ambiente, articolo);
}

std::optional<RecordToccato> Parte(Ambiente& ambiente, const Rinvio& rinvio) {
  const bool cliente = rinvio.funzione == "CLIENTI";
  if (!ambiente.HaDiritto(kClienti)) return std::nullopt;
  const Valore nome =
      ambiente.Cerca("tessarc", rinvio.funzione, {{"Cod", rinvio.codice}}, "ragsoc1");
  if (nome.Nullo()) return std::nullopt;
  return RecordToccato{rinvio, cliente ? "cliente" : "fornitore", nome.Testo(), rinvio.codice};
}

}  // namespace

std::vector<RecordToccato> UltimiRecord(Ambiente& ambiente, std::size_t quanti) {
  std::vector<RecordToccato> ultimi;
  for (const Rinvio& rinvio : ambiente.Recenti()) {
    if (ultimi.size() == quanti) return ultimi;
    const bool parte = rinvio.funzione == "CLIENTI" || rinvio.funzione == "FORNITORI";
    auto record = parte ? Parte(ambiente, rinvio) : Registrazione(ambiente, rinvio);
    if (record) ultimi.push_back(std::move(*record));
  }
  for (Rs articoli = ambiente.ArchivioDi("tessarc").Recordset(
           "SELECT TOP " + std::to_string(quanti) +
           " Anno, NumDoc, Dt, CFP, Conto, Riva, NProt FROM Articoli WHERE " +
           sql::Criterio("Anno", "=", ambiente.Anno()) + " ORDER BY NumDoc DESC");
       !articoli.Eof() && ultimi.size() < quanti; articoli.MoveNext()) {
    auto record = DaArticolo(ambiente, articoli);
    if (!record) continue;
    const bool gia = std::ranges::any_of(ultimi, [&](const RecordToccato& altro) {
      return altro.rinvio.codice == record->rinvio.codice && altro.rinvio.anno != 0;
    });
    if (!gia) ultimi.push_back(std::move(*record));
  }
  return ultimi;
}

}  // namespace fenalto::overview
