// What is typed and not confirmed yet: kept beside the data, so that a killed program doesn't lose
// it, and offered again to the same user at the same station.
//
// A use case with a head and rows holds one, and tells it what becomes of its record:
//
//   records::Bozza<RigaOrdine> bozza{ambiente, "Ordini", kCampi, {"ProbabileNumDoc"}};
//
//   Nuovo(), Apri():      ... documento.Inizia() or Mostra(); last:
//                         if (documento.Modificabile()) bozza.Inizia(anno, "", testa, righe);
//                         (a stored record by a key that Apri understands, in place of "")
//   after a field was left, a row opened, confirmed, deleted, given up:
//                         bozza.Segna(testa, righe);
//   Conferma():           at the beginning of .scrivi: bozza.InConferma(true); where it failed:
//                         bozza.InConferma(false);
//   confirmed, deleted (at once, before anything is told), given up:
//                         bozza.Fine();
//
//   Riprendi():           the window asks it once, when it has come up:
//     const auto lasciata = bozza.Offri({"un documento non confermato", "lo"});
//     if (!lasciata) return false;
//     if (lasciata->record.empty() ? !Nuovo() : !Apri(...)) return bozza.NonRipresa(perche);
//     if (!bozza.Concorda(*lasciata)) { Abbandona(); return bozza.NonRipresa(perche); }
//     bozza.RiempiTesta(*lasciata, testa);
//     righe.Sostituisci(bozza.RigheDi(*lasciata, righe));   and what follows from rows: totals,
//     texts bozza.RiempiRiga(*lasciata, righe);                   the row that was open return
//     bozza.Ripresa(testa, righe);
//
// What the form's state has besides (a ticked option, the type chosen) is a note: `Nota` before
// Segna, `lasciata->Nota` afterwards. Nothing is written before something differs from the record
// as it was begun; then what differs, a line a field or row, and of a new record everything.
#pragma once

#include <algorithm>
#include <concepts>
#include <cstdint>
#include <exception>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/records/CampoRiga.h"
#include "core/records/FileBozza.h"
#include "core/records/Righe.h"
#include "core/session/Ambiente.h"
#include "core/session/Scheda.h"

namespace fenalto::records {

/// Fields by name, as neutral texts.
using CampiBozza = std::map<std::string, std::string, std::less<>>;

/// A draft that a program has left.
struct BozzaLasciata {
  int anno = 0;
  std::string record;  ///< key of the stored record that was being corrected; empty for a new one
  std::string quando;  ///< begun: "15/03/2024 10:00"
  std::string impronta;
  CampiBozza testa;
  CampiBozza note;
  /// By their order in the record as it was read, then as they came; nothing for one deleted.
  std::map<std::int64_t, std::optional<CampiBozza>> righe;
  std::optional<CampiBozza> aperta;         ///< fields of the row that was open
  std::optional<std::int64_t> qualeAperta;  ///< which one, nothing for a new row

  [[nodiscard]] std::string Nota(std::string_view nome) const;
};

/// Names in the file: a row by its number, the row that is open; and what stands for a row deleted.
inline constexpr const char* kRigaBozza = "R";
inline constexpr std::string_view kApertaBozza = "A";
inline constexpr std::string_view kTolta = "-";

/// How the question calls what is not confirmed.
struct ParoleBozza {
  std::string cosa;     ///< "un documento non confermato"
  std::string pronome;  ///< "lo"
};

/// What a draft has to do with its file and with the head.
class BozzaDiTesta {
 public:
  BozzaDiTesta(Ambiente& ambiente, std::string_view funzione, std::vector<std::string> esclusi);

  /// Asks whether to go on with a draft, if one is there. One of another year is told and stays,
  /// one that is given up goes.
  [[nodiscard]] std::optional<BozzaLasciata> Offri(const ParoleBozza& parole);
  /// The record stands as it stood when the draft was begun.
  [[nodiscard]] bool Concorda(const BozzaLasciata& lasciata) const;
  /// Takes its notes over too.
  void RiempiTesta(const BozzaLasciata& lasciata, Scheda& testa);
  /// The draft can't be gone on with: tells why. It goes, unless it can be gone on with later.
  /// False.
  bool NonRipresa(const std::string& perche, bool resta = false);

  /// Something else that belongs to the open record's state; kept along with what is typed.
  void Nota(std::string_view nome, const Valore& valore);
  /// The record is about to be written: a draft that is found so may be of one that was.
  void InConferma(bool inCorso) noexcept;
  /// The record is confirmed, deleted or given up.
  void Fine() noexcept;

