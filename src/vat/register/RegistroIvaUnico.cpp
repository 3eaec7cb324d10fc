#include "vat/register/RegistroIvaUnico.h"

#include <algorithm>
#include <utility>

#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"
#include "ledger/registrations/ControlliData.h"
#include "vat/register/RegistroIvaInterno.h"
#include "vat/settlement/LiquidazioneInterno.h"

namespace fenalto::vat {
namespace {

constexpr const char* kManca = "scegliere il periodo e confermarlo";
constexpr const char* kXTar = "STRegistroIvaUnico_XTar";

/// Millimetres typed by the user; what can't be read is no correction.
double Millimetri(const std::string& testo) {
  const auto letto = LeggiImporto(testo);
  if (!letto) return 0;
  return static_cast<double>(letto.Valore().Decimillesimi()) / static_cast<double>(Importo::kScala);
}

}  // namespace

RegistroIvaUnico::RegistroIvaUnico(Ambiente& ambiente)
    : interno_(std::make_unique<Interno>(ambiente)) {
  interno_->opzioni.xTar = Millimetri(ambiente.Config(kXTar));
}

RegistroIvaUnico::~RegistroIvaUnico() = default;

std::vector<PeriodoIva> RegistroIvaUnico::Periodi() const {
  return PeriodiIva(interno_->ambiente, interno_->ambiente.Anno());
}

bool RegistroIvaUnico::ScegliPeriodo(const std::string& cod) {
  Interno& io = *interno_;
  PeriodoIva scelto = LeggiPeriodo(io.ambiente, io.ambiente.Anno(), cod);
  if (scelto.cod.empty()) return false;
  const bool stesso = io.periodo.anno == scelto.anno && io.periodo.cod == scelto.cod;
  const Ventilazione digitata = io.opzioni.ventilazione;
  const Ventilazione proposta = io.ventilazioneProposta;
  io.periodo = std::move(scelto);
  io.AvvisaGiaChiuso();
  io.ProponiIntervalli();
  io.AvvisaIncassi();
  io.ProponiOpzioni();
  if (stesso) io.RimettiVentilazione(digitata, proposta);
  return true;
}

void RegistroIvaUnico::GuardaPeriodo(const PeriodoIva& periodo) {
  Interno& io = *interno_;
  io.periodo = periodo;
  io.LeggiIntervalli();
  for (IntervalloRegistro& intervallo : io.intervalli) {
    if (intervallo.daIncassi) continue;
    intervallo.daNProt = io.PrimoNelPeriodo(intervallo.riva);
    intervallo.aaNProt = io.UltimoNelPeriodo(intervallo.riva);
  }
  io.LeggiOpzioni();
  io.opzioni.liquidazione = PrevediLiquidazione(io.ambiente, periodo);
}

const PeriodoIva& RegistroIvaUnico::Periodo() const {
  return interno_->periodo;
}

std::vector<IntervalloRegistro>& RegistroIvaUnico::Intervalli() {
  return interno_->intervalli;
}

OpzioniRegistroIva& RegistroIvaUnico::Opzioni() {
  return interno_->opzioni;
}

void RegistroIvaUnico::ProponiVentilazione(bool secondo) {
  interno_->ProponiVentilazione(secondo);
}

Esito<std::vector<TotaleRegistro>> RegistroIvaUnico::Totali() {
  return interno_->Totali();
}

Esito<Liquidazione> RegistroIvaUnico::Liquida() {
  auto totali = Totali();
  if (!totali) return totali.Errore();
  return Liquida(totali.Valore());
}

Esito<Liquidazione> RegistroIvaUnico::Liquida(const std::vector<TotaleRegistro>& totali) {
  const Interno& io = *interno_;
  if (std::string errore = ErroreDatiLiquidazione(io.opzioni.liquidazione); !errore.empty()) {
    return Errore{std::move(errore)};
  }
  return CalcolaLiquidazione(io.periodo, totali, io.opzioni.liquidazione);
}

Esito<std::vector<TotaleRegistro>> RegistroIvaUnico::Interno::Totali() {
  if (periodo.cod.empty()) return Errore{kManca};
  return CalcolaTotaliRegistri(ambiente, periodo, intervalli, opzioni.ventilazione);
}

// --- The run -------------------------------------------------------------------------------------

std::optional<DatiStampaRegistro> RegistroIvaUnico::Interno::Prepara() {
  std::string errore;
  if (periodo.cod.empty()) {
    errore = kManca;
  } else if (opzioni.soloChiusura && periodo.Annuale()) {
    errore = "per la chiusura selezionare il periodo e non il riepilogo annuale";
  } else {
    errore = ErroreDatiLiquidazione(opzioni.liquidazione);
  }
  if (errore.empty()) errore = MancaModelloLiquidazione(ambiente);
  if (!errore.empty()) {
    Avviso(errore);
    return std::nullopt;
  }
  auto totali = Totali();
  if (!totali) {
    Avviso(totali.Errore().messaggio);
    return std::nullopt;
  }
  DatiStampaRegistro dati;
  dati.periodo = periodo;
  dati.totali = std::move(totali).Valore();
  dati.liquidazione = CalcolaLiquidazione(periodo, dati.totali, opzioni.liquidazione);
  dati.primaPagina = PrimaPagina();
  return dati;
}

/// Pages run on through the year: a period printed again takes those behind the periods before it.
int RegistroIvaUnico::Interno::PrimaPagina() {
  std::string condizione = sql::Criterio("Anno", "=", periodo.anno);
  const bool ristampa = ambiente.Esiste("tessarc", "ChiusureIva",
                                        {{"Anno", periodo.anno}, {"MESETRIMESTRE", periodo.cod}});
  if (ristampa) condizione += " AND " + sql::Criterio("MESETRIMESTRE", "<", periodo.cod);
  const Valore ultima = tessarc.Singolo("SELECT Max(UltPag) FROM ChiusureIva WHERE " + condizione);
  return static_cast<int>(Nz(ultima).Intero()) + 1;
}

/// The giro of the pro-rata is proposed once nothing is missing for it. False when it isn't wanted.
bool RegistroIvaUnico::Interno::ChiediProRata(const DatiGiri& giri, Importo proRata) {
  if (giri.contoProRata.empty() || proRata.Zero()) return true;
  return ambiente.Dialogo().Domanda("Il pro-rata rende indetraibile IVA per " +
                                        ScriviImporto(proRata, ambiente.Euro() ? 2 : 0) +
                                        ".\nLa registro a costo sul conto " + giri.contoProRata +
                                        " ?",
                                    Bottoni::SiNo, Risposta::Si) == Risposta::Si;
}

/// False when the run must stop.
bool RegistroIvaUnico::Interno::ChiediDefinitiva(DatiStampaRegistro& dati) {
  if (opzioni.soloChiusura) return true;
  dati.definitiva = ambiente.Dialogo().Conferma(
      periodo.Annuale() ? "MEMORIZZO I DATI PER LA DICHIAZIONE E COMUNICAZIONE ANNUALE IVA"
                        : "STAMPA DEFINITIVA ?");
  if (!dati.definitiva || periodo.Annuale()) return true;
  dati.giri = LeggiDatiGiri(ambiente);
  dati.giri.dt = opzioni.dtReg;
  const Importo proRata = dati.liquidazione.ProRata();
  const std::string mancano =
      MancanoDatiGiri(ambiente, dati.giri, dati.totali, dati.liquidazione.interessi, proRata);
  if (!mancano.empty()) {
    Avviso(mancano);
    return false;
  }
  if (!ChiediProRata(dati.giri, proRata)) dati.giri.contoProRata.clear();
  const bool conProRata = !dati.giri.contoProRata.empty() && !proRata.Zero();
  if (dati.giri.erario || dati.giri.corrispettivi || conProRata) {
    ledger::ControlloDataGiornale(ambiente, dati.giri.dt);
  }
  return true;
}

bool RegistroIvaUnico::Stampa(reports::FabbricaUscite& uscite) {
  Interno& io = *interno_;
  std::vector<ProblemaRegistro> problemi;
  if (!io.opzioni.soloChiusura) {
    for (const IntervalloRegistro& i : io.intervalli) io.ControllaRegistro(i, false, problemi);
  }
  if (!io.Superati(problemi)) return false;
  auto dati = io.Prepara();
  if (!dati) return false;
  const std::string impronta = io.Impronta(dati->totali);
  if (!io.ChiediDefinitiva(*dati)) return false;
  const auto ultima = StampaRegistroIva(io.ambiente, uscite, *dati, io.opzioni);
  if (!ultima) return false;
  return !dati->definitiva || io.Memorizza(*dati, impronta, *ultima);
}

bool RegistroIvaUnico::StampaSingolo(reports::FabbricaUscite& uscite, const std::string& riva) {
  Interno& io = *interno_;
  std::vector<IntervalloRegistro> solo;
  for (const IntervalloRegistro& intervallo : io.intervalli) {
    if (UgualeTesto(intervallo.riva, riva)) solo.push_back(intervallo);
  }
  if (solo.empty()) {
    io.Avviso(io.intervalli.empty() ? kManca
                                    : "il registro iva " + riva +
                                          " non esiste: sceglierne uno "
                                          "dell'elenco");
    return false;
  }
  std::vector<ProblemaRegistro> problemi;
  io.ControllaRegistro(solo.front(), false, problemi);
  if (!io.Superati(problemi)) return false;
  auto totali = CalcolaTotaliRegistri(io.ambiente, io.periodo, solo, io.opzioni.ventilazione);
  if (!totali) {
    io.Avviso(totali.Errore().messaggio);
    return false;
  }
  DatiStampaRegistro dati;
  dati.periodo = io.periodo;
  dati.totali = std::move(totali).Valore();
  dati.conLiquidazione = false;
  return StampaRegistroIva(io.ambiente, uscite, dati, io.opzioni).has_value();
}

}  // namespace fenalto::vat
