#include "vat/settlement/VersamentoIva.h"

namespace fenalto::vat {
namespace {

constexpr int kGiorno = 16;
constexpr int kGiornoAgosto = 20;
constexpr int kAgosto = 8;
constexpr int kMarzo = 3;
constexpr int kSabato = 6;

/// Easter Sunday of the Gregorian calendar.
Data Pasqua(int anno) {
  const int a = anno % 19;
  const int b = anno / 100;
  const int c = anno % 100;
  const int h = (19 * a + b - b / 4 - (b - (b + 8) / 25 + 1) / 3 + 15) % 30;
  const int l = (32 + 2 * (b % 4) + 2 * (c / 4) - h - c % 4) % 7;
  const int m = (a + 11 * h + 22 * l) / 451;
  const int somma = h + l - 7 * m + 114;
  return Data::DaGma(somma % 31 + 1, somma / 31, anno).value_or(Data());
}

bool Festivo(Data giorno) {
  return giorno.GiornoSettimana() >= kSabato || giorno == Pasqua(giorno.Anno()).PiuGiorni(1);
}

}  // namespace

Data GiornoVersamento(const PeriodoIva& periodo) {
  if (periodo.Annuale()) return {};
  const bool trimestre = periodo.daMese != periodo.aaMese;
  int mese = periodo.aaMese + (trimestre ? 2 : 1);
  int anno = periodo.anno;
  if (mese > 12) {
    mese = trimestre ? kMarzo : 1;
    ++anno;
  }
  auto giorno = Data::DaGma(mese == kAgosto ? kGiornoAgosto : kGiorno, mese, anno).value_or(Data());
  while (Festivo(giorno)) giorno = giorno.PiuGiorni(1);
  return giorno;
}

std::optional<PeriodoInVista> ScegliPeriodoInVista(const std::vector<StatoPeriodo>& stati,
                                                   Data oggi) {
  std::vector<PeriodoIva> aperti;
  for (const StatoPeriodo& stato : stati) {
    if (stato.liquidato) {
      aperti.clear();
    } else if (stato.periodo.Primo() <= oggi) {
      aperti.push_back(stato.periodo);
    }
  }
  if (aperti.empty()) return std::nullopt;
  PeriodoInVista scelto;
  for (PeriodoIva& periodo : aperti) {
    const bool ultimo = &periodo == &aperti.back();
    if (ultimo || GiornoVersamento(periodo) >= oggi) {
      scelto.periodo = std::move(periodo);
      break;
    }
    scelto.arretrati.push_back(std::move(periodo));
  }
  return scelto;
}

}  // namespace fenalto::vat
