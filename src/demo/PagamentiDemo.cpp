#include "demo/PagamentiDemo.h"

#include <map>

#include "core/store/ErroreArchivio.h"
#include "duedates/ImpostazioniPagamento.h"
#include "duedates/RicercaScadenze.h"

namespace fenalto {
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
  RicercaScadenze ricerca;
  ricerca.cfp = cfp;
  ricerca.aData = data;
  std::map<std::string, std::vector<RigaPagamento>> parti;
  CercaScadenze(ambiente_, ricerca, [&](const RigaScadenza& riga) {
    if (InRitardo(cfp, riga.conto)) return true;
    if (const auto vista = LeggiScadenza(ambiente_, riga.numero)) {
      parti[riga.conto].push_back({*vista, vista->Residuo(), Importo(), true});
    }
    return true;
  });
  const ImpostazioniPagamento impostazioni =
      LeggiImpostazioni(ambiente_, FinestraPagamento::SingolaParte, cfp);
  for (auto& [conto, righe] : parti) {
    Pagamento pagamento;
    pagamento.cfp = cfp;
    pagamento.dt = data;
    pagamento.causale = impostazioni.causale;
    pagamento.descrizione = cfp == "C" ? "Incasso" : "Pagamento";
    pagamento.contropartita = impostazioni.contropartita;
    pagamento.origine = Origine::PagamentoSingolo;
    pagamento.righe = std::move(righe);
    Registra(pagamento);
  }
}

void PagamentiDemo::Registra(const Pagamento& pagamento) {
  if (RegistraPagamento(ambiente_, pagamento).scritto) return;
  throw ErroreArchivio(ErroreArchivio::Causa::Altro,
                       "pagamento del " + pagamento.dt.Testo() + ": " + dialoghi_.ultimo);
}

}  // namespace fenalto
