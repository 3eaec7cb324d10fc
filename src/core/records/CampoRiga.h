// What a kind of rows consists of: its fields, named once, for the row frame, for reading and for
// writing.
//
//   struct RigaOrdine { std::int64_t posi = 0; std::string prodotto; Importo quantita; };
//   constexpr CampoRiga<RigaOrdine> kCampi[] = {Campo<&RigaOrdine::posi>("Posi"),
//                                               Campo<&RigaOrdine::prodotto>("Prodotto"),
//                                               Campo<&RigaOrdine::quantita>("Quantita")};
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>

#include "core/values/Valore.h"

namespace fenalto::records {

/// A field of the rows `R`: the name that control and column bear, and its member.
template <class R>
struct CampoRiga {
  const char* nome;
  fenalto::Tipo tipo;
  Valore (*leggi)(const R& riga);
  /// Converts; throws as Valore does for what can't be converted.
  void (*scrivi)(R& riga, const Valore& valore);
};

template <class T>
constexpr fenalto::Tipo TipoDelMembro() {
  if constexpr (std::same_as<T, bool>) return Tipo::Booleano;
  if constexpr (std::integral<T>) return Tipo::Intero;
  if constexpr (std::same_as<T, fenalto::Importo>) return Tipo::Importo;
  if constexpr (std::same_as<T, fenalto::Data>) return Tipo::Data;
  return Tipo::Testo;
}

template <class T>
void AssegnaMembro(T& membro, const Valore& valore) {
  if constexpr (std::same_as<T, bool>) {
    membro = valore.Booleano();
  } else if constexpr (std::integral<T>) {
    membro = static_cast<T>(valore.Intero());
  } else if constexpr (std::same_as<T, fenalto::Importo>) {
    membro = valore.Importo();
  } else if constexpr (std::same_as<T, fenalto::Data>) {
    membro = valore.Data();
  } else {
    membro = valore.Testo();
  }
}

template <class R, class T>
R ClasseDelMembro(T R::*);
template <class R, class T>
T TipoDichiarato(T R::*);

/// The field of a member: text, whole number, amount, date, yes or no.
template <auto kMembro>
constexpr auto Campo(const char* nome) {
  using R = decltype(ClasseDelMembro(kMembro));
  using T = decltype(TipoDichiarato(kMembro));
  return CampoRiga<R>{nome, TipoDelMembro<T>(), [](const R& riga) { return Valore(riga.*kMembro); },
                      [](R& riga, const Valore& valore) { AssegnaMembro(riga.*kMembro, valore); }};
}

/// The field of an element of an array of texts.
template <auto kMembro, std::size_t kIndice>
constexpr auto CampoElemento(const char* nome) {
  using R = decltype(ClasseDelMembro(kMembro));
  return CampoRiga<R>{
      nome, Tipo::Testo, [](const R& riga) { return Valore((riga.*kMembro)[kIndice]); },
      [](R& riga, const Valore& valore) { (riga.*kMembro)[kIndice] = valore.Testo(); }};
}

}  // namespace fenalto::records
