#include "duedates/riba/StampaDistinta.h"

#include <algorithm>
#include <memory>
#include <numeric>
#include <string_view>

#include "core/reports/Cornice.h"
#include "core/reports/Sagoma.h"

namespace fenalto::duedates {
namespace {

constexpr const char* kRapporto = "DISTINTA";
/// A line of the file between its two marks.
constexpr std::size_t kLarghezza = kColonneRiba + 2;
constexpr int kPasso = 17;
constexpr int kRighePerRicevuta = 5;

constexpr const char* kTitolo = "DISTINTA ORDINI DI INCASSO RiBa   n. #####, del $$$$$$$$ ";
constexpr const char* kBanca1 = "Banca : $$$$ $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ abi $$$$$$";
constexpr const char* kBanca2 =
    "             $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ cab $$$$$$  C/C $$$$$$$$$$$$$$$";
constexpr const char* kColonne =
    "| debitore                                     | riferim.fatture / banca e agenzia   "
    "|dt.scad.|      importo | nr.|";
constexpr const char* kRicevuta1 =
    "| $$$$$$$$ $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ | $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ "
    "|        |              |    |";
constexpr const char* kRicevuta2 =
    "|          $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ | $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ "
    "|$$$$$$$$|çççççççççççççç|###,|";
constexpr const char* kRicevuta3 =
    "|          $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ | $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ "
    "|        |              |    |";
constexpr const char* kRicevuta4 =
    "|          $$$$$ $$$$$$$$$$$$$$$$$$$$$$$$$$ $$ | iban $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ "
    "|        |              |    |";
constexpr const char* kPartitaIva =
    "|          P.IVA $$$$$$$$$$$$$$$$              |                                     "
    "|        |              |    |";
constexpr const char* kTotale =
    "|                                              |                   importo totale    "
    "|        |çççççççççççççç|    |";

class Distinta {
 public:
  Distinta(Ambiente& ambiente, reports::FabbricaUscite& uscite, const DatiDistinta& dati)
      : ambiente_(ambiente),
        stampa_(ambiente, uscite),
        dati_(dati),
        ditta_(reports::LeggiDatiDitta(ambiente)) {
    // The file is in euro, whatever the selected year.
    ricevuta2_ = reports::PictureImporto(kRicevuta2, true);
    totale_ = reports::PictureImporto(kTotale, true);
    riga_ = reports::Ripeti("-", reports::Sagoma(kColonne).Larghezza());
  }

  void Apri(std::unique_ptr<reports::Uscita> uscita) {
    stampa_.Inizio(std::move(uscita));
    stampa_.ModoTesto(true);
    stampa_.CarattereTesto(kPasso);
    stampa_.Larghezza(kLarghezza);
    stampa_.Titolo("Distinta Ri.Ba. n. " + std::to_string(dati_.numero));
    stampa_.Intestazione([this] { Testata(); });
  }

  void Ricevute() {
    inTabella_ = true;
    for (std::size_t i = 0; i < dati_.distinta.ricevute.size(); ++i) Ricevuta(i);
    stampa_.Riserva(2);
    stampa_.Campo(1, dati_.Totale());
    stampa_.Riga(totale_, {}, true);
    stampa_.Riga(riga_);
    inTabella_ = false;
    Segnalazioni();
  }

  void Fondo(std::int64_t numDoc) {
    stampa_.Riga("");
    if (numDoc != 0) {
      stampa_.Campo(1, numDoc);
      stampa_.Riga(" CREATO ARTICOLO CONTABILE ######,", {}, true);
    }
    Testo(" MEMORIZZATE RIBA SU FILE " + dati_.nomeFile, true);
    if (!dati_.conservato.empty()) {
      Testo(" il file che c'era prima è ora " + dati_.conservato, false);
    }
    stampa_.Riga("");
    // Its heading never stands without the lines of a receipt.
    stampa_.Riserva(2 + 1 + kRecordPerRicevuta);
    Testo("stampa file " + dati_.nomeFile, true);
    std::string righello = "*";
    while (righello.size() < 1U + kColonneRiba) righello += "....|";
    Testo(righello + "*", false);
    std::string_view resto = dati_.file.testo;
    while (!resto.empty()) {
      const auto fine = resto.find(kFineRigaRiba);
      Testo("*" + std::string(resto.substr(0, fine)) + "*", false);
      resto.remove_prefix(fine == std::string_view::npos ? resto.size()
                                                         : fine + kFineRigaRiba.size());
    }
  }

  bool Chiudi() { return !stampa_.Interrotta() && stampa_.Fine(); }

