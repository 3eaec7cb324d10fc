#include "duedates/reports/VisitaScadenze.h"

#include <array>

#include "core/values/Testo.h"

namespace fenalto::duedates {
namespace {

/// Due dates between two signs of life.
constexpr int kMesiAnno = 12;

constexpr std::array<const char*, kMesiAnno> kMesi = {
    "gennaio", "febbraio", "marzo",     "aprile",  "maggio",   "giugno",
    "luglio",  "agosto",   "settembre", "ottobre", "novembre", "dicembre"};

}  // namespace

TotaliScadenze& TotaliScadenze::operator+=(const ScadenzaStampata& s) {
  importo += s.importo;
  pagato += s.pagato;
  residuo += s.Residuo();
  return *this;
}

MeseScadenze MeseDi(Data data) {
  return data.Anno() * kMesiAnno + data.Mese() - 1;
}

std::string NomeMese(MeseScadenze mese) {
  if (mese == MeseDi(Data())) return "senza data";
  return std::string(kMesi.at(static_cast<std::size_t>(mese % kMesiAnno))) + " " +
         std::to_string(mese / kMesiAnno);
}

bool VisitaScadenze::Visita(std::int64_t quante) {
  const auto avanzamento = ambiente_.Dialogo().Avvia("Stampa scadenze", quante);
  std::int64_t fatte = 0;
  const bool tutte =
      ScorriScadenze(ambiente_, scelta_.scadenze, scelta_.ordine, [&](const ScadenzaStampata& s) {
        if (seguito_.Fermato()) return false;
        if (++fatte % kOgniParti == 0 && !avanzamento->Avanza(fatte)) return false;
        Riga(s);
        return true;
      });
  if (!tutte) return false;
  Fine();
  return !seguito_.Fermato();
}

void VisitaScadenze::Riga(const ScadenzaStampata& s) {
  const bool altraParte = PerConto() && (!iniziata_ || !UgualeTesto(conto_, s.conto));
  const MeseScadenze mese = MeseDi(s.dt);
  if (iniziata_ && (altraParte || mese != meseCorrente_)) FineMese();
  if (altraParte) {
    if (iniziata_) FineParte();
    conto_ = s.conto;
    ragsoc_ = s.ragsoc;
    seguito_.Parte(s);
  }
  iniziata_ = true;
  meseCorrente_ = mese;
  mese_ += s;
  parte_ += s;
  generale_ += s;
  if (PerConto()) mesi_[mese] += s;
  seguito_.Riga(s);
}

void VisitaScadenze::FineMese() {
  if (scelta_.totaliMese) {
    seguito_.Totali(SeguitoScadenze::Totale::Mese, "totale " + NomeMese(meseCorrente_), mese_);
  }
  mese_ = {};
}

void VisitaScadenze::FineParte() {
  seguito_.Totali(SeguitoScadenze::Totale::Parte, "totale " + conto_ + " " + ragsoc_, parte_);
  parte_ = {};
}

void VisitaScadenze::Fine() {
  if (!iniziata_) return;
  FineMese();
  if (PerConto()) FineParte();
  for (const auto& [mese, totali] : mesi_) {
    const char* prima = mese == MeseDi(Data()) ? "" : "in scadenza a ";
    seguito_.Totali(SeguitoScadenze::Totale::MeseDiTutti, prima + NomeMese(mese), totali);
  }
  seguito_.Totali(SeguitoScadenze::Totale::Generale, "TOTALE GENERALE", generale_);
}

}  // namespace fenalto::duedates
