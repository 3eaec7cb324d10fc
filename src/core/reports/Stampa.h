// The print object: a report hands it fixed-width lines (text mode) or named fields of a page model
// (graphic mode), and it makes pages for the chosen output.
//
// In text mode a page is A4 with margins of 5 mm and holds what PaginaTesto.h tells. A page is
// handed to the output as soon as it is full and not kept, so that a report of any length takes the
// memory of one page. Pages begin with the first thing printed on them, so that a page just filled
// at the end of the report is not followed by an empty one; a report that prints nothing gives one
// page with its heading.
//
// Order of use: Inizio, then Modello/ModoTesto/CarattereTesto/Dimensioni, Titolo, Intestazione,
// then Campo and Riga, or CampoModello and AvanzaRiga, NuovaPagina, Fine. When a page is full the
// engine ends it and calls the report's heading. After a cancelled or failed output everything is
// ignored and Interrotta() is true.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/reports/ModelloStampa.h"
#include "core/reports/Sagoma.h"
#include "core/reports/Uscita.h"
#include "core/session/Ambiente.h"

namespace fenalto::reports {

class Stampa {
 public:
  Stampa(Ambiente& ambiente, FabbricaUscite& uscite);
  ~Stampa();

  /// Asks for the output of the report of that name; false when cancelled, and the report ends.
  bool Inizio(const std::string& rapporto);
  /// Starts on an output given beforehand (tests, measures).
  void Inizio(std::unique_ptr<Uscita> uscita);
  [[nodiscard]] bool SoloTesto() const;

  /// Loads a model; tells the user what is wrong and returns false when it can't: the report stops.
  bool Modello(const std::filesystem::path& percorso);
  /// A model made for this report.
  void Modello(ModelloStampa modello);
  void ModoTesto(bool attivo);
  /// Whether lines are named fields of the model, not templates.
  [[nodiscard]] bool Grafico() const;
  /// Pitch of text mode, in characters an inch.
  void CarattereTesto(int passo);
  /// Horizontal position of graphic mode: 10 plus the form's correction, in millimetres. Models are
  /// drawn for 10; anything else moves all that stands on the page by the difference.
  void Dimensioni(double x);
  void Titolo(const std::string& titolo);
  /// The report's heading, called at the start of every page. Lines it prints take room of the
  /// page.
  void Intestazione(std::function<void()> intestazione);
  /// Widest line that the report prints in text mode: the page turns to landscape when it needs it,
  /// and narrows the pitch when that isn't enough. A wider line printed later does the same from
  /// its page on.
  void Larghezza(std::size_t caratteri);

  // --- Text mode ---
  /// The value of the n-th placeholder of the next template, from 1.
  void Campo(std::size_t n, const Valore& valore);
  /// All of them at once, from the first.
  void Campi(std::vector<Valore> valori);
  /// Prints one line with the placeholders filled, and forgets the values. An empty template prints
  /// an empty line. Templates are compiled once and kept.
  void Riga(std::string_view sagoma, const Rinvio& rinvio = {}, bool grassetto = false);
  /// As Riga, without printing.
  std::string Formato(std::string_view sagoma);
  /// Lines left on this page (text mode) or body lines left before the mark of continuation
  /// (graphic mode). Begins the page when none is begun, so that the heading is counted.
  [[nodiscard]] int RigheLibere() const;
  /// Starts a new page unless that many lines are left, so that a heading never stands alone.
  void Riserva(int righe);

  // --- Graphic mode ---
  /// Puts a value in a named field, at the vertical position `y` for a body field (`R_...`); fields
  /// that the model lacks are not printed.
  void CampoModello(std::string_view nome, const Valore& valore, double y = 0,
                    const Rinvio& rinvio = {});
  /// The lines in which a text goes into a field of the model, broken where its width asks for it;
  /// the text as it is where the model lacks the field.
  [[nodiscard]] std::vector<std::string> InCampo(std::string_view nome,
                                                 std::string_view testo) const;
  /// Whether the model has the field go on in the lines below; without a name, whether any does.
  [[nodiscard]] bool VaACapo(std::string_view nome = {}) const;
  /// A model's field PagTot prints the number of pages of the report by itself, where the output
  /// can know it (see kSegnoPagineTotali); every other field is the report's.
  ///
  /// Position of the next body line and the page's measures, in millimetres. Below AltezzaPagina
  /// less MargineBasso there is only room for the mark of continuation.
  [[nodiscard]] double YCorrente() const;
  [[nodiscard]] double AltezzaPagina() const;
  [[nodiscard]] double MargineBasso() const;
  /// Moves to the next body line; when the page is full, prints the mark "segue su pagina
  /// successiva" in R_DESCRIZIONE, ends the page and calls the heading.
  /// Both happen when the next line is asked for (YCorrente, Filetto, AvanzaRiga), so that a report
  /// that ends with the page leaves no mark.
  void AvanzaRiga();
  /// A rule across the body at the current position.
  void Filetto();

  void NuovaPagina();
  /// Pages begun; in the heading, the number of its page.
  [[nodiscard]] int NumeroPagina() const;
  [[nodiscard]] bool Interrotta() const;
  /// Ends the output. False when it was cancelled or failed (told to the user).
  bool Fine();

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::reports
