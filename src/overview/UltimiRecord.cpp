#include "overview/UltimiRecord.h"

#include <algorithm>
#include <optional>

#include "core/sql/Criterio.h"
#include "core/values/PrimaLinea.h"
#include "core/values/Testo.h"

namespace fenalto::overview {
namespace {

constexpr int kContabilita = 99;
constexpr int kClienti = 30;
constexpr int kProdotti = 30;
constexpr int kFattureEmesse = 50;

std::string NomeDi(Ambiente& ambiente, const std::string& cfp, const std::string& conto) {
  return NzStr(ambiente.Cerca("tessarc", "ContiClientiFornitori", {{"Cod", conto}, {"CFP", cfp}},
                              "Descrizione"));
}

/// All are of one year.
std::string DelGiorno(Data data) {
  constexpr std::size_t kGiornoEMese = 5;
  return " del " + data.Testo().substr(0, kGiornoEMese);
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
  const std::string del = DelGiorno(articolo.Fields("Dt").Data());
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

std::optional<RecordToccato> Documento(Ambiente& ambiente, const Rinvio& rinvio) {
  if (rinvio.anno != ambiente.Anno() || !ambiente.HaDiritto(kClienti)) return std::nullopt;
  const Rs testa = ambiente.ArchivioDi("tessarc").Recordset(
      "SELECT FattureCli.Dt, FattureCli.CFP, FattureCli.CliFor, TipiFattureCli.Descrizione, "
      "TipiFattureCli.TipoStampa FROM FattureCli LEFT JOIN TipiFattureCli ON FattureCli.TipoDoc = "
      "TipiFattureCli.Cod WHERE " +
      sql::Criterio("FattureCli.TipoDoc", "=", rinvio.classe) + " AND " +
      sql::Criterio("FattureCli.Anno", "=", rinvio.anno) + " AND " +
      sql::Criterio("FattureCli.NumDoc", "=", rinvio.Numero()));
  if (testa.Eof()) return std::nullopt;
  const std::string stampa = NzStr(testa.Fields(4));
  const bool fattura = UgualeTesto(stampa, "FATTURA") || UgualeTesto(stampa, "FATTACC");
  if (fattura && !ambiente.HaDiritto(kFattureEmesse)) return std::nullopt;
  RecordToccato record;
  record.rinvio = rinvio;
  record.genere = "documento";
  const std::string tipo = NzStr(testa.Fields(3));
  record.titolo = NomeDi(ambiente, testa.Fields(1).Testo(), testa.Fields(2).Testo());
  if (record.titolo.empty()) record.titolo = tipo;
  record.dettaglio = rinvio.classe + " n. " + rinvio.codice + DelGiorno(testa.Fields(0).Data());
  return record;
}

std::optional<RecordToccato> Parte(Ambiente& ambiente, const Rinvio& rinvio) {
  const bool cliente = rinvio.funzione == "CLIENTI";
  if (!ambiente.HaDiritto(kClienti)) return std::nullopt;
  const Valore nome =
      ambiente.Cerca("tessarc", rinvio.funzione, {{"Cod", rinvio.codice}}, "ragsoc1");
  if (nome.Nullo()) return std::nullopt;
  return RecordToccato{rinvio, cliente ? "cliente" : "fornitore", nome.Testo(), rinvio.codice};
}

std::optional<RecordToccato> Prodotto(Ambiente& ambiente, const Rinvio& rinvio) {
  if (!ambiente.HaDiritto(kProdotti)) return std::nullopt;
  const Valore descrizione =
      ambiente.Cerca("tessarc", "CodiciRiga", {{"Cod", rinvio.codice}}, "Descrizione");
  if (descrizione.Nullo()) return std::nullopt;
  return RecordToccato{rinvio, "prodotto", PrimaLinea(descrizione.Testo()), rinvio.codice};
}

/// A record by its reference; nothing when it has gone or the user has no right to it.
std::optional<RecordToccato> Toccato(Ambiente& ambiente, const Rinvio& rinvio) {
  if (rinvio.funzione == "CLIENTI" || rinvio.funzione == "FORNITORI") {
    return Parte(ambiente, rinvio);
  }
  if (rinvio.funzione == "CODICIRIGA") return Prodotto(ambiente, rinvio);
  if (rinvio.funzione == "FattureCli") return Documento(ambiente, rinvio);
  return Registrazione(ambiente, rinvio);
}

}  // namespace

std::vector<RecordToccato> UltimiRecord(Ambiente& ambiente, std::size_t quanti) {
  std::vector<RecordToccato> ultimi;
  for (const Rinvio& rinvio : ambiente.Recenti()) {
    if (ultimi.size() == quanti) return ultimi;
    auto record = Toccato(ambiente, rinvio);
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
      return altro.rinvio.codice == record->rinvio.codice && altro.rinvio.anno != 0 &&
             altro.rinvio.funzione != "FattureCli";
    });
    if (!gia) ultimi.push_back(std::move(*record));
  }
  return ultimi;
}

}  // namespace fenalto::overview
