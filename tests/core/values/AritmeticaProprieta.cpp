// Each function of the shared arithmetic against its rule, worked out in exact fractions.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "core/values/Aritmetica.h"
#include "core/values/Generatori.h"
#include "core/values/Razionale.h"

namespace fenalto {
namespace {

using prova::Esatto;
using prova::Grandezza;
using prova::InImporto;
using prova::Int;
using prova::OFuoriCampo;
using prova::Razionale;
using prova::Tenuto;

const Razionale kCambio(193'627, 100);

Razionale Segnato(const Razionale& grandezza, Importo origine) {
  return origine.Negativo() ? Razionale(-grandezza) : grandezza;
}

Razionale Potenza(int decimali) {
  Razionale s = 1;
  for (; decimali > 0; --decimali) s *= 10;
  return s;
}

Razionale AlCentesimo(const Razionale& r) {
  const Razionale a = Int((Grandezza(r) + Razionale(1, 200)) * 100);
  return (r < 0 ? Razionale(-a) : a) / 100;
}

/// Net price, or nothing when a step does not fit an amount.
std::optional<Razionale> Netto(Importo prezzo, std::initializer_list<Importo> sconti) {
  Razionale p = Esatto(prezzo);
  for (const Importo sconto : sconti) {
    const Razionale passo = Tenuto(p * Esatto(sconto) / 100);
    p -= passo;
    if (!InImporto(passo) || !InImporto(p)) return std::nullopt;
  }
  return p;
}

RC_GTEST_PROP(AritmeticaProprieta, Arrotonda, (Importo importo)) {
  const int decimali = *rc::gen::inRange(0, 5);
  const int modo = *rc::gen::inRange(1, 4);
  const Razionale s = Potenza(decimali);
  Razionale a = Grandezza(Esatto(importo));
  if (modo == 1) a += Tenuto(Razionale(9'999, 10'000) / s);
  if (modo == 3) a += Tenuto(Razionale(1, 2) / s);
  const Razionale atteso = Segnato(Razionale(Int(a * s)) / s, importo);
  const auto ottenuto =
      OFuoriCampo([&] { return Arrotonda(importo, decimali, ModoDaNumero(modo).value()); });
  RC_ASSERT(ottenuto == InImporto(atteso));
}

RC_GTEST_PROP(AritmeticaProprieta, CalcolaIva, (Importo imponibile, Importo aliquota, bool euro)) {
  const Razionale iva = Grandezza(Esatto(imponibile)) * Esatto(aliquota) / 100;
  const Razionale atteso = euro ? Razionale(Int(Tenuto(iva + Razionale(1, 200)) * 100)) / 100
                                : Razionale(Int(iva + Razionale(999, 1'000)));
  RC_ASSERT(OFuoriCampo([&] { return CalcolaIva(imponibile, aliquota, euro); }) ==
            InImporto(Segnato(atteso, imponibile)));
}

RC_GTEST_PROP(AritmeticaProprieta, ScorporaImponibile, (Importo lordo, Importo aliquota)) {
  const Razionale divisore = 1 + Esatto(aliquota) / 100;
  RC_PRE(divisore != 0);
  const Razionale netto = Tenuto(Grandezza(Esatto(lordo)) / divisore);
  const auto atteso =
      InImporto(netto) ? InImporto(Segnato(AlCentesimo(netto), lordo)) : std::nullopt;
  RC_ASSERT(OFuoriCampo([&] { return ScorporaImponibile(lordo, aliquota); }) == atteso);
}

RC_GTEST_PROP(AritmeticaProprieta, ApplicaScontoCassa,
              (Importo importo, Importo sconto, bool euro)) {
  const Razionale x = Esatto(importo);
  const Razionale parte = x * Esatto(sconto) / 100;
  const Razionale atteso =
      euro ? Razionale(Int((x - parte) * 100)) / 100 : x - Razionale(Int(parte));
  RC_ASSERT(OFuoriCampo([&] { return ApplicaScontoCassa(importo, sconto, euro); }) ==
            InImporto(atteso));
}

RC_GTEST_PROP(AritmeticaProprieta, IvaIndetraibile, (Importo iva, Importo percInd, bool euro)) {
  const Razionale quota = Esatto(iva) * Esatto(percInd) / 100;
  const Razionale atteso = euro ? Razionale(Int(quota * 100)) / 100 : Razionale(Int(quota));
  RC_ASSERT(OFuoriCampo([&] { return IvaIndetraibile(iva, percInd, euro); }) == InImporto(atteso));
}

// The button for gross amounts: net, VAT and the part that isn't deductible are the gross again.
RC_GTEST_PROP(AritmeticaProprieta, ScorporoDelLordo, (bool euro)) {
  const auto fra = [](std::int64_t da, std::int64_t a) {
    return Importo::DaDecimillesimi(*rc::gen::inRange(da, a));
  };
  const Importo lordo = fra(-10'000'000'000, 10'000'000'000);
  const Importo aliquota = fra(0, 1'000'001);
  const Importo percInd = fra(0, 1'000'001);
  const Importo imponibile = ScorporaImponibile(lordo, aliquota);
  const Razionale netto = Tenuto(Grandezza(Esatto(lordo)) * 100 / (100 + Esatto(aliquota)));
  RC_ASSERT(Esatto(imponibile) == Segnato(AlCentesimo(netto), lordo));
  const Importo totale = lordo - imponibile;
  const Importo indetraibile = IvaIndetraibile(totale, percInd, euro);
  RC_ASSERT(imponibile + (totale - indetraibile) + indetraibile == lordo);
  // Between nothing and all of it, but for the cent (the lira) that the cut may take.
  const Importo passo = euro ? Importo::DaDecimillesimi(100) : Importo::DaUnita(1);
  RC_ASSERT(indetraibile.Assoluto() < totale.Assoluto() + passo);
}

RC_GTEST_PROP(AritmeticaProprieta, LireEdEuro, (Importo importo)) {
  const Razionale lire = Int(Esatto(importo) * kCambio + Razionale(1, 2));
  RC_ASSERT(OFuoriCampo([&] { return EuroInLire(importo, true); }) == InImporto(lire));
  RC_ASSERT(EuroInLire(importo, false) == importo);

  const int decimali = *rc::gen::inRange(0, 5);
  const Razionale s = Potenza(decimali);
  const Razionale euro = Int((Esatto(importo) / kCambio + Razionale(1, 2) / s) * s) / s;
  RC_ASSERT(OFuoriCampo([&] { return LireInEuro(importo, decimali); }) == InImporto(euro));
}

// The euro is worth more than 1,936 lire: whole lire survive the way there and back.
RC_GTEST_PROP(AritmeticaProprieta, LireAndataERitorno, ()) {
  const Importo lire =
      Importo::DaUnita(*rc::gen::inRange<std::int64_t>(-1'000'000'000, 1'000'000'000));
  RC_ASSERT(EuroInLire(LireInEuro(lire, 4), true) == lire);
}

RC_GTEST_PROP(AritmeticaProprieta, PrezzoNettoERiga,
              (Importo prezzo, Importo sc1, Importo sc2, Importo quantita, bool euro,
               bool arrotonda)) {
  const Importo sc3 = *rc::gen::arbitrary<Importo>();
  const auto netto = Netto(prezzo, {sc1, sc2, sc3});
  const auto ottenuto = OFuoriCampo([&] { return PrezzoNetto(prezzo, sc1, sc2, sc3); });
  RC_ASSERT(ottenuto == (netto ? InImporto(*netto) : std::nullopt));

  std::optional<Importo> atteso;
  if (netto) {
    const Razionale v = Tenuto(*netto * Esatto(quantita));
    const Razionale riga = !euro       ? Razionale(Int(v))
                           : arrotonda ? AlCentesimo(v)
                                       : Razionale(Int(v * 100)) / 100;
    if (InImporto(v)) atteso = InImporto(riga);
  }
  RC_ASSERT(OFuoriCampo([&] {
              return ImportoRiga(prezzo, sc1, sc2, sc3, quantita, euro, arrotonda);
            }) == atteso);
}

// Rows as shops write them, where no step can overflow: the generator above rarely stays there.
RC_GTEST_PROP(AritmeticaProprieta, RigheComuni, (bool euro, bool arrotonda)) {
  const auto fra = [](std::int64_t da, std::int64_t a) {
    return Importo::DaDecimillesimi(*rc::gen::inRange(da, a));
  };
  const Importo prezzo = fra(-50'000'000, 50'000'000);
  const Importo sc1 = fra(0, 1'000'001);
  const Importo sc2 = fra(0, 1'000'001);
  const Importo sc3 = fra(0, 1'000'001);
  const Importo quantita = fra(-1'000'000, 1'000'000);
  const Razionale v = Tenuto(*Netto(prezzo, {sc1, sc2, sc3}) * Esatto(quantita));
  const Razionale atteso = !euro       ? Razionale(Int(v))
                           : arrotonda ? AlCentesimo(v)
                                       : Razionale(Int(v * 100)) / 100;
  RC_ASSERT(ImportoRiga(prezzo, sc1, sc2, sc3, quantita, euro, arrotonda) == InImporto(atteso));
}

}  // namespace
}  // namespace fenalto
