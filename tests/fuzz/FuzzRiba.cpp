// A file of bank receipts: any bytes. Nothing may break the reader; what it calls good has the
// lines, the numbers and the total that it says.
#include <string>
#include <string_view>

#include "Pretendi.h"
#include "core/values/Testo.h"
#include "duedates/riba/VerificaFileRiba.h"

namespace {

using namespace fenalto;

void Prova(std::string_view testo, duedates::RibaSegno segno) {
  const duedates::LetturaRiba letto = duedates::VerificaRiba(testo, segno);
  Pretendi(letto.segnalazioni.size() <= 2 * duedates::kMassimoSegnalazioniRiba + 1);
  for (const auto& segnalazione : letto.segnalazioni) {
    Pretendi(segnalazione.riga > 0 && segnalazione.colonna > 0);
    Pretendi(segnalazione.colonna <= duedates::kColonneRiba + 1);
    Pretendi(!segnalazione.messaggio.empty() && Utf8Valido(segnalazione.messaggio));
  }
  if (!letto.Buona()) return;
  constexpr std::size_t kRiga = duedates::kColonneRiba + 2;
  Pretendi(testo.size() == letto.righe * kRiga);
  Pretendi(letto.righe == letto.ricevute.size() * duedates::kRecordPerRicevuta + 2);
  Importo somma;
  for (std::size_t i = 0; i < letto.ricevute.size(); ++i) {
    Pretendi(letto.ricevute[i].numero == static_cast<int>(i) + 1);
    somma += letto.ricevute[i].importo;
  }
  Pretendi(somma == letto.totale && !letto.ricevute.empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
  const std::string_view testo = Testo(dati, quanti);
  Prova(testo, duedates::RibaSegno::DellImporto);
  Prova(testo, duedates::RibaSegno::SempreMeno);
  return 0;
}
