#include "core/session/Csv.h"

#include <algorithm>

#include "core/session/FileTesto.h"
#include "core/values/Testo.h"

namespace fenalto {

namespace {

class LettoreCsv {
 public:
  LettoreCsv(std::string_view testo, const OpzioniCsv& opzioni)
      : testo_(testo), opzioni_(opzioni) {}

  [[nodiscard]] bool Fine() const { return i_ >= testo_.size(); }
  [[nodiscard]] std::size_t Linea() const { return linea_; }

  /// The fields of the next record; an empty line gives one empty field.
  Esito<std::vector<std::string>> Record() {
    std::vector<std::string> campi;
    for (;;) {
      auto campo = Campo();
      if (!campo) return campo.Errore();
      campi.push_back(std::move(campo).Valore());
      if (Fine()) return campi;
      if (testo_[i_] == opzioni_.separatore) {
        ++i_;
        continue;
      }
      i_ += testo_[i_] == '\r' ? 2U : 1U;
      ++linea_;
      return campi;
    }
  }

 private:
  [[nodiscard]] bool FineCampo() const {
    return Fine() || testo_[i_] == opzioni_.separatore || testo_[i_] == '\n' ||
           (testo_[i_] == '\r' && i_ + 1 < testo_.size() && testo_[i_ + 1] == '\n');
  }

  Esito<std::string> Campo() {
    std::string campo;
    if (!Fine() && testo_[i_] == '"') {
      ++i_;
      return TraVirgolette();
    }
    for (; !FineCampo(); ++i_) {
      if (testo_[i_] == '"' && !opzioni_.tollerante)
        return Errata("virgolette in mezzo a un campo");
      campo += testo_[i_];
    }
    return campo;
  }

  Esito<std::string> TraVirgolette() {
    std::string campo;
    const std::size_t aperta = linea_;
    for (; !Fine(); ++i_) {
      if (testo_[i_] == '\n') ++linea_;
      if (testo_[i_] != '"') {
        campo += testo_[i_];
      } else if (i_ + 1 < testo_.size() && testo_[i_ + 1] == '"') {
        campo += testo_[i_++];
      } else {
        ++i_;
        if (FineCampo()) return campo;
        if (!opzioni_.tollerante) return Errata("testo dopo le virgolette di chiusura");
        for (; !FineCampo(); ++i_) campo += testo_[i_];
        return campo;
      }
    }
    return Errore{"riga " + std::to_string(aperta) + ": virgolette non chiuse"};
  }

  [[nodiscard]] Errore Errata(const char* motivo) const {
    return {"riga " + std::to_string(linea_) + ": " + motivo};
  }

  std::string_view testo_;
  const OpzioniCsv& opzioni_;
  std::size_t i_ = 0;
  std::size_t linea_ = 1;
};

Esito<bool> VerificaNomi(const std::vector<std::string>& nomi) {
  for (auto nome = nomi.begin(); nome != nomi.end(); ++nome) {
    if (Rifila(*nome).empty()) return Errore{"riga 1: manca il nome di un campo"};
    const auto uguale = [&](const std::string& altro) { return UgualeTesto(altro, *nome); };
    if (std::any_of(nomi.begin(), nome, uguale)) {
      return Errore{"riga 1: il campo «" + *nome + "» è ripetuto"};
    }
  }
  return true;
}

}  // namespace

Esito<TabellaCsv> LeggiCsv(std::string_view testo) {
  return LeggiCsv(testo, {});
}

Esito<TabellaCsv> LeggiCsv(std::string_view testo, const OpzioniCsv& opzioni) {
  if (!opzioni.tollerante && !Utf8Valido(testo)) return Errore{"il testo non è in UTF-8"};
  if (testo.starts_with(kSegnoUtf8)) testo.remove_prefix(kSegnoUtf8.size());
  LettoreCsv lettore(testo, opzioni);
  TabellaCsv tabella;
  if (lettore.Fine()) return Errore{"riga 1: mancano i nomi dei campi"};
  auto nomi = lettore.Record();
  if (!nomi) return nomi.Errore();
  tabella.nomi = std::move(nomi).Valore();
  if (!opzioni.tollerante) {
    if (auto buoni = VerificaNomi(tabella.nomi); !buoni) return buoni.Errore();
  }
  while (!lettore.Fine()) {
    const std::size_t linea = lettore.Linea();
    auto campi = lettore.Record();
    if (!campi) return campi.Errore();
    if (campi.Valore().size() == 1 && campi.Valore()[0].empty() && tabella.nomi.size() > 1)
      continue;
    if (!opzioni.tollerante && campi.Valore().size() != tabella.nomi.size()) {
      return Errore{"riga " + std::to_string(linea) + ": " + std::to_string(campi.Valore().size()) +
                    " campi invece di " + std::to_string(tabella.nomi.size())};
    }
    if (opzioni.massimoRighe > 0 && tabella.righe.size() == opzioni.massimoRighe) {
      return Errore{"riga " + std::to_string(linea) + ": più di " +
                    std::to_string(opzioni.massimoRighe) + " righe"};
    }
    tabella.righe.push_back({linea, std::move(campi).Valore()});
  }
  return tabella;
}

}  // namespace fenalto
