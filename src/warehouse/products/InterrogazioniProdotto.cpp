#include "warehouse/products/InterrogazioniProdotto.h"

#include <array>
#include <stdexcept>
#include <utility>

#include "core/sql/Criterio.h"
#include "core/sql/CriterioDopo.h"
#include "core/values/Aritmetica.h"

namespace fenalto::warehouse {
namespace {

using Genere = GenereInterrogazione;
using Colonne = std::vector<ColonnaInterrogazione>;

constexpr int kPaginaRighe = 200;

Colonne Concatena(Colonne a, const Colonne& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

Colonne ColonneDocumento() {
  return {{"N.", Tipo::Intero, 45, "num"},
          {"Documento", Tipo::Testo, 260, "documento"},
          {"Data", Tipo::Data, 85, "data"},
          {"Tipo", Tipo::Testo, 60, "tipo"},
          {"N. doc.", Tipo::Intero, 70, "Ndoc"},
          {"Quantità", Tipo::Importo, 85, "quant"},
          {"Prezzo", Tipo::Importo, 90, "prezzo", true},
          {"Descrizione sul documento", Tipo::Testo, 220, "descrizione_sul_documento"},
          {"Anno", Tipo::Intero, 55, "anno"}};
}

Colonne ColonneOrdine(const char* parte) {
  return {{"Numero", Tipo::Intero, 70, "NumDoc"},
          {"Data", Tipo::Data, 85, "Dt"},
          {parte, Tipo::Testo, 80, "Parte"},
          {"Ragione sociale", Tipo::Testo, 180, "RagSoc1"},
          {"Riferimento", Tipo::Testo, 110, "Riferim"},
          {"Descrizione", Tipo::Testo, 170},
          {"Quantità", Tipo::Importo, 85, "Quantita"}};
}

Colonne ColonnePrezzo(const char* consegna) {
  return {{"Prezzo", Tipo::Importo, 90, "Prezzo", true},
          {"Sconti", Tipo::Testo, 80, "Sconti"},
          {consegna, Tipo::Data, 85, "DtCons"}};
}

Colonne ColonneEvase() {
  return {{"Evasa", Tipo::Importo, 80, "Evasa"},
          {"Residua", Tipo::Importo, 80, "Residua"},
          {"Saldato", Tipo::Booleano, 65, "Saldo"}};
}

Colonne ColonneCommessa() {
  return {{"Numero", Tipo::Intero, 70, "NumDoc"},
          {"Data", Tipo::Data, 85, "Dt"},
          {"Cliente", Tipo::Testo, 80, "Parte"},
          {"Ragione sociale", Tipo::Testo, 180, "RagSoc1"},
          {"Rif. interno", Tipo::Testo, 110, "RifInt"},
          {"Descrizione", Tipo::Testo, 170},
          {"Quantità", Tipo::Importo, 85, "Quantita"},
          {"Utilizzata", Tipo::Importo, 80, "Evasa"},
          {"Residua", Tipo::Importo, 80, "Residua"},
          {"Già utilizzato", Tipo::Booleano, 90, "Ut"}};
}

std::string Sconti(const Rs& rs) {
  std::string testo;
  for (const char* campo : {"Sc1", "Sc2", "Sc3"}) {
    const Importo sconto = rs.Fields(campo).Importo();
    if (sconto.Zero()) continue;
    testo += (testo.empty() ? "" : "+") + sconto.Testo();
  }
  for (char& c : testo) {
    if (c == '.') c = ',';
  }
  return testo;
}

}  // namespace

std::span<const Interrogazione> InterrogazioniProdotto() {
  constexpr const char* kSaldati = "anche ordini saldati";
  static const std::array kInterrogazioni = {
      Interrogazione{Genere::NoMovMag, "Documenti senza movimentazione magazzino", "Senza mov.",
                     "GridNoMovMag", "RefreshNoMovMag", nullptr, nullptr, ColonneDocumento()},
      Interrogazione{Genere::SituazioneDdt, "DDT da fatturare", "Ddt da fatt.", "GridSituazioneDdt",
                     "RefreshSituazioneDdt", nullptr, nullptr, ColonneDocumento()},
      Interrogazione{Genere::OrdiniCli, "Ordini clienti", "Ord. clienti", "GridOrdiniCli",
                     "RefreshOrdiniCli", kSaldati, "AncheSaldatiCli",
                     Concatena(Concatena(ColonneOrdine("Cliente"), ColonneEvase()),
                               ColonnePrezzo("Consegna"))},
      Interrogazione{Genere::OrdiniFor, "Ordini fornitori", "Ord. fornit.", "GridOrdiniFor",
                     "RefreshOrdiniFor", kSaldati, "AncheSaldatiFor",
                     Concatena(Concatena(ColonneOrdine("Fornitore"), ColonneEvase()),
                               ColonnePrezzo("Consegna"))},
      Interrogazione{Genere::Offerte, "Offerte clienti", "Off. clienti", "GridOfferte",
                     "RefreshOfferte", nullptr, nullptr,
                     Concatena(ColonneOrdine("Cliente"), ColonnePrezzo("Valida al"))},
      Interrogazione{Genere::OffFor, "Offerte fornitori", "Off. fornit.", "GridOffFor",
                     "RefreshOffFor", nullptr, nullptr,
                     Concatena(ColonneOrdine("Fornitore"), ColonnePrezzo("Valida al"))},
      Interrogazione{Genere::Commesse, "Commesse", "Commesse", "GridCommesse", "RefreshCommesse",
                     "anche materiale già utilizzato", "AncheUtilizzato", ColonneCommessa()}};
  return kInterrogazioni;
}

/// How a kind is read.
struct LettoreInterrogazione::Forma {
  Genere genere;
  const char* vista;
  const char* condizione;  ///< fixed; empty for none
  const char* aperte;      ///< of those that the check box doesn't add
  /// Columns that order the rows and tell them apart, which the view has.
  std::vector<const char*> chiavi;
  bool delAnno = false;
};

const LettoreInterrogazione::Forma& LettoreInterrogazione::FormaDi(Genere genere) {
  static const std::vector<const char*> kDiDocumento = {"Dt", "TipoDoc", "NumDoc", "Posi"};
  static const std::vector<const char*> kDiDocumentoAnni = {"Dt", "TipoDoc", "NumDoc", "Anno",
                                                            "Posi"};
  static const std::vector<const char*> kDiOrdine = {"Dt", "NumDoc", "Posi"};
  static const std::array kForme = {
      Forma{Genere::NoMovMag, "zRigheConParte", "CS=''", "", kDiDocumento, true},
      Forma{Genere::SituazioneDdt, "zDdtDaFatturare_r", "", "", kDiDocumentoAnni},
      Forma{Genere::OrdiniCli, "zordinicli_r", "TipoDoc='O'", "SALDO=false", kDiOrdine},
      Forma{Genere::OrdiniFor, "zordinifor_r", "TipoDoc='O'", "SALDO=false", kDiOrdine},
      Forma{Genere::Offerte, "zordinicli_r", "TipoDoc='F'", "", kDiOrdine},
      Forma{Genere::OffFor, "zOfferteFor_r", "", "", kDiOrdine},
      Forma{Genere::Commesse, "zcommesse_r", "", "ut=false", kDiOrdine}};
  for (const Forma& forma : kForme) {
    if (forma.genere == genere) return forma;
  }
  throw std::logic_error("interrogazione sconosciuta");
}

LettoreInterrogazione::LettoreInterrogazione(Ambiente& ambiente, Genere genere,
                                             std::string prodotto, bool tutti)
    : ambiente_(ambiente), genere_(genere), prodotto_(std::move(prodotto)), tutti_(tutti) {}

std::vector<std::vector<Valore>> LettoreInterrogazione::Avanti() {
  std::vector<std::vector<Valore>> righe;
  if (finita_ || prodotto_.empty()) return righe;
  const Forma& forma = FormaDi(genere_);
  std::string sql = "SELECT TOP " + std::to_string(kPaginaRighe) + " * FROM " + forma.vista +
                    " WHERE " + sql::Criterio("CodiceRiga", "=", prodotto_);
  if (forma.delAnno) sql += " AND " + sql::Criterio("Anno", "=", ambiente_.Anno());
  if (*forma.condizione != '\0') sql.append(" AND ").append(forma.condizione);
  if (*forma.aperte != '\0' && !tutti_) sql.append(" AND ").append(forma.aperte);
  if (!ultima_.empty()) {
    sql += " AND " + sql::CriterioDopo({forma.chiavi.begin(), forma.chiavi.end()}, ultima_);
  }
  const char* fra = " ORDER BY ";
  for (const char* chiave : forma.chiavi) {
    sql.append(fra).append(chiave);
    fra = ",";
  }
  for (Rs rs = ambiente_.ArchivioDi("tessarc").Recordset(sql); !rs.Eof(); rs.MoveNext()) {
    ultima_.clear();
    for (const char* chiave : forma.chiavi) ultima_.push_back(rs.Fields(chiave));
    righe.push_back(Celle(rs));
  }
  finita_ = righe.size() < static_cast<std::size_t>(kPaginaRighe);
  return righe;
}

/// What was delivered of an order's row, or used of a job's.
Importo LettoreInterrogazione::Evasa(const Rs& rs) const {
  const bool commessa = genere_ == Genere::Commesse;
  std::string sql = "SELECT Sum(Quantita) FROM ";
  sql += commessa ? "ZRigheCommessa WHERE " : "ZRigheOrdine WHERE ";
  sql += sql::Criterio(commessa ? "Commessa" : "Ordine", "=", rs.Fields("NumDoc")) + " AND " +
         sql::Criterio(commessa ? "PosiCommessa" : "PosiOrdine", "=", rs.Fields("Posi")) + " AND ";
  sql += commessa ? "CS='S'" : genere_ == Genere::OrdiniCli ? "CFP='C'" : "CFP='F'";
  const Valore somma = ambiente_.ArchivioDi("tessarc").Singolo(sql);
  return somma.Nullo() ? Importo() : somma.Importo();
}

std::vector<Valore> LettoreInterrogazione::Celle(const Rs& rs) {
  ++lette_;
  const Importo quantita = rs.Fields("Quantita").Importo();
  std::vector<Valore> celle;
  if (genere_ == Genere::NoMovMag || genere_ == Genere::SituazioneDdt) {
    const Importo netto = PrezzoNetto(rs.Fields("Prezzo").Importo(), rs.Fields("Sc1").Importo(),
                                      rs.Fields("Sc2").Importo(), rs.Fields("Sc3").Importo());
    const std::string documento = NzStr(rs.Fields("CliFor")) + " " + NzStr(rs.Fields("RagSoc1"));
    return {lette_,
            documento,
            rs.Fields("Dt"),
            rs.Fields("TipoDoc"),
            rs.Fields("NumDoc"),
            quantita,
            netto,
            rs.Fields("Descrizione"),
            rs.Fields("Anno"),
            rs.Fields("TipoDoc"),
            rs.Fields("Anno"),
            rs.Fields("NumDoc")};
  }
  const bool commessa = genere_ == Genere::Commesse;
  celle = {rs.Fields("NumDoc"),
           rs.Fields("Dt"),
           rs.Fields("Parte"),
           NzStr(rs.Fields("RagSoc1")),
           NzStr(rs.Fields(commessa ? "RifInt" : "Riferim")),
           rs.Fields("Descrizione"),
           quantita};
  if (commessa || genere_ == Genere::OrdiniCli || genere_ == Genere::OrdiniFor) {
    const Importo evasa = Evasa(rs);
    celle.insert(celle.end(), {evasa, quantita - evasa, rs.Fields(commessa ? "Ut" : "SALDO")});
  }
  if (!commessa) {
    celle.insert(celle.end(), {rs.Fields("Prezzo"), Sconti(rs), rs.Fields("DtCons")});
  }
  celle.insert(celle.end(),
               {commessa ? Valore("") : rs.Fields("TipoDoc"), Valore(0), rs.Fields("NumDoc")});
  return celle;
}

Rinvio RinvioDellaRiga(Genere genere, const std::vector<Valore>& riga) {
  if (riga.size() < 3) return {};
  const std::size_t coda = riga.size() - 3;
  Rinvio rinvio{.codice = riga[coda + 2].Testo(),
                .anno = static_cast<int>(riga[coda + 1].Intero()),
                .classe = riga[coda].Testo()};
  switch (genere) {
    case Genere::NoMovMag:
    case Genere::SituazioneDdt:
      rinvio.funzione = "FattureCli";
      break;
    case Genere::OrdiniCli:
    case Genere::Offerte:
      rinvio.funzione = "OrdiniCli";
      break;
    case Genere::OrdiniFor:
    case Genere::OffFor:
      rinvio.funzione = "OrdiniFor";
      break;
    case Genere::Commesse:
      rinvio.funzione = "Commesse";
      break;
  }
  return rinvio;
}

}  // namespace fenalto::warehouse
