// What a form consists of, as tables: its fields with their captions, widths, sources and places,
// the frames and pages that they stand in.
//
// A record of an archive, the head of a document and the frame of its open row are forms alike; one
// builder (screens/common/fields/CampiForma.h) makes the controls of any. A field is a line of its
// own in its frame, which is a grid of pairs of caption and field; one with `accanto` stands on the
// line of the field before it, one with `colonna` in a further pair of that row of the grid. How a
// field is shown for the record as it is now (StatoCampo) is told by whoever owns the record.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace fenalto::records {

enum class GenereCampo {
  Auto,       ///< from the field's type: text, whole number, amount, date, check box
  Codice,     ///< code of an archive, with search and jump
  Note,       ///< a text of several lines
  Opzioni,    ///< radio buttons, one a value
  Elenco,     ///< a value picked from a list
  Combinata,  ///< one letter, typed or picked, always a capital
  Etichetta,  ///< shown, not typed; of a field of the record, or told by the state
  Titolo,     ///< the same, in bold
  Sommessa,   ///< the same, quieter than what is typed
  Pulsante    ///< a button between fields; what it does is the window's
};

/// One value of a field of radio buttons or of a list, or one line of the legend beside a typed
/// one.
struct VoceScelta {
  std::string valore;
  std::string testo = {};
  std::string nome = {};  ///< object name of the radio button
};

/// As many decimals as the company's money has.
inline constexpr int kDecimaliMoneta = -1;

struct CampoForma {
  std::string nome;  ///< field of the record, and object name of the control
  std::string didascalia = {};
  int caratteri = 0;  ///< width shown; for texts also the greatest length. 0: from the type
  GenereCampo genere = GenereCampo::Auto;
  /// Of a code: a name of `Fonti` (core/archives/FonteCodici.h); empty when the window gives it.
  std::string fonte = {};
  std::vector<VoceScelta> scelte = {};  ///< radio buttons, list, or legend of a typed field
  std::string nota = {};                ///< a short text beside the field
  bool elenco = false;                  ///< a column of the archive's list
  bool maiuscole = false;               ///< typed letters become capitals
  int decimali = 2;                     ///< least decimals of an amount, or kDecimaliMoneta
  std::string riquadro = {};            ///< object name of the frame it stands in, empty for none
  bool accanto = false;                 ///< on the line of the field before it
  int digitabili = 0;                   ///< length typed, when what parts the digits is taken away
  int mostrati = 0;                     ///< width shown, when it isn't `caratteri`
  std::string suggerimento = {};        ///< tooltip
  std::string segnaposto = {};          ///< shown in the empty field
  std::string capoLinea = {};           ///< caption of the line that a check box begins
  std::string nomeDidascalia = {};      ///< object name of a caption that the state changes
  int colonna = 0;         ///< pair of the grid: a greater one than before stays on the same row
  int colonne = 1;         ///< pairs that it takes
  int peso = 0;            ///< share of the room left that it (a code's description) takes; 0: none
  int turno = 0;           ///< in the tab order: lower ones first, those alike as they stand
  bool alMargine = false;  ///< begins where captions do
  bool fermo = false;      ///< to be read and copied, not typed
  /// Passing through it by key counts as leaving it with a new value.
  bool anchePassando = false;

