#include "duedates/codes/RateCodice.h"

#include <algorithm>
#include <iterator>

#include "core/archives/CodiciNoti.h"
#include "core/records/RigheInTabella.h"
#include "core/values/Testo.h"

namespace fenalto::duedates {

namespace {

constexpr const char* kTabella = "Pagamento_r";
const Importo kCento = Importo::DaUnita(100);

bool PerNumero(const RataPagamento& a, const RataPagamento& b) {
  return a.rata < b.rata;
}

/// "1" and "01" are the same rate; nothing for what isn't a number from 1 to 10.
std::optional<std::string> DueCifre(std::string_view testo) {
  testo = Rifila(testo);
  if (testo.empty() || testo.size() > 2) return std::nullopt;
  int numero = 0;
  for (const char c : testo) {
    if (c < '0' || c > '9') return std::nullopt;
    numero = numero * 10 + (c - '0');
  }
  if (numero < 1 || numero > static_cast<int>(kRateMassime)) return std::nullopt;
  return (numero < 10 ? "0" : "") + std::to_string(numero);
}

std::string NumeroDopo(const std::vector<RataPagamento>& righe) {
  std::string ultimo;
  for (const RataPagamento& riga : righe) ultimo = std::max(ultimo, riga.rata);
  const auto numero = DueCifre(ultimo);
  return DueCifre(std::to_string(numero ? std::stoi(*numero) + 1 : 1)).value_or("");
}

}  // namespace

RateCodice::RateCodice(Ambiente& ambiente) : ambiente_(ambiente), righe_(CampiRata(), PerNumero) {}

void RateCodice::Leggi(const std::string& cod) {
  righe_.Carica(cod.empty() ? std::vector<RataPagamento>() : LeggiRate(ambiente_, cod));
}

void RateCodice::Copiate() {
  righe_.Annulla();
  righe_.Modificate(!Righe().empty());
}

bool RateCodice::NuovaRiga() {
  if (InRiga()) return false;
  RataPagamento rata;
  if (Righe().empty()) {
    rata.dopoMesi = 1;
    rata.dataFattura = true;
  } else {
    rata = Righe().back();
    rata.dopoMesi += 1;
    rata.descrizione.clear();
  }
  rata.rata = NumeroDopo(Righe());
  rata.percImporto = std::max(kCento - SommaPercentuali(), Importo());
  righe_.Nuova(rata);
  return true;
}

bool RateCodice::ApriRiga(const std::string& rata) {
  return !InRiga() && righe_.Apri(&RataPagamento::rata, rata);
}

void RateCodice::Lasciato(const std::string& campo) {
  constexpr const char* kModi[] = {"FineMese", "DataFattura", "GiornoFisso"};
  const auto modo = [&](const char* nome) { return UgualeTesto(nome, campo); };
  if (std::none_of(std::begin(kModi), std::end(kModi), modo) || !Riga().Leggi(campo).Booleano())
    return;
  for (const char* altro : kModi) {
    if (!modo(altro)) Riga().Scrivi(altro, false);
  }
}

bool RateCodice::Rifiuta(const std::string& messaggio, const char* campo, Rifiuto* rifiuto) {
  if (rifiuto != nullptr) *rifiuto = {messaggio, campo};
  ambiente_.Dialogo().Messaggio(messaggio, Icona::Avviso);
  return false;
}

bool RateCodice::ConfermaRiga(Rifiuto* rifiuto) {
  if (!InRiga()) return false;
  RataPagamento rata = righe_.Digitata();
  const std::string prima = RigaNuova() ? std::string() : righe_.Aperta()->rata;
  const bool stessa = !prima.empty() && rata.rata == prima;
  if (rata.percImporto.Zero())
    return Rifiuta("non si puù impostare una percentuale=0", "PercImporto", rifiuto);
  if (!stessa) {
    const auto numero = DueCifre(rata.rata);
    if (!numero) return Rifiuta("numero rata: valore ammesso da 01 a 10", "Rata", rifiuto);
    rata.rata = *numero;
    if (rata.rata != prima && Esiste(rata.rata))
      return Rifiuta("Rata già esistente", "Rata", rifiuto);
  }
  if (rata.giornoFisso && !rata.fineMese && !rata.dataFattura &&
      (rata.ggFisso < 1 || rata.ggFisso > 31))
    return Rifiuta("giorno fisso: valore ammesso da 1 a 31", "GGFisso", rifiuto);
  const bool stessoTipo = !RigaNuova() && UgualeTesto(rata.tipo, righe_.Aperta()->tipo);
  const auto ignoto =
      archives::CodiceIgnoto(ambiente_, {"Tipo", "Tipo", "tipiPagamento"}, rata.tipo);
  if (ignoto && !stessoTipo) return Rifiuta(ignoto->messaggio, "Tipo", rifiuto);
  righe_.Sostituisci(righe_.Con(std::move(rata)));
  return true;
}

bool RateCodice::EliminaRiga() {
  if (!InRiga()) return false;
  if (RigaNuova()) {
    AnnullaRiga();
    return true;
  }
  if (!ambiente_.Dialogo().Conferma("Conferma eliminazione RIGA ?")) return false;
  righe_.Sostituisci(righe_.Senza());
  return true;
}

CodicePagamento RateCodice::Codice(const Scheda& scheda) const {
  CodicePagamento codice =
      CodiceDaCampi([&](std::string_view campo) { return scheda.Leggi(campo); });
  codice.rate = Righe();
  return codice;
}

Importo RateCodice::SommaPercentuali() const {
  Importo somma;
  for (const RataPagamento& riga : Righe()) somma += riga.percImporto;
  return somma;
}

void RateCodice::Scrivi(const std::string& codicePrima, const std::string& codice) {
  // Rates under the new code can only be what a deletion by another program left behind.
  if (!codicePrima.empty()) Elimina(codicePrima);
  Elimina(codice);
  records::ScriviRighe(ambiente_.ArchivioDi("tessarc"), kTabella, Righe(), righe_.Campi(),
                       {{"Cod", codice}});
}

void RateCodice::Elimina(const std::string& codice) {
  records::EliminaRighe(ambiente_.ArchivioDi("tessarc"), kTabella, {{"Cod", codice}});
}

bool RateCodice::Esiste(const std::string& rata) const {
  return std::ranges::any_of(Righe(), [&](const RataPagamento& riga) { return riga.rata == rata; });
}

}  // namespace fenalto::duedates
