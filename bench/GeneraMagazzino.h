// A company whose warehouse is measured: products, documents with their rows, orders and jobs.
#pragma once

#include <string>

#include "core/session/Ambiente.h"

namespace fenalto::banco {

/// 50,000 products with 1,000,000 rows of documents over three years; a tenth and a hundredth of
/// that.
inline constexpr const char* kDittaMagazzino = "Magazzino";
inline constexpr const char* kDittaMagazzinoDecima = "MagazzinoDecimo";
inline constexpr const char* kDittaMagazzinoCentesima = "MagazzinoCentesimo";
inline constexpr int kProdottiMagazzino = 50'000;

/// Makes it, with one part in `parte` of products and rows, unless it is there.
void GeneraMagazzino(const OpzioniAmbiente& opzioni, const char* ditta, int parte = 1);
std::string CodiceProdotto(int numero);

}  // namespace fenalto::banco
