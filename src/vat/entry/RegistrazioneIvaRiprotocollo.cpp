// Protocols given anew in order of date, for purchases and receipts.
#include "core/records/Conferma.h"
#include "core/sql/Criterio.h"
#include "vat/entry/RegistrazioneIvaInterno.h"

namespace fenalto::vat {
namespace {

struct Protocollo {
  std::int64_t id = 0;
  std::int64_t numDoc = 0;
  std::int64_t nProt = 0;
};

std::vector<Protocollo> Leggi(Archivio& tessarc, const std::string& condizione,
                              const std::string& ordine) {
  std::vector<Protocollo> letti;
  Rs riga = tessarc.Recordset("select * from ZarticoliProtocollati where " + condizione +
                              " ORDER BY " + ordine);
  for (; !riga.Eof(); riga.MoveNext()) {
    letti.push_back({riga.Fields("ID").Intero(), riga.Fields("NumDoc").Intero(),
                     riga.Fields("NProt").Intero()});
  }
  return letti;
}

/// Numbers of the range that no registration has, joined by blanks; the first of them when many.
std::string Mancanti(const std::vector<Protocollo>& letti, std::int64_t da) {
  constexpr int kMassimo = 50;
  std::string lista;
  int elencati = 0;
  std::int64_t atteso = da;
  for (const auto& letto : letti) {
    for (; atteso < letto.nProt; ++atteso) {
      if (++elencati > kMassimo) return lista.append("...");
      lista.append(std::to_string(atteso)).append(" ");
    }
    atteso = letto.nProt + 1;
  }
  return lista;
}

/// Gives the registrations of the condition the protocols from `da` on, in order of date.
void Rinumera(Ambiente& ambiente, const std::string& riva, std::int64_t da,
              const std::string& condizione) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const auto ordinati = Leggi(tessarc, condizione, "DT,DTFAT,NPROT");
  // Out of the way first: a number is taken once a register.
  tessarc.Esegui("update articoli set NProt=0-NProt where " + condizione);
  std::int64_t prossimo = da;
  for (const auto& articolo : ordinati) {
    tessarc.Esegui("update articoli set " + sql::Criterio("NProt", "=", prossimo) + " where " +
                   sql::Criterio("ID", "=", articolo.id));
    ambiente.ArchivioDi("scadenzario")
        .Esegui("update Scadenze set " + sql::Criterio("NProt", "=", prossimo) + " where " +
                sql::Criterio("Anno", "=", ambiente.Anno()) + " and " +
                sql::Criterio("Articolo", "=", articolo.numDoc) + " and " +
                sql::Criterio("Riva", "=", riva));
    ++prossimo;
  }
}

}  // namespace

bool RegistrazioneIva::Riprotocolla(std::int64_t da, std::int64_t a) {
  Interno& io = *interno_;
  const bool acquisti = io.Tipo({"03"});
  if (!acquisti && !io.Tipo({"02", "07", "09"})) return false;
  const int anno = io.ambiente.Anno();
  const std::string& riva = io.registro.cod;
  if (da <= 0 || a < da) {
    io.Avviso("impostare da/a n.protocollo");
    return false;
  }
  const auto stampato =
      io.ambiente.Max("ULTPROTST", "UltProtStRegIva", {{"ANNO", anno}, {"riva", riva}}, io.tessarc)
          .Intero();
  if (da <= stampato) {
    io.Avviso("'Da n.protocolo' minore dell'ultimo stampato sul registro");
    return false;
  }
  const std::int64_t ultimo = ProssimoNProt(io.ambiente, anno, riva) - 1;
  if (a > ultimo) {
    io.Avviso("'A n.protocolo' maggiore dell'ultimo registrato");
    return false;
  }
  const std::string genere = acquisti ? "fatture acquisto" : "corrispettivi";
  if (!io.ambiente.Dialogo().Conferma("Conferma RIPROTOCOLLO " + genere + " ?")) return false;
  const std::string condizione =
      sql::Criterio("ANNO", "=", anno) + " and " + sql::Criterio("RIVA", "=", riva) + " and " +
      sql::Criterio("NPROT", ">=", da) + " and " + sql::Criterio("NPROT", "<=", a);
  const auto senzaBuchi = [&] {
    const std::string mancanti = Mancanti(Leggi(io.tessarc, condizione, "NPROT"), da);
    if (mancanti.empty() || a == ultimo) return true;
    io.Avviso("Impossibile riprotocollare: manca n.prot. " + mancanti +
              " e non è stato impostato fino all'ultimo n. protocollo");
    return false;
  };
  const bool riuscito = records::Esegui(io.ambiente, {.nonRiuscita = "riprotocollo non riuscita: ",
                                                      .dopoErrore = records::kAncoraSulloSchermo,
                                                      .numerazioni = {"ARTICOLI"},
                                                      .sottoBlocco = senzaBuchi,
                                                      .scrivi = [&] {
                                                        Rinumera(io.ambiente, riva, da, condizione);
                                                        return std::string();
                                                      }});
  if (!riuscito) return false;
  io.ambiente.Dialogo().Annuncia(
      std::string("Riprotocollo eseguito") +
      (acquisti ? ": stampare il registro iva in prova per rilevare i nuovi numeri di protocollo "
                  "assegnati dal programma"
                : ""));
  return true;
}

}  // namespace fenalto::vat
