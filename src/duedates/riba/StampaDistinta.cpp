#include "duedates/riba/StampaDistinta.h"

#include <algorithm>
#include <memory>
#include <numeric>
#include <string_view>

#include "core/reports/Rapporto.h"
#include "core/reports/Sagoma.h"
#include "duedates/riba/DistintaGrafica.h"

namespace fenalto::duedates {
namespace {

constexpr const char* kRapporto = "DISTINTA";
/// A line of the file between its two marks.
constexpr std::size_t kLarghezza = kColonneRiba + 2;
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
      : rapporto_(ambiente, uscite),
        dati_(dati),
        riga_(reports::Ripeti("-", reports::Sagoma(kColonne).Larghezza())) {}

  void Apri(std::unique_ptr<reports::Uscita> uscita) {
    rapporto_.Apri(
        std::move(uscita),
        {kRapporto, "Distinta Ri.Ba. n. " + std::to_string(dati_.numero), "", kLarghezza},
        [this] { Testata(); });
  }

  void Ricevute() {
    inTabella_ = true;
    for (std::size_t i = 0; i < dati_.distinta.ricevute.size(); ++i) Ricevuta(i);
    rapporto_.Riserva(2);
    // The file is in euro, whatever the selected year.
    rapporto_.Riga({reports::PictureImporto(kTotale, true), {}, true}, {dati_.Totale()});
    rapporto_.Carta().Riga(riga_);
    inTabella_ = false;
    Segnalazioni();
  }

  void Fondo(std::int64_t numDoc) {
    rapporto_.Vuota();
    if (numDoc != 0) {
      rapporto_.Riga({" CREATO ARTICOLO CONTABILE ######,", {}, true}, {numDoc});
    }
    rapporto_.RigaTesto(" MEMORIZZATE RIBA SU FILE " + dati_.nomeFile, true);
    if (!dati_.conservato.empty()) {
      rapporto_.RigaTesto(" il file che c'era prima è ora " + dati_.conservato);
    }
    rapporto_.Vuota();
    // Its heading never stands without the lines of a receipt.
    rapporto_.Riserva(2 + 1 + kRecordPerRicevuta);
    rapporto_.RigaTesto("stampa file " + dati_.nomeFile, true);
    std::string righello = "*";
    while (righello.size() < 1U + kColonneRiba) righello += "....|";
    rapporto_.RigaTesto(righello + "*");
    Righe(dati_.file.testo, kFineRigaRiba, "*");
  }

  bool Chiudi() { return !rapporto_.Interrotta() && rapporto_.Fine(); }

 private:
  void Testata() {
    const BancaPresentazione& banca = dati_.banca;
    rapporto_.TestataDitta();
    const std::string& piva = rapporto_.Ditta().piva;
    if (!piva.empty()) rapporto_.RigaTesto("Partita IVA " + piva);
    rapporto_.Vuota();
    rapporto_.Riga({kTitolo, {}, true}, {dati_.numero, dati_.distinta.data});
    rapporto_.Vuota();
    rapporto_.Riga({kBanca1}, {banca.cod, banca.nome, banca.conto.abi});
    rapporto_.Riga({kBanca2}, {banca.agenzia, banca.conto.cab, banca.conto.contoCorrente});
    rapporto_.Vuota();
    if (!inTabella_) return;
    for (const std::string& riga : {riga_, std::string(kColonne), riga_}) {
      rapporto_.Carta().Riga(riga);
    }
  }

  void Ricevuta(std::size_t indice) {
    const RicevutaRiba& ricevuta = dati_.distinta.ricevute[indice];
    const DebitoreRiba& d = ricevuta.debitore;
    const std::string& conto = dati_.vista[indice].conto;
    const Rinvio rinvio = AlConto(dati_.vista[indice].cfp, conto);
    rapporto_.Riserva(kRighePerRicevuta + 1);
    rapporto_.Riga({kRicevuta1}, {conto, d.ragSoc1, ricevuta.descrizione}, rinvio);
    rapporto_.Riga({reports::PictureImporto(kRicevuta2, true)},
                   {d.ragSoc2, d.banca, ricevuta.scadenza, ricevuta.importo,
                    static_cast<std::int64_t>(indice) + 1},
                   rinvio);
    rapporto_.Riga({kRicevuta3}, {d.indirizzo, d.agenzia}, rinvio);
    rapporto_.Riga({kRicevuta4}, {d.cap, d.localita, d.prov, dati_.iban[indice]}, rinvio);
    rapporto_.Riga({kPartitaIva}, {d.piva}, rinvio);
    rapporto_.Carta().Riga(riga_);
  }

  void Segnalazioni() {
    if (dati_.segnalazioni.empty() && dati_.noteFile.empty()) return;
    rapporto_.Riserva(4);
    rapporto_.Vuota();
    rapporto_.RigaTesto("SEGNALAZIONI", true);
    for (const auto* gruppi : {&dati_.segnalazioni, &dati_.noteFile}) {
      for (const std::string& gruppo : *gruppi) {
        // Its lines together on a page.
        rapporto_.Riserva(static_cast<int>(std::ranges::count(gruppo, '\n')) + 1);
        Righe(gruppo, "\n", "");
      }
    }
  }

  /// The lines of a text, between two marks.
  void Righe(std::string_view resto, std::string_view aCapo, const std::string& segno) {
    while (!resto.empty()) {
      const auto fine = resto.find(aCapo);
      std::string riga = segno;
      riga += resto.substr(0, fine);
      rapporto_.RigaTesto(riga += segno);
      resto.remove_prefix(fine == std::string_view::npos ? resto.size() : fine + aCapo.size());
    }
  }

  reports::Rapporto rapporto_;
  const DatiDistinta& dati_;
  std::string riga_;
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
  return Stendi(std::move(uscita), true, std::nullopt);
}

bool StampaDistinta::Stendi(std::unique_ptr<reports::Uscita> uscita, bool ricevute,
                            std::optional<std::int64_t> articolo) {
  if (forma_.grafico && !uscita->SoloTesto()) {
    return StampaDistintaGrafica(ambiente_, uscite_, std::move(uscita), dati_, forma_,
                                 {ricevute, articolo});
  }
  Distinta distinta(ambiente_, uscite_, dati_);
  distinta.Apri(std::move(uscita));
  if (ricevute) distinta.Ricevute();
  if (articolo) distinta.Fondo(*articolo);
  return distinta.Chiudi();
}

void StampaDistinta::Definitiva(std::int64_t numDoc) {
  if (!scelta_) return;
  auto uscita = uscite_.Crea(*scelta_, kRapporto);
  if (!uscita) return;
  Stendi(std::move(uscita), scelta_->destinazione != Destinazione::Stampante, numDoc);
}

}  // namespace fenalto::duedates
