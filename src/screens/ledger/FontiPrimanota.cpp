#include "screens/ledger/FontiPrimanota.h"

#include <functional>

namespace fenalto::screens {
namespace {

std::function<Archivio&()> Tessarc(Ambiente& ambiente) {
  return [&ambiente]() -> Archivio& { return ambiente.ArchivioDi("tessarc"); };
}

class Causali : public FonteCodici {
 public:
  explicit Causali(Ambiente& ambiente)
      : tutte_(Tessarc(ambiente), "Causali", "Cod", "Descrizione"),
        elencate_(Tessarc(ambiente), "select * from Causali where (cod<'1' or cod>'9zz')", "Cod",
                  "Descrizione") {}
  std::optional<std::string> Descrizione(const std::string& codice) override {
    return tutte_.Descrizione(codice);
  }
  std::string Canonico(const std::string& codice) override { return tutte_.Canonico(codice); }
  std::vector<VoceCodice> Cerca(const std::string& testo, int massimo) override {
    return elencate_.Cerca(testo, massimo);
  }

 private:
  FonteTabella tutte_;
  FonteTabella elencate_;
};

std::shared_ptr<FonteCodici> DiClasse(Ambiente& ambiente, const std::string& classe,
                                      const char* conti) {
  if (classe == "C" || classe == "F") {
    return std::make_shared<FonteTabella>(
        Tessarc(ambiente), classe == "C" ? "ZCLIENTI" : "ZFORNITORI", "Cod", "RAGSOC1");
  }
  return std::make_shared<FonteTabella>(Tessarc(ambiente),
                                        std::string("SELECT * FROM ") + conti + " WHERE CFP='P'",
                                        "Cod", "Descrizione");
}

}  // namespace

std::shared_ptr<FonteCodici> FonteCausali(Ambiente& ambiente) {
  return std::make_shared<Causali>(ambiente);
}

std::shared_ptr<FonteCodici> FonteConti(Ambiente& ambiente, const std::string& classe) {
  return DiClasse(ambiente, classe, "zConti");
}

std::shared_ptr<FonteCodici> FonteContropartite(Ambiente& ambiente, const std::string& classe) {
  return DiClasse(ambiente, classe, "Conti");
}

std::shared_ptr<FonteCodici> FonteCategorie(Ambiente& ambiente) {
  return std::make_shared<FonteTabella>(Tessarc(ambiente), "Categorie", "Cod", "Descrizione");
}

QString TabellaDiClasse(const std::string& classe) {
  if (classe == "C") return QStringLiteral("CLIENTI");
  if (classe == "F") return QStringLiteral("FORNITORI");
  return QStringLiteral("CONTI");
}

}  // namespace fenalto::screens