  // What a table adds to a field, so that each is a line of it:
  //   Digitato("NProt", "Protocollo").Accanto().Mostra(8).Aiuto(kAssegnato).Turno(2),
  CampoForma&& Di(GenereCampo suo) && { return Con(genere, suo); }
  CampoForma&& In(std::string nomeRiquadro) && { return Con(riquadro, std::move(nomeRiquadro)); }
  CampoForma&& Accanto() && { return Con(accanto, true); }
  CampoForma&& AlMargine() && { return Con(alMargine, true); }
  CampoForma&& Maiuscolo() && { return Con(maiuscole, true); }
  CampoForma&& Elencato() && { return Con(elenco, true); }
  CampoForma&& Fermo() && { return Con(fermo, true); }
  CampoForma&& AnchePassando() && { return Con(anchePassando, true); }
  CampoForma&& Mostra(int quanti) && { return Con(mostrati, quanti); }
  CampoForma&& Digitabili(int quanti) && { return Con(digitabili, quanti); }
  CampoForma&& Decimali(int quanti) && { return Con(decimali, quanti); }
  CampoForma&& Colonna(int quale) && { return Con(colonna, quale); }
  CampoForma&& Colonne(int quante) && { return Con(colonne, quante); }
  CampoForma&& Peso(int suo) && { return Con(peso, suo); }
  CampoForma&& Turno(int suo) && { return Con(turno, suo); }
  CampoForma&& Aiuto(std::string testo) && { return Con(suggerimento, std::move(testo)); }
  CampoForma&& Nota(std::string testo) && { return Con(nota, std::move(testo)); }
  CampoForma&& Segnaposto(std::string testo) && { return Con(segnaposto, std::move(testo)); }
  CampoForma&& CapoLinea(std::string testo) && { return Con(capoLinea, std::move(testo)); }
  CampoForma&& Nomina(std::string diDidascalia) && {
    return Con(nomeDidascalia, std::move(diDidascalia));
  }
  CampoForma&& Scelte(std::vector<VoceScelta> voci) && { return Con(scelte, std::move(voci)); }

 private:
  template <class T>
  CampoForma&& Con(T& membro, T valore) {
    membro = std::move(valore);
    return std::move(*this);
  }
};

/// A field of the record's own type.
inline CampoForma Digitato(std::string nome, std::string didascalia = {}, int caratteri = 0) {
  return {.nome = std::move(nome), .didascalia = std::move(didascalia), .caratteri = caratteri};
}

/// An amount in the company's money.
inline CampoForma DiMoneta(std::string nome, std::string didascalia, int caratteri) {
  return Digitato(std::move(nome), std::move(didascalia), caratteri).Decimali(kDecimaliMoneta);
}

inline CampoForma DiCodice(std::string nome, std::string didascalia, std::string fonte,
                           int caratteri = 0) {
  CampoForma campo = Digitato(std::move(nome), std::move(didascalia), caratteri);
  campo.genere = GenereCampo::Codice;
  campo.fonte = std::move(fonte);
  return campo;
}

/// A label.
inline CampoForma Mostrato(std::string nome, GenereCampo genere, std::string didascalia = {}) {
  return {.nome = std::move(nome), .didascalia = std::move(didascalia), .genere = genere};
}

/// A frame of a form. Its fields name it.
struct RiquadroForma {
  std::string nome;
  std::string titolo;
  std::string pagina = {};  ///< page it stands on, empty for the first
  bool largo = false;       ///< has a line of its own
  bool accanto = false;     ///< stays on the line of the frame before it, however wide
  /// It stands in the grid of the fields without a frame, before the next of them: its first pair,
  /// pairs and rows; no rows for one beside or under that grid.
  int colonna = 0;
  int colonne = 1;
  int righe = 0;
  /// The check box that turns a rare frame on: the other fields are folded away while it is off.
  std::string interruttore = {};
};

/// A page of the form after the first, which has the record's title. Frames name it.
struct PaginaForma {
  std::string nome;  ///< object name
  std::string titolo;
};

/// How a field, a frame or a button is shown for the record as it is now.
struct StatoCampo {
  bool visibile = true;
  bool attivo = true;
  std::optional<std::string> didascalia = {};    ///< another caption
  std::optional<std::string> testo = {};         ///< of a label that is no field of the record
  std::optional<std::string> suggerimento = {};  ///< another tooltip
  std::optional<std::string> fonte = {};         ///< another source of a code
};

struct DescrizioneForma {
  std::vector<CampoForma> campi = {};
  std::vector<RiquadroForma> riquadri = {};
  std::vector<PaginaForma> pagine = {};
  bool stretta = false;  ///< lines close together
};

}  // namespace fenalto::records
