#include "duedates/riba/DistintaGrafica.h"

#include <filesystem>
#include <string_view>

#include "core/reports/Rapporto.h"
#include "core/values/Testo.h"

namespace fenalto::duedates {
namespace {

constexpr std::size_t kCifreIban = 27;
/// The total, and room to sign under it.
constexpr int kRigheChiusura = 5;

/// In groups of four, as people read it; what isn't whole is left out.
std::string IbanLeggibile(const std::string& iban) {
  if (iban.size() != kCifreIban) return "";
  std::string testo;
  for (std::size_t i = 0; i < iban.size(); i += 4) {
    if (i > 0) testo += ' ';
    testo += iban.substr(i, 4);
  }
  return testo;
}

std::string Unisci(const std::string& a, std::string_view segno, const std::string& b) {
  return a.empty() || b.empty() ? a + b : a + std::string(segno) + b;
}

class DistintaGrafica {
 public:
  DistintaGrafica(Ambiente& ambiente, reports::FabbricaUscite& uscite, const DatiDistinta& dati,
                  const FormaDistinta& forma)
      : ambiente_(ambiente), dati_(dati), forma_(forma), rapporto_(ambiente, uscite) {}

  bool Stampa(std::unique_ptr<reports::Uscita> uscita, const ParteDistinta& parte) {
    const bool seguito = parte.articolo || !dati_.segnalazioni.empty() || !dati_.noteFile.empty() ||
                         forma_.tracciato;
    const reports::Cornice cornice{.rapporto = "DISTINTA",
                                   .titolo = "Distinta Ri.Ba. n. " + std::to_string(dati_.numero),
                                   .modello = parte.ricevute ? "TiRiBa" : kModelloSeguito,
                                   .larghezza = kColonneRiba + 2,
                                   .grafico = true,
                                   .xTar = forma_.xTar};
    if (!rapporto_.Apri(std::move(uscita), cornice, [this] { Testata(); })) return false;
    if (parte.ricevute) Ricevute();
    if (seguito) {
      if (parte.ricevute && !Gira()) return false;
      Seguito(parte);
    }
    return !rapporto_.Interrotta() && rapporto_.Fine();
  }

 private:
  static constexpr const char* kModelloSeguito = "TiRiBaSeg";

  void Testata() {
    const BancaPresentazione& banca = dati_.banca;
    rapporto_.TestataDitta();
    rapporto_.Titolo("TITOLO", "DISTINTA ORDINI DI INCASSO Ri.Ba. n. " +
                                   std::to_string(dati_.numero) + " del " +
                                   dati_.distinta.data.Testo());
    rapporto_.Titolo("BANCA", Unisci(banca.nome, " - ", banca.agenzia));
    std::string conto = "ABI " + banca.conto.abi + "   CAB " + banca.conto.cab + "   C/C " +
                        banca.conto.contoCorrente;
    if (!banca.conto.codSia.empty()) conto += "   SIA " + banca.conto.codSia;
    rapporto_.Titolo("CONTO", conto);
    const std::string iban = IbanLeggibile(banca.iban);
    if (!iban.empty()) rapporto_.Titolo("IBAN", "IBAN " + iban);
    rapporto_.Piede("NRICEVUTE", static_cast<std::int64_t>(dati_.distinta.ricevute.size()));
    rapporto_.Piede("TOTALE", dati_.Totale());
  }

  void Ricevute() {
    static const reports::Fascia kRicevuta{
        "",
        {"R_NUMERO", "R_CONTO", "R_DEBITORE", "R_LOCALITA", "R_PIVA", "R_DESCRIZIONE", "R_BANCA",
         "R_DTSCAD", "R_IMPORTO"}};
    for (std::size_t i = 0; i < dati_.distinta.ricevute.size(); ++i) {
      const RicevutaRiba& r = dati_.distinta.ricevute[i];
      const DebitoreRiba& d = r.debitore;
      // The last receipt goes with the total.
      if (i + 1 == dati_.distinta.ricevute.size()) rapporto_.Riserva(kRigheChiusura);
      rapporto_.Riga(
          kRicevuta,
          {static_cast<std::int64_t>(i) + 1, dati_.vista[i].conto,
           Unisci(d.ragSoc1, " ", d.ragSoc2), Unisci(d.localita, " ", d.prov), d.piva,
           r.descrizione, Unisci(Unisci(d.abi, " ", d.cab), " ", d.banca), r.scadenza, r.importo},
          AlConto(dati_.vista[i].cfp, dati_.vista[i].conto));
    }
    rapporto_.Filo("");
    rapporto_.Riga(
        {"", {"R_SCRITTATOT", "R_TOTALE"}},
        {"ricevute n. " + std::to_string(dati_.distinta.ricevute.size()), dati_.Totale()});
    rapporto_.Vuota();
    rapporto_.Riga({"", {"R_FIRMA"}}, {"timbro e firma"});
  }

  /// On to the pages that aren't the bank's.
  bool Gira() {
    rapporto_.Carta().NuovaPagina();
    return rapporto_.Carta().Modello(reports::PercorsoModello(ambiente_, kModelloSeguito));
  }

  void Seguito(const ParteDistinta& parte) {
    const std::string nome = std::filesystem::path(dati_.nomeFile).filename().string();
    if (parte.articolo) {
      if (*parte.articolo != 0) {
        Scritta("CREATO ARTICOLO CONTABILE " + std::to_string(*parte.articolo), true);
      }
      Scritta("MEMORIZZATE RIBA SU FILE " + nome, true);
      if (!dati_.conservato.empty()) {
        Scritta("il file che c'era prima è ora " +
                std::filesystem::path(dati_.conservato).filename().string());
      }
      rapporto_.Vuota();
    }
    if (!dati_.segnalazioni.empty() || !dati_.noteFile.empty()) Scritta("SEGNALAZIONI", true);
    for (const auto* gruppi : {&dati_.segnalazioni, &dati_.noteFile}) {
      for (const std::string& gruppo : *gruppi) Linee("R_SCRITTA", gruppo, "\n");
    }
    if (!forma_.tracciato) return;
    rapporto_.Carta().NuovaPagina();
    Scritta("TRACCIATO DEL FILE " + nome, true);
    std::string righello;
    while (righello.size() < kColonneRiba) righello += "....|";
    Linee("R_TRACCIATO", righello, kFineRigaRiba);
    Linee("R_TRACCIATO", dati_.file.testo, kFineRigaRiba);
  }

  void Scritta(const std::string& testo, bool titolo = false) {
    rapporto_.Scritta(titolo ? "R_TITOLO" : "R_SCRITTA", testo);
  }

  void Linee(std::string_view campo, std::string_view resto, std::string_view aCapo) {
    while (!resto.empty()) {
      const auto fine = resto.find(aCapo);
      rapporto_.Scritta(campo, std::string(resto.substr(0, fine)));
      resto.remove_prefix(fine == std::string_view::npos ? resto.size() : fine + aCapo.size());
    }
  }

  Ambiente& ambiente_;
  const DatiDistinta& dati_;
  const FormaDistinta& forma_;
  reports::Rapporto rapporto_;
};

}  // namespace

bool StampaDistintaGrafica(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                           std::unique_ptr<reports::Uscita> uscita, const DatiDistinta& dati,
                           const FormaDistinta& forma, const ParteDistinta& parte) {
  return DistintaGrafica(ambiente, uscite, dati, forma).Stampa(std::move(uscita), parte);
}

}  // namespace fenalto::duedates
