#include "documents/parties/InterrogazioneParte.h"

#include <algorithm>
#include <array>
#include <set>

#include "core/sql/Criterio.h"
#include "core/sql/CriterioDopo.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"
#include "documents/parties/PartiInterno.h"
#include "duedates/schedules/Scadenza.h"

namespace fenalto::documents {
namespace {

// Rights that the function of each kind asks.
constexpr int kLivelloDocumenti = 50;

struct Parte {
  Ambiente& ambiente;
  const std::string& cfp;
  const std::string& codice;
};

std::string DiParte(const Parte& parte, const std::string& cfp, const std::string& codice) {
  return sql::Criterio(cfp, "=", parte.cfp) + " AND " + sql::Criterio(codice, "=", parte.codice);
}

/// A kind of branch.
struct GenereRamo {
  const char* chiave;
  int livello;
  const char* archivio;
  /// The branches of this kind, in their order.
  std::vector<RamoParte> (*rami)(const Parte& parte);
  /// Columns, tables and condition: how many, then what they come to.
  std::string (*conteggio)(const Parte& parte, const RamoParte& ramo);
  /// Columns, tables and condition of the leaves.
  std::string (*foglie)(const Parte& parte, const RamoParte& ramo);
  /// Columns that order the leaves; together they tell one leaf from all others.
  std::vector<const char*> ordine;
  FogliaParte (*leggi)(const Rs& riga);
};

// --- Due dates -----------------------------------------------------------------------------------

std::vector<RamoParte> RamiScadenze(const Parte& /*parte*/) {
  return {{"xSCAD", "", "SITUAZIONE SCADENZE PAGAMENTO"}};
}

std::string DaScadenze(const Parte& parte) {
  return " FROM SCADENZE WHERE " + DiParte(parte, "SCADENZE.CFP", "SCADENZE.Conto") + " AND " +
         duedates::CondizioneAperta();
}

std::string ContaScadenze(const Parte& parte, const RamoParte& /*ramo*/) {
  return "Count(SCADENZE.Conto), Sum(SCADENZE.ImportoE-SCADENZE.ImportoPagatoE)" +
         DaScadenze(parte);
}

std::string FoglieScadenze(const Parte& parte, const RamoParte& /*ramo*/) {
  return "SCADENZE.*" + DaScadenze(parte);
}

FogliaParte FogliaScadenza(const Rs& riga) {
  const duedates::Scadenza s = duedates::ScadenzaDi(riga);
  FogliaParte foglia;
  foglia.genere = GenereFoglia::Scadenza;
  foglia.numero = s.numero;
  foglia.rinvio = AlNumero("Scadenze", s.numero);
  foglia.importo = s.Residuo();
  foglia.testo = s.dt.Nulla() ? "senza data" : s.dt.Testo();
  if (!s.nFat.empty()) foglia.testo += "  ft. " + s.nFat;
  if (!s.nFat.empty() && !s.dtFat.Nulla()) foglia.testo += " del " + s.dtFat.Testo();
  if (s.anticipo) foglia.testo += "  ACCONTO";
  if (!s.descrizione.empty()) foglia.testo += "  " + s.descrizione;
  foglia.segno = {s.dt, s.numero};
  return foglia;
}

// --- Movements -----------------------------------------------------------------------------------

RamoParte RamoAnno(const char* chiave, int anno) {
  const std::string testo = std::to_string(anno);
  return {chiave, testo, "MOVIMENTI CONTABILI ANNO " + testo};
}

std::vector<RamoParte> RamiAnno(const Parte& parte) {
  return {RamoAnno("xMOVANNO", parte.ambiente.Anno())};
}

/// The years before the selected one, the last first.
std::vector<RamoParte> RamiAnniPrecedenti(const Parte& parte) {
  std::vector<int> anni = parte.ambiente.Anni();
  std::ranges::sort(anni, std::greater());
  std::vector<RamoParte> rami;
  for (const int anno : anni) {
    if (anno < parte.ambiente.Anno()) rami.push_back(RamoAnno("xMOVPREC", anno));
  }
  return rami;
}

std::string DaMovimenti(const Parte& parte, const RamoParte& ramo) {
  return " FROM Movimenti INNER JOIN Articoli ON (Movimenti.Anno = Articoli.Anno) AND "
         "(Movimenti.NumDoc = Articoli.NumDoc) WHERE " +
         sql::Criterio("Movimenti.Anno", "=", std::stoi(ramo.argomento)) + " AND " +
         DiParte(parte, "Movimenti.CFP", "Movimenti.Conto") + " AND " +
         sql::Criterio("Articoli.Dt", ">=", Ambiente::DataMinima());
}

std::string ContaMovimenti(const Parte& parte, const RamoParte& ramo) {
  return "Count(Movimenti.Conto), Sum(Movimenti.ImpoDare-Movimenti.ImpoAvere)" +
         DaMovimenti(parte, ramo);
}

std::string FoglieMovimenti(const Parte& parte, const RamoParte& ramo) {
  return "Articoli.Dt, Movimenti.NumDoc, Movimenti.Posi, Movimenti.Num, Movimenti.Anno, "
         "Movimenti.Descrizione, Movimenti.ImpoDare, Movimenti.ImpoAvere" +
         DaMovimenti(parte, ramo);
}

FogliaParte FogliaMovimento(const Rs& riga) {
  FogliaParte foglia;
  foglia.genere = GenereFoglia::Movimento;
  foglia.numero = riga.Fields("NumDoc").Intero();
  foglia.anno = static_cast<int>(riga.Fields("Anno").Intero());
  foglia.rinvio = AllaRegistrazione(foglia.anno, foglia.numero);
  foglia.importo = riga.Fields("ImpoDare").Importo() - riga.Fields("ImpoAvere").Importo();
  foglia.testo = riga.Fields("Dt").Data().Testo() + "  n. " + std::to_string(foglia.numero) + "  " +
                 riga.Fields("Descrizione").Testo();
  foglia.segno = {riga.Fields("Dt"), riga.Fields("NumDoc"), riga.Fields("Posi"),
                  riga.Fields("Num")};
  return foglia;
}

// --- Documents -----------------------------------------------------------------------------------

/// Types of the party's class, and any other that it has a document of.
std::vector<RamoParte> RamiDocumenti(const Parte& parte) {
  Archivio& tessarc = parte.ambiente.ArchivioDi("tessarc");
  std::set<std::string> usati;
  for (Rs rs = tessarc.Recordset("SELECT DISTINCT TipoDoc FROM FattureCli WHERE " +
                                 DiParte(parte, "CFP", "CliFor"));
       !rs.Eof(); rs.MoveNext()) {
    usati.insert(SenzaMaiuscole(rs.Fields(0).Testo()));
  }
  std::vector<RamoParte> rami;
  for (Rs rs = tessarc.Recordset("SELECT Cod, Descrizione, CFP FROM TipiFattureCli ORDER BY Cod");
       !rs.Eof(); rs.MoveNext()) {
    const std::string cod = rs.Fields(0).Testo();
    const bool usato = usati.erase(SenzaMaiuscole(cod)) != 0;
    if (!usato && !UgualeTesto(rs.Fields(2).Testo(), parte.cfp)) continue;
    rami.push_back({"xDOC", cod, cod + " " + rs.Fields(1).Testo()});
  }
  // Of types that are gone from the archive.
  for (const std::string& cod : usati) rami.push_back({"xDOC", cod, cod});
  return rami;
}

std::string DaDocumenti(const Parte& parte, const RamoParte& ramo) {
  return " FROM FattureCli WHERE " + sql::Criterio("TipoDoc", "=", ramo.argomento) + " AND " +
         DiParte(parte, "cfp", "clifor");
}

std::string ContaDocumenti(const Parte& parte, const RamoParte& ramo) {
  return "Count(clifor)" + DaDocumenti(parte, ramo);
}

std::string FoglieDocumenti(const Parte& parte, const RamoParte& ramo) {
  return "*" + DaDocumenti(parte, ramo);
}

FogliaParte FogliaDocumento(const Rs& riga) {
  FogliaParte foglia;
  foglia.genere = GenereFoglia::Documento;
  foglia.tipoDoc = riga.Fields("TipoDoc").Testo();
  foglia.anno = static_cast<int>(riga.Fields("Anno").Intero());
  foglia.numero = riga.Fields("NumDoc").Intero();
  foglia.testo = "n." + std::to_string(foglia.numero) + " del " + riga.Fields("Dt").Data().Testo();
  foglia.segno = {riga.Fields("Anno"), riga.Fields("NumDoc")};
  foglia.rinvio = {.funzione = "FattureCli",
                   .codice = std::to_string(foglia.numero),
                   .anno = foglia.anno,
                   .classe = foglia.tipoDoc};
  return foglia;
}

// --- The table -----------------------------------------------------------------------------------

const std::vector<GenereRamo>& Generi() {
  static const std::vector<GenereRamo> generi = {
      {"xSCAD",
       kLivelloContabile,
       "scadenzario",
       RamiScadenze,
       ContaScadenze,
       FoglieScadenze,
       {"SCADENZE.Dt", "SCADENZE.Numero"},
       FogliaScadenza},
      {"xMOVANNO",
       kLivelloContabile,
       "tessarc",
       RamiAnno,
       ContaMovimenti,
       FoglieMovimenti,
       {"Articoli.Dt", "Movimenti.NumDoc", "Movimenti.Posi", "Movimenti.Num"},
       FogliaMovimento},
      {"xMOVPREC",
       kLivelloContabile,
       "tessarc",
       RamiAnniPrecedenti,
       ContaMovimenti,
       FoglieMovimenti,
       {"Articoli.Dt", "Movimenti.NumDoc", "Movimenti.Posi", "Movimenti.Num"},
       FogliaMovimento},
      {"xDOC",
       kLivelloDocumenti,
       "tessarc",
       RamiDocumenti,
       ContaDocumenti,
       FoglieDocumenti,
       {"anno", "numdoc"},
       FogliaDocumento},
  };
  return generi;
}

const GenereRamo& GenereDi(const RamoParte& ramo) {
  return *std::ranges::find_if(Generi(),
                               [&](const GenereRamo& g) { return g.chiave == ramo.chiave; });
}

}  // namespace

InterrogazioneParte::InterrogazioneParte(Ambiente& ambiente, std::string cfp, std::string codice)
    : ambiente_(ambiente), cfp_(std::move(cfp)), codice_(std::move(codice)) {}

std::vector<RamoParte> InterrogazioneParte::Rami() {
  std::vector<RamoParte> rami;
  for (const GenereRamo& genere : Generi()) {
    if (!ambiente_.HaDiritto(genere.livello)) continue;
    const auto suoi = genere.rami({ambiente_, cfp_, codice_});
    rami.insert(rami.end(), suoi.begin(), suoi.end());
  }
  return rami;
}

ConteggioRamo InterrogazioneParte::Conta(const RamoParte& ramo) {
  const GenereRamo& genere = GenereDi(ramo);
  const Rs rs = ambiente_.ArchivioDi(genere.archivio)
                    .Recordset("SELECT " + genere.conteggio({ambiente_, cfp_, codice_}, ramo));
  ConteggioRamo conteggio;
  conteggio.quanti = rs.Fields(0).Intero();
  if (rs.Colonne().size() > 1) conteggio.importo = rs.Fields(1).Importo();
  return conteggio;
}

std::string InterrogazioneParte::Didascalia(const RamoParte& ramo, const ConteggioRamo& conteggio) {
  if (!ramo.chiave.starts_with("xMOV")) return ramo.didascalia;
  const int decimali = DecimaliDi(std::stoi(ramo.argomento));
  return ramo.didascalia + "   (SALDO " + ScriviImporto(conteggio.importo, decimali) + ")";
}

std::vector<FogliaParte> InterrogazioneParte::Foglie(const RamoParte& ramo, const FogliaParte* dopo,
                                                     std::size_t quante) {
  const GenereRamo& genere = GenereDi(ramo);
  std::string sql = "SELECT TOP " + std::to_string(quante) + " " +
                    genere.foglie({ambiente_, cfp_, codice_}, ramo);
  if (dopo != nullptr)
    sql += " AND " + sql::CriterioDopo({genere.ordine.begin(), genere.ordine.end()}, dopo->segno);
  const char* prima = " ORDER BY ";
  for (const char* colonna : genere.ordine) {
    sql += prima;
    sql += colonna;
    prima = ", ";
  }
  std::vector<FogliaParte> foglie;
  for (Rs rs = ambiente_.ArchivioDi(genere.archivio).Recordset(sql); !rs.Eof(); rs.MoveNext()) {
    foglie.push_back(genere.leggi(rs));
    foglie.back().chiave = ramo.chiave.substr(1);
  }
  return foglie;
}

}  // namespace fenalto::documents
