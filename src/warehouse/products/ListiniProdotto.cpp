#include "warehouse/products/ListiniProdotto.h"

#include <algorithm>
#include <array>

#include "core/records/CampoRiga.h"
#include "core/records/Conferma.h"
#include "core/records/RigheInTabella.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "warehouse/products/Prodotto.h"

namespace fenalto::warehouse {
namespace {

using records::Campo;

constexpr records::CampoRiga<RigaListino> kCampiTabella[] = {
    Campo<&RigaListino::posi>("Posi"),     Campo<&RigaListino::codPrCli>("CodPrCli"),
    Campo<&RigaListino::prezzo>("Prezzo"), Campo<&RigaListino::sc1>("Sc1"),
    Campo<&RigaListino::sc2>("Sc2"),       Campo<&RigaListino::sc3>("Sc3"),
    Campo<&RigaListino::prov>("Prov"),     Campo<&RigaListino::dt>("Dt")};

constexpr records::CampoRiga<RigaListino> kCampiListino[] = {
    Campo<&RigaListino::listino>("LListino"), Campo<&RigaListino::codPrCli>("LCodPrCli"),
    Campo<&RigaListino::prezzo>("LPrezzo"),   Campo<&RigaListino::sc1>("LSc1"),
    Campo<&RigaListino::sc2>("LSc2"),         Campo<&RigaListino::sc3>("LSc3"),
    Campo<&RigaListino::prov>("LProv"),       Campo<&RigaListino::dt>("LDt")};

constexpr std::span<const records::CampoRiga<RigaListino>> DellaTabella() {
  return kCampiTabella;
}
constexpr std::span<const records::CampoRiga<RigaListino>> DelRiquadro() {
  return kCampiListino;
}

}  // namespace

ListiniProdotto::ListiniProdotto(Ambiente& ambiente) : ambiente_(ambiente) {
  records::AggiungiCampi(riga_, DelRiquadro());
}

void ListiniProdotto::Leggi(const std::string& prodotto) {
  prodotto_ = prodotto;
  inRiga_ = false;
  presente_.clear();
  assente_.clear();
  Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
  if (!prodotto.empty()) {
    for (Rs rs = tessarc.Recordset("SELECT * FROM Listini_r where " +
                                   sql::Criterio("CodiceRiga", "=", prodotto) + " order by Cod");
         !rs.Eof(); rs.MoveNext()) {
      RigaListino riga = records::LeggiRiga(rs, DellaTabella());
      riga.listino = rs.Fields("Cod").Testo();
      presente_.push_back(std::move(riga));
    }
  }
  for (Rs rs = tessarc.Recordset("SELECT Cod FROM Listini order by cod"); !rs.Eof();
       rs.MoveNext()) {
    std::string listino = rs.Fields(0).Testo();
    const bool presente = std::ranges::any_of(
        presente_, [&](const RigaListino& r) { return UgualeTesto(r.listino, listino); });
    if (!presente) assente_.push_back(std::move(listino));
  }
}

void ListiniProdotto::Apri(const RigaListino& riga) {
  riga_.Svuota();
  records::MostraCampi(riga_, DelRiquadro(), riga);
  riga_.Consolida();
  aperta_ = riga;
  inRiga_ = true;
}

bool ListiniProdotto::Modifica(const std::string& listino) {
  const auto riga = std::ranges::find(presente_, listino, &RigaListino::listino);
  if (riga == presente_.end() ||
      !ambiente_.Dialogo().Conferma("vuoi modificare prezzo, sconti ecc. sul listino " + listino)) {
    return false;
  }
  nuova_ = false;
  Apri(*riga);
  return true;
}

bool ListiniProdotto::Aggiungi(const std::string& listino, bool prodottoNuovo,
                               const Scheda& prodotto) {
  if (prodottoNuovo) {
    ambiente_.Dialogo().Messaggio(
        "per aggiunger un nuovo prodotto su di un listino è necessario prima confermare il nuovo "
        "prodotto",
        Icona::Avviso);
    return false;
  }
  if (!ambiente_.Dialogo().Conferma("vuoi aggiungere sul listino " + listino + " il prodotto " +
                                    prodotto_ + " con relativo prezzo, sconti, ecc.")) {
    return false;
  }
  nuova_ = true;
  Apri({.listino = listino,
        .prezzo = prodotto.Leggi("Prezzo").Importo(),
        .sc1 = prodotto.Leggi("Sc").Importo(),
        .sc2 = prodotto.Leggi("Sc2").Importo(),
        .sc3 = prodotto.Leggi("Sc3").Importo(),
        .prov = prodotto.Leggi("Prov").Importo(),
        .dt = ambiente_.Ora().Oggi()});
  return true;
}

std::string ListiniProdotto::Scrivi(const RigaListino& riga) {
  Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
  const auto valori = records::Valori(riga, DellaTabella());
  if (nuova_) {
    const std::string suoi = " FROM Listini_r WHERE " + sql::Criterio("Cod", "=", riga.listino);
    if (!tessarc
             .Singolo("SELECT Top 1 Posi" + suoi + " AND " +
                      sql::Criterio("CodiceRiga", "=", prodotto_))
             .Nullo()) {
      return "il prodotto " + prodotto_ + " è già sul listino " + riga.listino +
             ": lo ha aggiunto un'altra stazione";
    }
    auto campi = valori;
    campi.front().second = Nz(tessarc.Singolo("SELECT Max(Posi)" + suoi)).Intero() + 1;
    campi.emplace_back("Cod", riga.listino);
    campi.emplace_back("CodiceRiga", prodotto_);
    tessarc.Inserisci("Listini_r", campi);
    return {};
  }
  std::string sql = "UPDATE Listini_r SET ";
  const char* fra = "";
  for (const auto& [campo, valore] : valori) {
    if (campo == "Posi") continue;
    sql.append(fra).append(campo).append("=").append(sql::LetteraleSql(valore));
    fra = ",";
  }
  sql += " WHERE " + sql::Criterio("Cod", "=", riga.listino) + " AND " +
         sql::Criterio("POSI", "=", riga.posi) + " AND " +
         sql::Criterio("CodiceRiga", "=", prodotto_);
  if (tessarc.Esegui(sql) == 1) return {};
  return "la riga del listino " + riga.listino + " è stata eliminata da un'altra stazione";
}

bool ListiniProdotto::Conferma(std::string* campo) {
  if (!inRiga_) return false;
  RigaListino riga = records::LeggiCampi(riga_, DelRiquadro(), aperta_);
  for (const char* sconto : {"LSc1", "LSc2", "LSc3"}) {
    if (riga_.Leggi(sconto).Importo() <= kScontoMassimo) continue;
    if (campo != nullptr) *campo = sconto;
    ambiente_.Dialogo().Messaggio(kScontoTroppoAlto, Icona::Avviso);
    return false;
  }
  // The day of a change is that of its writing, unless another one was typed.
  if (riga_.Modificata() && !riga_.Modificata("LDt")) riga.dt = ambiente_.Ora().Oggi();
  const bool scritta = records::Esegui(
      ambiente_, {.nonRiuscita = "aggiornamento del listino " + riga.listino + " non riuscito: ",
                  .ambito = Transazione::Ambito::Tessarc,
                  .scrivi = [&] { return Scrivi(riga); }});
  if (scritta) inRiga_ = false;
  return scritta;
}

}  // namespace fenalto::warehouse
