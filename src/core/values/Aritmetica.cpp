#include "core/values/Aritmetica.h"

#include <stdexcept>

#include "core/values/Intero128.h"

namespace fenalto {

namespace {

constexpr Intero128 kScala = Importo::kScala;
/// Ten-thousandths of ten-thousandths in one unit times 100: what divides amount × percentage.
constexpr Intero128 kScalaPercento = kScala * kScala * 100;
/// Ten-thousandths in a cent.
constexpr Intero128 kCentesimo = kScala / 100;

Intero128 N(Importo importo) {
  return importo.Decimillesimi();
}

Intero128 Grandezza(Importo importo) {
  return importo.Negativo() ? -N(importo) : N(importo);
}

Importo ConSegno(Intero128 grandezza, Importo origine) {
  return ImportoDa128(origine.Negativo() ? -grandezza : grandezza);
}

/// Ten-thousandths cut to a multiple of `passo`, towards minus infinity.
Intero128 Taglia(Intero128 n, Intero128 passo) {
  return QuozientePavimento(n, passo) * passo;
}

/// Ten-thousandths in the last of `decimali` places.
Intero128 Passo(int decimali) {
  if (decimali < 0 || decimali > 4) throw std::invalid_argument("decimali fuori da 0..4");
  Intero128 passo = kScala;
  for (; decimali > 0; --decimali) passo /= 10;
  return passo;
}

}  // namespace

std::optional<ModoArrotonda> ModoDaNumero(int numero) {
  if (numero < 1 || numero > 3) return std::nullopt;
  return static_cast<ModoArrotonda>(numero);
}

Importo Arrotonda(Importo importo, int decimali, ModoArrotonda modo) {
  const Intero128 passo = Passo(decimali);
  Intero128 aggiunta = 0;
  if (modo == ModoArrotonda::Eccesso) aggiunta = QuozienteVicino(passo * 9'999, kScala);
  if (modo == ModoArrotonda::Vicino) aggiunta = QuozienteVicino(passo, 2);
  return ConSegno(Taglia(Grandezza(importo) + aggiunta, passo), importo);
}

Importo CalcolaIva(Importo imponibile, Importo aliquota, bool euro) {
  const Intero128 prodotto = Grandezza(imponibile) * N(aliquota);
  if (euro) {
    const Intero128 mezzoCentesimo = kCentesimo / 2;
    const Intero128 iva = QuozienteVicino(prodotto, kScala * 100) + mezzoCentesimo;
    return ConSegno(Taglia(iva, kCentesimo), imponibile);
  }
  const Intero128 soglia = kScalaPercento / 1'000 * 999;
  return ConSegno(QuozientePavimento(prodotto + soglia, kScalaPercento) * kScala, imponibile);
}

Importo ScorporaImponibile(Importo lordo, Importo aliquota) {
  Intero128 divisore = kScala * 100 + N(aliquota);
  if (divisore == 0) throw std::domain_error("aliquota del -100%: nessun imponibile");
  Intero128 dividendo = Grandezza(lordo) * kScala * 100;
  if (divisore < 0) {
    divisore = -divisore;
    dividendo = -dividendo;
  }
  const Importo netto = ImportoDa128(QuozienteVicino(dividendo, divisore));
  const Importo imponibile = Arrotonda(netto, 2, ModoArrotonda::Vicino);
  return lordo.Negativo() ? -imponibile : imponibile;
}

Importo IvaIndetraibile(Importo iva, Importo percInd, bool euro) {
  const Intero128 prodotto = N(iva) * N(percInd);
  if (!euro) return ImportoDa128(QuozientePavimento(prodotto, kScalaPercento) * kScala);
  return ImportoDa128(QuozientePavimento(prodotto, kScala * kScala) * kCentesimo);
}

Importo ApplicaScontoCassa(Importo importo, Importo sconto, bool euro) {
  if (!euro) {
    const Intero128 lire = QuozientePavimento(N(importo) * N(sconto), kScalaPercento);
    return ImportoDa128(N(importo) - lire * kScala);
  }
  const Intero128 netto = N(importo) * (kScala * 100 - N(sconto));
  return ImportoDa128(QuozientePavimento(netto, kScala * 100 * kCentesimo) * kCentesimo);
}

Importo EuroInLire(Importo importo, bool converti) {
  if (!converti) return importo;
  const Intero128 scala = kScala * kScala;
  const Intero128 lire = QuozientePavimento(N(importo) * N(kLirePerEuro) + scala / 2, scala);
  return ImportoDa128(lire * kScala);
}

Importo LireInEuro(Importo importo, int decimali) {
  const Intero128 passo = Passo(decimali);
  const Intero128 cambio = N(kLirePerEuro);
  // In units of the last place: importo × S / cambio + 1/2, over the common denominator.
  const Intero128 n = 2 * N(importo) * (kScala / passo) + cambio;
  return ImportoDa128(QuozientePavimento(n, 2 * cambio) * passo);
}

Importo PrezzoNetto(Importo prezzo, Importo sconto1, Importo sconto2, Importo sconto3) {
  for (const Importo sconto : {sconto1, sconto2, sconto3}) prezzo -= prezzo.Percento(sconto);
  return prezzo;
}

Importo ImportoRiga(Importo prezzo, Importo sconto1, Importo sconto2, Importo sconto3,
                    Importo quantita, bool euro, bool arrotonda) {
  const Importo importo = PrezzoNetto(prezzo, sconto1, sconto2, sconto3).Per(quantita);
  if (euro && arrotonda) return Arrotonda(importo, 2, ModoArrotonda::Vicino);
  return ImportoDa128(Taglia(N(importo), euro ? kCentesimo : kScala));
}

}  // namespace fenalto
