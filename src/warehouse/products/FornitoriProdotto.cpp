#include "warehouse/products/FornitoriProdotto.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/archives/CodiciNoti.h"
#include "core/records/RigheInTabella.h"
#include "core/sql/Criterio.h"
#include "core/values/Aritmetica.h"
#include "core/values/Testo.h"

namespace fenalto::warehouse {
namespace {

using records::Campo;

constexpr const char* kTabellaFornitori = "prodottiFor_r";

/// Fields of the row frame.
constexpr records::CampoRiga<FornitoreProdotto> kCampiRiquadro[] = {
    Campo<&FornitoreProdotto::posi>("Posi"),
    Campo<&FornitoreProdotto::fornitore>("Fornitore"),
    Campo<&FornitoreProdotto::codPrFor>("codprfor"),
    Campo<&FornitoreProdotto::descrizione>("xDescrizione"),
    Campo<&FornitoreProdotto::prezzo>("Prezzox"),
    Campo<&FornitoreProdotto::sc1>("xSc1"),
    Campo<&FornitoreProdotto::sc2>("xSc2"),
    Campo<&FornitoreProdotto::sc3>("xSc3")};

std::vector<FornitoreProdotto> LeggiFornitori(Ambiente& ambiente, const std::string& cod) {
  std::vector<FornitoreProdotto> letti;
  if (cod.empty()) return letti;
  for (Rs rs = ambiente.ArchivioDi("tessarc").Recordset("select * from prodottiFor_r where " +
                                                        sql::Criterio("Cod", "=", cod) +
                                                        " order by Posi");
       !rs.Eof(); rs.MoveNext()) {
    letti.push_back(records::LeggiRiga(rs, CampiFornitoreProdotto()));
  }
  return letti;
}

bool StessiFornitori(const std::vector<FornitoreProdotto>& a,
                     const std::vector<FornitoreProdotto>& b) {
  return std::ranges::equal(a, b, [](const FornitoreProdotto& x, const FornitoreProdotto& y) {
    return records::Valori(x, CampiFornitoreProdotto()) ==
           records::Valori(y, CampiFornitoreProdotto());
  });
}

}  // namespace

FornitoriProdotto::FornitoriProdotto() : righe_(kCampiRiquadro) {}

void FornitoriProdotto::Leggi(Ambiente& ambiente, const std::string& cod) {
  letti_ = LeggiFornitori(ambiente, cod);
  righe_.Carica(letti_);
}

void FornitoriProdotto::Copiati() {
  righe_.Annulla();
  letti_.clear();
  righe_.Modificate(!Righe().empty());
}

bool FornitoriProdotto::Nuova() {
  if (InRiga()) return false;
  FornitoreProdotto nuova;
  nuova.posi = righe_.ProssimaPosi(1);
  righe_.Nuova(nuova);
  return true;
}

bool FornitoriProdotto::Apri(std::int64_t posi) {
  return !InRiga() && righe_.Apri(&FornitoreProdotto::posi, posi);
}

std::optional<Rifiuto> FornitoriProdotto::Difetto(Ambiente& ambiente,
                                                  const FornitoreProdotto& riga) const {
  if (riga.fornitore.empty()) return Rifiuto{"manca fornitore", "Fornitore"};
  const bool gia = std::ranges::any_of(Righe(), [&](const FornitoreProdotto& altra) {
    return &altra != righe_.Aperta() && UgualeTesto(altra.fornitore, riga.fornitore);
  });
  if (gia) return Rifiuto{"fornitore già esistente", "Fornitore"};
  // One whose archive has lost it stays until it is typed anew.
  if (righe_.Aperta() == nullptr || !UgualeTesto(righe_.Aperta()->fornitore, riga.fornitore)) {
    const auto ignoto =
        archives::CodiceIgnoto(ambiente, {"Fornitore", "Fornitore", "fornitori"}, riga.fornitore);
    if (ignoto) return ignoto;
  }
  constexpr std::array kSconti = {std::pair{&FornitoreProdotto::sc1, "xSc1"},
                                  std::pair{&FornitoreProdotto::sc2, "xSc2"},
                                  std::pair{&FornitoreProdotto::sc3, "xSc3"}};
  for (const auto& [sconto, campo] : kSconti) {
    if (riga.*sconto > kScontoMassimo) return Rifiuto{kScontoTroppoAlto, campo};
  }
  return std::nullopt;
}

bool FornitoriProdotto::Conferma(Ambiente& ambiente, std::string* campo) {
  if (!InRiga()) return false;
  FornitoreProdotto riga = righe_.Digitata();
  for (std::string* testo : {&riga.fornitore, &riga.codPrFor}) *testo = std::string(Rifila(*testo));
  if (const auto rifiuto = Difetto(ambiente, riga)) {
    if (campo != nullptr) *campo = rifiuto->campo;
    ambiente.Dialogo().Messaggio(rifiuto->messaggio, Icona::Avviso);
    return false;
  }
  righe_.Sostituisci(righe_.Con(std::move(riga)));
  return true;
}

bool FornitoriProdotto::Elimina(Dialoghi& dialogo) {
  if (!InRiga()) return false;
  if (RigaNuova()) {
    Annulla();
    return true;
  }
  if (!dialogo.Conferma("Conferma eliminazione RIGA ?")) return false;
  righe_.Sostituisci(righe_.Senza());
  return true;
}

Importo FornitoriProdotto::Costo() const {
  const FornitoreProdotto riga = righe_.Digitata();
  return PrezzoNetto(riga.prezzo, riga.sc1, riga.sc2, riga.sc3);
}

bool FornitoriProdotto::CambiatiAltrove(Ambiente& ambiente, const std::string& cod) const {
  return Modificati() && !StessiFornitori(LeggiFornitori(ambiente, cod), letti_);
}

void FornitoriProdotto::Scrivi(Ambiente& ambiente, const std::string& codicePrima,
                               const std::string& codice) const {
  const bool stesso = UgualeTesto(codicePrima, codice);
  if (!Modificati()) {
    if (stesso || codicePrima.empty()) return;
    ambiente.ArchivioDi("tessarc").Esegui(
        "update prodottiFor_r set Cod=" + sql::LetteraleSql(codice) + " where " +
        sql::Criterio("Cod", "=", codicePrima));
    return;
  }
  if (!codicePrima.empty() && !stesso) EliminaTutti(ambiente, codicePrima);
  EliminaTutti(ambiente, codice);
  records::ScriviRighe(ambiente.ArchivioDi("tessarc"), kTabellaFornitori, Righe(),
                       CampiFornitoreProdotto(), {{"Cod", codice}});
}

void FornitoriProdotto::EliminaTutti(Ambiente& ambiente, const std::string& codice) {
  records::EliminaRighe(ambiente.ArchivioDi("tessarc"), kTabellaFornitori, {{"Cod", codice}});
}

}  // namespace fenalto::warehouse
