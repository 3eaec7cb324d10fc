#include "screens/common/fields/FonteDescritta.h"

#include <utility>

namespace fenalto::screens {
namespace {

class FonteRistretta : public FonteCodici {
 public:
  FonteRistretta(std::shared_ptr<FonteCodici> tutti, std::shared_ptr<FonteCodici> elencati)
      : tutti_(std::move(tutti)), elencati_(std::move(elencati)) {}
  std::optional<std::string> Descrizione(const std::string& codice) override {
    return tutti_->Descrizione(codice);
  }
  std::string Canonico(const std::string& codice) override { return tutti_->Canonico(codice); }
  std::vector<VoceCodice> Cerca(const std::string& testo, int massimo) override {
    return elencati_->Cerca(testo, massimo);
  }

 private:
  std::shared_ptr<FonteCodici> tutti_;
  std::shared_ptr<FonteCodici> elencati_;
};

}  // namespace

std::shared_ptr<FonteCodici> CreaFonte(Ambiente& ambiente, const records::FonteCampo& fonte) {
  const auto da = [&](const std::string& tabella) {
    return std::make_shared<FonteTabella>(
        [&ambiente, chiave = fonte.chiave]() -> Archivio& { return ambiente.ArchivioDi(chiave); },
        tabella, "Cod", fonte.campoDescrizione, [filtro = fonte.filtro] { return filtro; });
  };
  if (fonte.elencati.empty()) return da(fonte.fonte);
  return std::make_shared<FonteRistretta>(da(fonte.fonte), da(fonte.elencati));
}

}  // namespace fenalto::screens
