// The frame of the windows that choose what a report shows: the record of the choice with its
// described form, the two choices of print, the buttons `Stampa` and `XlsEsp`.
//
// A window names the fields of its choice once (records::CampoRiga), proposes it, builds its form
// and says what `Stampa` and `Foglio` are.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include "core/records/CampoRiga.h"
#include "core/reports/Foglio.h"
#include "core/reports/SceltaRifiutata.h"
#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/OpzioniGrafiche.h"
#include "screens/common/windows/FinestraFunzione.h"

class QHBoxLayout;
class QVBoxLayout;

namespace fenalto::screens {

class FinestraRapporto : public FinestraFunzione {
  Q_OBJECT

 public:
  FinestraRapporto(const QString& nome, const QString& titolo, Finestre& finestre);
  ~FinestraRapporto() override;

 protected:
  /// What stands below the form beside `Stampa`.
  enum class Piede { SoloStampa, Opzioni, OpzioniEFoglio };

  /// The fields of a choice join the record as `proposta` has them.
  template <class R, std::size_t N>
  void Proponi(const records::CampoRiga<R> (&campi)[N], const R& proposta) {
    records::AggiungiCampi<R>(scheda_, campi);
    records::MostraCampi<R>(scheda_, campi, proposta);
  }
  /// The choice as it was typed, with the choices of print where it has them.
  template <class R, std::size_t N>
  [[nodiscard]] R Scelta(const records::CampoRiga<R> (&campi)[N]) const {
    R scelta = records::LeggiCampi<R>(scheda_, campi);
    if constexpr (requires { scelta.stGrafico; }) opzioni_->Prendi(scelta);
    return scelta;
  }
  /// The form, with `Stampa` and what goes beside it below, and the record shown. Where its frames
  /// stand.
  QVBoxLayout& Compila(records::DescrizioneForma forma, Piede piede);
  /// The form alone, on pages of the window's own; CreaOpzioni and Mostra are left to it.
  void Compila(records::DescrizioneForma forma, const CampiForma::Pagine& pagine);
  /// Adds `StGrafico` and `XTar` to the record.
  OpzioniGrafiche& CreaOpzioni();

  /// Whose refusals take the focus to their field.
  void RifiutiDi(const reports::SceltaRifiutata& caso) { caso_ = &caso; }

  [[nodiscard]] Scheda& Record() { return scheda_; }
  [[nodiscard]] const Scheda& Record() const { return scheda_; }
  [[nodiscard]] const OpzioniGrafiche& Opzioni() const { return *opzioni_; }
  /// Shows the record in its fields, and these as they are for it.
  void Mostra();
  /// Takes what is typed; false when a field can't be read (told).
  [[nodiscard]] bool Raccogli() { return legatura_->Raccogli(); }
  /// A report, a sheet or something else is being read.
  [[nodiscard]] bool Leggendo() const { return leggendo_; }
  /// Does `lavoro` as a reading under way: events that come through begin no other.
  void InLettura(const std::function<void()>& lavoro);
  /// The same with what is typed, unless something is being read; the focus goes to what was
  /// refused.
  void Raccolto(const std::function<void()>& lavoro);

  /// How a field is shown for the choice as it is now.
  [[nodiscard]] virtual records::StatoCampo Stato(const std::string& /*campo*/) { return {}; }
  /// A field was left with a new value.
  virtual void Cambiato(const std::string& /*campo*/) {}
  virtual void Stampa() {}
  /// The choice as a sheet; without columns when there is nothing to write (told).
  virtual reports::Foglio Foglio() { return {}; }
  /// What the sheet is called where its file is asked for.
  [[nodiscard]] virtual std::string NomeFoglio() const { return {}; }

 private:
  QHBoxLayout* CreaPiede(Piede piede);
  void MostraStati();
  void EsportaFoglio();

  Scheda scheda_;
  Legatura* legatura_;
  OpzioniGrafiche* opzioni_ = nullptr;
  std::unique_ptr<CampiForma> campi_;
  const reports::SceltaRifiutata* caso_ = nullptr;
  bool leggendo_ = false;
};

}  // namespace fenalto::screens