 protected:
  void IniziaTesta(int anno, std::string record, const Scheda& testa);
  void Impronta(std::string_view testo);
  /// Whether the head differs from what it was at the beginning.
  [[nodiscard]] bool TestaDiversa(const Scheda& testa) const;
  /// Puts what every draft has and what differs in the head.
  void MettiTesta(const Scheda& testa);
  /// Nothing differs any more: no file.
  void Annulla() noexcept;
  [[nodiscard]] bool Attiva() const { return attiva_; }
  [[nodiscard]] bool Nuova() const { return record_.empty(); }
  /// What was offered is now in the record, and kept anew: its file goes.
  void ButtaRipresa() noexcept;

  FileBozza file_;

 private:
  [[nodiscard]] bool Escluso(std::string_view campo) const;
  [[nodiscard]] std::string Domanda(const BozzaLasciata& lasciata, bool inConferma,
                                    const ParoleBozza& parole) const;

  Ambiente& ambiente_;
  std::string funzione_;
  std::vector<std::string> esclusi_;
  std::optional<FileBozza::Lasciato> ripresa_;
  bool attiva_ = false;
  int anno_ = 0;
  std::string record_;
  std::string quando_;
  std::uint64_t impronta_ = 0;
  CampiBozza base_;  ///< the head as the record was begun
  CampiBozza note_;
};

/// Texts of what isn't empty.
template <class R>
VoceBozza VoceDiRiga(const R& riga, std::span<const CampoRiga<R>> campi) {
  VoceBozza voce;
  for (const CampoRiga<R>& campo : campi) {
    std::string testo = campo.leggi(riga).Neutro();
    if (testo == Valore::Vuoto(campo.tipo).Neutro()) continue;
    voce.emplace_back(campo.nome);
    voce.push_back(std::move(testo));
  }
  return voce;
}

/// Sets a field from its text; one that can't be read stays as it is.
template <class F>
void DaTesto(const CampiBozza& campi, std::string_view nome, Tipo tipo, F scrivi) {
  const auto trovato = campi.find(nome);
  try {
    scrivi(trovato == campi.end() ? Valore::Vuoto(tipo) : Valore(trovato->second));
  } catch (const std::exception&) {
    return;
  }
}

template <class R>
class Bozza : public BozzaDiTesta {
 public:
  /// `campi`: all that a row is made of again, more than its frame shows if need be; they outlive
  /// this. `esclusi`: fields of the head that are only shown.
  Bozza(Ambiente& ambiente, std::string_view funzione, std::span<const CampoRiga<R>> campi,
        std::vector<std::string> esclusi = {})
      : BozzaDiTesta(ambiente, funzione, std::move(esclusi)), campi_(campi) {}

  void Inizia(int anno, std::string record, const Scheda& testa, const Righe<R>& righe) {
    IniziaTesta(anno, std::move(record), testa);
    chiavi_.clear();
    ultime_.clear();
    ultimaChiave_ = 0;
    versione_ = righe.Versione();
    std::int64_t posto = 0;
    for (const R* riga : InOrdine(righe)) {
      for (const std::string& testo : VoceDiRiga(*riga, campi_)) Impronta(testo);
      ultime_.emplace(ChiaveDi(*riga, ++posto), *riga);
    }
  }

  /// Keeps what differs since the last time.
  void Segna(const Scheda& testa, const Righe<R>& righe) {
    if (!Attiva()) return;
    if (!righe.Modificate() && !righe.Digitando() && !TestaDiversa(testa)) return Annulla();
    const bool prima = !file_.Scritto();
    MettiTesta(testa);
    if (prima || versione_ != righe.Versione()) MettiRighe(righe, prima && Nuova());
    versione_ = righe.Versione();
    MettiAperta(righe);
    file_.Scarica();
  }

  /// The rows as they are to be, upon those of the record that was just opened or begun.
  [[nodiscard]] std::vector<R> RigheDi(const BozzaLasciata& lasciata, const Righe<R>& righe) {
    std::vector<R> nuove;
    std::int64_t chiave = 0;
    const auto prendi = [&](R riga) {
      if (lasciata.qualeAperta == chiave) posiAperta_ = riga.posi;
      nuove.push_back(std::move(riga));
    };
    for (const R* riga : InOrdine(righe)) {
      const auto cambiata = lasciata.righe.find(++chiave);
      if (cambiata == lasciata.righe.end()) {
        prendi(*riga);
      } else if (cambiata->second) {
        prendi(Letta(*cambiata->second, *riga));
      }
    }
    for (auto altra = lasciata.righe.upper_bound(chiave); altra != lasciata.righe.end(); ++altra) {
      chiave = altra->first;
      if (altra->second) prendi(Letta(*altra->second, R{}));
    }
    return nuove;
  }

