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
#include <span>
#include <string>
#include <type_traits>

#include "core/session/Scheda.h"
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
  if constexpr (std::integral<T> || std::is_enum_v<T>) return Tipo::Intero;
  if constexpr (std::same_as<T, fenalto::Importo>) return Tipo::Importo;
  if constexpr (std::same_as<T, fenalto::Data>) return Tipo::Data;
  return Tipo::Testo;
}

template <class T>
void AssegnaMembro(T& membro, const Valore& valore) {
  if constexpr (std::same_as<T, bool>) {
    membro = valore.Booleano();
  } else if constexpr (std::integral<T> || std::is_enum_v<T>) {
    membro = static_cast<T>(valore.Intero());
  } else if constexpr (std::same_as<T, fenalto::Importo>) {
    membro = valore.Importo();
  } else if constexpr (std::same_as<T, fenalto::Data>) {
    membro = valore.Data();
  } else {
    membro = valore.Testo();
  }
}

template <class T>
Valore ValoreDelMembro(const T& membro) {
  if constexpr (std::is_enum_v<T>) {
    return static_cast<int>(membro);
  } else {
    return membro;
  }
}

template <class R, class T>
R ClasseDelMembro(T R::*);
template <class R, class T>
T TipoDichiarato(T R::*);

/// The field of a member: text, whole number, amount, date, yes or no, the number of an enumerator.
template <auto kMembro>
constexpr auto Campo(const char* nome) {
  using R = decltype(ClasseDelMembro(kMembro));
  using T = decltype(TipoDichiarato(kMembro));
  return CampoRiga<R>{nome, TipoDelMembro<T>(),
                      [](const R& riga) { return ValoreDelMembro(riga.*kMembro); },
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

/// Gives a record the fields of `R`.
template <class R>
void AggiungiCampi(Scheda& scheda, std::span<const CampoRiga<R>> campi) {
  for (const CampoRiga<R>& campo : campi) scheda.Aggiungi(campo.nome, campo.tipo);
}

/// Shows `riga` in the fields of the record.
template <class R>
void MostraCampi(Scheda& scheda, std::span<const CampoRiga<R>> campi, const R& riga) {
  for (const CampoRiga<R>& campo : campi) scheda.Scrivi(campo.nome, campo.leggi(riga));
}

/// `riga` with what the fields of the record hold; what they don't show stays as it is.
template <class R>
R LeggiCampi(const Scheda& scheda, std::span<const CampoRiga<R>> campi, R riga = {}) {
  for (const CampoRiga<R>& campo : campi) campo.scrivi(riga, scheda.Leggi(campo.nome));
  return riga;
}

}  // namespace fenalto::records
