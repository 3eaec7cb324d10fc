// A product as documents, reports and fields read it, and the ways to find one.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "core/records/CampoRiga.h"
#include "core/session/Ambiente.h"

namespace fenalto::warehouse {

inline constexpr const char* kTabellaProdotti = "CodiciRiga";

/// Greatest length of a code: the place it has on reports.
inline constexpr int kCaratteriCodiceProdotto = 18;
/// Discounts go up to the whole price.
inline constexpr Importo kScontoMassimo = Importo::DaDecimillesimi(1'000'000);
inline constexpr const char* kScontoTroppoAlto = "lo sconto non può superare 100";

/// A row of `CodiciRiga`.
struct Prodotto {
  std::int64_t id = 0;
  std::string cod;
  std::string descrizione;  ///< several lines; PrimaLinea of it where there is room for one
  std::string descrizione1;
  std::string descrizione2;
  std::string um;
  std::string uma;
  Importo conversioneA;
  std::string barcode;
  Importo prezzo;
  Importo sc;
  Importo prezzo2;
  Importo sc2;
  Importo prezzo3;
  Importo sc3;
  Importo prezzoIva;
  Importo ricarico;
  Importo prezzoCampagna;
  Importo scCampagna;
  Data validDal;
  Data validAl;
  Data dtAggPrezzi;
  Importo costoDigitato;
  std::string codIva;
  std::string conto;
  Importo prov;
  std::string categoriaMag;
  std::string categoriaMag2;
  std::string gruppoMag;
  std::string gruppoMag2;
  Importo qMinRiordino;
  Importo scorta;
  std::string posMag;
  int ggScad = 0;
  std::string fileDescrizione;
  std::string fileImmagine;
  bool fuoriUso = false;
};

std::span<const records::CampoRiga<Prodotto>> CampiProdotto();

/// The product of that code; nothing when there is none.
std::optional<Prodotto> LeggiProdotto(Ambiente& ambiente, const std::string& codice);

/// Code of the product that a scanner or a hand means: the one of that code, else the one of that
/// barcode (of several the first in use, by code); nothing when there is none.
std::optional<std::string> TrovaProdotto(Ambiente& ambiente, const std::string& letto);

/// A row of `prodottiFor_r`: what a supplier asks for a product.
struct FornitoreProdotto {
  std::int64_t posi = 0;
  std::string fornitore;
  std::string codPrFor;
  std::string descrizione;  ///< for orders
  Importo prezzo;
  Importo sc1;
  Importo sc2;
  Importo sc3;
};

std::span<const records::CampoRiga<FornitoreProdotto>> CampiFornitoreProdotto();

/// What that supplier asks for that product; nothing when it has no row there.
std::optional<FornitoreProdotto> LeggiFornitoreProdotto(Ambiente& ambiente,
                                                        const std::string& prodotto,
                                                        const std::string& fornitore);

}  // namespace fenalto::warehouse
