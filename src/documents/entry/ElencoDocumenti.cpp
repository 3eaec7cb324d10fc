#include "documents/entry/ElencoDocumenti.h"

#include <map>
#include <utility>

#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
#include "documents/entry/ScriviDocumento.h"
#include "documents/types/TipoDocumento.h"

namespace fenalto::documents {
namespace {

/// Each row is read with its amount, so a page is shorter than elsewhere.
constexpr int kPaginaDocumenti = 100;
constexpr int kVedeFatture = 50;

std::string NotaDi(const Rs& riga) {
  switch (static_cast<OrigineDocumento>(riga.Fields("CREATOINAUTOMATICO").Intero())) {
    case OrigineDocumento::ScaricoComponenti:
      return "scarico componenti";
    case OrigineDocumento::Trasferimento:
      return "trasferimento";
    case OrigineDocumento::TrasportoEsistenze:
      return "esistenze trasportate";
    case OrigineDocumento::Digitato:
      break;
  }
  const std::string carico = riga.Fields("NumDocCarico").Testo();
  if (!carico.empty()) {
    const Data del = riga.Fields("DtDocCarico").Data();
    return "rif. " + carico + (del.Nulla() ? "" : " del " + del.Testo());
  }
  const std::int64_t fattura = riga.Fields("Fattura").Intero();
  if (fattura != 0) return "fattura " + std::to_string(fattura);
  return riga.Fields("Fatturo").Booleano() ? "da fatturare" : "";
}

}  // namespace

struct ElencoDocumenti::Letto {
  std::string tipoDoc;
  std::int64_t numDoc = 0;
  Data data;
  std::string cliFor;
  std::string nome;
  std::string mag;
  std::string nota;
  Importo importo;
};

bool ElencoDocumenti::Scegli(SceltaElenco scelta) {
  if (scelta.genere != GenereElenco::DelTipo) scelta.tipo.clear();
  if (scelta == scelta_) return false;
  scelta_ = std::move(scelta);
  return true;
}

const char* ElencoDocumenti::Da() const {
  switch (scelta_.genere) {
    case GenereElenco::Bolle:
      return "Zbollecli";
    case GenereElenco::Fatture:
      return "Zfatturecli";
    case GenereElenco::Movimenti:
      return "Zmovimentimag";
    case GenereElenco::DelTipo:
    case GenereElenco::Tutti:
      break;
  }
  return "FattureCli";
}

std::string ElencoDocumenti::Riservati() {
  std::string codici;
  if (ambiente_.HaDiritto(kVedeFatture)) return codici;
  for (const TipoDocumento& tipo : LeggiTipi(ambiente_)) {
    if (tipo.Fatturazione()) codici += (codici.empty() ? "" : ",") + sql::LetteraleSql(tipo.cod);
  }
  return codici;
}

std::string ElencoDocumenti::Condizione(const std::string& testo) {
  const std::string da = std::string(Da()) + ".";
  std::string condizione = sql::Criterio(da + "Anno", "=", ambiente_.Anno());
  const auto anche = [&condizione](const std::string& altra) {
    if (!altra.empty()) condizione += " AND " + altra;
  };
  if (scelta_.genere == GenereElenco::DelTipo) {
    anche(sql::Criterio(da + "TipoDoc", "=", scelta_.tipo));
  }
  if (!scelta_.da.Nulla()) anche(sql::Criterio(da + "Dt", ">=", scelta_.da));
  if (!scelta_.a.Nulla()) anche(sql::Criterio(da + "Dt", "<=", scelta_.a));
  if (const std::string riservati = Riservati(); !riservati.empty()) {
    anche("NOT (" + da + "TipoDoc IN (" + riservati + "))");
  }
  if (const std::string cercato = Cercato(testo); !cercato.empty()) anche("(" + cercato + ")");
  return condizione;
}

std::string ElencoDocumenti::Cercato(const std::string& testo) {
  const std::string da = std::string(Da()) + ".";
  const auto cercato = ledger::LeggiCercato(testo, ambiente_);
  if (cercato.testo.empty()) return {};
  if (!cercato.data.Nulla()) {
    return sql::Criterio(da + "Dt", "=", cercato.data) + " OR " +
           sql::Criterio(da + "DtDocCarico", "=", cercato.data);
  }
  std::string condizione = sql::CriterioInizia(da + "NumDocCarico", cercato.testo) + " OR " +
                           sql::CriterioContiene(da + "Chiave", cercato.testo);
  if (cercato.numero) condizione += " OR " + sql::Criterio(da + "NumDoc", "=", *cercato.numero);
  for (const auto& [classe, codici] : ledger::ContiCercati(Tessarc(), cercato.testo)) {
    if (classe == "P") continue;
    condizione.append(" OR (")
        .append(sql::Criterio(da + "CFP", "=", classe))
        .append(" AND ")
        .append(da)
        .append("CliFor IN (")
        .append(codici)
        .append("))");
  }
  return condizione;
}

void ElencoDocumenti::Comincia(const archives::FiltroElenco& filtro) {
  descrizioni_.Dimentica();
  condizione_ = Condizione(filtro.testo);
  letta_ = false;
  finita_ = scelta_.genere == GenereElenco::DelTipo && scelta_.tipo.empty();
}

/// What comes after the last row read.
std::string ElencoDocumenti::Seguito() const {
  if (!letta_) return {};
  const std::string da = std::string(Da()) + ".";
  const std::string numero = sql::Criterio(da + "NumDoc", "<", ultimoNumero_);
  if (scelta_.genere == GenereElenco::DelTipo) return " AND " + numero;
  return " AND " + sql::Criterio(da + "Dt", "<=", ultimaData_) + " AND (" +
         sql::Criterio(da + "Dt", "<", ultimaData_) + " OR " +
         sql::Criterio(da + "TipoDoc", "<", ultimoTipo_) + " OR (" +
         sql::Criterio(da + "TipoDoc", "=", ultimoTipo_) + " AND " + numero + "))";
}

std::vector<ElencoDocumenti::Letto> ElencoDocumenti::Leggi(const std::string& condizione,
                                                           int quanti) {
  const std::string da = std::string(Da()) + ".";
  const std::string ordine = scelta_.genere == GenereElenco::DelTipo
                                 ? da + "NumDoc DESC"
                                 : da + "Dt DESC, " + da + "TipoDoc DESC, " + da + "NumDoc DESC";
  std::vector<Letto> letti;
  const std::string sql =
      "SELECT TOP " + std::to_string(quanti) +
      " TipoDoc, NumDoc, Dt, CFP, CliFor, Mag, NumDocCarico, DtDocCarico, Fatturo, Fattura, "
      "CREATOINAUTOMATICO FROM " +
      Da() + " WHERE " + condizione + " ORDER BY " + ordine;
  for (Rs righe = Tessarc().Recordset(sql); !righe.Eof(); righe.MoveNext()) {
    Letto letto{.tipoDoc = righe.Fields("TipoDoc").Testo(),
                .numDoc = righe.Fields("NumDoc").Intero(),
                .data = righe.Fields("Dt").Data(),
                .cliFor = righe.Fields("CliFor").Testo(),
                .nome = {},
                .mag = righe.Fields("Mag").Testo(),
                .nota = NotaDi(righe),
                .importo = {}};
    if (!letto.cliFor.empty()) {
      letto.nome = descrizioni_.Di(righe.Fields("CFP").Testo(), letto.cliFor);
    }
    letti.push_back(std::move(letto));
  }
  LeggiImporti(letti);
  return letti;
}

void ElencoDocumenti::LeggiImporti(std::vector<Letto>& letti) {
  std::map<std::string, std::string> numeri;  // of each type
  for (const Letto& letto : letti) {
    std::string& suoi = numeri[letto.tipoDoc];
    suoi += (suoi.empty() ? "" : ",") + std::to_string(letto.numDoc);
  }
  std::map<std::string, Importo> importi;
  for (const auto& [tipo, suoi] : numeri) {
    for (Rs righe = Tessarc().Recordset("SELECT NumDoc, SUM(Importo) FROM FattureCli_r WHERE " +
                                        sql::Criterio("TipoDoc", "=", tipo) + " AND " +
                                        sql::Criterio("Anno", "=", ambiente_.Anno()) +
                                        " AND NumDoc IN (" + suoi + ") GROUP BY NumDoc");
         !righe.Eof(); righe.MoveNext()) {
      importi[Chiave(tipo, righe.Fields(0).Intero())] = righe.Fields(1).Importo();
    }
  }
  for (Letto& letto : letti) letto.importo = importi[Chiave(letto.tipoDoc, letto.numDoc)];
}

archives::FonteElenco::Righe ElencoDocumenti::Avanti() {
  if (finita_) return {};
  const auto letti = Leggi(condizione_ + Seguito(), kPaginaDocumenti);
  finita_ = letti.size() < static_cast<std::size_t>(kPaginaDocumenti);
  Righe righe;
  for (const Letto& letto : letti) {
    righe.push_back({letto.tipoDoc, letto.numDoc, letto.data, letto.cliFor, letto.nome, letto.mag,
                     letto.importo, letto.nota, Chiave(letto.tipoDoc, letto.numDoc)});
  }
  if (!letti.empty()) {
    letta_ = true;
    ultimaData_ = letti.back().data;
    ultimoTipo_ = letti.back().tipoDoc;
    ultimoNumero_ = letti.back().numDoc;
  }
  return righe;
}

SommaElenco ElencoDocumenti::Somma() {
  SommaElenco somma;
  if (condizione_.empty() || (scelta_.genere == GenereElenco::DelTipo && scelta_.tipo.empty())) {
    return somma;
  }
  const std::string da = Da();
  somma.documenti =
      Tessarc().Singolo("SELECT COUNT(*) FROM " + da + " WHERE " + condizione_).Intero();
  somma.righe =
      Nz(Tessarc().Singolo(
             "SELECT SUM(FattureCli_r.Importo) FROM FattureCli_r INNER JOIN " + da +
             " ON (FattureCli_r.TipoDoc = " + da + ".TipoDoc) AND (FattureCli_r.Anno = " + da +
             ".Anno) AND (FattureCli_r.NumDoc = " + da + ".NumDoc) WHERE " + condizione_))
          .Importo();
  return somma;
}

std::string ElencoDocumenti::Testo(const std::string& tipoDoc, std::int64_t numDoc) {
  const GenereElenco genere = std::exchange(scelta_.genere, GenereElenco::DelTipo);
  const auto letti = Leggi(sql::Criterio("TipoDoc", "=", tipoDoc) + " AND " +
                               sql::Criterio("Anno", "=", ambiente_.Anno()) + " AND " +
                               sql::Criterio("NumDoc", "=", numDoc),
                           1);
  scelta_.genere = genere;
  if (letti.empty()) return {};
  const Letto& letto = letti.front();
  return letto.data.Testo() + "   " + ScriviImporto(letto.importo, ambiente_.Euro() ? 2 : 0) +
         "   " + letto.cliFor + "  " + letto.nome;
}

std::string ElencoDocumenti::Chiave(const std::string& tipoDoc, std::int64_t numDoc) {
  return tipoDoc + "/" + std::to_string(numDoc);
}

IdentitaDocumento ElencoDocumenti::DallaChiave(const std::string& chiave) const {
  const std::size_t barra = chiave.rfind('/');
  if (barra == std::string::npos) return {};
  return {chiave.substr(0, barra), ambiente_.Anno(),
          Rinvio{.codice = chiave.substr(barra + 1)}.Numero()};
}

}  // namespace fenalto::documents
