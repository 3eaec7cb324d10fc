// The head of a VAT registration: what follows each field that is left.
#include <algorithm>
#include <limits>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "ledger/registrations/ControlliData.h"
#include "vat/entry/RegistrazioneIvaInterno.h"
#include "vat/postings/PeriodoIva.h"

namespace fenalto::vat {

// --- Description ---------------------------------------------------------------------------------

std::string RegistrazioneIva::Interno::DescrizioneProposta() const {
  const Data data = D("DtFat");
  if (tipo == nullptr) return {};
  if (!tipo->corrispettivi) {
    if (T("NFat").empty() && data.Nulla()) return {};
    return "FATT." + T("NFat") + " Del " + data.Testo();
  }
  if (!registro.mensile) return "CORRISPETTIVI Del " + data.Testo();
  return "CORRISPETTIVI MESE " + std::to_string(data.Mese()) + "/" + std::to_string(data.Anno());
}

void RegistrazioneIva::Interno::CambiaDescrizioni(const std::string& prima,
                                                  const std::string& adesso) {
  righe.Ritocca([&](std::vector<RigaIva>& tutte) {
    for (RigaIva& esistente : tutte) {
      if (esistente.descrizione == prima) esistente.descrizione = adesso;
    }
  });
}

void RegistrazioneIva::Interno::ImponiDescrizione(const std::string& testo) {
  const std::string prima = T("Descrizionex");
  testa.Scrivi("Descrizionex", testo);
  CambiaDescrizioni(prima, testo);
  if (righe.InRiga() && riga.Testo("Descrizione") == prima) riga.Scrivi("Descrizione", testo);
  descrizioneProposta = testo;
}

void RegistrazioneIva::Interno::AggiornaDescrizione(std::string_view domanda) {
  const std::string proposta = DescrizioneProposta();
  const std::string attuale = T("Descrizionex");
  if (proposta.empty() || attuale == proposta) return;
  const bool intatta = documento.Nuovo() && (attuale.empty() || attuale == descrizioneProposta);
  if (intatta || ambiente.Dialogo().Conferma(std::string(domanda))) ImponiDescrizione(proposta);
}

// --- Numbers and dates ---------------------------------------------------------------------------

void RegistrazioneIva::Interno::ProponiDataFattura() {
  if (!documento.Nuovo() && documento.Aperto()) return;
  if (!Tipo({"01", "06"}) || D("DtFat") != dtFatProposta) return;
  dtFatProposta = D("Dt");
  testa.Scrivi("DtFat", dtFatProposta);
}

void RegistrazioneIva::Interno::NumeroLasciato() {
  const std::int64_t numero = testa.Leggi("NumDoc").Intero();
  if (numero <= 0 || numero > std::numeric_limits<std::int32_t>::max()) {
    testa.Scrivi("NumDoc", numeroRecord);
  }
}

bool RegistrazioneIva::Interno::AvvisaPeriodoChiuso() {
  const bool chiuso = !PeriodoChiuso(ambiente, D("Dt")).empty();
  if (chiuso) {
    Avviso("La data registrazione è relativa ad un periodo già stampato sul registro iva");
  }
  return chiuso;
}

void RegistrazioneIva::Interno::AvvisaDataInferiore() {
  if (!documento.Nuovo() || dataAvvisata == D("Dt")) return;
  const Data ultima =
      ambiente.Max("Dt", "ZarticoliFatture", {{"Anno", anno}, {"Riva", registro.cod}}, tessarc)
          .Data();
  if (D("Dt") >= ultima) return;
  dataAvvisata = D("Dt");
  Avviso("data registrazione inferiore a quella dell'ultima fattura registrata");
}

void RegistrazioneIva::Interno::AvvisaDataFattura() {
  if (!D("DtFat").Nulla() && !D("Dt").Nulla() && D("DtFat") > D("Dt")) {
    Avviso("data fattura successiva alla data registrazione");
  }
}

void RegistrazioneIva::Interno::DataLasciata() {
  dataAvvisata = {};
  ledger::ControlloAnno(ambiente, D("Dt"), false);
  ledger::ControlloDataGiornale(ambiente, D("Dt"));
  AvvisaDataInferiore();
  AvvisaPeriodoChiuso();
  if (tipo != nullptr && tipo->corrispettivi && documento.Nuovo()) {
    testa.Scrivi("DtFat", D("Dt"));
    AggiornaDescrizione(
        "E'stata modificata la data: si vuole cambiare automaticamente anche la descrizione ?");
    return;
  }
  const Data prima = D("DtFat");
  ProponiDataFattura();
  if (D("DtFat") != prima) {
    AggiornaDescrizione(
        "E'stata modificata la data: si vuole cambiare automaticamente anche la descrizione ?");
  }
  AvvisaDataFattura();
}

// --- Party ---------------------------------------------------------------------------------------

void RegistrazioneIva::Interno::ParteScelta() {
  if (B("BollaDog")) return;
  if (!Tipo({"01", "06", "03", "11"})) return;
  // A party without a code takes away that of the party before, never one typed by hand.
  const std::string pagamento = NzStr(DellaParte("Pagamento"));
  if (!pagamento.empty() || UgualeTesto(T("Pagamento"), pagamentoProposto)) {
    testa.Scrivi("Pagamento", pagamento);
    pagamentoProposto = pagamento;
  }
  if (Tipo({"01", "06"})) testa.Scrivi("Ep", DellaParte("Ep").Booleano());
}

void RegistrazioneIva::TestaLasciata(std::string_view campo) {
  Interno& io = *interno_;
  if (!io.documento.Modificabile()) return;
  if (UgualeTesto(campo, "NumDoc")) io.NumeroLasciato();
  if (UgualeTesto(campo, "Dt")) io.DataLasciata();
  if (UgualeTesto(campo, "Contox")) io.ParteScelta();
  if (UgualeTesto(campo, "NFat")) {
    io.AggiornaDescrizione(
        "E'stato modificato il n.fattura: si vuole cambiare automaticamente anche la descrizione "
        "?");
  }
  if (UgualeTesto(campo, "DtFat")) {
    io.AvvisaDataFattura();
    io.AggiornaDescrizione(
        "E'stata modificata la data: si vuole cambiare automaticamente anche la descrizione ?");
  }
  if (UgualeTesto(campo, "Descrizionex") && io.documento.Nuovo()) {
    // The text of the rows goes with that of the registration until someone types another.
    io.CambiaDescrizioni(io.descrizioneProposta, io.T("Descrizionex"));
  }
  // The double entry bears the party and the text of the head.
  if (!io.righe.Tutte().empty()) io.CalcolaTotali();
  io.Segna();
}

}  // namespace fenalto::vat
