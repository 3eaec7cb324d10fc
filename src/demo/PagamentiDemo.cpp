#include "demo/PagamentiDemo.h"

#include <map>

#include "core/store/ErroreArchivio.h"
#include "duedates/payments/ImpostazioniPagamento.h"
#include "duedates/schedules/RicercaScadenze.h"

namespace fenalto::demo {
namespace {

/// Every so many customers one pays nothing in time.
constexpr int kOgniQuanti = 6;

bool InRitardo(const std::string& cfp, const std::string& conto) {
  return cfp == "C" && std::stoi(conto) % kOgniQuanti == 0;
}

}  // namespace

void PagamentiDemo::FinoA(Data data) {
  Paga("C", data);
  Paga("F", data);
}

void PagamentiDemo::Paga(const std::string& cfp, Data data) {
  duedates::RicercaScadenze ricerca;
  ricerca.cfp = cfp;
  ricerca.aData = data;
  std::map<std::string, std::vector<duedates::RigaPagamento>> parti;
  duedates::CercaScadenze(ambiente_, ricerca, [&](const duedates::RigaScadenza& riga) {
    if (InRitardo(cfp, riga.conto)) return true;
    if (const auto vista = duedates::LeggiScadenza(ambiente_, riga.numero)) {
      parti[riga.conto].push_back({*vista, vista->Residuo(), Importo(), true});
    }
    return true;
  });
  const duedates::ImpostazioniPagamento impostazioni =
      duedates::LeggiImpostazioni(ambiente_, duedates::FinestraPagamento::SingolaParte, cfp);
  for (auto& [conto, righe] : parti) {
    duedates::Pagamento pagamento;
    pagamento.cfp = cfp;
    pagamento.dt = data;
    pagamento.causale = impostazioni.causale;
    pagamento.descrizione = cfp == "C" ? "Incasso" : "Pagamento";
    pagamento.contropartita = impostazioni.contropartita;
    pagamento.origine = ledger::Origine::PagamentoSingolo;
    pagamento.righe = std::move(righe);
    Registra(pagamento);
  }
}

void PagamentiDemo::Registra(const duedates::Pagamento& pagamento) {
  if (duedates::RegistraPagamento(ambiente_, pagamento).scritto) return;
  throw ErroreArchivio(ErroreArchivio::Causa::Altro,
                       "pagamento del " + pagamento.dt.Testo() + ": " + dialoghi_.ultimo);
}

}  // namespace fenalto::demo