  /// Opens the row that was open, as it was typed; once the others are there.
  void RiempiRiga(const BozzaLasciata& lasciata, Righe<R>& righe) const {
    if (!lasciata.aperta) return;
    const bool esistente = lasciata.qualeAperta && righe.Apri(&R::posi, posiAperta_);
    if (!esistente) righe.Nuova(R{});
    for (const std::string& nome : righe.Riga().Nomi()) {
      DaTesto(*lasciata.aperta, nome, righe.Riga().TipoDi(nome),
              [&](const Valore& valore) { righe.Riga().Scrivi(nome, valore); });
    }
  }

  /// The draft has become the open record, and is kept as any other. True.
  bool Ripresa(const Scheda& testa, const Righe<R>& righe) {
    Segna(testa, righe);
    ButtaRipresa();
    return true;
  }

 private:
  /// Rows with a number of their own are known by it, others by their place.
  static constexpr bool kNumerate = requires(const R& riga) { riga.num; };

  static std::vector<const R*> InOrdine(const Righe<R>& righe) {
    std::vector<const R*> tutte;
    tutte.reserve(righe.Tutte().size());
    for (const R& riga : righe.Tutte()) tutte.push_back(&riga);
    if constexpr (kNumerate) {
      std::ranges::sort(tutte, {}, [](const R* riga) { return riga->num; });
    }
    return tutte;
  }

  std::int64_t ChiaveDi(const R& riga, std::int64_t posto) {
    if constexpr (kNumerate) {
      const auto [trovata, nuova] = chiavi_.try_emplace(riga.num, ultimaChiave_ + 1);
      if (nuova) ++ultimaChiave_;
      return trovata->second;
    }
    return posto;
  }

  [[nodiscard]] bool Uguali(const R& una, const R& altra) const {
    if constexpr (std::equality_comparable<R>) return una == altra;
    return VoceDiRiga(una, campi_) == VoceDiRiga(altra, campi_);
  }

  void MettiRighe(const Righe<R>& righe, bool tutte) {
    std::int64_t posto = 0;
    for (const R* riga : InOrdine(righe)) {
      const std::int64_t chiave = ChiaveDi(*riga, ++posto);
      const auto [ultima, nuova] = ultime_.try_emplace(chiave, *riga);
      if (!tutte && !nuova && Uguali(ultima->second, *riga)) continue;
      ultima->second = *riga;
      file_.Metti(kRigaBozza + std::to_string(chiave), VoceDiRiga(*riga, campi_));
    }
    if (ultime_.size() == righe.Tutte().size()) return;
    std::set<std::int64_t> restate;
    posto = 0;
    for (const R& riga : righe.Tutte()) restate.insert(ChiaveDi(riga, ++posto));
    std::erase_if(ultime_, [&](const auto& ultima) {
      if (restate.contains(ultima.first)) return false;
      file_.Metti(kRigaBozza + std::to_string(ultima.first), {std::string(kTolta)});
      return true;
    });
  }

  void MettiAperta(const Righe<R>& righe) {
    VoceBozza voce;
    if (righe.Digitando()) {
      std::int64_t chiave = 0;
      if (const R* aperta = righe.Aperta()) {
        chiave = ChiaveDi(*aperta, aperta - righe.Tutte().data() + 1);
      }
      voce.push_back(std::to_string(chiave));
      for (const std::string& nome : righe.Riga().Nomi()) {
        voce.push_back(nome);
        voce.push_back(righe.Riga().Leggi(nome).Neutro());
      }
    }
    file_.Metti(std::string(kApertaBozza), voce);
  }

  [[nodiscard]] R Letta(const CampiBozza& scritti, R riga) const {
    for (const CampoRiga<R>& campo : campi_) {
      DaTesto(scritti, campo.nome, campo.tipo,
              [&](const Valore& valore) { campo.scrivi(riga, valore); });
    }
    return riga;
  }

  std::span<const CampoRiga<R>> campi_;
  std::unordered_map<std::int64_t, std::int64_t> chiavi_;  ///< by the rows' numbers
  std::int64_t ultimaChiave_ = 0;
  std::unordered_map<std::int64_t, R> ultime_;  ///< as they were kept last
  std::uint64_t versione_ = 0;
  std::int64_t posiAperta_ = 0;
};

}  // namespace fenalto::records
