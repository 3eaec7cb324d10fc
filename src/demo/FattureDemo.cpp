#include "demo/FattureDemo.h"

#include <algorithm>

#include "core/store/ErroreArchivio.h"
#include "core/values/Aritmetica.h"
#include "demo/AnagraficheDemo.h"
#include "demo/DatiDemo.h"

namespace fenalto::demo {

namespace {

constexpr std::size_t kVendite = 40;
constexpr std::size_t kAcquisti = 40;
/// Suppliers that sell at home; then the one of the Union, the one outside it, the customs office.
constexpr std::size_t kFornitoriItaliani = kFornitoriDemo.size() - 3;
constexpr std::size_t kFornitoreUe = kFornitoriItaliani + 1;
constexpr std::size_t kFornitoreExtraUe = kFornitoriItaliani + 2;
constexpr std::size_t kDogana = kFornitoriItaliani + 3;
constexpr std::size_t kCommercialista = 14;
constexpr std::int64_t kPrimoNumeroFornitore = 310;

/// Mondays to Saturdays, without the feasts of winter.
std::vector<Data> GiorniDiBottega(Data inizio, Data fine) {
  std::vector<Data> giorni;
  for (Data d = inizio; d <= fine; d = d.PiuGiorni(1)) {
    const int festa = d.Mese() * 100 + d.Giorno();
    const bool chiuso = d.GiornoSettimana() == 7 || festa == 101 || festa == 106 || festa == 1101 ||
                        festa == 1208 || festa == 1225 || festa == 1226;
    if (!chiuso) giorni.push_back(d);
  }
  return giorni;
}

/// The day of the `n`th of `quanti` documents spread over the days.
Data Giorno(const std::vector<Data>& giorni, std::size_t n, std::size_t quanti) {
  return giorni[n * giorni.size() / quanti];
}

}  // namespace

FattureDemo::FattureDemo(Ambiente& ambiente, DialoghiMuti& dialoghi, Data oggi)
    : dialoghi_(dialoghi),
      inizio_(Data::DaGma(1, oggi.Mese(), oggi.Anno()).value().PiuMesi(-2)),
      generatore_(20'260'901),
      fatture_(ambiente) {
  const std::vector<Data> giorni = GiorniDiBottega(inizio_, oggi);
  Vendite(giorni);
  Acquisti(giorni);
  Estero(giorni);
  Corrispettivi(giorni);
  std::stable_sort(documenti_.begin(), documenti_.end(),
                   [](const Documento& a, const Documento& b) { return a.dt < b.dt; });
}

void FattureDemo::Vendite(const std::vector<Data>& giorni) {
  for (std::size_t n = 0; n < kVendite; ++n) {
    Documento fattura{.dt = Giorno(giorni, n, kVendite), .riva = "1"};
    fattura.parte = CodiceParteDemo(generatore_.Indice(kClientiDemo.size()) + 1);
    fattura.righe.push_back({.imponibile = generatore_.Euro(40, 620)});
    if (n % 4 == 1) fattura.righe.push_back({"700.030", "22", generatore_.Euro(12, 48)});
    if (n % 9 == 5) fattura.righe.push_back({"700.001", "10", generatore_.Euro(20, 160)});
    // Goods given back: a credit note on the same register, with the minus sign.
    if (n == kVendite / 2) {
      const Documento reso{.dt = fattura.dt,
                           .riva = "1",
                           .parte = fattura.parte,
                           .righe = {{"700.020", "22", -generatore_.Euro(30, 65)}}};
      documenti_.push_back(fattura);
      documenti_.push_back(reso);
      continue;
    }
    documenti_.push_back(fattura);
  }
}

void FattureDemo::Acquisti(const std::vector<Data>& giorni) {
  for (std::size_t n = 0; n < kAcquisti; ++n) {
    const std::size_t fornitore = n * 7 % kFornitoriItaliani + 1;
    Documento fattura{.dt = Giorno(giorni, n, kAcquisti), .riva = "3"};
    fattura.parte = CodiceParteDemo(fornitore);
    fattura.nFat = std::to_string(kPrimoNumeroFornitore + static_cast<std::int64_t>(n * 13)) +
                   (n % 3 == 0 ? "/A" : "");
    fattura.dtFat = fattura.dt.PiuGiorni(-static_cast<std::int32_t>(generatore_.Indice(7)));
    fattura.righe.push_back({.imponibile = generatore_.Euro(35, 520)});
    if (n % 6 == 2) fattura.righe.push_back({"500.010", "22", generatore_.Euro(9, 42)});
    if (fornitore == kCommercialista) {
      const Importo ritenuta =
          Arrotonda(fattura.righe.front().imponibile.Percento(Importo::DaUnita(20)), 2,
                    ModoArrotonda::Vicino);
      fattura.altri = {{"RitAcc", true},
                       {"CausaleRitAcc1", "024"},
                       {"ContoRitAcc1", "420.002"},
                       {"ImportoRitAcc1", ritenuta}};
    }
    documenti_.push_back(fattura);
    if (n != kAcquisti / 2) continue;
    documenti_.push_back({.dt = fattura.dt,
                          .riva = "3",
                          .parte = fattura.parte,
                          .nFat = "NC " + fattura.nFat,
                          .dtFat = fattura.dt,
                          .righe = {{"500.020", "22", -generatore_.Euro(25, 55)}}});
  }
}

void FattureDemo::Estero(const std::vector<Data>& giorni) {
  // Bought in the Union: the program writes the other half on register 5 and the cost.
  documenti_.push_back({.dt = Giorno(giorni, 1, 3),
                        .riva = "4",
                        .parte = CodiceParteDemo(kFornitoreUe),
                        .nFat = "20418",
                        .righe = {{"500.030", "22R", generatore_.Euro(500, 900)}},
                        .altri = {{"FornitoreIntra", CodiceParteDemo(kFornitoreUe)},
                                  {"ContoCostiIntra", "500.030"},
                                  {"PagamentoIntra", "BB60"}}});
  // Bought outside it: the bill is the customs office's, and what it taxes is owed to the seller.
  documenti_.push_back({.dt = Giorno(giorni, 1, 2),
                        .riva = "3",
                        .parte = CodiceParteDemo(kDogana),
                        .nFat = "4412/K",
                        .righe = {{"500.031", "22", generatore_.Euro(900, 1'500)}},
                        .altri = {{"BollaDog", true},
                                  {"FornitoreBollaDog", CodiceParteDemo(kFornitoreExtraUe)},
                                  {"CausaleBollaDog", "030"},
                                  {"PagamentoBollaDog", "BB30"}}});
}

void FattureDemo::Corrispettivi(const std::vector<Data>& giorni) {
  for (const Data& giorno : giorni) {
    documenti_.push_back({.dt = giorno,
                          .riva = "2",
                          .righe = {{.imponibile = generatore_.Euro(
                                         120, giorno.GiornoSettimana() == 6 ? 430 : 310)}}});
  }
}

void FattureDemo::Scrivi(const Documento& documento) {
  bool scritta = fatture_.ScegliRegistro(documento.riva) && fatture_.Nuovo();
  Scheda& testa = fatture_.Testa();
  const auto scrivi = [&](std::string_view campo, const Valore& valore) {
    testa.Scrivi(campo, valore);
    fatture_.TestaLasciata(campo);
  };
  if (scritta) {
    scrivi("Dt", documento.dt);
    // Before the party: a customs bill doesn't take its payment code.
    for (const auto& [campo, valore] : documento.altri) scrivi(campo, valore);
    if (!documento.parte.empty()) scrivi("Contox", documento.parte);
    if (!documento.nFat.empty()) scrivi("NFat", documento.nFat);
    scrivi("DtFat", documento.dtFat.Nulla() ? documento.dt : documento.dtFat);
  }
  for (const Riga& riga : documento.righe) {
    scritta = scritta && fatture_.PNuovaRiga();
    if (!scritta) break;
    if (!riga.conto.empty()) fatture_.Riga().Scrivi("Conto", riga.conto);
    if (!riga.codIva.empty()) fatture_.Riga().Scrivi("CodIva", riga.codIva);
    fatture_.Riga().Scrivi("Imponibile", riga.imponibile);
    fatture_.RigaLasciata("Imponibile");
    scritta = fatture_.ConfermaRiga();
  }
  testa.Scrivi("TotaleXVerifica", fatture_.TotFat());
  if (scritta && fatture_.Conferma()) return;
  throw ErroreArchivio(ErroreArchivio::Causa::Altro, "documento del " + documento.dt.Testo() +
                                                         " sul registro " + documento.riva + ": " +
                                                         dialoghi_.ultimo);
}

void FattureDemo::FinoA(Data data) {
  for (; Attende(data); ++scritti_) Scrivi(documenti_[scritti_]);
}

}  // namespace fenalto::demo