 private:
  void Testata() {
    reports::TestataTesto(stampa_, ambiente_, ditta_, stampa_.NumeroPagina(), kLarghezza);
    if (!ditta_.piva.empty()) Testo("Partita IVA " + ditta_.piva, false);
    stampa_.Riga("");
    stampa_.Campo(1, dati_.numero);
    stampa_.Campo(2, dati_.distinta.data);
    stampa_.Riga(kTitolo, {}, true);
    stampa_.Riga("");
    const BancaPresentazione& banca = dati_.banca;
    stampa_.Campo(1, banca.cod);
    stampa_.Campo(2, banca.nome);
    stampa_.Campo(3, banca.conto.abi);
    stampa_.Riga(kBanca1);
    stampa_.Campo(1, banca.agenzia);
    stampa_.Campo(2, banca.conto.cab);
    stampa_.Campo(3, banca.conto.contoCorrente);
    stampa_.Riga(kBanca2);
    stampa_.Riga("");
    if (!inTabella_) return;
    stampa_.Riga(riga_);
    stampa_.Riga(kColonne);
    stampa_.Riga(riga_);
  }

  void Ricevuta(std::size_t indice) {
    const RicevutaRiba& ricevuta = dati_.distinta.ricevute[indice];
    const DebitoreRiba& debitore = ricevuta.debitore;
    stampa_.Riserva(kRighePerRicevuta + 1);
    const auto& vista = dati_.vista[indice];
    const Rinvio rinvio = AlConto(vista.cfp, vista.conto);
    stampa_.Campo(1, vista.conto);
    stampa_.Campo(2, debitore.ragSoc1);
    stampa_.Campo(3, ricevuta.descrizione);
    stampa_.Riga(kRicevuta1, rinvio);
    stampa_.Campo(1, debitore.ragSoc2);
    stampa_.Campo(2, debitore.banca);
    stampa_.Campo(3, ricevuta.scadenza);
    stampa_.Campo(4, ricevuta.importo);
    stampa_.Campo(5, static_cast<std::int64_t>(indice) + 1);
    stampa_.Riga(ricevuta2_, rinvio);
    stampa_.Campo(1, debitore.indirizzo);
    stampa_.Campo(2, debitore.agenzia);
    stampa_.Riga(kRicevuta3, rinvio);
    stampa_.Campo(1, debitore.cap);
    stampa_.Campo(2, debitore.localita);
    stampa_.Campo(3, debitore.prov);
    stampa_.Campo(4, dati_.iban[indice]);
    stampa_.Riga(kRicevuta4, rinvio);
    stampa_.Campo(1, debitore.piva);
    stampa_.Riga(kPartitaIva, rinvio);
    stampa_.Riga(riga_);
  }

  void Segnalazioni() {
    if (dati_.segnalazioni.empty() && dati_.noteFile.empty()) return;
    stampa_.Riserva(4);
    stampa_.Riga("");
    Testo("SEGNALAZIONI", true);
    for (const auto* gruppi : {&dati_.segnalazioni, &dati_.noteFile}) {
      for (const std::string& gruppo : *gruppi) Gruppo(gruppo);
    }
  }

  /// Its lines together on a page.
  void Gruppo(std::string_view resto) {
    stampa_.Riserva(static_cast<int>(std::ranges::count(resto, '\n')) + 1);
    while (!resto.empty()) {
      const auto fine = resto.find('\n');
      Testo(std::string(resto.substr(0, fine)), false);
      resto.remove_prefix(fine == std::string_view::npos ? resto.size() : fine + 1);
    }
  }

  void Testo(const std::string& testo, bool grassetto) {
    stampa_.Campo(1, testo);
    stampa_.Riga(intera_, {}, grassetto);
  }

  Ambiente& ambiente_;
  reports::Stampa stampa_;
  const DatiDistinta& dati_;
  reports::DatiDitta ditta_;
  std::string ricevuta2_;
  std::string totale_;
  std::string riga_;
  const std::string intera_ = reports::Ripeti("$", kLarghezza);
  bool inTabella_ = false;
};

}  // namespace

Importo DatiDistinta::Totale() const {
  return std::accumulate(
      distinta.ricevute.begin(), distinta.ricevute.end(), Importo(),
      [](Importo somma, const RicevutaRiba& ricevuta) { return somma + ricevuta.importo; });
}

bool StampaDistinta::Prova() {
  Dialoghi& dialogo = ambiente_.Dialogo();
  scelta_ = dialogo.ScegliUscita(kRapporto, false);
  if (!scelta_) return false;
  auto uscita = uscite_.Crea(*scelta_, kRapporto);
  if (!uscita) {
    dialogo.Messaggio("L'uscita scelta non è disponibile: sceglierne un'altra.", Icona::Avviso);
    return false;
  }
  Distinta distinta(ambiente_, uscite_, dati_);
  distinta.Apri(std::move(uscita));
  distinta.Ricevute();
  return distinta.Chiudi();
}

void StampaDistinta::Definitiva(std::int64_t numDoc) {
  if (!scelta_) return;
  auto uscita = uscite_.Crea(*scelta_, kRapporto);
  if (!uscita) return;
  Distinta distinta(ambiente_, uscite_, dati_);
  distinta.Apri(std::move(uscita));
  if (scelta_->destinazione != Destinazione::Stampante) distinta.Ricevute();
  distinta.Fondo(numDoc);
  distinta.Chiudi();
}

}  // namespace fenalto::duedates
