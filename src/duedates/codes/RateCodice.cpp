#include "duedates/codes/RateCodice.h"

#include <algorithm>
#include <iterator>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto::duedates {

namespace {

constexpr const char* kTabella = "Pagamento_r";
const Importo kCento = Importo::DaUnita(100);

RataPagamento DaScheda(const Scheda& riga) {
  return RataDaCampi([&](std::string_view campo) { return riga.Leggi(campo); });
}

std::vector<Coppia> CampiDellaRata(const RataPagamento& rata) {
  return {{"Rata", rata.rata},
          {"PercImporto", rata.percImporto},
          {"DopoMesi", rata.dopoMesi},
          {"DopoGiorni", rata.dopoGiorni},
          {"FineMese", rata.fineMese},
          {"DataFattura", rata.dataFattura},
          {"GiornoFisso", rata.giornoFisso},
          {"GGFisso", rata.ggFisso},
          {"Tipo", rata.tipo},
          {"Descrizione", rata.descrizione}};
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

RateCodice::RateCodice(Ambiente& ambiente) : ambiente_(ambiente) {
  const sql::TabellaCatalogo* tabella = ambiente.ArchivioDi("tessarc").Catalogo().Tabella(kTabella);
  if (tabella != nullptr) riga_ = Scheda(*tabella);
}

void RateCodice::Leggi(const std::string& cod) {
  AnnullaRiga();
  righe_ = cod.empty() ? std::vector<RataPagamento>() : LeggiRate(ambiente_, cod);
  modificate_ = false;
}

void RateCodice::Copiate() {
  AnnullaRiga();
  modificate_ = !righe_.empty();
}

const std::vector<RataPagamento>& RateCodice::Righe() const {
  return righe_;
}

bool RateCodice::Modificate() const {
  return modificate_;
}

bool RateCodice::InRiga() const {
  return inRiga_;
}

bool RateCodice::RigaNuova() const {
  return inRiga_ && rataPrima_.empty();
}

Scheda& RateCodice::Riga() {
  return riga_;
}

void RateCodice::Mostra(const RataPagamento& rata) {
  riga_.Svuota();
  for (const auto& [campo, valore] : CampiDellaRata(rata)) riga_.Scrivi(campo, valore);
  riga_.Consolida();
  inRiga_ = true;
}

bool RateCodice::NuovaRiga() {
  if (inRiga_) return false;
  RataPagamento rata;
  if (righe_.empty()) {
    rata.dopoMesi = 1;
    rata.dataFattura = true;
  } else {
    rata = righe_.back();
    rata.dopoMesi += 1;
    rata.descrizione.clear();
  }
  rata.rata = NumeroDopo(righe_);
  rata.percImporto = std::max(kCento - SommaPercentuali(), Importo());
  rataPrima_.clear();
  Mostra(rata);
  return true;
}

bool RateCodice::ApriRiga(const std::string& rata) {
  const auto trovata = Trova(rata);
  if (inRiga_ || trovata == righe_.end()) return false;
  rataPrima_ = trovata->rata;
  Mostra(*trovata);
  return true;
}

void RateCodice::Lasciato(const std::string& campo) {
  constexpr const char* kModi[] = {"FineMese", "DataFattura", "GiornoFisso"};
  const auto modo = [&](const char* nome) { return UgualeTesto(nome, campo); };
  if (std::none_of(std::begin(kModi), std::end(kModi), modo) || !riga_.Leggi(campo).Booleano())
    return;
  for (const char* altro : kModi) {
    if (!modo(altro)) riga_.Scrivi(altro, false);
  }
}

bool RateCodice::Rifiuta(const char* messaggio, const char* campo, Rifiuto* rifiuto) {
  if (rifiuto != nullptr) *rifiuto = {messaggio, campo};
  ambiente_.Dialogo().Messaggio(messaggio, Icona::Avviso);
  return false;
}

bool RateCodice::ConfermaRiga(Rifiuto* rifiuto) {
  if (!inRiga_) return false;
  RataPagamento rata = DaScheda(riga_);
  const bool stessa = !rataPrima_.empty() && rata.rata == rataPrima_;
  if (rata.percImporto.Zero())
    return Rifiuta("non si puù impostare una percentuale=0", "PercImporto", rifiuto);
  if (!stessa) {
    const auto numero = DueCifre(rata.rata);
    if (!numero) return Rifiuta("numero rata: valore ammesso da 01 a 10", "Rata", rifiuto);
    rata.rata = *numero;
    if (rata.rata != rataPrima_ && Trova(rata.rata) != righe_.end())
      return Rifiuta("Rata già esistente", "Rata", rifiuto);
  }
  if (rata.giornoFisso && !rata.fineMese && !rata.dataFattura &&
      (rata.ggFisso < 1 || rata.ggFisso > 31))
    return Rifiuta("giorno fisso: valore ammesso da 1 a 31", "GGFisso", rifiuto);
  if (!rataPrima_.empty()) righe_.erase(Trova(rataPrima_));
  const auto posto = std::lower_bound(
      righe_.begin(), righe_.end(), rata,
      [](const RataPagamento& a, const RataPagamento& b) { return a.rata < b.rata; });
  righe_.insert(posto, std::move(rata));
  modificate_ = true;
  AnnullaRiga();
  return true;
}

bool RateCodice::EliminaRiga() {
  if (!inRiga_) return false;
  if (!rataPrima_.empty()) {
    if (!ambiente_.Dialogo().Conferma("Conferma eliminazione RIGA ?")) return false;
    righe_.erase(Trova(rataPrima_));
    modificate_ = true;
  }
  AnnullaRiga();
  return true;
}

void RateCodice::AnnullaRiga() {
  inRiga_ = false;
  rataPrima_.clear();
  riga_.Svuota();
}

CodicePagamento RateCodice::Codice(const Scheda& scheda) const {
  CodicePagamento codice =
      CodiceDaCampi([&](std::string_view campo) { return scheda.Leggi(campo); });
  codice.rate = righe_;
  return codice;
}

Importo RateCodice::SommaPercentuali() const {
  Importo somma;
  for (const RataPagamento& riga : righe_) somma += riga.percImporto;
  return somma;
}

void RateCodice::Scrivi(const std::string& codicePrima, const std::string& codice) {
  // Rates under the new code can only be what a deletion by another program left behind.
  if (!codicePrima.empty()) Elimina(codicePrima);
  Elimina(codice);
  for (const RataPagamento& riga : righe_) {
    std::vector<Coppia> campi = CampiDellaRata(riga);
    campi.emplace_back("Cod", codice);
    ambiente_.ArchivioDi("tessarc").Inserisci(kTabella, campi);
  }
}

void RateCodice::Elimina(const std::string& codice) {
  ambiente_.ArchivioDi("tessarc").Esegui(std::string("delete * from ") + kTabella + " where " +
                                         sql::Criterio("Cod", "=", codice));
}

std::vector<RataPagamento>::iterator RateCodice::Trova(const std::string& rata) {
  return std::find_if(righe_.begin(), righe_.end(),
                      [&](const RataPagamento& riga) { return riga.rata == rata; });
}

}  // namespace fenalto::duedates
